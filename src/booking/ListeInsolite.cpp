#include "booking/ListeInsolite.h"

#include "platform/ui/Aspect.h"
#include "platform/ui/Icones.h"

#include <QGridLayout>
#include <QLabel>

namespace {

QLabel *texte(const QString &dit, QWidget *parent) {
    auto *label = new QLabel(dit, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

ListeInsolite::ListeInsolite(QWidget *parent) : QFrame(parent) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto *grille = new QGridLayout(this);
    grille->setColumnStretch(1, 1);
    grille->setHorizontalSpacing(10); // pixels
    hide();
}

void ListeInsolite::montre(const QList<Insolite> &insolites) {
    constexpr int cote = 16;
    constexpr int air = 8;
    auto *grille = static_cast<QGridLayout *>(layout());
    const QPixmap signe =
        icone(Icone::Attention, AspectDe(Presentation::Contemporaine, palette()).alerte).pixmap(cote, cote);
    QStringList lus;
    for (const Insolite &une : insolites) {
        auto *marque = new QLabel(this);
        marque->setPixmap(signe);
        auto *titre = texte(une.titre, this);
        QFont gras = titre->font();
        gras.setBold(true);
        titre->setFont(gras);
        const int rang = grille->rowCount();
        grille->setRowMinimumHeight(rang, rang > 1 ? air : 0);
        grille->addWidget(marque, rang + 1, 0, Qt::AlignTop);
        grille->addWidget(titre, rang + 1, 1);
        grille->addWidget(texte(une.detail, this), rang + 2, 1);
        lus << une.titre + QStringLiteral(". ") + une.detail;
    }
    setAccessibleDescription(lus.join(u' '));
    setVisible(!insolites.isEmpty());
}
