// An appointment dragged over a full week: each frame from the pointer's move to the painted marks.
#include "Livres.h"
#include "Mesure.h"
#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>

namespace {

/// Counts how often a widget is painted.
class Peint : public QObject {
  public:
    int fois = 0;

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override {
        fois += evenement->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(objet, evenement);
    }
};

struct Images {
    double mediane = 0;
    double pire = 0;
    size_t rdv = 0;
};

/// Over every appointment of the week in turn, `tours` times.
Images glisse() {
    constexpr int tours = 4;
    const Environnement env = environnement(livreCourant());
    FrmEntree fenetre(env);
    fenetre.Form_Load();
    fenetre.show();
    fenetre.activateWindow();
    auto &grille = *fenetre.findChild<FlexGrid *>(QStringLiteral("GrilleRDV"));
    QWidget &vue = *grille.viewport();
    Peint marques;
    for (QObject *couche : vue.children()) {
        couche->installEventFilter(&marques);
    }
    const auto sur = [&](const FlexBlock &bloc) {
        return vue.mapToGlobal(grille.visualRect(grille.cells().index(bloc.first, bloc.col)).center());
    };
    QApplication::processEvents();
    const std::vector<FlexBlock> blocs = grille.cells().blocks();
    emit grille.blockTaken(blocs.front().id, false, sur(blocs.front()));
    std::vector<double> durees;
    for (int tour = 0; tour < tours; ++tour) {
        for (const FlexBlock &bloc : blocs) {
            const QPoint vers = sur(bloc);
            durees.push_back(millisecondes([&] {
                emit grille.blockMoved(vers, false);
                QApplication::processEvents();
            }));
        }
    }
    emit grille.blockLetGo();
    if (size_t(marques.fois) < durees.size() / 2) { // what is scrolled away shows no ghost
        throw MesureImpossible(QStringLiteral("%1 images peintes").arg(marques.fois));
    }
    std::ranges::sort(durees);
    return {durees[durees.size() / 2], durees.back(), blocs.size()};
}

} // namespace

std::vector<Mesure> mesuresGlisse() {
    const auto prepare = [] {
        const Images images = glisse();
        return Paire{[images](benchmark::UserCounters &chiffres) { // of the frames, the longest counts
            chiffres["rendez-vous"] = double(images.rdv);
            chiffres["ms, image médiane"] = images.mediane;
            return images.pire;
        }};
    };
    constexpr double image = 16; // ms
    return {{.nom = "glisse", .repetitions = 3, .prepare = prepare, .valeurMax = image}};
}
