#include "Links.h"

#include "Uno.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/text/SectionFileLink.hpp>
#include <com/sun/star/text/XTextContent.hpp>
#include <com/sun/star/text/XTextSectionsSupplier.hpp>
#include <com/sun/star/util/XLinkUpdate.hpp>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace com::sun::star;

namespace {

const rtl::OUString linkName("FileLink");

QString linkedFile(const QString &url, const QString &templatePath) {
    const QString stored =
        QUrl(url).isLocalFile() ? QUrl(url).toLocalFile() : QUrl::fromPercentEncoding(url.toUtf8());
    const QString name = stored.section(QRegularExpression(QStringLiteral("[/\\\\:]")), -1);
    const QDir folder = QFileInfo(templatePath).dir();
    for (const QString &entry : folder.entryList(QDir::Files)) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) {
            return folder.filePath(entry);
        }
    }
    return stored;
}

} // namespace

QString takeLinkedFiles(const uno::Reference<lang::XComponent> &document, const QString &templatePath) {
    const auto sections =
        uno::Reference<text::XTextSectionsSupplier>(document, uno::UNO_QUERY_THROW)->getTextSections();
    QList<uno::Reference<beans::XPropertySet>> linked;
    for (const rtl::OUString &name : sections->getElementNames()) {
        const uno::Reference<beans::XPropertySet> section(sections->getByName(name), uno::UNO_QUERY_THROW);
        text::SectionFileLink link;
        section->getPropertyValue(linkName) >>= link;
        if (link.FileURL.isEmpty()) {
            continue;
        }
        const QString file = linkedFile(textOf(link.FileURL), templatePath);
        if (!QFileInfo::exists(file)) {
            return QDir::toNativeSeparators(file);
        }
        link.FileURL = unoUrl(file);
        section->setPropertyValue(linkName, uno::Any(link));
        linked << section;
    }
    if (!linked.isEmpty()) {
        uno::Reference<util::XLinkUpdate>(document, uno::UNO_QUERY_THROW)->updateLinks();
    }
    for (const auto &section : qAsConst(linked)) {
        section->setPropertyValue(linkName, uno::Any(text::SectionFileLink()));
        uno::Reference<lang::XComponent>(section, uno::UNO_QUERY_THROW)->dispose(); // what it holds stays
    }
    return {};
}
