#include "grid/AffichageTables.h"
#include "support/Livre.h"

#include <gtest/gtest.h>
#include <map>

namespace {

const QDateTime maintenant(QDate(2026, 3, 11), QTime(10, 5));

/// The ticked place, and "header chair start-end/slot: names in order" of each grid, or why it cannot be
/// drawn.
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
    return q("(%1) ").arg(affichage.fauteuilCoche).toStdString() + grilles.join(q(";")).toStdString();
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
    /// "semaine" or "jour", and a chair.
    static Demande demande(const QString &mots) {
        const QString fauteuil = mots.section(u' ', 1);
        return {.PraticienCourant = q("01"),
                .VueSemaine = mots.startsWith(q("semaine")),
                .jour = maintenant.date(),
                .fauteuil = fauteuil.isEmpty() ? std::nullopt : std::optional(fauteuil.toLong())};
    }
    Livre livre;
};

const RangConfig deux{.nom = "Deux", .fauteuil = 2, .defaut = false, .intervalle = 20};

/// The rows of Config that the cases below choose from.
RangConfig rang(const QString &mot) {
    return std::map<QString, RangConfig>{
        {q("repli"), {.nom = "Défaut", .fauteuil = 0, .defaut = false, .praticien = "0", .intervalle = 30}},
        {q("autreNom"), {.nom = "défaut", .fauteuil = 0, .praticien = "0"}},
        {q("un"), {}},
        {q("unBis"), {.defaut = false, .intervalle = 5}},
        {q("deux"), deux},
        {q("deux*"), {.nom = "Deux", .fauteuil = 2, .intervalle = 20}},
        {q("trois"), {.nom = "Trois", .fauteuil = 3, .defaut = false, .intervalle = 10}},
        {q("zéro"), {.nom = "Zéro", .fauteuil = 0}},
        {q("illisible"), {.heures = {"08:00", "midi", "14:00", "18:00"}}},
        {q("désordre"), {.heures = {"08:00", "12:00", "14:00", "13:00"}}},
        {q("nul"), {.intervalle = 0}},
        {q("long"), {.intervalle = 100000}}}
        .at(mot);
}

} // namespace

