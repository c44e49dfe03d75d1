#include "practice/Essai.h"

#include "platform/ui/DatesFr.h"
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

/// Counts as an action under way for as long as it lives.
class EnAction {
  public:
    explicit EnAction(int &nombre) : m_nombre(nombre) { ++m_nombre; }
    ~EnAction() { --m_nombre; }
    EnAction(const EnAction &) = delete;
    EnAction &operator=(const EnAction &) = delete;

  private:
    int &m_nombre;
};

} // namespace

std::optional<DbError> tente(const Environnement &env, const std::function<void()> &operation) {
    const EnAction enAction(*env.actions);
    const QDeadlineTimer limite(env.patience);
    for (;;) {
        try {
            operation();
            return std::nullopt;
        } catch (const DbError &erreur) {
            if (erreur.kind() == DbError::Kind::UnknownOutcome) {
                env.enDoute->append({erreur.file(), erreur.writing(), env.maintenant()});
            }
            if (erreur.kind() != DbError::Kind::Locked || limite.hasExpired()) {
                return erreur;
            }
        }
        attend();
    }
}

bool essaie(const Environnement &env, const std::function<void()> &operation) {
    if (!env.enDoute->isEmpty()) {
        if (!regleDoutes(env)) {
            const EcritureEnDoute &doute = env.enDoute->first();
            env.messages->error(DbError::unknownOutcome(doute.base, doute.cle, {}).message());
        }
        return false;
    }
    const std::optional<DbError> echec = tente(env, operation);
    if (echec) {
        env.messages->error(echec->message());
    }
    return !echec;
}

void desQueLibre(const Environnement &env, QObject &contexte, const std::function<void()> &suite) {
    constexpr std::chrono::milliseconds unMoment{20};
    if (*env.actions == 0) {
        suite();
        return;
    }
    QTimer::singleShot(unMoment, &contexte, [&env, &contexte, suite] { desQueLibre(env, contexte, suite); });
}

bool regleDoutes(const Environnement &env) {
    const QList<EcritureEnDoute> enDoute = std::exchange(*env.enDoute, {});
    for (const EcritureEnDoute &doute : enDoute) {
        bool faite = false;
        const std::optional<DbError> echec = tente(env, [&] {
            Database base = Database::open(doute.base);
            faite = base.wasWritten(doute.cle);
        });
        if (echec) {
            env.enDoute->append(doute);
            continue;
        }
        const QString quoi =
            QStringLiteral("Le serveur répond de nouveau. L'enregistrement de %1, resté sans réponse, ")
                .arg(DatesFr::heure(doute.quand.time()));
        env.messages->show(quoi + (faite
                                       ? QStringLiteral("est fait : ne le recommencez pas.")
                                       : QStringLiteral("n'est pas fait : rien n'a été écrit, vous pouvez le "
                                                        "recommencer.")));
    }
    return env.enDoute->isEmpty();
}
