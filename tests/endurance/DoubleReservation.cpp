// Eight workstations book, move and delete in one book at once; then no practitioner and chair may have two
// appointments at one moment, and the book must hold what was acknowledged and nothing else.
#include "LivreDEpreuve.h"
#include "platform/db/DbError.h"

#include <QCoreApplication>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <chrono>
#include <memory>
#include <random>

namespace {

using Horloge = std::chrono::steady_clock; // one for all processes
constexpr int postes = 8;
const QDate lundi(2026, 3, 9);

/// One write that the book acknowledged, begun and ended; the row that it left, empty for a deletion.
struct Succes {
    bool ajout = false;
    qint64 avant = 0;
    qint64 apres = 0;
    QString contenu;
};

// ---- One workstation

class Poste {
  public:
    Poste(QString numero, QString livre)
        : m_numero(std::move(numero)), m_livre(std::move(livre)), m_hasard(m_numero.toUInt() + 1) {}

    void travaille(std::chrono::seconds duree) {
        const auto fin = Horloge::now() + duree;
        for (m_tentative = 1; Horloge::now() < fin; ++m_tentative) {
            try {
                Database rdv = Database::open(m_livre); // as every user action does
                essaie(rdv);
            } catch (const DbError &erreur) {
                if (erreur.kind() != DbError::Kind::Locked) {
                    throw;
                }
            }
        }
    }

  private:
    unsigned tire() { return unsigned(m_hasard()); }

    /// Every other time a place that all workstations want just now; few of everything in any case.
    Place place() {
        const auto dixieme = unsigned(Horloge::now().time_since_epoch() / std::chrono::milliseconds(100));
        std::mt19937 hasard(tire() % 2 == 0 ? dixieme : tire());
        const auto entre = [&](int a, int b) { return std::uniform_int_distribution(a, b)(hasard); };
        Place p{entre(1, 2),
                entre(1, 2),
                lundi.addDays(entre(0, 2)),
                QTime(8, 0).addSecs(entre(0, 120) * 300),
                {}};
        p.fin = p.debut.addSecs(entre(1, 12) * 300);
        return p;
    }

    void essaie(Database &rdv) {
        const Place voulue = place();
        const QString marque = m_numero + u'.' + QString::number(m_tentative);
        const unsigned tirage = tire();
        const qint64 avant = Horloge::now().time_since_epoch().count();
        if (tirage % 10 < 5) {
            note(ajoute(rdv, voulue, marque).value_or(0), {true, avant, 0, contenu(voulue, marque)});
        } else if (tirage % 10 < 8) {
            note(change(rdv, tirage, voulue, marque), {false, avant, 0, contenu(voulue, marque)});
        } else {
            note(change(rdv, tirage, voulue, std::nullopt), {false, avant, 0, {}});
        }
    }

    static void note(qint64 ref, const Succes &s) {
        if (ref == 0) {
            return; // refused
        }
        QTextStream(stdout) << ref << '\t' << int(s.ajout) << '\t' << s.avant << '\t'
                            << Horloge::now().time_since_epoch().count() << '\t' << s.contenu << '\n';
    }

