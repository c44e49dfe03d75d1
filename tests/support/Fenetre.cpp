#include "support/Fenetre.h"

#include "support/WaitUntil.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

Fenetre::Fenetre() {
    QObject::connect(&m_guet, &QTimer::timeout, [this] {
        QWidget *dessus = QApplication::activeModalWidget();
        if (dessus != nullptr && dessus->objectName() == q("FrmInsolite")) {
            m_questions << dessus->windowTitle();
            dessus->findChild<QAbstractButton *>(quandMeme ? q("BtnQuandMeme") : q("BtnRevenir"))->click();
        }
    });
    m_guet.start(0);
}

std::string Fenetre::questions() {
    return std::exchange(m_questions, {}).join(u'|').toStdString();
}

void Fenetre::ouvre() {
    fenetre = std::make_unique<FrmEntree>(cabinet.environnement());
    fenetre->Form_Load();
    fenetre->resize(1200, 900);
    fenetre->show();
    fenetre->activateWindow(); // shortcuts belong to the active window
    waitUntil([this] { return fenetre->isActiveWindow(); });
}

void Fenetre::fait(const QString &geste) {
    const QStringList mots = geste.split(u' ');
    const QString &quoi = mots[0];
    if (auto *action = fenetre->findChild<QAction *>(quoi)) {
        action->trigger();
    } else if (auto *bouton = fenetre->findChild<QAbstractButton *>(quoi)) {
        bouton->click();
    } else if (quoi == q("docteur") || quoi == q("fauteuil")) {
        const auto &menu = objet<QMenu>(quoi == q("docteur") ? "mnuPraticien" : "menuFaut");
        menu.actions()[mots[1].toInt()]->trigger();
    } else if (quoi == q("touche") || quoi == q("maj")) {
        const QKeyCombination touche = QKeySequence(mots[1], QKeySequence::PortableText)[0];
        QTest::keyClick(&grille(m_cliquee), touche.key(),
                        touche.keyboardModifiers() | (quoi == q("maj") ? Qt::ShiftModifier : Qt::NoModifier));
    } else {
        m_cliquee = mots.value(2).toInt();
        FlexGrid &vue = grille(m_cliquee);
        const QStringList cellule = mots[1].split(u',');
        const QModelIndex index = vue.cells().index(cellule[0].toInt(), cellule[1].toInt());
        vue.scrollTo(index);
        const QPoint place = vue.visualRect(index).center();
        if (quoi == q("double")) {
            QTest::mouseDClick(vue.viewport(), Qt::LeftButton, {}, place);
        } else {
            QTest::mousePress(vue.viewport(), Qt::LeftButton, {}, place);
        }
        if (quoi != q("presse")) {
            QTest::mouseRelease(vue.viewport(), Qt::LeftButton, {}, place);
        }
    }
}

void Fenetre::joue(const char *rangees) {
    QTimer garde; // nobody would answer
    QObject::connect(&garde, &QTimer::timeout, [] {
        if (QWidget *dialogue = QApplication::activeModalWidget()) {
            ADD_FAILURE() << "a dialog: " << dialogue->objectName().toStdString();
            dialogue->close();
        }
    });
    garde.start();
    for (const QStringList &rangee : tableau(rangees)) {
        fait(rangee[0]);
        const std::string vus[] = {etat(), grilles()};
        for (int i = 1; i < rangee.size(); ++i) {
            EXPECT_TRUE(rangee[i].isEmpty() || rangee[i].toStdString() == vus[i - 1])
                << rangee[0].toStdString() << "\n  shown    " << vus[i - 1] << "\n  expected "
                << rangee[i].toStdString();
        }
    }
}

void Fenetre::pendant(const char *geste, const std::function<void(QWidget &)> &dedans) {
    bool vu = false;
    QTimer::singleShot(0, qApp, [&] {
        if (QWidget *dialogue = QApplication::activeModalWidget()) {
            vu = true;
            dedans(*dialogue);
            dialogue->close();
        }
    });
    fait(q(geste));
    EXPECT_TRUE(vu) << "no dialog";
    fenetre->activateWindow(); // as a window manager does, and this screen has none
    waitUntil([this] { return fenetre->isActiveWindow(); });
}

int Fenetre::tique() const {
    auto &timer = objet<QTimer>("Timer1");
    timer.start(0);
    waitUntil([&] { return timer.interval() != 0; });
    return timer.interval();
}

std::string Fenetre::etat() const {
    const auto panneau = [this](const char *nom) { return objet<QLabel>(nom).text(); };
    const QString titre = fenetre->windowTitle().remove(q("Carnet de rendez-vous du "));
    QString texte = titre == panneau("StatusBar1_2") ? titre : titre + u'/' + panneau("StatusBar1_2");
    for (const char *nom : {"mnuPraticien", "menuFaut"}) {
        const auto &menu = objet<QMenu>(nom);
        const bool visible = menu.menuAction()->isVisible();
        QString coches;
        for (int i = 0; i < menu.actions().size() && visible; ++i) {
            coches += menu.actions()[i]->isChecked() ? QString::number(i) : QString();
        }
        texte += visible ? u' ' + (coches.isEmpty() ? q("aucun") : coches) : q(" -");
    }
    texte += u' ';
    for (const char *action : {"mnuAjouter", "mnuEditer", "mnuSupprimer", "mnuPresent"}) {
        texte += objet<QAction>(action).isEnabled() ? q(action)[3] : QChar(u'-');
    }
    texte += objet<QAction>("mnuPresent").isChecked() ? q("* ") : q(" ");
    texte += panneau("StatusBar1_4") + u' ' + panneau("StatusBar1_3") + u' ' + panneau("StatusBar1_1");
    return texte.simplified().toStdString();
}

std::string Fenetre::grilles() const {
    QStringList textes;
    for (int i = 0; i < 3; ++i) {
        const FlexGridModel &cellules = grille(i).cells();
        if (grille(i).isHidden()) {
            continue;
        }
        QString texte =
            q("%1x%2 %3:").arg(cellules.rows()).arg(cellules.cols()).arg(cellules.cell(0, 1).text);
        for (int col = 1; col <= std::max(cellules.cols() - 2, 1); ++col) {
            for (int ligne = 1; ligne < cellules.rows(); ++ligne) {
                const QString dit = cellules.text(ligne, col).trimmed();
                texte += dit.isEmpty() ? QString() : q(" %1,%2 %3").arg(ligne).arg(col).arg(dit);
            }
        }
        if (const auto c = grille(i).outline()) {
            texte += q(" [%1,%2-%3,%4]").arg(c->row).arg(c->col).arg(c->rowSel).arg(c->colSel);
        }
        textes << texte.simplified();
    }
    return textes.join(q("; ")).toStdString();
}

std::string Fenetre::lecture() const {
    const auto &panneau = objet<QLabel>("StatusBar1_5");
    return (panneau.styleSheet().isEmpty() ? "" : "!") + panneau.text().toStdString();
}

std::string Fenetre::dits() {
    QStringList textes;
    for (const auto &message : std::exchange(cabinet.messages.shown, {})) {
        textes << message.text;
    }
    return textes.join(u'\n').toStdString();
}
