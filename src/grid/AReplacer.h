#pragma once

#include "grid/RendezVous.h"

#include <QDateTime>
#include <QList>
#include <optional>

/// Appointments that are set aside in order to be placed later: they stay in the book where they lie. Rules
/// on values.

struct AReplacer {
    QDateTime depuis;
    RendezVous note;                       ///< as it was set aside: whose, where
    std::optional<RendezVous> actuel = {}; ///< as the book has it now; nothing when it is gone
    std::optional<RendezVous> pose = {};   ///< where it was placed since, day, hours and chair alone

    friend bool operator==(const AReplacer &, const AReplacer &) = default;
};

enum class EtatReplacer {
    EnAttente,
    Pose,    ///< where it was placed: not listed, unless that is undone
    Deplace, ///< elsewhere, and not from here
    Disparu  ///< deleted, or its key another patient's by now
};
EtatReplacer EtatDe(const AReplacer &un);

/// Those that are listed, the longest waiting first.
QList<AReplacer> Listes(const QList<AReplacer> &tous);
/// Whether a pin marks the appointment.
bool EstEpingle(const QList<AReplacer> &tous, qint64 RefRDV);
/// The one that is placed next: `voulu` (0: none is chosen) where it waits, else the first; nothing when none
/// does.
std::optional<AReplacer> APoser(const QList<AReplacer> &tous, qint64 voulu);

/// "MICHEL Lucas"
QString NomReplacer(const AReplacer &un);
/// "mar. 24 nov. 09:30 · 15 min"
QString PlaceReplacer(const AReplacer &un);
/// "en attente depuis 8 minutes", or what has become of it.
QString AttenteReplacer(const AReplacer &un, const QDateTime &maintenant);
/// "À replacer, 3 en attente"
QString TitreReplacer(const QList<AReplacer> &tous);
