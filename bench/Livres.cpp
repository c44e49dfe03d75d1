#include "Livres.h"

#include "Cabinet.h"
#include "Mesure.h"
#include "start/Demarrage.h"
#include "start/MiseANiveauTables.h"

#include <QTextStream>

namespace {

class MessagesImpossibles : public Messages {
  public:
    void show(const QString &text, const QString &, Icon) override { throw MesureImpossible(text); }
    bool ask(const QString &text, const QString &) override { throw MesureImpossible(text); }
};

QString livre(const QString &nom, const OptionsCabinet &options) {
    const QDir dossier(dossierBench().filePath(nom));
    const QString chemin = dossier.filePath(QStringLiteral("CheminBelmor.mdb"));
    if (!QFile::exists(chemin)) { // written last: without it, what is there was interrupted
        QTextStream(stderr) << "Création du cabinet " << dossier.path() << " (" << options.patients
                            << " patients, " << options.rdv << " rendez-vous)...\n";
        QDir(dossier).removeRecursively();
        ecritCabinet(dossier.path(), options);
    }
    return chemin;
}

OptionsCabinet vingtAns(int patients, int rdv) {
    OptionsCabinet options;
    options.patients = patients;
    options.annees = 20;
    options.rdv = rdv;
    options.aujourdhui = instant().date();
    return options;
}

} // namespace

QDir dossierBench() {
    const QDir dossier(QDir::current().filePath(QStringLiteral("build/bench")));
    dossier.mkpath(QStringLiteral("."));
    return dossier;
}

QDateTime instant() {
    return {QDate(2026, 3, 11), QTime(10, 5)};
}

QString livreCourant() {
    const QString chemin = livre(QStringLiteral("courant"), vingtAns(20'000, 500'000));
    Database carnet = environnement(chemin).ouvreCarnet();
    MetANiveau(carnet); // its indexes; a glance from the second time on
    return chemin;
}

QString livreAncien() {
    OptionsCabinet options = vingtAns(20'000, 500'000);
    options.ancien = true;
    return livre(QStringLiteral("ancien"), options);
}

QString livrePatients() {
    return livre(QStringLiteral("patients"), vingtAns(100'000, 1'000));
}

QString livrePlein() {
    const QString chemin = livre(QStringLiteral("plein"), vingtAns(5'000, 100'000));
    Database carnet = environnement(chemin).ouvreCarnet();
    MetANiveau(carnet);
    return chemin;
}

Environnement environnement(const QString &livre) {
    static MessagesImpossibles messages;
    Environnement env;
    env.maintenant = instant;
    env.messages = &messages;
    if (const QString impossible = LitEmplacements(env, livre); !impossible.isEmpty()) {
        throw MesureImpossible(impossible);
    }
    return env;
}

QString fichierRDV(const Environnement &env) {
    return env.chemins.realDatabase(env.CheminBaseRDV);
}
