#include "start/Demarrage.h"

#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "patients/TransmissionTables.h"
#include "start/MiseANiveauTables.h"
#include "start/VariablesGlobales.h"

bool LitEmplacements(VariablesGlobales &v, const QString &fichier) {
    try {
        Database chemin = Database::open(fichier);
        const auto lus = LitChemin(chemin);
        if (!lus || lus->LeChemin.isEmpty()) {
            v.messages->error(
                QStringLiteral("Le fichier « %1 » n'indique pas le dossier des données du cabinet.")
                    .arg(fichier));
            return false;
        }
        v.CheminRacine = lus->LeChemin;
        v.CheminFichiers = lus->CheminBase + QStringLiteral("\\Fichiers");
        return true;
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return false;
    }
}

bool MetBaseANiveau(VariablesGlobales &v) {
    v.CheminBaseRDV = v.CheminFichiers + QStringLiteral("\\Tavelin.mdb");
    QString erreur;
    try {
        Database base = v.ouvreCarnet();
        erreur = MetANiveau(base);
    } catch (const DbError &echec) {
        erreur = echec.message();
    }
    if (!erreur.isEmpty()) {
        v.messages->error(erreur);
    }
    return erreur.isEmpty();
}

void LitTransmissionSuite(VariablesGlobales &v) {
    Transmission lue;
    try {
        Database transmission = v.ouvreTransmission();
        lue = LitTransmission(transmission);
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    if (lue.avecPatient) {
        v.NomPatientTransmis = lue.NomPatient;
        v.PrenomPatientTransmis = lue.PrenomPatient;
        v.NumPatientTransmis = int(lue.NumPatient);
        v.NumPatientCourant = QString::number(lue.NumPatient);
    }
    if (!lue.NumPraticien.isEmpty() && CLng(lue.NumPraticien) <= 0) {
        v.messages->error(
            QStringLiteral("Le numéro de praticien « %1 » transmis par la gestion du cabinet n'est "
                           "pas un numéro valable : le carnet s'ouvre sur le premier praticien.")
                .arg(lue.NumPraticien.left(50)));
        return;
    }
    v.PraticienCourant = lue.NumPraticien;
}

QList<Praticien> LitPraticiens(VariablesGlobales &v) {
    QList<Praticien> praticiens;
    try {
        Database param = v.ouvreParametres();
        praticiens = Praticiens(param);
        if (v.PraticienCourant.isEmpty() && !praticiens.isEmpty()) {
            v.PraticienCourant = u'0' + QString::number(praticiens.first().codeprat);
        }
        v.AvecWord = AvecWordDuPraticien(param, v.numPraticien()).value_or(v.AvecWord);
        v.NbPraticiens = NombreDePraticiens(param);
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return {};
    }
    if (praticiens.isEmpty()) {
        v.messages->error(QStringLiteral("Aucun praticien n'est enregistré dans les paramètres du cabinet."));
    }
    return praticiens;
}
