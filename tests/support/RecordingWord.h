#pragma once

#include "platform/word/WordProcessor.h"

#include <memory>

/// What word processors were asked for during a test, and what they are to answer.
struct WordRecord {
    QList<word::Verbs> performed;
    QStringList shown;
    int started = 0;
    int failing = -1; ///< which perform() fails, counted from 0; -1: none
    bool hasPrinter = true;
};

/// Keeps each step and makes no file. A document that is saved gets the first name reserved.
class RecordingWord : public WordProcessor {
  public:
    explicit RecordingWord(std::shared_ptr<WordRecord> record) : m_record(std::move(record)) {
        ++m_record->started;
    }

    WordDocument perform(const word::Verbs &verbs) override {
        m_record->performed << verbs;
        if (m_record->performed.size() - 1 == m_record->failing) {
            throw WordError(QStringLiteral("Le traitement de texte s'est arrêté."));
        }
        WordDocument made;
        for (const word::Verb &verb : verbs) {
            if (const auto *reserved = std::get_if<word::Reserve>(&verb)) {
                made.saved = reserved->paths.first();
            } else if (std::holds_alternative<word::Print>(verb) && !m_record->hasPrinter) {
                made.pdf = made.saved.chopped(4) + QStringLiteral(".pdf");
            }
        }
        return made;
    }
    void cancel() override {}
    void show(const QString &path) override { m_record->shown << path; }

  private:
    std::shared_ptr<WordRecord> m_record;
};
