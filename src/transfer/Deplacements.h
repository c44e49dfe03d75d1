#pragma once

#include "practice/Environnement.h"
#include "transfer/DeplacementTables.h"

/// What came of a move, for the user.
struct FinDeplacement {
    bool fait = false;
    QString texte;
};

/// Moves a whole practice between folders and a server, and has the path database name the new place at the
/// very end: until then everything stays as it is, whatever happens. It needs no window and may run in a
/// thread of its own.
class Deplacements {
  public:
    /// `metANiveau` is what a start does with the book, which then has its indexes before anybody uses it; it
    /// gives what the user has to be told.
    Deplacements(const Environnement &env, std::function<QString(Database &)> metANiveau)
        : m_env(env), m_metANiveau(std::move(metANiveau)) {}

    FinDeplacement versServeur(const QString &url, const Avancement &avance) const;
    FinDeplacement versFichiers(const QString &dossier, const Avancement &avance) const;
    /// Has this desk use a practice that was moved to a server from another one.
    FinDeplacement rejointServeur(const QString &url) const;

  private:
    struct Demande;
    FinDeplacement essaie(const Avancement &avance, const std::function<QString(Demande &)> &operation) const;
    QString deplace(Demande &demande, TableStore &source, TableStore &cible, const Avancement &avance) const;
    void copieDocuments(Demande &demande, const QStringList &noms) const;
    void bascule(const Demande &demande) const;
    bool nomme(const QString &CheminBase) const;

    const Environnement &m_env;
    std::function<QString(Database &)> m_metANiveau;
};
