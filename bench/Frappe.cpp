// The patient lookup on 100,000 patients: from a changed search text to the painted list, against the same
// query through the database's own interface, which opens and closes its file as the lookup does.
#include "Livres.h"
#include "Mesure.h"
#include "start/VariablesGlobales.h"
#include "patients/RecherchePatient.h"
#include "platform/db/SqlDialect.h"
#include "platform/db/SqliteFunctions.h"

#include <QImage>
#include <QLineEdit>
#include <QTableView>
#include <sqlite3.h>

namespace {

struct Recherche {
    MessagesImpossibles messages;
    VariablesGlobales v;
    RecherchePatient composant;
    QLineEdit *TxtPatient = nullptr;
    QTableView *Grille1 = nullptr;
    QImage image;
    QByteArray fichier;
    QByteArray requete;

    explicit Recherche(const QString &dialecte) : requete(SqlDialect::sqlite(dialecte).toUtf8()) {
        v.messages = &messages;
        v.CheminFichiers = livrePatients();
        fichier = v.chemins.realDatabase(v.CheminFichiers + QStringLiteral("\\Patient.mdb")).toUtf8();
        Database patients = v.ouvrePatients();
        CreeIndexPatients(patients);
        composant.utilise(v);
        composant.resize(420, 320);
        composant.setAttribute(Qt::WA_DontShowOnScreen);
        composant.show();
        TxtPatient = composant.findChild<QLineEdit *>(QStringLiteral("TxtPatient"));
        Grille1 = composant.findChild<QTableView *>(QStringLiteral("Grille1"));
        image = QImage(Grille1->size(), QImage::Format_RGB32);
    }

    double tape(const QString &texte) {
        TxtPatient->clear();
        return millisecondes([&] {
            TxtPatient->setText(texte);
            Grille1->render(&image);
        });
    }

    /// All that the list holds once somebody has walked to its end.
    int listes() const {
        QAbstractItemModel &liste = *Grille1->model();
        while (liste.canFetchMore({})) {
            liste.fetchMore({});
        }
        return liste.rowCount();
    }

    /// Reads the four listed columns of every row.
    int lit() const {
        sqlite3 *base = nullptr;
        sqlite3_stmt *instruction = nullptr;
        sqlite3_open_v2(fichier.constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
        registerSqliteFunctions(base);
        sqlite3_prepare_v2(base, requete.constData(), -1, &instruction, nullptr);
        int lignes = 0;
        for (; sqlite3_step(instruction) == SQLITE_ROW; ++lignes) {
            for (int col = 0; col < sqlite3_column_count(instruction); ++col) {
                sqlite3_column_text(instruction, col);
            }
        }
        sqlite3_finalize(instruction);
        sqlite3_close(base);
        return lignes;
    }
};

Cotes cotes(const QString &texte, const QString &dialecte, bool avecReference) {
    const auto recherche = std::make_shared<Recherche>(dialecte);
    recherche->tape(texte);
    const int listes = recherche->listes();
    if (listes == 0 || listes != recherche->lit()) {
        throw MesureImpossible(
            QStringLiteral("%1 patients listés pour %2 lus").arg(listes).arg(recherche->lit()));
    }
    Prise reference;
    if (avecReference) {
        reference = [recherche] { return millisecondes([&] { recherche->lit(); }); };
    }
    return {[=] { return recherche->tape(texte); }, reference,
            [listes] { return QStringLiteral("%1 patients").arg(listes); }};
}

Cotes parNom(const QString &debut) {
    return cotes(debut,
                 QStringLiteral("select nom, PreNom, cptid, DateNais from TabPat where nom like '%1*'"
                                "order by TexteTri(nom) asc, TexteTri(prenom) asc")
                     .arg(debut),
                 true);
}

} // namespace

Mesure frappe1() {
    return {QStringLiteral("frappe_1"), QStringLiteral("ms"), 31, 4,
            [] { return parNom(QStringLiteral("D")); }};
}

Mesure frappe3() {
    return {QStringLiteral("frappe_3"), QStringLiteral("ms"), 61, 4,
            [] { return parNom(QStringLiteral("DUP")); }};
}

Mesure listeNumero() {
    return {QStringLiteral("liste_numero"), QStringLiteral("ms"), 101, 2, [] {
                return cotes(
                    QStringLiteral("12345"),
                    QStringLiteral("select nom, PreNom, cptid, DateNais from TabPat where cptid = 12345"),
                    false);
            }};
}
