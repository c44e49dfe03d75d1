#pragma once

#include "platform/word/Verbs.h"

#include <QJsonArray>

/// Verbs on their way to another process. What verbsOf() reads has to come from jsonOf().
namespace word {

QJsonArray jsonOf(const Verbs &verbs);
Verbs verbsOf(const QJsonArray &array);

} // namespace word
