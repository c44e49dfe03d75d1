#include "support/Bureau.h"

#include "journal/JournalTables.h"
#include "start/MiseANiveauTables.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QTest>

namespace {

/// The book as the start-up of the first workstation leaves it.
QString creeCarnet(const Serveur &serveur) {
    const QString lieu = serveur.lieu();
    creeBase(lieu, schema(Base::RendezVous));
    Database carnet = Database::open(lieu);
    EXPECT_EQ(MetANiveau(carnet).erreur, QString());
    PrepareJournal(carnet);
    return lieu;
}

} // namespace

CabinetServeur::CabinetServeur(const Serveur &serveur)
    : livre(creeCarnet(serveur)), m_dossier(fichiers.dossier() + q("/Base")) {
    const QDir transmis(fichiers.dossier() + q("/Donnees/Fichiers"));
    for (const QString &nom : transmis.entryList(QDir::Files)) {
        QFile::copy(transmis.filePath(nom), m_dossier + q("/Fichiers/") + nom);
    }
    livre.config();
    livre.config({.nom = "Autre", .praticien = "02"});
}

Environnement CabinetServeur::poste(const QString &url, RecordingMessages &messages) {
    Environnement env = fichiers.environnement();
    env.messages = &messages;
    env.lectureSeule = std::make_shared<QString>();
    env.actions = std::make_shared<int>(0);
    env.enDoute = std::make_shared<QList<EcritureEnDoute>>();
    env.prendEmplacements({QDir::toNativeSeparators(m_dossier), url});
    return env;
}

Bureau::Bureau(CabinetServeur &cabinet, const QString &url)
    : env(cabinet.poste(url, messages)), fenetre(std::make_unique<FrmEntree>(env)) {
    fenetre->Form_Load();
    fenetre->resize(1200, 900);
    fenetre->show();
    EXPECT_TRUE(barreDans(q("à jour"), std::chrono::seconds(10))) << barre() << messages.taken();
}

QString Bureau::montre() const {
    QStringList textes;
    const FlexGridModel &cellules = grille().cells();
    for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
        for (int colonne = 1; colonne < cellules.cols() - 1; ++colonne) {
            const QString texte = cellules.text(ligne, colonne);
            textes << (texte.isEmpty() ? QStringList() : QStringList{texte});
        }
    }
    return textes.join(u' ');
}

bool Bureau::montreDans(const QString &nom, std::chrono::milliseconds limite) const {
    return waitUntil([&] { return montre().contains(nom); }, limite);
}

bool Bureau::barreDans(const QString &texte, std::chrono::milliseconds limite) const {
    return waitUntil([&] { return barre().contains(texte); }, limite);
}

void Bureau::clique(int ligne, int colonne) const {
    auto &vue = objet<FlexGrid>("GrilleRDV");
    const QModelIndex index = vue.cells().index(ligne, colonne);
    vue.scrollTo(index);
    QTest::mouseClick(vue.viewport(), Qt::LeftButton, {}, vue.visualRect(index).center());
}
