#pragma once

#include <QString>

/// The parts of the strip that stands at the left of an appointment.
inline constexpr const char *formesImages[] = {"Dbl", "Top", "Mid", "Low"};
/// Monday to Sunday.
inline constexpr const char *couleursImages[] = {"Bleu", "Violet", "Orange", "Jaune",
                                                 "Vert", "Brown",  "BleuF"};

/// Draws the 28 pictures into `dossier`; gives how many were written.
int ecritImages(const QString &dossier);
