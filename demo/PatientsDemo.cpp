#include "PatientsDemo.h"

#include "Noms.h"
#include "platform/db/Database.h"

namespace {

constexpr int majorite = 18;

QString chiffres(int nombre, int largeur) {
    return QStringLiteral("%1").arg(nombre, largeur, 10, QLatin1Char('0'));
}

QString dateEnTexte(QDate date) {
    return date.toString(u"dd/MM/yyyy");
}

QString telephone(QStringView indicatif, Hasard &hasard) {
    const QString suite = chiffres(hasard.entier(10000), 4);
    return QStringLiteral("%1 %2 %3").arg(indicatif, suite.first(2), suite.last(2));
}

/// Corsica got its two letters for births from 1976 on; 99 is a birth abroad.
QString departement(QDate naissance, Hasard &hasard) {
    const int tirage = hasard.entier(1000);
    if (tirage < 600) {
        return QStringLiteral("56");
    }
    if (tirage < 640) {
        return QStringLiteral("99");
    }
    const int numero = tirage < 655 ? 20 : hasard.entre(1, 95);
    if (numero != 20) {
        return chiffres(numero, 2);
    }
    if (naissance.year() < 1976) {
        return QStringLiteral("20");
    }
    return hasard.chance(500) ? QStringLiteral("2A") : QStringLiteral("2B");
}

QString numeroSecu(const PatientDemo &patient, Hasard &hasard) {
    QString numero = patient.femme ? QStringLiteral("2") : QStringLiteral("1");
    numero += patient.naissance.toString(u"yyMM") + departement(patient.naissance, hasard);
    numero += chiffres(hasard.entre(1, 490), 3);
    numero += chiffres(hasard.entre(1, 400), 3);
    return numero + cleSecu(numero);
}

void emmenage(PatientDemo &patient, Hasard &hasard) {
    const Noms::Commune &commune = hasard.choix(Noms::communes());
    const int numero = hasard.entre(1, 120);
    patient.adresse1 = QStringLiteral("%1, %2").arg(numero).arg(hasard.choix(Noms::rues()));
    if (hasard.chance(150)) {
        patient.adresse2 = hasard.choix(Noms::complements()).toString();
    }
    patient.codePostal = commune.codePostal.toString();
    patient.ville = commune.ville.toString();
    if (hasard.chance(850)) {
        patient.telephone = telephone(u"02 61 91", hasard);
    }
}

QString famille(Hasard &hasard) {
    const QString nom = hasard.choix(Noms::familles()).toString();
    return hasard.chance(50) ? nom + u'-' + hasard.choix(Noms::familles()).toString() : nom;
}

QString titre(const PatientDemo &patient, int age, Hasard &hasard) {
    if (age < majorite) {
        return QStringLiteral("Enfant");
    }
    if (!patient.femme) {
        return QStringLiteral("M.");
    }
    return age < 30 && hasard.chance(500) ? QStringLiteral("Mlle") : QStringLiteral("Mme");
}

/// One patient; with `parent`, somebody of the same household.
PatientDemo patient(const PatientDemo *parent, QDate aujourdhui, Hasard &hasard) {
    PatientDemo nouveau;
    if (parent != nullptr) {
        nouveau = *parent;
        nouveau.portable.clear();
    } else {
        nouveau.nom = famille(hasard);
        emmenage(nouveau, hasard);
    }
    const bool enfant = hasard.chance(parent != nullptr ? 600 : 120);
    const int age = enfant ? hasard.entre(4, majorite - 1) : hasard.entre(majorite, 92);
    nouveau.naissance = aujourdhui.addYears(-age).addDays(-hasard.entier(365));
    nouveau.femme = hasard.chance(520);
    const bool recent = nouveau.naissance.year() >= 1975;
    nouveau.prenom =
        hasard.choix(nouveau.femme ? Noms::prenomsFemmes(recent) : Noms::prenomsHommes(recent)).toString();
    nouveau.titre = titre(nouveau, age, hasard);
    if (!enfant && hasard.chance(700)) {
        nouveau.portable = telephone(u"06 39 98", hasard);
    }
    nouveau.numeroSS = hasard.chance(970) ? numeroSecu(nouveau, hasard) : QString();
    nouveau.nonHonore = hasard.chance(20);
    return nouveau;
}

Fields ficheDe(const PatientDemo &p) {
    Fields fiche{{QStringLiteral("nom"), p.nom},
                 {QStringLiteral("PreNom"), p.prenom},
                 {QStringLiteral("Titre"), p.titre},
                 {QStringLiteral("adresse1"), p.adresse1},
                 {QStringLiteral("adresse2"), p.adresse2},
                 {QStringLiteral("CodePostal"), p.codePostal},
                 {QStringLiteral("ville"), p.ville},
                 {QStringLiteral("telephone"), p.telephone},
                 {QStringLiteral("Portable"), p.portable},
                 {QStringLiteral("DateNais"), dateEnTexte(p.naissance)},
                 {QStringLiteral("NumeroSS"), p.numeroSS},
                 {QStringLiteral("cmu"), QStringLiteral("N")},
                 {QStringLiteral("RDVNonHonoré"), p.nonHonore ? Value(QStringLiteral("O")) : Value()}};
    for (const char *vide : {"Profession", "telephone1", "NomJF", "CAM", "medecin", "AdrPar", "mutuelle"}) {
        fiche.emplace_back(QString::fromUtf8(vide), QString());
    }
    for (const char *zero : {"TauxCam", "TauxMut", "PenChargeTp", "Option", "Filler1", "Filler2"}) {
        fiche.emplace_back(QString::fromUtf8(zero), 0);
    }
    return fiche;
}

} // namespace

