#pragma once

#include "platform/word/Verbs.h"

#include <QDateTime>
#include <array>

/// Letters to a patient, as what a word processor does: a frame that every letter shows (letterhead,
/// addressee, date) is filled and saved, then the letter's own template is opened, which takes it in.

/// Whom a letter goes to, from whom and about which day.
struct Lettre {
    long praticien = 0;
    long patient = 0; ///< 0: a patient whom the patient file does not have
    QString date;     ///< "dd/mm/yyyy"

    friend bool operator==(const Lettre &, const Lettre &) = default;
};

/// What the tables say for the frame; what they do not have is empty.
struct CadreLettre {
    std::array<QString, 10> lignes;   ///< the practitioner's letterhead
    std::array<QString, 7> patient;   ///< title, name, first name, address in two lines, postal code, town
    std::array<QString, 3> praticien; ///< title, name, first name
    QString ville;                    ///< of the practice
};

/// Real paths of a letter's documents.
struct FichiersLettre {
    QString modeleCadre;
    QString cadre; ///< the filled frame, replaced by each letter
    QString modele;
    QString lettre; ///< what the names of such letters begin with
};

/// The texts of the frame's table, cell after cell.
QList<std::optional<QString>> CellulesCadre(const CadreLettre &cadre, const QString &date, QDate aujourdhui);

/// Fills the frame, then makes the letter, saves and prints it.
word::Verbs VerbesAbsence(const CadreLettre &cadre, const QString &date, const FichiersLettre &fichiers,
                          const QDateTime &maintenant);
/// The same but for the printing: the letter is the user's to finish.
word::Verbs VerbesAnnulation(const CadreLettre &cadre, const QString &date, const FichiersLettre &fichiers,
                             const QDateTime &maintenant);

/// "Lettre 3 sur 12"
QString TexteProgression(int numero, int nombre);
/// What was made of the letters asked for; `dossierPdf` is where they are when there is no printer.
QString BilanLettres(int faites, int demandees, const QString &dossierPdf);
