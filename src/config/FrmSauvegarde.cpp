#include "config/FrmSauvegarde.h"

#include "ui_FrmSauvegarde.h"

#include "config/ConfigTables.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/FlexGridModel.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "schedule/Creneaux.h"
#include "schedule/JoursExclus.h"
#include "schedule/NomConfiguration.h"

FrmSauvegarde::FrmSauvegarde(const Environnement &env, QString praticien, Configuration config,
                             QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmSauvegarde>()), m_env(env),
      m_praticien(std::move(praticien)), m_config(std::move(config)) {
    ui->setupUi(this);
    connect(ui->BtnSauver, &QPushButton::clicked, this, &FrmSauvegarde::BtnSauver_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    remplit();
}

FrmSauvegarde::~FrmSauvegarde() = default;

// ---- Filling

void FrmSauvegarde::remplit() {
    ui->Text1->setText(QString::number(m_config.Intervalle));
    ui->Text2->setText(DatesFr::heure(m_config.HeureMatDebut));
    ui->Text3->setText(DatesFr::heure(m_config.HeureMatFin));
    ui->Text4->setText(DatesFr::heure(m_config.HeurePMDebut));
    ui->Text5->setText(DatesFr::heure(m_config.HeurePMFin));
    remplitGrilleJours();
}

void FrmSauvegarde::remplitGrilleJours() {
    ui->GrilleJours->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    ui->GrilleJours->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    const JoursExclus jours = JoursExclusDe(m_config);
    for (int i = 0; i < ui->GrilleJours->rowCount(); ++i) {
        const bool grises[] = {jours.matin[size_t(i)], jours.apresMidi[size_t(i)]};
        for (int demi = 0; demi < 2; ++demi) {
            auto *cellule = new QTableWidgetItem;
            // Colours alone tell nothing to a screen reader.
            if (!Dans(i + 1, m_config.JourAffich)) {
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
    const QString defaut = DefautConfiguration(m_config);
    if (!defaut.isEmpty()) {
        m_env.messages->error(
            QStringLiteral("La configuration ne peut pas être sauvegardée : %1.").arg(defaut));
        return;
    }
    enregistre(nom);
}

void FrmSauvegarde::refuse(const QString &texte, QLineEdit &champ) {
    m_env.messages->show(texte, QStringLiteral("Nom de configuration ?"));
    champ.clear();
    champ.setFocus();
}

void FrmSauvegarde::enregistre(const QString &nom) {
    const QString fauteuil = ui->TxtNumFauteuil->text();
    const NouvelleConfig nouvelle{nom, m_praticien,
                                  fauteuil.isEmpty() ? std::nullopt : std::optional(fauteuil.toInt()),
                                  ui->Check1->isChecked()};
    Enregistrement resultat{};
    const bool ecrit = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnetPourEcrire();
        resultat = EnregistreConfig(base, nouvelle, m_config);
    });
    if (!ecrit) {
        return;
    }
    const QString impossible = QStringLiteral("Action Impossible");
    switch (resultat) {
    case Enregistrement::NomPris:
        m_env.messages->show(QStringLiteral("Une configuration porte déjà ce nom !"), impossible,
                             Messages::Icon::Critical);
        ui->Text6->setFocus();
        return;
    case Enregistrement::FauteuilPris:
        m_env.messages->show(QStringLiteral("Un Fauteuil porte déjà ce numéro !"), impossible,
                             Messages::Icon::Critical);
        ui->TxtNumFauteuil->setFocus();
        return;
    case Enregistrement::Fait:
        accept();
    }
}
