#pragma once

#include "Schema.h"
#include "grid/RendezVousTables.h"

#include <QMap>

/// What the books must be after workstations have raced and were killed.

const QDate lundi(2026, 3, 9); ///< the first of three days

/// `dossier`: a folder, or a server's database.
QString fichier(const QString &dossier, Base base);

/// An appointment in one line. No two appointments are the same: each has a name of its own.
QString contenu(const RendezVous &rdv);

/// All of the three days, by practitioner and chair, each list by day and start.
QList<RendezVous> rendezVous(const QString &dossier);
int chevauchements(const QList<RendezVous> &rdv);
/// Of the patients.
QStringList noms(const QString &dossier, Base base);

/// Of each appointment, one writing has to begin where the one before has ended, and the last one has to end
/// with what is in the book; gives those of which that is not true.
QStringList ecartsHistoire(const QString &dossier);

/// Of each appointment that is set aside, the pinboard has to say where it was dropped last, and nothing
/// where it was not since. Counts the drops in `deposes`.
QStringList ecartsDepots(const QString &dossier, int &deposes);

/// How many writings were undone or done again.
int remis(const QString &dossier);

/// What was acknowledged, each content with how often it came less how often it was replaced; what was under
/// way when its workstation was killed.
struct Journal {
    QMap<QString, int> compte;
    QList<QStringList> enCours;
    int acquittes = 0;

    /// What a workstation said.
    void lit(const QByteArray &sortie);
    /// Counts as written what was under way and has left a trace; gives the contents that are wrong.
    QStringList ecarts(const QStringList &livre);

  private:
    void ecrit(const QStringList &annonce);
};
