#include "practice/AttenteVivante.h"

#include "platform/ui/Sablier.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>
#include <poll.h>

namespace {

using std::chrono::milliseconds;

/// Nobody sees a window stand still for so long, and most answers of a server nearby are there by then.
constexpr milliseconds inapercu{8};
/// Then the pointer says that something is waited for.
constexpr milliseconds remarque{300};

bool estPrete(int prise, bool lire, bool ecrire, milliseconds limite) {
    pollfd attendue{prise, short((lire ? POLLIN : 0) | (ecrire ? POLLOUT : 0)), 0};
    return poll(&attendue, 1, int(limite.count())) > 0; // interrupted: it is waited for again below
}

/// The loop that is left as soon as the socket is ready.
bool tourne(int prise, bool lire, bool ecrire, milliseconds limite) {
    constexpr int prete = 1;
    QEventLoop boucle;
    std::unique_ptr<Sablier> sablier;
    const auto guette = [&](bool voulu, QSocketNotifier::Type quoi) {
        auto guet = voulu && prise >= 0 ? std::make_unique<QSocketNotifier>(prise, quoi) : nullptr;
        if (guet) {
            QObject::connect(guet.get(), &QSocketNotifier::activated, &boucle,
                             [&boucle] { boucle.exit(prete); });
        }
        return guet;
    };
    const auto lecture = guette(lire, QSocketNotifier::Read);
    const auto ecriture = guette(ecrire, QSocketNotifier::Write);
    QTimer::singleShot(limite, Qt::PreciseTimer, &boucle, &QEventLoop::quit);
    QTimer::singleShot(remarque, &boucle, [&sablier] { sablier = std::make_unique<Sablier>(); });
    return boucle.exec(QEventLoop::ExcludeUserInputEvents) == prete;
}

} // namespace

bool attendEnDessinant(int prise, bool lire, bool ecrire, milliseconds limite) {
    const QDeadlineTimer fin(limite);
    if (prise >= 0 && estPrete(prise, lire, ecrire, std::min(inapercu, limite))) {
        return true;
    }
    const auto reste = [&fin] { return milliseconds(fin.remainingTime()); };
    // a program that is quitting has no loop any more
    return tourne(prise, lire, ecrire, reste()) || estPrete(prise, lire, ecrire, reste());
}
