#include "booking/FrmHistorique.h"

#include "ui_FrmHistorique.h"

#include "booking/Annulation.h"
#include "booking/MessagesRDV.h"
#include "booking/RangeeTables.h"
#include "booking/TextesJournal.h"
#include "journal/JournalTables.h"
#include "patients/TexteSaisi.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/PlainTip.h"
#include "practice/Essai.h"

#include <QHeaderView>
#include <QSignalBlocker>

namespace {

/// Rows as high as their texts need, which are wrapped; only what comes first is kept narrow.
void prepare(QTableWidget &table) {
    constexpr int plusLarge = 180;
    table.verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table.horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table.horizontalHeader()->setMaximumSectionSize(plusLarge);
}

void etale(QTableWidget &table, std::initializer_list<int> colonnes) {
    table.horizontalHeader()->setMaximumSectionSize(-1);
    for (const int colonne : colonnes) {
        table.horizontalHeader()->setSectionResizeMode(colonne, QHeaderView::Stretch);
    }
}

void remplit(QTableWidget &table, int ligne, const QStringList &textes) {
    for (int colonne = 0; colonne < textes.size(); ++colonne) {
        auto *cellule = new QTableWidgetItem(textes[colonne]);
        cellule->setToolTip(plainTip(textes[colonne]));
        table.setItem(ligne, colonne, cellule);
    }
}

void engraisse(QTableWidgetItem &cellule) {
    QFont gras = cellule.font();
    gras.setBold(true);
    cellule.setFont(gras);
}

QString titreDe(const CibleHistorique &cible) {
    return cible.rdv ? UneLigne(cible.rdv->Nom + u' ' + cible.rdv->Prenom).trimmed()
                     : DatesFr::jourComplet(cible.jour);
}

QString placeEnMots(const RendezVous &rdv) {
    return DatesFr::breve(rdv.Date1) + QStringLiteral(", ") + DatesFr::heure(rdv.HeureDebut);
}

QString retourEnMots(Retour retour, const std::optional<RendezVous> &avant) {
    const QString place = avant ? placeEnMots(*avant) : QString();
    switch (retour) {
    case Retour::SansAvant:
        return QStringLiteral("Avant cette écriture, il n'y avait rien à rétablir.");
    case Retour::Actuel:
        return QStringLiteral("Le rendez-vous est maintenant ce qu'il était avant cette écriture.");
    case Retour::SurPlace:
        return QStringLiteral("Le rendez-vous garderait sa place (%1).").arg(place);
    case Retour::Occupe:
        return QStringLiteral("La place d'avant (%1) n'est plus libre.").arg(place);
    case Retour::Passe:
        return QStringLiteral("La place d'avant (%1) est passée, mais libre.").arg(place);
    case Retour::Libre:
        break;
    }
    return QStringLiteral("La place d'avant (%1) est libre.").arg(place);
}

} // namespace

FrmHistorique::FrmHistorique(const Environnement &env, const CibleHistorique &cible, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmHistorique>()), m_env(env), m_cible(cible) {
    ui->setupUi(this);
    setWindowTitle(QStringLiteral("Historique — ") + titreDe(cible));
    relieVues();
    connect(ui->Ecritures, &QTableWidget::currentCellChanged, this, &FrmHistorique::montreEcriture);
    connect(ui->BtnRetablir, &QPushButton::clicked, this, &FrmHistorique::BtnRetablir_Click);
    connect(ui->BtnFermer, &QPushButton::clicked, this, &QDialog::reject);
    prepare(*ui->Ecritures);
    etale(*ui->Ecritures, {4});
    prepare(*ui->AvantApres);
    etale(*ui->AvantApres, {1, 2});
    ui->LblVide->setForegroundRole(QPalette::PlaceholderText);
    lit();
    m_lignes.isEmpty() ? ui->BtnFermer->setFocus() : ui->Ecritures->setFocus();
}

FrmHistorique::~FrmHistorique() = default;

void FrmHistorique::relieVues() {
    QRadioButton *vue = m_cible.rdv ? ui->OptRDV : ui->OptJour;
    ui->OptRDV->setEnabled(m_cible.rdv.has_value());
    ui->OptPatient->setEnabled(m_cible.rdv.has_value());
    vue->setChecked(true);
    ui->LblVoir->setBuddy(vue);
    for (const QRadioButton *bouton : {ui->OptRDV, ui->OptPatient, ui->OptJour}) {
        connect(bouton, &QRadioButton::toggled, this, [this](bool choisi) { choisi ? lit() : void(); });
    }
}

// ---- The writings

QList<LigneJournal> FrmHistorique::litVue(bool &tenu) const {
    Database carnet = m_env.ouvreCarnet();
    tenu = JournalEstPret(carnet);
    if (ui->OptJour->isChecked()) {
        return JournalDuJour(carnet, m_cible.jour, m_cible.praticien);
    }
    const RendezVous &rdv = *m_cible.rdv;
    return ui->OptRDV->isChecked() ? JournalDuRDV(carnet, rdv.RefRDV)
                                   : JournalDuPatient(carnet, rdv.Nom, rdv.Prenom, CLng(rdv.NumPatient));
}

