#include "journal/Ecriture.h"

namespace {

QString champ(const Rangee &rangee, QLatin1StringView nom) {
    return rangee[nom].toVariant().toString();
}

} // namespace

qint64 EcritureRDV::RefRDV() const {
    return (avant.isEmpty() ? apres : avant)[QLatin1StringView("RefRDV")].toInteger();
}

QString ClePatient(const QString &nom, const QString &prenom) {
    QString cle;
    for (const QChar lettre : (nom + u' ' + prenom).normalized(QString::NormalizationForm_KD)) {
        if (!lettre.isMark()) {
            cle += lettre;
        }
    }
    return cle.toUpper().simplified();
}

QString ClePatient(const Rangee &rangee) {
    return ClePatient(champ(rangee, QLatin1StringView("Nom")), champ(rangee, QLatin1StringView("Prenom")));
}

/// A row lies on its Date1 where that can be read.
QString CleJour(const Rangee &rangee) {
    constexpr int longueurDate = 10;
    const QDate jour =
        QDate::fromString(champ(rangee, QLatin1StringView("Date1")).left(longueurDate), Qt::ISODate);
    return jour.isValid() ? jour.toString(QStringLiteral("yyyyMMdd"))
                          : champ(rangee, QLatin1StringView("DateInv"));
}
