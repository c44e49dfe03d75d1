#include "booking/ChampsRDV.h"

#include "patients/Critere.h"
#include "patients/TexteSaisi.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Essai.h"
#include "schedule/TrancheHoraire.h"
#include "ui_ChampsRDV.h"

#include <QKeyEvent>
#include <utility>

namespace {

// Widths of the book's columns, characters.
constexpr int largeurNom = 50;
constexpr int largeurTelephone = 20;
constexpr int largeurDescription = 255;

/// A text that is stored longer than its column stays whole.
void metTexte(QLineEdit &champ, const QString &texte, int largeur) {
    champ.setMaxLength(std::max(largeur, int(texte.size())));
    champ.setText(texte);
    champ.setCursorPosition(0);
}

QString lit(const QLineEdit &champ, const QString &montre) {
    return champ.text() == montre ? montre : UneLigne(champ.text());
}

} // namespace

ChampsRDV::ChampsRDV(QWidget *parent) : QWidget(parent), ui(std::make_unique<Ui::ChampsRDV>()) {
    ui->setupUi(this);
    setFocusProxy(ui->recherchePatient); // the patient comes first
    ui->DTPicker1->setReader(LitDate, premiereDate, derniereDate);
    relieHoraires();
    relieListe();
    for (const QLineEdit *champ : {ui->Text1, ui->Text2}) {
        connect(champ, &QLineEdit::textEdited, this, &ChampsRDV::retireNumero);
    }
    connect(ui->BtnInit, &QPushButton::clicked, this, &ChampsRDV::BtnInit_Click);
}

ChampsRDV::~ChampsRDV() = default;

void ChampsRDV::relieHoraires() {
    const std::initializer_list<std::pair<UpDown *, Deplace>> fleches{
        {ui->UpDown1, Deplace::Debut}, {ui->UpDown2, Deplace::Fin}, {ui->UpDown3, Deplace::LesDeux}};
    for (const auto &[fleche, quoi] : fleches) {
        connect(fleche, &UpDown::upClicked, this, [this, quoi = quoi] { deplace(quoi, Sens::PlusTard); });
        connect(fleche, &UpDown::downClicked, this, [this, quoi = quoi] { deplace(quoi, Sens::PlusTot); });
    }
    for (QLineEdit *champ : {ui->TextHeureDebut, ui->TextHeureFin}) {
        champ->installEventFilter(this);
        connect(champ, &QLineEdit::editingFinished, this, [champ] {
            if (const auto heure = LitHeure(champ->text())) {
                champ->setText(DatesFr::heure(*heure));
            }
        });
    }
}

void ChampsRDV::relieListe() {
    connect(ui->recherchePatient, &RecherchePatient::patientParcouru, this, &ChampsRDV::parcourt);
    connect(ui->recherchePatient, &RecherchePatient::patientPerdu, this, &ChampsRDV::rendPatient);
    connect(ui->recherchePatient, &RecherchePatient::patientChoisi, this,
            [this](const PatientTrouve &patient) {
                parcourt(patient); // the fields may have been typed over since the row was highlighted
                emit patientChoisi(m_drapeau);
            });
}

void ChampsRDV::utilise(const Environnement &env, int intervalle, Usage usage) {
    m_env = &env;
    m_intervalle = intervalle;
    m_usage = usage;
    ui->recherchePatient->utilise(env);
    ui->txtNumPatient->setEnabled(usage == Usage::Edition);
}

// ---- Filling

void ChampsRDV::montre(const SaisieRDV &saisie) {
    m_montree = saisie;
    ui->DTPicker1->setDate(saisie.Date1);
    montreHoraires({saisie.HeureDebut, saisie.HeureFin});
    metTexte(*ui->Text1, saisie.Nom, largeurNom);
    metTexte(*ui->Text2, saisie.Prenom, largeurNom);
    metTexte(*ui->Text3, saisie.Telephone, largeurTelephone);
    metTexte(*ui->Text4, saisie.Description, largeurDescription);
    metNumero(saisie.NumPatient);
}

void ChampsRDV::montreHoraires(const HorairesRDV &horaires) {
    ui->TextHeureDebut->setText(DatesFr::heure(horaires.debut));
    ui->TextHeureFin->setText(DatesFr::heure(horaires.fin));
}

void ChampsRDV::montrePatient(const QString &nom, const QString &prenom, const QString &numero) {
    ui->recherchePatient->oublieChoix();
    m_avantRecherche.reset();
    nomme(nom, prenom, numero);
}

void ChampsRDV::nomme(const QString &nom, const QString &prenom, const QString &numero) {
    metTexte(*ui->Text1, nom, largeurNom);
    metTexte(*ui->Text2, prenom, largeurNom);
    metNumero(numero);
    m_drapeau = std::nullopt;
    essaie(*m_env, [&] {
        const Sablier sablier;
        Database patients = m_env->ouvrePatients();
        m_drapeau = RDVNonHonoré(patients, CLng(numero));
    });
    colore(CouleurDuPatient(m_drapeau));
}

void ChampsRDV::colore(CouleurPatient couleur) {
    if (couleur == CouleurPatient::Inchangee) {
        return;
    }
    QPalette palette;
    if (couleur == CouleurPatient::Rouge) {
        palette.setColor(QPalette::Text, Qt::red);
    }
    for (QWidget *champ : {ui->Text1, ui->Text2, ui->Text3, ui->Text4}) {
        champ->setPalette(palette);
    }
}

