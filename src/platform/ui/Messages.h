#pragma once

#include <QString>

/// How windows speak to the user. A test replaces it by one that records and answers.
class Messages {
  public:
    enum class Icon { None, Critical };

    Messages() = default;
    virtual ~Messages() = default;
    Messages(const Messages &) = delete;
    Messages &operator=(const Messages &) = delete;

    /// A message with an OK button. An empty title stands for the application's.
    virtual void show(const QString &text, const QString &title = {}, Icon icon = Icon::None) = 0;
    /// A question with the buttons Yes and No; true for Yes.
    virtual bool ask(const QString &text, const QString &title) = 0;
    /// What every failed operation says: `text` under the title "Erreur", with the stop icon.
    void error(const QString &text) { show(text, QStringLiteral("Erreur"), Icon::Critical); }
};

/// Modal message boxes over the active window.
class MessageBoxes : public Messages {
  public:
    void show(const QString &text, const QString &title, Icon icon) override;
    bool ask(const QString &text, const QString &title) override;
};
