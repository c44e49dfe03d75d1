#include "grid/Disposition.h"
#include "gui/Souris.h"
#include "platform/ui/Twips.h"
#include "support/CabinetDEssai.h"
#include "support/WaitUntil.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>
#include <gtest/gtest.h>

namespace {

/// The program as it is shipped, running by itself.
class Programme {
  public:
    explicit Programme(const QStringList &arguments) {
        m_processus.start(qEnvironmentVariable("TAVELIN"), arguments);
    }
    /// On a practice, at the practice's time.
    explicit Programme(const CabinetDEssai &cabinet, const QStringList &arguments = {})
        : Programme(QStringList{QStringLiteral("--chemin"), cabinet.fichier(Base::Chemins),
                                QStringLiteral("--maintenant"), cabinet.maintenant.toString(Qt::ISODate)} +
                    arguments) {}
    ~Programme() {
        if (m_processus.state() != QProcess::NotRunning) {
            m_processus.kill();
            m_processus.waitForFinished();
        }
    }
    Programme(const Programme &) = delete;
    Programme &operator=(const Programme &) = delete;

    /// Waits for a window with a title like that, which has the keyboard; gives its number, or an empty text.
    QString fenetre(const QString &titre) const;
    bool estFermee(const QString &numero) const {
        return waitUntil([&] { return !visibles({}).contains(numero); });
    }
    /// Waits for the end; gives the exit code, -1 when the program goes on or has crashed.
    int code() {
        const bool fini = waitUntil([this] { return m_processus.state() == QProcess::NotRunning; });
        return fini && m_processus.exitStatus() == QProcess::NormalExit ? m_processus.exitCode() : -1;
    }
    QString sortie() { return QString::fromUtf8(m_processus.readAllStandardOutput()); }
    QString erreurs() { return QString::fromUtf8(m_processus.readAllStandardError()); }

  private:
    QStringList visibles(const QString &titre) const {
        const auto liste =
            xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--all"),
                     QStringLiteral("--pid"), QString::number(m_processus.processId()),
                     QStringLiteral("--name"), titre});
        return liste.value_or(QString()).split(u'\n', Qt::SkipEmptyParts);
    }

    QProcess m_processus;
};

QString Programme::fenetre(const QString &titre) const {
    QString numero;
    waitUntil([&] {
        const QString active = xdotool({QStringLiteral("getactivewindow")}).value_or(QString());
        numero = visibles(titre).contains(active) ? active : QString();
        return !numero.isEmpty() || m_processus.state() == QProcess::NotRunning;
    });
    return numero;
}

const QString carnet = QStringLiteral("^Carnet de rendez-vous du docteur L'HERMITE Hélène$");
const QString carnetVide = QStringLiteral("^Carnet de rendez-vous$");
const QString erreur = QStringLiteral("^Erreur$");

void ferme(const QStringList &touches = {QStringLiteral("alt+F4")}) {
    Clavier::touches(touches);
}

/// The columns that a colour takes on one line of a picture: (first, last), and (-1, -1) for less than 40
/// points.
std::pair<int, int> etendue(const QImage &image, int y, QRgb couleur) {
    int premiere = -1;
    int derniere = -1;
    int points = 0;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) == couleur) {
            premiere = premiere < 0 ? x : premiere;
            derniere = x;
            ++points;
        }
    }
    return points < 40 ? std::pair(-1, -1) : std::pair(premiere, derniere);
}

/// Whether Monday to Saturday stand side by side on that line, as wide as each other, between two hour
/// columns.
bool estLigneDesJours(const QImage &image, int y) {
    const QRgb couleurs[] = {qRgb(0, 128, 255), qRgb(128, 0, 128), qRgb(255, 128, 0),
                             qRgb(128, 128, 0), qRgb(0, 128, 128), qRgb(128, 64, 0)};
    const int jour = image.width() / 7; // the hour columns are half as wide
    int libre = jour / 3;
    for (const QRgb couleur : couleurs) {
        const auto [premiere, derniere] = etendue(image, y, couleur);
        if (premiere < libre || derniere - premiere < jour * 3 / 4 || derniere - premiere > jour) {
            return false;
        }
        libre = derniere;
    }
    return libre < image.width() - jour / 3;
}

