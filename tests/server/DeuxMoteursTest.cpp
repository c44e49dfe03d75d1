#include "Schema.h"
#include "booking/ReservationTables.h"
#include "config/ConfigTables.h"
#include "config/PraticienTables.h"
#include "grid/AffichageTables.h"
#include "grid/ReplacerTables.h"
#include "journal/JournalTables.h"
#include "maintenance/PurgeTables.h"
#include "patients/ActesTables.h"
#include "patients/HistoriqueTables.h"
#include "patients/TabPatTables.h"
#include "patients/TransmissionTables.h"
#include "platform/db/DbError.h"
#include "practice/CheminTables.h"
#include "print/AbsentsTables.h"
#include "print/FeuilleTables.h"
#include "print/LettresTables.h"
#include "search/CreneauxLibresTables.h"
#include "search/RechercheTables.h"
#include "start/MiseANiveauTables.h"
#include "support/Serveur.h"
#include "support/Texte.h"

#include <QMap>
#include <QTemporaryDir>
#include <utility>

/// What every statement of the tables gives, on files and on a server, of the same odd rows.
namespace {

const QDate mercredi(2026, 3, 11);

/// The databases of a practice on one of the two.
class Cabinet {
  public:
    Cabinet(const std::function<QString(const QString &)> &lieu, QString ou) : dossier(std::move(ou)) {
        for (const Base base : toutesLesBases) {
            m_lieux[base] = lieu(schema(base).fichier);
            creeBase(m_lieux[base], schema(base));
        }
    }
    Database ouvre(Base base) const { return Database::open(m_lieux[base]); }
    Database carnet() const { return ouvre(Base::RendezVous); }

    const QString dossier;

  private:
    QMap<Base, QString> m_lieux;
};

/// The same choices in the same order at every run.
class Hasard {
  public:
    Value parmi(const std::vector<Value> &choix) {
        m_etat = m_etat * 6364136223846793005U + 1442695040888963407U;
        return choix[size_t(m_etat >> 33U) % choix.size()];
    }

