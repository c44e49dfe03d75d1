#include "config/FrmJourExclure.h"

#include "ui_FrmJourExclure.h"

#include "platform/ui/Messages.h"
#include "practice/Environnement.h"

#include <QButtonGroup>

FrmJourExclure::FrmJourExclure(const Environnement &env, Configuration config, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmJourExclure>()), m_env(env), m_config(std::move(config)),
      m_repos(new QButtonGroup(this)) {
    ui->setupUi(this);
    m_matin = {ui->Check1_0, ui->Check1_1, ui->Check1_2, ui->Check1_3,
               ui->Check1_4, ui->Check1_5, ui->Check1_6};
    m_apresMidi = {ui->Check2_0, ui->Check2_1, ui->Check2_2, ui->Check2_3,
                   ui->Check2_4, ui->Check2_5, ui->Check2_6};
    m_nonAffiches = {ui->Check3_0, ui->Check3_1, ui->Check3_2, ui->Check3_3,
                     ui->Check3_4, ui->Check3_5, ui->Check3_6};
    int jour = 0;
    for (QRadioButton *option :
         {ui->Option1, ui->Option2, ui->Option3, ui->Option4, ui->Option5, ui->Option6, ui->Option7}) {
        m_repos->addButton(option, ++jour);
    }

    connect(m_repos, &QButtonGroup::idToggled, this, [this](int jourRepos, bool choisi) {
        if (choisi) {
            Option_Click(jourRepos);
        }
    });
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmJourExclure::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);

    remplit();
}

FrmJourExclure::~FrmJourExclure() = default;

// ---- Filling

void FrmJourExclure::remplit() {
    if (QAbstractButton *option = m_repos->button(m_config.JourRepos)) {
        option->setChecked(true);
    }
    const JoursExclus jours = JoursExclusDe(m_config);
    for (size_t i = 0; i < m_matin.size(); ++i) {
        if (!m_nonAffiches[i]->isEnabled()) {
            continue; // the rest day is hidden and greyed, whatever an older row says
        }
        m_nonAffiches[i]->setChecked(jours.nonAffiches[i]);
        m_matin[i]->setChecked(jours.matin[i]);
        m_apresMidi[i]->setChecked(jours.apresMidi[i]);
    }
}

void FrmJourExclure::effaceCases() {
    for (const auto &cases : {m_matin, m_apresMidi, m_nonAffiches}) {
        for (QCheckBox *boite : cases) {
            boite->setChecked(false);
            boite->setEnabled(true);
        }
    }
}

// ---- Handlers

void FrmJourExclure::Option_Click(int jourRepos) {
    effaceCases();
    const auto i = size_t(jourRepos - 1);
    for (QCheckBox *boite : {m_nonAffiches[i], m_matin[i], m_apresMidi[i]}) {
        boite->setChecked(true);
        boite->setEnabled(false);
    }
    m_config.JourRepos = jourRepos; // at once: it stays when the window is cancelled
}

void FrmJourExclure::BtnOK_Click() {
    const JoursExclus jours = joursSaisis();
    if (NbJoursAffiches(jours) < moinsDeJoursAffiches) {
        m_env.messages->show(QStringLiteral("Vous devez permettre l'affichage d'au moins deux jours."),
                             QStringLiteral("Erreur d'affichage !"));
        return;
    }
    AppliqueJours(jours, m_config);
    accept();
}

JoursExclus FrmJourExclure::joursSaisis() const {
    JoursExclus jours;
    for (size_t i = 0; i < m_matin.size(); ++i) {
        jours.matin[i] = m_matin[i]->isChecked();
        jours.apresMidi[i] = m_apresMidi[i]->isChecked();
        jours.nonAffiches[i] = m_nonAffiches[i]->isChecked();
    }
    return jours;
}
