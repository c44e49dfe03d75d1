#include "grid/ReplacerTables.h"

#include <algorithm>

namespace {

const QString table = QStringLiteral("TavReplacer");
const QString cle = QStringLiteral("RefReplacer");
const QString formeQuand = QStringLiteral("yyyy-MM-dd HH:mm:ss");
constexpr int longueurNom = 50;

const std::vector<FieldDef> &champs() {
    static const std::vector<FieldDef> tous{
        {cle, FieldType::AutoNumber},
        {QStringLiteral("RefRDV"), FieldType::Int32},
        {QStringLiteral("Depuis"), FieldType::Text, 19},
        {QStringLiteral("NumPraticien"), FieldType::Int32},
        {QStringLiteral("Fauteuil"), FieldType::Int32},
        {QStringLiteral("Nom"), FieldType::Text, longueurNom},
        {QStringLiteral("Prenom"), FieldType::Text, longueurNom},
        {QStringLiteral("NumPatient"), FieldType::Text, longueurNom},
        {QStringLiteral("Jour"), FieldType::Text, 10},
        {QStringLiteral("HeureDebut"), FieldType::Text, 8},
        {QStringLiteral("HeureFin"), FieldType::Text, 8},
        {QStringLiteral("JourPose"), FieldType::Text, 10}, // where it was placed since
        {QStringLiteral("DebutPose"), FieldType::Text, 8},
        {QStringLiteral("FauteuilPose"), FieldType::Int32},
    };
    return tous;
}

void efface(Database &carnet, qint64 RefRDV) {
    carnet.execute(SqlText("Delete from TavReplacer Where RefRDV = ") << nombre(RefRDV));
}

} // namespace

bool ReplacerEstPret(Database &carnet) {
    if (!carnet.hasTable(table)) {
        return false;
    }
    const TableDef def = carnet.tableDef(table);
    return def.isUpdatable() && def.hasField(champs().back().name);
}

void PrepareReplacer(Database &carnet) {
    Transaction transaction(carnet);
    carnet.completedTable(table, champs());
    transaction.commit();
}

LectureReplacer::LectureReplacer(Database &carnet, long praticien)
    : m_praticien(praticien), m_pret(carnet.hasTable(table)) {}

std::vector<Requete> LectureReplacer::requetes() {
    if (!m_pret) {
        return {};
    }
    const auto note = [this](const RowView &r) {
        AReplacer un;
        un.depuis = QDateTime::fromString(r.text(1), formeQuand);
        un.note.RefRDV = r.integer(0);
        un.note.NumPraticien = m_praticien;
        un.note.Fauteuil = long(r.integer(2));
        un.note.Nom = r.text(3);
        un.note.Prenom = r.text(4);
        un.note.NumPatient = r.text(5);
        un.note.Date1 = r.date(6);
        un.note.HeureDebut = r.time(7);
        un.note.HeureFin = r.time(8);
        if (const QDate jour = r.date(9); jour.isValid()) {
            un.pose = un.note;
            un.pose->Date1 = jour;
            un.pose->HeureDebut = r.time(10);
            un.pose->Fauteuil = long(r.integer(11));
        }
        m_notes << un;
    };
    SqlText notes("Select RefRDV, Depuis, Fauteuil, Nom, Prenom, NumPatient, Jour, HeureDebut, HeureFin, "
                  "JourPose, DebutPose, FauteuilPose from TavReplacer Where NumPraticien = ");
    notes << nombre(m_praticien) << " order by RefReplacer";
    return {{notes, note}};
}

QList<AReplacer> LectureReplacer::lus(Database &carnet) const {
    QList<AReplacer> tous = m_notes;
    if (tous.isEmpty()) { // nearly always, and every redraw asks
        return tous;
    }
    QList<RendezVous> actuels;
    SqlText siennes("RefRDV in (Select RefRDV from TavReplacer Where NumPraticien = ");
    siennes << nombre(m_praticien) << ")";
    carnet.forEach({RequeteRDV(siennes, actuels)});
    for (AReplacer &un : tous) {
        const auto actuel = std::ranges::find(actuels, un.note.RefRDV, &RendezVous::RefRDV);
        un.actuel = actuel == actuels.end() ? std::nullopt : std::optional(*actuel);
    }
    return tous;
}

QList<AReplacer> LitAReplacer(Database &carnet, long praticien) {
    LectureReplacer lecture(carnet, praticien);
    carnet.forEach(lecture.requetes());
    return lecture.lus(carnet);
}

MiseDeCote MetDeCote(Database &carnet, const RendezVous &rdv, const QDateTime &quand) {
    Transaction transaction(carnet);
    if (!ReplacerEstPret(carnet)) {
        return MiseDeCote::SansTable;
    }
    if (LitRDV(carnet, rdv.RefRDV) != rdv) { // another desk may have placed it by now
        return MiseDeCote::Change;
    }
    const QList<AReplacer> tous = LitAReplacer(carnet, rdv.NumPraticien);
    if (EstEpingle(tous, rdv.RefRDV)) { // another desk was first
        return MiseDeCote::Fait;
    }
    const QDateTime hier = quand.addDays(-1); // nobody undoes what was placed before
    for (const AReplacer &un : tous) {
        if (un.note.RefRDV == rdv.RefRDV || (EtatDe(un) == EtatReplacer::Pose && un.depuis < hier)) {
            efface(carnet, un.note.RefRDV);
        }
    }
    carnet.insert(table, {{QStringLiteral("RefRDV"), rdv.RefRDV},
                          {QStringLiteral("Depuis"), quand.toString(formeQuand)},
                          {QStringLiteral("NumPraticien"), qint64{rdv.NumPraticien}},
                          {QStringLiteral("Fauteuil"), qint64{rdv.Fauteuil}},
                          {QStringLiteral("Nom"), rdv.Nom.left(longueurNom)},
                          {QStringLiteral("Prenom"), rdv.Prenom.left(longueurNom)},
                          {QStringLiteral("NumPatient"), rdv.NumPatient.left(longueurNom)},
                          {QStringLiteral("Jour"), Value::date(rdv.Date1)},
                          {QStringLiteral("HeureDebut"), Value::time(rdv.HeureDebut)},
                          {QStringLiteral("HeureFin"), Value::time(rdv.HeureFin)}});
    transaction.commit();
    return MiseDeCote::Fait;
}

void NotePose(Database &carnet, qint64 RefRDV, const RendezVous &pose) {
    if (!ReplacerEstPret(carnet)) {
        return;
    }
    carnet.execute(SqlText("Update TavReplacer Set JourPose = ")
                   << texte(pose.Date1.toString(Qt::ISODate))
                   << ", DebutPose = " << texte(pose.HeureDebut.toString(QStringLiteral("HH:mm:ss")))
                   << ", FauteuilPose = " << nombre(pose.Fauteuil) << " Where RefRDV = " << nombre(RefRDV));
}

void RetireReplacer(Database &carnet, qint64 RefRDV) {
    Transaction transaction(carnet);
    if (ReplacerEstPret(carnet)) {
        efface(carnet, RefRDV);
    }
    transaction.commit();
}
