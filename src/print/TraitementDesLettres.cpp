#include "print/TraitementDesLettres.h"

#include "practice/Environnement.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLockFile>
#include <QTimer>

namespace {

constexpr std::chrono::milliseconds verrouOublie{180'000}; // no letter takes that long: it is given up before

void patiente() {
    constexpr std::chrono::milliseconds entreDeuxEssais{30};
    QEventLoop boucle;
    QTimer::singleShot(entreDeuxEssais, &boucle, &QEventLoop::quit);
    boucle.exec();
}

} // namespace

Environnement PourLesLettres(Environnement env, const QString &cadre) {
    if (env.traitementDeTexte) {
        env.traitementDeTexte = [lance = env.traitementDeTexte, verrou = cadre + QStringLiteral(".verrou"),
                                 limite = 2 * env.patience]() -> std::unique_ptr<WordProcessor> {
            std::unique_ptr<WordProcessor> traitement = lance();
            return traitement ? std::make_unique<TraitementDesLettres>(std::move(traitement), verrou, limite)
                              : nullptr;
        };
    }
    return env;
}

WordDocument TraitementDesLettres::perform(const word::Verbs &verbs) {
    QLockFile verrou(m_verrou);
    verrou.setStaleLockTime(verrouOublie);
    const QDeadlineTimer limite(m_limite);
    m_attend = true;
    while (m_attend && !verrou.tryLock(0)) {
        if (verrou.error() != QLockFile::LockFailedError) {
            throw WordError(QStringLiteral("Les lettres ont besoin d'écrire dans le dossier « %1 », qui est "
                                           "introuvable, plein ou en lecture seule.")
                                .arg(QDir::toNativeSeparators(QFileInfo(m_verrou).path())));
        }
        if (limite.hasExpired()) {
            throw WordError(QStringLiteral("Un autre poste est en train de faire une lettre. Réessayez dans "
                                           "un instant."));
        }
        patiente();
    }
    if (!std::exchange(m_attend, false)) {
        throw WordError(QString()); // cancelled
    }
    return m_traitement->perform(verbs);
}

void TraitementDesLettres::cancel() {
    if (!std::exchange(m_attend, false)) {
        m_traitement->cancel();
    }
}