/// Whether the day headers stand under the menu bar.
bool montreLesJours(const QImage &fenetre) {
    int lignes = 0;
    for (int y = 15; y < std::min(70, fenetre.height()); ++y) {
        lignes += estLigneDesJours(fenetre, y) ? 1 : 0;
    }
    return lignes >= 4;
}

QImage imageDe(const QString &numero) {
    return QGuiApplication::primaryScreen()->grabWindow(numero.toULongLong()).toImage();
}

TEST(Programme, OpensOnAFolderWithBlanksAndAccents) {
    const CabinetDEssai cabinet(QStringLiteral("Cabinet d'été, « Zoé »"));
    Programme programme(cabinet);
    const QString fenetre = programme.fenetre(carnet);
    ASSERT_FALSE(fenetre.isEmpty()) << qPrintable(programme.erreurs());
    EXPECT_TRUE(waitUntil([&] { return montreLesJours(imageDe(fenetre)); }));
    ferme();
    EXPECT_EQ(programme.code(), 0);
}

TEST(Programme, CaptureIsAPictureOfTheBook) {
    const CabinetDEssai cabinet;
    const QString fichier = cabinet.dossier() + QStringLiteral("/image.png");
    Programme programme(cabinet, {QStringLiteral("--capture"), fichier});
    EXPECT_EQ(programme.code(), 0);
    EXPECT_TRUE(montreLesJours(QImage(fichier)));
}

void cliqueSurQuitter(const QString &fenetre) {
    const QSize taille = imageDe(fenetre).size();
    const auto d = DisposeFenetre(twipsFromPixels(taille.width()), twipsFromPixels(taille.height()));
    ASSERT_TRUE(d);
    const Rectangle &bouton =
        d->BtnQuitter; // placed from the bottom, so that the menu bar above counts for nothing
    EXPECT_TRUE(xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), fenetre,
                         QString::number(pixelsFromTwips(bouton.gauche + bouton.largeur / 2)),
                         QString::number(pixelsFromTwips(bouton.haut + bouton.hauteur / 2)),
                         QStringLiteral("click"), QStringLiteral("1")}));
}

struct Fin {
    const char *nom;
    std::function<void(const QString &)> quitte;
};
void PrintTo(const Fin &fin, std::ostream *sortie) {
    *sortie << fin.nom;
}
class ProgrammeQuitte : public testing::TestWithParam<Fin> {};

TEST_P(ProgrammeQuitte, EndsWithoutWriting) {
    const CabinetDEssai cabinet;
    Programme premier(cabinet, {QStringLiteral("--capture"), cabinet.dossier() + QStringLiteral("/1.png")});
    ASSERT_EQ(premier.code(), 0); // the first start adds the indexes
    const QStringList avant = cabinet.empreintes();
    Programme programme(cabinet);
    const QString fenetre = programme.fenetre(carnet);
    ASSERT_FALSE(fenetre.isEmpty());
    GetParam().quitte(fenetre);
    EXPECT_EQ(programme.code(), 0);
    EXPECT_EQ(cabinet.empreintes(), avant);
}

const Fin fins[] = {
    {"BoutonQuitter", cliqueSurQuitter},
    {"MenuPatient",
     [](const QString &) {
         ferme({QStringLiteral("alt+p"), QStringLiteral("q")});
     }},
    {"Raccourci", [](const QString &) { ferme({QStringLiteral("ctrl+q")}); }},
    {"CaseDeFermeture", [](const QString &) { ferme(); }},
};
INSTANTIATE_TEST_SUITE_P(Fins, ProgrammeQuitte, testing::ValuesIn(fins),
                         [](const auto &cas) { return std::string(cas.param.nom); });

struct Ligne {
    QStringList arguments;
    int code;
    QString dit;
};

