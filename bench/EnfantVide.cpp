// An empty window of the book's size, up to its first painting.
#include "PremierDessin.h"

#include <QApplication>
#include <QMainWindow>
#include <QScreen>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QMainWindow fenetre;
    auto *centre = new QWidget;
    fenetre.setCentralWidget(centre);
    new PremierDessin([centre](const QObject *objet) { return objet == centre; }, &application);
    fenetre.resize(QSize(1280, 940).boundedTo(fenetre.screen()->availableSize()));
    fenetre.show();
    return QApplication::exec();
}
