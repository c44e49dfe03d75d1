// epreuve [ROUNDS [SEED]]: workstations book, change, drop elsewhere from the pinboard, delete and undo at
// once in one book, create patients, and are killed at any moment. Never may two appointments of one
// practitioner and chair have a moment in common; afterwards the books must hold what was acknowledged, whole
// and once, at most what was under way, no half of a patient, a history that tells of each appointment how it
// came to be what it is, and a pinboard that knows of each drop. epreuve --serveur [SECONDS [SEED [morts]]]:
// the same on the private server of avec-postgres, for so long, the workstations never killed; with "morts"
// the server itself is, every two seconds.
#include "Preuves.h"
#include "booking/Annulation.h"
#include "booking/RangeeTables.h"
#include "booking/ReservationTables.h"
#include "grid/ReplacerTables.h"
#include "journal/JournalTables.h"
#include "patients/TabPatTables.h"
#include "platform/db/DbError.h"
#include "start/MiseANiveauTables.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <chrono>
#include <memory>
#include <random>

namespace {

constexpr int postes = 8;
const Base bases[] = {Base::RendezVous, Base::Patients, Base::PatientsCrees};

// ---- One workstation: tells what it is about to write ("before, after"), then whether that was acknowledged

class Poste {
  public:
    Poste(const QString &numero, QString dossier)
        : m_numero(numero), m_dossier(std::move(dossier)), m_hasard(numero.toUInt()) {}

    void travaille() {
        for (int i = 1;; ++i) {
            m_marque = QStringLiteral("L'HER %1.%2").arg(m_numero).arg(i);
            bool ecrit = false;
            try {
                ecrit = i % 5 == 0 ? creePatient() : i % 3 == 0 ? remet() : reserve();
            } catch (const DbError &erreur) {
                if (erreur.kind() == DbError::Kind::UnknownOutcome) {
                    ecrit = etaitEcrit(erreur);
                } else if (erreur.kind() != DbError::Kind::Locked &&
                           erreur.kind() != DbError::Kind::Unreachable) {
                    throw;
                }
            }
            m_dit << int(ecrit) << Qt::endl;
        }
    }

  private:
    int entre(int a, int b) { return std::uniform_int_distribution(a, b)(m_hasard); }
    void annonce(const QString &avant, const QString &apres) { m_dit << avant << '\t' << apres << Qt::endl; }

    /// Asks until the server is there again.
    static bool etaitEcrit(const DbError &doute) {
        for (;;) {
            try {
                return Database::open(doute.file()).wasWritten(doute.writing());
            } catch (const DbError &) {
                QThread::msleep(100); // between two questions
            }
        }
    }

    bool creePatient() {
        Database patient = Database::open(fichier(m_dossier, Base::Patients));
        const Database listing = Database::open(fichier(m_dossier, Base::PatientsCrees));
        FichePatient fiche;
        fiche.nom = m_marque;
        annonce({}, m_marque);
        return CreePatient(patient, listing, fiche, lundi) != 0;
    }

    bool note(const BilanEcriture &bilan) {
        m_annulation.note(bilan.ecriture);
        return bilan.resultat == Ecriture::Fait;
    }

    /// Undoes what was written last, or does again what was undone last.
    bool remet() {
        const bool annule = m_annulation.aAnnuler() && (entre(0, 2) > 0 || !m_annulation.aRefaire());
        const auto pas = annule ? m_annulation.aAnnuler() : m_annulation.aRefaire();
        const EcritureRDV fait = pas.value_or(EcritureRDV());
        const Rangee &attendue = annule ? fait.apres : fait.avant;
        const Rangee &voulue = annule ? fait.avant : fait.apres;
        annonce(contenu(RendezVousDe(attendue)), contenu(RendezVousDe(voulue)));
        if (!pas) {
            return false;
        }
        Database rdv = Database::open(fichier(m_dossier, Base::RendezVous));
        const Operation quoi = annule ? Operation::Annulation : Operation::Refait;
        const BilanEcriture bilan = RemetRDV(rdv, {}, quoi, attendue, voulue);
        if (bilan.resultat == Ecriture::Fait) {
            annule ? m_annulation.annule(fait.RefRDV()) : m_annulation.refait(fait.RefRDV());
        } else {
            annule ? m_annulation.oublieAnnulation() : m_annulation.oublieRefait();
        }
        return bilan.resultat == Ecriture::Fait;
    }

