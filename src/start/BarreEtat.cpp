#include "start/BarreEtat.h"

#include "platform/ui/DatesFr.h"
#include "platform/ui/Twips.h"

#include <QStatusBar>

#include <algorithm>

BarreEtat::BarreEtat(QStatusBar &StatusBar1) {
    struct Panneau {
        int part;
        QString entier; ///< what must never be cut
    };
    const QList<Panneau> panneaux{{38, {}},
                                  {28, {}},
                                  {14, QStringLiteral("00:00  /  00:00")},
                                  {12, QStringLiteral("00 sept. 0000")},
                                  {0, {}}};
    for (const auto &[part, entier] : panneaux) {
        auto *panneau = new QLabel(entier, &StatusBar1);
        panneau->setObjectName(QStringLiteral("StatusBar1_%1").arg(m_panneaux.size() + 1));
        panneau->setTextFormat(Qt::PlainText);
        panneau->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
        panneau->setSizePolicy(part > 0 ? QSizePolicy::Ignored : QSizePolicy::Preferred,
                               QSizePolicy::Preferred);
        panneau->setMinimumWidth(entier.isEmpty() ? 0 : panneau->sizeHint().width());
        panneau->clear();
        StatusBar1.addWidget(panneau, part);
        m_panneaux << panneau;
    }
    constexpr int bords = 8; // pixels, of the bar and of its panels
    StatusBar1.setFixedHeight(std::max(pixelsFromTwips(375), StatusBar1.fontMetrics().height() + bords));
}

void BarreEtat::montreSelection(const Affichage &affichage, const Selection &selection) {
    m_panneaux[0]->setText(TexteEtatRDV(selection));
    const QString debut = DatesFr::heure(selection.horaire.debut);
    m_panneaux[2]->setText(debut.isEmpty()
                               ? QString()
                               : debut + QStringLiteral("  /  ") + DatesFr::heure(selection.horaire.fin));
    m_panneaux[3]->setText(DatesFr::etat(JourCourant(affichage, selection)));
}

void BarreEtat::montreLecture(const Affichage &affichage, const EtatLecture &etat) {
    QStringList dits;
    if (const int nombre = SansHoraire(affichage)) {
        dits << QStringLiteral("%1 rendez-vous sans horaire lisible").arg(nombre);
    }
    if (!etat.lectureSeule.isEmpty()) {
        dits << QStringLiteral("lecture seule");
    }
    if (!etat.lieu.isEmpty()) {
        dits << etat.lieu;
    }
    if (!etat.enContact) {
        dits << QStringLiteral("hors de contact");
    }
    if (etat.suivi && etat.manquee.isEmpty()) {
        dits << QStringLiteral("à jour");
    } else if (affichage.lu.isValid()) {
        dits << QStringLiteral("lu à %1").arg(DatesFr::heure(affichage.lu.time()));
    }
    QLabel *panneau = m_panneaux[4];
    panneau->setText(dits.join(QStringLiteral(" · ")));
    panneau->setStyleSheet(etat.manquee.isEmpty() ? QString()
                                                  : QStringLiteral("color: #B00020; font-weight: bold"));
    const QString quand = QStringLiteral("lu le %1 à %2")
                              .arg(DatesFr::courte(affichage.lu.date()),
                                   affichage.lu.time().toString(QStringLiteral("HH:mm:ss")));
    panneau->setToolTip(
        QStringLiteral("<qt>%1</qt>")
            .arg(QStringList{quand, etat.manquee, etat.lectureSeule}.join(u'\n').trimmed().toHtmlEscaped()));
}