    QString m_numero;
    QString m_livre;
    std::mt19937 m_hasard;
    int m_tentative = 0;
};

// ---- What the book must be

/// Pairs of appointments of one practitioner and chair that have a moment in common.
int chevauchements(const Records &rows) {
    int paires = 0;
    for (int i = 0; i < rows.count(); ++i) {
        for (int j = 0; j < i; ++j) {
            const Record a = rows[i];
            const Record b = rows[j];
            const bool memeAgenda = a[u"NumPraticien"] == b[u"NumPraticien"] &&
                                    a[u"Fauteuil"] == b[u"Fauteuil"] && a[u"Date1"] == b[u"Date1"];
            paires += memeAgenda && a[u"HeureDebut"].toTime() < b[u"HeureFin"].toTime() &&
                              b[u"HeureDebut"].toTime() < a[u"HeureFin"].toTime()
                          ? 1
                          : 0;
        }
    }
    return paires;
}

/// Whether one order of the writes of a row explains what the book holds of it (empty: no such row): a write
/// that ended before another began comes first.
bool explique(const std::vector<Succes> &histoire, const QString &dansLeLivre) {
    const auto nombre = [&](auto condition) { return std::ranges::count_if(histoire, condition); };
    const bool finit = std::ranges::any_of(histoire, [&](const Succes &s) {
        return s.contenu == dansLeLivre &&
               nombre([&](const Succes &autre) { return autre.avant > s.apres; }) == 0;
    });
    return finit && nombre([](const Succes &s) { return s.ajout; }) == 1 &&
           nombre([](const Succes &s) { return s.contenu.isEmpty(); }) == (dansLeLivre.isEmpty() ? 1 : 0);
}

using Histoires = QMap<qint64, std::vector<Succes>>;

int ecarts(const Records &rows, Histoires histoires) {
    QMap<qint64, QString> livre;
    for (const Record row : rows) {
        livre[row[u"RefRDV"].toInteger()] = contenu(row);
        histoires[row[u"RefRDV"].toInteger()]; // a row that nobody acknowledged has no history
    }
    int faux = 0;
    for (auto it = histoires.cbegin(); it != histoires.cend(); ++it) {
        if (!explique(it.value(), livre.value(it.key()))) {
            ++faux;
            QTextStream(stderr) << "Inexpliqué : " << it.key() << ' ' << livre.value(it.key()) << '\n';
        }
    }
    return faux;
}

// ---- The parent

/// The acknowledged writes of a workstation that has ended.
int lit(QProcess &poste, Histoires &histoires) {
    int succes = 0;
    for (const QByteArray &ligne : poste.readAllStandardOutput().split('\n')) {
        const QStringList champs = QString::fromUtf8(ligne).split(u'\t');
        if (champs.size() == 5) {
            ++succes;
            histoires[champs[0].toLongLong()].push_back(
                {champs[1] == u"1", champs[2].toLongLong(), champs[3].toLongLong(), champs[4]});
        }
    }
    return succes;
}

Records rendezVous(const QString &livre) {
    return Database::open(livre).query(SqlText("Select * from RDV"));
}

/// Overlaps just now; a book that stays locked is looked at next time.
int vus(const QString &livre) {
    try {
        return chevauchements(rendezVous(livre));
    } catch (const DbError &erreur) {
        if (erreur.kind() != DbError::Kind::Locked) {
            throw;
        }
        return 0;
    }
}

int dirige(const QString &secondes) {
    const QTemporaryDir dossier;
    const QString livre = dossier.filePath(QStringLiteral("Tavelin.mdb"));
    creeLivre(livre);
    std::vector<std::unique_ptr<QProcess>> processus;
    for (int i = 0; i < postes; ++i) {
        QProcess &p = *processus.emplace_back(std::make_unique<QProcess>());
        p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p.start(QCoreApplication::applicationFilePath(), {secondes, QString::number(i), livre});
    }
    int paires = 0;
    int succes = 0;
    int echoues = 0;
    Histoires histoires;
    for (const auto &p : processus) {
        while (p->state() != QProcess::NotRunning && !p->waitForFinished(100)) {
            paires += vus(livre); // one that is undone later counts too
        }
        succes += lit(*p, histoires);
        echoues += p->exitStatus() == QProcess::NormalExit && p->exitCode() == 0 ? 0 : 1;
    }
    const Records rows = rendezVous(livre);
    paires += chevauchements(rows);
    const int faux = ecarts(rows, histoires);
    QTextStream(stdout) << "Succès : " << succes << "\nRendez-vous à la fin : " << rows.count()
                        << "\nChevauchements : " << paires << "\nÉcarts avec les succès annoncés : " << faux
                        << "\nPostes en échec : " << echoues << '\n';
    return paires + faux + echoues == 0 && succes > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString secondes = arguments.value(1, QStringLiteral("20"));
    try {
        if (arguments.size() < 4) {
            return dirige(secondes);
        }
        Poste(arguments[2], arguments[3]).travaille(std::chrono::seconds(secondes.toInt()));
        return 0;
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << QString::fromUtf8(erreur.what()) << '\n';
        return 1;
    }
}
