#pragma once

#include "platform/ui/Messages.h"

#include <QList>

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

    QList<Message> shown;
    bool answer = false;
};
