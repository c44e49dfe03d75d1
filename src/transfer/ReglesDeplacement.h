#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// The databases that move together, as the catalogue spells them. Those that the suite and this desk hand
/// over to each other stay with the desk.
QStringList BasesDuCabinet();
/// What lies beside them and stays in a folder, which may become another.
QStringList DocumentsDesBases();

/// Fields of a day or an hour, and those that say yes or no: files keep no such types.
bool EstDateOuHeure(const QString &champ);
bool EstOuiNon(const QString &champ);

struct TableDeplacee {
    QString base;
    QString table;
    qint64 lignes = 0;
};

/// A value that its field is not made for.
struct ValeurInsolite {
    QString base;
    QString table;
    qint64 ligne = 0;
    QString champ;
    QString valeur;
    bool gardee = true; ///< false: the destination cannot hold it
};

/// What came of a move.
struct BilanDeplacement {
    QList<TableDeplacee> tables;
    QList<ValeurInsolite> insolites; ///< the first of them
    qint64 nombreInsolites = 0;
    QStringList absentes; ///< databases that there were none of
    QStringList laisses;  ///< what is no table
    QStringList documents;
    QString aDire;  ///< what the book's own upgrade has to tell
    QString ancien; ///< CheminBase before and after
    QString nouveau;
};

/// How many odd values are told one by one.
constexpr int insolitesDits = 20;

/// Why nothing was moved, where there are values that the destination cannot hold.
QString RefusInsolites(const QList<ValeurInsolite> &refusees, qint64 combien);
/// The report of a move that was made.
QString TexteBilan(const BilanDeplacement &bilan);
/// Of a move that was not: `cause` is a sentence, `chemin` where the practice still is.
QString TexteEchec(const QString &cause, const QString &chemin);
