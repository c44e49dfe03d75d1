#include "start/LancementDeplacement.h"

#include "platform/db/Attente.h"
#include "start/Demarrage.h"
#include "start/MiseANiveauTables.h"
#include "start/Options.h"
#include "transfer/Deplacements.h"

#include <QElapsedTimer>
#include <QTextStream>
#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t interrompu = 0;

void retientInterruption(int /*signal*/) {
    interrompu = 1;
}

/// The first Ctrl+C lets the move undo what it has begun.
void guetteInterruption() {
    struct sigaction action = {};
    action.sa_handler = retientInterruption;
    action.sa_flags = int(SA_RESETHAND); // a second one ends the program
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(signal, &action, nullptr);
    }
    // It ends the wait that it falls into. What is undone afterwards is waited for again.
    setAttente([](int prise, bool lit, bool ecrit, std::chrono::milliseconds limite) {
        static bool coupee = false;
        constexpr std::chrono::milliseconds pas(100);
        for (auto reste = limite; reste.count() > 0 && (interrompu == 0 || coupee); reste -= pas) {
            pollfd attendue{prise, short((lit ? POLLIN : 0) | (ecrit ? POLLOUT : 0)), 0};
            if (poll(&attendue, 1, int(std::min(reste, pas).count())) > 0) {
                return true;
            }
        }
        coupee = coupee || interrompu != 0;
        return false;
    });
}

/// One line that changes, or one for each step where the terminal is a file.
class Terminal {
  public:
    bool montre(const QString &etape, qint64 fait, qint64 total) {
        constexpr qint64 entreDeux = 100; // ms
        constexpr qint64 pourCent = 100;
        if (etape.isEmpty()) {
            return interrompu == 0;
        }
        const bool nouvelle = std::exchange(m_etape, etape) != etape;
        if (nouvelle && !m_vivant) {
            QTextStream(stderr) << etape << '\n';
        } else if (m_vivant && (nouvelle || m_depuis.elapsed() > entreDeux)) {
            const QString combien =
                total > 0 ? QStringLiteral(" : %1 %").arg(fait * pourCent / total) : QString();
            QTextStream(stderr) << "\r\033[K" << etape << combien;
            m_depuis.start();
        }
        return interrompu == 0;
    }
    void efface() const {
        if (m_vivant) {
            QTextStream(stderr) << "\r\033[K";
        }
    }

  private:
    const bool m_vivant = isatty(STDERR_FILENO) == 1;
    QString m_etape;
    QElapsedTimer m_depuis;
};

} // namespace

bool EstDeplacement(const Options &options) {
    return !options.versServeur.isEmpty() || !options.versFichiers.isEmpty() || !options.rejoint.isEmpty();
}

int LanceDeplacement(Environnement &env, const Options &options) {
    env.patience = std::chrono::milliseconds(0); // there is no window to draw meanwhile
    const QString impossible = LitEmplacements(env, options.chemin);
    if (!impossible.isEmpty()) {
        QTextStream(stderr) << "tavelin : " << impossible << '\n';
        return 1;
    }
    guetteInterruption();
    Terminal terminal;
    const Avancement avance = [&terminal](const QString &etape, qint64 fait, qint64 total) {
        return terminal.montre(etape, fait, total);
    };
    const Deplacements deplacements(env, MetANiveauDeplace);
    FinDeplacement fin;
    if (!options.rejoint.isEmpty()) {
        fin = deplacements.rejointServeur(options.rejoint);
    } else {
        fin = options.versServeur.isEmpty() ? deplacements.versFichiers(options.versFichiers, avance)
                                            : deplacements.versServeur(options.versServeur, avance);
    }
    terminal.efface();
    QTextStream(fin.fait ? stdout : stderr) << fin.texte << '\n';
    return fin.fait ? 0 : 1;
}
