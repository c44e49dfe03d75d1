#include "grid/AffichageTables.h"
#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

const QDateTime maintenant(QDate(2026, 3, 11), QTime(10, 5));

/// "header chair start-end/slot: names in order", of each grid; the reason where it cannot be drawn.
std::string vu(const Affichage &affichage) {
    QStringList grilles;
    for (const Grille &g : affichage.grilles) {
        QStringList noms;
        for (const RendezVous &rdv : g.rendezVous) {
            noms << rdv.Nom;
        }
        const QString creneaux =
            q("%1-%2/%3")
                .arg(g.creneaux.debut.toString(q("HH:mm")), g.creneaux.fin.toString(q("HH:mm")),
                     QString::number(g.creneaux.intervalle));
        grilles << (g.entete + u' ' + g.config.FauteuilCourant + u' ' +
                    (g.tracable() ? creneaux + q(": ") + noms.join(u' ') : g.empechement))
                       .trimmed();
    }
    return grilles.join(q(" | ")).toStdString();
}

class AffichageTest : public testing::Test {
  protected:
    /// A name says chair and day; those of the week come first.
    AffichageTest() {
        for (int fauteuil = 0; fauteuil <= 3; ++fauteuil) {
            const auto nom = [&](const char *quand) { return std::to_string(fauteuil) + quand; };
            livre.rdv(
                {.nom = nom("me").c_str(), .debut = "15:00:00", .fin = "16:00:00", .fauteuil = fauteuil});
            livre.rdv({.nom = nom("lu").c_str(), .jour = "2026-03-09", .fauteuil = fauteuil});
            livre.rdv({.nom = nom("di").c_str(), .jour = "2026-03-15", .fauteuil = fauteuil});
            livre.rdv({.nom = "avant", .jour = "2026-03-08", .fauteuil = fauteuil});
            livre.rdv({.nom = "apres", .jour = "2026-03-16", .fauteuil = fauteuil});
            livre.rdv({.nom = "autre", .fauteuil = fauteuil, .praticien = "02"});
            livre.rdv({.nom = "dix", .fauteuil = fauteuil, .praticien = "010"});
        }
    }
    Affichage lit(const Demande &demande) {
        Database carnet = livre.ouvre();
        return LitAffichage(carnet, demande, maintenant);
    }
    static Demande semaine(std::optional<long> fauteuil = {}) {
        return {.PraticienCourant = q("01"), .jour = maintenant.date(), .fauteuil = fauteuil, .config = {}};
    }
    static Demande jour(std::optional<long> fauteuil = {}) {
        Demande demande = semaine(fauteuil);
        demande.VueSemaine = false;
        return demande;
    }
    Livre livre;
};

const RangConfig repli{.nom = "Défaut", .fauteuil = 0, .defaut = false, .praticien = "0", .intervalle = 30};
const RangConfig un{};
const RangConfig deux{.nom = "Deux", .fauteuil = 2, .defaut = false, .intervalle = 20};
const RangConfig trois{.nom = "Trois", .fauteuil = 3, .defaut = false, .intervalle = 10};
RangConfig dont(RangConfig rang, auto change) {
    change(rang);
    return rang;
}
const RangConfig autreUn{.nom = "Double", .fauteuil = 1, .intervalle = 5};
const RangConfig zero{.nom = "Zéro", .fauteuil = 0};

} // namespace

