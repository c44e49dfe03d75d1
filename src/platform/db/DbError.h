#pragma once

#include <QString>
#include <exception>

/// The one exception of the database layer: which file, and a sentence in French for the user.
class DbError : public std::exception {
  public:
    enum class Kind {
        Missing,       ///< no file at that path
        UnknownFormat, ///< the file is no database that an engine here reads
        ReadOnly,      ///< the file, its disk or its engine refuses to be written
        Locked,        ///< another program kept the database beyond the waiting time
        LocksRefused,  ///< the folder cannot lock files: waiting would not help
        Damaged,       ///< truncated or corrupt
        DiskFull,
        Structure, ///< a table or a field is not there
        Other
    };

    /// `precision` is French: the end of the sentence of Structure and Other, a sentence of its own for
    /// ReadOnly; `technical` is for what() alone.
    DbError(Kind kind, QString file, const QString &precision = {}, const QByteArray &technical = {});

    Kind kind() const { return m_kind; }
    const QString &file() const { return m_file; }
    /// A complete French sentence that names the file; ready for a message box.
    const QString &message() const { return m_message; }
    /// What is wrong alone, for an action that goes in steps: from "le fichier" on, with a full stop.
    const QString &cause() const { return m_cause; }
    const char *what() const noexcept override { return m_what.constData(); }

  private:
    Kind m_kind;
    QString m_file;
    QString m_cause;
    QString m_message;
    QByteArray m_what;
};
