#include "platform/db/SqlDialect.h"
#include "platform/db/SqliteFunctions.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace {

std::string translated(const char *sql) {
    return SqlDialect::sqlite(QString::fromUtf8(sql)).toStdString();
}

/// A book in memory, asked in the book's dialect.
class Book {
  public:
    Book() {
        sqlite3_open(":memory:", &m_connection);
        registerSqliteFunctions(m_connection);
        for (const char *sql :
             {"Create Table RDV (RefRDV, NumPraticien, DateInv, Date1, HeureDebut, Nom, Prenom)",
              "Create Table TabPat (Nom TEXT)", "Create Index ParNom on TabPat (TexteIndex(Nom))",
              "Create Index RDVSemaine on RDV (clng(NumPraticien), DateInv, HeureDebut)",
              "Insert into RDV Values (1, 1, '20260311', #03 11 2026#, #09:00#, 'D''Arc', 'Jean')",
              "Insert into RDV Values (2, 1, '20260312', #03 12 2026#, #14:15:00#, 'Émile', Null)"}) {
            EXPECT_EQ(run(sql), "") << sql;
        }
    }
    ~Book() { sqlite3_close(m_connection); }

    /// The last column of every row, joined; the engine's message when it refuses.
    std::string run(const char *sql) {
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_prepare_v2(m_connection, translated(sql).c_str(), -1, &statement, nullptr) != SQLITE_OK) {
            return sqlite3_errmsg(m_connection);
        }
        std::string result;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const int last = sqlite3_column_count(statement) - 1;
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, last));
            result += (result.empty() ? "" : ",") + std::string(text != nullptr ? text : "Null");
        }
        sqlite3_finalize(statement);
        return result;
    }

  private:
    sqlite3 *m_connection = nullptr;
};

struct Row {
    const char *name = nullptr;
    const char *source = nullptr;
    const char *expected = nullptr;
    const char *postgres = nullptr; ///< none: as for SQLite
};

