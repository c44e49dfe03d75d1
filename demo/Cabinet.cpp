#include "Cabinet.h"

#include "Images.h"
#include "RendezVousDemo.h"
#include "Schema.h"
#include "platform/db/Database.h"

#include <QDir>

namespace {

constexpr int carnetPlein = 100'000; ///< from this many appointments on, the agendas are filled to the brim

struct PraticienDemo {
    QString nom;
    QString prenom;
    bool word;
    QStringList entete;
};

std::vector<PraticienDemo> praticiens() {
    return {{QStringLiteral("L'HERMITE"),
             QStringLiteral("Hélène"),
             true,
             {QStringLiteral("Docteur Hélène L'HERMITE"), QStringLiteral("Chirurgien-dentiste"),
              QStringLiteral("Diplômée de la faculté de Rennes"),
              QStringLiteral("Implantologie – Parodontie"), QStringLiteral("14, quai de l'Île"),
              QStringLiteral("56000 VANNES"), QStringLiteral("Tél. : 02 61 91 04 12"),
              QStringLiteral("Sur rendez-vous"), QStringLiteral("du lundi au samedi matin"),
              QStringLiteral("Membre d'une association agréée, règlement par chèque accepté")}},
            {QStringLiteral("LEFÈVRE"),
             QStringLiteral("Jean-Baptiste"),
             false,
             {QStringLiteral("Docteur Jean-Baptiste LEFÈVRE"), QStringLiteral("Orthodontie exclusive"),
              QStringLiteral("Tél. : 02 61 91 04 13")}},
            {QStringLiteral("D'ALMEIDA"), QStringLiteral("Inès"), false, {}}};
}

/// Creates and fills one practice; knows where each of its files goes.
class Ecriture {
  public:
    Ecriture(const QString &dossier, const OptionsCabinet &options)
        : m_dossier(dossier), m_options(options) {}

    void refuseUnAutreCabinet() const;
    void creeDossiers() const;
    Bilan remplit() const;
    void ecritChemins() const;
    void efface() const;

  private:
    QString nom() const { return QDir::toNativeSeparators(m_dossier.absolutePath()); }
    QString racine() const { return m_dossier.absoluteFilePath(QStringLiteral("Donnees")); }
    QString bases() const { return m_dossier.absoluteFilePath(QStringLiteral("Base")); }
    QString chemin(Base base) const;
    Database nouvelle(Base base) const;
    std::vector<PatientDemo> ecritPatientsEtActes(Bilan &bilan) const;
    int ecritCarnet(const std::vector<PatientDemo> &patients) const;
    void ecritTransmission(const PatientDemo &patient) const;
    void ecritParametres() const;

    QDir m_dossier;
    const OptionsCabinet &m_options;
};

QString Ecriture::chemin(Base base) const {
    const SchemaBase &s = schema(base);
    switch (s.emplacement) {
    case Emplacement::Racine:
        return racine() + QStringLiteral("/Fichiers/") + s.fichier;
    case Emplacement::BaseDesDonnees:
        return bases() + QStringLiteral("/Fichiers/") + s.fichier;
    case Emplacement::Cabinet:
        break;
    }
    return m_dossier.absoluteFilePath(s.fichier);
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
                QStringLiteral("Le dossier « %1 » contient déjà un cabinet (« %2 ») : rien n'a "
                               "été modifié. Choisissez un autre dossier.")
                    .arg(nom(), QFileInfo(present).fileName()));
        }
    }
}

void Ecriture::creeDossiers() const {
    for (const char *sous :
         {"Donnees/Fichiers", "Donnees/Documents", "Donnees/Word", "Donnees/Images", "Base/Fichiers/Purge"}) {
        if (!m_dossier.mkpath(QString::fromLatin1(sous))) {
            throw ErreurCabinet(
                QStringLiteral("Impossible d'écrire dans le dossier « %1 » : vérifiez qu'il est accessible "
                               "en écriture.")
                    .arg(nom()));
        }
    }
}

std::vector<PatientDemo> Ecriture::ecritPatientsEtActes(Bilan &bilan) const {
    Hasard hasard(m_options.graine);
    auto patients = inventePatients(m_options.patients, m_options.aujourdhui, hasard);
    Database fichePatients = nouvelle(Base::Patients);
    ecritPatients(fichePatients, patients, m_options.aujourdhui, hasard);
    Database actes = nouvelle(Base::Actes);
    bilan.actes = ecritActes(actes, patients, patients.front(), hasard);
    bilan.patients = int(patients.size());
    return patients;
}

int Ecriture::ecritCarnet(const std::vector<PatientDemo> &patients) const {
    const bool plein = m_options.rdv >= carnetPlein && !m_options.ancien;
    const Carnet carnet = m_options.ancien ? Carnet::SansFauteuil : plein ? Carnet::Plein : Carnet::Ordinaire;
    const std::vector<HorairesDemo> horaires = horairesDemo(carnet);
    const std::vector<Agenda> tous = agendas(horaires);
    Hasard hasard(m_options.graine + 1);
    const auto plages =
        remplitAgendas(tous, {m_options.aujourdhui, m_options.annees, m_options.rdv, plein}, hasard);
    Database base = nouvelle(Base::RendezVous);
    Transaction transaction(base);
    ecritConfig(base, horaires, carnet);
    const int combien =
        ecritRendezVous(base, plages, tous, patients, m_options.aujourdhui, !m_options.ancien, hasard);
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
    Database impression = nouvelle(Base::ParametresImpression);
    parametres.insert(QStringLiteral("Cabinet"), {{QStringLiteral("ville"), QStringLiteral("VANNES")}});
    int code = 0;
    for (const PraticienDemo &p : praticiens()) {
        parametres.insert(QStringLiteral("Praticien"), {{QStringLiteral("codeprat"), ++code},
                                                        {QStringLiteral("Titre"), QStringLiteral("Docteur")},
                                                        {QStringLiteral("nom"), p.nom},
                                                        {QStringLiteral("PreNom"), p.prenom},
                                                        {QStringLiteral("Word"), Value::boolean(p.word)}});
        for (int i = 0; i < p.entete.size(); ++i) {
            impression.insert(QStringLiteral("Parametres"), {{QStringLiteral("codeprat"), code},
                                                             {QStringLiteral("NumLigne"), i + 1},
                                                             {QStringLiteral("LgPerso"), p.entete[i]}});
        }
    }
}

Bilan Ecriture::remplit() const {
    Bilan bilan;
    const auto patients = ecritPatientsEtActes(bilan);
    bilan.rendezVous = ecritCarnet(patients);
    ecritTransmission(patients.front());
    ecritParametres();
    nouvelle(Base::PatientsCrees);
    nouvelle(Base::ArchiveVide);
    bilan.images = ecritImages(racine() + QStringLiteral("/Images"));
    if (bilan.images < int(std::size(formesImages) * std::size(couleursImages))) {
        throw ErreurCabinet(QStringLiteral("Les images n'ont pas pu être enregistrées dans « %1 ».")
                                .arg(QDir::toNativeSeparators(racine())));
    }
    return bilan;
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
        ecriture.creeDossiers();
        const Bilan bilan = ecriture.remplit();
        ecriture.ecritChemins();
        return bilan;
    } catch (...) {
        ecriture.efface();
        throw;
    }
}
