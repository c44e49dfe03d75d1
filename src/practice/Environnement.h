#pragma once

#include "platform/db/Database.h"
#include "platform/files/StoredPaths.h"
#include "platform/printing/Printer.h"
#include "platform/word/WordProcessor.h"
#include "practice/Auteur.h"
#include "practice/CheminTables.h"

#include <QDateTime>
#include <chrono>
#include <functional>
#include <memory>

class Messages;

/// A writing whose answer was lost, and when.
struct EcritureEnDoute {
    QString base;
    QString cle; ///< DbError::writing()
    QDateTime quand;
};

/// The world outside: what a test replaces, and where the data lies. It is made before the first window,
/// const from then on, and handed down by reference; it outlives every window.
struct Environnement {
    Environnement();

    std::function<QDateTime()> maintenant = [] { return QDateTime::currentDateTime(); };
    std::function<QString()> poste;       ///< this workstation's name; at first what the system calls it
    std::function<QString()> utilisateur; ///< at first the account that runs the program
    Messages *messages = nullptr;
    Printer imprimante = printOnDefaultPrinter;
    /// Starts a word processor. Throws WordError where none is installed.
    std::function<std::unique_ptr<WordProcessor>()> traitementDeTexte;
    StoredPaths chemins;
    std::chrono::milliseconds patience{5000}; ///< how long a busy database is waited for

    /// How often a book in a file is looked at for what others have written; 0: never.
    std::chrono::milliseconds rythme{1500};

    QString CheminDesChemins;   ///< the path database: a real file
    QString CheminRacine;       ///< documents and pictures, as stored; a folder always
    QString CheminFichiers;     ///< templates of documents, and archives; a folder always
    QString CheminBases;        ///< the databases: a folder, or the place that a server gives them
    QString CheminTransmission; ///< those that go between the suite and the book, as above
    QString CheminBaseRDV;

    /// What this workstation remembers of how it shows the book; empty: nothing is remembered.
    QString fichierReglages;
    /// The program that answers to --essaie-verrou, for the test of the book's locks; none: they are not
    /// tested.
    QString programme;
    /// Why the book may only be read, as a French sentence; empty as long as it may be written. What finds
    /// out (a damaged page, locks that do not hold) writes it while the book is open.
    std::shared_ptr<QString> lectureSeule = std::make_shared<QString>();
    /// Nobody knows yet whether these were made: until then essaie() runs nothing that might make them again.
    std::shared_ptr<QList<EcritureEnDoute>> enDoute = std::make_shared<QList<EcritureEnDoute>>();
    /// How many actions on the databases are under way in the window's thread: tente() counts them. What
    /// comes by itself (a timer, news of another workstation) is put off until there is none.
    std::shared_ptr<int> actions = std::make_shared<int>(0);

    /// Who writes, now.
    Auteur auteur() const { return {maintenant(), poste(), utilisateur()}; }
    /// Fills the data locations from the row of the path database, which lies in `dossier`. Folders that the
    /// row does not name, since a server keeps its databases: those of the other, or of `dossier`.
    void prendEmplacements(const Emplacements &lus, const QString &dossier = {});

    // Each opens one database for one action; all throw DbError.
    Database ouvreCarnet() const;
    /// The same for an action that writes: refused where the book may only be read.
    Database ouvreCarnetPourEcrire() const;
    Database ouvreParametres() const;           ///< practitioners
    Database ouvreParametresImpression() const; ///< letterheads
    Database ouvrePatients() const;             ///< the suite's patient file
    Database ouvrePatientsCrees() const;        ///< listing of the patients created here
    Database ouvreActes() const;
    Database ouvreTransmission() const; ///< what the suite hands over
    Database ouvreHistorique() const;   ///< whose history the suite is asked to show

  private:
    Database ouvre(const QString &chemin) const;
    Database ouvreDeLaSuite(const QString &fichier) const;
};
