#include "gui/Souris.h"

#include "support/WaitUntil.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

/// xdotool is not built with the sanitizers that the test may be built with.
QProcessEnvironment environnementNu() {
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *variable : {"LD_PRELOAD", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        env.remove(QString::fromLatin1(variable));
    }
    return env;
}

void agit(const QStringList &arguments) {
    EXPECT_TRUE(xdotool(arguments)) << "xdotool " << qPrintable(arguments.join(u' '));
}

QStringList vers(const QWidget &widget, QPoint point) {
    const QPoint ecran = widget.mapToGlobal(point);
    return {QStringLiteral("mousemove"), QString::number(ecran.x()), QString::number(ecran.y())};
}

/// The window system has drawn the window and sends it the keys.
bool estPrete(const QWidget &fenetre) {
    return fenetre.isVisible() && fenetre.windowHandle() != nullptr && fenetre.windowHandle()->isExposed() &&
           fenetre.isActiveWindow();
}

/// Two clicks in one place, one soon after the other, are a double click, also when they are those of two
/// tests: waits until this one is no more.
void laisseLeDoubleClic(QPoint ecran) {
    static QElapsedTimer depuis;
    static QPoint dernier;
    if (depuis.isValid() && dernier == ecran) {
        waitUntil([] { return depuis.hasExpired(qint64{2} * QApplication::doubleClickInterval()); });
    }
    dernier = ecran;
    depuis.start();
}

QMenu *menuDe(const QAction &action) {
    for (QObject *associe : action.associatedObjects()) {
        if (auto *menu = qobject_cast<QMenu *>(associe)) {
            return menu;
        }
    }
    return nullptr;
}

} // namespace

std::optional<QString> xdotool(const QStringList &arguments) {
    QProcess processus;
    processus.setProcessEnvironment(environnementNu());
    processus.start(QStringLiteral("xdotool"), arguments);
    const bool finie = waitUntil([&] { return processus.state() == QProcess::NotRunning; });
    if (!finie || processus.error() == QProcess::FailedToStart || processus.exitCode() != 0) {
        return std::nullopt;
    }
    return QString::fromUtf8(processus.readAllStandardOutput()).trimmed();
}

namespace Souris {

void deplace(const QWidget &widget, QPoint point) {
    agit(vers(widget, point));
}

void presse(int bouton) {
    agit({QStringLiteral("mousedown"), QString::number(bouton)});
}

void relache(int bouton) {
    agit({QStringLiteral("mouseup"), QString::number(bouton)});
}

void clic(const QWidget &widget, QPoint point, int bouton) {
    laisseLeDoubleClic(widget.mapToGlobal(point));
    agit(vers(widget, point) << QStringLiteral("click") << QString::number(bouton));
}

void clic(const QWidget &widget) {
    clic(widget, widget.rect().center());
}

void doubleClic(const QWidget &widget, QPoint point) {
    laisseLeDoubleClic(widget.mapToGlobal(point));
    agit(vers(widget, point) << QStringLiteral("click") << QStringLiteral("--repeat") << QStringLiteral("2")
                             << QStringLiteral("--delay") << QStringLiteral("40") << QStringLiteral("1"));
}

void glisse(const QWidget &widget, QPoint de, QPoint a) {
    agit(vers(widget, de) << QStringLiteral("mousedown") << QStringLiteral("1") << vers(widget, (de + a) / 2)
                          << vers(widget, a) << QStringLiteral("mouseup") << QStringLiteral("1"));
}

void choisit(const QMainWindow &fenetre, QAction &action) {
    QMenu *menu = menuDe(action);
    ASSERT_NE(menu, nullptr);
    clic(*fenetre.menuBar(), fenetre.menuBar()->actionGeometry(menu->menuAction()).center());
    ASSERT_TRUE(waitUntil([&] { return menu->isVisible() && menu->windowHandle()->isExposed(); }))
        << qPrintable(menu->title());
    clic(*menu, menu->actionGeometry(&action).center());
    EXPECT_TRUE(waitUntil([&] { return !menu->isVisible(); })) << qPrintable(action.text());
}

} // namespace Souris

namespace Clavier {

void tape(const QString &texte) {
    agit({QStringLiteral("type"), QStringLiteral("--"), texte});
}

void touches(const QStringList &suite) {
    agit(QStringList{QStringLiteral("key"), QStringLiteral("--")} + suite);
}

} // namespace Clavier

bool montre(QWidget &fenetre) {
    fenetre.show();
    return waitUntil([&] { return estPrete(fenetre); });
}

QWidget *fenetreOuverte(const QString &nom) {
    for (QWidget *fenetre : QApplication::topLevelWidgets()) {
        if (fenetre->objectName() == nom && estPrete(*fenetre)) {
            return fenetre;
        }
    }
    return nullptr;
}

bool pendant(const QString &nom, const std::function<void()> &ouverture,
             const std::function<void(QWidget &)> &suite, std::chrono::milliseconds limite) {
    bool fermee = false;
    bool venue = false;
    QTimer guet;
    QObject::connect(&guet, &QTimer::timeout, &guet, [&] {
        const QPointer<QWidget> fenetre = fenetreOuverte(nom);
        if (!fenetre) {
            return;
        }
        guet.stop();
        venue = true;
        suite(*fenetre);
        fermee = waitUntil([&] { return !fenetre || !fenetre->isVisible(); }, limite);
        if (!fermee) {
            fenetre->close();
        }
    });
    guet.start(std::chrono::milliseconds(5));
    ouverture();
    return waitUntil([&] { return venue; }, limite) && fermee;
}
