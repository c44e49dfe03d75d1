#include "start/Clavier.h"

#include "ui_FrmEntree.h"

#include "start/Touches.h"

#include <QKeyEvent>

namespace {

QList<QKeySequence> sequences(const QStringList &suites) {
    QList<QKeySequence> toutes;
    for (const QString &suite : suites) {
        toutes << QKeySequence(suite, QKeySequence::PortableText);
    }
    return toutes;
}

/// Of the bar below, or a tool: not a day of the strip.
bool estBouton(const QWidget *controle) {
    return controle != nullptr && (controle->inherits("QPushButton") || controle->inherits("QToolButton"));
}

} // namespace

Clavier::Clavier(const Ui::FrmEntree &ui, QMainWindow &fenetre)
    : QObject(&fenetre), m_ui(ui), m_fenetre(fenetre) {
    for (const Touche &touche : Touches()) {
        auto *action = fenetre.findChild<QAction *>(QString::fromUtf8(touche.action));
        if (action == nullptr || touche.action[0] == '\0') {
            continue;
        }
        action->setShortcuts(sequences(SuitesDe(touche)));
        action->setAutoRepeat(touche.repetee);
        if (touche.portee == PorteeTouche::Grille) { // a letter is a key of theirs alone
            action->setShortcutContext(Qt::WidgetShortcut);
            for (QWidget *grille : {ui.GrilleRDV, ui.GrilleRDV02, ui.GrilleRDV03}) {
                grille->addAction(action);
            }
        } else if (action->associatedObjects().isEmpty()) {
            fenetre.addAction(action);
        }
    }
    connect(ui.toucheVolet, &QAction::triggered, this, [this] { voletSuivant(1); });
    connect(ui.toucheVoletPrecedent, &QAction::triggered, this, [this] { voletSuivant(-1); });
    dessine(false);
    fenetre.installEventFilter(this);
}

void Clavier::dessine(bool zoome) {
    const QList<QKeySequence> voulues = sequences(SuitesDe("mnuZoom", zoome ? 1 : 0));
    if (m_ui.mnuZoom->shortcuts() != voulues) {
        m_ui.mnuZoom->setShortcuts(voulues);
    }
}

void Clavier::voletSuivant(int pas) {
    QList<QWidget *> volets;
    int courant = 0;
    const auto autre = [this](const char *nom) { return m_fenetre.findChild<QWidget *>(QLatin1String(nom)); };
    for (QWidget *volet :
         QList<QWidget *>{m_ui.GrilleRDV, m_ui.GrilleRDV02, m_ui.GrilleRDV03, autre("ListeReplacer"),
                          m_ui.BtnPrecedent, m_ui.BtnPrecedent2, autre("OutilPrecedent")}) {
        if (volet != nullptr && volet->isVisible() && volet->isEnabled()) {
            volets << volet;
            const bool bouton = estBouton(volet) && estBouton(m_fenetre.focusWidget());
            courant = volet->hasFocus() || bouton ? int(volets.size()) - 1 : courant;
        }
    }
    const int nombre = int(volets.size());
    if (nombre > 0) {
        volets[(courant + pas + nombre) % nombre]->setFocus(Qt::TabFocusReason);
    }
}

/// Alt and the numeric pad type characters elsewhere on the desktop: they are no chair's key.
bool Clavier::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::ShortcutOverride) {
        const auto pave = Qt::AltModifier | Qt::KeypadModifier;
        if ((static_cast<QKeyEvent *>(evenement)->modifiers() & pave) == pave) {
            evenement->accept();
            return true;
        }
    }
    return QObject::eventFilter(objet, evenement);
}
