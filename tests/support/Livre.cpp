#include "support/Livre.h"

#include "platform/db/DateInverse.h"
#include "support/Serveur.h"

namespace {

const char *const jours[] = {"Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim"};
const char *const heures[] = {"HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin"};

} // namespace

Configuration configDe(const RangConfig &rang) {
    const auto heure = [&](size_t i) { return QTime::fromString(q(rang.heures[i]), Qt::ISODate); };
    return {.NomConfig = q(rang.nom),
            .FauteuilCourant = QString::number(rang.fauteuil),
            .NbJours = int(std::ranges::count_if(rang.affich, [](int jour) { return jour > 0; })),
            .JourAffich = rang.affich,
            .JourRepos = 7,
            .JourGrise = rang.grise,
            .Intervalle = rang.intervalle,
            .HeureMatDebut = heure(0),
            .HeureMatFin = heure(1),
            .HeurePMDebut = heure(2),
            .HeurePMFin = heure(3)};
}

Livre::Livre() {
    if (qEnvironmentVariable("TAVELIN_LIVRES") == q("serveur")) {
        m_serveur = std::make_unique<Serveur>();
    }
    m_fichier = m_serveur ? m_serveur->lieu() : m_dossier.filePath(q("Tavelin.mdb"));
    creeBase(m_fichier, schema(Base::RendezVous));
}

Livre::~Livre() = default;

Livre::Livre(QString fichier) : m_fichier(std::move(fichier)) {
    execute(SqlText("delete from RDV"));
    execute(SqlText("delete from Config"));
}

qint64 Livre::rdv(const RangRDV &rang) const {
    const QDate jour = QDate::fromString(q(rang.jour), Qt::ISODate);
    return ouvre().insert(q("RDV"), {{q("Nom"), q(rang.nom)},
                                     {q("Date1"), q(rang.jour)},
                                     {q("DateInv"), rang.cle != nullptr ? q(rang.cle) : InverseDate(jour)},
                                     {q("HeureDebut"), q(rang.debut)},
                                     {q("HeureFin"), q(rang.fin)},
                                     {q("NumPraticien"), q(rang.praticien)},
                                     {q("Fauteuil"), rang.fauteuil},
                                     {q("Present"), Value::boolean(rang.present)}});
}

QList<qint64> Livre::rdvs(const char *rangees) const {
    const QList<QStringList> lignes = tableau(rangees);
    QList<qint64> refs;
    for (const QStringList &ligne : lignes.sliced(1)) {
        Fields champs;
        for (int i = 0; i < ligne.size(); ++i) {
            const QString mot = QString(ligne[i]).replace(u'·', u' ');
            champs.emplace_back(lignes[0][i], mot == q("-") ? Value() : Value(mot));
        }
        refs << ouvre().insert(q("RDV"), champs);
    }
    return refs;
}

void Livre::config(const RangConfig &rang) const {
    Fields champs{{q("NomConfig"), q(rang.nom)},     {q("NumPraticien"), q(rang.praticien)},
                  {q("Fauteuil"), rang.fauteuil},    {q("DefaultConfig"), Value::boolean(rang.defaut)},
                  {q("NbJours"), rang.nbJours},      {q("JourRepos"), 7},
                  {q("Intervalle"), rang.intervalle}};
    for (size_t i = 0; i < 4; ++i) {
        champs.emplace_back(q(heures[i]), q(rang.heures[i]));
    }
    for (size_t i = 0; i < 7; ++i) {
        champs.emplace_back(q(jours[i]) + q("Affich"), rang.affich[i]);
        champs.emplace_back(q(jours[i]) + q("Grise"), rang.grise[i]);
    }
    ouvre().insert(q("Config"), champs);
}

std::string Livre::configs() const {
    const Records rows = ouvre().query(SqlText("Select * from Config order by CleLigne"));
    QStringList textes;
    for (const Record row : rows) {
        textes << row[u"NomConfig"].toText() + u' ' + row[u"NumPraticien"].toText() + u' ' +
                      row[u"Fauteuil"].toText() + (row[u"DefaultConfig"].toBoolean() ? q("*") : QString());
    }
    return textes.join(q(", ")).toStdString();
}
