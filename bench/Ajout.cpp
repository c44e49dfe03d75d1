// A press of "&Ajouter" until the week is painted again, the new row safely on the disk.
#include "Livres.h"
#include "Mesure.h"
#include "booking/FrmAjouter.h"

#include <QImage>
#include <QLineEdit>
#include <QPushButton>

namespace {

/// Before the shown hours, where the full week is free: ten minutes further at each call.
QTime prochainCreneau() {
    static int rang = 0;
    return QTime(0, 10).addSecs(600 * (rang++ % 36));
}

double ajoute(CarnetOuvert &carnet, QImage &image) {
    const QTime debut = prochainCreneau();
    FrmAjouter dialogue(carnet.v, {carnet.v.PraticienCourant,
                                   carnet.v.config.FauteuilCourant,
                                   carnet.v.txtNumJourEnCours,
                                   {debut, debut.addSecs(600)},
                                   carnet.v.config.Intervalle,
                                   1});
    QObject::connect(&dialogue, &QDialog::accepted, carnet.fenetre.get(), [&] {
        carnet.fenetre->findChild<QPushButton *>(QStringLiteral("BtnRafraichir"))->click();
        carnet.GrilleRDV->render(&image);
    });
    dialogue.findChild<QLineEdit *>(QStringLiteral("Text1"))->setText(QStringLiteral("MESURE"));
    dialogue.findChild<QLineEdit *>(QStringLiteral("Text4"))->setText(QStringLiteral("banc d'essai"));
    auto *bouton = dialogue.findChild<QPushButton *>(QStringLiteral("BtnAjouter"));
    const double duree = millisecondes([&] { bouton->click(); });
    if (dialogue.result() != QDialog::Accepted) {
        throw MesureImpossible(QStringLiteral("le rendez-vous n'a pas été ajouté"));
    }
    return duree;
}

void efface(const CarnetOuvert &carnet) {
    Database base = carnet.v.ouvreCarnet();
    base.execute(SqlText("delete from RDV where Nom = 'MESURE'"));
}

Cotes prepare() {
    const auto carnet = std::make_shared<CarnetOuvert>();
    efface(*carnet); // what an interrupted run left
    const auto image = std::make_shared<QImage>(carnet->GrilleRDV->size(), QImage::Format_RGB32);
    return {[=] { return ajoute(*carnet, *image); },
            {},
            [=] {
                efface(*carnet);
                return QStringLiteral("%1 rendez-vous dans la semaine").arg(carnet->rendezVousMontres());
            }};
}

} // namespace

Mesure ajout() {
    return {QStringLiteral("ajout"), QStringLiteral("ms"), 31, 40, prepare};
}
