// What is done on the week: drawing it, painting it, going to the next, selecting, booking.
#include "LectureNue.h"
#include "Livres.h"
#include "Mesure.h"
#include "booking/FicheRDV.h"
#include "booking/FrmAjouter.h"
#include "booking/RangeeTables.h"
#include "booking/ReservationTables.h"
#include "grid/AffichageTables.h"
#include "grid/GrilleSemaine.h"
#include "grid/RendezVousTables.h"
#include "platform/db/DateInverse.h"
#include "platform/ui/FlexGrid.h"
#include "start/Demarrage.h"
#include "start/FrmEntree.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace {

/// The main window on its week, laid out as if it were shown.
struct Carnet {
    Environnement env = environnement(livreCourant());
    FrmEntree fenetre{env};
    FlexGrid &GrilleRDV = *fenetre.findChild<FlexGrid *>(QStringLiteral("GrilleRDV"));
    GrilleSemaine semaine{GrilleRDV, env};
    Demande demande = Demarre(env).premier.value_or(Affichage()).demande;
    QImage image;

    Carnet() {
        fenetre.Form_Load();
        fenetre.setAttribute(Qt::WA_DontShowOnScreen); // the screen may be smaller than what is measured
        fenetre.show();
        image = QImage(GrilleRDV.size(), QImage::Format_RGB32); // what windows are made of
    }
    void clique(const char *bouton) { fenetre.findChild<QPushButton *>(QLatin1StringView(bouton))->click(); }
    void peint() { GrilleRDV.render(&image); }

    Affichage lit(int semaines = 0) const {
        Demande voulue = demande;
        voulue.jour = demande.jour.addDays(qint64{7} * semaines);
        Database carnet = env.ouvreCarnet();
        return LitAffichage(carnet, voulue, env.maintenant());
    }
    /// Appointments that the grid shows.
    int montres() const {
        const FlexGridModel &cellules = GrilleRDV.cells();
        int combien = 0;
        for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
            for (int col = 1; col < cellules.cols() - 1; ++col) {
                combien += cellules.text(ligne, col).isEmpty() ? 0 : 1;
            }
        }
        return combien;
    }
    /// What the grid shows, noted beside a measure that would be worth nothing on another week.
    void verifie(qsizetype attendus, benchmark::UserCounters &chiffres) const {
        if (attendus == 0 || montres() != attendus) {
            throw MesureImpossible(
                QStringLiteral("%1 rendez-vous dessinés pour %2 lus").arg(montres()).arg(attendus));
        }
        chiffres["rendez-vous"] = double(attendus);
    }
};

