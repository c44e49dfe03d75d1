#include "transfer/ReglesDeplacement.h"

#include <QLocale>

namespace {

QString enLettres(qint64 nombre) {
    return QLocale(QLocale::French, QLocale::France).toString(nombre);
}

QString ligneInsolite(const ValeurInsolite &insolite) {
    return QStringLiteral("  %1, table %2, ligne %3, champ %4 : « %5 »")
        .arg(insolite.base, insolite.table)
        .arg(insolite.ligne)
        .arg(insolite.champ, insolite.valeur);
}

QStringList lignesInsolites(const QList<ValeurInsolite> &insolites, qint64 combien) {
    QStringList lignes;
    for (const ValeurInsolite &insolite : insolites) {
        lignes << ligneInsolite(insolite);
    }
    if (combien > insolites.size()) {
        lignes << QStringLiteral("  et %1 autres").arg(enLettres(combien - insolites.size()));
    }
    return lignes;
}

/// "Titre :" and what it announces, nothing where there is nothing.
QStringList paragraphe(const QString &titre, const QStringList &lignes) {
    return lignes.isEmpty() ? QStringList() : QStringList{{}, titre} + lignes;
}

QStringList enRetrait(const QStringList &noms) {
    QStringList lignes;
    for (const QString &nom : noms) {
        lignes << QStringLiteral("  ") + nom;
    }
    return lignes;
}

} // namespace

QStringList BasesDuCabinet() {
    return {QStringLiteral("Tavelin.mdb"), QStringLiteral("Param.mdb"),
            QStringLiteral("Patient.mdb"), QStringLiteral("ListingPatientsCrees.mdb"),
            QStringLiteral("Actes.mdb"),   QStringLiteral("ParamImpression.mdb")};
}

QStringList DocumentsDesBases() {
    return {QStringLiteral("LISTINGABSENT.doc"), QStringLiteral("ZeroRDV.mdb")};
}

bool EstDateOuHeure(const QString &champ) {
    return champ.compare(QStringLiteral("Date1"), Qt::CaseInsensitive) == 0 ||
           champ.startsWith(QStringLiteral("Heure"), Qt::CaseInsensitive);
}

bool EstOuiNon(const QString &champ) {
    static const QStringList noms{QStringLiteral("Professionnel"), QStringLiteral("Present"),
                                  QStringLiteral("DefaultConfig"), QStringLiteral("Word")};
    return noms.contains(champ, Qt::CaseInsensitive);
}

QString RefusInsolites(const QList<ValeurInsolite> &refusees, qint64 combien) {
    const QStringList titre{
        QStringLiteral("Ces valeurs ne peuvent pas être gardées là-bas. Corrigez-les, puis recommencez :")};
    return (titre + lignesInsolites(refusees, combien)).join(u'\n');
}

QString TexteBilan(const BilanDeplacement &bilan) {
    QStringList lignes{QStringLiteral("Le carnet est déplacé. Chaque table a été relue et comparée :")};
    for (const TableDeplacee &table : bilan.tables) {
        lignes << QStringLiteral("  %1, table %2 : %3 lignes")
                      .arg(table.base, table.table, enLettres(table.lignes));
    }
    lignes += paragraphe(QStringLiteral("Gardées telles quelles, bien qu'insolites :"),
                         lignesInsolites(bilan.insolites, bilan.nombreInsolites));
    lignes += paragraphe(QStringLiteral("Absentes, donc laissées de côté :"), enRetrait(bilan.absentes));
    lignes += paragraphe(QStringLiteral("Restées en arrière, car ce ne sont pas des tables :"),
                         enRetrait(bilan.laisses));
    if (!bilan.aDire.isEmpty()) {
        lignes << QString() << bilan.aDire;
    }
    lignes += paragraphe(QStringLiteral("Documents copiés :"), enRetrait(bilan.documents));
    lignes += paragraphe(QStringLiteral("L'ancien carnet est intact, mais ce poste ne s'en sert plus :"),
                         {QStringLiteral("  CheminBase était « %1 »").arg(bilan.ancien),
                          QStringLiteral("  CheminBase est   « %1 »").arg(bilan.nouveau)});
    lignes += paragraphe(
        QStringLiteral("Avant de reprendre le travail, faites suivre chaque autre poste : ce qu'il "
                       "écrirait encore dans l'ancien carnet serait perdu."),
        {QStringLiteral("Le déplacement prend effet au prochain lancement.")});
    return lignes.join(u'\n');
}

QString TexteEchec(const QString &cause, const QString &chemin) {
    return QStringLiteral("Rien n'est déplacé. %1\nLe cabinet reste où il est : « %2 ».").arg(cause, chemin);
}
