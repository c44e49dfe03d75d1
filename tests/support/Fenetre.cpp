#include "support/Fenetre.h"

std::string Fenetre::etat() const {
    const QString titre = fenetre->windowTitle().remove(q("Carnet de rendez-vous du "));
    QString texte = titre == q(panneau(2).c_str()) ? titre : titre + u'/' + q(panneau(2).c_str());
    for (const char *nom : {"mnuPraticien", "menuFaut"}) {
        const auto &menu = objet<QMenu>(nom);
        texte += menu.menuAction()->isVisible() ? q(" ") : q(" -");
        for (int i = 0; i < menu.actions().size() && menu.menuAction()->isVisible(); ++i) {
            texte += menu.actions()[i]->isChecked() ? QString::number(i) : QString();
        }
    }
    texte += u' ';
    for (const char *action : {"mnuAjouter", "mnuEditer", "mnuSupprimer", "mnuPresent"}) {
        texte += objet<QAction>(action).isEnabled() ? q(action)[3] : QChar(u'-');
    }
    texte += objet<QAction>("mnuPresent").isChecked() ? q("* ") : q(" ");
    return (texte + q(panneau(4).c_str()) + u' ' + q(panneau(3).c_str()).remove(u' ') + u' ' +
            q(panneau(1).c_str()))
        .toStdString();
}

std::string Fenetre::grilles() const {
    QString texte;
    for (int i = 0; i < 3; ++i) {
        const FlexGrid &vue = grille(i);
        const FlexGridModel &cellules = vue.cells();
        if (vue.isHidden()) {
            continue;
        }
        texte += q("%1x%2 %3:").arg(cellules.rows()).arg(cellules.cols()).arg(cellules.cell(0, 1).text);
        for (int col = 1; col <= std::max(cellules.cols() - 2, 1); ++col) {
            for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
                const QString dit = cellules.cell(ligne, col).text.trimmed();
                texte += dit.isEmpty() ? QString() : q(" %1,%2 %3").arg(ligne).arg(col).arg(dit);
            }
        }
        const auto contour = vue.outline();
        texte += contour ? q(" [%1,%2-%3,%4]")
                               .arg(contour->row)
                               .arg(contour->col)
                               .arg(contour->rowSel)
                               .arg(contour->colSel)
                         : QString();
        texte += u'\n';
    }
    return texte.trimmed().toStdString();
}
