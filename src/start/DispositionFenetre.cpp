#include "start/DispositionFenetre.h"

#include "ui_FrmEntree.h"

#include "grid/Disposition.h"
#include "platform/ui/Twips.h"

#include <QHBoxLayout>

#include <algorithm>

QFont PoliceSansMiseEnForme(QFont police) {
    police.setStyleStrategy(QFont::PreferNoShaping);
    police.setKerning(false);
    return police;
}

namespace {

/// The window's font, or the largest below it in which `texte` has room on `place`.
void ajustePolice(QWidget &controle, const QString &texte, QSize place) {
    constexpr int bords = 6; // pixels
    QFont police = controle.parentWidget()->font();
    const QSize voulue(QFontMetrics(police).horizontalAdvance(texte) + bords,
                       QFontMetrics(police).height() + bords);
    const double reste =
        std::min(double(place.width()) / voulue.width(), double(place.height()) / voulue.height());
    if (reste < 1) {
        police.setPointSizeF(std::max(police.pointSizeF() * reste, 1.0));
    }
    if (controle.font() != police) {
        controle.setFont(police);
    }
}

/// Captions that a large font makes too large for the stated places.
void ajustePolices(const Ui::FrmEntree &ui) {
    for (QPushButton *bouton :
         {ui.BtnPrecedent, ui.BtnAujourdhui, ui.BtnSuivant, ui.BtnPrecedent2, ui.BtnAujourdhui2,
          ui.BtnSuivant2, ui.BtnRafraichir, ui.BtnMois, ui.BtnQuitter}) {
        ajustePolice(*bouton, bouton->text(), bouton->size());
    }
    for (QGroupBox *cadre : {ui.Frame1, ui.Frame2}) { // their titles stand above the buttons
        ajustePolice(*cadre, cadre->title(), QSize(cadre->width(), ui.BtnMois->y() - cadre->y()));
    }
}

} // namespace

QPushButton *BoutonVue(const Ui::FrmEntree &ui, const QString &nom) {
    QWidget *coin = ui.menubar->cornerWidget();
    if (coin == nullptr) {
        coin = new QWidget(ui.menubar);
        auto *rangee = new QHBoxLayout(coin);
        rangee->setContentsMargins(0, 0, 2, 0);
        rangee->setSpacing(2);
        ui.menubar->setCornerWidget(coin);
    }
    auto *bouton = new QPushButton(nom, coin);
    bouton->setObjectName(QStringLiteral("Btn") + nom);
    bouton->setCheckable(true);
    bouton->setFocusPolicy(Qt::NoFocus);
    bouton->setMaximumHeight(coin->fontMetrics().height() + 4);
    coin->layout()->addWidget(bouton);
    return bouton;
}

bool PlaceControles(const Ui::FrmEntree &ui, QSize place, bool avecBoutons) {
    constexpr int barreEtat = 375; // twips, which the layout counts with
    const auto d = DisposeFenetre(twipsFromPixels(place.width()), twipsFromPixels(place.height()) + barreEtat,
                                  avecBoutons);
    if (!d) {
        return false;
    }
    const std::initializer_list<std::pair<QWidget *, const Rectangle *>> places{
        {ui.GrilleRDV, &d->GrilleRDV},
        {ui.Frame1, &d->Frame1},
        {ui.BtnPrecedent, &d->BtnPrecedent},
        {ui.BtnAujourdhui, &d->BtnAujourdhui},
        {ui.BtnSuivant, &d->BtnSuivant},
        {ui.Frame2, &d->Frame2},
        {ui.BtnRafraichir, &d->BtnRafraichir},
        {ui.BtnMois, &d->BtnMois},
        {ui.Frame3, &d->Frame3},
        {ui.BtnQuitter, &d->BtnQuitter},
        {ui.Frame4, &d->Frame1},
        {ui.BtnPrecedent2, &d->BtnPrecedent},
        {ui.BtnAujourdhui2, &d->BtnAujourdhui},
        {ui.BtnSuivant2, &d->BtnSuivant},
        {ui.GrilleRDV02, &d->GrilleRDV02},
        {ui.GrilleRDV03, &d->GrilleRDV03}};
    for (const auto &[controle, ou] : places) {
        controle->setGeometry(pixelsFromTwips(ou->gauche, ou->haut, ou->largeur, ou->hauteur));
    }
    ajustePolices(ui);
    const int bandeau = ui.BandeauMois1->sizeHint().height();
    ui.BandeauMois1->setGeometry(0, 0, place.width(), bandeau);
    for (QWidget *jour : {ui.GrilleRDV02, ui.GrilleRDV03}) { // the strip is above them
        jour->setGeometry(jour->geometry().adjusted(0, std::min(bandeau, jour->height()), 0, 0));
    }
    return true;
}

void MontreVue(const Ui::FrmEntree &ui, bool semaine, bool avecBoutons) {
    QWidget *grille = semaine ? ui.GrilleRDV : ui.GrilleRDV02;
    const bool change = grille->isHidden();
    ui.GrilleRDV->setVisible(semaine);
    for (QWidget *w : QList<QWidget *>{ui.BandeauMois1, ui.GrilleRDV02, ui.GrilleRDV03}) {
        w->setVisible(!semaine);
    }
    for (QWidget *w : QList<QWidget *>{ui.Frame1, ui.BtnPrecedent, ui.BtnAujourdhui, ui.BtnSuivant}) {
        w->setVisible(semaine && avecBoutons);
    }
    for (QWidget *w : QList<QWidget *>{ui.Frame4, ui.BtnPrecedent2, ui.BtnAujourdhui2, ui.BtnSuivant2}) {
        w->setVisible(!semaine && avecBoutons);
    }
    for (QWidget *w : QList<QWidget *>{ui.Frame2, ui.Frame3, ui.BtnRafraichir, ui.BtnMois, ui.BtnQuitter}) {
        w->setVisible(avecBoutons);
    }
    if (change) { // a redraw leaves the focus where it is
        grille->setFocus();
    }
}
