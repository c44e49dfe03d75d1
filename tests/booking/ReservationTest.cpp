#include "booking/ReservationTables.h"

#include "Schema.h"
#include "platform/db/DateInverse.h"
#include "platform/db/DbError.h"
#include "start/MiseANiveauTables.h"
#include "support/Livre.h"

#include <QFile>
#include <QTemporaryDir>
#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <latch>
#include <sys/resource.h>
#include <thread>

namespace {

const QDate mardi(2026, 3, 10);
const QString table = q("RDV");

QTime h(const char *texte) {
    return QTime::fromString(QString::fromLatin1(texte), Qt::ISODate);
}

SaisieRDV saisie(const char *debut, const char *fin, const QString &nom = q("MARTIN"), QDate jour = mardi) {
    return {nom, q("Paul"), {}, {}, q("12"), jour, h(debut), h(fin)};
}

NouveauRDV nouveau(const SaisieRDV &saisie, const char *praticien = "01", const char *fauteuil = "1") {
    return {saisie, QString::fromLatin1(praticien), QString::fromLatin1(fauteuil)};
}

DbError::Kind kindOf(const std::function<void()> &action) {
    try {
        action();
    } catch (const DbError &error) {
        return error.kind();
    }
    ADD_FAILURE() << "no DbError";
    return DbError::Kind::Structure;
}

class ReservationTest : public testing::Test {
  protected:
    ReservationTest() {
        creeBase(fichier, schema(Base::RendezVous));
        base = std::make_unique<Database>(Database::open(fichier));
        EXPECT_EQ(MetANiveau(*base), QString());
    }
    qint64 ajoute(const NouveauRDV &n) { return AjouteRDV(*base, n).value_or(0); }
    /// A row that no rule has looked at.
    void insere(QTime debut, QTime fin, QDate jour = mardi) {
        base->insert(table, {{q("Date1"), Value::date(jour)},
                             {q("DateInv"), InverseDate(jour)},
                             {q("HeureDebut"), Value::time(debut)},
                             {q("HeureFin"), Value::time(fin)},
                             {q("NumPraticien"), q("01")},
                             {q("Fauteuil"), 1}});
    }
    RendezVous rdv(qint64 ref) { return LitRDV(*base, ref).value_or(RendezVous()); }
    Records rows() { return base->query(SqlText("select * from RDV order by RefRDV")); }
    QStringList champs(qint64 ref) {
        const Records row = base->query(SqlText("select * from RDV where RefRDV = ") << nombre(ref));
        QStringList liste;
        for (int i = 1; i < row.fields().size() && !row.isEmpty(); ++i) {
            liste << row.fields()[i] + u'=' + row.at(0, i).toText();
        }
        liste.sort();
        return liste;
    }

    QTemporaryDir dir;
    const QString fichier = dir.filePath(q("Tavelin.mdb"));
    std::unique_ptr<Database> base;
};

QStringList mots(const char *texte) {
    return QString::fromUtf8(texte).split(u'|');
}

} // namespace

TEST_F(ReservationTest, WritesEveryField) {
    NouveauRDV n{{q("D'ARC"), q("L'Élise"), q("02 97"), q("L'appareil"), q("042"), QDate(2024, 12, 1),
                  h("09:05:40"), h("09:35:10")},
                 q("01"),
                 q("2"),
                 false};
    const qint64 ref = ajoute(n);
    EXPECT_EQ(champs(ref), mots("Date1=2024-12-01|DateInv=20241201|Description=L'appareil|Fauteuil=2|"
                                "HeureDebut=09:05:00|HeureFin=09:35:00|Nom=D'ARC|NumPatient=42|"
                                "NumPraticien=01|Prenom=L'Élise|Present=0|Professionnel=0|Telephone=02 97"));
    EXPECT_EQ(MarquePresent(*base, rdv(ref), true).resultat, Ecriture::Fait);
    EXPECT_EQ(ModifieRDV(*base, rdv(ref), saisie("10:00", "10:30"), 1, 2).resultat, Ecriture::Fait);
    EXPECT_EQ(champs(ref), mots("Date1=2026-03-10|DateInv=20260310|Description=|Fauteuil=2|"
                                "HeureDebut=10:00:00|HeureFin=10:30:00|Nom=MARTIN|NumPatient=12|"
                                "NumPraticien=01|Prenom=Paul|Present=1|Professionnel=0|Telephone="));
    ajoute(nouveau(saisie("09:00", "09:30"), "01", "2"));
    const QList<RendezVous> jour = RendezVousEntre(*base, mardi, mardi, 1, 2);
    ASSERT_EQ(jour.size(), 2);
    EXPECT_LT(jour[0].HeureDebut, jour[1].HeureDebut) << "in the order of the day";
}

