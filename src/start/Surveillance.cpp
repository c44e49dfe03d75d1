#include "start/Surveillance.h"

#include "journal/JournalTables.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace {

/// A start takes a few: as many as a practice writes in some days, whatever has gathered.
void oublie(const QString &carnet, const QDateTime &limite, const std::stop_token &fin) {
    constexpr int lots = 10;
    constexpr std::chrono::milliseconds pause{200}; // other workstations write meanwhile
    try {
        Database base = Database::open(carnet, pause);
        for (int lot = 0; lot < lots && !fin.stop_requested() && OublieJournal(base, limite); ++lot) {
            std::this_thread::sleep_for(pause);
        }
    } catch (const DbError &) { // the next start will
        return;
    }
}

} // namespace

void Surveillance::commenceApresImage(QWidget &fenetre) {
    fenetre.installEventFilter(this);
    fenetre.update();
}

bool Surveillance::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::Paint) {
        objet->removeEventFilter(this);
        QTimer::singleShot(0, this, &Surveillance::commence); // the picture is on the screen by then
    }
    return QObject::eventFilter(objet, evenement);
}

void Surveillance::commence() {
    if (m_lecture.joinable()) {
        return;
    }
    emit commencee();
    const QString carnet = m_env.chemins.realDatabase(m_env.CheminBaseRDV);
    const QDateTime limite = m_env.maintenant().addMonths(-moisGardes);
    m_lecture = std::jthread([this, carnet, limite](const std::stop_token &fin) {
        const QString defaut = checkBook(carnet, fin);
        if (!defaut.isEmpty()) {
            QMetaObject::invokeMethod(
                this, [this, defaut] { trouve(defaut); }, Qt::QueuedConnection);
        } else {
            oublie(carnet, limite, fin);
        }
    });
    if (m_env.programme.isEmpty()) {
        return;
    }
    m_verrous.start(carnet, m_env.programme, {QStringLiteral("--essaie-verrou"), carnet},
                    [this](LockTest::Locks verrous) {
                        if (verrous == LockTest::Locks::DoNothing) {
                            trouve(
                                QStringLiteral("Le dossier du carnet ne tient pas ses verrous : deux postes "
                                               "pourraient y écrire en même temps."));
                        }
                    });
}

void Surveillance::trouve(const QString &raison) {
    if (!m_env.lectureSeule->isEmpty()) {
        return;
    }
    *m_env.lectureSeule = raison;
    emit lectureSeule();
    m_env.messages->error(raison + QStringLiteral("\n\nLe carnet ne peut plus qu'être lu sur ce poste."));
}
