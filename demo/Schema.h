#pragma once

#include "platform/db/TableDef.h"

#include <QString>
#include <vector>

/// Where the suite keeps a database file.
enum class Emplacement {
    Cabinet,       ///< the folder of the practice itself (the path database)
    Racine,        ///< LeChemin\Fichiers
    BaseDesDonnees ///< CheminBase\Fichiers
};

struct SchemaTable {
    QString nom;
    std::vector<FieldDef> champs;
    std::vector<FieldDef> ajouts = {}; ///< fields that older copies lack; the start-up adds them
};

struct SchemaBase {
    QString fichier;
    Emplacement emplacement;
    std::vector<SchemaTable> tables;
};

/// Every database of the catalogue.
enum class Base {
    Chemins,
    RendezVous,
    PatientTransmis,
    Historique,
    Parametres,
    Patients,
    PatientsCrees,
    Actes,
    ParametresImpression,
    ArchiveVide
};
inline constexpr Base toutesLesBases[] = {Base::Chemins,       Base::RendezVous, Base::PatientTransmis,
                                          Base::Historique,    Base::Parametres, Base::Patients,
                                          Base::PatientsCrees, Base::Actes,      Base::ParametresImpression,
                                          Base::ArchiveVide};

const SchemaBase &schema(Base base);

enum class Forme {
    Actuelle,
    Ancienne ///< without the fields that the start-up adds
};

/// Creates the database `chemin` with its empty tables. Throws DbError; an existing file is refused.
void creeBase(const QString &chemin, const SchemaBase &schema, Forme forme = Forme::Actuelle);
