#include "Document.h"

#include "Interaction.h"
#include "Links.h"
#include "PrintJob.h"
#include "TemplateFile.h"
#include "Uno.h"
#include "platform/word/WordProcessor.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/document/XRedlinesSupplier.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/io/IOException.hpp>
#include <com/sun/star/text/XBookmarksSupplier.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include <QDir>

#include <algorithm>

using namespace com::sun::star;

namespace {

constexpr qsizetype longestBookmark = 40; // characters, in a .doc

/// What a document can hold: no control characters, one kind of line break.
QString writable(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QString kept;
    for (const QChar character : qAsConst(text)) {
        const char16_t code = character.unicode();
        if (code == u'\r' || code == u'\v') {
            kept += u'\n';
        } else if ((code >= u' ' || code == u'\n' || code == u'\t') && code < 0xFFFE) {
            kept += character;
        }
    }
    return kept;
}

/// The name that the document has for a bookmark: a .doc knows no blanks in them and cuts them, and its own
/// word processor does not care for case. Empty: none.
rtl::OUString bookmarkNamed(const uno::Reference<container::XNameAccess> &bookmarks, const QString &name) {
    QString wanted = name.left(longestBookmark);
    wanted.replace(u' ', u'_');
    rtl::OUString found;
    for (const rtl::OUString &each : bookmarks->getElementNames()) {
        const QString text = textOf(each);
        if (text == name) {
            return each;
        }
        if (text.compare(wanted, Qt::CaseInsensitive) == 0) {
            found = each;
        }
    }
    return found;
}

template <typename Held>
Held held(const uno::Reference<uno::XInterface> &object, const char *name) {
    const uno::Reference<beans::XPropertySet> set(object, uno::UNO_QUERY_THROW);
    Held value;
    set->getPropertyValue(rtl::OUString::createFromAscii(name)) >>= value;
    return value;
}

/// What the office makes of a file in which it finds nothing that it knows.
bool readAsPlainText(const uno::Reference<frame::XModel> &model) {
    return std::ranges::any_of(model->getArgs(), [](const beans::PropertyValue &argument) {
        rtl::OUString filter;
        return argument.Name == "FilterName" && (argument.Value >>= filter) && filter.startsWith("Text");
    });
}

QString rowOf(const rtl::OUString &cell) {
    const QString name = textOf(cell);
    const auto digit = std::ranges::find_if(name, [](QChar c) { return c.isDigit(); });
    return name.mid(digit - name.begin());
}

} // namespace

Document::Document(const Office &office, const QString &path) : m_name(QDir::toNativeSeparators(path)) {
    const QString refused = refusedTemplate(path);
    if (!refused.isEmpty()) {
        throw WordError(refused);
    }
    load(office, path);
    try {
        settleChanges(office);
        showLinkedFiles(path);
    } catch (...) {
        as<util::XCloseable>()->close(true);
        throw;
    }
}

Document::~Document() {
    try {
        as<util::XCloseable>()->close(true);
    } catch (const uno::Exception &) { // an office that has gone has closed it
    }
}

void Document::load(const Office &office, const QString &path) {
    const rtl::Reference<Interaction> interaction(new Interaction);
    const uno::Reference<task::XInteractionHandler> handler(interaction.get());
    try {
        m_document =
            frame::Desktop::create(office.context())
                ->loadComponentFromURL(
                    unoUrl(path), "_blank", 0,
                    properties({property("Hidden", true), property("AsTemplate", true),
                                property("MacroExecutionMode", document::MacroExecMode::NEVER_EXECUTE),
                                property("UpdateDocMode", document::UpdateDocMode::FULL_UPDATE),
                                property("InteractionHandler", handler)}));
    } catch (const io::IOException &) {
        m_document.clear();
    }
    const uno::Reference<text::XTextDocument> text(m_document, uno::UNO_QUERY);
    const bool isDocument = text.is() && !readAsPlainText(as<frame::XModel>());
    if (interaction->passwordAsked()) {
        throw WordError(QStringLiteral("Le modèle « %1 » est protégé par un mot de passe.").arg(m_name));
    }
    if (!isDocument) {
        if (m_document.is()) {
            as<util::XCloseable>()->close(true);
        }
        throw WordError(
            QStringLiteral("Le modèle « %1 » est abîmé, ou n'est pas un document de traitement de "
                           "texte.")
                .arg(m_name));
    }
}