QString cleSecu(const QString &treize) {
    QString nombre = treize;
    nombre.replace(QStringLiteral("2A"), QStringLiteral("19"))
        .replace(QStringLiteral("2B"), QStringLiteral("18"));
    return chiffres(97 - int(nombre.toLongLong() % 97), 2);
}

std::vector<PatientDemo> inventePatients(int combien, QDate aujourdhui, Hasard &hasard) {
    std::vector<PatientDemo> patients;
    patients.reserve(size_t(combien));
    for (int i = 0; i < combien; ++i) {
        const bool memeFoyer = i > 0 && hasard.chance(250);
        patients.push_back(patient(memeFoyer ? &patients.back() : nullptr, aujourdhui, hasard));
    }
    return patients;
}

void ecritPatients(Database &base, std::vector<PatientDemo> &patients, QDate aujourdhui, Hasard &hasard) {
    Transaction transaction(base);
    for (PatientDemo &p : patients) {
        Fields fiche = ficheDe(p);
        fiche.emplace_back(QStringLiteral("DateDerLg"), dateEnTexte(aujourdhui.addDays(-hasard.entier(700))));
        fiche.emplace_back(QStringLiteral("MontantHis"), hasard.entier(80000) / 100.0);
        p.numero = base.insert(QStringLiteral("TabPat"), fiche);
    }
    transaction.commit();
}

int ecritActes(Database &base, const std::vector<PatientDemo> &patients, const PatientDemo &aTraiter,
               Hasard &hasard) {
    Transaction transaction(base);
    int numero = 0;
    for (const PatientDemo &p : patients) {
        const bool attendu = &p == &aTraiter;
        const int combien = hasard.entre(attendu ? 1 : 0, 4);
        for (int i = 1; i <= combien; ++i) {
            const bool aFaire = i == combien && (attendu || hasard.chance(300));
            const Noms::Acte &acte = hasard.choix(Noms::actes());
            base.insert(QStringLiteral("Actes"), {{QStringLiteral("NumActe"), ++numero},
                                                  {QStringLiteral("NumPatient"), p.numero},
                                                  {QStringLiteral("AFaire"), aFaire ? 1 : 0},
                                                  {QStringLiteral("Libellé"), acte.libelle.toString()},
                                                  {QStringLiteral("CodeSecu"), acte.codeSecu.toString()},
                                                  {QStringLiteral("Coefficient"), acte.coefficient}});
        }
    }
    transaction.commit();
    return numero;
}
