// Eight workstations book, move and delete in one book at once; then no practitioner and chair may have two
// appointments at one moment, and the book must hold what was acknowledged and nothing else.
#include "Schema.h"
#include "booking/ReservationTables.h"
#include "grid/RendezVousTables.h"
#include "platform/db/DbError.h"
#include "start/MiseANiveauTables.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <chrono>
#include <memory>
#include <random>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

constexpr int postes = 8;
constexpr int praticiens = 2; // few of everything, so that the workstations often want the same
constexpr int fauteuils = 2;
constexpr int jours = 3;
const QDate lundi(2026, 3, 9);

qint64 instant() { // one clock for all processes
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

// ---- Acknowledged writes

enum class Action { Ajout, Modification, Suppression };

/// One write that the book acknowledged; what it left in the row, none for a deletion.
struct Succes {
    Action action;
    qint64 ref;
    qint64 avant;
    qint64 apres;
    QString contenu;
};

/// The fields of a row as one text without a line break.
QString contenuDe(const SaisieRDV &s, const QString &praticien, qint64 fauteuil) {
    return QStringList{s.Nom,
                       s.Prenom,
                       s.Telephone,
                       s.Description,
                       s.NumPatient,
                       s.Date1.toString(Qt::ISODate),
                       s.Date1.toString(QStringLiteral("yyyyMMdd")),
                       s.HeureDebut.toString(Qt::ISODate),
                       s.HeureFin.toString(Qt::ISODate),
                       praticien,
                       QString::number(fauteuil)}
        .join(u'|');
}

QString contenuDe(const Record &row) {
    QStringList champs;
    for (const char16_t *nom : {u"Nom", u"Prenom", u"Telephone", u"Description", u"NumPatient", u"Date1",
                                u"DateInv", u"HeureDebut", u"HeureFin", u"NumPraticien", u"Fauteuil"}) {
        champs << row[nom].toText();
    }
    return champs.join(u'|');
}

class Journal {
  public:
    explicit Journal(const QString &fichier) : m_fichier(fichier) {
        if (!m_fichier.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
            qFatal("journal");
        }
    }
    void note(const Succes &s) {
        const QStringList champs{QString::number(int(s.action)), QString::number(s.ref),
                                 QString::number(s.avant), QString::number(s.apres), s.contenu};
        m_fichier.write(champs.join(u'\t').toUtf8() + '\n');
        if (fsync(m_fichier.handle()) != 0) {
            qFatal("fsync");
        }
    }
    static std::vector<Succes> lit(const QString &fichier) {
        QFile journal(fichier);
        std::vector<Succes> liste;
        if (!journal.open(QIODevice::ReadOnly)) {
            return liste;
        }
        for (const QByteArray &ligne : journal.readAll().split('\n')) {
            const QStringList champs = QString::fromUtf8(ligne).split(u'\t');
            if (champs.size() == 5) {
                liste.push_back({Action(champs[0].toInt()), champs[1].toLongLong(), champs[2].toLongLong(),
                                 champs[3].toLongLong(), champs[4]});
            }
        }
        return liste;
    }

  private:
    QFile m_fichier;
};

// ---- One workstation

struct Bilan {
    int tentatives = 0;
    int succes = 0;
    int refus = 0;
    int occupes = 0; ///< the book stayed locked too long
};

class Poste {
  public:
    Poste(int numero, QString livre, const QString &journal)
        : m_numero(numero), m_livre(std::move(livre)), m_journal(journal), m_hasard(unsigned(numero) + 1) {}

    Bilan travaille(std::chrono::seconds duree) {
        for (const auto fin = std::chrono::steady_clock::now() + duree;
             std::chrono::steady_clock::now() < fin;) {
            ++m_bilan.tentatives;
            try {
                Database rdv = Database::open(m_livre); // as every user action does
                const int tirage = entre(1, 10);
                const bool fait = tirage <= 5 ? ajoute(rdv) : change(rdv, tirage <= 8);
                ++(fait ? m_bilan.succes : m_bilan.refus);
            } catch (const DbError &erreur) {
                if (erreur.kind() != DbError::Kind::Locked) {
                    throw;
                }
                ++m_bilan.occupes;
            }
        }
        return m_bilan;
    }

  private:
    static int entre(int a, int b, std::mt19937 &hasard) {
        return std::uniform_int_distribution(a, b)(hasard);
    }
    int entre(int a, int b) { return entre(a, b, m_hasard); }

    struct Place {
        long praticien = 0;
        long fauteuil = 0;
        QDate jour;
        QTime debut;
        QTime fin;
    };
    /// Every other time a place that all workstations want just now, as when the same next free slot is
    /// offered to two callers.
    Place place() {
        const auto dixieme = unsigned(std::chrono::steady_clock::now().time_since_epoch() / 100ms);
        std::mt19937 hasard(entre(0, 1) == 0 ? dixieme : m_hasard());
        const long praticien = entre(1, praticiens, hasard);
        const long fauteuil = entre(1, fauteuils, hasard);
        const QDate jour = lundi.addDays(entre(0, jours - 1, hasard));
        const QTime debut = QTime(8, 0).addSecs(entre(0, 120, hasard) * 300);
        return {praticien, fauteuil, jour, debut, debut.addSecs(entre(1, 12, hasard) * 300)};
    }

    SaisieRDV saisie(const Place &voulue) {
        return {QStringLiteral("L'HER %1").arg(m_numero),
                QStringLiteral("Élise"),
                QStringLiteral("02 97 %1").arg(m_numero),
                QStringLiteral("n° %1").arg(m_bilan.tentatives),
                QString::number(entre(1, 9999)),
                voulue.jour,
                voulue.debut,
                voulue.fin};
    }

    bool ajoute(Database &rdv) {
        const Place voulue = place();
        const NouveauRDV nouveau{saisie(voulue), QStringLiteral("0%1").arg(voulue.praticien),
                                 QString::number(voulue.fauteuil)};
        const qint64 avant = instant();
        const std::optional<qint64> ref = AjouteRDV(rdv, nouveau);
        if (ref) {
            m_journal.note({Action::Ajout, *ref, avant, instant(),
                            contenuDe(nouveau.saisie, nouveau.NumPraticien, voulue.fauteuil)});
        }
        return ref.has_value();
    }

    /// Moves or deletes an appointment, whoever made it.
    bool change(Database &rdv, bool deplace) {
        const Place voulue = place();
        const long praticien = voulue.praticien;
        const long fauteuil = voulue.fauteuil;
        const QList<RendezVous> jour =
            RendezVousALaDate(rdv, lundi.addDays(entre(0, jours - 1)), praticien, fauteuil);
        if (jour.isEmpty()) {
            return false;
        }
        const RendezVous &choisi = jour[entre(0, int(jour.size()) - 1)];
        const SaisieRDV nouvelle = saisie(voulue);
        const qint64 avant = instant();
        const bool fait =
            (deplace ? ModifieRDV(rdv, choisi, nouvelle, praticien, fauteuil) : SupprimeRDV(rdv, choisi))
                .resultat == Ecriture::Fait;
        if (fait) {
            const QString contenu = contenuDe(nouvelle, QStringLiteral("0%1").arg(praticien), fauteuil);
            m_journal.note({deplace ? Action::Modification : Action::Suppression, choisi.RefRDV, avant,
                            instant(), deplace ? contenu : QString()});
        }
        return fait;
    }

    int m_numero;
    QString m_livre;
    Journal m_journal;
    std::mt19937 m_hasard;
    Bilan m_bilan;
};

// ---- What the book must be

/// Pairs of appointments of one practitioner and chair that have a moment in common.
int chevauchements(const Records &rows) {
    const auto plage = [](const Record &r) {
        return PlageHoraire{r[u"HeureDebut"].toTime(), r[u"HeureFin"].toTime()};
    };
    int paires = 0;
    for (int i = 0; i < rows.count(); ++i) {
        for (int j = 0; j < i; ++j) {
            const bool memeAgenda = rows[i][u"NumPraticien"] == rows[j][u"NumPraticien"] &&
                                    rows[i][u"Fauteuil"] == rows[j][u"Fauteuil"] &&
                                    rows[i][u"Date1"] == rows[j][u"Date1"];
            paires += memeAgenda && SeChevauchent(plage(rows[i]), plage(rows[j])) ? 1 : 0;
        }
    }
    return paires;
}

/// Whether one order of the writes of a row explains what the book holds of it: a write that ended before
/// another began comes first.
bool explique(const std::vector<Succes> &histoire, const std::optional<QString> &dansLeLivre) {
    int ajouts = 0;
    int suppressions = 0;
    bool trouve = false;
    for (const Succes &s : histoire) {
        ajouts += s.action == Action::Ajout ? 1 : 0;
        suppressions += s.action == Action::Suppression ? 1 : 0;
        const bool peutEtreDernier =
            std::ranges::none_of(histoire, [&](const Succes &autre) { return autre.avant > s.apres; });
        const std::optional<QString> reste =
            s.action == Action::Suppression ? std::nullopt : std::optional(s.contenu);
        trouve = trouve || (peutEtreDernier && reste == dansLeLivre);
    }
    return ajouts == 1 && suppressions == (dansLeLivre ? 0 : 1) && trouve;
}

/// Rows that the logs do not explain.
int ecarts(const Records &rows, const std::vector<Succes> &tous) {
    QMap<qint64, std::vector<Succes>> histoires;
    for (const Succes &s : tous) {
        histoires[s.ref].push_back(s);
    }
    QMap<qint64, QString> livre;
    for (const Record row : rows) {
        const qint64 ref = row[u"RefRDV"].toInteger();
        livre[ref] = contenuDe(row);
        histoires[ref]; // a row that nobody acknowledged has an empty history
    }
    int faux = 0;
    for (auto it = histoires.cbegin(); it != histoires.cend(); ++it) {
        const auto ligne = livre.constFind(it.key());
        const std::optional<QString> contenu = ligne != livre.cend() ? std::optional(*ligne) : std::nullopt;
        if (!explique(it.value(), contenu)) {
            ++faux;
            QTextStream(stderr) << "Inexpliqué : " << it.key() << ' ' << contenu.value_or(QString()) << '\n';
        }
    }
    return faux;
}

Records rendezVous(const QString &livre) {
    return Database::open(livre).query(SqlText("Select * from RDV order by RefRDV"));
}

// ---- The parent

QString journal(const QDir &dossier, int poste) {
    return dossier.filePath(QStringLiteral("journal%1").arg(poste));
}

std::vector<std::unique_ptr<QProcess>> lancePostes(const QDir &dossier, const QString &livre,
                                                   const QString &secondes) {
    std::vector<std::unique_ptr<QProcess>> processus;
    for (int i = 0; i < postes; ++i) {
        auto p = std::make_unique<QProcess>();
        p->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p->start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("--secondes"), secondes, QStringLiteral("--poste"), QString::number(i),
                  QStringLiteral("--livre"), livre, QStringLiteral("--journal"), journal(dossier, i)});
        processus.push_back(std::move(p));
    }
    return processus;
}

