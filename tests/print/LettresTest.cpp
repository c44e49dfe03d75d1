#include "platform/ui/FlexGrid.h"
#include "print/AbsentsTables.h"
#include "print/LettrePatient.h"
#include "print/LettresTables.h"
#include "print/ListingAbsent.h"
#include "support/CabinetDEssai.h"
#include "support/Gestes.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLockFile>
#include <gtest/gtest.h>

namespace {

/// The steps, a sign and what it is about each: files by their names.
QString etapes(const word::Verbs &verbes) {
    QStringList mots;
    for (const word::Verb &verbe : verbes) {
        mots << q("< = @ # T ? save > print close").split(u' ')[int(verbe.index())];
        mots.last() += std::visit(
            [](const auto &v) {
                if constexpr (requires { v.path; }) {
                    return QFileInfo(v.path).fileName();
                } else if constexpr (requires { v.paths; }) {
                    return QFileInfo(v.paths.first()).fileName();
                } else if constexpr (requires { v.bookmark; }) {
                    return v.bookmark;
                } else if constexpr (requires { v.text; }) {
                    return v.text;
                } else {
                    return QString();
                }
            },
            verbe);
    }
    return mots.join(u' ');
}

/// Cells parted by "|"; "~" is one that stays as it is.
QString texteDe(const QList<std::optional<QString>> &cellules) {
    QStringList textes;
    for (const auto &cellule : cellules) {
        textes << cellule.value_or(q("~"));
    }
    return textes.join(u'|');
}
/// Those of the first table.
QString cellules(const word::Verbs &verbes) {
    const auto ecrites = std::ranges::find_if(
        verbes, [](const word::Verb &verbe) { return std::holds_alternative<word::Cells>(verbe); });
    return texteDe(std::get<word::Cells>(*ecrites).texts);
}

/// Sees while it tells something whether a file's lock is free.
class Temoin : public Messages {
  public:
    explicit Temoin(QString verrou) : m_verrou(std::move(verrou)) {}
    void show(const QString &, const QString &, Icon) override {
        QLockFile verrou(m_verrou);
        libre = verrou.tryLock(0);
    }
    bool ask(const QString &, const QString &) override { return false; }
    bool libre = false;

  private:
    QString m_verrou;
};

class Lettres : public testing::Test {
  protected:
    Lettres() {
        Database impression = cabinet.ouvre(Base::ParametresImpression);
        impression.execute(SqlText("delete from Parametres"));
        impression.execute(
            SqlText("insert into Parametres (codeprat, NumLigne, LgPerso) values (1, 3, ' C '), (1, 1, 'A'), "
                    "(1, 2, Null), (2, 10, 'J'), (2, 1, 'Z')"));
        cabinet.ouvre(Base::Patients)
            .execute(SqlText("update TabPat set Titre = ' Mme ', nom = 'ROUX ', PreNom = 'Léa', adresse1 = "
                             "Null, adresse2 = 'b', CodePostal = '56000', ville = ' V' where Cptid = 7"));
        cabinet.ouvre(Base::Parametres)
            .execute(
                SqlText("update Praticien set Titre = 'Dr', nom = ' UN ', PreNom = Null where codeprat = 1"));
    }

