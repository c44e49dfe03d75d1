#include "booking/FrmInsolite.h"

#include "ui_FrmInsolite.h"

#include "booking/ReservationTables.h"
#include "grid/Fourchette.h"
#include "patients/TexteSaisi.h"
#include "practice/Essai.h"

#include <algorithm>

FrmInsolite::FrmInsolite(const Visee &visee, const QList<Insolite> &insolites, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmInsolite>()) {
    constexpr int largeur = 400; // pixels
    ui->setupUi(this);
    connect(ui->BtnQuandMeme, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->BtnRevenir, &QPushButton::clicked, this, &QDialog::reject);
    const ProjetEnMots projet = ProjetDe(visee);
    setWindowTitle(projet.titre);
    ui->BtnQuandMeme->setText(projet.bouton);
    QFont gras = font();
    gras.setBold(true);
    ui->LblNom->setFont(gras);
    ui->LblA->setFont(gras);
    const QString nom = UneLigne(NomComplet(visee.rdv.Nom, visee.rdv.Prenom)).trimmed();
    ui->LblNom->setText(ui->LblNom->fontMetrics().elidedText(nom, Qt::ElideRight, largeur));
    ui->LblDe->setText(projet.de);
    ui->LblDe->setVisible(!projet.de.isEmpty());
    ui->LblA->setText(projet.a);
    ui->Insolites->montre(insolites);
    setAccessibleDescription(ui->Insolites->accessibleDescription());
    ui->BtnRevenir->setFocus(); // a key too many must not book
}

FrmInsolite::~FrmInsolite() = default;

std::optional<QList<Insolite>> LitInsolites(const Environnement &env, const Visee &visee) {
    QList<RendezVous> jour;
    bool refuse = false;
    if (!essaie(env, [&] {
            Database carnet = env.ouvreCarnetPourEcrire();
            refuse = SeraitRefuse(carnet, visee);
            jour = refuse ? QList<RendezVous>() : RendezVousDuJour(carnet, visee.rdv.Date1);
        })) {
        return std::nullopt;
    }
    return refuse ? QList<Insolite>() : InsoliteDe(visee, jour, env.maintenant());
}

bool DemandeQuandMeme(const Visee &visee, const QList<Insolite> &insolites, QWidget *parent) {
    return insolites.isEmpty() || FrmInsolite(visee, insolites, parent).exec() == QDialog::Accepted;
}

bool Confirme(const Environnement &env, const Visee &visee, QWidget *parent, const QList<Insolite> &deja) {
    std::optional<QList<Insolite>> insolites = LitInsolites(env, visee);
    if (!insolites) {
        return false;
    }
    insolites->removeIf([&](const Insolite &une) {
        return std::ranges::any_of(deja, [&](const Insolite &dite) { return dite.genre == une.genre; });
    });
    return DemandeQuandMeme(visee, *insolites, parent);
}
