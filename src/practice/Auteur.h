#pragma once

#include <QDateTime>
#include <QString>

/// Who writes, when and where: what the history keeps of each writing.
struct Auteur {
    QDateTime quand;
    QString poste;       ///< the workstation's name
    QString utilisateur; ///< whoever is logged in there
};
