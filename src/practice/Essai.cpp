#include "practice/Essai.h"

#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

std::optional<DbError> tente(const Environnement &env, const std::function<void()> &operation) {
    const QDeadlineTimer limite(env.patience);
    for (;;) {
        try {
            operation();
            return std::nullopt;
        } catch (const DbError &erreur) {
            if (erreur.kind() != DbError::Kind::Locked || limite.hasExpired()) {
                return erreur;
            }
        }
        patiente();
    }
}

bool essaie(const Environnement &env, const std::function<void()> &operation) {
    const std::optional<DbError> echec = tente(env, operation);
    if (echec) {
        env.messages->error(echec->message());
    }
    return !echec;
}

/// What the user does meanwhile comes afterwards.
void patiente() {
    constexpr std::chrono::milliseconds unMoment{30};
    const Sablier sablier;
    QEventLoop boucle;
    QTimer::singleShot(unMoment, &boucle, &QEventLoop::quit);
    boucle.exec(QEventLoop::ExcludeUserInputEvents);
}
