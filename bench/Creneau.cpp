// The search for a free slot through a book that is full for a year.
#include "Livres.h"
#include "Mesure.h"
#include "config/ConfigTables.h"
#include "platform/db/DateInverse.h"
#include "search/FrmRDVlibre.h"

#include <QCoreApplication>
#include <QListWidget>
#include <QPushButton>

namespace {

constexpr int joursPleins = 365;

/// Every slot of these days, Sundays too, is an appointment of its own.
void remplit(Database &carnet, const Configuration &config, QDate premier) {
    Transaction ecriture(carnet);
    carnet.execute(SqlText("delete from RDV where DateInv >= ") << texte(InverseDate(premier)));
    const auto remplitDe = [&](QDate jour, QTime debut, QTime fin) {
        for (const int pas = config.Intervalle * 60; debut < fin; debut = debut.addSecs(pas)) {
            carnet.insert(QStringLiteral("RDV"),
                          {{QStringLiteral("Nom"), QStringLiteral("PLEIN")},
                           {QStringLiteral("Date1"), Value::date(jour)},
                           {QStringLiteral("DateInv"), InverseDate(jour)},
                           {QStringLiteral("HeureDebut"), Value::time(debut)},
                           {QStringLiteral("HeureFin"), Value::time(debut.addSecs(pas))},
                           {QStringLiteral("NumPraticien"), QStringLiteral("01")},
                           {QStringLiteral("Fauteuil"), config.FauteuilCourant}});
        }
    };
    for (int i = 0; i < joursPleins; ++i) {
        remplitDe(premier.addDays(i), config.HeureMatDebut, config.HeureMatFin);
        remplitDe(premier.addDays(i), config.HeurePMDebut, config.HeurePMFin);
    }
    ecriture.commit();
}

/// A press of "OK" until the list is filled, `avance` days after the first full one.
double cherche(const Environnement &env, const Configuration &config, int avance) {
    Environnement alors = env;
    alors.maintenant = [avance] { return instant().addDays(avance); };
    FrmRDVlibre fenetre(alors, QStringLiteral("01"), config);
    fenetre.setAttribute(Qt::WA_DontShowOnScreen);
    fenetre.show();
    auto &liste = *fenetre.findChild<QListWidget *>(QStringLiteral("List1"));
    auto &bouton = *fenetre.findChild<QPushButton *>(QStringLiteral("BtnOK"));
    const double duree = millisecondes([&] {
        bouton.click();
        while (!bouton.isEnabled()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    });
    const QString attendu = instant().date().addDays(joursPleins).toString(QStringLiteral("dd/MM/yyyy"));
    if (liste.count() == 0 || !liste.item(0)->text().contains(attendu)) {
        throw MesureImpossible(QStringLiteral("le créneau trouvé n'est pas celui du jour 366"));
    }
    return duree;
}

/// A full year against its last fifth.
Paire creneauAn() {
    const Environnement env = environnement(livrePlein());
    Database carnet = env.ouvreCarnet();
    Configuration config = LitConfigs(carnet, 1).duPraticien.first().config;
    config.JourGrise.fill(0);
    remplit(carnet, config, instant().date());
    return {[=](auto &chiffres) {
                chiffres["jours"] = joursPleins + 1;
                return cherche(env, config, 0);
            },
            [=](auto &) { return cherche(env, config, joursPleins - joursPleins / 5); }};
}

} // namespace

std::vector<Mesure> mesuresCreneau() {
    return {
        {.nom = "creneau_an", .repetitions = 31, .prepare = creneauAn, .rapportMax = 6.5, .valeurMax = 100}};
}
