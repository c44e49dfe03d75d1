#include "practice/Essai.h"

#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace {

/// The window goes on being drawn; what the user does meanwhile comes afterwards.
void attend() {
    constexpr std::chrono::milliseconds entreDeuxEssais{30};
    const Sablier sablier;
    QEventLoop boucle;
    QTimer::singleShot(entreDeuxEssais, &boucle, &QEventLoop::quit);
    boucle.exec(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

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
        attend();
    }
}

bool essaie(const Environnement &env, const std::function<void()> &operation) {
    const std::optional<DbError> echec = tente(env, operation);
    if (echec) {
        env.messages->error(echec->message());
    }
    return !echec;
}
