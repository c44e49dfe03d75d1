#include "platform/db/SqlDialect.h"

#include "platform/db/SqlTranslation.h"

#include <array>

QString SqlDialect::sqlite(const QString &sql) {
    static constexpr std::array<SqlCall, 6> calls{{{u"clng", u"CAST", u" AS INTEGER"},
                                                   {u"cint", u"CAST", u" AS INTEGER"},
                                                   {u"str", u"CAST", u" AS TEXT"},
                                                   {u"InverseDate", u"replace(substr", u", 1, 10), '-', ''"},
                                                   {u"TexteTri", u"", u" COLLATE TEXTE"},
                                                   {u"TexteIndex", u"", u" COLLATE NOCASE"}}};
    static constexpr SqlGrammar grammar{calls, u"COLLATE TEXTE", u"rowid", false};
    return translated(tokensOf(sql), grammar);
}
