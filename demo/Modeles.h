#pragma once

#include <QStringList>

#include <chrono>

/// Writes the word processor's templates of a practice with this data root and this folder of suite
/// databases, by one run of LibreOffice; the letters show the frame that lies under this root. Gives the
/// names of those that could not be made: all where LibreOffice is missing or takes longer than `limite`.
QStringList ecritModeles(const QString &racine, const QString &fichiers,
                         std::chrono::milliseconds limite = std::chrono::seconds(30));
