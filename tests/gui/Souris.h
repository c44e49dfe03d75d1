#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <optional>

class QAction;
class QMainWindow;
class QWidget;

/// A real mouse and a real keyboard: events go through the X server to whatever window is there. While they
/// travel the event loop spins. What cannot be done is a failure of the running test.

/// Runs xdotool; gives what it printed, nothing when it failed.
std::optional<QString> xdotool(const QStringList &arguments);

namespace Souris {

constexpr int gauche = 1;
constexpr int droite = 3;

/// Points are in the widget's own coordinates.
void deplace(const QWidget &widget, QPoint point);
void presse(int bouton = gauche);
void relache(int bouton = gauche);
void clic(const QWidget &widget, QPoint point, int bouton = gauche);
/// In the middle.
void clic(const QWidget &widget);
void doubleClic(const QWidget &widget, QPoint point);
/// Presses at `de`, moves, releases at `a`.
void glisse(const QWidget &widget, QPoint de, QPoint a);
/// Opens the menu that holds the action and clicks the action there.
void choisit(const QMainWindow &fenetre, QAction &action);

} // namespace Souris

namespace Clavier {

/// Types a text into whatever has the focus.
void tape(const QString &texte);
/// Presses keys one after the other, each as xdotool spells it: "Escape", "alt+F4", "ctrl+q".
void touches(const QStringList &suite);

} // namespace Clavier

/// Shows a window and waits until it can be used.
bool montre(QWidget &fenetre);

/// The visible top-level window of that object name, which can be used; none yet: null.
QWidget *fenetreOuverte(const QString &nom);

/// Does `ouverture` (a click) and, as soon as the window `nom` can be used, `suite` from inside its exec()
/// loop, which may call everything above and another pendant(). Gives whether the window came, and whether
/// `suite` left it closed. One that stays open is closed, so that the test goes on.
bool pendant(const QString &nom, const std::function<void()> &ouverture,
             const std::function<void(QWidget &)> &suite,
             std::chrono::milliseconds limite = std::chrono::seconds(10));
