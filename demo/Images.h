#pragma once

#include <QString>

/// Draws into `dossier` the strip that stands at the left of an appointment, in four parts and a colour for
/// each weekday; gives how many pictures. Throws ErreurCabinet.
int ecritImages(const QString &dossier);
