// A patient's appointments among 500,000, against the same rows through the database's own interface; both
// open and close the file.
#include "LectureNue.h"
#include "Livres.h"
#include "Mesure.h"
#include "search/RechercheTables.h"

namespace {

/// Reads every column of every row; gives the number of rows.
int litDuNom(const QByteArray &fichier, const QByteArray &nom, const QByteArray &prenom,
             const QByteArray &depuis) {
    sqlite3 *base = nullptr;
    sqlite3_stmt *requete = nullptr;
    sqlite3_open_v2(fichier.constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    sqlite3_prepare_v2(base,
                       "SELECT * FROM RDV WHERE upper(Nom) = upper(?1) AND Prenom = ?2"
                       " AND Date1 >= ?3 ORDER BY Date1, HeureDebut",
                       -1, &requete, nullptr);
    sqlite3_bind_text(requete, 1, nom.constData(), -1, SQLITE_STATIC);
    sqlite3_bind_text(requete, 2, prenom.constData(), -1, SQLITE_STATIC);
    sqlite3_bind_text(requete, 3, depuis.constData(), -1, SQLITE_STATIC);
    const int lignes = litNu(requete);
    sqlite3_close(base);
    return lignes;
}

/// An accented name, all his appointments.
Paire rechercheRDV() {
    const Environnement env = environnement(livreCourant());
    const QByteArray fichier = fichierRDV(env).toUtf8();
    Database carnet = env.ouvreCarnet();
    const Records rows = carnet.query(
        SqlText("Select Nom, Prenom from RDV Where Nom like '*É*' And Prenom like '*é*' order by RefRDV"));
    const CritereRDV critere{rows.first()[u"Nom"].toText(), rows.first()[u"Prenom"].toText(),
                             QDate(1900, 1, 1)};
    const auto cherche = [env, critere] {
        Database base = env.ouvreCarnet();
        return RendezVousDuPatient(base, critere);
    };
    const auto litLesMemes = [fichier, nom = critere.nom.toUtf8(), prenom = critere.prenom.toUtf8()] {
        return litDuNom(fichier, nom, prenom, "1900-01-01");
    };
    const RDVsTrouves trouves = cherche();
    const auto combien = int(trouves.liste.size()) + trouves.horsHoraires;
    if (combien == 0 || combien != litLesMemes()) {
        throw MesureImpossible(
            QStringLiteral("%1 rendez-vous trouvés pour %2 lus").arg(combien).arg(litLesMemes()));
    }
    return {[cherche, combien](auto &chiffres) {
                chiffres["rendez-vous"] = combien;
                return millisecondes(cherche);
            },
            [litLesMemes](auto &) { return millisecondes(litLesMemes); }};
}

} // namespace

std::vector<Mesure> mesuresRecherche() {
    return {{.nom = "recherche_rdv", .repetitions = 201, .prepare = rechercheRDV, .rapportMax = 2}};
}
