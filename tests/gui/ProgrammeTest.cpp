#include "platform/ui/DatesFr.h"
#include "support/CabinetDEssai.h"
#include "support/Comptes.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

QString xdotool(const QStringList &arguments) {
    QProcess processus;
    processus.start(q("xdotool"), arguments);
    processus.waitForFinished();
    return QString::fromUtf8(processus.readAllStandardOutput()).trimmed();
}

void presse(const char *touches) {
    xdotool(QStringList{q("key")} + q(touches).split(u' '));
}
void tape(const char *texte) {
    xdotool({q("type"), q("--delay"), q("30"), q(texte)});
}

const char *const carnetOuvert = "Carnet de rendez-vous du docteur L'HERMITE Hélène";

/// The program as it is shipped, running by itself.
class Programme {
  public:
    explicit Programme(const QStringList &arguments,
                       const QProcessEnvironment &variables = QProcessEnvironment::systemEnvironment()) {
        m_processus.setProcessEnvironment(variables);
        m_processus.start(qEnvironmentVariable("TAVELIN"), arguments);
    }
    ~Programme() {
        m_processus.kill();
        m_processus.waitForFinished();
    }
    Programme(const Programme &) = delete;
    Programme &operator=(const Programme &) = delete;

    /// Waits until a window of that title has the keyboard.
    bool fenetre(const char *titre) const {
        const QString voulue = q("%1\n%2").arg(m_processus.processId()).arg(q(titre));
        return waitUntil([&] {
            return xdotool({q("getwindowfocus"), q("getwindowpid"), q("getwindowname")}) == voulue;
        });
    }
    /// Waits for the end; gives the exit code, -1 when the program goes on or was ended by a signal.
    int code() {
        const bool fini = waitUntil([this] { return m_processus.state() == QProcess::NotRunning; });
        return fini && m_processus.exitStatus() == QProcess::NormalExit ? m_processus.exitCode() : -1;
    }
    std::string sortie() { return m_processus.readAllStandardOutput().toStdString(); }
    std::string erreurs() { return m_processus.readAllStandardError().toStdString(); }

  private:
    QProcess m_processus;
};

/// On a practice, at the practice's time.
QStringList sur(const CabinetDEssai &cabinet) {
    return {q("--chemin"), cabinet.fichier(Base::Chemins), q("--maintenant"),
            cabinet.maintenant.toString(Qt::ISODate)};
}

} // namespace

TEST(Programme, OpensOnAFolderWithBlanksAndAccentsAndEndsWithoutWriting) {
    const CabinetDEssai cabinet(q("Cabinet d'été, « Zoé »"));
    const QString fichier = cabinet.dossier() + q("/image.png");
    Programme capture(sur(cabinet) << q("--capture") << fichier);
    EXPECT_EQ(capture.code(), 0); // the first start adds the indexes
    const QImage image(fichier);
    int bleus = 0; // Monday's header
    for (int x = 0; x < image.width(); ++x) {
        bleus += image.pixel(x, 40) == qRgb(0, 128, 255) ? 1 : 0;
    }
    EXPECT_GT(bleus, 50);
    const QStringList avant = cabinet.empreintes();
    for (const char *fin : {"ctrl+q", "alt+p q"}) {
        Programme programme(sur(cabinet));
        ASSERT_TRUE(programme.fenetre(carnetOuvert)) << programme.erreurs();
        presse(fin);
        EXPECT_EQ(programme.code(), 0) << fin;
        EXPECT_EQ(cabinet.empreintes(), avant);
    }
}