const Row translations[] = {
    {"joinedNumber", "Select * from Config Where clng(NumPraticien) =1and clng(Fauteuil)=2",
     "Select * from Config Where CAST(NumPraticien AS INTEGER) = 1 and CAST(Fauteuil AS INTEGER) = 2",
     "Select * from Config Where clng(NumPraticien) = 1 and clng(Fauteuil) = 2"},
    {"assigned", "Update TabPat Set Nom='a', Prenom = 'b' Where Nom='c'",
     "Update TabPat Set Nom = 'a', Prenom = 'b' Where Nom = 'c' COLLATE TEXTE",
     "Update TabPat Set Nom = 'a', Prenom = 'b' Where Nom = 'c' COLLATE dialecte.texte"},
    {"comparedInsideAssignment", "update X set A = (select 1 where B = 'b'), C = 'c'",
     "update X set A = (select 1 where B = 'b' COLLATE TEXTE), C = 'c'",
     "update X set A = (select 1 where B = 'b' COLLATE dialecte.texte), C = 'c'"},
    {"dateAndTimes", "Date1 = #03 25 2005# And Heure <= #09:30# or Heure>#23:59:58#",
     "Date1 = '2005-03-25' And Heure <= '09:30:00' or Heure > '23:59:58'"},
    {"hashThatIsNoDate", "#13 45 2005# or #25:00#or a#", "#13 45 2005# or #25:00#or a#"},
    {"nestedFunctions", "ucase( str (x) )='A1' and CINT((a)+str(b))=1",
     "ucase(CAST (x AS TEXT)) = 'A1' COLLATE TEXTE and CAST((a) + CAST(b AS TEXT) AS INTEGER) = 1",
     "ucase(CAST (x AS text)) = 'A1' COLLATE dialecte.texte and clng((a) + CAST(b AS text)) = 1"},
    {"textOrders", "TexteIndex(nom)>='du'order by TexteTri(nom)asc,DateInv",
     "(nom COLLATE NOCASE) >= 'du' COLLATE TEXTE order by (nom COLLATE TEXTE) asc, DateInv",
     R"(lower(nom COLLATE "C") >= 'du' order by tri(nom) asc nulls first, DateInv nulls first)"},
    {"booleans", "Present=False and x = TRUE and [True] = 'True' and TrueX",
     "Present = 0 and x <> 0 and [True] = 'True' COLLATE TEXTE and TrueX",
     R"(Present = 0 and x <> 0 and "true" = 'True' COLLATE dialecte.texte and TrueX)"},
    {"assignedTrue", "update X set A = True, B = iif(C = True, True, False) where D = True",
     "update X set A = 1, B = iif(C <> 0, 1, 0) where D <> 0"},
    {"names", "A1.DateCréationFicheInv=[Nom d'usage]and A2 . *",
     "A1.DateCréationFicheInv = [Nom d'usage] and A2.*",
     R"(A1.DateCréationFicheInv = "nom d'usage" and A2.*)"},
    {"quotes", R"(a like "l'""eau" & 'd''arc')", R"(a like 'l''"eau' || 'd''arc')"},
    {"minusIsNoComment", "5--3", "5 - - 3"},
    {"numbers", "1.5and .5or 2E-3and 3e", "1.5 and .5 or 2E-3 and 3 e"},
    {"neverClosed", "a = 'b  c", "a = 'b  c"},
    {"orders", "select CleLigne from T order by a desc, f(b, c)limit 1",
     "select rowid from T order by a desc, f(b, c) limit 1",
     "select cleligne from T order by a desc nulls last, f(b, c) nulls first limit 1"},
    {"orderInside",
     "x in (select a from b order by c) and 'B' <= TexteIndex(d)and TexteIndex(str(e))in('F','É')and 'F'=F",
     "x in (select a from b order by c) and 'B' COLLATE TEXTE <= (d COLLATE NOCASE) and "
     "(CAST(e AS TEXT) COLLATE NOCASE) in('F', 'É') and 'F' COLLATE TEXTE = F",
     "x in (select a from b order by c nulls first) and 'b' <= lower(d COLLATE \"C\") and "
     "lower(CAST(e AS text) COLLATE \"C\") in('f', 'É') and 'F' COLLATE dialecte.texte = F"},
    {"like", "a like 'd''a*[!b-d^]?#.' or a not like '[]' or a like b",
     "a like 'd''a*[!b-d^]?#.' or a not like '[]' or a like b",
     R"(a COLLATE "und-x-icu" ~* '^d''a.*[^b-d\^].[0-9]\.$' or a COLLATE "und-x-icu" !~* '^(?!$|.)$' or a like b)"},
    {"parenthesesOutOfBalance", ") clng(x", ") CAST(x", ") clng(x"},
};

const Row runs[] = {
    {"weekUsesItsIndex",
     "Explain Query Plan Select * from RDV Where clng(NumPraticien)=1 And DateInv >= '20260309'",
     "SEARCH RDV USING INDEX RDVSemaine (<expr>=? AND DateInv>?)"},
    {"namesUseTheirIndex",
     "Explain Query Plan Select Nom from TabPat Where TexteIndex(Nom) >= 'du' and TexteIndex(Nom) < 'dv'",
     "SEARCH TabPat USING COVERING INDEX ParNom (Nom>? AND Nom<?)"},
    {"orderedWithoutCase", "Select RefRDV from RDV where Nom >= 'd''a'", "1,2"},
    {"quoteInLike", "select RefRDV from RDV where nom like 'D''AR*'order by nom asc, prenom asc", "1"},
    {"noAccentInLike", "select RefRDV from RDV where nom like 'e*' or nom = 'EMILE'", ""},
    {"datesAsText", "select cstr(Date1) from RDV", "11/03/2026,12/03/2026"},
    {"dayOfADateWithTime", "select InverseDate('2026-03-11 00:00:00') & InverseDate('2026-03-12')",
     "2026031120260312"},
    {"minusOneIsTrue", "select RefRDV from RDV where -RefRDV = True and 0 <> True and not (-1 <> True)",
     "1,2"},
    {"othersAsText", "select cstr(7) & cstr('2026-13-45') & cstr(Prenom) from RDV where RefRDV = 2",
     "72026-13-45"},
};

} // namespace

TEST(SqlDialect, IsTranslated) {
    for (const Row &row : translations) {
        EXPECT_EQ(translated(row.source), row.expected) << row.name;
        const char *postgres = row.postgres != nullptr ? row.postgres : row.expected;
        EXPECT_EQ(SqlDialect::postgres(QString::fromUtf8(row.source)).toStdString(), postgres) << row.name;
    }
}

TEST(SqlDialect, GivesTheRightRows) {
    Book book;
    for (const Row &row : runs) {
        EXPECT_EQ(book.run(row.source), row.expected) << row.name;
    }
}
