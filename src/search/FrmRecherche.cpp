#include "search/FrmRecherche.h"

#include "ui_FrmRecherche.h"

#include "platform/ui/Sablier.h"
#include "practice/Essai.h"
#include "practice/JourSaisi.h"
#include "schedule/TrancheHoraire.h"
#include "search/FrmResultatRech.h"

#include <utility>

FrmRecherche::FrmRecherche(const Environnement &env, const QString &nom, const QString &prenom,
                           QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmRecherche>()), m_env(env) {
    ui->setupUi(this);
    ui->DTPicker1->setReader(LitDate, premiereDate, derniereDate);
    connect(ui->recherchePatient, &RecherchePatient::patientParcouru, this, &FrmRecherche::montrePatient);
    connect(ui->recherchePatient, &RecherchePatient::patientPerdu, this, &FrmRecherche::rendPatient);
    connect(ui->recherchePatient, &RecherchePatient::patientChoisi, this,
            [this](const PatientTrouve &patient) {
                montrePatient(patient);
                BtnOK_Click();
            });
    for (const QLineEdit *champ : {ui->Text1, ui->Text2}) {
        connect(champ, &QLineEdit::textEdited, this, [this] {
            m_avantRecherche.clear();
            ui->recherchePatient->oublieChoix();
        });
    }
    connect(ui->Text1, &QLineEdit::textEdited, this, [this] {
        if (!ui->Text2->isModified()) { // a first name belongs to the name that it came with
            ui->Text2->clear();
        }
    });
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmRecherche::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->Text1->setText(nom);
    ui->Text2->setText(prenom);
    ui->DTPicker1->setDate(env.maintenant().date());
    ui->recherchePatient->utilise(env);
    if (nom.isEmpty()) {
        ui->recherchePatient->setFocus();
    } else { // Enter looks for the patient who is selected
        ui->Text1->setFocus();
    }
}

FrmRecherche::~FrmRecherche() = default;

// ---- Handlers

void FrmRecherche::montrePatient(const PatientTrouve &patient) {
    const Sablier sablier;
    if (m_avantRecherche.isEmpty()) {
        m_avantRecherche = QStringList{ui->Text1->text(), ui->Text2->text()};
    }
    ui->Text1->setText(patient.nom);
    ui->Text2->setText(patient.prenom);
}

/// The search finds nobody: it names again whom it named before.
void FrmRecherche::rendPatient() {
    if (const QStringList avant = std::exchange(m_avantRecherche, {}); !avant.isEmpty()) {
        ui->Text1->setText(avant[0]);
        ui->Text2->setText(avant[1]);
    }
}

void FrmRecherche::BtnOK_Click() {
    const std::optional<QDate> depuis = JourSaisi(m_env, *ui->DTPicker1);
    if (!depuis) {
        return;
    }
    const CritereRDV critere{ui->Text1->text(), ui->Text2->text(), *depuis};
    RDVsTrouves trouves;
    const bool lu = essaie(m_env, [&] {
        const Sablier sablier;
        Database carnet = m_env.ouvreCarnet();
        trouves = RendezVousDuPatient(carnet, critere);
    });
    if (!lu) {
        return;
    }
    FrmResultatRech resultat(m_env, critere, trouves, this);
    if (resultat.exec() == QDialog::Accepted) {
        m_choisi = resultat.choisi();
        accept();
    }
}
