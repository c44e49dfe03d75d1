#pragma once

#include <QString>
#include <exception>

/// The one exception of the database layer: which file or server, and a sentence in French for the user.
class DbError : public std::exception {
  public:
    enum class Kind {
        Missing,       ///< no file at that path, no such database or schema on the server
        UnknownFormat, ///< the file is no database that an engine here reads
        ReadOnly,      ///< the file, its disk, its engine or the server refuses to be written
        Locked,        ///< another program kept the database beyond the waiting time
        LocksRefused,  ///< the folder cannot lock files: waiting would not help
        Damaged,       ///< truncated or corrupt
        DiskFull,
        Structure,      ///< a table or a field is not there
        Conflict,       ///< the row would stand where another is: what a rule looks for before it writes
        Unreachable,    ///< the server is away, or the line to it; nothing was written
        Refused,        ///< the server lets this user, or this workstation, not in
        UnknownOutcome, ///< the line went while a transaction was being committed; writing() finds it out
        Other
    };

    /// `precision` is French: the end of the sentence of Structure, Other, Unreachable and Refused, a
    /// sentence of its own for ReadOnly; `technical` is for what() alone.
    DbError(Kind kind, QString file, const QString &precision = {}, const QByteArray &technical = {});
    /// UnknownOutcome: `writing` is the transaction's own key.
    static DbError unknownOutcome(const QString &file, const QString &writing, const QByteArray &technical);

    Kind kind() const { return m_kind; }
    const QString &file() const { return m_file; }
    /// A complete French sentence that names the file or the server; ready for a message box.
    const QString &message() const { return m_message; }
    /// What is wrong alone, for an action that goes in steps: from "le fichier" on, with a full stop.
    const QString &cause() const { return m_cause; }
    /// What Database::wasWritten() is asked with.
    const QString &writing() const { return m_writing; }
    const char *what() const noexcept override { return m_what.constData(); }

  private:
    Kind m_kind;
    QString m_file;
    QString m_cause;
    QString m_message;
    QString m_writing;
    QByteArray m_what;
};
