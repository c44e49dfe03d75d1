// An appointment dragged over a full week: each frame from the pointer's move to the painted marks.
#include "Livres.h"
#include "Mesure.h"
#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"

#include <QApplication>
#include <QMouseEvent>

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

/// As the pointer does on its way to a block.
void survole(QWidget &vue, const QPoint &ou) {
    QMouseEvent bouge(QEvent::MouseMove, ou, vue.mapToGlobal(ou), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&vue, &bouge);
    QApplication::processEvents();
}

/// The first of `blocs`, taken, over all of them in turn, several times; each frame in ms.
std::vector<double> images(FlexGrid &grille, const std::vector<FlexBlock> &blocs) {
    constexpr int tours = 10;
    const auto sur = [&](const FlexBlock &bloc) {
        const QRect place = grille.visualRect(grille.cells().index(bloc.first, bloc.col));
        return grille.viewport()->mapToGlobal(place.center());
    };
    std::vector<double> durees{millisecondes([&] {
        emit grille.blockTaken(blocs.front().id, false, sur(blocs.front()));
        QApplication::processEvents();
    })};
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
    return durees;
}

/// Over every appointment of the week that is in sight.
Images glisse() {
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
    QApplication::processEvents();
    survole(vue, vue.rect().center());
    survole(vue, vue.rect().center() / 2);
    std::vector<FlexBlock> blocs = grille.cells().blocks();
    const size_t montres = blocs.size();
    std::erase_if(blocs, [&](const FlexBlock &bloc) { return grille.blockRect(bloc.id).isEmpty(); });
    std::vector<double> durees = images(grille, blocs);
    if (size_t(marques.fois) < durees.size()) {
        throw MesureImpossible(QStringLiteral("%1 images peintes").arg(marques.fois));
    }
    std::ranges::sort(durees);
    return {durees[durees.size() / 2], durees.back(), montres};
}

} // namespace

std::vector<Mesure> mesuresGlisse() {
    const auto prepare = [] {
        return Paire{[](benchmark::UserCounters &chiffres) { // of the frames of a drag, the longest counts
            const Images images = glisse();
            chiffres["rendez-vous"] = double(images.rdv);
            chiffres["ms, image médiane"] = images.mediane;
            return images.pire;
        }};
    };
    constexpr double image = 16; // ms
    return {{.nom = "glisse", .repetitions = 7, .prepare = prepare, .valeurMax = image}};
}
