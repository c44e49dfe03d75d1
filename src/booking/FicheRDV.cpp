#include "booking/FicheRDV.h"

#include "booking/PlaceFiche.h"
#include "grid/Fourchette.h"
#include "platform/ui/DatesFr.h"
#include "schedule/Creneaux.h"

#include <QFormLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>

namespace {

constexpr int bord = 6;
constexpr QMargins marges(18, 12, 16, 12);

QLabel *etiquette(QWidget *fiche, const char *nom) {
    auto *label = new QLabel(fiche);
    label->setObjectName(QLatin1String(nom));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// The first `plus` letters of `texte`, with places to break it where it has no blanks: a card has its width.
QString coupable(const QString &texte, qsizetype plus) {
    constexpr qsizetype assezLong = 12;
    constexpr QChar sansLargeur(0x200B);
    constexpr QChar suspension(0x2026);
    QString coupe;
    qsizetype suite = 0;
    for (const QChar lettre : texte.size() > plus ? texte.left(plus) + suspension : texte) {
        suite = lettre.isSpace() ? 0 : suite + 1;
        coupe += lettre;
        if (suite == assezLong) {
            coupe += sansLargeur;
            suite = 0;
        }
    }
    return coupe;
}

} // namespace

FicheRDV::FicheRDV(QWidget *parent)
    : QFrame(parent, Qt::ToolTip), m_nom(etiquette(this, "FicheNom")), m_quand(etiquette(this, "FicheQuand")),
      m_champs(new QFormLayout), Telephone(etiquette(this, "FicheTelephone")),
      Description(etiquette(this, "FicheDescription")), Acte(etiquette(this, "FicheActe")),
      NumPatient(etiquette(this, "FicheNumPatient")), Present(etiquette(this, "FichePresent")),
      m_touches(etiquette(this, "FicheTouches")) {
    setObjectName(QStringLiteral("FicheRDV"));
    setAccessibleName(QStringLiteral("Fiche du rendez-vous"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    m_champs->addRow(QStringLiteral("Téléphone"), Telephone);
    m_champs->addRow(QStringLiteral("Description"), Description);
    m_champs->addRow(QStringLiteral("Acte à faire"), Acte);
    m_champs->addRow(QStringLiteral("N° de patient"), NumPatient);
    m_champs->addRow(QStringLiteral("Présent"), Present);
    auto *colonne = new QVBoxLayout(this);
    colonne->setContentsMargins(marges);
    colonne->addWidget(m_nom);
    colonne->addWidget(m_quand);
    colonne->addLayout(m_champs);
    colonne->addWidget(m_touches);
}

void FicheRDV::habille(const Aspect &aspect) {
    if (aspect == m_aspect && font() == m_police && !m_nom->text().isEmpty()) {
        return;
    }
    m_aspect = aspect;
    m_police = font();
    setPalette(PaletteDe(aspect, palette()));
    QPalette second = palette();
    second.setColor(QPalette::WindowText, aspect.encre2);
    QFont titre = font();
    constexpr double grand = 15.0 / 12.0;
    titre.setPointSizeF(QFontInfo(font()).pointSizeF() * grand);
    titre.setWeight(QFont::DemiBold);
    m_nom->setFont(titre);
    m_quand->setPalette(second);
    m_touches->setPalette(second);
    for (int rangee = 0; rangee < m_champs->rowCount(); ++rangee) {
        m_champs->itemAt(rangee, QFormLayout::LabelRole)->widget()->setPalette(second);
    }
}

void FicheRDV::remplit(const RendezVous &rdv, const QString &acte, qsizetype plus) {
    m_nom->setText(coupable(NomComplet(rdv.Nom, rdv.Prenom).trimmed(), plus));
    m_quand->setText(QStringLiteral("%1 · %2–%3 · %4 min")
                         .arg(DatesFr::jourComplet(rdv.Date1), DatesFr::heure(rdv.HeureDebut),
                              DatesFr::heure(rdv.HeureFin))
                         .arg(Minutes(rdv.HeureDebut, rdv.HeureFin)));
    Telephone->setText(coupable(rdv.Telephone.trimmed(), plus));
    Description->setText(coupable(rdv.Description.trimmed(), plus));
    Acte->setText(coupable(acte, plus));
    NumPatient->setText(rdv.NumPatient == QStringLiteral("0") ? QString() : coupable(rdv.NumPatient, plus));
    Present->setText(rdv.Present ? QStringLiteral("oui") : QStringLiteral("non"));
    for (QLabel *champ : {Telephone, Description, Acte, NumPatient}) {
        if (champ->text().isEmpty()) {
            champ->setText(QStringLiteral("—"));
        }
    }
}

bool FicheRDV::montre(const RendezVous &rdv, const QString &acte, bool choisi, const Aspect &aspect,
                      const QRect &bloc, const QRect &choix) {
    constexpr int largeur = 334;
    constexpr int corps = 16; // height of the font that the width was made for
    habille(aspect);
    m_touches->setText((choisi ? QStringLiteral("Entrée : éditer     ") : QString()) +
                       QStringLiteral("Échap : fermer"));
    m_bord = aspect.jours[size_t(Jour(rdv.Date1))].bord;
    const int large = std::max(largeur, largeur * fontMetrics().height() / corps);
    const QRect ecran = parentWidget()->screen()->availableGeometry();
    std::optional<QRect> place;
    for (const qsizetype plus : {255, 120, 60, 30}) { // a card beside its block says more than none
        remplit(rdv, acte, plus);
        m_champs->invalidate(); // it keeps the heights of the card before
        const QSize taille(large, layout()->totalHeightForWidth(large));
        place = PlaceFiche(bloc, choix, taille, ecran);
        if (place) {
            break;
        }
    }
    if (!place) {
        hide();
        return false;
    }
    setGeometry(*place);
    show();
    update();
    return true;
}

void FicheRDV::paintEvent(QPaintEvent *) {
    QPainter peintre(this);
    peintre.fillRect(rect(), m_aspect.feuille);
    peintre.setPen(m_aspect.encre3);
    peintre.drawRect(rect().adjusted(0, 0, -1, -1));
    peintre.fillRect(0, 0, bord, height(), m_bord);
}
