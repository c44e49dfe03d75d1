#pragma once

#include "platform/ui/Messages.h"

#include <QStringList>
#include <utility>

/// Keeps what the user would have read, and answers every question with `answer`.
class RecordingMessages : public Messages {
  public:
    struct Message {
        QString text;
        QString title;
        Icon icon = Icon::None;
        bool question = false;
    };

    void show(const QString &text, const QString &title, Icon icon) override {
        shown << Message{text, title, icon, false};
    }
    bool ask(const QString &text, const QString &title) override {
        shown << Message{text, title, Icon::None, true};
        return answer;
    }

    /// "title: text" of what was told since the last call, one a line.
    QString taken() {
        QStringList told;
        for (const Message &message : std::exchange(shown, {})) {
            told << message.title + QStringLiteral(": ") + message.text.simplified();
        }
        return told.join(u'\n');
    }

    QList<Message> shown;
    bool answer = false;
};
