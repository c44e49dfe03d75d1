#pragma once

#include "platform/ui/FlexGrid.h"
#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/Livre.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTimer>

/// The main window on a practice whose book holds what a test writes, worked and looked at as text.
struct Fenetre {
    Fenetre();
    /// As the program starts it, at 10:05 on Wednesday 2026-03-11.
    void ouvre();
    template <typename T>
    T &objet(const char *nom) const {
        return *fenetre->findChild<T *>(q(nom));
    }
    FlexGrid &grille(int i = 0) const {
        return objet<FlexGrid>(QByteArrayList{"GrilleRDV", "GrilleRDV02", "GrilleRDV03"}[i]);
    }
    /// The name of an action or a button; "docteur 1" and "fauteuil 1" are places in their menus; "clic 2,3"
    /// a cell of the week, "clic 2,1 1" and "clic 2,1 2" one of a day grid, "presse" and "double" the same
    /// with half a click and with two; "touche" and "maj" keys of the last grid clicked.
    void fait(const QString &geste);
    /// Row by row: what is done, then etat() and grilles() afterwards, which may be left out.
    void joue(const char *rangees);
    /// `dedans` happens in the dialog that a gesture opens, which is closed.
    void pendant(const char *geste, const std::function<void(QWidget &)> &dedans);
    /// The timer strikes now; gives its next interval in ms.
    int tique() const;

    /// Practitioner as the title and the status bar name him, places of the ticks in his menu and the chairs'
    /// ("-": hidden), initials of what can be done with the selection ("*": is present), and the selection as
    /// the status bar tells it.
    std::string etat() const;
    /// Of each shown grid: its size, its second header, each text of a cell by row and column, the outline.
    std::string grilles() const;
    /// What is fresh and what is not: the fifth panel, "!" before it when the last reading failed.
    std::string lecture() const;
    /// What was told since the last call.
    std::string dits();
    /// What was asked about odd places since the last call: the windows' titles. Each is answered by
    /// `quandMeme`.
    std::string questions();

    bool quandMeme = true;
    CabinetDEssai cabinet;
    Livre livre{cabinet.fichier(Base::RendezVous)};
    std::unique_ptr<FrmEntree> fenetre;

  private:
    int m_cliquee = 0;
    QTimer m_guet;
    QStringList m_questions;
};
