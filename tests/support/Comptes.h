#pragma once

#include "platform/db/Database.h"
#include "support/Texte.h"

#include <QMap>

/// The thirteen fields of each appointment of a book or an archive, by RefRDV; one that stands there twice is
/// told by its number's other sign.
using Comptes = QMap<qint64, std::vector<Value>>;

inline Comptes comptes(const QString &fichier) {
    Database base = Database::open(fichier);
    const Records rows = base.query(
        SqlText("Select RefRDV, Nom, Prenom, Telephone, Description, NumPatient, Date1, HeureDebut, "
                "HeureFin, NumPraticien, Professionnel, Present, DateInv from RDV"));
    Comptes tous;
    for (int row = 0; row < rows.count(); ++row) {
        const qint64 ref = rows.at(row, 0).toInteger();
        std::vector<Value> &champs = tous[tous.contains(ref) ? -ref : ref];
        for (int i = 0; i < rows.fields().size(); ++i) {
            champs.push_back(rows.at(row, i));
        }
    }
    return tous;
}
