#include "config/FrmSauvegarde.h"

#include "ui_FrmSauvegarde.h"

#include "config/ConfigTables.h"
#include "schedule/JoursExclus.h"
#include "schedule/NomConfiguration.h"
#include "schedule/Creneaux.h"
#include "platform/db/DbError.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGridModel.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"

FrmSauvegarde::FrmSauvegarde(VariablesGlobales &etat, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmSauvegarde>()), v(etat) {
    ui->setupUi(this);
    connect(ui->BtnSauver, &QPushButton::clicked, this, &FrmSauvegarde::BtnSauver_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    remplit();
}

FrmSauvegarde::~FrmSauvegarde() = default;

// ---- Filling

void FrmSauvegarde::remplit() {
    ui->Text1->setText(QString::number(v.config.Intervalle));
    ui->Text2->setText(DatesFr::heure(v.config.HeureMatDebut));
    ui->Text3->setText(DatesFr::heure(v.config.HeureMatFin));
    ui->Text4->setText(DatesFr::heure(v.config.HeurePMDebut));
    ui->Text5->setText(DatesFr::heure(v.config.HeurePMFin));
    remplitGrilleJours();
}

void FrmSauvegarde::remplitGrilleJours() {
    ui->GrilleJours->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    ui->GrilleJours->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    const JoursExclus jours = JoursExclusDe(v.config);
    for (int i = 0; i < ui->GrilleJours->rowCount(); ++i) {
        const bool grises[] = {jours.matin[size_t(i)], jours.apresMidi[size_t(i)]};
        for (int demi = 0; demi < 2; ++demi) {
            auto *cellule = new QTableWidgetItem;
            // Colours alone tell nothing to a screen reader.
            if (!Dans(i + 1, v.config.JourAffich)) {
                cellule->setBackground(Qt::black);
                cellule->setToolTip(QStringLiteral("non affiché"));
            } else if (grises[demi]) {
                cellule->setBackground(QColor(couleurWindows(couleurGris)));
                cellule->setToolTip(QStringLiteral("grisé"));
            }
            cellule->setData(Qt::AccessibleTextRole, cellule->toolTip());
            ui->GrilleJours->setItem(i, demi + 1, cellule);
        }
    }
}

// ---- Handlers

void FrmSauvegarde::BtnSauver_Click() {
    const QString fauteuil = ui->TxtNumFauteuil->text();
    if (!fauteuil.isEmpty() && !FauteuilValide(fauteuil)) {
        refuse(QStringLiteral("Le numéro de fauteuil n'est pas valide"), *ui->TxtNumFauteuil);
        return;
    }
    // The same text is tested, looked for and stored: blanks around a name cannot be seen in the lists, and
    // two configurations that differ by them alone could not be told apart.
    const QString nom = ui->Text6->text().trimmed();
    if (!NomValide(nom)) {
        refuse(QStringLiteral("Votre nom de sauvegarde n'est pas valide"), *ui->Text6);
        return;
    }
    const QString defaut = DefautConfiguration(v.config);
    if (!defaut.isEmpty()) {
        v.messages->error(QStringLiteral("La configuration ne peut pas être sauvegardée : %1.").arg(defaut));
        return;
    }
    enregistre(nom);
}

void FrmSauvegarde::refuse(const QString &texte, QLineEdit &champ) {
    v.messages->show(texte, QStringLiteral("Nom de configuration ?"));
    champ.clear();
    champ.setFocus();
}

void FrmSauvegarde::enregistre(const QString &nom) {
    const QString fauteuil = ui->TxtNumFauteuil->text();
    const NouvelleConfig nouvelle{nom, v.PraticienCourant,
                                  fauteuil.isEmpty() ? std::nullopt : std::optional(fauteuil.toInt()),
                                  ui->Check1->isChecked()};
    Enregistrement resultat{};
    try {
        Database base = v.ouvreCarnet();
        resultat = EnregistreConfig(base, nouvelle, v.config);
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    const QString impossible = QStringLiteral("Action Impossible");
    switch (resultat) {
    case Enregistrement::NomPris:
        v.messages->show(QStringLiteral("Une configuration porte déjà ce nom !"), impossible,
                         Messages::Icon::Critical);
        ui->Text6->setFocus();
        return;
    case Enregistrement::FauteuilPris:
        v.messages->show(QStringLiteral("Un Fauteuil porte déjà ce numéro !"), impossible,
                         Messages::Icon::Critical);
        ui->TxtNumFauteuil->setFocus();
        return;
    case Enregistrement::Fait:
        accept();
    }
}
