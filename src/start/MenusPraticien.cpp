#include "start/MenusPraticien.h"

#include "grid/Affichage.h"
#include "start/Touches.h"

#include <QMenu>

namespace {

QString litteral(QString texte) {
    return texte.replace(u'&', QStringLiteral("&&"));
}

/// The digit and, on a French keyboard, what its key types without Shift.
QList<QKeySequence> toucheDuRang(int rang) {
    static const QStringList suites = SuitesDe("menuFaut");
    static const QString sansMaj = QStringLiteral("&é\"'(-è_ç");
    if (rang >= suites.size()) {
        return {};
    }
    return {QKeySequence(suites[rang], QKeySequence::PortableText),
            QKeySequence(QStringLiteral("Alt+") + sansMaj[rang], QKeySequence::PortableText)};
}

void pose(QAction &action, const QList<QKeySequence> &touches) {
    if (action.shortcuts() != touches) {
        action.setShortcuts(touches);
        action.setAutoRepeat(false);
    }
}

} // namespace

MenusPraticien::MenusPraticien(QMenu &mnuPraticien, QMenu &menuFaut, QObject *parent)
    : QObject(parent), m_menuPraticien(mnuPraticien), m_menuFaut(menuFaut),
      m_docteurs(mnuPraticien.actions()), m_fauteuils(menuFaut.actions()) {
    connect(&m_menuPraticien, &QMenu::triggered, this, [this](QAction *choisi) {
        emit praticienChoisi(m_praticiens[m_docteurs.indexOf(choisi)].numero());
    });
    connect(&m_menuFaut, &QMenu::triggered, this,
            [this](QAction *choisi) { emit fauteuilChoisi(m_numeros[m_fauteuils.indexOf(choisi)]); });
    m_docteurs.first()->setVisible(false);
    m_menuFaut.menuAction()->setVisible(false);
}

void MenusPraticien::construitPraticiens(const QList<Praticien> &praticiens) {
    m_praticiens = praticiens;
    for (int i = 0; i < praticiens.size(); ++i) {
        if (i == m_docteurs.size()) {
            m_docteurs << m_menuPraticien.addAction(QString());
        }
        m_docteurs[i]->setText(litteral(praticiens[i].libelle()));
        m_docteurs[i]->setCheckable(true);
        m_docteurs[i]->setVisible(true);
    }
}

void MenusPraticien::dessine(const Affichage &affichage) {
    for (int i = 0; i < m_praticiens.size(); ++i) {
        m_docteurs[i]->setChecked(m_praticiens[i].codeprat == affichage.demande.numPraticien());
    }
    while (m_fauteuils.size() > std::max<qsizetype>(affichage.configs.size(), 1)) {
        QAction *parti = m_fauteuils.takeLast(); // it may be the one that is being chosen
        m_menuFaut.removeAction(parti);
        parti->deleteLater();
    }
    m_numeros.clear();
    for (int i = 0; i < affichage.configs.size(); ++i) {
        if (i == m_fauteuils.size()) {
            m_fauteuils << m_menuFaut.addAction(QString());
        }
        const QString &fauteuil = affichage.configs[i].config.FauteuilCourant;
        m_numeros << CLng(fauteuil);
        m_fauteuils[i]->setText(litteral(LibelleFauteuil(fauteuil)));
        m_fauteuils[i]->setCheckable(true);
        m_fauteuils[i]->setChecked(i == affichage.fauteuilCoche);
    }
    m_menuFaut.menuAction()->setVisible(affichage.AvecFauteuils());
    poseTouches();
}

void MenusPraticien::poseTouches() {
    const bool fauteuils = m_menuFaut.menuAction()->isVisible();
    for (int i = 0; i < m_fauteuils.size(); ++i) {
        pose(*m_fauteuils[i], fauteuils ? toucheDuRang(i) : QList<QKeySequence>());
    }
    for (int i = 0; i < m_docteurs.size(); ++i) {
        pose(*m_docteurs[i], fauteuils ? QList<QKeySequence>() : toucheDuRang(i));
    }
}

QString MenusPraticien::libelle(const QString &PraticienCourant) const {
    for (const Praticien &praticien : m_praticiens) {
        if (praticien.codeprat == CLng(PraticienCourant)) {
            return praticien.libelle();
        }
    }
    return QStringLiteral("praticien %1").arg(CLng(PraticienCourant));
}

QStringList MenusPraticien::libelles() const {
    QStringList textes;
    for (const Praticien &praticien : m_praticiens) {
        textes << praticien.libelle();
    }
    return textes;
}
