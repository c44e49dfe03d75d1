#pragma once

#include "platform/word/WordProcessor.h"

#include <chrono>
#include <memory>

struct Environnement;

/// `env` with a word processor for letters, whose frame is the file `cadre`. All workstations fill the same
/// one: a lock beside it is held from the first step of a letter to its last, and no longer, so that what a
/// failure tells keeps nobody waiting.
Environnement PourLesLettres(Environnement env, const QString &cadre);

class TraitementDesLettres : public WordProcessor {
  public:
    /// Another workstation is waited for as long as `limite`.
    TraitementDesLettres(std::unique_ptr<WordProcessor> traitement, QString verrou,
                         std::chrono::milliseconds limite)
        : m_traitement(std::move(traitement)), m_verrou(std::move(verrou)), m_limite(limite) {}

    WordDocument perform(const word::Verbs &verbs) override;
    void cancel() override;
    void show(const QString &path) override { m_traitement->show(path); }

  private:
    std::unique_ptr<WordProcessor> m_traitement;
    QString m_verrou;
    std::chrono::milliseconds m_limite;
    bool m_attend = false;
};
