#include "grid/AReplacer.h"
#include "support/Texte.h"

#include <gtest/gtest.h>

namespace {

/// Monday 9 March, 09:30 to 09:45.
RendezVous rdv(qint64 ref = 1) {
    RendezVous un;
    un.RefRDV = ref;
    un.Nom = q("DURAND");
    un.Prenom = q("Léa");
    un.NumPatient = q("7");
    un.Date1 = QDate(2026, 3, 9);
    un.HeureDebut = QTime(9, 30);
    un.HeureFin = QTime(9, 45);
    return un;
}

AReplacer note(qint64 ref, int jour = 9) {
    return {QDateTime(QDate(2026, 3, jour), QTime(8, 0)), rdv(ref), rdv(ref)};
}

} // namespace

TEST(AReplacer, SaysWhatHasBecomeOfIt) {
    const auto ailleurs = [](auto change) {
        RendezVous autre = rdv();
        change(autre);
        return autre;
    };
    const RendezVous mardi = ailleurs([](RendezVous &r) { r.Date1 = QDate(2026, 3, 10); });
    const struct {
        const char *nom = nullptr;
        std::optional<RendezVous> actuel, pose;
        EtatReplacer etat = EtatReplacer::EnAttente;
        const char *dit = nullptr;
    } cas[] = {
        {"waits", rdv(), {}, EtatReplacer::EnAttente, "en attente depuis 3 heures"},
        {"longer",
         ailleurs([](RendezVous &r) { r.HeureFin = QTime(10, 0); }),
         {},
         EtatReplacer::EnAttente,
         "en attente depuis 3 heures"},
        {"placed", mardi, mardi, EtatReplacer::Pose, "en attente depuis 3 heures"},
        {"placed, which was undone", rdv(), mardi, EtatReplacer::EnAttente, "en attente depuis 3 heures"},
        {"moved elsewhere", mardi, {}, EtatReplacer::Deplace, "déplacé depuis : mar. 10 mars 09:30"},
        {"to another chair", ailleurs([](RendezVous &r) { r.Fauteuil = 2; }), mardi, EtatReplacer::Deplace,
         "déplacé depuis : lun. 9 mars 09:30"},
        {"gone", {}, mardi, EtatReplacer::Disparu, "ce rendez-vous n'existe plus"},
        {"its key another's",
         ailleurs([](RendezVous &r) { r.Nom = r.NumPatient = q("8"); }),
         {},
         EtatReplacer::Disparu,
         "ce rendez-vous n'existe plus"}};
    for (const auto &c : cas) {
        const AReplacer un{QDateTime(QDate(2026, 3, 9), QTime(8, 0)), rdv(), c.actuel, c.pose};
        EXPECT_EQ(EtatDe(un), c.etat) << c.nom;
        EXPECT_EQ(Listes({un}).isEmpty(), c.etat == EtatReplacer::Pose) << c.nom;
        EXPECT_EQ(EstEpingle({un}, 1), c.etat == EtatReplacer::EnAttente) << c.nom;
        EXPECT_EQ(NomReplacer(un) + PlaceReplacer(un), q("DURAND Léalun. 9 mars 09:30 · 15 min")) << c.nom;
        EXPECT_EQ(AttenteReplacer(un, QDateTime(QDate(2026, 3, 9), QTime(11, 59))), q(c.dit)) << c.nom;
    }
}

TEST(AReplacer, TheOneThatIsChosenElseTheLongestWaiting) {
    AReplacer disparu = note(1, 8);
    disparu.actuel.reset();
    const QList<AReplacer> tous{note(2, 11), note(3, 10), disparu};
    EXPECT_EQ(APoser(tous, 0)->note.RefRDV, 3);
    EXPECT_EQ(APoser(tous, 2)->note.RefRDV, 2);
    EXPECT_EQ(APoser(tous, 1)->note.RefRDV, 1) << "which is told, not another one placed";
    EXPECT_FALSE(APoser({disparu}, 0));
    EXPECT_EQ(TitreReplacer(tous), q("À replacer, 2 en attente"));
    EXPECT_EQ(TitreReplacer({disparu}), q("À replacer"));
    EXPECT_EQ(AttenteReplacer(note(2, 11), QDateTime(QDate(2026, 3, 12), QTime(8, 0))),
              q("en attente depuis 1 jour"));
    EXPECT_EQ(AttenteReplacer(note(2, 11), QDateTime(QDate(2026, 3, 11), QTime(8, 8))),
              q("en attente depuis 8 minutes"));
}
