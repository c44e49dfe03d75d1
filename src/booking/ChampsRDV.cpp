#include "booking/ChampsRDV.h"

#include "schedule/TrancheHoraire.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"
#include "ui_ChampsRDV.h"

namespace {

void coloreChamp(QWidget &champ, CouleurPatient couleur) {
    if (couleur == CouleurPatient::Inchangee) {
        return;
    }
    QPalette palette;
    if (couleur == CouleurPatient::Rouge) {
        palette.setColor(QPalette::Text, Qt::red);
    }
    champ.setPalette(palette);
}

} // namespace

ChampsRDV::ChampsRDV(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::ChampsRDV>()) {
    ui->setupUi(this);
    const std::initializer_list<std::pair<UpDown *, Deplace>> fleches{
        {ui->UpDown1, Deplace::Debut}, {ui->UpDown2, Deplace::Fin}, {ui->UpDown3, Deplace::LesDeux}};
    for (const auto &[fleche, quoi] : fleches) {
        connect(fleche, &UpDown::upClicked, this, [this, quoi = quoi] { deplace(quoi, Sens::PlusTard); });
        connect(fleche, &UpDown::downClicked, this, [this, quoi = quoi] { deplace(quoi, Sens::PlusTot); });
    }
    connect(ui->Text1, &QLineEdit::textEdited, this, &ChampsRDV::nomTape);
    connect(ui->BtnInit, &QPushButton::clicked, this, &ChampsRDV::remiseAZero);
    connect(ui->recherchePatient, &RecherchePatient::patientChoisi, this, &ChampsRDV::patientChoisi);
    setFocusProxy(ui->recherchePatient); // the patient comes first
    ui->DTPicker1->setLocale(QLocale(QLocale::French, QLocale::France));
}

ChampsRDV::~ChampsRDV() = default;

void ChampsRDV::utilise(VariablesGlobales &etat) {
    v = &etat;
    ui->recherchePatient->utilise(etat);
}

void ChampsRDV::montreHoraire(QDate jour, const HorairesRDV &horaires) {
    ui->DTPicker1->setDate(jour);
    ui->TextHeureDebut->setText(DatesFr::heure(horaires.debut));
    ui->TextHeureFin->setText(DatesFr::heure(horaires.fin));
}

void ChampsRDV::montrePatient(const QString &nom, const QString &prenom, const QString &telephone,
                              const QString &description) {
    montreNom(nom, prenom);
    ui->Text3->setText(telephone);
    ui->Text4->setText(description);
}

void ChampsRDV::montreNom(const QString &nom, const QString &prenom) {
    ui->Text1->setText(nom);
    ui->Text2->setText(prenom);
}

void ChampsRDV::activeSaisie(bool active) {
    for (QWidget *w : QList<QWidget *>{ui->Label1, ui->Label2, ui->Label3, ui->Text1, ui->Text2, ui->Text3}) {
        w->setEnabled(active);
    }
}

void ChampsRDV::metDescription(const QString &description) {
    ui->Text4->setText(description);
}

void ChampsRDV::colore(CouleurPatient couleur) {
    for (QWidget *champ : {ui->Text1, ui->Text2, ui->Text3, ui->Text4}) {
        coloreChamp(*champ, couleur);
    }
}

void ChampsRDV::coloreNom(CouleurPatient couleur) {
    coloreChamp(*ui->Text1, couleur);
}

/// The arrows start from what the fields show, typed text included; a field that shows no time stays.
void ChampsRDV::deplace(Deplace quoi, Sens sens) {
    const auto debut = LitHeure(ui->TextHeureDebut->text());
    const auto fin = LitHeure(ui->TextHeureFin->text());
    if (debut && fin) {
        montreHoraire(ui->DTPicker1->date(),
                      DeplaceHoraires({*debut, *fin}, quoi, sens, v->config.Intervalle));
    }
}

std::optional<SaisieRDV> ChampsRDV::saisie() {
    const auto refuse = [this](const QString &texte, const QString &titre, QWidget *champ) {
        v->messages->show(texte, titre);
        champ->setFocus();
        return std::nullopt;
    };
    if (ui->Text1->text().trimmed().isEmpty()) {
        ui->Text1->setText(ui->Text1->text().trimmed());
        return refuse(QStringLiteral("Vous devez obligatoirement entrer un Nom."),
                      QStringLiteral("Erreur de case vide"), ui->Text1);
    }
    const auto debut = LitHeure(ui->TextHeureDebut->text());
    const auto fin = LitHeure(ui->TextHeureFin->text());
    if (!debut || !fin) {
        return refuse(QStringLiteral("Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00."),
                      QStringLiteral("Erreur !"), debut ? ui->TextHeureFin : ui->TextHeureDebut);
    }
    if (!EstReservable({*debut, *fin})) {
        return refuse(QStringLiteral("L'heure de fin doit venir après l'heure de début."),
                      QStringLiteral("Erreur !"), ui->TextHeureFin);
    }
    SaisieRDV saisie;
    saisie.Nom = ui->Text1->text();
    saisie.Prenom = ui->Text2->text();
    saisie.Telephone = ui->Text3->text();
    saisie.Description = ui->Text4->text();
    saisie.Date1 = ui->DTPicker1->date();
    saisie.HeureDebut = *debut;
    saisie.HeureFin = *fin;
    return saisie;
}

void ChampsRDV::garde(const SaisieRDV &saisie) {
    v->HeureDebutCourante = saisie.HeureDebut;
    v->HeureFinCourante = saisie.HeureFin;
    v->NomRDV = saisie.Nom;
    v->PrenomRDV = saisie.Prenom;
    v->TelephoneRDV = saisie.Telephone;
    v->DescriptionRDV = saisie.Description;
}
