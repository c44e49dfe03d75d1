#pragma once

#include <QDateTime>
#include <QStringList>

/// What the command line asks for.
struct Options {
    QString chemin;       ///< the path database; never empty
    QString lecteurs;     ///< drives, "D=/srv/cabinet;E=/srv/base"
    QDateTime maintenant; ///< where the clock starts; invalid: the machine's
    QString capture;      ///< picture to write before quitting; empty: run on
    QString verrou; ///< the program is the second process of a test of this file's locks; empty: it is not
    QString versServeur;  ///< where to move the practice; empty: nowhere
    QString versFichiers; ///< the same, back
    QString rejoint;      ///< whose practice this desk is to use from now on
    QString
        moitie; ///< the half of the screen that the window takes, "gauche" or "droite"; empty: its own size
    bool aide = false;
    QString erreur; ///< why the line is refused, in French; empty when it is not
};

/// Reads the arguments (program name included); environment variables and the fixed place of the path
/// database fill what is not given.
Options LitOptions(const QStringList &arguments);

/// The help text.
QString AideOptions();