TEST(Programme, BooksAFreeSlotThatWasSearched) {
    const CabinetDEssai cabinet;
    Programme programme(sur(cabinet));
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    presse("ctrl+l");
    ASSERT_TRUE(programme.fenetre(" Horaire libre"));
    presse("Return");
    xdotool(q("getwindowfocus mousemove --window %1 60 90 click 1").split(u' ')); // the second entry
    ASSERT_TRUE(programme.fenetre(" Ajouter un rendez-vous"));
    presse("alt+a"); // for the patient whom the suite hands over
    ASSERT_TRUE(programme.fenetre("Réserver ce rendez-vous ?")) << "that hour is past";
    presse("alt+s");
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    Database base = cabinet.ouvre(Base::RendezVous);
    const Records ecrit =
        base.query(SqlText("select * from RDV where RefRDV > ") << nombre(CabinetDEssai::options().rdv));
    ASSERT_EQ(ecrit.count(), 1);
    const auto champ = [&](const char *nom) { return ecrit.first()[q(nom)].toText(); };
    EXPECT_EQ(champ("Date1") + champ("NumPraticien") + champ("Fauteuil"), q("2026-03-11011"));
    EXPECT_EQ(base.query(SqlText("select * from RDV where Date1 = #03 11 2026# and clng(NumPraticien) = 1 "
                                 "and Fauteuil = 1 and HeureDebut < ")
                         << texte(champ("HeureFin")) << " and HeureFin > " << texte(champ("HeureDebut")))
                  .count(),
              1)
        << "it lies on no other";
}

TEST(Programme, PurgesThePractice) {
    const CabinetDEssai cabinet;
    const QString carnet = cabinet.fichier(Base::RendezVous);
    Comptes reste = comptes(carnet);
    Comptes attendu;
    for (const auto &[ref, champs] : reste.toStdMap()) {
        if (champs[9].toInteger() == 1 && champs[12].toText() < q("20260309")) {
            attendu[ref] = reste.take(ref);
        }
    }
    ASSERT_GT(attendu.size(), 200);
    Programme programme(sur(cabinet));
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    presse("alt+o p");
    ASSERT_TRUE(programme.fenetre(" Purger"));
    tape("9/3/2026");
    presse("alt+s"); // Enter would cancel
    ASSERT_TRUE(programme.fenetre("Enregistrer sous ..."));
    tape("avant mars");
    presse("Return");
    ASSERT_TRUE(programme.fenetre("Quitter"));
    presse("Return");
    EXPECT_EQ(programme.code(), 0);
    EXPECT_EQ(comptes(cabinet.dossier() + q("/Base/Fichiers/Purge/avant mars.mdb")), attendu);
    EXPECT_EQ(comptes(carnet), reste);
}

/// Where an appointment of one row lies in the picture of a week: it is present, and Wednesday's.
class Place {
  public:
    explicit Place(const QImage &image) {
        const auto orange = [&](int x, int y) { return image.pixel(x, y) == qRgb(255, 128, 0); };
        const int titre = 30;
        for (int x = 0; x < image.width(); ++x) {
            m_gauche = orange(x, titre) && m_gauche == 0 ? x : m_gauche;
            m_droite = orange(x, titre) ? x : m_droite;
        }
        const int bord = m_droite - 10; // no text there
        for (int y = titre + 30; y < image.height(); ++y) {
            m_haut = orange(bord, y) && m_haut == 0 ? y : m_haut;
            m_bas = orange(bord, y) ? y : m_bas;
        }
    }
    bool trouvee() const { return m_haut > 0 && m_bas - m_haut > 10 && m_droite - m_gauche > 50; }
    /// So many columns and rows from it.
    QPoint a(int colonnes, int lignes) const {
        return {(m_gauche + m_droite) / 2 + colonnes * (m_droite - m_gauche + 5),
                (m_haut + m_bas) / 2 + lignes * (m_bas - m_haut + 3)};
    }
    QPoint bord(int colonnes, int lignes) const {
        return a(colonnes, lignes) + QPoint(0, (m_bas - m_haut) / 2 - 1);
    }

  private:
    int m_gauche = 0;
    int m_droite = 0;
    int m_haut = 0;
    int m_bas = 0;
};

