#include "maintenance/FrmPurger.h"

#include "ui_FrmPurger.h"

#include "maintenance/PurgeTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "schedule/TrancheHoraire.h"

#include <QFileDialog>
#include <QTimer>

namespace {

const QString titrePurger = QStringLiteral("Purger");
const QString titreEnregistrer = QStringLiteral("Enregistrer sous ...");

/// Whether a name is taken is asked about the name that the file will have: not by the dialog.
std::optional<QString> demandeParDialogue(QWidget *fenetre, const QString &dossier) {
    QFileDialog dialogue(fenetre, titreEnregistrer, dossier, QStringLiteral("(*.mdb)"));
    dialogue.setAcceptMode(QFileDialog::AcceptSave);
    dialogue.setFileMode(QFileDialog::AnyFile);
    dialogue.setOptions(QFileDialog::DontConfirmOverwrite | QFileDialog::DontUseNativeDialog);
    if (dialogue.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialogue.selectedFiles().value(0);
}

/// Where the practice keeps its archives, or beside the book.
QString dossierDesPurges(const Environnement &env) {
    const QString purges = env.chemins.real(env.CheminFichiers + QStringLiteral("\\Purge"));
    return QFileInfo(purges).isDir() ? purges : env.chemins.real(env.CheminFichiers);
}

} // namespace

FrmPurger::FrmPurger(const Environnement &env, long praticien, const QString &libelle, QWidget *parent)
    : QDialog(parent),
      demandeNom([this](const QString &dossier) { return demandeParDialogue(this, dossier); }),
      ui(std::make_unique<Ui::FrmPurger>()), m_env(env), m_praticien(praticien),
      m_modele(env.chemins.real(env.CheminFichiers + QStringLiteral("\\ZeroRDV.mdb"))) {
    ui->setupUi(this);
    ui->LabelPraticien->setText(
        QStringLiteral("Carnet du %1, tous fauteuils compris.").arg(libelle.trimmed()));
    ui->DateFinPurge->setReader(LitDate, premiereDate, derniereDate);
    connect(ui->Command1, &QPushButton::clicked, this, &FrmPurger::Command1_Click);
    connect(ui->BtnAnnuler, &QPushButton::clicked, this, &FrmPurger::reject);
}

FrmPurger::~FrmPurger() = default;

int FrmPurger::deplaces() const {
    return m_purge ? m_purge->deplaces() : 0;
}

/// A purge that runs ends with the lot that is under way.
void FrmPurger::reject() {
    if (m_purge) {
        m_arretDemande = true;
        ui->BtnAnnuler->setEnabled(false);
    } else {
        QDialog::reject();
    }
}

void FrmPurger::Command1_Click() {
    const std::optional<QDate> jour = ui->DateFinPurge->date();
    if (!jour) {
        m_env.messages->show(QStringLiteral("La date saisie n'est pas valide !"),
                             QStringLiteral("Erreur de saisie"), Messages::Icon::Critical);
        ui->DateFinPurge->setFocus();
        return;
    }
    const std::optional<QString> archive = choisitArchive();
    if (!archive) {
        QDialog::reject();
    } else if (!archive->isEmpty()) {
        m_archive = *archive;
        commence(*jour);
    }
}

// ---- The archive

std::optional<QString> FrmPurger::choisitArchive() {
    for (;;) {
        const std::optional<QString> nom = demandeNom(dossierDesPurges(m_env));
        if (!nom) {
            return std::nullopt;
        }
        if (QFileInfo(*nom).fileName().trimmed().isEmpty()) {
            return QString();
        }
        const QString archive = m_env.chemins.real(NomArchive(*nom));
        if (!existe(archive)) {
            return archive;
        }
        m_env.messages->show(QStringLiteral("Le fichier spécifié existe déjà, veuillez le changer"),
                             titreEnregistrer);
    }
}

/// The template's name stays the template's while it is away, a link stays one that points nowhere; and what
/// a program left beside an archive of that name when it was killed would be taken for this one's.
bool FrmPurger::existe(const QString &archive) const {
    const QFileInfo reste(archive + QStringLiteral("-journal"));
    return QFileInfo::exists(archive) || QFileInfo(archive).isSymLink() || reste.exists() ||
           archive.compare(m_modele, Qt::CaseInsensitive) == 0;
}

// ---- The purge

void FrmPurger::commence(QDate jour) {
    m_purge = std::make_unique<Purge>(m_praticien, jour);
    ui->Command1->setEnabled(false);
    ui->DateFinPurge->setEnabled(false);
    ui->Progression->setRange(0, 0);
    ui->Progression->setVisible(true);
    std::optional<DbError> echec = tente(m_env, [&] {
        Database carnet = m_env.ouvreCarnetPourEcrire();
        m_purge->cherche(carnet);
    });
    if (!echec) {
        echec = tente(m_env, [&] { CreeArchive(m_modele, m_archive); });
    }
    if (echec) {
        echoue(*echec);
        return;
    }
    m_archiveCreee = true;
    ui->Progression->setRange(0, std::max(1, m_purge->total()));
    QTimer::singleShot(0, this, &FrmPurger::deplaceLot);
}

/// One after the other, the window and other workstations in between.
void FrmPurger::deplaceLot() {
    if (m_arretDemande) {
        abandonne();
        m_env.messages->show(QStringLiteral("La purge est annulée. ") + bilan(), titrePurger);
        QDialog::reject();
        return;
    }
    if (m_purge->finie()) {
        accept();
        return;
    }
    const std::optional<DbError> echec = tente(m_env, [this] {
        Database archive = ouvreArchive();
        Database carnet = m_env.ouvreCarnetPourEcrire();
        m_purge->deplaceLot(carnet, archive, m_env.auteur());
    });
    if (echec) {
        echoue(*echec);
        return;
    }
    ui->Progression->setMaximum(std::max(1, m_purge->total()));
    ui->Progression->setValue(m_purge->vus());
    QTimer::singleShot(0, this, &FrmPurger::deplaceLot);
}

void FrmPurger::echoue(const DbError &echec) {
    abandonne();
    m_env.messages->error(QStringLiteral("La purge s'est arrêtée : ") + echec.cause() + u'\n' + bilan());
    QDialog::reject();
}

/// What was moved is known afterwards, and the archive holds nothing else unless this fails. One of which
/// nothing is needed would only be in the way of the next purge.
void FrmPurger::abandonne() {
    const auto inutile = [this] { return m_purge->deplaces() + m_purge->incertains() == 0; };
    if (!m_archiveCreee) {
        return;
    }
    if (!inutile() || !enleveArchive()) {
        tente(m_env, [this] {
            Database archive = ouvreArchive();
            Database carnet = m_env.ouvreCarnet();
            m_purge->abandonne(carnet, archive);
        });
        if (inutile()) {
            enleveArchive();
        }
    }
}

bool FrmPurger::enleveArchive() {
    m_archiveCreee = !QFile::remove(m_archive);
    if (!m_archiveCreee) {
        QFile::remove(m_archive + QStringLiteral("-journal"));
    }
    return !m_archiveCreee;
}

QString FrmPurger::bilan() const {
    return BilanPurge(m_purge->deplaces(), m_purge->incertains(), m_archiveCreee ? m_purge->enTrop() : 0,
                      m_archive);
}

Database FrmPurger::ouvreArchive() const {
    constexpr std::chrono::milliseconds parEssai{100}; // tente() goes on waiting
    return Database::open(m_archive, parEssai);
}
