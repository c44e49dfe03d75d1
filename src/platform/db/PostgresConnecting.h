#pragma once

#include "platform/db/PostgresConnection.h"

/// Connects; null when that fails, which `failure` tells. Finding a host, reading password and service files
/// and reckoning with keys may each stand still: all that happens in a thread of its own, which is waited for
/// by attends(), and left alone once the time is up.
pg_conn *connectToServer(const ServerLocation &place, PostgresFailure &failure);