void souris(const QPoint &point, const char *bouton) {
    xdotool({q("getwindowfocus"), q("mousemove"), q("--window"), q("%1"), QString::number(point.x()),
             QString::number(point.y()), q(bouton), q("1")});
}

TEST(Programme, DragsAppointments) {
    const CabinetDEssai cabinet;
    const Livre livre(cabinet.fichier(Base::RendezVous));
    livre.config();
    livre.rdv({.present = true});
    const QString fichier = cabinet.dossier() + q("/image.png");
    Programme capture(sur(cabinet) << q("--capture") << fichier);
    ASSERT_EQ(capture.code(), 0);
    const Place rdv{QImage(fichier)}; // on Wednesday, 09:00 to 10:00; rows of an hour
    ASSERT_TRUE(rdv.trouvee());
    const auto devient = [&](const char *voulu) {
        return waitUntil([&] {
            const Records rows = livre.ouvre().query(
                SqlText("select Date1, HeureDebut, HeureFin, Present from RDV order by RefRDV"));
            QStringList lus;
            for (const Record row : rows) {
                lus << row.at(0).toText().right(2) + u' ' + row.at(1).toText().left(2) + u' ' +
                           row.at(2).toText().left(2) + u' ' + row.at(3).toText();
            }
            return lus.join(u'|') == q(voulu);
        });
    };
    const auto glisse = [](const QPoint &de, const QPoint &vers) {
        souris(de, "mousedown");
        souris(vers, "mouseup");
    };
    Programme programme(sur(cabinet));
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    glisse(rdv.a(0, 0), rdv.a(1, 2));
    EXPECT_TRUE(devient("12 11 12 1"));
    souris(rdv.a(1, 2), "mousedown");
    xdotool(q("getwindowfocus mousemove_relative 0 60 key Escape").split(u' '));
    souris(rdv.a(0, 0), "mouseup");
    glisse(rdv.bord(1, 2), rdv.bord(1, 3));
    ASSERT_TRUE(programme.fenetre("Allonger ce rendez-vous ?")) << "across lunch";
    presse("alt+a");
    EXPECT_TRUE(devient("12 11 13 1")) << "Escape has let go before";
    xdotool({q("keydown"), q("ctrl")});
    glisse(rdv.a(1, 2), rdv.a(-2, -1));
    xdotool({q("keyup"), q("ctrl")});
    ASSERT_TRUE(programme.fenetre("Réserver ce rendez-vous ?")) << "it is past";
    presse("alt+s");
    EXPECT_TRUE(devient("12 11 13 1|09 08 10 0"));
    glisse(rdv.a(-2, -1), rdv.a(1, 2));
    ASSERT_TRUE(programme.fenetre("Message")) << "taken";
    presse("Return");
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    glisse(rdv.a(-2, -1), QPoint(-300, 200));
    presse("ctrl+z");
    EXPECT_TRUE(devient("12 11 13 1")) << "beside the window nothing was written since";
}

TEST(Programme, CommandLine) {
    for (const QStringList &cas : tableau(R"(
        --aide              | 0 | affiche cette aide
        -h                  | 0 | Carnet de rendez-vous du cabinet dentaire
        --couleur           | 2 | option inconnue : couleur
        fichier.mdb         | 2 | option inconnue : fichier.mdb
        --chemin            | 2 | il manque la valeur d'une option
        --maintenant hier   | 2 | « hier »
        --lecteur DD=dossier | 2 | D=DOSSIER)")) {
        Programme programme(cas[0].split(u' '));
        const bool bon = cas[1] == q("0");
        EXPECT_EQ(programme.code(), cas[1].toInt()) << cas[0].toStdString();
        const std::string sortie = programme.sortie();
        const std::string erreurs = programme.erreurs();
        EXPECT_NE((bon ? sortie : erreurs).find(cas[2].toStdString()), std::string::npos)
            << sortie << erreurs;
        EXPECT_EQ(bon ? erreurs : sortie, "") << cas[0].toStdString();
    }
}