    /// Every other time a place that all workstations want just now; few of everything in any case.
    bool reserve() {
        const auto dixieme =
            std::chrono::system_clock::now().time_since_epoch() / std::chrono::milliseconds(100);
        std::mt19937 commun(static_cast<unsigned>(dixieme));
        std::mt19937 &hasard = entre(0, 1) == 0 ? commun : m_hasard;
        const auto tire = [&hasard](int a, int b) { return std::uniform_int_distribution(a, b)(hasard); };
        RendezVous ou;
        ou.NumPraticien = tire(1, 2);
        ou.Fauteuil = tire(1, 2);
        const QTime debut = QTime(8, 0).addSecs(tire(0, 120) * 300);
        const SaisieRDV saisie{m_marque, {},
                               {},       QString(100, u'é'),
                               {},       lundi.addDays(tire(0, 2)),
                               debut,    debut.addSecs(tire(1, 12) * 300)};
        Database rdv = Database::open(fichier(m_dossier, Base::RendezVous)); // as every user action does
        const auto jour = RendezVousEntre(rdv, saisie.Date1, saisie.Date1, ou.NumPraticien, ou.Fauteuil);
        const int quoi = jour.isEmpty() ? 0 : entre(0, 9);
        if (quoi < 5) {
            annonce({}, contenu(Rempli(ou, saisie)));
            return note(
                AjouteRDV(rdv, {}, {saisie, QString::number(ou.NumPraticien), QString::number(ou.Fauteuil)}));
        }
        const RendezVous &choisi = jour[entre(0, int(jour.size()) - 1)];
        if (quoi < 8 && entre(0, 1) == 0) {
            return depose(rdv, choisi, Rempli(choisi, saisie));
        }
        annonce(contenu(choisi), quoi < 8 ? contenu(Rempli(choisi, saisie)) : QString());
        return note(quoi < 8 ? ModifieRDV(rdv, {}, choisi, saisie, ou.NumPraticien, ou.Fauteuil)
                             : SupprimeRDV(rdv, {}, choisi));
    }

    /// Set aside, then dropped elsewhere; at its chair, which an edit keeps whatever it was when it was read.
    bool depose(Database &rdv, const RendezVous &avant, RendezVous apres) {
        apres.Nom = avant.Nom;
        apres.NumPatient = avant.NumPatient;
        if (MetDeCote(rdv, avant, QDateTime::currentDateTime()) != MiseDeCote::Fait) {
            return false;
        }
        annonce(contenu(avant), contenu(apres));
        return note(DeplaceRDV(rdv, {}, avant, apres, apres.NumPraticien, apres.Fauteuil));
    }

