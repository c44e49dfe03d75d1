#include "start/CarnetMontre.h"
#include "support/Fenetre.h"
#include "support/Gestes.h"

#include <gtest/gtest.h>

/// Practitioner 1 has chairs 1 and 2 and works from Monday to Friday, practitioner 2 has no chairs.
TEST(MontreRDV, GoesWhereTheAppointmentLies) {
    Fenetre f;
    f.livre.config({.affich = {1, 2, 3, 4, 5, 0, 0}});
    f.livre.config({.nom = "Cabinet2", .fauteuil = 2, .defaut = false});
    f.livre.config({.nom = "Principal", .fauteuil = 0, .praticien = "02", .intervalle = 15});
    struct {
        RangRDV rang;
        const char *montre = ""; ///< view, practitioner, day and patient as the status bar names them
        qint64 ref = 0;
    } cas[] = {
        {{.nom = "ICI", .jour = "2026-03-12"}, "semaine 1 12 mars 2026 ICI"},
        {{.nom = "LOIN", .jour = "2027-01-04"}, "semaine 1 04 janv. 2027 LOIN"},
        {{.nom = "CHAISE", .fauteuil = 2}, "semaine 1 11 mars 2026 CHAISE"},
        {{.nom = "TARD", .debut = "17:45:00", .fin = "18:00:00", .fauteuil = 0, .praticien = "02"},
         "semaine 2 11 mars 2026 TARD"},
        {{.nom = "SAMEDI", .jour = "2026-03-14"}, "jour 1 14 mars 2026 SAMEDI"},
        {{.nom = "LUNDI", .jour = "2026-03-16", .fauteuil = 2}, "jour 1 16 mars 2026 LUNDI"},
        {{.nom = "AUTRE", .fauteuil = 0, .praticien = "02"}, "jour 2 11 mars 2026 AUTRE"},
    };
    for (auto &c : cas) {
        c.ref = f.livre.rdv(c.rang);
    }
    f.ouvre();
    f.fenetre->resize(1200, 500); // not all rows fit
    auto &carnet = *f.fenetre->findChild<CarnetMontre *>();
    for (const auto &c : cas) {
        carnet.montreRDV(c.ref);
        const Demande &demande = carnet.affichage().demande;
        EXPECT_EQ(q("%1 %2 %3 %4")
                      .arg(demande.VueSemaine ? q("semaine") : q("jour"))
                      .arg(demande.numPraticien())
                      .arg(f.objet<QLabel>("StatusBar1_4").text(),
                           f.objet<QLabel>("StatusBar1_1").text().trimmed()),
                  q(c.montre));
        const FlexGrid &grille = f.grille(demande.VueSemaine ? 0 : 1 + carnet.selection().grille);
        const QRect vu = grille.visualRect(grille.cells().index(grille.outline()->row, 1));
        EXPECT_TRUE(grille.viewport()->rect().contains(vu)) << c.montre;
    }
    EXPECT_EQ(f.dits(), "");

    carnet.montreRDV(cas[0].ref);
    f.livre.execute(SqlText("update RDV set Prenom = 'Zoé' where RefRDV = ") << nombre(cas[0].ref));
    f.fait(q("BtnRafraichir"));
    f.pendant("mnurechercher", [](QWidget &recherche) {
        EXPECT_EQ(texte(recherche, "Text1") + q(" ") + texte(recherche, "Text2"), q("ICI Zoé"));
    });
    Configuration sansJeudi = carnet.reglages();
    sansJeudi.JourAffich[3] = 0;
    carnet.montreSemaine();
    carnet.prendReglages(sansJeudi);
    carnet.montreRDV(cas[0].ref);
    EXPECT_FALSE(carnet.affichage().demande.VueSemaine) << "unsaved settings hide its day";
    carnet.montreRDV(cas[6].ref);
    f.livre.execute(SqlText("update RDV set NumPraticien = '01', Fauteuil = 7 where RefRDV = ")
                    << nombre(cas[6].ref));
    carnet.montreRDV(cas[6].ref);
    EXPECT_EQ(f.dits(), "Le rendez-vous du mercredi 11 mars 2026, de 09:00 à 10:00, n'est montré ni par la "
                        "semaine ni par le jour.");
    f.livre.execute(SqlText("delete from RDV where RefRDV = ") << nombre(cas[6].ref));
    carnet.montreRDV(cas[6].ref);
    EXPECT_EQ(f.dits(), "Ce rendez-vous n'existe plus !");
    EXPECT_EQ(f.grilles(),
              "18x2 mercredi 11 mars Matin: [5,1-8,1]; 18x2 mercredi 11 mars Après-midi: 16,1 TARD")
        << "the same view, read again";
}