    CabinetDEssai cabinet;
    const Environnement &env = cabinet.environnement();
    std::shared_ptr<WordRecord> record = cabinet.word;
};

/// The listing of practitioner "01" on Wednesday 2026-03-11, where rows of several days, practitioners and
/// patients lie.
class Listing : public Lettres {
  protected:
    Listing() {
        livre.rdvs(R"(
            Nom   | Prenom | NumPatient | HeureDebut          | NumPraticien | Present | Date1      | DateInv
            ROUX· | Léa    | 7          | 10:00:00            | 01           | 0       | 2026-03-11 | 20260311
            AVANT | a	b    | 1          | 1899-12-30 09:00:00 | 1            | 0       | 2026-03-11 | 20260311
            DIX   | -      | 3          | 08:00:00            | 010          | 0       | 2026-03-11 | 20260311
            DEUX  | -      | 2          | 10:00:00            | 02           | 0       | 2026-03-11 | 20260311
            SANS  | -      | -          | -                   | abc          | 0       | 2026-03-11 | 20260311
            VENU  | -      | 2          | 10:00:00            | 01           | -1      | 2026-03-11 | 20260311
            CLE   | -      | 0          | 11:00:00            | 01           | 0       | 2026-03-12 | 20260311
            AUTRE | -      | 2          | 11:00:00            | 01           | 0       | 2026-03-11 | -
            AUTRE | -      | 2          | 11:00:00            | 01           | 0       | 2026-03-11 |)");
        cabinet.ouvre(Base::Patients).execute(SqlText("update TabPat set nom = 'P' & Cptid where Cptid < 7"));
        livre.execute(SqlText("update RDV set HeureFin = '11:30:00', Telephone = NumPatient"));
    }
    void ouvre(const char *praticien) {
        fenetre = std::make_unique<ListingAbsent>(env, q(praticien));
        fenetre->show();
        fenetre->activateWindow(); // shortcuts belong to the active window
        waitUntil([this] { return fenetre->isActiveWindow(); });
    }
    FlexGrid &grille() const { return controle<FlexGrid>(*fenetre, q("ListAbsent")); }
    void cherche(const char *praticien, const char *jour) const {
        controle<QComboBox>(*fenetre, q("cmbChoixPrat")).setEditText(q(praticien));
        joue(*fenetre, q("txtdatedebut=%1;>cmdOK").arg(q(jour)));
    }
    void clique(int ligne) const {
        const QModelIndex cellule = grille().cells().index(ligne, 3);
        QTest::mouseClick(grille().viewport(), Qt::LeftButton, {}, grille().visualRect(cellule).center());
    }
    /// Names of the rows, a star before those whose cells are all yellow.
    QString lignes() const {
        QString noms;
        for (int ligne = 1; ligne < grille().cells().rows(); ++ligne) {
            bool jaune = true;
            for (int col = 0; col < 7; ++col) {
                jaune = jaune && grille().cells().cell(ligne, col).back == QColor(255, 255, 0);
            }
            noms += q(jaune ? "*" : "") + grille().cells().cell(ligne, 1).text + u',';
        }
        return noms;
    }
    /// Practitioner's letterhead, date and patient's name of each letter.
    QString lettres() {
        QStringList faites;
        for (const word::Verbs &verbes : std::exchange(record->performed, {})) {
            const QStringList cases = cellules(verbes).split(u'|');
            faites << cases[0] + u' ' + cases[10] + u' ' + cases[16];
        }
        return faites.join(u',');
    }

    Livre livre{cabinet.fichier(Base::RendezVous)};
    std::unique_ptr<ListingAbsent> fenetre;
};

} // namespace

TEST_F(Lettres, TheFrameSaysWhatTheTablesHave) {
    Database impression = env.ouvreParametresImpression();
    Database patients = env.ouvrePatients();
    Database parametres = env.ouvreParametres();
    const QString fin = q("|VANNES|09/03/2026");
    const struct {
        long praticien;
        long patient;
        const char *cellules;
    } cas[] = {
        {1, 7, "A||C||||||||07/03/2005|~|~|~|~|Mme|ROUX|Léa||b|56000|V|Dr| UN |"},
        {1, 0, "A||C||||||||07/03/2005|~|~|~|~||||||||Dr| UN |"},
        {1, 9'999'999, "A||C||||||||07/03/2005|~|~|~|~||||||||Dr| UN |"},
        {99, 7, "||||||||||07/03/2005|~|~|~|~|Mme|ROUX|Léa||b|56000|V|||"},
    };
    for (const auto &c : cas) {
        const CadreLettre cadre = LitCadre(impression, patients, parametres, {c.praticien, c.patient, {}});
        EXPECT_EQ(texteDe(CellulesCadre(cadre, q(" 07/03/2005 "), QDate(2026, 3, 9))), q(c.cellules) + fin);
    }
    EXPECT_EQ(LitCadre(impression, patients, parametres, {2, 0, {}}).lignes[9], q("J"));
    parametres.execute(SqlText("delete from Cabinet"));
    EXPECT_EQ(LitCadre(impression, patients, parametres, {2, 0, {}}).ville, QString());
}