TEST(Programme, EndsWhenThePathDatabaseIsOfNoUse) {
    const std::pair<const char *, std::function<void(const CabinetDEssai &)>> pannes[] = {
        {"missing", [](const CabinetDEssai &c) { QFile::remove(c.fichier(Base::Chemins)); }},
        {"another format", [](const CabinetDEssai &c) { QFile::resize(c.fichier(Base::Chemins), 7); }},
        {"no path in it",
         [](const CabinetDEssai &c) { c.ouvre(Base::Chemins).execute(SqlText("Delete from Chemin")); }},
    };
    for (const auto &[nom, casse] : pannes) {
        const CabinetDEssai cabinet;
        casse(cabinet);
        const QStringList avant = cabinet.empreintes();
        Programme programme(sur(cabinet));
        ASSERT_TRUE(programme.fenetre("Erreur")) << nom;
        presse("Return");
        EXPECT_EQ(programme.code(), 1) << nom;
        EXPECT_EQ(cabinet.empreintes(), avant) << nom;
    }
}

TEST(Programme, SearchesShowsAndPrintsACard) {
    const CabinetDEssai cabinet;
    Database carnet = cabinet.ouvre(Base::RendezVous);
    carnet.execute(
        SqlText("update RDV set Nom = 'D''ANGÉLO', Prenom = 'Zoé', Professionnel = 1 where RefRDV in "
                "(select RefRDV from RDV where Date1 > '2026-04-01' and clng(NumPraticien) = 1 order by "
                "Date1 limit 2)"));
    Programme programme(sur(cabinet));
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    presse("ctrl+f");
    ASSERT_TRUE(programme.fenetre(" Rechercher"));
    presse("Tab Tab Tab"); // past the lookup
    tape("d'angélo");
    presse("Tab");
    tape("zoé");
    presse("Return");
    ASSERT_TRUE(programme.fenetre(" Résultat de la recherche"));
    presse("Tab Return"); // Imprimer
    ASSERT_TRUE(programme.fenetre("Tavelin")) << "where the file is";
    presse("Return");
    ASSERT_TRUE(programme.fenetre(" Résultat de la recherche"));

    const QDir mots(cabinet.dossier() + q("/Donnees/Word"));
    const QStringList fichiers = mots.entryList({q("CarteRDV20260311_10*.pdf")});
    ASSERT_EQ(fichiers.size(), 1);
    QProcess lecteur;
    lecteur.start(q("pdftotext"), {q("-layout"), mots.filePath(fichiers[0]), q("-")});
    lecteur.waitForFinished();
    const QString carte = QString::fromUtf8(lecteur.readAll()).simplified();
    const Records rows = carnet.query(
        SqlText("select Date1, HeureDebut from RDV where Nom = 'D''ANGÉLO' order by Date1, HeureDebut"));
    QString attendue = q("Rendez-vous de d'angélo zoé");
    for (const Record row : rows) {
        const QDate jour = row[u"Date1"].toDate();
        attendue += u' ' + DatesFr::jourComplet(jour) + u' ' + DatesFr::heure(row[u"HeureDebut"].toTime());
    }
    EXPECT_EQ(carte, attendue);

    presse("shift+Tab Return"); // the first appointment
    ASSERT_TRUE(programme.fenetre(carnetOuvert));
    presse("Return");
    EXPECT_TRUE(programme.fenetre(" Édition d'un rendez-vous")) << "it is selected";
}

TEST(Programme, SaysInFrenchThatThereIsNoScreen) {
    for (const char *ecran : {"", ":4711"}) {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.remove(q("QT_QPA_PLATFORM"));
        variables.insert(q("DISPLAY"), q(ecran));
        Programme programme({}, variables);
        EXPECT_EQ(programme.code(), 1);
        EXPECT_EQ(programme.erreurs().find("tavelin : aucun écran n'est accessible"), 0U);
    }
}