TEST_F(AffichageTest, EachGridReadsItsOwnChairAndDays) {
    for (const QStringList &cas : tableau(R"(
        the default chair        | repli un deux  | semaine   | (0) 1 08:00-18:00/60: 1lu 1me 1di
        the chosen chair         | repli un deux  | semaine 2 | (1) 2 08:00-18:00/20: 2lu 2me 2di
        the last of two defaults | un deux*       | semaine   | (1) 2 08:00-18:00/20: 2lu 2me 2di
        a chair's first row      | un unBis       | semaine   | (0) 1 08:00-18:00/60: 1lu 1me 1di
        no default               | repli trois    | semaine   | (-1) 0 08:00-18:00/30: 0lu 0me 0di
        a chair that is gone     | repli un       | semaine 2 | (-1) 0 08:00-18:00/30: 0lu 0me 0di
        no configuration         | repli          | semaine   | (-1) 0 08:00-18:00/30: 0lu 0me 0di
        not quite its name       | autreNom       | semaine   | (-1) Ce praticien n'a pas de configuration et la configuration « Défaut » n'existe pas : le carnet ne peut pas être affiché.
        behind another row of 0  | autreNom repli | semaine   | (-1) Ce praticien n'a pas de configuration et la configuration « Défaut » n'existe pas : le carnet ne peut pas être affiché.
        an hour unreadable       | illisible      | semaine   | (0) 1 La configuration « Cabinet1 » ne peut pas être affichée : un horaire manque ou ne peut pas être lu.
        hours in disorder        | désordre       | semaine   | (0) 1 La configuration « Cabinet1 » ne peut pas être affichée : les horaires ne se suivent pas.
        no slot length           | nul            | semaine   | (0) 1 La configuration « Cabinet1 » ne peut pas être affichée : la durée d'un créneau doit être d'au moins une minute.
        slots beyond the day     | long           | semaine   | (0) 1 La configuration « Cabinet1 » ne peut pas être affichée : un créneau dure plus que la journée.
        two chairs               | un deux        | jour 2    | (1) Fauteuil 1 1 08:00-18:00/60: 1me;Fauteuil 2 2 08:00-18:00/20: 2me
        ticked one and the next  | un deux trois  | jour 2    | (1) Fauteuil 2 2 08:00-18:00/20: 2me;Fauteuil 3 3 08:00-18:00/10: 3me
        the last and the first   | un deux trois  | jour 3    | (2) Fauteuil 3 3 08:00-18:00/10: 3me;Fauteuil 1 1 08:00-18:00/60: 1me
        chairs, no default       | repli trois deux | jour    | (-1) Matin  Aucun fauteuil n'est choisi dans le menu Fauteuil.;Après-midi  Aucun fauteuil n'est choisi dans le menu Fauteuil.
        one chair                | un             | jour      | (0) Matin  Ce praticien n'a qu'un fauteuil : la vue par jour en montre deux.;Après-midi  Ce praticien n'a qu'un fauteuil : la vue par jour en montre deux.
        no chairs: everybody's   | repli zéro     | jour      | (0) Matin 0 08:00-12:00/60: 0me 1me 2me 3me;Après-midi 0 14:00-18:00/60: 0me 1me 2me 3me
        no configuration: too    | repli          | jour      | (-1) Matin 0 08:00-12:00/30: 0me 1me 2me 3me;Après-midi 0 14:00-18:00/30: 0me 1me 2me 3me)")) {
        livre.execute(SqlText("delete from Config"));
        for (const QString &mot : cas[1].split(u' ')) {
            livre.config(rang(mot));
        }
        EXPECT_EQ(vu(lit(demande(cas[2]))), cas[3].toStdString()) << cas[0];
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
    EXPECT_EQ(vu(lit(demande(q("semaine")))), "(0) 1 08:00-18:00/60: lundi tot deuxieme troisieme tard");
    livre.rdv({.nom = "venu", .debut = "09:45:00", .jour = "2026-03-11 00:00:00", .cle = "20260318"});
    livre.rdv({.nom = "sans", .debut = "09:50:00", .cle = ""});
    livre.rdv({.nom = "cle", .jour = "illisible", .cle = "20260311"});
    livre.rdv({.nom = "parti", .jour = "2026-03-18", .cle = "20260311"});
    livre.rdv({.nom = "autre", .praticien = "02", .cle = "20260318"});
    livre.rdv({.nom = "ailleurs", .fauteuil = 2, .cle = "20260318"});
    EXPECT_EQ(vu(lit(demande(q("semaine")))),
              "(0) 1 08:00-18:00/60: lundi tot deuxieme troisieme cle venu sans tard");
    Database carnet = livre.ouvre();
    EXPECT_EQ(RelitJour(carnet, lit(demande(q("semaine"))), 0, maintenant.date()).size(), 7);
}

TEST_F(AffichageTest, ADisplayedDayIsOneThatAnyOfTheSevenValuesNames) {
    livre.config({.affich = {7, 0, 3, 0, 0, 1, 0}, .nbJours = 30000});
    const Configuration config = lit(demande(q("semaine"))).grilles.first().config;
    EXPECT_EQ(config.JourAffich, (std::array{1, 0, 3, 0, 0, 0, 7}));
    EXPECT_EQ(config.NbJours, 3);
}

TEST_F(AffichageTest, AKeptConfigurationServesTheWeekOnly) {
    livre.config();
    livre.config(deux);
    Demande gardee = lit(demande(q("semaine 2"))).suite();
    ASSERT_TRUE(gardee.config);
    gardee.config->Intervalle = 5;
    const Affichage zoomee = lit(gardee);
    EXPECT_EQ(vu(zoomee), "(1) 2 08:00-18:00/5: 2lu 2me 2di");
    gardee.VueSemaine = false;
    const Affichage journee = lit(gardee);
    EXPECT_EQ(journee.grilles[1].creneaux.intervalle, 20);
    EXPECT_EQ(journee.suite(), gardee);
    EXPECT_EQ(journee.reglages(1).Intervalle, 5) << "the settings windows go on with what was changed";
    EXPECT_EQ(journee.reglages(0).Intervalle, 60) << "which is another chair's";
}

TEST_F(AffichageTest, CountsWhatHasNoHoursOnceOnly) {
    livre.config(rang(q("zéro")));
    livre.rdv({.debut = "midi"});
    livre.rdv({.debut = "10:00:10", .fin = "10:00:50"});
    livre.rdv({.debut = "10:00:00", .fin = "09:00:00"});
    EXPECT_EQ(SansHoraire(lit(demande(q("jour")))), 3);
}