TEST_F(ReservationTest, BooksAndMovesOnlyToWhatIsFree) {
    const auto demain = [](SaisieRDV s) { return s.Date1 = mardi.addDays(1), s; };
    struct {
        const char *nom = nullptr;
        NouveauRDV nouveau;
        bool libre = false;
    } const cas[] = {{"after it", nouveau(saisie("09:30", "10:00")), true},
                     {"another chair", nouveau(saisie("09:00", "09:30"), "01", "2"), true},
                     {"another practitioner", nouveau(saisie("09:00", "09:30"), "02"), true},
                     {"another day", nouveau(demain(saisie("09:00", "09:30"))), true},
                     {"the number without its zero", nouveau(saisie("09:00", "09:30"), "1"), false},
                     {"around it", nouveau(saisie("08:00", "12:00")), false},
                     {"inside it", nouveau(saisie("09:10", "09:15")), false},
                     {"no length", nouveau(saisie("15:00", "15:00")), false},
                     {"backwards", nouveau(saisie("15:00", "14:00")), false},
                     {"no time", nouveau(saisie("", "14:00")), false}};
    const qint64 present = ajoute(nouveau(saisie("09:00", "09:30")));
    const qint64 autre = ajoute(nouveau(saisie("18:00", "18:30"), "03", "3"));
    for (const auto &c : cas) {
        const auto resultat = ModifieRDV(*base, rdv(autre), c.nouveau.saisie, CLng(c.nouveau.NumPraticien),
                                         CLng(c.nouveau.Fauteuil))
                                  .resultat;
        EXPECT_EQ(resultat, c.libre ? Ecriture::Fait : Ecriture::Occupe) << c.nom;
        const qint64 ref = ajoute(c.nouveau);
        EXPECT_EQ(ref != 0, c.libre) << c.nom;
        SupprimeRDV(*base, rdv(ref));
    }
    EXPECT_EQ(ModifieRDV(*base, rdv(present), saisie("09:15", "09:45"), 1, 1).resultat, Ecriture::Fait)
        << "no conflict with itself";
    EXPECT_EQ(ModifieRDV(*base, rdv(autre), saisie("15:00", "15:30"), 1, 1).resultat, Ecriture::Fait);
    ajoute(nouveau(saisie("16:00", "16:30"), "03", "3"));
    EXPECT_EQ(ModifieRDV(*base, rdv(autre), saisie("16:00", "16:30"), 1, 1).resultat, Ecriture::Occupe)
        << "on its own chair";
    // an older program may have left either date wrong: what it wrote is in the way all the same
    for (const SqlText &dates :
         {SqlText("DateInv = '?'"), SqlText("DateInv = '?', Date1 = '2026-03-10 00:00:00'")}) {
        base->execute(SqlText("update RDV set ") << dates << " where RefRDV = " << nombre(present));
        EXPECT_EQ(ajoute(nouveau(saisie("09:00", "09:30"))), 0);
    }
}

TEST_F(ReservationTest, WritesNothingOverWhatAnotherDeskDid) {
    struct {
        SqlText ailleurs;
        Ecriture modifie, present, supprime;
    } const cas[] = {
        {SqlText("update RDV set Present = 1"), Ecriture::Fait, Ecriture::Fait, Ecriture::Change},
        {SqlText("update RDV set Fauteuil = 2"), Ecriture::Fait, Ecriture::Fait, Ecriture::Change},
        {SqlText("update RDV set Description = 'x'"), Ecriture::Change, Ecriture::Change, Ecriture::Change},
        {SqlText("update RDV set NumPatient = 13"), Ecriture::Change, Ecriture::Change, Ecriture::Change},
        {SqlText("update RDV set HeureFin = '09:45:00'"), Ecriture::Change, Ecriture::Change,
         Ecriture::Change},
        {SqlText("delete from RDV"), Ecriture::Disparu, Ecriture::Disparu, Ecriture::Disparu}};
    for (const auto &c : cas) {
        const std::pair<Ecriture, std::function<BilanEcriture(const RendezVous &)>> ecritures[] = {
            {c.modifie,
             [&](const RendezVous &avant) {
                 return ModifieRDV(*base, avant, saisie("10:00", "10:30"), 1, 1);
             }},
            {c.present, [&](const RendezVous &avant) { return MarquePresent(*base, avant, true); }},
            {c.supprime, [&](const RendezVous &avant) { return SupprimeRDV(*base, avant); }}};
        for (const auto &[attendu, ecriture] : ecritures) {
            const qint64 ref = ajoute(nouveau(saisie("09:00", "09:30")));
            const RendezVous avant = rdv(ref);
            base->execute(c.ailleurs);
            const QStringList laisse = champs(ref);
            const BilanEcriture bilan = ecriture(avant);
            EXPECT_EQ(bilan.resultat, attendu) << qPrintable(c.ailleurs.text());
            EXPECT_EQ(bilan.actuel, attendu == Ecriture::Change ? rdv(ref) : RendezVous());
            EXPECT_TRUE(attendu == Ecriture::Fait || champs(ref) == laisse) << qPrintable(c.ailleurs.text());
            base->execute(SqlText("delete from RDV"));
        }
    }
}

