#pragma once

#include <QString>
#include <vector>

/// A piece of SQL text of the book's dialect.
struct SqlToken {
    enum class Kind {
        Word, ///< keyword, function or bare name
        Name, ///< [name]
        Number,
        Literal, ///< a text, date or time between single quotes, ready for every engine
        Symbol,
        Other ///< not of the dialect: keeps its place against its neighbours
    };

    Kind kind = Kind::Other;
    QString text;
    bool blankBefore = true;

    bool is(QStringView symbol) const { return kind == Kind::Symbol && text == symbol; }
    bool isWord(QStringView word) const {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
};

std::vector<SqlToken> tokensOf(const QString &sql);

/// `text` between single quotes, its own doubled.
QString quotedText(QString text);
