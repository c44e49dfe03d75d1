#pragma once

#include "platform/db/Database.h"

#include <QList>

/// One row of the suite's practitioner list.
struct Praticien {
    qint64 codeprat = 0;
    QString nom;
    QString PreNom;

    /// The number as the book keeps it: "01".
    QString numero() const { return u'0' + QString::number(codeprat); }
    /// "docteur ", surname, first name: the caption of the practitioner's menu item.
    QString libelle() const { return QStringLiteral("docteur %1 %2").arg(nom, PreNom); }
};

/// In table order.
QList<Praticien> Praticiens(Database &param);
