#pragma once

#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/Livre.h"
#include "support/WaitUntil.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTest>

/// The main window on a practice whose book holds what a test writes, and what it shows, as text.
struct Fenetre {
    /// As the program starts it, at 10:05 on Wednesday 2026-03-11.
    void ouvre() {
        fenetre = std::make_unique<FrmEntree>(cabinet.environnement());
        fenetre->Form_Load();
        fenetre->resize(1200, 900);
        fenetre->show();
    }
    template <typename T>
    T &objet(const char *nom) const {
        return *fenetre->findChild<T *>(q(nom));
    }
    FlexGrid &grille(int i = 0) const {
        return objet<FlexGrid>(QByteArrayList{"GrilleRDV", "GrilleRDV02", "GrilleRDV03"}[i]);
    }
    void choisit(const char *action) const { objet<QAction>(action).trigger(); }
    void choisit(const char *menu, int i) const { objet<QMenu>(menu).actions()[i]->trigger(); }
    void appuie(const char *bouton) const { objet<QAbstractButton>(bouton).click(); }
    QPoint place(int ligne, int col, int i) const {
        const QModelIndex index = grille(i).cells().index(ligne, col);
        grille(i).scrollTo(index);
        return grille(i).visualRect(index).center();
    }
    void clique(int ligne, int col, int i = 0) const {
        QTest::mouseClick(grille(i).viewport(), Qt::LeftButton, {}, place(ligne, col, i));
    }
    /// The timer strikes now; gives its next interval in ms.
    int tique() const {
        auto &timer = objet<QTimer>("Timer1");
        timer.start(0);
        waitUntil([&] { return timer.interval() != 0; });
        return timer.interval();
    }
    std::string panneau(int i) const {
        return objet<QLabel>(("StatusBar1_" + std::to_string(i)).c_str()).text().toStdString();
    }
    /// Practitioner as the title and the status bar name him, places of the ticks in his menu and the
    /// chairs', initials of what can be done with the selection ("*": is present), and the selection as the
    /// status bar tells it.
    std::string etat() const;
    /// Of each shown grid: its size, its second header, each text of a cell by row and column, the outline.
    std::string grilles() const;
    /// What was told since the last call.
    std::string dits() {
        QStringList textes;
        for (const auto &message : std::exchange(cabinet.messages.shown, {})) {
            textes << message.text;
        }
        return textes.join(u'\n').toStdString();
    }

    CabinetDEssai cabinet;
    Livre livre{cabinet.fichier(Base::RendezVous)};
    std::unique_ptr<FrmEntree> fenetre;
};
