#pragma once

#include "platform/db/Database.h"

#include <QList>
#include <optional>

/// One row of the suite's practitioner list.
struct Praticien {
    qint64 codeprat = 0;
    QString nom;
    QString PreNom;

    /// "docteur ", surname, first name: the caption of the practitioner's menu item.
    QString libelle() const { return QStringLiteral("docteur %1 %2").arg(nom, PreNom); }
};

/// In table order.
QList<Praticien> Praticiens(Database &param);

/// Whether the practitioner works with the word processor; nothing when there is no such practitioner.
std::optional<bool> AvecWordDuPraticien(Database &param, long praticien);

/// Number of practitioners.
int NombreDePraticiens(Database &param);
