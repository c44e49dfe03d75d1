#pragma once

#include "Office.h"

#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/text/XTextCursor.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/text/XTextTable.hpp>

#include <QList>

#include <optional>

/// A new document after a template, and what is selected in it. Everything throws WordError, or what the
/// office throws.
class Document {
  public:
    Document(const Office &office, const QString &path);
    /// Closes it, without saving.
    ~Document();
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    /// False when there is no such bookmark.
    bool select(const QString &bookmark);
    void fill(const QList<std::optional<QString>> &texts);
    void type(const QString &text);
    void storeWord(const QString &path);
    void storePdf(const QString &path);
    /// On the default printer. False when it refuses.
    bool print();

    const QString &name() const { return m_name; }

  private:
    template <typename Interface>
    com::sun::star::uno::Reference<Interface> as() const {
        return {m_document, com::sun::star::uno::UNO_QUERY_THROW};
    }
    void load(const Office &office, const QString &path);
    void settleChanges(const Office &office);
    void showLinkedFiles(const QString &path);
    void growTo(qsizetype cells);
    com::sun::star::uno::Reference<com::sun::star::text::XText> cell(qsizetype index);
    void store(const QString &path, const char *filter);

    QString m_name;     ///< of the template, for messages
    QString m_bookmark; ///< the one selected last
    com::sun::star::uno::Reference<com::sun::star::lang::XComponent> m_document;
    com::sun::star::uno::Reference<com::sun::star::text::XTextCursor> m_range; ///< selected; none: a cell
    com::sun::star::uno::Reference<com::sun::star::text::XTextTable> m_table;
    QList<rtl::OUString> m_cells; ///< of m_table, row by row
    qsizetype m_cell = 0;
};
