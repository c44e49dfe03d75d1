// The patient lookup on 100,000 patients: from a changed search text to the painted list, against the whole
// query through the database's own interface, its file opened and closed as the lookup does.
#include "LectureNue.h"
#include "Livres.h"
#include "Mesure.h"
#include "patients/RecherchePatient.h"
#include "platform/db/SqlDialect.h"
#include "platform/db/SqliteFunctions.h"

#include <QImage>
#include <QLineEdit>
#include <QTableView>

namespace {

struct Recherche {
    Environnement env = environnement(livrePatients());
    RecherchePatient composant;
    QLineEdit &TxtPatient = *composant.findChild<QLineEdit *>(QStringLiteral("TxtPatient"));
    QTableView &Grille1 = *composant.findChild<QTableView *>(QStringLiteral("Grille1"));
    QImage image;

    Recherche() {
        Database patients = env.ouvrePatients();
        CreeIndexPatients(patients);
        composant.utilise(env);
        composant.resize(420, 320);
        composant.setAttribute(Qt::WA_DontShowOnScreen);
        composant.show();
        image = QImage(Grille1.size(), QImage::Format_RGB32);
    }
    double tape(const QString &texte) {
        TxtPatient.clear();
        return millisecondes([&] {
            TxtPatient.setText(texte);
            Grille1.render(&image);
        });
    }
    /// All that the list holds once somebody has walked to its end.
    int listes() const {
        QAbstractItemModel &liste = *Grille1.model();
        while (liste.canFetchMore({})) {
            liste.fetchMore({});
        }
        return liste.rowCount();
    }
    /// Reads the four listed columns of every row; gives the number of rows.
    int lit(const QByteArray &sql) const {
        sqlite3 *base = nullptr;
        sqlite3_stmt *requete = nullptr;
        const QString fichier =
            env.chemins.realDatabase(env.CheminFichiers + QStringLiteral("\\Patient.mdb"));
        sqlite3_open_v2(fichier.toUtf8().constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                        nullptr);
        registerSqliteFunctions(base);
        sqlite3_prepare_v2(base, sql.constData(), -1, &requete, nullptr);
        const int lignes = litNu(requete);
        sqlite3_close(base);
        return lignes;
    }
};

Paire paire(const QString &texte, const QString &condition) {
    const auto recherche = std::make_shared<Recherche>();
    const QByteArray sql =
        SqlDialect::sqlite(QStringLiteral("select nom, PreNom, cptid, DateNais from TabPat where ") +
                           condition)
            .toUtf8();
    recherche->tape(texte);
    const int listes = recherche->listes();
    if (listes == 0 || listes != recherche->lit(sql)) {
        throw MesureImpossible(
            QStringLiteral("%1 patients listés pour %2 lus").arg(listes).arg(recherche->lit(sql)));
    }
    return {[=](auto &chiffres) {
                chiffres["patients"] = listes;
                return recherche->tape(texte);
            },
            [=](auto &) { return millisecondes([&] { recherche->lit(sql); }); }};
}

Paire parNom(const QString &debut) {
    return paire(
        debut, QStringLiteral("nom like '%1*' order by TexteTri(nom) asc, TexteTri(prenom) asc").arg(debut));
}

} // namespace

std::vector<Mesure> mesuresFrappe() {
    const auto frappe1 = [] { return parNom(QStringLiteral("D")); };
    const auto frappe3 = [] { return parNom(QStringLiteral("DUP")); };
    const auto listeNumero = [] { return paire(QStringLiteral("12345"), QStringLiteral("cptid = 12345")); };
    return {{.nom = "frappe_1", .repetitions = 31, .prepare = frappe1, .rapportMax = 0.35},
            {.nom = "frappe_3", .repetitions = 61, .prepare = frappe3, .rapportMax = 4, .valeurMax = 16},
            {.nom = "liste_numero", .repetitions = 101, .prepare = listeNumero, .valeurMax = 2}};
}
