#pragma once

#include "platform/word/Verbs.h"

#include <stdexcept>

/// Why a document could not be made, as a French sentence; empty when the user has cancelled it.
class WordError : public std::runtime_error {
  public:
    explicit WordError(const QString &sentence) : std::runtime_error(sentence.toStdString()) {}
    QString sentence() const { return QString::fromUtf8(what()); }
};

/// A document that was made.
struct WordDocument {
    QString saved; ///< file; empty when it was not to be saved
    QString pdf;   ///< what Print wrote where there is no printer; else empty
};

/// A word processor that runs for as long as this lives: a test puts its own in place of the real one.
class WordProcessor {
  public:
    WordProcessor() = default;
    virtual ~WordProcessor() = default;
    WordProcessor(const WordProcessor &) = delete;
    WordProcessor &operator=(const WordProcessor &) = delete;

    /// Does the steps in order; events are handled while it waits. Throws WordError when a step fails: the
    /// document is closed, and what was only reserved is gone. What fails or takes too long never keeps the
    /// next document from being made.
    virtual WordDocument perform(const word::Verbs &verbs) = 0;
    /// Gives up the running perform(), which throws.
    virtual void cancel() = 0;
    /// Opens a saved document in the user's own word processor, where it stays. Throws WordError.
    virtual void show(const QString &path) = 0;
};