TEST_F(Lettres, ACancellationLetterIsShownAndWhatFailsMakesNone) {
    const auto annule = [this] { LettreAnnulation(env, nullptr, {1, 7, q("12/03/2026")}); };
    annule();
    ASSERT_EQ(record->performed.size(), 1);
    EXPECT_EQ(etapes(record->performed[0]),
              q("<ModèleOrtho.doc @Début # >ModèleOrtho1.doc close <AnnulRDV.doc =Annul11032026100500.doc "
                "save close"));
    EXPECT_EQ(record->shown, QStringList(cabinet.dossier() + q("/Donnees/Word/Annul11032026100500.doc")));
    EXPECT_TRUE(cellules(record->performed[0]).contains(q("|12/03/2026|~|~|~|~|Mme|ROUX|")));
    EXPECT_EQ(cabinet.messages.taken(), QString());

    const QString nom = cabinet.dossier() + q("/Donnees/Documents/ModèleOrtho1.doc.verrou");
    {
        QLockFile autre(nom);
        ASSERT_TRUE(autre.tryLock(0));
        annule();
        EXPECT_TRUE(cabinet.messages.taken().contains(q("Un autre poste")));
    }
    Temoin temoin(nom);
    Environnement avecTemoin = env;
    avecTemoin.messages = &temoin;
    record->failing = 1;
    LettreAnnulation(avecTemoin, nullptr, {1, 7, {}});
    EXPECT_TRUE(temoin.libre) << "who reads a message keeps nobody waiting";
    QFile::remove(cabinet.fichier(Base::ParametresImpression));
    annule();
    EXPECT_TRUE(cabinet.messages.taken().contains(q("ParamImpression.mdb")));
    EXPECT_EQ(record->performed.size(), 2) << "no other was tried";
}

TEST_F(Listing, ListsWhoDidNotComeByPractitionerAndStart) {
    ouvre("02");
    EXPECT_EQ(controle<QComboBox>(*fenetre, q("cmbChoixPrat")).currentText(), q("02"));
    EXPECT_EQ(lignes(), q("DEUX,"));
    for (const QStringList &cas : tableau(R"(
        01   | 11/3/2026  | AVANT,ROUX ,CLE,
        Tous | 11/3/2026  | SANS,AVANT,ROUX ,CLE,DEUX,DIX,
        10   | 11032026   | DIX,
        1    | 12/03/2026 | ,
        1    | 31/02/2026 | ,
        1    |            | ,
        77   | 11/03/2026 | ,)")) {
        cherche(cas[0].toUtf8(), cas[1].toUtf8());
        EXPECT_EQ(lignes(), cas[2]) << cas.join(u'|');
        EXPECT_EQ(cabinet.messages.taken(), QString());
    }
    cherche("abc", "11/03/2026");
    EXPECT_EQ(lignes(), q(","));
    EXPECT_TRUE(cabinet.messages.taken().contains(q("« abc »")));
    QFile::remove(livre.fichier());
    QFile::remove(cabinet.fichier(Base::Parametres));
    cherche("1", "11/03/2026");
    EXPECT_TRUE(cabinet.messages.taken().contains(q("Tavelin.mdb")));
    EXPECT_EQ(lignes(), q(","));
    EXPECT_FALSE(controle<QAbstractButton>(*fenetre, q("cmdImprimerListing")).isEnabled()) << "nobody knows";
    ouvre("02");
    auto &choix = controle<QComboBox>(*fenetre, q("cmbChoixPrat"));
    EXPECT_EQ(q("%1 %2 %3").arg(choix.count()).arg(choix.itemText(0), choix.currentText()), q("1 Tous 02"));
}

