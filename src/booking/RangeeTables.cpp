#include "booking/RangeeTables.h"

namespace {

/// The fields that are asked for by name, as they are spelled; a book may spell them otherwise.
const QStringList &nomsConnus() {
    static const QStringList noms{
        QStringLiteral("RefRDV"),       QStringLiteral("Nom"),           QStringLiteral("Prenom"),
        QStringLiteral("Telephone"),    QStringLiteral("Description"),   QStringLiteral("NumPatient"),
        QStringLiteral("Date1"),        QStringLiteral("HeureDebut"),    QStringLiteral("HeureFin"),
        QStringLiteral("NumPraticien"), QStringLiteral("Professionnel"), QStringLiteral("Fauteuil"),
        QStringLiteral("DateInv"),      QStringLiteral("Present")};
    return noms;
}

QString nomConnu(const QString &nom) {
    for (const QString &connu : nomsConnus()) {
        if (connu.compare(nom, Qt::CaseInsensitive) == 0) {
            return connu;
        }
    }
    return nom;
}

QJsonValue enJson(const Value &valeur) {
    if (const auto *entier = std::get_if<qint64>(&valeur.data())) {
        return {*entier};
    }
    if (const auto *reel = std::get_if<double>(&valeur.data())) {
        return {*reel};
    }
    return valeur.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(valeur.toText());
}

Value enValeur(const QJsonValue &json) {
    if (json.isString()) {
        return json.toString();
    }
    const qint64 entier = json.toInteger();
    return json.isDouble() ? (json == QJsonValue(entier) ? Value(entier) : Value(json.toDouble())) : Value();
}

} // namespace

Rangee LitRangee(Database &rdv, qint64 ref) {
    const Records rows =
        rdv.query(SqlText("Select * from RDV Where RefRDV = ") << nombre(ref) << " order by RefRDV");
    Rangee rangee;
    for (int i = 0; i < rows.fields().size() && !rows.isEmpty(); ++i) {
        rangee[nomConnu(rows.fields()[i])] = enJson(rows.at(0, i));
    }
    return rangee;
}

Fields ChampsAutres(const Rangee &voulue, const Rangee &autre) {
    Fields champs;
    for (auto champ = voulue.begin(); champ != voulue.end(); ++champ) {
        const bool existe = autre.isEmpty() || autre.contains(champ.key());
        if (existe && autre[champ.key()] != champ.value()) {
            champs.emplace_back(champ.key(), enValeur(champ.value()));
        }
    }
    return champs;
}

RendezVous RendezVousDe(const Rangee &rangee) {
    const auto lu = [&](const char *champ) { return enValeur(rangee[QLatin1StringView(champ)]); };
    RendezVous rdv{lu("RefRDV").toInteger(),
                   lu("Nom").toText(),
                   lu("Prenom").toText(),
                   lu("Telephone").toText(),
                   lu("Description").toText(),
                   lu("NumPatient").toText(),
                   lu("Date1").toDate(),
                   lu("HeureDebut").toTime(),
                   lu("HeureFin").toTime(),
                   lu("Present").toBoolean(),
                   long(lu("NumPraticien").toInteger()),
                   long(lu("Fauteuil").toInteger())};
    if (!rdv.Date1.isValid()) { // it lies where its key says
        rdv.Date1 = QDate::fromString(lu("DateInv").toText(), QStringLiteral("yyyyMMdd"));
    }
    return rdv;
}
