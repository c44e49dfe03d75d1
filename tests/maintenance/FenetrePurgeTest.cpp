#include "maintenance/FrmPurger.h"
#include "platform/db/DbError.h"
#include "support/CabinetDEssai.h"
#include "support/Comptes.h"
#include "support/Gestes.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QProgressBar>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

/// A book with old appointments of practitioner 1, some lots of them, and a recent one.
class FenetrePurge : public testing::Test {
  protected:
    FenetrePurge() {
        recent = livre.rdv();
        livre.rdv({.jour = "2005-01-05"});
        while (livre.ouvre().query(SqlText("select * from RDV")).count() < 700) {
            livre.execute(SqlText("insert into RDV (Nom, Date1, DateInv, NumPraticien) select Nom, Date1, "
                                  "DateInv, NumPraticien from RDV where DateInv = '20050105'"));
        }
        avant = comptes(livre.fichier());
    }

    QString dans(const char *nom) const { return cabinet.dossier() + q("/Base/Fichiers/") + q(nom); }
    QString purge(const char *nom) const { return dans("Purge/") + q(nom); }

    /// Opens the window, types the day and saves under the first of `noms` that does; without one left the
    /// dialog is cancelled.
    void sauve(const char *jour, QStringList noms) {
        fenetre = std::make_unique<FrmPurger>(cabinet.environnement(), 1, q("docteur UN"));
        fenetre->demandeNom = [noms](const QString &) mutable {
            return noms.isEmpty() ? std::nullopt : std::optional(noms.takeFirst());
        };
        fenetre->show();
        joue(*fenetre, q("DateFinPurge=%1;>Command1").arg(q(jour)));
    }
    bool fermee() const {
        return waitUntil([this] { return !fenetre->isVisible(); });
    }
    /// Waits until some lots are archived.
    bool entamee() const {
        return waitUntil([this] { return fenetre->deplaces() > 0; });
    }
    void intact(const QString &quand) const {
        EXPECT_EQ(comptes(livre.fichier()), avant) << quand;
        EXPECT_EQ(QDir(dans("Purge")).entryList(QDir::Files), QStringList()) << quand;
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

} // namespace

TEST_F(FenetrePurge, ADayThatIsNoneKeepsTheWindow) {
    for (const char *jour : {"", "31/02/2005"}) {
        sauve(jour, {});
        EXPECT_EQ(cabinet.messages.taken(), q("Erreur de saisie: La date saisie n'est pas valide !")) << jour;
        EXPECT_TRUE(fenetre->isVisible());
    }
    sauve("1/3/2005", {QString()});
    EXPECT_TRUE(fenetre->isVisible()) << "no name is no cancelling";
    sauve("31/12/2999", {});
    EXPECT_FALSE(fenetre->isVisible());
    EXPECT_EQ(fenetre->result(), QDialog::Rejected);
    EXPECT_EQ(cabinet.messages.taken(), QString());
    intact(q("nothing was asked for"));
}

TEST_F(FenetrePurge, AnExistingNameIsRefused) {
    QFile::copy(livre.fichier(), dans("Vieux.MDB"));
    QFile::link(livre.fichier(), dans("lien.mdb"));
    QFile::link(dans("nulle part"), dans("perdu.mdb"));
    QFile(dans("tué.mdb-journal")).open(QIODevice::WriteOnly);
    QFile::remove(dans("ZeroRDV.mdb"));
    const QString refus = q("Enregistrer sous ...: Le fichier spécifié existe déjà, veuillez le changer");
    for (const char *nom : {"vieux", "vieux.mdb", "lien", "Tavelin", "perdu.mdb", "tué", "zerordv"}) {
        sauve("1/3/2005", {dans(nom)});
        EXPECT_EQ(cabinet.messages.taken(), refus) << nom;
        EXPECT_FALSE(fenetre->isVisible());
    }
    intact(q("refused"));
    sauve("1/3/2005", {dans("vieux"), dans("lien"), purge("archive.2005")});
    ASSERT_TRUE(fermee());
    EXPECT_EQ(fenetre->result(), QDialog::Accepted);
    EXPECT_EQ(cabinet.messages.taken(), refus + u'\n' + refus);
    comptee(purge("archive.2005.mdb"));
    EXPECT_EQ(comptes(livre.fichier()).keys(), QList<qint64>{recent});
    sauve("1/3/2005", {purge("b.MDB")});
    ASSERT_TRUE(fermee());
    EXPECT_TRUE(QFile::exists(purge("b.MDB"))) << "nothing was left to move";
}

TEST_F(FenetrePurge, CancellingTellsWhatWasMoved) {
    sauve("1/3/2005", {purge("a")});
    ASSERT_TRUE(entamee());
    EXPECT_FALSE(controle<QAbstractButton>(*fenetre, q("Command1")).isEnabled());
    EXPECT_EQ(controle<QProgressBar>(*fenetre, q("Progression")).value(), fenetre->deplaces());
    fenetre->close();
    ASSERT_TRUE(fermee());
    EXPECT_EQ(fenetre->result(), QDialog::Rejected);
    EXPECT_LT(fenetre->deplaces(), avant.size() - 1);
    EXPECT_EQ(cabinet.messages.taken(),
              q("Purger: La purge est annulée. %1 rendez-vous ont été déplacés dans l'archive « %2 », "
                "les autres sont restés dans le carnet.")
                  .arg(fenetre->deplaces())
                  .arg(purge("a.mdb")));
    comptee(purge("a.mdb"));
}

TEST_F(FenetrePurge, AFailureBeforeTheFirstRowLeavesNothing) {
    Database autre = livre.ouvre();
    std::optional<Transaction> verrou;
    rlimit limite{};
    getrlimit(RLIMIT_FSIZE, &limite);
    const auto disque = [&](rlim_t octets) {
        const rlimit nouvelle{octets, limite.rlim_max};
        setrlimit(RLIMIT_FSIZE, &nouvelle);
    };
    const auto signal = std::signal(SIGXFSZ, SIG_IGN);
    const std::tuple<const char *, std::function<void()>, std::function<void()>> pannes[] = {
        {"est occupé par un autre programme.", [&] { verrou.emplace(autre); }, [&] { verrou.reset(); }},
        {"est ouvert en lecture seule.", [&] { *cabinet.environnement().lectureSeule = q("Il est abîmé."); },
         [&] { cabinet.environnement().lectureSeule->clear(); }},
        {"", [&] { disque(12'000); }, [&] { disque(limite.rlim_cur); }},
    };
    for (const auto &[cause, casse, repare] : pannes) {
        casse();
        sauve("1/3/2005", {purge("a.mdb")});
        EXPECT_TRUE(fermee()) << cause;
        repare();
        EXPECT_EQ(fenetre->result(), QDialog::Rejected) << cause;
        const QString dits = cabinet.messages.taken();
        EXPECT_TRUE(dits.startsWith(q("Erreur: La purge s'est arrêtée : ")) && dits.contains(q(cause)) &&
                    dits.endsWith(q("Aucun rendez-vous n'a été déplacé : tous sont restés dans le carnet.")))
            << dits;
        intact(q(cause));
    }
    (void)std::signal(SIGXFSZ, signal);
}

TEST_F(FenetrePurge, AFailureOnTheWayLosesNothing) {
    sauve("1/3/2005", {purge("a.mdb")});
    ASSERT_TRUE(entamee());
    {
        Database autre = livre.ouvre();
        const Transaction verrou(autre);
        ASSERT_TRUE(fermee());
    }
    const QString dits = cabinet.messages.taken();
    EXPECT_TRUE(dits.contains(q("programme. %1 rendez-vous ont été déplacés").arg(fenetre->deplaces())))
        << dits;
    comptee(purge("a.mdb"));
    avant = comptes(livre.fichier());
    sauve("1/3/2005", {purge("b.mdb")});
    ASSERT_TRUE(entamee());
    QFile::remove(purge("b.mdb")); // the stick is pulled out
    ASSERT_TRUE(fermee());
    EXPECT_TRUE(cabinet.messages.taken().contains(q("est introuvable")));
    EXPECT_EQ(comptes(livre.fichier()).size(), avant.size() - fenetre->deplaces());
}
