#include "start/MiseANiveauTables.h"
#include "support/CabinetDEssai.h"
#include "support/Serveur.h"
#include "support/Texte.h"
#include "support/WaitUntil.h"
#include "transfer/FrmDeplacer.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

class FenetreDeplacer : public AvecServeur {
  protected:
    void SetUp() override {
        AvecServeur::SetUp();
        env = cabinet.environnement();
        env.CheminDesChemins = cabinet.fichier(Base::Chemins);
        fenetre = std::make_unique<FrmDeplacer>(env, MetANiveauDeplace);
        fenetre->show();
    }
    void TearDown() override {
        fenetre.reset();
        AvecServeur::TearDown();
    }
    template <typename W>
    W &objet(const char *nom) const {
        return *fenetre->findChild<W *>(q(nom));
    }
    void deplaceVers(const QString &lieu) const {
        objet<QLineEdit>("Emplacement").setText(lieu);
        objet<QPushButton>("Command1").click();
    }
    bool finie() const {
        return waitUntil([this] { return objet<QPlainTextEdit>("Rapport").isVisible(); });
    }
    QString rapport() const { return objet<QPlainTextEdit>("Rapport").toPlainText(); }
    QString cheminBase() const {
        Database chemin = cabinet.ouvre(Base::Chemins);
        return LitChemin(chemin).value().CheminBase;
    }

    CabinetDEssai cabinet;
    Environnement env;
    std::unique_ptr<FrmDeplacer> fenetre;
};

} // namespace

TEST_F(FenetreDeplacer, ReportsAFailureMayBeStoppedAndThenMoves) {
    const QString avant = cheminBase();
    deplaceVers(serveur->url().replace(serveur->base(), q("absente")));
    ASSERT_TRUE(finie());
    EXPECT_TRUE(rapport().contains(q("est introuvable"))) << rapport();
    deplaceVers(serveur->url());
    objet<QPushButton>("BtnAnnuler").click(); // the move has not come far
    ASSERT_TRUE(finie());
    EXPECT_TRUE(rapport().contains(q("interrompu"))) << rapport();
    EXPECT_EQ(cheminBase(), avant);
    deplaceVers(serveur->url());
    ASSERT_TRUE(finie());
    EXPECT_TRUE(rapport().contains(q("RDV : 2\u202f000 lignes"))) << rapport();
    EXPECT_EQ(cheminBase(), serveur->url());
    EXPECT_FALSE(objet<QPushButton>("Command1").isEnabled());
    objet<QPushButton>("BtnAnnuler").click();
    EXPECT_EQ(fenetre->result(), int(QDialog::Accepted));
}