/// The week as the database's own interface reads it, its file opened and closed as the book does for each
/// action.
class LectureNue {
  public:
    LectureNue(const Environnement &env, const Affichage &affichage)
        : m_fichier(fichierRDV(env).toUtf8()), m_praticien(affichage.demande.numPraticien()),
          m_fauteuil(CLng(affichage.grilles.first().config.FauteuilCourant)) {
        const auto [premier, dernier] = JoursLus(affichage.demande);
        m_premier = InverseDate(premier).toUtf8();
        m_dernier = InverseDate(dernier).toUtf8();
    }
    /// Reads every column of every row; gives the number of rows.
    int lit() const {
        sqlite3 *base = nullptr;
        sqlite3_stmt *requete = nullptr;
        sqlite3_open_v2(m_fichier.constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        sqlite3_prepare_v2(base, semaine, -1, &requete, nullptr);
        sqlite3_bind_int64(requete, 1, m_praticien);
        sqlite3_bind_text(requete, 2, m_premier.constData(), -1, SQLITE_STATIC);
        sqlite3_bind_text(requete, 3, m_dernier.constData(), -1, SQLITE_STATIC);
        sqlite3_bind_int64(requete, 4, m_fauteuil);
        const int lignes = litNu(requete);
        sqlite3_close(base);
        return lignes;
    }

  private:
    /// The expressions of the index RDVParJour, which is also in drawing order.
    static constexpr const char *semaine =
        "SELECT * FROM RDV WHERE CAST(NumPraticien AS INTEGER) = ?1 AND DateInv >= ?2 AND DateInv <= ?3"
        " AND CAST(Fauteuil AS INTEGER) = ?4 ORDER BY DateInv, HeureDebut";

    QByteArray m_fichier;
    QByteArray m_premier;
    QByteArray m_dernier;
    long m_praticien;
    long m_fauteuil;
};

/// Reading the week and drawing it into the grid, against reading its rows.
Paire traceSemaine() {
    const auto carnet = std::make_shared<Carnet>();
    const LectureNue nue(carnet->env, carnet->lit());
    carnet->semaine.dessine(carnet->lit()); // its pictures are loaded then, as after the first week shown
    return {[=](auto &chiffres) {
                const double duree = millisecondes([&] { carnet->semaine.dessine(carnet->lit()); });
                carnet->verifie(nue.lit(), chiffres);
                return duree;
            },
            [=](auto &) { return millisecondes([&] { nue.lit(); }); }};
}

Paire peintureSemaine(const QString &presentation) {
    const auto carnet = std::make_shared<Carnet>();
    carnet->fenetre.findChild<QAction *>(presentation)->trigger();
    constexpr QSize taille(1920, 1080);
    carnet->fenetre.resize(carnet->fenetre.size() + taille - carnet->GrilleRDV.size());
    carnet->image = QImage(carnet->GrilleRDV.size(), QImage::Format_RGB32);
    if (carnet->image.size() != taille) {
        throw MesureImpossible(QStringLiteral("la grille ne mesure pas 1920 sur 1080"));
    }
    return {[=](auto &) { return millisecondes([&] { carnet->peint(); }); }};
}

/// "Suivante >>" until the week is painted, against drawing and painting that same week from nothing.
Paire changementSemaine() {
    const auto carnet = std::make_shared<Carnet>();
    const qsizetype attendus = carnet->lit(1).grilles.first().rendezVous.size();
    return {[=](auto &chiffres) {
                carnet->clique("BtnAujourdhui");
                const double duree = millisecondes([&] {
                    carnet->clique("BtnSuivant");
                    carnet->peint();
                });
                carnet->verifie(attendus, chiffres);
                return duree;
            },
            [=](auto &) {
                return millisecondes([&] {
                    carnet->semaine.dessine(carnet->lit(1));
                    carnet->peint();
                });
            }};
}

/// How full the days of a month are, read and reckoned for both chairs as the strip of the day view shows it.
Paire bandeauMois() {
    const auto carnet = std::make_shared<Carnet>();
    const Configuration config = carnet->lit().grilles.first().config;
    Configuration autre = config;
    autre.FauteuilCourant += u'2';
    return {[=](auto &chiffres) {
        QList<int> taux;
        const double duree = millisecondes([&] {
            Database base = carnet->env.ouvreCarnet();
            const QList<TempsPris> pris =
                TempsDuMois(base, carnet->demande.jour, carnet->demande.numPraticien());
            chiffres["rendez-vous"] = double(pris.size());
            taux = Remplissage(carnet->demande.jour, {config, autre}, true, pris);
        });
        if (std::ranges::count_if(taux, [](int jour) { return jour > 0; }) < 10) {
            throw MesureImpossible(QStringLiteral("le mois est vide"));
        }
        return duree;
    }};
}

/// A press on one appointment of a full week, then on another.
Paire selection() {
    const auto carnet = std::make_shared<Carnet>();
    return {[carnet, ligne = 10](auto &) mutable {
        ligne = ligne == 10 ? 45 : 10;
        const double duree = millisecondes([&] {
            emit carnet->GrilleRDV.selectionAsked({ligne, 3, ligne, 3}, FlexGrid::Gesture::Press, 0);
        });
        const auto &contour = carnet->GrilleRDV.outline();
        if (!contour || ligne < contour->row || ligne > contour->rowSel) {
            throw MesureImpossible(QStringLiteral("la case pressée n'est pas sélectionnée"));
        }
        return duree;
    }};
}

/// The card of one appointment of a full week, then of another: its act read, laid out and painted.
Paire fiche() {
    const auto carnet = std::make_shared<Carnet>();
    return {[carnet, place = size_t(0)](auto &) mutable {
        carnet->peint();
        const auto &blocs = carnet->GrilleRDV.cells().blocks();
        place = (place + 1) % blocs.size();
        while (carnet->GrilleRDV.blockRect(blocs[place].id).isEmpty()) { // scrolled away
            place = (place + 1) % blocs.size();
        }
        const double duree = millisecondes([&] {
            emit carnet->GrilleRDV.cardAsked(blocs[place].id);
            if (auto *ouverte = carnet->fenetre.template findChild<FicheRDV *>()) {
                ouverte->repaint();
            }
        });
        const auto *ouverte = carnet->fenetre.template findChild<FicheRDV *>();
        if (ouverte == nullptr || !ouverte->isVisible()) {
            throw MesureImpossible(QStringLiteral("la fiche ne s'ouvre pas"));
        }
        emit carnet->GrilleRDV.cardAsked(0);
        return duree;
    }};
}

/// Takes away what the measure has booked, and what an interrupted one left.
void efface(const Environnement &env) {
    Database base = env.ouvreCarnet();
    base.execute(SqlText("delete from RDV where Nom = 'MESURE'"));
}

/// A press of "&Ajouter" until the week is painted again, the new row safely on the disk.
double ajoute(Carnet &carnet, QTime debut) {
    const Configuration config = carnet.lit().grilles.first().config;
    FrmAjouter dialogue(carnet.env, {.PraticienCourant = carnet.demande.PraticienCourant,
                                     .FauteuilCourant = config.FauteuilCourant,
                                     .jour = carnet.demande.jour,
                                     .horaire = {debut, debut.addSecs(300)},
                                     .Intervalle = config.Intervalle,
                                     .ChoixHoraire = 1});
    dialogue.findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(QStringLiteral("MESURE"));
    dialogue.findChild<QLineEdit *>(QStringLiteral("Text4"))->setText(QStringLiteral("banc d'essai"));
    auto *bouton = dialogue.findChild<QPushButton *>(QStringLiteral("BtnAjouter"));
    const double duree = millisecondes([&] {
        bouton->click();
        carnet.clique("BtnRafraichir");
        carnet.peint();
    });
    if (dialogue.result() != QDialog::Accepted) {
        throw MesureImpossible(QStringLiteral("le rendez-vous n'a pas été ajouté"));
    }
    return duree;
}

/// The same in a book without a history.
double ajouteSansHistorique(Carnet &carnet, QTime debut) {
    carnet.env.ouvreCarnet().execute(SqlText("alter table TavJournal rename to TavJournalAbsent"));
    const double duree = ajoute(carnet, debut);
    carnet.env.ouvreCarnet().execute(SqlText("alter table TavJournalAbsent rename to TavJournal"));
    return duree;
}

Paire ajout() {
    const std::shared_ptr<Carnet> carnet(new Carnet, [](Carnet *fini) {
        efface(fini->env);
        delete fini;
    });
    efface(carnet->env);
    // Before the shown hours, where the full week is free: five minutes further at each call.
    const auto suivant = [rang = std::make_shared<int>(0)] { return QTime(0, 10).addSecs(300 * (*rang)++); };
    return {[=](auto &) { return ajoute(*carnet, suivant()); },
            [=](auto &) { return ajouteSansHistorique(*carnet, suivant()); }};
}

/// An appointment that the user has moved to the place of the next one of its day, which is taken out of the
/// book for that.
class Deplace {
  public:
    Deplace() {
        const QList<RendezVous> montres = carnet.lit().grilles.first().rendezVous;
        const auto voisins = std::ranges::adjacent_find(
            montres, [](const RendezVous &a, const RendezVous &b) { return a.Date1 == b.Date1; });
        m_rdv = *voisins;
        m_place = *(voisins + 1);
        Database base = carnet.env.ouvreCarnet();
        m_otee = LitRangee(base, m_place.RefRDV);
        SupprimeRDV(base, carnet.env.auteur(), m_place);
        carnet.clique("BtnRafraichir");
        deplace();
        if (debut() != m_place.HeureDebut) {
            throw MesureImpossible(QStringLiteral("le rendez-vous n'a pas été déplacé"));
        }
    }
    ~Deplace() {
        try {
            if (debut() != m_rdv.HeureDebut) {
                bascule();
            }
            Database base = carnet.env.ouvreCarnet();
            RemetRDV(base, carnet.env.auteur(), Operation::Retabli, {}, m_otee);
        } catch (const std::exception &erreur) {
            qWarning("le livre n'est plus comme avant : %s", erreur.what());
        }
    }
    Deplace(const Deplace &) = delete;
    Deplace &operator=(const Deplace &) = delete;

