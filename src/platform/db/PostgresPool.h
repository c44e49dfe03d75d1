#pragma once

#include "platform/db/PostgresConnection.h"
#include "platform/db/PostgresSchema.h"

/// A connection to that server that is nobody else's until the last copy of the pointer goes: one that is
/// kept, if it still stands, else a new one. All threads share what is kept: the window goes on with the
/// connection that the start has made. Nothing when it fails, which `failure` tells.
std::shared_ptr<PostgresConnection> takeConnection(const ServerLocation &place, PostgresFailure &failure);

/// Closes those that nobody has now: a line that was cut may look whole until it is used.
void forgetConnections(const QString &url);

// What a schema held when this program looked last. A connection that goes takes that with it: nobody knows
// what happened on the server before the next.
std::optional<PostgresCatalogue> knownCatalogue(const ServerLocation &place);
void keepCatalogue(const ServerLocation &place, const PostgresCatalogue &found);
void forgetCatalogues(const QString &url);
