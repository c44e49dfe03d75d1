#include "transfer/FrmDeplacer.h"

#include "ui_FrmDeplacer.h"

#include <QFileDialog>

FrmDeplacer::FrmDeplacer(const Environnement &env, const std::function<QString(Database &)> &metANiveau,
                         QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmDeplacer>()), m_env(env), m_deplacements(env, metANiveau),
      m_versServeur(StoredPaths::isPath(env.CheminBases)) {
    ui->setupUi(this);
    ui->Label1->setText(m_versServeur
                            ? QStringLiteral("Le carnet est dans un dossier. Le déplacer vers un serveur :")
                            : QStringLiteral("Le carnet est sur un serveur. Le déplacer dans un dossier :"));
    ui->Emplacement->setPlaceholderText(m_versServeur
                                            ? QStringLiteral("postgresql://utilisateur@serveur/base")
                                            : QStringLiteral("dossier à créer"));
    ui->BtnParcourir->setVisible(!m_versServeur);
    connect(ui->BtnParcourir, &QPushButton::clicked, this, &FrmDeplacer::BtnParcourir_Click);
    connect(ui->Command1, &QPushButton::clicked, this, &FrmDeplacer::Command1_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &FrmDeplacer::reject);
    ui->Emplacement->setFocus();
}

FrmDeplacer::~FrmDeplacer() = default;

/// A move that runs is stopped first, and says so.
void FrmDeplacer::reject() {
    if (m_travail.joinable()) {
        m_travail.request_stop();
        ui->BtnAnnuler->setEnabled(false);
    } else {
        m_fait ? accept() : QDialog::reject();
    }
}

void FrmDeplacer::BtnParcourir_Click() {
    const QString choisi = QFileDialog::getExistingDirectory(this, windowTitle(), ui->Emplacement->text(),
                                                             QFileDialog::DontUseNativeDialog);
    if (!choisi.isEmpty()) {
        ui->Emplacement->setText(QDir::toNativeSeparators(choisi));
    }
}

/// In a thread of its own: the window goes on being drawn, however long a server takes.
void FrmDeplacer::Command1_Click() {
    const QString lieu = ui->Emplacement->text().trimmed();
    if (lieu.isEmpty()) {
        ui->Emplacement->setFocus();
        return;
    }
    for (QWidget *champ : QList<QWidget *>{ui->Emplacement, ui->BtnParcourir, ui->Command1}) {
        champ->setEnabled(false);
    }
    ui->Progression->setVisible(true);
    ui->Etape->setVisible(true);
    ui->Rapport->setVisible(false);
    m_travail = std::jthread([this, lieu](const std::stop_token &arret) {
        const Avancement avance = [&](const QString &etape, qint64 fait, qint64 total) {
            QMetaObject::invokeMethod(
                this, [=, this] { montreAvance(etape, fait, total); }, Qt::QueuedConnection);
            return !arret.stop_requested();
        };
        const FinDeplacement fin = m_versServeur ? m_deplacements.versServeur(lieu, avance)
                                                 : m_deplacements.versFichiers(lieu, avance);
        QMetaObject::invokeMethod(
            this, [this, fin] { finit(fin); }, Qt::QueuedConnection);
    });
}

void FrmDeplacer::montreAvance(const QString &etape, qint64 fait, qint64 total) {
    constexpr qint64 pourCent = 100;
    ui->Etape->setText(etape);
    ui->Progression->setRange(0, total > 0 ? int(pourCent) : 0);
    ui->Progression->setValue(total > 0 ? int(fait * pourCent / total) : 0);
}

void FrmDeplacer::finit(const FinDeplacement &fin) {
    m_travail.join();
    m_travail = {};
    m_fait = fin.fait;
    ui->Progression->setVisible(false);
    ui->Etape->setVisible(false);
    ui->Rapport->setPlainText(fin.texte);
    ui->Rapport->setVisible(true);
    for (QWidget *champ : QList<QWidget *>{ui->Emplacement, ui->BtnParcourir, ui->Command1}) {
        champ->setEnabled(!m_fait);
    }
    ui->BtnAnnuler->setEnabled(true);
    if (m_fait) {
        ui->BtnAnnuler->setText(QStringLiteral("&Fermer"));
    }
    (m_fait ? static_cast<QWidget *>(ui->BtnAnnuler) : ui->Emplacement)->setFocus();
}