/// Looks at the book again and again until every workstation has ended; gives the overlaps seen.
int surveille(const QString &livre, std::vector<std::unique_ptr<QProcess>> &processus) {
    int vus = 0;
    for (const auto &p : processus) {
        while (p->state() != QProcess::NotRunning && !p->waitForFinished(100)) {
            try {
                vus += chevauchements(rendezVous(livre));
            } catch (const DbError &erreur) {
                if (erreur.kind() != DbError::Kind::Locked) {
                    throw;
                }
            }
        }
    }
    return vus;
}

int dirige(const QString &secondes) {
    const QTemporaryDir temporaire;
    const QDir dossier(temporaire.path());
    const QString livre = dossier.filePath(QStringLiteral("Tavelin.mdb"));
    creeBase(livre, schema(Base::RendezVous));
    {
        Database rdv = Database::open(livre);
        MetANiveau(rdv);
    }
    auto processus = lancePostes(dossier, livre, secondes);
    int paires = surveille(livre, processus);
    Bilan total;
    int echoues = 0;
    std::vector<Succes> tous;
    for (int i = 0; i < postes; ++i) {
        QProcess &p = *processus[size_t(i)];
        QTextStream sortie(p.readAllStandardOutput());
        Bilan b;
        sortie >> b.tentatives >> b.succes >> b.refus >> b.occupes;
        const std::vector<Succes> notes = Journal::lit(journal(dossier, i));
        const bool entier = b.tentatives > 0 && size_t(b.succes) == notes.size();
        echoues += p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0 && entier ? 0 : 1;
        total = {total.tentatives + b.tentatives, total.succes + b.succes, total.refus + b.refus,
                 total.occupes + b.occupes};
        tous.insert(tous.end(), notes.begin(), notes.end());
    }
    const Records rows = rendezVous(livre);
    paires += chevauchements(rows);
    const int faux = ecarts(rows, tous);
    QTextStream(stdout) << "Tentatives : " << total.tentatives << "\nSuccès : " << total.succes
                        << "\nRefus : " << total.refus << "\nLivre occupé : " << total.occupes
                        << "\nRendez-vous à la fin : " << rows.count() << "\nChevauchements : " << paires
                        << "\nÉcarts avec les succès annoncés : " << faux << "\nPostes en échec : " << echoues
                        << '\n';
    return paires == 0 && faux == 0 && echoues == 0 && total.succes > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QCommandLineOption secondes(QStringLiteral("secondes"), QStringLiteral("durée"),
                                      QStringLiteral("N"), QStringLiteral("20"));
    const QCommandLineOption poste(QStringLiteral("poste"), {}, QStringLiteral("n"));
    const QCommandLineOption livre(QStringLiteral("livre"), {}, QStringLiteral("fichier"));
    const QCommandLineOption journalOption(QStringLiteral("journal"), {}, QStringLiteral("fichier"));
    QCommandLineParser options;
    options.addHelpOption();
    options.addOptions({secondes, poste, livre, journalOption});
    options.process(application);
    try {
        if (!options.isSet(poste)) {
            return dirige(options.value(secondes));
        }
        const Bilan b =
            Poste(options.value(poste).toInt(), options.value(livre), options.value(journalOption))
                .travaille(std::chrono::seconds(options.value(secondes).toInt()));
        QTextStream(stdout) << b.tentatives << ' ' << b.succes << ' ' << b.refus << ' ' << b.occupes << '\n';
        return 0;
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << QString::fromUtf8(erreur.what()) << '\n';
        return 1;
    }
}
