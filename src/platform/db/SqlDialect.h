#pragma once

#include <QString>

/// Translates SQL text of the book's dialect into an engine's own. Pure text in, text out: no connection.
class SqlDialect {
  public:
    /// SQLite text for `sql`:
    /// - pieces that were joined without a blank ("=1and", "'…*'order by") are set apart;
    /// - clng(x), cint(x) become CAST(x AS INTEGER); str(x) becomes CAST(x AS TEXT), InverseDate(x) the eight
    ///   digits of a stored date; cstr and ucase stay, as functions that the engine registers (see
    ///   SqliteFunctions);
    /// - TexteTri(x) becomes x in alphabetical order (collation TEXTE), for "order by"; a plain "order by x"
    ///   stays as it is, since dates, times and numbers come sorted from the indexes that hold them;
    /// - TexteIndex(x) becomes x under the engine's own collation that ignores the case of unaccented
    ///   letters: an index over it can be kept by every program that writes the file;
    /// - #MM dd yyyy# becomes 'YYYY-MM-DD', #HH:MM# and #HH:MM:SS# become 'HH:MM:SS';
    /// - True and False become 1 and 0; what is compared with True is compared with 0 instead, since another
    ///   program may have written -1; & becomes ||; a text between double quotes gets single ones;
    /// - a text literal with a cased letter that is compared with =, <>, <, <=, > or >= gets the
    ///   case-ignoring collation TEXTE, unless it is assigned (between Set and Where of an Update); one
    ///   without keeps the plain comparison, so that an index serves;
    /// - CleLigne becomes rowid: the order in which rows were added to a table that has no key of its own;
    /// - everything else is passed on as it stands (like is overridden by the engine).
    static QString sqlite(const QString &sql);

    /// PostgreSQL text for `sql`, which needs the schema "dialecte" (PostgresSchema). The same as SQLite's
    /// but:
    /// - clng, cint, cstr, ucase, iif and TexteTri are functions of that schema, the collation TEXTE is its
    /// texte; TexteIndex(x) is
    ///   x in small letters where they are unaccented, byte by byte; CleLigne is a field of that name;
    /// - "x like 'y'" is made into a regular expression that ignores case;
    /// - where Null stands in an order is said: first, as in SQLite;
    /// - [name] is written as createTable() creates it.
    static QString postgres(const QString &sql);
    /// The same for the terms of an index, which are in the order that "order by" gives.
    static QString postgresOrder(const QString &terms);
    /// A name as every table, field and index has it on the server.
    static QString postgresName(const QString &name);
};