void FrmHistorique::lit() {
    bool tenu = true;
    const bool lu = essaie(m_env, [&] { m_lignes = litVue(tenu); });
    if (!lu) {
        m_lignes.clear();
    }
    montreListe();
    const QString vide = QStringLiteral("Rien n'a été écrit depuis %1 mois.").arg(moisGardes);
    ui->LblVide->setText(!lu    ? QStringLiteral("L'historique n'a pas pu être lu. Fermez cette fenêtre et "
                                                    "ouvrez-la de nouveau.")
                         : tenu ? vide
                                : QStringLiteral("Ce carnet ne garde pas d'historique."));
    ui->LblNombre->setVisible(lu); // none that were read are not none
}

void FrmHistorique::montreListe() {
    const bool parJour = ui->OptJour->isChecked();
    {
        const QSignalBlocker silence(ui->Ecritures);
        ui->Ecritures->setRowCount(int(m_lignes.size()));
        for (int ligne = 0; ligne < m_lignes.size(); ++ligne) {
            const LigneJournal &lue = m_lignes[ligne];
            remplit(*ui->Ecritures, ligne,
                    {DatesFr::etat(lue.quand.date()) + u' ' + DatesFr::heure(lue.quand.time()), lue.poste,
                     lue.utilisateur, QuoiEnMots(lue.ecriture), DetailEnMots(lue.ecriture, parJour)});
        }
        ui->Ecritures->setCurrentCell(m_lignes.isEmpty() ? -1 : 0, 0);
    }
    ui->LblNombre->setText(
        QStringLiteral("gardé %1 mois · %2").arg(moisGardes).arg(NombreEnMots(m_lignes.size())));
    ui->LblVide->setVisible(m_lignes.isEmpty());
    montreEcriture(ui->Ecritures->currentRow());
}

void FrmHistorique::montreEcriture(int ligne) {
    const LigneJournal choisie = ligne < 0 ? LigneJournal() : m_lignes[ligne];
    const QList<ChampEnMots> champs = ChampsEnMots(choisie.ecriture);
    ui->AvantApres->setRowCount(int(champs.size()));
    for (int i = 0; i < champs.size(); ++i) {
        remplit(*ui->AvantApres, i, {champs[i].champ, champs[i].avant, champs[i].apres});
        if (champs[i].avant != champs[i].apres) {
            engraisse(*ui->AvantApres->item(i, 2));
        }
    }
    montreRetour(choisie);
}

/// What the appointment is now decides, not what came after that writing.
void FrmHistorique::montreRetour(const LigneJournal &choisie) {
    const EcritureRDV &ecriture = choisie.ecriture;
    bool libre = false;
    m_actuelle = {};
    const std::optional<DbError> echec = tente(m_env, [&] {
        Database carnet = m_env.ouvreCarnet();
        m_actuelle = CleReprise(carnet, choisie) ? Rangee() : LitRangee(carnet, ecriture.RefRDV());
        libre = !ecriture.avant.isEmpty() && PlaceLibre(carnet, ecriture.avant);
    });
    const auto rdvDe = [](const Rangee &rangee) {
        return rangee.isEmpty() ? std::nullopt : std::optional(RendezVousDe(rangee));
    };
    const std::optional<RendezVous> avant = rdvDe(ecriture.avant);
    const Retour retour = RetourA(avant, rdvDe(m_actuelle), libre, m_env.maintenant());
    const bool possible = retour != Retour::SansAvant && retour != Retour::Actuel && retour != Retour::Occupe;
    ui->BtnRetablir->setEnabled(!echec && possible && m_env.lectureSeule->isEmpty());
    ui->LblPlace->setText(echec                ? echec->message()
                          : m_lignes.isEmpty() ? QString()
                                               : retourEnMots(retour, avant));
}

// ---- Putting back

void FrmHistorique::BtnRetablir_Click() {
    const EcritureRDV choisie = m_lignes[ui->Ecritures->currentRow()].ecriture;
    BilanEcriture bilan;
    if (!essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnetPourEcrire();
            bilan = RemetRDV(carnet, m_env.auteur(), Operation::Retabli, m_actuelle, choisie.avant);
        })) {
        return;
    }
    if (bilan.resultat != Ecriture::Fait) {
        m_env.messages->show(MessageRefus(NomDuGeste(choisie), true, bilan, m_actuelle, choisie.avant),
                             windowTitle());
    }
    lit();
    ui->Ecritures->setFocus();
    if (bilan.resultat == Ecriture::Fait) {
        emit ecrit(bilan.ecriture); // what has to be told then stands before a list that has it
    }
}
