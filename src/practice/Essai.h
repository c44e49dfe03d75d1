#pragma once

#include "platform/db/DbError.h"
#include "practice/Environnement.h"

#include <optional>

/// Runs one action on the databases. One that another program holds is tried again for env.patience, during
/// which windows are drawn and take no input: `operation` must be one that may begin anew after a failure,
/// which one transaction is. Gives what failed, nothing when all went well.
std::optional<DbError> tente(const Environnement &env, const std::function<void()> &operation);

/// The same, and tells the user what failed. True when all went well. A writing that is in doubt is found out
/// first: whoever asks for it again is told what became of it, and nothing is run.
bool essaie(const Environnement &env, const std::function<void()> &operation);

/// Runs `suite` for `contexte`: at once, or when the action that is under way has ended.
void desQueLibre(const Environnement &env, QObject &contexte, const std::function<void()> &suite);

/// Asks what became of the writings in doubt, and tells the user. True when none is left.
bool regleDoutes(const Environnement &env);
