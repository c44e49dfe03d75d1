#pragma once

#include "Schema.h"
#include "platform/db/Database.h"
#include "schedule/Configuration.h"
#include "support/Texte.h"

#include <QTemporaryDir>
#include <memory>

/// A row of RDV and one of Config, spelled as the book stores them.
struct RangRDV {
    const char *nom = "ROUX";
    const char *debut = "09:00:00";
    const char *fin = "10:00:00";
    const char *jour = "2026-03-11"; ///< a Wednesday
    int fauteuil = 1;
    const char *praticien = "01";
    bool present = false;
    const char *cle = nullptr; ///< DateInv; none: the day's own
};
struct RangConfig {
    const char *nom = "Cabinet1";
    int fauteuil = 1;
    bool defaut = true;
    const char *praticien = "01";
    int intervalle = 60;
    std::array<const char *, 4> heures{"08:00:00", "12:00:00", "14:00:00", "18:00:00"};
    std::array<int, 7> affich{1, 2, 3, 4, 5, 0, 0};
    std::array<int, 7> grise{0, 0, 0, 0, 0, 3, 3};
    int nbJours = 5;
};

/// The configuration that such a row is loaded as.
Configuration configDe(const RangConfig &rang = {});

class Serveur;

/// An appointment book, empty at first.
class Livre {
  public:
    /// Its own, which goes with it: a file, or with TAVELIN_LIVRES=serveur a database on the tests' server.
    Livre();
    ~Livre();
    Livre(const Livre &) = delete;
    Livre &operator=(const Livre &) = delete;
    /// The book of a practice, which loses its appointments and configurations.
    explicit Livre(QString fichier);

    const QString &fichier() const { return m_fichier; }
    Database ouvre() const { return Database::open(m_fichier); }
    void execute(const SqlText &sql) const { ouvre().execute(sql); }
    /// Gives RefRDV.
    qint64 rdv(const RangRDV &rang = {}) const;
    /// The same for a row a line, the fields' names first; "-" is Null, "·" a blank.
    QList<qint64> rdvs(const char *rangees) const;
    void config(const RangConfig &rang = {}) const;
    /// "name practitioner chair", and a star for a default, of every row of Config in table order.
    std::string configs() const;

  private:
    QTemporaryDir m_dossier;
    std::unique_ptr<Serveur> m_serveur;
    QString m_fichier;
};
