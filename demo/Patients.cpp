#include "Patients.h"

#include "Textes.h"
#include "patients/NumeroSecu.h"
#include "platform/db/Database.h"

namespace {

/// What people who live together share.
struct Foyer {
    QString nom;
    QString telephone;
    Fields adresse;
};

QString chiffres(int nombre, int largeur) {
    return QStringLiteral("%1").arg(nombre, largeur, 10, QLatin1Char('0'));
}

/// In one of the ranges that the numbering plan keeps for fiction, so that nobody's telephone rings.
QString numeroFictif(QStringView debut, Hasard &hasard) {
    const QString suite = chiffres(hasard.entier(10000), 4);
    return QStringLiteral("%1 %2 %3").arg(debut, suite.first(2), suite.last(2));
}

Foyer foyer(Hasard &hasard) {
    const QStringList &familles = textes(QStringLiteral("familles"));
    Foyer nouveau;
    nouveau.nom = hasard.choix(familles);
    if (hasard.chance(50)) {
        nouveau.nom += u'-' + hasard.choix(familles);
    }
    nouveau.telephone = hasard.chance(850) ? numeroFictif(u"02 61 91", hasard) : QString();
    const QString &commune = hasard.choix(textes(QStringLiteral("communes")));
    const QString &rue = hasard.choix(textes(QStringLiteral("rues")));
    const QString complement =
        hasard.chance(150) ? hasard.choix(textes(QStringLiteral("compléments"))) : QString();
    nouveau.adresse = {
        {QStringLiteral("adresse1"), QStringLiteral("%1, %2").arg(hasard.entre(1, 120)).arg(rue)},
        {QStringLiteral("adresse2"), complement},
        {QStringLiteral("CodePostal"), commune.section(u' ', 0, 0)},
        {QStringLiteral("ville"), commune.section(u' ', 1)}};
    return nouveau;
}

QString numeroSecu(QDate naissance, bool femme, Hasard &hasard) {
    const QString &departement = hasard.choix(textes(QStringLiteral("départements")));
    QString numero = (femme ? u'2' : u'1') + naissance.toString(u"yyMM") + departement;
    numero += chiffres(hasard.entre(1, 490), 3);
    numero += chiffres(hasard.entre(1, 400), 3);
    return numero + CleNumeroSecu(numero);
}

/// So that no child is called Raymond.
QString prenom(QDate naissance, bool femme, Hasard &hasard) {
    const QString avant = naissance.year() < 1975 ? QStringLiteral(" avant 1975") : QString();
    return hasard.choix(textes((femme ? QStringLiteral("femmes") : QStringLiteral("hommes")) + avant));
}

QString titre(int age, bool femme) {
    if (age < 18) {
        return QStringLiteral("Enfant");
    }
    return !femme ? QStringLiteral("M.") : age < 25 ? QStringLiteral("Mlle") : QStringLiteral("Mme");
}

PatientDemo ecritPatient(Database &base, const Foyer &foyer, QDate aujourdhui, Hasard &hasard) {
    const auto texteDe = [](QDate jour) { return jour.toString(u"dd/MM/yyyy"); };
    const int age = hasard.chance(250) ? hasard.entre(4, 17) : hasard.entre(18, 92);
    const bool femme = hasard.chance(520);
    const QDate naissance = aujourdhui.addYears(-age).addDays(-hasard.entier(365));
    const QString portable = age > 15 && hasard.chance(700) ? numeroFictif(u"06 39 98", hasard) : QString();
    PatientDemo patient{0, foyer.nom, prenom(naissance, femme, hasard),
                        portable.isEmpty() ? foyer.telephone : portable, age < 18};
    const QString secu = hasard.chance(970) ? numeroSecu(naissance, femme, hasard) : QString();
    const Value nonHonore = hasard.chance(20) ? Value(QStringLiteral("O")) : Value();
    const QDate derniereLigne = aujourdhui.addDays(-hasard.entier(700));
    Fields fiche{{QStringLiteral("nom"), patient.nom},
                 {QStringLiteral("PreNom"), patient.prenom},
                 {QStringLiteral("Titre"), titre(age, femme)},
                 {QStringLiteral("telephone"), foyer.telephone},
                 {QStringLiteral("Portable"), portable},
                 {QStringLiteral("DateNais"), texteDe(naissance)},
                 {QStringLiteral("NumeroSS"), secu},
                 {QStringLiteral("cmu"), QStringLiteral("N")},
                 {QStringLiteral("RDVNonHonoré"), nonHonore},
                 {QStringLiteral("DateDerLg"), texteDe(derniereLigne)},
                 {QStringLiteral("MontantHis"), hasard.entier(80000) / 100.0}};
    fiche.insert(fiche.end(), foyer.adresse.begin(), foyer.adresse.end());
    for (const char *vide : {"Profession", "telephone1", "NomJF", "CAM", "medecin", "AdrPar", "mutuelle"}) {
        fiche.emplace_back(QString::fromLatin1(vide), QString());
    }
    for (const char *zero : {"TauxCam", "TauxMut", "PenChargeTp", "Option", "Filler1", "Filler2"}) {
        fiche.emplace_back(QString::fromLatin1(zero), 0);
    }
    patient.numero = base.insert(QStringLiteral("TabPat"), fiche);
    return patient;
}

} // namespace

std::vector<PatientDemo> ecritPatients(Database &base, const OptionsCabinet &options, Hasard &hasard) {
    Transaction transaction(base);
    std::vector<PatientDemo> patients;
    patients.reserve(size_t(options.patients));
    Foyer chezEux;
    for (int i = 0; i < options.patients; ++i) {
        if (i == 0 || hasard.chance(700)) {
            chezEux = foyer(hasard);
        }
        patients.push_back(ecritPatient(base, chezEux, options.aujourdhui, hasard));
    }
    transaction.commit();
    return patients;
}

int ecritActes(Database &base, const std::vector<PatientDemo> &patients, Hasard &hasard) {
    Transaction transaction(base);
    int numero = 0;
    for (const PatientDemo &p : patients) {
        const bool premier = numero == 0;
        for (int reste = hasard.entre(premier ? 1 : 0, 4); reste > 0; --reste) {
            const bool aFaire = reste == 1 && (premier || hasard.chance(300));
            const QStringList acte = hasard.choix(textes(QStringLiteral("actes"))).split(u'|');
            base.insert(QStringLiteral("Actes"), {{QStringLiteral("NumActe"), ++numero},
                                                  {QStringLiteral("NumPatient"), p.numero},
                                                  {QStringLiteral("AFaire"), aFaire ? 1 : 0},
                                                  {QStringLiteral("Libellé"), acte[0]},
                                                  {QStringLiteral("CodeSecu"), acte[1]},
                                                  {QStringLiteral("Coefficient"), acte[2].toDouble()}});
        }
    }
    transaction.commit();
    return numero;
}