TEST_F(AffichageTest, EachGridReadsItsOwnChairAndDays) {
    const std::string pas = "La configuration « Cabinet1 » ne peut pas être affichée : ";
    const std::string rien =
        "Ce praticien n'a pas de configuration et la configuration « Défaut » n'existe pas : "
        "le carnet ne peut pas être affiché.";
    const std::string seul = "Ce praticien n'a qu'un fauteuil : la vue par jour en montre deux.";
    const std::string pasChoisi = "Aucun fauteuil n'est choisi dans le menu Fauteuil.";
    const auto heures = [](const char *fin) { return dont(un, [&](RangConfig &r) { r.heures[3] = fin; }); };
    const auto creneau = [](int n) { return dont(un, [n](RangConfig &r) { r.intervalle = n; }); };
    struct Cas {
        const char *nom;
        std::vector<RangConfig> configs;
        Demande demande;
        std::string attendu;
    };
    for (const Cas &cas : {
             Cas{"the default chair", {repli, un, deux}, semaine(), "1 08:00-18:00/60: 1lu 1me 1di"},
             Cas{"the chosen chair", {repli, un, deux}, semaine(2), "2 08:00-18:00/20: 2lu 2me 2di"},
             Cas{"the last of two defaults",
                 {un, dont(deux, [](auto &r) { r.defaut = true; })},
                 semaine(),
                 "2 08:00-18:00/20: 2lu 2me 2di"},
             Cas{"a chair's first row",
                 {dont(un, [](auto &r) { r.defaut = false; }), autreUn},
                 semaine(),
                 "1 08:00-18:00/60: 1lu 1me 1di"},
             Cas{"no default", {repli, deux, trois}, semaine(), "0 08:00-18:00/30: 0lu 0me 0di"},
             Cas{"a chair that is gone", {repli, un}, semaine(2), "0 08:00-18:00/30: 0lu 0me 0di"},
             Cas{"no configuration", {repli}, semaine(), "0 08:00-18:00/30: 0lu 0me 0di"},
             Cas{"the fall-back's name, not quite",
                 {dont(repli, [](auto &r) { r.nom = "défaut"; })},
                 semaine(),
                 rien},
             Cas{"a fall-back after another row of 0",
                 {dont(repli, [](auto &r) { r.nom = "Z"; }), repli},
                 semaine(),
                 rien},
             Cas{"an hour unreadable",
                 {heures("midi")},
                 semaine(),
                 "1 " + pas + "un horaire manque ou ne peut pas être lu."},
             Cas{"hours in disorder",
                 {heures("13:00:00")},
                 semaine(),
                 "1 " + pas + "les horaires ne se suivent pas."},
             Cas{"slots of 0",
                 {creneau(0)},
                 semaine(),
                 "1 " + pas + "la durée d'un créneau doit être d'au moins une minute."},
             Cas{"slots of 100000",
                 {creneau(100000)},
                 semaine(),
                 "1 " + pas + "un créneau dure plus que la journée."},
             Cas{"two chairs",
                 {un, deux},
                 jour(2),
                 "Fauteuil 1 1 08:00-18:00/60: 1me | Fauteuil 2 2 08:00-18:00/20: 2me"},
             Cas{"the ticked one of three and the next",
                 {un, deux, trois},
                 jour(2),
                 "Fauteuil 2 2 08:00-18:00/20: 2me | Fauteuil 3 3 08:00-18:00/10: 3me"},
             Cas{"the last of three and the first",
                 {un, deux, trois},
                 jour(3),
                 "Fauteuil 3 3 08:00-18:00/10: 3me | Fauteuil 1 1 08:00-18:00/60: 1me"},
             Cas{"chairs without a default",
                 {repli, deux, trois},
                 jour(),
                 "Matin  " + pasChoisi + " | Après-midi  " + pasChoisi},
             Cas{"one chair", {un}, jour(), "Matin  " + seul + " | Après-midi  " + seul},
             Cas{"no chairs: everybody's appointments",
                 {repli, zero},
                 jour(),
                 "Matin 0 08:00-12:00/60: 0me 1me 2me 3me | Après-midi 0 14:00-18:00/60: 0me 1me 2me 3me"},
             Cas{"no configuration: everybody's, too",
                 {repli},
                 jour(),
                 "Matin 0 08:00-12:00/30: 0me 1me 2me 3me | Après-midi 0 14:00-18:00/30: 0me 1me 2me 3me"},
         }) {
        livre.execute(SqlText("delete from Config"));
        for (const RangConfig &rang : cas.configs) {
            livre.config(rang);
        }
        EXPECT_EQ(vu(lit(cas.demande)), cas.attendu) << cas.nom;
    }
}

TEST_F(AffichageTest, AppointmentsLieOnTheirDate1InTheOrderOfTheirHours) {
    livre.execute(SqlText("delete from RDV"));
    livre.config();
    livre.rdv({.nom = "tard", .debut = "11:00:00"});
    livre.rdv({.nom = "deuxieme"});
    livre.rdv({.nom = "troisieme"});
    livre.rdv({.nom = "tot", .debut = "08:30:00"});
    livre.rdv({.nom = "lundi", .debut = "17:00:00", .jour = "2026-03-09"});
    livre.rdv({.nom = "venu", .debut = "09:45:00", .jour = "2026-03-11 00:00:00", .cle = "20260318"});
    livre.rdv({.nom = "sans", .debut = "09:50:00", .cle = ""});
    livre.rdv({.nom = "parti", .jour = "2026-03-18", .cle = "20260311"});
    EXPECT_EQ(vu(lit(semaine())), "1 08:00-18:00/60: lundi tot deuxieme troisieme venu sans tard");
    Database carnet = livre.ouvre();
    EXPECT_EQ(RelitJour(carnet, lit(semaine()), 0, maintenant.date()).size(), 6);
}

TEST_F(AffichageTest, ADisplayedDayIsOneThatAnyOfTheSevenValuesNames) {
    livre.config({.affich = {7, 0, 3, 0, 0, 1, 0}, .nbJours = 30000});
    const Configuration config = lit(semaine()).grilles.first().config;
    EXPECT_EQ(config.JourAffich, (std::array{1, 0, 3, 0, 0, 0, 7}));
    EXPECT_EQ(config.NbJours, 3);
}

TEST_F(AffichageTest, AKeptConfigurationServesTheWeekOnly) {
    livre.config();
    livre.config(deux);
    Demande demande = lit(semaine(2)).suite();
    ASSERT_TRUE(demande.config);
    demande.config->Intervalle = 5;
    const Affichage zoomee = lit(demande);
    EXPECT_EQ(vu(zoomee), "2 08:00-18:00/5: 2lu 2me 2di");
    EXPECT_EQ(zoomee.fauteuilCoche, 1);
    demande.VueSemaine = false;
    const Affichage journee = lit(demande);
    EXPECT_EQ(journee.grilles[1].creneaux.intervalle, 20);
    EXPECT_EQ(journee.suite(), demande);
    EXPECT_EQ(journee.reglages(1).Intervalle, 5) << "the settings windows go on with what was changed";
    EXPECT_EQ(journee.reglages(0).Intervalle, 60) << "which is another chair's";
}

TEST_F(AffichageTest, CountsWhatHasNoHoursOnceOnly) {
    livre.config(zero);
    livre.rdv({.debut = "midi"});
    livre.rdv({.debut = "10:00:10", .fin = "10:00:50"});
    livre.rdv({.debut = "10:00:00", .fin = "09:00:00"});
    EXPECT_EQ(SansHoraire(lit(jour())), 3);
}
