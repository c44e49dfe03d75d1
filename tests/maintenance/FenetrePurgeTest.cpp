#include "maintenance/FrmPurger.h"
#include "platform/db/DbError.h"
#include "support/CabinetDEssai.h"
#include "support/Comptes.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

constexpr int nombreAnciens = 700; // some lots

/// A book with old appointments of practitioner 1 and a recent one.
class FenetrePurge : public testing::Test {
  protected:
    FenetrePurge() {
        Database carnet = livre.ouvre();
        Transaction transaction(carnet);
        for (int i = 0; i < nombreAnciens; ++i) {
            carnet.insert(q("RDV"), {{q("Nom"), q("ANCIEN %1").arg(i)},
                                     {q("Date1"), q("2005-01-05")},
                                     {q("DateInv"), q("20050105")},
                                     {q("NumPraticien"), q("01")}});
        }
        transaction.commit();
        recent = livre.rdv();
        avant = comptes(livre.fichier());
    }

    QString dans(const char *nom) const { return cabinet.dossier() + q("/Base/Fichiers/") + q(nom); }
    QString purge(const char *nom) const { return dans("Purge/") + q(nom); }

    /// Opens the window, types the day and saves under the first of `noms` that does; without one left the
    /// dialog is cancelled.
    void sauve(const char *jour, QStringList noms) {
        cabinet.messages.shown.clear();
        fenetre = std::make_unique<FrmPurger>(cabinet.environnement(), 1, q("docteur UN"));
        fenetre->demandeNom = [noms](const QString &) mutable {
            return noms.isEmpty() ? std::nullopt : std::optional(noms.takeFirst());
        };
        fenetre->show();
        fenetre->findChild<QLineEdit *>(q("DateFinPurge"))->setText(q(jour));
        bouton("Command1").click();
    }
    QPushButton &bouton(const char *nom) const { return *fenetre->findChild<QPushButton *>(q(nom)); }
    bool fermee() const {
        return waitUntil([this] { return !fenetre->isVisible(); });
    }
    /// Waits until some lots are archived.
    bool entamee() const {
        return waitUntil([this] { return fenetre->deplaces() > 0; });
    }
    std::string dits() const {
        QStringList textes;
        for (const RecordingMessages::Message &message : cabinet.messages.shown) {
            textes << message.title + q(": ") + message.text;
        }
        return textes.join(q(" / ")).toStdString();
    }
    void intact(const char *quand) const {
        EXPECT_EQ(comptes(livre.fichier()), avant) << quand;
        EXPECT_EQ(QDir(dans("Purge")).entryList(QDir::Files).join(u' ').toStdString(), "") << quand;
    }
    /// Every row is in one of them, as it was.
    void comptee(const QString &archive) const {
        Comptes ensemble = comptes(archive);
        EXPECT_EQ(ensemble.size(), fenetre->deplaces());
        ensemble.insert(comptes(livre.fichier()));
        EXPECT_EQ(ensemble, avant);
    }

    CabinetDEssai cabinet;
    Livre livre{cabinet.fichier(Base::RendezVous)};
    qint64 recent = 0;
    Comptes avant;
    std::unique_ptr<FrmPurger> fenetre;
};

/// No file may grow beyond `octets` as long as it lives.
class DisquePlein {
  public:
    explicit DisquePlein(rlim_t octets) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_avant);
        const rlimit limite{octets, m_avant.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~DisquePlein() {
        setrlimit(RLIMIT_FSIZE, &m_avant);
        (void)std::signal(SIGXFSZ, m_signal);
    }
    DisquePlein(const DisquePlein &) = delete;
    DisquePlein &operator=(const DisquePlein &) = delete;

  private:
    void (*m_signal)(int);
    rlimit m_avant{};
};

} // namespace

TEST_F(FenetrePurge, ADayThatIsNoneKeepsTheWindow) {
    for (const char *jour : {"", "31/02/2005", "29/02/2005", "demain"}) {
        sauve(jour, {});
        EXPECT_EQ(dits(), "Erreur de saisie: La date saisie n'est pas valide !") << jour;
        EXPECT_TRUE(fenetre->isVisible());
    }
    for (const char *jour : {"29/02/2004", "1/3/2005", "01032005", "31/12/2999"}) {
        sauve(jour, {QString()});
        EXPECT_EQ(dits(), "") << jour;
        EXPECT_TRUE(fenetre->isVisible()) << "no name is no cancelling";
        sauve(jour, {});
        EXPECT_EQ(dits(), "") << jour;
        EXPECT_FALSE(fenetre->isVisible());
        EXPECT_EQ(fenetre->result(), QDialog::Rejected);
    }
    intact("nothing was asked for");
}

