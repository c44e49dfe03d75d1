#pragma once

#include <QString>

/// What one office process keeps on the disk: a temporary folder with its profile and its documents in the
/// making, and two sockets that stay when it is killed.
struct OfficeFolder {
    QString path;

    QString profile() const { return path + QStringLiteral("/profil"); }
    QString temporary() const { return path + QStringLiteral("/tmp"); }
    /// The pipe under which the office can be reached.
    QString pipe() const;
    /// Takes all of it away. Nothing happens when it is gone already.
    void remove() const;
};
