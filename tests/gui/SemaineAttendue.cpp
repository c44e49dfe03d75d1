#include "gui/SemaineAttendue.h"

#include <array>

namespace {

struct JourDeSemaine {
    QStringView nom;
    QStringView champ;
    QStringView image;
    QRgb couleur = 0;
};
constexpr std::array<JourDeSemaine, 7> semaine{{{u"lundi", u"Lun", u"Bleu", qRgb(0, 128, 255)},
                                                {u"mardi", u"Mar", u"Violet", qRgb(128, 0, 128)},
                                                {u"mercredi", u"Mer", u"Orange", qRgb(255, 128, 0)},
                                                {u"jeudi", u"Jeu", u"Jaune", qRgb(128, 128, 0)},
                                                {u"vendredi", u"Ven", u"Vert", qRgb(0, 128, 128)},
                                                {u"samedi", u"Sam", u"Brown", qRgb(128, 64, 0)},
                                                {u"dimanche", u"Dim", u"BleuF", qRgb(0, 0, 128)}}};
const QColor gris(160, 160, 160);

const JourDeSemaine &semaineDu(int jour) {
    return semaine[size_t(jour - 1)];
}

int minutes(const Value &heure) {
    return heure.toTime().hour() * 60 + heure.toTime().minute();
}

QString etiquette(int heure) {
    return QTime(heure / 60 % 24, heure % 60).toString(QStringLiteral("HH:mm"));
}

} // namespace

SemaineAttendue::SemaineAttendue(const CabinetDEssai &cabinet, int praticien, int fauteuil, QDate jour)
    : m_maintenant(cabinet.maintenant), m_lundi(jour.addDays(1 - jour.dayOfWeek())) {
    Database carnet = cabinet.ouvre(Base::RendezVous);
    const Records siennes =
        carnet.query(SqlText("Select * from Config Where clng(NumPraticien) = ")
                     << nombre(praticien) << " and clng(Fauteuil) = " << nombre(fauteuil));
    if (siennes.isEmpty()) {
        const Records repli = carnet.query(SqlText("Select * from Config Where clng(NumPraticien) = 0"));
        litHoraires(repli.first());
    } else {
        litHoraires(siennes.first());
    }
    litRendezVous(carnet, praticien, fauteuil);
}

void SemaineAttendue::litHoraires(const Record &config) {
    for (int jour = 1; jour <= 7; ++jour) {
        const QString champ = semaineDu(jour).champ.toString();
        if (config[champ + QStringLiteral("Affich")].toInteger() != 0) {
            m_jours << jour;
            m_grises << int(config[champ + QStringLiteral("Grise")].toInteger());
        }
    }
    m_pas = int(config[u"Intervalle"].toInteger());
    m_matin = minutes(config[u"HeureMatDebut"]);
    m_midi = minutes(config[u"HeureMatFin"]);
    m_reprise = minutes(config[u"HeurePMDebut"]);
    m_soir = minutes(config[u"HeurePMFin"]);
}

void SemaineAttendue::litRendezVous(Database &carnet, int praticien, int fauteuil) {
    const Records rows = carnet.query(SqlText("Select * from RDV Where clng(NumPraticien) = ")
                                      << nombre(praticien) << " and clng(Fauteuil) = " << nombre(fauteuil)
                                      << " and Date1 >= " << dateSql(m_lundi)
                                      << " and Date1 <= " << dateSql(m_lundi.addDays(6)));
    for (const Record row : rows) {
        const QString motif = row[u"Description"].toText().trimmed();
        const QString nom =
            QStringLiteral("  ") + row[u"Nom"].toText().trimmed() + u' ' + row[u"Prenom"].toText().trimmed();
        m_rdv << Rdv{row[u"Date1"].toDate(), minutes(row[u"HeureDebut"]), minutes(row[u"HeureFin"]),
                     motif.isEmpty() ? nom : nom + QStringLiteral("  [") + motif + u']',
                     row[u"Present"].toBoolean()};
    }
}

int SemaineAttendue::lignes() const {
    int ligne = 1;
    while (heure(ligne) < m_soir) {
        ++ligne;
    }
    return ligne + 1; // the last one is the closing row
}

bool SemaineAttendue::grisee(int col, int heure) const {
    const int grise = m_grises[col - 1];
    const bool midi = heure >= m_midi && heure < m_reprise;
    // A greyed morning takes the first row of the lunch break along, even where there is no break.
    const bool matin = heure < m_midi + m_pas;
    return midi || grise == 3 || (grise == 1 && matin) || (grise == 2 && heure >= m_reprise);
}

CelluleAttendue SemaineAttendue::entete(int col) const {
    const JourDeSemaine &jour = semaineDu(m_jours[col - 1]);
    const QDate date = m_lundi.addDays(m_jours[col - 1] - 1);
    return {jour.nom.toString() + date.toString(QStringLiteral(" dd ")) + QStringLiteral("mars"),
            QColor(jour.couleur),
            Qt::white,
            {},
            true};
}

void SemaineAttendue::pose(const Rdv &rdv, int heure, CelluleAttendue &cellule) const {
    const JourDeSemaine &jour = semaineDu(rdv.date.dayOfWeek());
    const bool commence = rdv.debut >= heure;
    const bool finit = rdv.fin <= heure + m_pas;
    const QStringView forme = commence ? (finit ? u"Dbl" : u"Top") : (finit ? u"Low" : u"Mid");
    cellule.image = forme.toString() + jour.image.toString() + QStringLiteral(".bmp");
    const bool premiere = commence || heure == m_matin;
    if (premiere) {
        cellule.texte = rdv.texte;
    }
    if (rdv.present) {
        cellule.fond = QColor(jour.couleur);
        cellule.encre = Qt::white;
    } else if (premiere && rdv.date == m_maintenant.date() &&
               heure < m_maintenant.time().hour() * 60 + m_maintenant.time().minute()) {
        cellule.encre = Qt::red;
    }
}

CelluleAttendue SemaineAttendue::cellule(int ligne, int col) const {
    if (col == 0 || col == colonnes() - 1) {
        return {ligne == 0 ? QStringLiteral("Heure") : etiquette(heure(ligne)),
                gris,
                QColor(240, 240, 240),
                {},
                true};
    }
    if (ligne == 0) {
        return entete(col);
    }
    CelluleAttendue cellule;
    if (grisee(col, heure(ligne))) {
        cellule.fond = gris;
    }
    const QDate date = m_lundi.addDays(m_jours[col - 1] - 1);
    for (const Rdv &rdv : m_rdv) {
        const bool couvre = rdv.debut < heure(ligne) + m_pas && rdv.fin > heure(ligne);
        if (rdv.date == date && couvre && ligne < lignes() - 1) {
            pose(rdv, heure(ligne), cellule);
        }
    }
    return cellule;
}
