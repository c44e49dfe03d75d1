#pragma once

#include "grid/RendezVous.h"
#include "journal/Ecriture.h"

#include <QList>
#include <optional>

/// What may be undone and done again: rules on values.

/// What was done, as a menu names it: "Déplacer DURAND".
QString NomDuGeste(const EcritureRDV &ecriture);

/// An edit, by what it has changed.
enum class GenreEdition { Autre, Deplace, Allonge, Raccourci };
GenreEdition GenreDe(const EcritureRDV &ecriture);

/// The writings of this program, the latest of which can be undone, and what was undone be done again.
class Annulation {
  public:
    static constexpr int pasGardes = 50;

    /// Something was written: what had been undone cannot be done again after that.
    void note(const EcritureRDV &ecriture);
    /// What is to be undone, or done again, next.
    std::optional<EcritureRDV> aAnnuler() const { return dernier(m_faits); }
    std::optional<EcritureRDV> aRefaire() const { return dernier(m_annules); }
    /// It was, and its row stands under the key `ref` now.
    void annule(qint64 ref) { passe(m_faits, m_annules, ref); }
    void refait(qint64 ref) { passe(m_annules, m_faits, ref); }
    /// It never can be.
    void oublieAnnulation() { m_faits.removeLast(); }
    void oublieRefait() { m_annules.removeLast(); }

  private:
    static std::optional<EcritureRDV> dernier(const QList<EcritureRDV> &pas) {
        return pas.isEmpty() ? std::nullopt : std::optional(pas.last());
    }
    void passe(QList<EcritureRDV> &de, QList<EcritureRDV> &vers, qint64 ref);

    QList<EcritureRDV> m_faits;
    QList<EcritureRDV> m_annules;
};

/// What putting a row back out of the history comes to.
enum class Retour {
    SansAvant, ///< there was no row before
    Actuel,    ///< it is what it was already
    SurPlace,  ///< what changes is not its place
    Occupe,
    Passe, ///< to a place that is free, and past
    Libre
};
/// `actuel`: the row as it is now, nothing when it is gone. `libre`: the place of `avant` is free.
Retour RetourA(const std::optional<RendezVous> &avant, const std::optional<RendezVous> &actuel, bool libre,
               const QDateTime &maintenant);