    /// Undoes the move, or does it again, until the week is painted; the row is on the disk then.
    double bascule() {
        const QTime avant = debut();
        auto *action = carnet.fenetre.findChild<QAction *>(
            avant == m_place.HeureDebut ? QStringLiteral("mnuAnnuler") : QStringLiteral("mnuRetablir"));
        const double duree = millisecondes([&] {
            action->trigger();
            carnet.peint();
        });
        if (debut() == avant) {
            throw MesureImpossible(QStringLiteral("rien n'a été annulé"));
        }
        return duree;
    }

  private:
    QTime debut() const {
        Database base = carnet.env.ouvreCarnet();
        return LitRDV(base, m_rdv.RefRDV).value_or(RendezVous()).HeureDebut;
    }
    void deplace() {
        QTimer::singleShot(0, qApp, [this] {
            QWidget *editer = QApplication::activeModalWidget();
            const auto champ = [editer](const char *nom) {
                return editer->findChild<QLineEdit *>(QLatin1StringView(nom));
            };
            champ("TextHeureDebut")->setText(m_place.HeureDebut.toString(QStringLiteral("HH:mm")));
            champ("TextHeureFin")->setText(m_place.HeureFin.toString(QStringLiteral("HH:mm")));
            editer->findChild<QPushButton *>(QStringLiteral("BtnMettreAJour"))->click();
        });
        const auto [premiere, colonne] = cellule();
        emit carnet.GrilleRDV.selectionAsked({premiere, colonne, premiere, colonne}, FlexGrid::Gesture::Press,
                                             0);
        carnet.fenetre.findChild<QAction *>(QStringLiteral("mnuEditer"))->trigger();
    }
    /// The row and the column where it is drawn.
    std::pair<int, int> cellule() const {
        const FlexGridModel &cellules = carnet.GrilleRDV.cells();
        const QString debutDit = m_rdv.HeureDebut.toString(QStringLiteral("HH:mm"));
        for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
            for (int col = 1; col < cellules.cols() - 1; ++col) {
                if (cellules.text(ligne, col).contains(m_rdv.Nom) &&
                    cellules.cell(ligne, 0).text == debutDit) {
                    return {ligne, col};
                }
            }
        }
        throw MesureImpossible(QStringLiteral("le rendez-vous n'est pas dessiné"));
    }

