#pragma once

#include "platform/db/DbError.h"
#include "practice/Environnement.h"

#include <optional>

/// Runs one action on the databases. One that another program holds is tried again for env.patience, during
/// which windows are drawn and take no input: `operation` must be one that may begin anew after a failure,
/// which one transaction is. Gives what failed, nothing when all went well.
std::optional<DbError> tente(const Environnement &env, const std::function<void()> &operation);

/// The same, and tells the user what failed. True when all went well.
bool essaie(const Environnement &env, const std::function<void()> &operation);
