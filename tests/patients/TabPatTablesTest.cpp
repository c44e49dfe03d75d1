#include "PatientsDEssai.h"
#include "patients/ActesTables.h"

#include <gtest/gtest.h>

namespace {

class TabPatTest : public testing::Test, public PatientsDEssai {
  protected:
    /// "name first-name" of the found.
    QString cherche(const char *texte) const {
        Database base = ouvre(Base::Patients);
        QStringList trouves;
        for (const PatientTrouve &p : CherchePatients(base, LitCritere(QString::fromUtf8(texte)))) {
            trouves << (p.nom + u' ' + p.prenom).trimmed();
        }
        return trouves.join(u',');
    }
    qint64 cree(const FichePatient &nouveau) const {
        Database patient = ouvre(Base::Patients);
        Database listing = ouvre(Base::PatientsCrees);
        return CreePatient(patient, listing, nouveau, QDate(2026, 3, 11));
    }
    const FichePatient fiche{QStringLiteral("D'ARC"),
                             QStringLiteral("Élise"),
                             QStringLiteral("Mme"),
                             QStringLiteral("1, rue \"Basse\""),
                             QStringLiteral("Bât. B"),
                             QStringLiteral("56000"),
                             QStringLiteral("VANNES"),
                             QStringLiteral("02 61 91 00 00"),
                             {QStringLiteral("25/03/1980"), QStringLiteral("280035600100182")}};
};

/// "field=value" of every field of a table's only row; a Null has no value at all.
QStringList contenu(Database base, const SqlText &sql) {
    const Records rows = base.query(sql);
    QStringList champs;
    for (int i = 0; rows.count() == 1 && i < rows.fields().size(); ++i) {
        const Value &valeur = rows.at(0, i);
        champs << rows.fields()[i] + (valeur.isNull() ? QString() : u'=' + valeur.toText());
    }
    return champs;
}

} // namespace

TEST_F(TabPatTest, FindsByNumberOrByTheBeginningOfTheName) {
    const char *const noms[] = {"DUPONT", "Dupré",   "DURAND", "D'ARC",     "éluard", "ÉTÉ",   "ELUARD",
                                "1234",   "LE GALL", "LEGALL", "D*X [a]#?", "zola",   "Œuvre", "Dupond"};
    for (const char *nom : noms) {
        ajoute(nom, nullptr);
    }
    struct {
        const char *texte, *trouves;
    } const cas[] = {{"DU", "Dupond,DUPONT,Dupré,DURAND"},
                     {"dup", "Dupond,DUPONT,Dupré"},
                     {"DUPRÉ", "Dupré"},
                     {"DUPRE", ""},
                     {"d'a", "D'ARC"},
                     {"É", "éluard,ÉTÉ"},
                     {"e", "ELUARD"},
                     {"z", "zola"},
                     {"œ", "Œuvre"},
                     {"LE ", "LE GALL"},
                     {"1234", ""},
                     {"8", "1234"},
                     {"123a", ""},
                     {"99999999999999999999", ""},
                     {"D*", "D*X [a]#?"},
                     {"d*x [A]#?", "D*X [a]#?"},
                     {"*", ""},
                     {"D?", ""},
                     {"#", ""},
                     {"[D]", ""},
                     {"%", ""},
                     {"' or 1=1 --", ""},
                     {"😀", ""},
                     {"", ""}};
    for (const bool avecIndex : {false, true}) {
        if (avecIndex) {
            Database base = ouvre(Base::Patients);
            CreeIndexPatients(base);
            CreeIndexPatients(base); // there already
        }
        for (const auto &c : cas) {
            EXPECT_EQ(cherche(c.texte), QString::fromUtf8(c.trouves)) << c.texte << " index " << avecIndex;
        }
    }
}

TEST_F(TabPatTest, ListsInAlphabeticalOrder) {
    for (const char *prenom : {"Zoé", "emma", "Élodie", "Edith", "ELODIE", "Émile"}) {
        ajoute("dupont", prenom);
    }
    ajoute("DUPONT", "Fanny", "01/02/1980");
    ajoute("DUPOND", "Zoé");
    ajoute("DUPONT", nullptr);
    EXPECT_EQ(cherche("du"), QStringLiteral("DUPOND Zoé,DUPONT,dupont Edith,dupont ELODIE,dupont Élodie,"
                                            "dupont Émile,dupont emma,DUPONT Fanny,dupont Zoé"));
    Database base = ouvre(Base::Patients);
    const QList<PatientTrouve> fanny = CherchePatients(base, Critere(qint64{7}));
    ASSERT_EQ(fanny.size(), 1);
    EXPECT_EQ(fanny[0].numero + u' ' + fanny[0].dateNais, QStringLiteral("7 01/02/1980"));
}