    Carnet carnet;
    RendezVous m_rdv;
    RendezVous m_place;
    Rangee m_otee;
};

Paire annule() {
    const auto deplace = std::make_shared<Deplace>();
    return {[=](auto &) { return deplace->bascule(); }};
}

} // namespace

std::vector<Mesure> mesuresSemaine() {
    return {{.nom = "trace_semaine", .repetitions = 201, .prepare = traceSemaine, .rapportMax = 1.8},
            {.nom = "peinture_semaine",
             .repetitions = 101,
             .prepare = [] { return peintureSemaine(QStringLiteral("mnuClassique")); },
             .valeurMax = 8},
            {.nom = "peinture_contemporaine",
             .repetitions = 101,
             .prepare = [] { return peintureSemaine(QStringLiteral("mnuContemporaine")); },
             .valeurMax = 8},
            {.nom = "fiche", .repetitions = 101, .prepare = fiche, .valeurMax = 16},
            {.nom = "changement_semaine",
             .repetitions = 101,
             .prepare = changementSemaine,
             .rapportMax = 1.3,
             .valeurMax = 20},
            {.nom = "bandeau_mois", .repetitions = 101, .prepare = bandeauMois, .valeurMax = 10},
            {.nom = "selection", .repetitions = 201, .prepare = selection, .valeurMax = 2},
            {.nom = "ajout", .repetitions = 31, .prepare = ajout, .rapportMax = 1.3, .valeurMax = 40},
            {.nom = "annule", .repetitions = 51, .prepare = annule, .valeurMax = 30}};
}
