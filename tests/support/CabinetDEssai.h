#pragma once

#include "Cabinet.h"
#include "Schema.h"
#include "practice/Environnement.h"
#include "support/RecordingMessages.h"
#include "support/RecordingWord.h"

#include <QTemporaryDir>

/// A small sample practice in a folder of its own, which goes with it. Its clock stands still, in the middle
/// of a Wednesday morning that some patients have come to and others not.
class CabinetDEssai {
  public:
    static OptionsCabinet options() {
        return {.graine = 1,
                .patients = 120,
                .annees = 1,
                .rdv = 2000,
                .aujourdhui = QDate(2026, 3, 11),
                .ancien = false};
    }

    /// The practice of options(), in `sousDossier` of its folder: a copy of one that is written once a run.
    explicit CabinetDEssai(const QString &sousDossier = QStringLiteral("cabinet"));
    /// Another practice. Throws what ecritCabinet throws.
    explicit CabinetDEssai(const OptionsCabinet &voulu);

    /// The world of a program that has read the path database, with this practice's clock and messages and
    /// word processors that keep what they are asked for.
    const Environnement &environnement();

    QString dossier() const { return m_dossier; }
    QString fichier(Base base) const;
    Database ouvre(Base base) const { return Database::open(fichier(base)); }
    /// Name and digest of every file of the practice.
    QStringList empreintes() const;

    QDateTime maintenant{QDate(2026, 3, 11), QTime(10, 5)};
    RecordingMessages messages;
    std::shared_ptr<WordRecord> word = std::make_shared<WordRecord>();

  private:
    QTemporaryDir m_temporaire;
    QString m_dossier;
    Environnement m_env;
};