TEST_F(ReservationTest, ASlotThatIsBeingTakenIsTaken) {
    constexpr int postes = 6;
    const QDate pris = mardi.addDays(1);
    const QDate libre = mardi.addDays(2);
    std::atomic<int> ajouts = 0;
    std::latch partis(postes);
    std::vector<std::jthread> fils;
    fils.reserve(postes);
    Transaction longue(*base);
    insere(h("09:00"), h("09:30"), pris); // nobody else can see it yet
    for (int i = 0; i < postes; ++i) {
        fils.emplace_back([&] {
            Database poste = Database::open(fichier);
            partis.count_down();
            EXPECT_FALSE(AjouteRDV(poste, nouveau(saisie("09:00", "09:30", {}, pris))));
            ajouts += AjouteRDV(poste, nouveau(saisie("09:00", "09:30", {}, libre))) ? 1 : 0;
        });
    }
    partis.wait();
    for (int jour = 0; jour < 1000; ++jour) { // work enough for a check made too early to have passed
        insere(h("09:00"), h("09:30"), libre.addDays(jour + 1));
    }
    longue.commit();
    fils.clear(); // waits for all of them
    EXPECT_EQ(ajouts, 1);
}

TEST_F(ReservationTest, NothingIsWrittenInALockedOrReadOnlyBook) {
    const qint64 ref = ajoute(nouveau(saisie("09:00", "09:30")));
    const QStringList avant = champs(ref);
    const RendezVous present = rdv(ref);
    const std::function<void(Database &)> ecritures[] = {
        [](Database &b) { AjouteRDV(b, nouveau(saisie("10:00", "10:30"))); },
        [present](Database &b) { ModifieRDV(b, present, saisie("10:00", "10:30"), 1, 1); },
        [present](Database &b) { SupprimeRDV(b, present); },
        [present](Database &b) { MarquePresent(b, present, true); }};
    const auto chacuneEchoue = [&](DbError::Kind kind) {
        std::vector<std::jthread> fils; // together, so that they wait for the lock together
        fils.reserve(std::size(ecritures));
        for (const auto &ecriture : ecritures) {
            fils.emplace_back([&] {
                Database poste = Database::open(fichier);
                EXPECT_EQ(kindOf([&] { ecriture(poste); }), kind);
            });
        }
    };
    {
        const Transaction autrePoste(*base);
        chacuneEchoue(DbError::Kind::Locked);
    }
    const QFile::Permissions permissions = QFile::permissions(fichier);
    QFile::setPermissions(fichier, QFile::ReadOwner | QFile::ReadUser);
    chacuneEchoue(DbError::Kind::ReadOnly);
    QFile::setPermissions(fichier, permissions);
    EXPECT_EQ(champs(ref), avant);
    EXPECT_EQ(rows().count(), 1);
}

namespace {

/// No file may grow beyond `octets`, as on a disk that is full.
class DisquePlein {
  public:
    explicit DisquePlein(qint64 octets) : m_signal(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_avant);
        const rlimit limite{rlim_t(octets), m_avant.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~DisquePlein() {
        setrlimit(RLIMIT_FSIZE, &m_avant);
        (void)std::signal(SIGXFSZ, m_signal);
    }
    DisquePlein(const DisquePlein &) = delete;
    DisquePlein &operator=(const DisquePlein &) = delete;

  private:
    void (*m_signal)(int);
    rlimit m_avant{};
};

} // namespace

TEST_F(ReservationTest, AFullDiskTakesAnAppointmentWholeOrNotAtAll) {
    QStringList acquittes;
    const auto ajouteLe = [&](int jour) {
        const qint64 ref = ajoute(nouveau(saisie("09:00", "09:30", QString(200, u'é'), mardi.addDays(jour))));
        acquittes << champs(ref).join(u'|');
    };
    int jour = 0;
    {
        const DisquePlein plein(QFile(fichier).size());
        const auto remplit = [&] {
            for (; jour < 10'000; ++jour) {
                ajouteLe(jour);
            }
        };
        EXPECT_EQ(kindOf(remplit), DbError::Kind::Other); // a quota's error, not that of a full disk
        EXPECT_EQ(rows().count(), jour);
    }
    ajouteLe(jour);
    QStringList gardes;
    for (const Record row : rows()) {
        gardes << champs(row[u"RefRDV"].toInteger()).join(u'|');
    }
    EXPECT_EQ(gardes, acquittes);
    EXPECT_EQ(base->query(SqlText("PRAGMA integrity_check")).first().at(0).toText(), q("ok"));
}
