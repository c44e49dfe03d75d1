#include "platform/db/PostgresPool.h"

#include <mutex>

namespace {

struct Pool {
    using Kept = std::shared_ptr<PostgresConnection>;

    std::mutex mutex;
    QHash<QString, QList<Kept>> idle;                             ///< by URL
    QHash<QString, QHash<QString, PostgresCatalogue>> catalogues; ///< by URL and schema
};

Pool &pool() {
    static Pool shared;
    return shared;
}

/// A wait in which something else happens takes a second one; more are not worth keeping.
void giveBack(const QString &url, const Pool::Kept &connection) {
    constexpr qsizetype kept = 2;
    const std::scoped_lock lock(pool().mutex);
    QList<Pool::Kept> &idle = pool().idle[url];
    if (!connection->isAlive()) {
        pool().catalogues.remove(url);
    } else if (idle.size() < kept) {
        idle.append(connection);
    }
}

Pool::Kept takeIdle(const QString &url) {
    const std::scoped_lock lock(pool().mutex);
    QList<Pool::Kept> &idle = pool().idle[url];
    while (!idle.isEmpty()) {
        Pool::Kept last = idle.takeLast(); // its settings are likely those that are wanted
        if (last->isAlive()) {
            return last;
        }
        pool().catalogues.remove(url);
    }
    return nullptr;
}

} // namespace

std::shared_ptr<PostgresConnection> takeConnection(const ServerLocation &place, PostgresFailure &failure) {
    Pool::Kept connection = takeIdle(place.url);
    if (!connection) {
        connection = PostgresConnection::connect(place, failure);
    }
    if (!connection) {
        return nullptr;
    }
    PostgresConnection *borrowed = connection.get();
    return {borrowed, [connection, url = place.url](PostgresConnection *) { giveBack(url, connection); }};
}

void forgetConnections(const QString &url) {
    const std::scoped_lock lock(pool().mutex);
    pool().idle.remove(url);
    pool().catalogues.remove(url);
}

std::optional<PostgresCatalogue> knownCatalogue(const ServerLocation &place) {
    const std::scoped_lock lock(pool().mutex);
    const auto &ofServer = pool().catalogues[place.url];
    const auto found = ofServer.constFind(place.schema);
    return found == ofServer.cend() ? std::nullopt : std::optional(*found);
}

void keepCatalogue(const ServerLocation &place, const PostgresCatalogue &found) {
    const std::scoped_lock lock(pool().mutex);
    pool().catalogues[place.url][place.schema] = found;
}

void forgetCatalogues(const QString &url) {
    const std::scoped_lock lock(pool().mutex);
    pool().catalogues.remove(url);
}
