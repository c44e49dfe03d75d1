// Drawing a full week into the grid, against reading its rows with the database's own interface. The book
// opens its database for each action, so both sides open and close it.
#include "Livres.h"
#include "Mesure.h"
#include "schedule/Creneaux.h"
#include "grid/GrilleSemaine.h"
#include "platform/db/DateInverse.h"

#include <sqlite3.h>

namespace {

/// The expressions of the index RDVParJour, which is also in drawing order.
constexpr const char *semaine =
    "SELECT * FROM RDV WHERE CAST(NumPraticien AS INTEGER) = ?1 AND DateInv >= ?2 AND DateInv <= ?3"
    " AND CAST(Fauteuil AS INTEGER) = ?4 ORDER BY DateInv, HeureDebut";

struct Lecture {
    QByteArray fichier;
    QByteArray premier;
    QByteArray dernier;
    long praticien;
    long fauteuil;
};

/// Reads every column of every row; gives the number of rows.
int lit(const Lecture &lecture) {
    sqlite3 *base = nullptr;
    sqlite3_stmt *requete = nullptr;
    sqlite3_open_v2(lecture.fichier.constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_prepare_v2(base, semaine, -1, &requete, nullptr);
    sqlite3_bind_int64(requete, 1, lecture.praticien);
    sqlite3_bind_text(requete, 2, lecture.premier.constData(), -1, SQLITE_STATIC);
    sqlite3_bind_text(requete, 3, lecture.dernier.constData(), -1, SQLITE_STATIC);
    sqlite3_bind_int64(requete, 4, lecture.fauteuil);
    int lignes = 0;
    for (; sqlite3_step(requete) == SQLITE_ROW; ++lignes) {
        for (int col = 0; col < sqlite3_column_count(requete); ++col) {
            if (sqlite3_column_type(requete, col) == SQLITE_INTEGER) {
                sqlite3_column_int64(requete, col);
            } else {
                sqlite3_column_text(requete, col);
            }
        }
    }
    sqlite3_finalize(requete);
    sqlite3_close(base);
    return lignes;
}

Cotes prepare() {
    const auto carnet = std::make_shared<CarnetOuvert>();
    const VariablesGlobales &v = carnet->v;
    const QDate lundi = Lundi(v.txtNumJourEnCours);
    const Lecture lecture{v.chemins.realDatabase(v.CheminBaseRDV).toUtf8(), InverseDate(lundi).toUtf8(),
                          InverseDate(lundi.addDays(6)).toUtf8(), v.numPraticien(),
                          CLng(v.config.FauteuilCourant)};
    const auto grille = std::make_shared<GrilleSemaine>(*carnet->GrilleRDV, carnet->v);
    grille->Trace(); // its pictures are loaded then, as after the first week shown
    const int montres = carnet->rendezVousMontres();
    if (lit(lecture) != montres) {
        throw MesureImpossible(
            QStringLiteral("%1 rendez-vous dessinés pour %2 lus").arg(montres).arg(lit(lecture)));
    }
    return {[carnet, grille] { return millisecondes([&] { grille->Trace(); }); },
            [lecture] { return millisecondes([&] { lit(lecture); }); },
            [montres] { return QStringLiteral("%1 rendez-vous").arg(montres); }};
}

} // namespace

Mesure traceSemaine() {
    return {QStringLiteral("trace_semaine"), QStringLiteral("ms"), 201, 3, prepare};
}
