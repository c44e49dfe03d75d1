#pragma once

#include <QMap>
#include <QString>

/// Turns a path as the suite stores it ("D:\Donnees\Images") into a real file of this machine.
/// Only at opening: stored paths themselves are kept as they are.
class StoredPaths {
  public:
    /// Adds drives from "D=/srv/cabinet" entries parted by ";". False, and nothing added, when an entry is
    /// not a letter, "=" and a folder.
    bool addDrives(const QString &entries);

    /// False for what names no file at all, but a database of a server ("postgresql://…"): it has no real
    /// file and is left as it is.
    static bool isPath(const QString &stored);

    /// Backslashes turned, a mapped drive letter replaced, each component matched without regard to letter
    /// case. A component that is not there is kept as spelled, so that the path can still be named or
    /// created.
    QString real(const QString &stored) const;

    /// real() of a database, whose extension may be left out: ".mdb" then.
    QString realDatabase(const QString &stored) const;

  private:
    QMap<QChar, QString> m_drives;
};
