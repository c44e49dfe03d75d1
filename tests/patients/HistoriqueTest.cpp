#include "patients/HistoriqueTables.h"
#include "support/Livre.h"

#include <gtest/gtest.h>

namespace {

class HistoriqueTest : public testing::Test {
  protected:
    /// "Nom|Prenom|NumPatient|DateInv", "-" for Null.
    void ajoute(const char *rangees) const {
        for (const QStringList &rangee : tableau(rangees)) {
            Fields champs{{q("NumPraticien"), q("02")}, {q("Fauteuil"), 2}};
            const char *const noms[] = {"Nom", "Prenom", "NumPatient", "DateInv"};
            for (int i = 0; i < rangee.size(); ++i) {
                const QString texte = QString(rangee[i]).replace(u'_', u' ');
                champs.emplace_back(q(noms[i]), texte == q("-") ? Value() : Value(texte));
            }
            livre.ouvre().insert(q("RDV"), champs);
        }
    }

    Livre livre;
};

} // namespace

TEST_F(HistoriqueTest, TheLatestAppointmentOfTheNamesGivesTheNumber) {
    ajoute(R"(
        DUPONT   | Jean  | 57 | 20050412
        DUPONT   | Jean  | 41 | 20050310
        DUPONTEL | Jean  | 99 | 20300101
        D'ANGÉLO | Zoé   | 8  | 20050101
        LENOIR_  | Max   | 5  | 20050101
        ROUX     | -     | 6  | 20050101
        CLES     | A     | 9  | -
        CLES     | A     | 41 | 20050310
        CLES     | A     | 57 | 20041399
        MAIN     | A     | 0  | 20050310
        MAIN     | A     | 41 | 20050309
        NULL     | A     | -  | 20050310
        NULL     | A     | 41 | 20050309)");
    for (const QStringList &cas : tableau(R"(
        DUPONT   | Jean | 57
        dupont   | JEAN | 57
        Dupon    | Jean | 0
        d'Angélo | ZOÉ  | 8
        D'ANGELO | Zoé  | 0
        LENOIR   | Max  | 0
        LENOIR_  | Max  | 5
        ROUX     |      | 0
                 |      | 0
        CLES     | A    | 41
        MAIN     | A    | 0
        NULL     | A    | 0)")) {
        Database carnet = livre.ouvre();
        EXPECT_EQ(DernierNumero(carnet, QString(cas[0]).replace(u'_', u' '), cas[1]), cas[2].toInt())
            << cas[0].toStdString() << ' ' << cas[1].toStdString();
    }
}

TEST_F(HistoriqueTest, OnlyTheFirstRowIsAsked) {
    const QTemporaryDir dossier;
    const QString fichier = dossier.filePath(q("ChangePatient.mdb"));
    creeBase(fichier, schema(Base::Historique));
    Database historique = Database::open(fichier);
    const auto carnet = [&] {
        QStringList numeros;
        for (const Record row : historique.query(SqlText("Select * from Carnet"))) {
            numeros << row[u"NumPatient"].toText();
        }
        return numeros.join(u',').toStdString();
    };
    DemandeHistorique(historique, 41);
    EXPECT_EQ(carnet(), "");
    historique.insert(q("Carnet"), {{q("NumPatient"), 5}});
    historique.insert(q("Carnet"), {{q("NumPatient"), 5}});
    DemandeHistorique(historique, 41);
    EXPECT_EQ(carnet(), "41,5");
}
