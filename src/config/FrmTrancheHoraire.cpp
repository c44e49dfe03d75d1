#include "config/FrmTrancheHoraire.h"

#include "ui_FrmTrancheHoraire.h"

#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "practice/Environnement.h"

#include <QButtonGroup>

FrmTrancheHoraire::FrmTrancheHoraire(const Environnement &env, Configuration config, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmTrancheHoraire>()), m_env(env), m_config(std::move(config)),
      m_intervalles(new QButtonGroup(this)) {
    ui->setupUi(this);
    int minutes = 0;
    for (QRadioButton *option :
         {ui->Option1, ui->Option2, ui->Option3, ui->Option4, ui->Option5, ui->Option6, ui->Option7,
          ui->Option8, ui->Option9, ui->Option10, ui->Option11, ui->Option12}) {
        m_intervalles->addButton(option, minutes += 5);
    }
    m_textes = {ui->Text1, ui->Text2, ui->Text3, ui->Text4};

    connect(m_intervalles, &QButtonGroup::idToggled, this, &FrmTrancheHoraire::majInfoBulles);
    const std::array fleches{ui->UpDown1, ui->UpDown2, ui->UpDown3, ui->UpDown4};
    for (size_t i = 0; i < m_textes.size(); ++i) {
        connect(m_textes[i], &QLineEdit::textChanged, this, &FrmTrancheHoraire::majInfoBulles);
        connect(m_textes[i], &QLineEdit::editingFinished, this, [this, i] {
            if (const auto heure = LitHeure(m_textes[i]->text())) {
                m_textes[i]->setText(DatesFr::heure(*heure));
            }
        });
        connect(fleches[i], &UpDown::upClicked, this, [this, i] { deplace(i, Fleche::Augmenter); });
        connect(fleches[i], &UpDown::downClicked, this, [this, i] { deplace(i, Fleche::Diminuer); });
    }
    connect(ui->BtnOK, &QPushButton::clicked, this, &FrmTrancheHoraire::BtnOK_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &QDialog::reject);

    remplit();
}

FrmTrancheHoraire::~FrmTrancheHoraire() = default;

// ---- Filling: at opening, and to undo a refused change

void FrmTrancheHoraire::remplit() {
    const Horaires horaires = HorairesDe(m_config);
    for (size_t i = 0; i < m_textes.size(); ++i) {
        m_textes[i]->setText(DatesFr::heure(horaires[i]));
    }
    selectionneIntervalle(m_config.Intervalle);
    majInfoBulles();
}

void FrmTrancheHoraire::selectionneIntervalle(int minutes) {
    m_intervalles->setExclusive(false); // an exclusive group never goes back to no selection
    for (QAbstractButton *option : m_intervalles->buttons()) {
        option->setChecked(m_intervalles->id(option) == minutes);
    }
    m_intervalles->setExclusive(true);
}

void FrmTrancheHoraire::majInfoBulles() {
    const auto bulles = MajInfoBulles(horairesSaisis(), m_intervalles->checkedId());
    for (size_t i = 0; i < bulles.size(); ++i) {
        m_textes[i + 1]->setToolTip(bulles[i]);
    }
}

// ---- Handlers

void FrmTrancheHoraire::deplace(size_t champ, Fleche fleche) {
    if (const auto heure = HeureApresFleche(horairesSaisis(), champ, fleche)) {
        m_textes[champ]->setText(DatesFr::heure(*heure));
    }
}

void FrmTrancheHoraire::BtnOK_Click() {
    const std::optional<Configuration> saisie = configurationSaisie();
    if (!saisie) {
        return;
    }
    if (TropRapproches(*saisie)) {
        m_env.messages->show(
            QStringLiteral("Les horaires sont trop rapprochés ou l'intervalle est trop grand.\n"
                           "Veuillez les modifier."),
            QStringLiteral("Erreur !"));
        remplit();
        return;
    }
    const QString incoherence = VerifieCoherence(*saisie);
    if (!incoherence.isEmpty()) {
        m_env.messages->show(incoherence, QStringLiteral("Erreur de cohérence."));
        remplit();
        return;
    }
    m_config = *saisie;
    accept();
}

std::optional<Configuration> FrmTrancheHoraire::configurationSaisie() {
    if (m_intervalles->checkedId() < 0) {
        refuse(QStringLiteral("Veuillez choisir un intervalle."), ui->Option1);
        return std::nullopt;
    }
    const Horaires horaires = horairesSaisis();
    for (size_t i = 0; i < horaires.size(); ++i) {
        if (!horaires[i].isValid()) {
            refuse(QStringLiteral("Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00."),
                   m_textes[i]);
            return std::nullopt;
        }
    }
    if (const size_t champ = PremierDesordre(horaires)) {
        refuse(QStringLiteral("Les horaires ne se suivent pas : %1 vient après %2. Veuillez les modifier.")
                   .arg(DatesFr::heure(horaires[champ - 1]), DatesFr::heure(horaires[champ])),
               m_textes[champ]);
        return std::nullopt;
    }
    Configuration config = m_config;
    config.Intervalle = m_intervalles->checkedId();
    config.HeureMatDebut = horaires[0];
    config.HeureMatFin = horaires[1];
    config.HeurePMDebut = horaires[2];
    config.HeurePMFin = horaires[3];
    return config;
}

Horaires FrmTrancheHoraire::horairesSaisis() const {
    Horaires horaires;
    for (size_t i = 0; i < m_textes.size(); ++i) {
        horaires[i] = LitHeure(m_textes[i]->text()).value_or(QTime());
    }
    return horaires;
}

void FrmTrancheHoraire::refuse(const QString &texte, QWidget *fautif) {
    m_env.messages->show(texte, QStringLiteral("Erreur !"));
    fautif->setFocus();
}