/// No number is an empty field where it cannot be typed.
void ChampsRDV::metNumero(const QString &numero) {
    const bool aucun = CLng(numero) == 0;
    ui->txtNumPatient->setText(aucun && m_usage == Usage::Ajout ? QString() : numero);
}

void ChampsRDV::metDescription(const QString &description) {
    metTexte(*ui->Text4, description, largeurDescription);
}

void ChampsRDV::videDetails() {
    ui->Text3->clear();
    ui->Text4->clear();
}

void ChampsRDV::activeSaisie(bool active) {
    for (QWidget *w : QList<QWidget *>{ui->Label1, ui->Label2, ui->Label3, ui->Text1, ui->Text2, ui->Text3}) {
        w->setEnabled(active);
    }
}

// ---- Handlers

/// The arrows start from what the fields show, typed text included; a field that shows no time stays.
void ChampsRDV::deplace(Deplace quoi, Sens sens) {
    const auto debut = LitHeure(ui->TextHeureDebut->text());
    const auto fin = LitHeure(ui->TextHeureFin->text());
    if (debut && fin) {
        montreHoraires(DeplaceHoraires({*debut, *fin}, quoi, sens, m_intervalle));
    }
}

/// Up and Down in an hour press its arrow; with Ctrl, that of both.
bool ChampsRDV::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::KeyPress) {
        const auto &touche = static_cast<QKeyEvent &>(*evenement);
        if (touche.key() == Qt::Key_Up || touche.key() == Qt::Key_Down) {
            const Deplace une = objet == ui->TextHeureDebut ? Deplace::Debut : Deplace::Fin;
            deplace(touche.modifiers().testFlag(Qt::ControlModifier) ? Deplace::LesDeux : une,
                    touche.key() == Qt::Key_Up ? Sens::PlusTard : Sens::PlusTot);
            return true;
        }
    }
    return QWidget::eventFilter(objet, evenement);
}

void ChampsRDV::parcourt(const PatientTrouve &patient) {
    if (!m_avantRecherche) {
        m_avantRecherche = PatientTrouve{ui->Text1->text(), ui->Text2->text(), ui->txtNumPatient->text(), {}};
    }
    nomme(patient.nom, patient.prenom, patient.numero);
    emit patientChange();
}

/// Nobody is booked whom a search has left behind.
void ChampsRDV::rendPatient() {
    if (const auto avant = std::exchange(m_avantRecherche, std::nullopt)) {
        colore(CouleurPatient::ParDefaut);
        nomme(avant->nom, avant->prenom, avant->numero);
        emit patientRendu(*avant);
    }
}

void ChampsRDV::retireNumero() {
    m_avantRecherche.reset();
    ui->recherchePatient->oublieChoix(); // Enter there must not book whom the fields no longer name
    metNumero(QStringLiteral("0"));
    colore(CouleurPatient::ParDefaut);
    emit patientChange();
}

void ChampsRDV::BtnInit_Click() {
    ui->Text1->clear();
    ui->Text2->clear();
    if (m_usage == Usage::Edition) {
        videDetails();
    }
    retireNumero();
}

// ---- Reading

std::nullopt_t ChampsRDV::refuse(const QString &texte, const QString &titre, QWidget &champ) {
    m_env->messages->show(texte, titre);
    champ.setFocus();
    return std::nullopt;
}

bool ChampsRDV::exigeNom() {
    if (!ui->Text1->text().trimmed().isEmpty()) {
        return true;
    }
    ui->Text1->clear();
    refuse(QStringLiteral("Vous devez obligatoirement entrer un Nom."), QStringLiteral("Erreur de case vide"),
           *ui->Text1);
    return false;
}

std::optional<SaisieRDV> ChampsRDV::saisie() {
    const QString erreur = QStringLiteral("Erreur !");
    if (!exigeNom()) {
        return std::nullopt;
    }
    const auto jour = ui->DTPicker1->date();
    if (!jour) {
        return refuse(ChampDate::complaint(), erreur, *ui->DTPicker1);
    }
    const auto debut = LitHeure(ui->TextHeureDebut->text());
    const auto fin = LitHeure(ui->TextHeureFin->text());
    if (!debut || !fin) {
        return refuse(QStringLiteral("Cette heure n'est pas valide. Veuillez la saisir sous la forme 08:00."),
                      erreur, debut ? *ui->TextHeureFin : *ui->TextHeureDebut);
    }
    if (!EstReservable({*debut, *fin})) {
        return refuse(QStringLiteral("L'heure de fin doit venir après l'heure de début."), erreur,
                      *ui->TextHeureFin);
    }
    if (!EstNumeroPatient(ui->txtNumPatient->text())) {
        return refuse(
            QStringLiteral("Ce numéro de patient n'est pas valide. Veuillez saisir des chiffres, ou "
                           "rien pour un patient sans numéro."),
            erreur, *ui->txtNumPatient);
    }
    return SaisieRDV{lit(*ui->Text1, m_montree.Nom),
                     lit(*ui->Text2, m_montree.Prenom),
                     lit(*ui->Text3, m_montree.Telephone),
                     lit(*ui->Text4, m_montree.Description),
                     ui->txtNumPatient->text().trimmed(),
                     *jour,
                     *debut,
                     *fin};
}