TEST(Programme, CommandLine) {
    const Ligne lignes[] = {
        {{QStringLiteral("--help")}, 0, QStringLiteral("affiche cette aide")},
        {{QStringLiteral("--aide")}, 0, QStringLiteral("Carnet de rendez-vous du cabinet dentaire")},
        {{QStringLiteral("--couleur")}, 2, QStringLiteral("option inconnue : couleur")},
        {{QStringLiteral("fichier.mdb")}, 2, QStringLiteral("option inconnue : fichier.mdb")},
        {{QStringLiteral("--chemin")}, 2, QStringLiteral("il manque la valeur d'une option")},
        {{QStringLiteral("--maintenant"), QStringLiteral("hier")}, 2, QStringLiteral("« hier »")},
        {{QStringLiteral("--lecteur"), QStringLiteral("DD=dossier")}, 2, QStringLiteral("D=DOSSIER")},
    };
    for (const Ligne &ligne : lignes) {
        SCOPED_TRACE(qPrintable(ligne.arguments.join(u' ')));
        Programme programme(ligne.arguments);
        EXPECT_EQ(programme.code(), ligne.code);
        const QString sortie = programme.sortie();
        const QString erreurs = programme.erreurs();
        EXPECT_TRUE((ligne.code == 0 ? sortie : erreurs).contains(ligne.dit)) << qPrintable(sortie + erreurs);
        EXPECT_TRUE((ligne.code == 0 ? erreurs : sortie).isEmpty()) << qPrintable(sortie + erreurs);
    }
}

using Panne = std::pair<const char *, std::function<void(const CabinetDEssai &)>>;

void ecrit(const QString &fichier, const QByteArray &contenu) {
    QFile sortie(fichier);
    ASSERT_TRUE(sortie.open(QIODevice::WriteOnly) && sortie.write(contenu) == contenu.size());
}

TEST(Programme, EndsWhenThePathDatabaseIsOfNoUse) {
    const Panne pannes[] = {
        {"absente", [](const CabinetDEssai &c) { QFile::remove(c.fichier(Base::Chemins)); }},
        {"d'un autre format", [](const CabinetDEssai &c) { ecrit(c.fichier(Base::Chemins), "bonjour"); }},
        {"sans chemin",
         [](const CabinetDEssai &c) { c.ouvre(Base::Chemins).execute(SqlText("Delete from Chemin")); }},
    };
    for (const auto &[nom, casse] : pannes) {
        SCOPED_TRACE(nom);
        const CabinetDEssai cabinet;
        casse(cabinet);
        const QStringList avant = cabinet.empreintes();
        Programme programme(cabinet);
        ASSERT_FALSE(programme.fenetre(erreur).isEmpty());
        Clavier::touches({QStringLiteral("Return")});
        EXPECT_EQ(programme.code(), 1);
        EXPECT_EQ(cabinet.empreintes(), avant);
    }
}

TEST(Programme, OpensEmptyWhenTheAppointmentsCannotBeUpgraded) {
    const Panne pannes[] = {
        {"absente", [](const CabinetDEssai &c) { QFile::remove(c.fichier(Base::RendezVous)); }},
        {"en lecture seule",
         [](const CabinetDEssai &c) {
             ASSERT_TRUE(
                 QFile::setPermissions(c.fichier(Base::RendezVous), QFile::ReadOwner | QFile::ReadUser));
         }},
        {"tronquée",
         [](const CabinetDEssai &c) { ASSERT_TRUE(QFile::resize(c.fichier(Base::RendezVous), 5000)); }},
        {"sans Config",
         [](const CabinetDEssai &c) { c.ouvre(Base::RendezVous).execute(SqlText("Drop table Config")); }},
    };
    for (const auto &[nom, casse] : pannes) {
        SCOPED_TRACE(nom);
        const CabinetDEssai cabinet;
        casse(cabinet);
        const QStringList avant = cabinet.empreintes();
        Programme programme(cabinet);
        const QString message = programme.fenetre(erreur);
        ASSERT_FALSE(message.isEmpty());
        Clavier::touches({QStringLiteral("Return")});
        ASSERT_FALSE(programme.fenetre(carnetVide).isEmpty());
        EXPECT_TRUE(programme.estFermee(message));
        Clavier::touches({QStringLiteral("alt+question"), QStringLiteral("p")});
        EXPECT_FALSE(programme.fenetre(QStringLiteral("^À propos$")).isEmpty());
        Clavier::touches({QStringLiteral("Escape")});
        ASSERT_FALSE(programme.fenetre(carnetVide).isEmpty());
        ferme();
        EXPECT_EQ(programme.code(), 0);
        EXPECT_EQ(cabinet.empreintes(), avant);
    }
}

} // namespace