  private:
    quint64 m_etat = 1;
};

const std::vector<Value> noms{
    q("Élodie"),  q("élodie"),   q("Elodie"),   q("ELODIE"),  q("O'NEILL"), q("o'neill"),
    q("C:\\tmp"), q("Œuvrard"),  q("oeuvrard"), q("dupont "), q("Dupont"),  q("DUPOND-AIGNAN"),
    q("D*"),      q("d'Été #1"), q("[x]"),      q("Le Goff"), q("Legoff"),  q("Ça"),
    q("Zoë"),     q("a_b%c"),    q("😀"),        q(""),        Value()};
const std::vector<Value> praticiens{q("01"),
                                    q("1"),
                                    q("01"),
                                    q(" 1"),
                                    q("010"),
                                    q("02"),
                                    q("1x"),
                                    q("abc"),
                                    q(""),
                                    q("-1"),
                                    q("99999999999999999999"),
                                    Value()};
const std::vector<Value> jours{q("2026-03-11"), q("2026-03-12"), q("2026-03-09"), q("2026-03-11 00:00:00"),
                               q("1899-12-30"), q("1780-02-29"), q("2026-13-45"), q("hier"),
                               q(""),           Value()};
const std::vector<Value> cles{q("20260311"), q("20260311"), q("20260312"), q("20260309"),
                              q("18991230"), q("2026"),     q(""),         Value()};
const std::vector<Value> heures{q("08:00:00"),
                                q("09:00:00"),
                                q("09:15:00"),
                                q("10:00:00"),
                                q("11:30:00"),
                                q("1899-12-30 09:15:00"),
                                q("1899-12-30 09:14:59.9996"),
                                q("23:59:00"),
                                q("9h15"),
                                q(""),
                                Value()};
const std::vector<Value> booleens{0, 1, -1, Value()};
const std::vector<Value> fauteuils{0, 1, 1, 2, 12, Value()};

void remplitCarnet(const Cabinet &cabinet) {
    Database carnet = cabinet.carnet();
    Hasard hasard;
    Transaction transaction(carnet);
    constexpr int combien = 600;
    for (int i = 0; i < combien; ++i) {
        carnet.insert(q("RDV"), {{q("Nom"), hasard.parmi(noms)},
                                 {q("Prenom"), hasard.parmi(noms)},
                                 {q("NumPatient"), hasard.parmi({0, 1, 7, Value()})},
                                 {q("Date1"), hasard.parmi(jours)},
                                 {q("DateInv"), hasard.parmi(cles)},
                                 {q("HeureDebut"), hasard.parmi(heures)},
                                 {q("HeureFin"), hasard.parmi(heures)},
                                 {q("NumPraticien"), hasard.parmi(praticiens)},
                                 {q("Present"), hasard.parmi(booleens)},
                                 {q("Professionnel"), hasard.parmi(booleens)},
                                 {q("Fauteuil"), hasard.parmi(fauteuils)}});
    }
    for (const char *nom : {"Matin", "Défaut", "défaut", "DÉFAUT", "Midi", "matin", "l'Été"}) {
        for (const char *praticien : {"00", "01", "1", "010"}) {
            carnet.insert(q("Config"), {{q("NomConfig"), q(nom)},
                                        {q("NumPraticien"), q(praticien)},
                                        {q("DefaultConfig"), hasard.parmi(booleens)},
                                        {q("Intervalle"), hasard.parmi({10, 15, 20})},
                                        {q("HeureMatDebut"), q("08:00:00")},
                                        {q("HeureMatFin"), q("12:00:00")},
                                        {q("HeurePMDebut"), q("14:00:00")},
                                        {q("HeurePMFin"), q("18:00:00")},
                                        {q("LunAffich"), 1},
                                        {q("MerAffich"), 3},
                                        {q("Fauteuil"), hasard.parmi(fauteuils)}});
        }
    }
    transaction.commit();
    MetANiveau(carnet); // what overlaps by then is let stand
}

void remplitSuite(const Cabinet &cabinet) {
    Hasard hasard;
    Database patients = cabinet.ouvre(Base::Patients);
    Database actes = cabinet.ouvre(Base::Actes);
    Transaction desPatients(patients);
    Transaction desActes(actes);
    for (int i = 0; i < 120; ++i) {
        patients.insert(q("TabPat"),
                        {{q("nom"), hasard.parmi(noms)},
                         {q("PreNom"), hasard.parmi(noms)},
                         {q("Titre"), hasard.parmi({q("Mme"), q("M"), q("mme"), q(""), q("Dr"), Value()})},
                         {q("DateNais"), hasard.parmi({q("01/02/1960"), q("1960-02-01"), q(""), Value()})},
                         {q("MontantHis"), hasard.parmi({0.1, 2.5, -1.0, Value()})},
                         {q("RDVNonHonoré"), hasard.parmi({q("O"), q("o"), q("N"), Value()})}});
        actes.insert(q("Actes"), {{q("NumActe"), hasard.parmi({1, 2, 3, 3})},
                                  {q("NumPatient"), hasard.parmi({1, 7})},
                                  {q("AFaire"), hasard.parmi(booleens)},
                                  {q("Libellé"), hasard.parmi(noms)},
                                  {q("Coefficient"), hasard.parmi({15.0, 2.5, Value()})}});
    }
    desPatients.commit();
    desActes.commit();
    Database parametres = cabinet.ouvre(Base::Parametres);
    Database impression = cabinet.ouvre(Base::ParametresImpression);
    for (const int code : {3, 1, 2, 1}) {
        parametres.insert(q("Praticien"),
                          {{q("codeprat"), code}, {q("nom"), hasard.parmi(noms)}, {q("Word"), -code % 2}});
        parametres.insert(q("Cabinet"), {{q("ville"), hasard.parmi(noms)}});
        impression.insert(q("Parametres"),
                          {{q("codeprat"), code}, {q("NumLigne"), 2}, {q("LgPerso"), hasard.parmi(noms)}});
        cabinet.ouvre(Base::Historique).insert(q("Carnet"), {{q("NumPatient"), code}});
        cabinet.ouvre(Base::Chemins)
            .insert(q("Chemin"), {{q("LeChemin"), hasard.parmi(noms)}, {q("CheminBase"), q("b")}});
    }
    Database transmission = cabinet.ouvre(Base::PatientTransmis);
    transmission.insert(q("LePatient"), {{q("NomPatient"), q("Zoë")}, {q("NumPatient"), Value()}});
    transmission.insert(q("LePraticien"), {{q("NumPraticien"), q("02")}});
    // an update moves a row on a server: the order of a table must not
    cabinet.carnet().execute(SqlText("Update Config Set JourRepos = 7 Where NomConfig = 'Matin'"));
    parametres.execute(SqlText("Update Praticien Set PreNom = 'x' Where codeprat = 3"));
}

QString dit(const Value &valeur) {
    return valeur.isNull() ? q("Null") : valeur.toText();
}
QString dit(const RendezVous &r) {
    return QStringList{QString::number(r.RefRDV),
                       r.Nom,
                       r.Prenom,
                       r.NumPatient,
                       r.Date1.toString(Qt::ISODate),
                       r.HeureDebut.toString(),
                       r.HeureFin.toString(),
                       QString::number(r.Present),
                       QString::number(r.NumPraticien),
                       QString::number(r.Fauteuil)}
        .join(u'|');
}
QString dit(const PatientTrouve &p) {
    return QStringList{p.nom, p.prenom, p.numero, p.dateNais}.join(u'|');
}
QString dit(const Configuration &c) {
    return QStringList{c.NomConfig, c.FauteuilCourant, QString::number(c.Intervalle), c.HeurePMFin.toString()}
        .join(u'|');
}
template <typename Liste>
QString tous(const Liste &liste) {
    QStringList textes;
    for (const auto &chacun : liste) {
        textes << dit(chacun);
    }
    return textes.join(u'\n');
}

QString table(Database &base, const SqlText &sql) {
    const Records lignes = base.query(sql);
    QStringList textes;
    for (const Record ligne : lignes) {
        QStringList champs;
        for (int i = 0; i < lignes.fields().size(); ++i) {
            champs << dit(ligne.at(i));
        }
        textes << champs.join(u'|');
    }
    return textes.join(u'\n');
}

template <size_t N>
QString unis(const std::array<QString, N> &textes) {
    return QStringList(textes.begin(), textes.end()).join(u'|');
}

using Essai = std::pair<const char *, std::function<QString(const Cabinet &)>>;

QString rendezVous(const Cabinet &cabinet) {
    Database carnet = cabinet.carnet();
    QStringList textes;
    for (const long praticien : {0L, 1L, 2L, 10L, -1L}) {
        textes << tous(RendezVousEntre(carnet, mercredi.addDays(-2), mercredi.addDays(3), praticien,
                                       std::nullopt))
               << tous(RendezVousEntre(carnet, QDate(1700, 1, 1), mercredi, praticien, 1));
        QStringList temps; // a sum is made of them: their order is nobody's concern
        for (const TempsPris &pris : TempsDuMois(carnet, mercredi, praticien)) {
            temps << pris.jour.toString() + pris.plage.debut.toString() + pris.plage.fin.toString();
        }
        temps.sort();
        textes << temps;
        for (const Absent &absent : Absents(carnet, praticien, mercredi)) {
            textes << unis(absent.textes());
        }
    }
    for (const Absent &absent : Absents(carnet, std::nullopt, mercredi)) {
        textes << absent.NumPraticien + u'|' + absent.nom + u'|' + absent.PreNom +
                      absent.HeureDebut.toString();
    }
    for (const Value &nom : noms) {
        const RDVsTrouves trouves =
            RendezVousDuPatient(carnet, {nom.toText(), q("ÉLODIE"), QDate(1800, 1, 1)});
        textes << nom.toText() + QString::number(trouves.horsHoraires);
        for (const RDVTrouve &t : trouves.liste) {
            textes << QString::number(t.RefRDV) + t.Date1.toString() + t.HeureDebut.toString();
        }
        textes << QString::number(DernierNumero(carnet, nom.toText(), q("élodie")));
    }
    return textes.join(u'\n');
}

QString configurations(const Cabinet &cabinet) {
    Database carnet = cabinet.carnet();
    QStringList textes;
    for (const long praticien : {0L, 1L, 10L, 5L}) {
        const ConfigsLues lues = LitConfigs(carnet, praticien);
        for (const LigneConfig &ligne : lues.duPraticien) {
            textes << dit(ligne.config) + QString::number(ligne.DefaultConfig);
        }
        textes << dit(lues.repli.value_or(Configuration()));
    }
    for (const char *nom : {"DÉfaut", "nouvelle", "Nouvelle", "l'été"}) {
        textes << QString::number(int(EnregistreConfig(carnet, {q(nom), q("01"), 3, true}, {})))
               << QString::number(int(SupprimeConfig(carnet, 1, q(nom))));
    }
    textes << table(carnet,
                    SqlText("Select NomConfig, NumPraticien, DefaultConfig, Fauteuil, JourRepos from Config "
                            "order by CleLigne"));
    for (const long fauteuil : {0L, 1L, 5L}) {
        Configuration config;
        config.FauteuilCourant = QString::number(fauteuil);
        config.HeureMatDebut = QTime(8, 0);
        config.HeureMatFin = QTime(12, 0);
        config.HeurePMDebut = QTime(14, 0);
        config.HeurePMFin = QTime(18, 0);
        const EtapeCreneau etape =
            ChercheCreneau(carnet, {q("01"), config, mercredi, QTime(0, 30)}, mercredi, [] { return true; });
        textes << QString::number(int(etape.etat)) + etape.jour.toString() +
                      QString::number(etape.debuts.size());
    }
    return textes.join(u'\n');
}

QString patients(const Cabinet &cabinet) {
    Database base = cabinet.ouvre(Base::Patients);
    CreeIndexPatients(base);
    CreeIndexPatients(base); // which is there
    QStringList textes = Titres(base);
    for (const char *debut :
         {"d", "É", "e", "œ", "o", "[", "*", "o'", "le", "ç", "z", "a_", "D'É", "😀", "nul"}) {
        const PatientsTrouves trouves = CherchePatients(base, q(debut));
        textes << q(debut) << tous(trouves.patients);
        for (const LotDeNoms &lot : trouves.suite) {
            textes << tous(PatientsDuLot(base, lot));
        }
    }
    textes << tous(CherchePatients(base, qint64(7)).patients)
           << tous(CherchePatients(base, qint64(999)).patients);
    for (const qint64 numero : {1, 2, 3, 4, 5, 6, 999}) {
        const NonHonore honore = RDVNonHonoré(base, numero);
        textes << (honore ? QString::number(*honore) : q("-"));
    }
    for (const Value &nom : noms) {
        FichePatient fiche;
        fiche.nom = nom.toText();
        fiche.PreNom = q("Élodie");
        for (const Identite &identite : Homonymes(base, fiche)) {
            textes << identite.DateNais + identite.NumeroSS;
        }
    }
    FichePatient fiche;
    fiche.nom = q("L'Été");
    fiche.PreNom = q("Zoë");
    const qint64 cree = CreePatient(base, cabinet.ouvre(Base::PatientsCrees), fiche, mercredi);
    Database listing = cabinet.ouvre(Base::PatientsCrees);
    textes << QString::number(cree)
           << table(base, SqlText("select nom, PreNom, cmu, TauxCam, mutuelle from TabPat "
                                  "where cptid = ")
                              << nombre(cree))
           << table(listing,
                    SqlText("select DateCréationFicheInv, NumPatient, nom, Portable, MontantHis, NumeroSS "
                            "from LesPatients"));
    return textes.join(u'\n');
}

QString suite(const Cabinet &cabinet) {
    Database actes = cabinet.ouvre(Base::Actes);
    Database parametres = cabinet.ouvre(Base::Parametres);
    Database impression = cabinet.ouvre(Base::ParametresImpression);
    Database patients = cabinet.ouvre(Base::Patients);
    Database transmission = cabinet.ouvre(Base::PatientTransmis);
    Database historique = cabinet.ouvre(Base::Historique);
    Database chemins = cabinet.ouvre(Base::Chemins);
    QStringList textes{DernierActeAFaire(actes, 1), DernierActeAFaire(actes, 7), DernierActeAFaire(actes, 8)};
    for (const Praticien &praticien : Praticiens(parametres)) {
        textes << praticien.libelle() << QString::number(AvecWord(parametres, long(praticien.codeprat)));
    }
    const Transmission lue = LitTransmission(transmission);
    textes << lue.NomPatient << QString::number(lue.NumPatient) << lue.NumPraticien;
    DemandeHistorique(historique, 77);
    textes << table(historique, SqlText("select NumPatient from Carnet order by CleLigne"));
    textes << LitChemin(chemins).value_or(Emplacements()).LeChemin;
    for (const long patient : {0L, 3L}) {
        const CadreLettre cadre = LitCadre(impression, patients, parametres, {1, patient, {}});
        textes << unis(cadre.lignes) << unis(cadre.patient) << cadre.praticien[1] << cadre.ville;
    }
    return textes.join(u'\n');
}

const Auteur auteur{QDateTime(mercredi, QTime(8, 0)), q("accueil"), q("lise")};

/// Set aside, placed, and taken off the list.
QStringList epingle(Database &carnet, qint64 ref) {
    QStringList textes;
    const auto liste = [&] {
        for (const AReplacer &un : LitAReplacer(carnet, 1)) {
            textes << NomReplacer(un) << AttenteReplacer(un, auteur.quand.addSecs(60))
                   << QString::number(int(EtatDe(un)));
        }
    };
    const RendezVous lu = LitRDV(carnet, ref).value_or(RendezVous());
    textes << QString::number(int(MetDeCote(carnet, lu, auteur.quand)));
    liste();
    RendezVous pose = lu;
    pose.HeureDebut = QTime(15, 0);
    pose.HeureFin = QTime(16, 0);
    textes << QString::number(int(DeplaceRDV(carnet, auteur, lu, pose, 1, 1).resultat));
    liste();
    RetireReplacer(carnet, ref);
    liste();
    return textes << tous(RendezVousDuJour(carnet, pose.Date1));
}

QString ecritures(const Cabinet &cabinet) {
    Database carnet = cabinet.carnet();
    PrepareJournal(carnet);
    PrepareReplacer(carnet);
    QStringList textes;
    SaisieRDV saisie{q("D'Œuvre"),         q("Zoë"),    q("02"),     q("\\'"), q("12"),
                     mercredi.addDays(30), QTime(9, 0), QTime(10, 0)};
    const auto ajoute = [&](int heure) {
        saisie.HeureDebut = QTime(heure, 0);
        saisie.HeureFin = QTime(heure + 1, 0);
        return AjouteRDV(carnet, auteur, {saisie, q("01"), q("1"), true}).ecriture.RefRDV();
    };
    const qint64 ref = ajoute(9);
    textes << QString::number(ref) << QString::number(ajoute(9)) << QString::number(ajoute(10));
    RendezVous lu = LitRDV(carnet, ref).value_or(RendezVous());
    textes << dit(lu) << QString::number(int(ChangeFin(carnet, auteur, lu, QTime(10, 30), 1, 1).resultat))
           << QString::number(int(ChangeFin(carnet, auteur, lu, QTime(9, 30), 1, 1).resultat))
           << QString::number(int(MarquePresent(carnet, auteur, lu, true).resultat));
    lu = LitRDV(carnet, ref).value_or(RendezVous());
    textes << QString::number(int(MarquePresent(carnet, auteur, lu, true).resultat))
           << QString::number(int(ModifieRDV(carnet, auteur, lu, saisie, 1, 1).resultat));
    saisie.HeureDebut = QTime(12, 0);
    saisie.HeureFin = QTime(13, 0);
    textes << QString::number(int(ModifieRDV(carnet, auteur, lu, saisie, 1, 1).resultat))
           << QString::number(int(SupprimeRDV(carnet, auteur, lu).resultat));
    lu = LitRDV(carnet, ref).value_or(RendezVous());
    textes << dit(lu) << QString::number(int(SupprimeRDV(carnet, auteur, lu).resultat))
           << QString::number(int(SupprimeRDV(carnet, auteur, lu).resultat));
    textes << epingle(carnet, ajoute(14));
    const FeuilleJour feuille = RemplitImpression(carnet, 1, 1, mercredi);
    textes << tous(feuille.sansLigne)
           << table(carnet,
                    SqlText("select Heure, NomPatient, NomPatientPM from Impression order by CleLigne"));
    textes << table(
        carnet,
        SqlText("select RefJournal, Quand, Poste, Utilisateur, Quoi, RefRDV, NumPraticien, Jour, JourAvant, "
                "Patient, PatientAvant, Avant, Apres from TavJournal order by RefJournal"));
    textes << MetANiveau(carnet).erreur << QString::number(EstANiveau(carnet));
    return textes.join(u'\n');
}

QString purge(const Cabinet &cabinet) {
    Database carnet = cabinet.carnet();
    const QString archive = cabinet.dossier + q("/archive.mdb");
    CreeArchive(q("/nulle/part"), archive);
    Database archives = Database::open(archive);
    Purge purge(1, mercredi);
    purge.cherche(carnet);
    const int total = purge.total();
    while (!purge.finie()) {
        purge.deplaceLot(carnet, archives, auteur);
    }
    const SqlText restes(
        "select RefRDV, Nom, Prenom, NumPatient, Date1, DateInv, HeureDebut, HeureFin, NumPraticien, "
        "Professionnel, Present from RDV order by RefRDV");
    return QString::number(total) + u'\n' + table(archives, restes) + u'\n' + table(carnet, restes);
}

const Essai essais[] = {{"rendez-vous", rendezVous}, {"configurations", configurations},
                        {"patients", patients},      {"suite", suite},
                        {"ecritures", ecritures},    {"purge", purge}};

} // namespace

using DeuxMoteurs = AvecServeur;

TEST_F(DeuxMoteurs, GiveTheSameRowsInTheSameOrder) {
    const QTemporaryDir unDossier;
    const QTemporaryDir autreDossier;
    const Cabinet fichiers([&](const QString &fichier) { return unDossier.filePath(fichier); },
                           unDossier.path());
    const Cabinet distant([&](const QString &fichier) { return serveur->lieu(fichier); },
                          autreDossier.path());
    for (const Cabinet *cabinet : {&fichiers, &distant}) {
        remplitCarnet(*cabinet);
        remplitSuite(*cabinet);
    }
    for (const auto &[nom, essai] : essais) {
        const QStringList attendu = essai(fichiers).split(u'\n');
        const QStringList obtenu = essai(distant).split(u'\n');
        EXPECT_GT(attendu.size(), 10) << nom;
        EXPECT_EQ(attendu.size(), obtenu.size()) << nom;
        for (int i = 0; i < std::min(attendu.size(), obtenu.size()); ++i) {
            ASSERT_EQ(attendu[i], obtenu[i]) << nom << ", line " << i << " behind " << attendu.value(i - 1);
        }
    }
}
