#include "patients/HistoriqueTables.h"
#include "support/Livre.h"

#include <gtest/gtest.h>

TEST(Historique, TheLatestAppointmentOfTheNamesGivesTheNumber) {
    const Livre livre;
    livre.rdvs(R"(
        Nom      | Prenom | NumPatient | DateInv  | NumPraticien
        DUPONT   | Jean   | 57         | 20050412 | 02
        DUPONT   | Jean   | 41         | 20050310 | 01
        DUPONT   | Luc    | 43         | 20060310 | 01
        DUPONTEL | Jean   | 99         | 20300101
        D'ANGÉLO | Zoé    | 8          | 20050101
        LENOIR·  | Max    | 5          | 20050101
        ROUX     | -      | 6          | 20050101
        CLES     | A      | 9          | -
        CLES     | A      | 41         | 20050310
        CLES     | A      | 57         | 20041399
        MAIN     | A      | 0          | 20050310
        MAIN     | A      | 41         | 20050309
        NULL     | A      | -          | 20050310
        NULL     | A      | 41         | 20050309)");
    Database carnet = livre.ouvre();
    for (const QStringList &cas : tableau(R"(
        dupont   | JEAN | 57
        Dupon    | Jean | 0
        d'Angélo | ZOÉ  | 8
        D'ANGELO | Zoé  | 0
        LENOIR   | Max  | 0
        LENOIR·  | Max  | 5
        ROUX     |      | 0
                 |      | 0
        CLES     | A    | 41
        MAIN     | A    | 0
        NULL     | A    | 0)")) {
        EXPECT_EQ(DernierNumero(carnet, QString(cas[0]).replace(u'·', u' '), cas[1]), cas[2].toInt())
            << cas.join(u'|');
    }
}
