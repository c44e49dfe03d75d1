#pragma once

#include <QString>
#include <QUrl>

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <rtl/ustring.hxx>

#include <vector>

/// Texts and paths as the office takes and gives them.

inline rtl::OUString unoText(const QString &text) {
    return {reinterpret_cast<const sal_Unicode *>(text.utf16()), static_cast<sal_Int32>(text.size())};
}

inline QString textOf(const rtl::OUString &text) {
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(text.getStr()), text.getLength());
}

inline rtl::OUString unoUrl(const QString &path) {
    return unoText(QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded()));
}

template <typename Held>
com::sun::star::beans::PropertyValue property(const char *name, const Held &value) {
    return {rtl::OUString::createFromAscii(name), 0, com::sun::star::uno::Any(value),
            com::sun::star::beans::PropertyState_DIRECT_VALUE};
}

inline com::sun::star::uno::Sequence<com::sun::star::beans::PropertyValue>
properties(const std::vector<com::sun::star::beans::PropertyValue> &list) {
    return {list.data(), static_cast<sal_Int32>(list.size())};
}