TEST_F(Listing, LettersGoToTheMarkedRowsForTheDayThatIsListed) {
    ouvre("Tous");
    EXPECT_FALSE(controle<QAbstractButton>(*fenetre, q("cmdImprimLettre")).isEnabled()) << "nobody is marked";
    for (const int ligne : {5, 1, 4, 3, 4}) { // SANS has no practitioner to write
        clique(ligne);
    }
    EXPECT_EQ(lignes(), q("SANS,AVANT,*ROUX ,CLE,*DEUX,DIX,"));
    for (const Qt::Key touche : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space}) {
        QTest::keyClick(&grille(), touche);
    }
    EXPECT_EQ(lignes(), q("SANS,*AVANT,ROUX ,CLE,*DEUX,DIX,"));
    clique(3);
    joue(*fenetre, q("txtdatedebut=12/03/2026;>cmdImprimLettre;>cmdImprimerListing"));
    EXPECT_EQ(lignes(), q(",")) << "what is shown is what the fields say";
    EXPECT_EQ(record->started, 0);
    joue(*fenetre, q("txtdatedebut=11/03/2026;>cmdImprimLettre"));
    EXPECT_EQ(etapes(record->performed[0]),
              q("<ModèleOrtho.doc @Début # >ModèleOrtho1.doc close <AbsenceType.doc "
                "=Absence11032026100500.doc save print close"));
    EXPECT_EQ(lettres(), q("A 11/03/2026 P1,A 11/03/2026 ROUX,Z 11/03/2026 P2"));
    EXPECT_EQ(record->started, 1) << "one office for all";
    EXPECT_EQ(cabinet.messages.taken(), q(": 3 lettres imprimées."));

    record->failing = 1;
    record->hasPrinter = false;
    joue(*fenetre, q(">cmdImprimLettre"));
    EXPECT_EQ(record->performed.size(), 2) << "the third is not tried";
    EXPECT_EQ(cabinet.messages.taken(),
              q("Erreur: Le traitement de texte s'est arrêté.\n: 1 lettre faite sur 3. Ce poste n'a pas "
                "d'imprimante par défaut : un fichier PDF par lettre est enregistré dans le dossier « %1 ».")
                  .arg(cabinet.dossier() + q("/Donnees/Word")));
    joue(*fenetre, q(">cmdOK"));
    EXPECT_FALSE(lignes().contains(u'*'));
}

TEST_F(Listing, TheListingHasAllRowsAndItsDay) {
    ouvre("1");
    clique(2);
    joue(*fenetre, q(">cmdImprimerListing"));
    EXPECT_EQ(cabinet.messages.taken(), q("Message: Opération effectuée avec succés !"));
    cherche("1", "12/03/2026");
    record->failing = 1;
    joue(*fenetre, q(">cmdImprimerListing"));
    EXPECT_EQ(cabinet.messages.taken(), q("Erreur: Le traitement de texte s'est arrêté."));
    ASSERT_EQ(record->performed.size(), 2);
    EXPECT_EQ(etapes(record->performed[0]),
              q("<LISTINGABSENT.doc =ListingABS11032026100500.doc @Début # @noprat T11/03/2026 print save "
                "close"));
    EXPECT_EQ(cellules(record->performed[0]),
              q("1|AVANT|a\tb|1|09:00|11:30|1|01|ROUX |Léa|7|10:00|11:30|7|01|CLE||0|11:00|11:30|0"));
    EXPECT_EQ(cellules(record->performed[1]), q("||||||"));
}
