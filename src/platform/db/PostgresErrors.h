#pragma once

#include "platform/db/DbError.h"
#include "platform/db/PostgresConnection.h"

/// The DbError for what a server or the way to it refused. `sent` is the statement that failed; empty when
/// the connection did.
DbError postgresError(const PostgresFailure &failure, const QString &location, const QString &sent = {});
