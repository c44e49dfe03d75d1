#include "Livres.h"

#include "Cabinet.h"
#include "Mesure.h"
#include "start/Demarrage.h"
#include "start/MiseANiveauTables.h"

#include <QTextStream>

namespace {

Livre livre(const QString &nom, int patients, int rdv, bool ancien) {
    const QDir dossier(dossierBench().filePath(nom));
    const Livre fait{dossier.filePath(QStringLiteral("CheminBelmor.mdb")),
                     dossier.filePath(QStringLiteral("Base/Fichiers/Tavelin.mdb"))};
    if (!QFile::exists(fait.chemin)) { // written last: without it, what is there was interrupted
        QTextStream(stderr) << "Création du cabinet " << dossier.path() << " (" << patients << " patients, "
                            << rdv << " rendez-vous)...\n";
        QDir(dossier).removeRecursively();
        OptionsCabinet options;
        options.patients = patients;
        options.annees = 20;
        options.rdv = rdv;
        options.aujourdhui = instant().date();
        options.ancien = ancien;
        ecritCabinet(dossier.path(), options);
    }
    return fait;
}

constexpr int patientsDuLivre = 20'000;
constexpr int rendezVousDuLivre = 500'000;

} // namespace

QDir dossierBench() {
    const QDir dossier(QDir::current().filePath(QStringLiteral("build/bench")));
    if (!dossier.mkpath(QStringLiteral("."))) {
        throw MesureImpossible(QStringLiteral("%1 ne peut pas être créé").arg(dossier.path()));
    }
    return dossier;
}

QDateTime instant() {
    return {QDate(2026, 3, 11), QTime(10, 5)};
}

Livre livreCourant() {
    const Livre courant = livre(QStringLiteral("courant"), patientsDuLivre, rendezVousDuLivre, false);
    Database rdv = Database::open(courant.rendezVous);
    MetANiveau(rdv); // its indexes; a glance from the second time on
    return courant;
}

Livre livreAncien() {
    return livre(QStringLiteral("ancien"), patientsDuLivre, rendezVousDuLivre, true);
}

QString livrePatients() {
    livre(QStringLiteral("patients"), 100'000, 1'000, false);
    return dossierBench().filePath(QStringLiteral("patients/Base/Fichiers"));
}

QStringList optionsLivreCourant() {
    return {QStringLiteral("--chemin"), livreCourant().chemin, QStringLiteral("--maintenant"),
            instant().toString(Qt::ISODate)};
}

void MessagesImpossibles::show(const QString &text, const QString &, Icon) {
    throw MesureImpossible(text);
}

bool MessagesImpossibles::ask(const QString &text, const QString &) {
    throw MesureImpossible(text);
}

CarnetOuvert::CarnetOuvert() {
    v.maintenant = instant;
    v.messages = &m_messages;
    LitEmplacements(v, livreCourant().chemin);
    fenetre = std::make_unique<FrmEntree>(v);
    fenetre->Form_Load();
    fenetre->setAttribute(Qt::WA_DontShowOnScreen); // the screen may be smaller than what is measured
    fenetre->show();
    GrilleRDV = fenetre->findChild<FlexGrid *>(QStringLiteral("GrilleRDV"));
    if (GrilleRDV == nullptr || rendezVousMontres() == 0) {
        throw MesureImpossible(QStringLiteral("la semaine n'est pas affichée"));
    }
}

int CarnetOuvert::rendezVousMontres() const {
    const FlexGridModel &cellules = GrilleRDV->cells();
    int combien = 0;
    for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
        for (int col = 1; col < cellules.cols() - 1; ++col) {
            combien += cellules.cell(ligne, col).text.isEmpty() ? 0 : 1;
        }
    }
    return combien;
}
