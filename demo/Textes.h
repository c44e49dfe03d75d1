#pragma once

#include <QStringList>

/// What the sample practice is told with: the list of textes.txt that has this title. Throws
/// std::out_of_range.
const QStringList &textes(const QString &titre);
