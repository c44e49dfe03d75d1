#include "search/RechercheTables.h"

#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

struct Rangee {
    const char *nom = nullptr; ///< none: Null, here and below
    const char *prenom = nullptr;
    const char *jour = "2005-03-08";
    const char *debut = "09:00:00";
    const char *professionnel = "1";
    const char *praticien = "01";
};

/// The rows that are found, by their place; then how many are not listed.
std::string trouves(Database &base, const CritereRDV &critere) {
    const RDVsTrouves lus = RendezVousDuPatient(base, critere);
    QStringList textes;
    for (const RDVTrouve &rdv : lus.liste) {
        textes << QString::number(rdv.RefRDV);
    }
    return (textes.join(u' ') + (lus.horsHoraires > 0 ? q(" +%1").arg(lus.horsHoraires) : QString()))
        .toStdString();
}

} // namespace

TEST(RendezVousDuPatient, FindsTheSameWithAndWithoutItsIndex) {
    const Rangee rangees[] = {{"DUPONT", "Jean", "2005-03-08"},
                              {"Dupont", "JEAN", "2005-03-07", "09:00:00", "-1", "02"},
                              {"DUPONT", "Jean", "2005-03-07", "1899-12-30 08:00:00"},
                              {"DUPONT", "Jean", "2005-03-06"},
                              {"DUPONT", "Jean", "2005-03-07", "12:00:00", "0"},
                              {"DUPONT", "Jean", "2005-03-07", "12:00:00", nullptr},
                              {"DUPONTEL", "Jean"},
                              {"DUPONT ", "Jean"},
                              {"DUPONT", nullptr},
                              {"DUPONT", ""},
                              {"Étienne", "Éloïse"},
                              {"ÉTIENNE", "éloÏse"},
                              {"ETIENNE", "Eloise"},
                              {"D'ANGÉLO", "A_B"},
                              {"D'ANGELO", "AxB"},
                              {"ESSAI*", "100%"},
                              {"ESSAIS", "1000"},
                              {"Groß", "Simon"},
                              {"GROSS", "SIMON"},
                              {"", ""},
                              {nullptr, nullptr}};
    const struct {
        const char *nom = "";
        const char *prenom = "";
        const char *attendus = "";
        QDate depuis{2005, 3, 7};
    } cas[] = {{"dupont", "jean", "3 2 1 +2"},
               {"DUPONT", "Jean", "4 3 2 1 +2", {2005, 3, 6}},
               {"DUPONT", "Jean", "", {2005, 7, 3}},
               {"DUPONT ", "Jean", "8"},
               {" DUPONT", "Jean", ""},
               {"DUPONT", "", "10"},
               {"étienne", "ÉLOÏSE", "11 12"},
               {"etienne", "eloise", "13"},
               {"d'angélo", "a_b", "14"},
               {"essai*", "100%", "16"},
               {"ESSAI?", "100%", ""},
               {"GROß", "simon", "18"},
               {"gross", "SIMON", "19"},
               {"", "", "20"},
               {"' Or ''='", "", ""}};
    const Livre livre;
    for (const Rangee &r : rangees) {
        const auto texteOuNul = [](const char *texte) {
            return texte != nullptr ? Value(q(texte)) : Value();
        };
        livre.ouvre().insert(q("RDV"), {{q("Nom"), texteOuNul(r.nom)},
                                        {q("Prenom"), texteOuNul(r.prenom)},
                                        {q("Date1"), q(r.jour)},
                                        {q("HeureDebut"), q(r.debut)},
                                        {q("NumPraticien"), q(r.praticien)},
                                        {q("Professionnel"), texteOuNul(r.professionnel)}});
    }
    Database base = livre.ouvre();
    const QString longNom(10'000, QChar(u'é')); // more spellings than an index can be asked for
    livre.execute(SqlText("update RDV set Nom = ") << texte(longNom.toUpper()) << " where RefRDV = 7");
    for (const bool avecIndex : {false, true}) {
        for (const auto &c : cas) {
            EXPECT_EQ(trouves(base, {q(c.nom), q(c.prenom), c.depuis}), c.attendus)
                << '[' << c.nom << "] [" << c.prenom << "] " << avecIndex;
        }
        EXPECT_EQ(trouves(base, {longNom, q("Jean"), QDate(2005, 3, 7)}), "7") << avecIndex;
        if (!avecIndex) {
            base.tableDef(q("RDV")).createIndex(IndexRecherche());
        }
    }
}
