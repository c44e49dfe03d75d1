#include "print/ListingAbsent.h"

#include "ui_ListingAbsent.h"

#include "config/PraticienTables.h"
#include "platform/ui/DatesFr.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Twips.h"
#include "practice/Courrier.h"
#include "practice/Essai.h"
#include "print/AbsentsTables.h"
#include "print/LettrePatient.h"
#include "schedule/TrancheHoraire.h"

#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>

namespace {

const QColor jaune(couleurWindows(0x00FFFF));

} // namespace

ListingAbsent::ListingAbsent(const Environnement &env, const QString &PraticienCourant, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::ListingAbsent>()), m_env(env) {
    ui->setupUi(this);
    ui->txtdatedebut->setReader(LitDate, premiereDate, derniereDate);
    ui->txtdatedebut->setSpelling(DatesFr::courte);
    ui->txtdatedebut->setDate(env.maintenant().date());
    ui->LblBilan->setForegroundRole(QPalette::PlaceholderText);
    ui->cmbChoixPrat->lineEdit()->setAccessibleName(ui->cmbChoixPrat->accessibleName());
    remplitChoix(PraticienCourant);
    resize(size().boundedTo(screen()->availableSize() * 9 / 10)); // its frame is to be seen, too
    connect(ui->cmbChoixPrat, &QComboBox::editTextChanged, this, &ListingAbsent::dessine);
    connect(ui->txtdatedebut, &QLineEdit::textChanged, this, &ListingAbsent::dessine);
    connect(ui->cmdOK, &QPushButton::clicked, this, &ListingAbsent::cmdOK_Click);
    relieGrille();
    connect(ui->cmdImprimLettre, &QPushButton::clicked, this, &ListingAbsent::cmdImprimLettre_Click);
    connect(ui->cmdImprimerListing, &QPushButton::clicked, this, &ListingAbsent::cmdImprimerListing_Click);
    connect(ui->cmdAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    cmdOK_Click();
}

ListingAbsent::~ListingAbsent() = default;

// ---- Filling

/// The current practitioner's number may be spelled as no entry is ("02").
void ListingAbsent::remplitChoix(const QString &PraticienCourant) {
    QList<Praticien> praticiens;
    essaie(m_env, [&] {
        Database param = m_env.ouvreParametres();
        praticiens = Praticiens(param);
    });
    for (const Praticien &praticien : praticiens) {
        ui->cmbChoixPrat->addItem(QString::number(praticien.codeprat));
    }
    ui->cmbChoixPrat->addItem(tousLesPraticiens);
    ui->cmbChoixPrat->setEditText(PraticienCourant);
}

void ListingAbsent::relieGrille() {
    connect(ui->ListAbsent, &FlexGrid::selectionAsked, this,
            [this](const FlexGrid::Corners &coins, FlexGrid::Gesture geste) {
                if (geste == FlexGrid::Gesture::Press || geste == FlexGrid::Gesture::Key) {
                    prendLigne(coins.row);
                }
                if (geste == FlexGrid::Gesture::Press) {
                    marque(coins.row);
                }
            });
    auto *espace = new QShortcut(Qt::Key_Space, ui->ListAbsent);
    espace->setContext(Qt::WidgetShortcut);
    connect(espace, &QShortcut::activated, this, [this] { marque(courante()); });
}

DemandeAbsents ListingAbsent::demande() const {
    const auto jour = ui->txtdatedebut->date();
    return {ui->cmbChoixPrat->currentText().trimmed(),
            jour ? DatesFr::courte(*jour) : ui->txtdatedebut->text().trimmed()};
}

/// A day that is none lists nobody. Nothing when it could not be read, which is told: nobody knows then.
std::optional<QList<Absent>> ListingAbsent::litAbsents(const DemandeAbsents &voulue) const {
    const bool tous = voulue.praticien == tousLesPraticiens;
    if (!tous && !EstNumero(voulue.praticien)) {
        m_env.messages->show(
            QStringLiteral("« %1 » n'est ni un numéro de praticien ni « Tous ».").arg(voulue.praticien),
            QStringLiteral("Erreur de saisie"), Messages::Icon::Critical);
        return std::nullopt;
    }
    const auto jour = LitDate(voulue.date);
    QList<Absent> absents;
    const auto praticien = tous ? std::nullopt : std::optional(CLng(voulue.praticien));
    const bool lus = !jour || essaie(m_env, [&] {
        Database carnet = m_env.ouvreCarnet();
        absents = Absents(carnet, praticien, *jour);
    });
    return lus ? std::optional(absents) : std::nullopt;
}

// ---- Drawing

void ListingAbsent::dessine() {
    const QList<Absent> montres = estAJour() ? m_liste.absents : QList<Absent>();
    const QStringList titres =
        QStringLiteral("N° Prat. |Nom Patient |Prénom Patient |N° Pat. |De |A |Tel").split(u'|');
    const int ligne = courante();
    FlexGridModel &cellules = ui->ListAbsent->cells();
    {
        const FlexGridWriting ecriture(cellules);
        cellules.clear(int(std::max<qsizetype>(montres.size(), 1)) + 1, colonnesAbsents);
        for (int col = 0; col < colonnesAbsents; ++col) {
            cellules.at(0, col) = {titres[col], palette().color(QPalette::Button), {}, Qt::AlignCenter, {}};
        }
        for (int i = 0; i < montres.size(); ++i) {
            const QColor fond = m_liste.marques.contains(i) ? jaune : QColor(Qt::white);
            const auto textes = montres[i].textes();
            for (int col = 0; col < colonnesAbsents; ++col) {
                cellules.at(i + 1, col) = {textes[size_t(col)], fond, Qt::black, Qt::AlignCenter, {}};
            }
        }
    }
    ui->ListAbsent->setSelectableArea(QRect(0, 1, montres.isEmpty() ? 0 : 1, int(montres.size())));
    prendLigne(ligne > 0 ? ligne : 1);
    dispose();
    dessineBilan();
}

/// What is listed, or why nothing is shown.
void ListingAbsent::dessineBilan() {
    const bool aJour = estAJour();
    const int combien = int(m_liste.absents.size());
    const auto jour = LitDate(m_liste.demande.date);
    const QString date = jour ? QStringLiteral(" le ") + DatesFr::jourComplet(*jour) : QString();
    const QString bilan = combien == 0 ? QStringLiteral("Aucun rendez-vous listé%1.").arg(date)
                                       : QStringLiteral("%1 rendez-vous%2, %3.")
                                             .arg(combien)
                                             .arg(date, TexteMarques(int(m_liste.marques.size())));
    ui->LblBilan->setText(aJour ? bilan : QString());
    ui->ListAbsent->setPlaceholder(
        aJour ? QString()
              : QStringLiteral("Rien n'est listé pour cette date et ce praticien : lancez la recherche."));
    ui->cmdImprimLettre->setEnabled(aJour && !m_liste.marques.isEmpty());
    ui->cmdImprimerListing->setEnabled(aJour);
}

void ListingAbsent::dispose() {
    const auto largeurs = LargeursAbsents(twipsFromPixels(ui->ListAbsent->viewport()->width()));
    for (int col = 0; col < colonnesAbsents; ++col) {
        ui->ListAbsent->setColumnWidth(col, pixelsFromTwips(largeurs[size_t(col)]));
    }
}

void ListingAbsent::resizeEvent(QResizeEvent *event) {
    QDialog::resizeEvent(event);
    dispose();
}

void ListingAbsent::showEvent(QShowEvent *event) {
    QDialog::showEvent(event);
    dispose();
}

// ---- Rows

int ListingAbsent::courante() const {
    return ui->ListAbsent->outline() ? ui->ListAbsent->outline()->row : 0;
}

void ListingAbsent::prendLigne(int ligne) {
    const int derniere = estAJour() ? int(m_liste.absents.size()) : 0;
    if (derniere == 0) {
        ui->ListAbsent->showOutline(std::nullopt);
    } else if (ligne > 0) { // a click on the headings leaves it
        const int prise = std::min(ligne, derniere);
        ui->ListAbsent->showOutline(FlexGrid::Corners{prise, 0, prise, colonnesAbsents - 1});
    }
}

void ListingAbsent::marque(int ligne) {
    if (estAJour()) {
        m_liste.basculeMarque(ligne - 1);
        dessine();
    }
}

// ---- Buttons

void ListingAbsent::cmdOK_Click() {
    const DemandeAbsents voulue = demande();
    const auto absents = litAbsents(voulue);
    m_lue = absents.has_value();
    m_liste = {voulue, absents.value_or(QList<Absent>()), {}};
    ui->ListAbsent->showOutline(std::nullopt);
    dessine();
    if (!m_liste.absents.isEmpty()) {
        ui->ListAbsent->setFocus();
    }
}

void ListingAbsent::cmdImprimLettre_Click() {
    LettresAbsence(m_env, this, m_liste.lettres());
}

void ListingAbsent::cmdImprimerListing_Click() {
    const auto reel = [this](const QString &chemin) { return m_env.chemins.real(chemin); };
    const word::Verbs verbes =
        VerbesListing(m_liste, reel(m_env.CheminFichiers + QStringLiteral("\\LISTINGABSENT.doc")),
                      reel(m_env.CheminRacine + QStringLiteral("\\Word")) + QStringLiteral("/ListingABS"),
                      m_env.maintenant());
    const auto fait = Courrier(m_env, this, 1).fait(verbes, QStringLiteral("Listing des absents"));
    if (!fait) {
        return;
    }
    if (!fait->pdf.isEmpty()) {
        m_env.messages->show(QStringLiteral("Ce poste n'a pas d'imprimante par défaut : le document est "
                                            "enregistré dans le fichier « %1 ».")
                                 .arg(QDir::toNativeSeparators(fait->pdf)));
    }
    m_env.messages->show(QStringLiteral("Opération effectuée avec succés !"), QStringLiteral("Message"));
}
