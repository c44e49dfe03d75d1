#pragma once

#include "grid/RendezVous.h"

/// What the user is told about an appointment that another workstation changed since it was shown: both
/// versions, and that nothing was written.
QString MessageModifie(const RendezVous &avant, const RendezVous &actuel);
inline const QString titreModifie = QStringLiteral("Rendez-vous modifié");
