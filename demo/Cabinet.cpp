#include "Cabinet.h"

#include "Images.h"
#include "Modeles.h"
#include "RendezVous.h"
#include "Schema.h"
#include "Textes.h"
#include "platform/db/Database.h"

#include <QDir>

namespace {

/// Creates and fills one practice; knows where each of its files goes.
class Ecriture {
  public:
    Ecriture(const QString &dossier, const OptionsCabinet &options)
        : m_dossier(dossier), m_options(options) {}

    void refuseUnAutreCabinet() const;
    Bilan ecrit() const;
    void efface() const;

  private:
    QString racine() const { return m_dossier.absoluteFilePath(QStringLiteral("Donnees")); }
    QString bases() const { return m_dossier.absoluteFilePath(QStringLiteral("Base")); }
    QString chemin(Base base) const;
    Database nouvelle(Base base) const;
    void creeDossiers() const;
    int ecritCarnet(const std::vector<PatientDemo> &patients) const;
    void ecritTransmission(const PatientDemo &patient) const;
    void ecritParametres() const;
    void ecritChemins() const;

    QDir m_dossier;
    const OptionsCabinet &m_options;
};

QString Ecriture::chemin(Base base) const {
    const SchemaBase &s = schema(base);
    if (s.emplacement == Emplacement::Cabinet) {
        return m_dossier.absoluteFilePath(s.fichier);
    }
    const QString dossier = s.emplacement == Emplacement::Racine ? racine() : bases();
    return dossier + QStringLiteral("/Fichiers/") + s.fichier;
}

Database Ecriture::nouvelle(Base base) const {
    const bool ancienne = m_options.ancien && base == Base::RendezVous;
    creeBase(chemin(base), schema(base), ancienne ? Forme::Ancienne : Forme::Actuelle);
    return Database::open(chemin(base));
}

void Ecriture::refuseUnAutreCabinet() const {
    for (const QString &present : {chemin(Base::Chemins), racine(), bases()}) {
        if (QFileInfo::exists(present)) {
            throw ErreurCabinet(
                QStringLiteral("« %1 » existe déjà : rien n'a été modifié. Choisissez un autre dossier.")
                    .arg(QDir::toNativeSeparators(present)));
        }
    }
}

void Ecriture::creeDossiers() const {
    for (const char *sous :
         {"Donnees/Fichiers", "Donnees/Documents", "Donnees/Word", "Donnees/Images", "Base/Fichiers/Purge"}) {
        if (!m_dossier.mkpath(QString::fromLatin1(sous))) {
            throw ErreurCabinet(QStringLiteral("Impossible d'écrire dans le dossier « %1 ».")
                                    .arg(QDir::toNativeSeparators(m_dossier.absolutePath())));
        }
    }
}

int Ecriture::ecritCarnet(const std::vector<PatientDemo> &patients) const {
    const std::vector<HorairesDemo> horaires = horairesDemo(m_options);
    Hasard hasard(m_options.graine + 1);
    Database base = nouvelle(Base::RendezVous);
    Transaction transaction(base);
    ecritConfig(base, horaires, !m_options.ancien);
    const int combien = ecritRendezVous(base, horaires, patients, m_options, hasard);
    transaction.commit();
    return combien;
}

/// The patient and the practitioner that the suite shows, and the one that it is asked to show.
void Ecriture::ecritTransmission(const PatientDemo &patient) const {
    Database transmis = nouvelle(Base::PatientTransmis);
    transmis.insert(QStringLiteral("LePatient"), {{QStringLiteral("NomPatient"), patient.nom},
                                                  {QStringLiteral("PrenomPatient"), patient.prenom},
                                                  {QStringLiteral("NumPatient"), patient.numero}});
    transmis.insert(QStringLiteral("LePraticien"), {{QStringLiteral("NumPraticien"), QStringLiteral("01")}});
    nouvelle(Base::Historique)
        .insert(QStringLiteral("Carnet"), {{QStringLiteral("NumPatient"), patient.numero}});
}

void Ecriture::ecritParametres() const {
    Database parametres = nouvelle(Base::Parametres);
    parametres.insert(QStringLiteral("Cabinet"), {{QStringLiteral("ville"), QStringLiteral("VANNES")}});
    int code = 0;
    for (const QString &praticien : textes(QStringLiteral("praticiens"))) {
        const QStringList p = praticien.split(u'|');
        parametres.insert(QStringLiteral("Praticien"), {{QStringLiteral("codeprat"), ++code},
                                                        {QStringLiteral("Titre"), QStringLiteral("Docteur")},
                                                        {QStringLiteral("nom"), p[0]},
                                                        {QStringLiteral("PreNom"), p[1]},
                                                        {QStringLiteral("Word"), p[2].toInt()}});
    }
    Database impression = nouvelle(Base::ParametresImpression);
    for (const QString &ligne : textes(QStringLiteral("en-têtes"))) {
        const QStringList l = ligne.split(u'|');
        impression.insert(QStringLiteral("Parametres"), {{QStringLiteral("codeprat"), l[0].toInt()},
                                                         {QStringLiteral("NumLigne"), l[1].toInt()},
                                                         {QStringLiteral("LgPerso"), l[2]}});
    }
}

/// Under another name until it is complete.
void Ecriture::ecritChemins() const {
    const QString provisoire = chemin(Base::Chemins) + QStringLiteral(".part");
    QFile::remove(provisoire);
    creeBase(provisoire, schema(Base::Chemins));
    Database::open(provisoire)
        .insert(QStringLiteral("Chemin"),
                {{QStringLiteral("LeChemin"), QDir::toNativeSeparators(racine())},
                 {QStringLiteral("CheminBase"), QDir::toNativeSeparators(bases())}});
    if (!QFile::rename(provisoire, chemin(Base::Chemins))) {
        throw ErreurCabinet(QStringLiteral("Impossible d'écrire « %1 ».")
                                .arg(QDir::toNativeSeparators(chemin(Base::Chemins))));
    }
}

Bilan Ecriture::ecrit() const {
    creeDossiers();
    Hasard hasard(m_options.graine);
    Bilan bilan;
    Database fiches = nouvelle(Base::Patients);
    const std::vector<PatientDemo> patients = ecritPatients(fiches, m_options, hasard);
    Database actes = nouvelle(Base::Actes);
    bilan.actes = ecritActes(actes, patients, hasard);
    bilan.patients = int(patients.size());
    bilan.rendezVous = ecritCarnet(patients);
    ecritTransmission(patients.front());
    ecritParametres();
    nouvelle(Base::PatientsCrees);
    nouvelle(Base::ArchiveVide);
    bilan.images = ecritImages(racine() + QStringLiteral("/Images"));
    if (m_options.modeles) {
        bilan.modelesManquants = ecritModeles(racine(), bases() + QStringLiteral("/Fichiers"));
    }
    ecritChemins();
    return bilan;
}

void Ecriture::efface() const {
    QFile::remove(chemin(Base::Chemins) + QStringLiteral(".part"));
    QDir(racine()).removeRecursively();
    QDir(bases()).removeRecursively();
}

} // namespace

Bilan ecritCabinet(const QString &dossier, const OptionsCabinet &options) {
    if (options.patients < 1) {
        throw ErreurCabinet(QStringLiteral("Un cabinet a au moins un patient."));
    }
    const Ecriture ecriture(dossier, options);
    ecriture.refuseUnAutreCabinet();
    try {
        return ecriture.ecrit();
    } catch (...) {
        ecriture.efface();
        throw;
    }
}
