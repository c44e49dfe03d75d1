#pragma once

#include "support/CabinetDEssai.h"

#include <QColor>
#include <QList>

/// What one cell of the week grid has to hold. An invalid colour is the system's.
struct CelluleAttendue {
    QString texte;
    QColor fond;
    QColor encre;
    QString image; ///< file name of the picture
    bool centree = false;
};

/// The week grid of one practitioner at one chair as the database and the rules of the book have it: each
/// cell is told from its own stretch of time, not from rows.
class SemaineAttendue {
  public:
    /// `fauteuil` is the chair of a row of Config; a practitioner without a row gets practitioner 0's. The
    /// week is the one of `jour`, a day of March 2026.
    SemaineAttendue(const CabinetDEssai &cabinet, int praticien, int fauteuil, QDate jour);

    int lignes() const;
    int colonnes() const { return int(m_jours.size()) + 2; }
    CelluleAttendue cellule(int ligne, int col) const;

  private:
    struct Rdv {
        QDate date;
        int debut = 0;
        int fin = 0;
        QString texte;
        bool present = false;
    };
    void litHoraires(const Record &config);
    void litRendezVous(Database &carnet, int praticien, int fauteuil);
    int heure(int ligne) const { return m_matin + (ligne - 1) * m_pas; }
    bool grisee(int col, int heure) const;
    CelluleAttendue entete(int col) const;
    void pose(const Rdv &rdv, int heure, CelluleAttendue &cellule) const;

    QDateTime m_maintenant;
    QDate m_lundi;
    QList<int> m_jours; ///< weekday number of each appointment column
    QList<int> m_grises;
    QList<Rdv> m_rdv;
    int m_pas = 0; ///< times are minutes of the day
    int m_matin = 0;
    int m_midi = 0;
    int m_reprise = 0;
    int m_soir = 0;
};
