#pragma once

#include <QString>

/// The rows that one appointment covers in a grid, cut to the grid, and what each of them shows.
enum class FormeCellule { Aucune, Dbl, Top, Mid, Low };

struct Fourchette {
    int premiere = 0; ///< first drawn row, which carries the text
    int derniere = -1;
    bool coupeeEnHaut = false;
    bool coupeeEnBas = false;

    bool dessinee() const { return premiere <= derniere; }
    FormeCellule forme(int ligne) const;
};

/// Cuts rows `premiere` … `derniere` to a grid whose last (closing) row is `fermeture`, where nothing is
/// drawn. Nothing is drawn either for an appointment wholly outside or one that has no row.
Fourchette CoupeFourchette(int premiere, int derniere, int fermeture);

/// "Nom Prenom"
QString NomComplet(const QString &nom, const QString &prenom);

/// File name of an appointment's picture for a weekday (1 … 7), e.g. "TopBleu.bmp"; empty for
/// FormeCellule::Aucune.
QString NomImage(FormeCellule forme, int jour);
