#pragma once

#include "platform/word/WordProcessor.h"

#include <memory>
#include <optional>

class QWidget;
struct Environnement;

/// Documents made by the word processor one after the other, by one process for all of them. Meanwhile a
/// small modal window says what is going on, and stops it by its button "Annuler".
class Courrier {
  public:
    /// How many documents are to come decides about the button: it gives up the only one, and stops several
    /// between two of them.
    Courrier(const Environnement &env, QWidget *parent, int documents);
    ~Courrier();
    Courrier(const Courrier &) = delete;
    Courrier &operator=(const Courrier &) = delete;

    /// Makes one; `texte` is shown meanwhile ("Lettre 3 sur 12"). Nothing when it failed, which is told, or
    /// was given up: no further document is to be tried then.
    std::optional<WordDocument> fait(const word::Verbs &verbes, const QString &texte);
    /// Out of the way of what the user is told next; the next document shows it again.
    void cache();
    /// True when the user wants no further document.
    bool arrete() const;
    /// Hands a saved document over to the user. False when that failed, which is told.
    bool montre(const QString &document);

  private:
    class Fenetre;
    void annule();
    void ditImpossible();

    const Environnement &m_env;
    std::unique_ptr<WordProcessor> m_traitement; ///< none where none is installed
    std::unique_ptr<Fenetre> m_fenetre;
    QString m_impossible; ///< what is still to be told
    bool m_seul;
    bool m_arrete = false;
};
