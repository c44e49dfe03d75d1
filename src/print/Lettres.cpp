#include "print/Lettres.h"

#include "print/NomsDocument.h"

namespace {

constexpr int cellulesDuModele = 4; ///< after the date, filled by the template

word::Verbs verbesCadre(const CadreLettre &cadre, const QString &date, const FichiersLettre &fichiers,
                        QDate aujourdhui) {
    return {word::Open{fichiers.modeleCadre}, word::Select{QStringLiteral("Début")},
            word::Cells{CellulesCadre(cadre, date, aujourdhui)}, word::SaveOver{fichiers.cadre},
            word::Close{}};
}

} // namespace

QList<std::optional<QString>> CellulesCadre(const CadreLettre &cadre, const QString &date, QDate aujourdhui) {
    QList<std::optional<QString>> cellules;
    for (const QString &ligne : cadre.lignes) {
        cellules << ligne.trimmed();
    }
    cellules << date.trimmed();
    for (int i = 0; i < cellulesDuModele; ++i) {
        cellules << std::nullopt;
    }
    for (const QString &champ : cadre.patient) {
        cellules << champ.trimmed();
    }
    for (const QString &champ : cadre.praticien) {
        cellules << champ;
    }
    return cellules << cadre.ville << aujourdhui.toString(QStringLiteral("dd/MM/yyyy"));
}

word::Verbs VerbesAbsence(const CadreLettre &cadre, const QString &date, const FichiersLettre &fichiers,
                          const QDateTime &maintenant) {
    return verbesCadre(cadre, date, fichiers, maintenant.date())
           << word::Open{fichiers.modele} << word::Reserve{NomsDocument(fichiers.lettre, maintenant)}
           << word::Save{} << word::Print{} << word::Close{};
}

word::Verbs VerbesAnnulation(const CadreLettre &cadre, const QString &date, const FichiersLettre &fichiers,
                             const QDateTime &maintenant) {
    return verbesCadre(cadre, date, fichiers, maintenant.date())
           << word::Open{fichiers.modele} << word::Reserve{NomsDocument(fichiers.lettre, maintenant)}
           << word::Save{} << word::Close{};
}

QString TexteProgression(int numero, int nombre) {
    return QStringLiteral("Lettre %1 sur %2").arg(numero).arg(nombre);
}

QString BilanLettres(int faites, int demandees, const QString &dossierPdf) {
    const QString s = faites > 1 ? QStringLiteral("s") : QString();
    const QString fait = dossierPdf.isEmpty() ? QStringLiteral("imprimée") : QStringLiteral("faite");
    QString bilan = QStringLiteral("%1 lettre%2 %3%2").arg(faites).arg(s, fait);
    if (faites < demandees) {
        bilan += QStringLiteral(" sur %1").arg(demandees);
    }
    if (dossierPdf.isEmpty()) {
        return bilan + u'.';
    }
    return bilan +
           QStringLiteral(". Ce poste n'a pas d'imprimante par défaut : un fichier PDF par lettre est "
                          "enregistré dans le dossier « %1 ».")
               .arg(dossierPdf);
}