/// What was deleted with changes recorded would be in the file, and what is written be a change.
void Document::settleChanges(const Office &office) {
    as<beans::XPropertySet>()->setPropertyValue("RecordChanges", uno::Any(false));
    if (as<document::XRedlinesSupplier>()->getRedlines()->createEnumeration()->hasMoreElements()) {
        const uno::Reference<frame::XDispatchProvider> frame(
            as<frame::XModel>()->getCurrentController()->getFrame(), uno::UNO_QUERY_THROW);
        frame::DispatchHelper::create(office.context())
            ->executeDispatch(frame, ".uno:AcceptAllTrackedChanges", {}, 0, {});
    }
}

void Document::showLinkedFiles(const QString &path) {
    const QString missing = takeLinkedFiles(m_document, path);
    if (!missing.isEmpty()) {
        throw WordError(QStringLiteral("Le fichier « %1 », que le modèle « %2 » montre, est introuvable.")
                            .arg(missing, m_name));
    }
}

bool Document::select(const QString &bookmark) {
    const auto bookmarks = as<text::XBookmarksSupplier>()->getBookmarks();
    const rtl::OUString name = bookmarkNamed(bookmarks, bookmark);
    if (name.isEmpty()) {
        return false;
    }
    m_bookmark = bookmark;
    const uno::Reference<text::XTextContent> mark(bookmarks->getByName(name), uno::UNO_QUERY_THROW);
    const auto anchor = mark->getAnchor();
    m_range = anchor->getText()->createTextCursorByRange(anchor);
    m_table = held<uno::Reference<text::XTextTable>>(m_range, "TextTable");
    m_cells.clear();
    m_cell = 0;
    if (m_table.is()) {
        const auto own = held<uno::Reference<uno::XInterface>>(m_range, "Cell");
        for (const rtl::OUString &each : m_table->getCellNames()) {
            m_cells << each;
        }
        m_cell = m_cells.indexOf(held<rtl::OUString>(own, "CellName"));
    }
    return true;
}

void Document::fill(const QList<std::optional<QString>> &texts) {
    if (!m_table.is()) {
        throw WordError(QStringLiteral("Dans le modèle « %1 », le signet « %2 » n'est pas dans un tableau.")
                            .arg(m_name, m_bookmark));
    }
    const auto last =
        std::ranges::find_if(texts.rbegin(), texts.rend(), [](const auto &t) { return t.has_value(); });
    growTo(m_cell + (texts.rend() - last));
    as<frame::XModel>()->lockControllers(); // nobody looks at the pages meanwhile
    for (const std::optional<QString> &text : texts) {
        if (text) {
            cell(m_cell)->setString(unoText(writable(*text)));
        }
        ++m_cell;
    }
    as<frame::XModel>()->unlockControllers();
    m_range.clear();
}

void Document::growTo(qsizetype cells) {
    if (cells <= m_cells.size()) {
        return;
    }
    const QString lastRow = rowOf(m_cells.last());
    const qsizetype columns =
        std::ranges::count_if(m_cells, [&](const rtl::OUString &each) { return rowOf(each) == lastRow; });
    const qsizetype rows = (cells - m_cells.size() + columns - 1) / columns;
    m_table->getRows()->insertByIndex(m_table->getRows()->getCount(), static_cast<sal_Int32>(rows));
    m_cells.clear();
    for (const rtl::OUString &each : m_table->getCellNames()) {
        m_cells << each;
    }
}

uno::Reference<text::XText> Document::cell(qsizetype index) {
    return {m_table->getCellByName(m_cells.at(index)), uno::UNO_QUERY_THROW};
}

void Document::type(const QString &text) {
    if (m_range.is()) {
        m_range->setString(unoText(writable(text)));
        m_range->collapseToEnd();
    } else if (m_table.is()) {
        growTo(m_cell + 1);
        cell(m_cell)->setString(unoText(writable(text)));
    }
}

void Document::store(const QString &path, const char *filter) {
    as<frame::XStorable>()->storeToURL(
        unoUrl(path), properties({property("FilterName", rtl::OUString::createFromAscii(filter)),
                                  property("Overwrite", true)}));
}

void Document::storeWord(const QString &path) {
    store(path, "MS Word 97");
}

void Document::storePdf(const QString &path) {
    store(path, "writer_pdf_Export");
}

bool Document::print() {
    return printed(m_document);
}
