#pragma once

#include <QList>
#include <QStringList>

#include <optional>
#include <variant>

/// What a word processor is asked to do, one step after the other: plain values that rules compose and tests
/// read. Paths are real ones. At most one document is open at a time.
namespace word {

/// A new document after this template, which itself stays as it is.
struct Open {
    QString path;

    friend bool operator==(const Open &, const Open &) = default;
};

/// The file that Save writes, and whose name with ".pdf" Print writes where there is no printer: the first of
/// `paths` that nobody has taken, reserved at once by an empty file, which goes when the document is not
/// saved.
struct Reserve {
    QStringList paths;

    friend bool operator==(const Reserve &, const Reserve &) = default;
};

/// The place of a bookmark, which has to be there.
struct Select {
    QString bookmark;

    friend bool operator==(const Select &, const Select &) = default;
};

/// Replaces the content of the selected table cell and of those right of it, line after line; nothing leaves
/// a cell as it is. What is written beyond a table's last cell adds a line that looks like its last. The cell
/// after the last one is selected then.
struct Cells {
    QList<std::optional<QString>> texts;

    friend bool operator==(const Cells &, const Cells &) = default;
};

/// Replaces the selection.
struct Type {
    QString text;

    friend bool operator==(const Type &, const Type &) = default;
};

/// The same at a bookmark, if the document has it.
struct TypeIfAny {
    QString bookmark;
    QString text;

    friend bool operator==(const TypeIfAny &, const TypeIfAny &) = default;
};

/// As a Word 97 document, under the reserved name.
struct Save {
    friend bool operator==(const Save &, const Save &) = default;
};

/// The same under a name whose former document it replaces.
struct SaveOver {
    QString path;

    friend bool operator==(const SaveOver &, const SaveOver &) = default;
};

/// On the default printer; without one, as a PDF beside the reserved name.
struct Print {
    friend bool operator==(const Print &, const Print &) = default;
};

/// Without saving again.
struct Close {
    friend bool operator==(const Close &, const Close &) = default;
};

using Verb = std::variant<Open, Reserve, Select, Cells, Type, TypeIfAny, Save, SaveOver, Print, Close>;
using Verbs = QList<Verb>;

} // namespace word
