#pragma once

#include "platform/word/Verbs.h"
#include "print/Lettres.h"

#include <QDateTime>
#include <QSet>
#include <QTime>
#include <array>

/// The listing of the appointments of a day to which nobody came.

inline const QString tousLesPraticiens = QStringLiteral("Tous");
inline constexpr int colonnesAbsents = 7;

/// What is to be listed, as the screen says: a practitioner's number or all of them, and a day as
/// "dd/mm/yyyy", or whatever was typed instead of one.
struct DemandeAbsents {
    QString praticien;
    QString date;

    friend bool operator==(const DemandeAbsents &, const DemandeAbsents &) = default;
};

/// A row of RDV as the listing shows it.
struct Absent {
    QString NumPraticien;
    QString nom;
    QString PreNom;
    QString NumPatient;
    QTime HeureDebut;
    QTime HeureFin;
    QString telephone;

    /// Texts of the columns.
    std::array<QString, colonnesAbsents> textes() const;
    /// A letter needs somebody to come from.
    bool peutEtreMarque() const;
};

/// What was listed, together with what it was listed for: letters go out for that day, whatever the screen
/// asks for by then.
struct ListeAbsents {
    DemandeAbsents demande;
    QList<Absent> absents;
    QSet<int> marques; ///< places in `absents`

    void basculeMarque(int place);
    /// One for each that is marked, in the order of the list.
    QList<Lettre> lettres() const;
};

/// Whether a text spells a whole number, blanks around it.
bool EstNumero(const QString &texte);

/// "2 marqués"
QString TexteMarques(int combien);

/// Widths of the columns in twips; wider in proportion where the grid is wider.
std::array<int, colonnesAbsents> LargeursAbsents(int largeurGrille);

/// The document of a list, after the real path of its template: printed, then saved under a name that begins
/// with `debut`. A list without anybody has one empty line.
word::Verbs VerbesListing(const ListeAbsents &liste, const QString &modele, const QString &debut,
                          const QDateTime &maintenant);
