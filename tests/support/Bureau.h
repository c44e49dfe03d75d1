#pragma once

#include "start/FrmEntree.h"
#include "support/CabinetDEssai.h"
#include "support/Fenetre.h"
#include "support/Livre.h"
#include "support/Serveur.h"

#include <memory>

/// A practice whose book is on a server, the rest in files.
class CabinetServeur {
  public:
    explicit CabinetServeur(const Serveur &serveur);
    /// The world of a workstation that reaches the server at `url`.
    Environnement poste(const QString &url, RecordingMessages &messages);

    CabinetDEssai fichiers;
    Livre livre; ///< the book, as another client writes it

  private:
    QString m_dossier;
};

/// One workstation: its main window on the week of Wednesday 2026-03-11.
struct Bureau {
    Bureau(CabinetServeur &cabinet, const QString &url);

    template <typename T>
    T &objet(const char *nom) const {
        return *fenetre->findChild<T *>(q(nom));
    }
    const FlexGrid &grille() const { return objet<FlexGrid>("GrilleRDV"); }
    /// The texts of the week's appointments, in the order of the grid.
    QString montre() const;
    QString barre() const { return objet<QLabel>("StatusBar1_5").text(); }
    bool montreDans(const QString &nom, std::chrono::milliseconds limite) const;
    bool barreDans(const QString &texte, std::chrono::milliseconds limite) const;
    void clique(int ligne, int colonne) const;

    RecordingMessages messages;
    Environnement env;
    std::unique_ptr<FrmEntree> fenetre;
};