TEST_F(FenetrePurge, AnExistingNameIsRefused) {
    QFile::copy(livre.fichier(), dans("Vieux.MDB"));
    QFile::link(livre.fichier(), dans("lien.mdb"));
    QFile::link(dans("nulle part"), dans("perdu.mdb"));
    QFile(dans("tué.mdb-journal")).open(QIODevice::WriteOnly);
    QFile::remove(dans("ZeroRDV.mdb"));
    const QStringList pris{dans("vieux"),     dans("vieux.mdb"), dans("lien"),   livre.fichier(),
                           dans("perdu.mdb"), dans("tué"),       dans("zerordv")};
    for (const QString &nom : pris) {
        sauve("1/3/2005", {nom});
        EXPECT_EQ(dits(), "Enregistrer sous ...: Le fichier spécifié existe déjà, veuillez le changer")
            << nom.toStdString();
        EXPECT_FALSE(fenetre->isVisible());
        intact("refused");
    }
    sauve("1/3/2005", {pris[0], pris[1], purge("archive.2005")});
    ASSERT_TRUE(fermee());
    EXPECT_EQ(fenetre->result(), QDialog::Accepted);
    EXPECT_EQ(cabinet.messages.shown.size(), 2);
    EXPECT_EQ(fenetre->deplaces(), nombreAnciens);
    comptee(purge("archive.2005.mdb"));
    EXPECT_EQ(comptes(livre.fichier()).keys(), QList<qint64>{recent});
}

TEST_F(FenetrePurge, CancellingTellsWhatWasMoved) {
    sauve("1/3/2005", {purge("a")});
    ASSERT_TRUE(entamee());
    EXPECT_FALSE(bouton("Command1").isEnabled());
    EXPECT_EQ(fenetre->findChild<QProgressBar *>(q("Progression"))->value(), fenetre->deplaces());
    fenetre->close();
    ASSERT_TRUE(fermee());
    EXPECT_EQ(fenetre->result(), QDialog::Rejected);
    EXPECT_LT(fenetre->deplaces(), nombreAnciens);
    EXPECT_EQ(dits(),
              q("Purger: La purge est annulée. %1 rendez-vous ont été déplacés dans l'archive « %2 », "
                "les autres sont restés dans le carnet.")
                  .arg(fenetre->deplaces())
                  .arg(purge("a.mdb"))
                  .toStdString());
    comptee(purge("a.mdb"));
}

TEST_F(FenetrePurge, AFailureBeforeTheFirstRowLeavesNothing) {
    const auto tient = [](const QString &fichier) {
        auto base = std::make_shared<Database>(Database::open(fichier));
        auto verrou = std::make_shared<Transaction>(*base);
        return std::pair(base, verrou);
    };
    const std::tuple<const char *, const char *, std::function<std::shared_ptr<void>()>> pannes[] = {
        {"the book is locked", "le fichier « %1 » est occupé par un autre programme.",
         [&] {
             auto [base, verrou] = tient(livre.fichier());
             return std::shared_ptr<void>(verrou.get(), [base = base, verrou = verrou](void *) {});
         }},
        {"the book may only be read", "le fichier « %1 » est ouvert en lecture seule.",
         [&] {
             *cabinet.environnement().lectureSeule = q("Il est abîmé.");
             return std::shared_ptr<void>(nullptr,
                                          [&](void *) { cabinet.environnement().lectureSeule->clear(); });
         }},
        {"the book is away", "le fichier « %1 » est introuvable.",
         [&] {
             QFile::rename(livre.fichier(), livre.fichier() + u'x');
             return std::shared_ptr<void>(
                 nullptr, [&](void *) { QFile::rename(livre.fichier() + u'x', livre.fichier()); });
         }},
        {"the disk is full", "", [&] { return std::make_shared<DisquePlein>(12'000); }},
    };
    for (const auto &[nom, cause, casse] : pannes) {
        {
            const std::shared_ptr<void> panne = casse();
            sauve("1/3/2005", {purge("a.mdb")});
            ASSERT_TRUE(fermee()) << nom;
        }
        EXPECT_EQ(fenetre->result(), QDialog::Rejected) << nom;
        EXPECT_EQ(cabinet.messages.shown.size(), 1) << nom;
        const std::string attendu = q(cause).replace(q("%1"), livre.fichier()).toStdString();
        EXPECT_NE(dits().find("Erreur: La purge s'est arrêtée : " + attendu), std::string::npos) << dits();
        EXPECT_NE(dits().find("Aucun rendez-vous n'a été déplacé"), std::string::npos) << dits();
        intact(nom);
    }
}

TEST_F(FenetrePurge, AFailureOnTheWayLosesNothing) {
    const char *const archives[] = {"a.mdb", "b.mdb"};
    sauve("1/3/2005", {purge(archives[0])});
    ASSERT_TRUE(entamee());
    {
        Database autre = livre.ouvre();
        const Transaction verrou(autre);
        ASSERT_TRUE(fermee());
    }
    EXPECT_NE(dits().find("est occupé par un autre programme.\n"), std::string::npos) << dits();
    EXPECT_NE(dits().find(q("%1 rendez-vous ont été déplacés").arg(fenetre->deplaces()).toStdString()),
              std::string::npos);
    comptee(purge(archives[0]));
    avant = comptes(livre.fichier());
    EXPECT_EQ(avant.size(), nombreAnciens + 1 - fenetre->deplaces());
    sauve("1/3/2005", {purge(archives[1])});
    ASSERT_TRUE(entamee());
    QFile::remove(purge(archives[1])); // the stick is pulled out
    ASSERT_TRUE(fermee());
    EXPECT_NE(dits().find("est introuvable"), std::string::npos) << dits();
    EXPECT_EQ(comptes(livre.fichier()).size(), avant.size() - fenetre->deplaces());
}
