#pragma once

#include <QString>

/// A database that a server keeps: "postgresql://…", and behind it, as behind a folder, the catalogue file,
/// which is a schema there ("…\Fichiers\Tavelin.mdb": tavelin).
struct ServerLocation {
    QString url;    ///< without the catalogue file
    QString schema; ///< empty: none is named

    static bool isOne(const QString &location);
    static ServerLocation of(const QString &location);

    /// As a sentence names it: "le serveur « srv »". Nothing of who connects is in it.
    QString serverName() const;
    /// "la base « cabinet » du serveur « srv »"
    QString databaseName() const;
    /// "serveur cabinet": the practice's name there, as short as can be.
    QString label() const;
    /// The value of one of the parameters behind the "?", empty when it is not there.
    QString parameter(const QString &name) const;
    /// That of the parameters, before the "/" or of the environment: a name, an address, a folder of sockets
    /// or nothing.
    QString host() const;
    QString database() const;
    bool isOnThisMachine() const;
    bool holdsPassword() const;
};
