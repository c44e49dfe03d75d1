// An empty window of the book's size, up to its first painting.
#include "PremierDessin.h"

#include <QApplication>
#include <QMainWindow>
#include <QScreen>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    new PremierDessin(&application);
    QMainWindow fenetre;
    fenetre.setObjectName(QStringLiteral("FrmEntree"));
    fenetre.setCentralWidget(new QWidget);
    fenetre.resize(QSize(1280, 940).boundedTo(fenetre.screen()->availableSize()));
    fenetre.show();
    return QApplication::exec();
}