    QString m_numero;
    QString m_dossier;
    QString m_marque;
    std::mt19937 m_hasard;
    Annulation m_annulation;
    QTextStream m_dit{stdout};
};

// ---- The parent

struct Bilan {
    int acquittes = 0;
    int enCours = 0;
    int chevauchements = 0;
    int remis = 0; ///< writings undone or done again
    int deposes = 0;
    QStringList fautes;
};

void verifie(Bilan &bilan, Journal &journal, const QString &dossier) {
    QStringList livre = noms(dossier, Base::Patients);
    if (noms(dossier, Base::PatientsCrees) != livre) {
        bilan.fautes << QStringLiteral("la moitié d'un patient");
    }
    const QList<RendezVous> rdv = rendezVous(dossier);
    bilan.chevauchements += chevauchements(rdv);
    for (const RendezVous &r : rdv) {
        livre << contenu(r);
    }
    bilan.acquittes += journal.acquittes;
    bilan.enCours += int(journal.enCours.size());
    bilan.fautes += journal.ecarts(livre);
    bilan.fautes += ecartsHistoire(dossier);
    bilan.remis += remis(dossier);
    bilan.fautes += ecartsDepots(dossier, bilan.deposes);
    for (const Base base : bases) {
        bilan.fautes += checkBook(fichier(dossier, base)).split(u'\n', Qt::SkipEmptyParts);
    }
}

using Postes = std::vector<std::unique_ptr<QProcess>>;

void creeLivres(const QString &dossier) {
    for (const Base base : bases) {
        creeBase(fichier(dossier, base), schema(base));
    }
    Database rdv = Database::open(fichier(dossier, Base::RendezVous));
    MetANiveau(rdv);
    PrepareJournal(rdv);
    PrepareReplacer(rdv);
}

Postes lancePostes(const QString &dossier, std::mt19937 &hasard) {
    Postes processus;
    for (int i = 0; i < postes; ++i) {
        QProcess &p = *processus.emplace_back(std::make_unique<QProcess>());
        p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--poste"), QString::number(hasard()), dossier});
    }
    return processus;
}

/// Kills them one after the other; gives what they said.
Journal arrete(const Postes &processus, Bilan &bilan, std::mt19937 &hasard) {
    Journal journal;
    for (const auto &p : processus) {
        p->waitForFinished(0); // it goes on without end, or has failed
        if (p->state() == QProcess::NotRunning) {
            bilan.fautes << QStringLiteral("un poste en échec");
        }
        QThread::usleep(hasard() % 20'000); // not a wait: the random moment of the kill
        p->kill();
        p->waitForFinished();
        journal.lit(p->readAllStandardOutput());
    }
    return journal;
}

/// Lets the workstations write for a while, looks for overlaps meanwhile, and kills them one after the other.
void tour(Bilan &bilan, std::mt19937 &hasard) {
    const QTemporaryDir dossier;
    creeLivres(dossier.path());
    const Postes processus = lancePostes(dossier.path(), hasard);
    const auto fin = std::chrono::steady_clock::now() + std::chrono::milliseconds(300 + hasard() % 2000);
    while (std::chrono::steady_clock::now() < fin) {
        bilan.chevauchements +=
            chevauchements(rendezVous(dossier.path())); // one that is undone later counts too
    }
    Journal journal = arrete(processus, bilan, hasard);
    verifie(bilan, journal, dossier.path());
}

/// The private server's own commands, as avec-postgres wrote them.
void commande(const QString &quoi) {
    QProcess::execute(qEnvironmentVariable("TAVELIN_SERVEUR_COMMANDE"), {quoi});
}

int dis(const Bilan &bilan, const QString &titre) {
    QTextStream(stdout) << titre << "\nAcquittés : " << bilan.acquittes
                        << "\nEn cours à l'arrêt : " << bilan.enCours
                        << "\nAnnulés ou refaits : " << bilan.remis << "\nReplacés : " << bilan.deposes
                        << "\nChevauchements : " << bilan.chevauchements
                        << "\nFautes : " << bilan.fautes.size() << '\n'
                        << bilan.fautes.join(u'\n') << '\n';
    const bool essaye = bilan.acquittes > 0 && bilan.remis > 0 && bilan.deposes > 0;
    return essaye && bilan.chevauchements == 0 && bilan.fautes.isEmpty() ? 0 : 1;
}

int surLeServeur(int secondes, unsigned graine, bool tue) {
    constexpr std::chrono::seconds entreDeuxMorts{2};
    const QString serveur = qEnvironmentVariable("TAVELIN_SERVEUR");
    if (serveur.isEmpty()) {
        QTextStream(stdout) << "Pas de serveur : rien n'est essayé\n";
        return qEnvironmentVariableIsSet("CI") ? 1 : 0;
    }
    std::mt19937 hasard(graine);
    Bilan bilan;
    int morts = 0;
    creeLivres(serveur);
    const Postes processus = lancePostes(serveur, hasard);
    const auto debut = std::chrono::steady_clock::now();
    auto mort = debut + entreDeuxMorts;
    while (std::chrono::steady_clock::now() < debut + std::chrono::seconds(secondes)) {
        if (tue && std::chrono::steady_clock::now() > mort) {
            commande(QStringLiteral("kill"));
            commande(QStringLiteral("start"));
            ++morts;
            mort = std::chrono::steady_clock::now() + entreDeuxMorts;
        }
        try {
            bilan.chevauchements += chevauchements(rendezVous(serveur));
        } catch (const DbError &) { // it has just been killed
            continue;
        }
    }
    Journal journal = arrete(processus, bilan, hasard);
    verifie(bilan, journal, serveur);
    return dis(bilan, QStringLiteral("Serveur tué : %1 fois (graine %2)").arg(morts).arg(graine));
}

int dirige(int tours, unsigned graine) {
    std::mt19937 hasard(graine);
    Bilan bilan;
    for (int i = 0; i < tours; ++i) {
        tour(bilan, hasard);
    }
    return dis(bilan, QStringLiteral("Arrêts : %1 (graine %2)").arg(tours * postes).arg(graine));
}

} // namespace

int main(int argc, char **argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        if (arguments.value(1) == u"--poste") {
            Poste(arguments[2], arguments[3]).travaille();
        }
        if (arguments.value(1) == u"--serveur") {
            return surLeServeur(arguments.value(2, QStringLiteral("20")).toInt(),
                                arguments.value(3, QStringLiteral("1")).toUInt(),
                                arguments.value(4) == u"morts");
        }
        const QString graine = arguments.value(2, QString::number(std::random_device()()));
        return dirige(arguments.value(1, QStringLiteral("20")).toInt(), graine.toUInt());
    } catch (const std::exception &erreur) {
        QTextStream(stderr) << QString::fromUtf8(erreur.what()) << '\n';
        return 1;
    }
}