TEST_F(TabPatTest, AReadOnlyFileIsSearchedWithoutIndex) {
    ajoute("DUPONT", "Jean");
    protege(Base::Patients);
    Database base = ouvre(Base::Patients);
    CreeIndexPatients(base);
    EXPECT_EQ(cherche("DUP"), QStringLiteral("DUPONT Jean"));
}

TEST_F(TabPatTest, ReadsTheFlagOfOnePatient) {
    const qint64 marque = ajoute("A", "a", "", "", QStringLiteral("O"));
    const qint64 autre = ajoute("B", "b", "", "", QStringLiteral("N"));
    const qint64 sans = ajoute("C", "c");
    Database base = ouvre(Base::Patients);
    EXPECT_EQ(RDVNonHonoré(base, marque), NonHonore(true));
    EXPECT_EQ(RDVNonHonoré(base, autre), NonHonore(false));
    EXPECT_EQ(RDVNonHonoré(base, sans), NonHonore(false));
    EXPECT_EQ(RDVNonHonoré(base, 0), std::nullopt);
}

TEST_F(TabPatTest, WritesBothRowsWhole) {
    EXPECT_EQ(cree(fiche), 1); // the file is empty: its first patient is one like any other
    const QString patient = QStringLiteral(
        "cptid=1;nom=D'ARC;PreNom=Élise;Titre=Mme;adresse1=1, rue \"Basse\";adresse2=Bât. B;CodePostal=56000;"
        "ville=VANNES;telephone=02 61 91 00 00;Portable;Profession=;telephone1=;NomJF=;CAM=;medecin=;AdrPar=;"
        "mutuelle=;DateNais=25/03/1980;NumeroSS=280035600100182;TauxCam=0;TauxMut=0;PenChargeTp=0;Option=0;"
        "Filler1=0;Filler2=0;cmu=N;DateDerLg;MontantHis;RDVNonHonoré");
    EXPECT_EQ(contenu(ouvre(Base::Patients), SqlText("select * from TabPat")).join(u';'), patient);
    const QString ligne = QStringLiteral(
        "DateCréationFicheInv=20260311;DateCréationFiche=11/03/2026;NumPatient=1;nom=D'ARC;PreNom=Élise;"
        "telephone=02 61 91 00 00;Portable;adresse1=1, rue \"Basse\";adresse2=Bât. B;CodePostal=56000;"
        "ville=VANNES;DateNais=25/03/1980;DateDerLg;MontantHis;NumeroSS=280035600100182");
    EXPECT_EQ(contenu(ouvre(Base::PatientsCrees), SqlText("select * from LesPatients")).join(u';'), ligne);
}

TEST_F(TabPatTest, NumbersTheNewPatientItself) {
    ajoute("A", "a");
    const qint64 parti = ajoute("B", "b");
    ouvre(Base::Patients).execute(SqlText("delete from TabPat where cptid = ") << nombre(parti));
    FichePatient sansNumero = fiche;
    sansNumero.identite.NumeroSS.clear();
    EXPECT_GT(cree(sansNumero), parti);
    const Records lignes = ouvre(Base::PatientsCrees).query(SqlText("select * from LesPatients"));
    ASSERT_EQ(lignes.count(), 1);
    EXPECT_EQ(lignes.first()[u"NumPatient"].toInteger(), parti + 1);
    EXPECT_EQ(lignes.first()[u"NumeroSS"].toText(), QStringLiteral(" "));
}

TEST_F(TabPatTest, TheLatestActStillToDo) {
    Database base = ouvre(Base::Actes);
    const auto acte = [&](int numero, int patient, int aFaire, const char *libelle, const Value &code,
                          const Value &coefficient) {
        base.insert(QStringLiteral("Actes"), {{QStringLiteral("NumActe"), numero},
                                              {QStringLiteral("NumPatient"), patient},
                                              {QStringLiteral("AFaire"), aFaire},
                                              {QStringLiteral("Libellé"), QString::fromUtf8(libelle)},
                                              {QStringLiteral("CodeSecu"), code},
                                              {QStringLiteral("Coefficient"), coefficient}});
    };
    const QString to = QStringLiteral("TO");
    acte(7, 1, -1, "Bilan", to, 15);
    acte(3, 1, 1, "Plus ancien", to, 5);
    acte(9, 1, 0, "Fait", to, 15);
    acte(11, 2, 0, "Fait", to, 15);
    acte(12, 3, 1, "Semestre", to, 22.5);
    acte(13, 4, 1, "Contrôle", {}, {});
    EXPECT_EQ(DernierActeAFaire(base, 1), QStringLiteral("Bilan (TO 15)"));
    EXPECT_EQ(DernierActeAFaire(base, 2), QString());
    EXPECT_EQ(DernierActeAFaire(base, 3), QStringLiteral("Semestre (TO 22,5)"));
    EXPECT_EQ(DernierActeAFaire(base, 4), QStringLiteral("Contrôle ( )"));
    EXPECT_EQ(DernierActeAFaire(base, 5), QString());
}
