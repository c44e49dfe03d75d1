#include "support/CabinetDEssai.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

OptionsCabinet avec(int rdv, bool ancien = false, quint32 graine = 1) {
    return {graine, 120, 1, rdv, QDate(2026, 3, 11), ancien};
}

TEST(Cabinet, TheSeedDecidesEveryRow) {
    const auto bases = [](quint32 graine) {
        return CabinetDEssai(avec(300, false, graine)).empreintes().filter(QStringLiteral("Fichiers/"));
    };
    EXPECT_EQ(bases(1), bases(1));
    EXPECT_NE(bases(1), bases(2));
}

TEST(Cabinet, AppointmentsAreAsManyAsAskedAndNeverOverlap) {
    const SqlText tous("Select * from RDV order by NumPraticien, Fauteuil, DateInv, HeureDebut");
    int semaine = 0; // appointments of the current one, at the first chair
    for (const int voulus : {0, 2000, 100'000}) {
        const Records rdv = CabinetDEssai(avec(voulus)).ouvre(Base::RendezVous).query(tous);
        ASSERT_EQ(rdv.count(), voulus);
        semaine = 0;
        QString agenda;
        QTime libre;
        for (const Record &r : rdv) {
            const QString jour = r[u"Date1"].toDate().toString(u"yyyyMMdd");
            const QString ici = r[u"NumPraticien"].toText() + r[u"Fauteuil"].toText() + jour;
            ASSERT_EQ(r[u"DateInv"].toText(), jour);
            ASSERT_TRUE(ici != agenda || r[u"HeureDebut"].toTime() >= libre) << qPrintable(ici);
            ASSERT_LT(r[u"HeureDebut"].toTime(), r[u"HeureFin"].toTime());
            semaine += ici >= u"01120260309" && ici <= u"01120260315" ? 1 : 0;
            agenda = ici;
            libre = r[u"HeureFin"].toTime();
        }
    }
    EXPECT_EQ(semaine, 336); // a full book has no hole there
    const SqlText ancien("Select RefRDV from RDV Where clng(NumPraticien) = 1");
    EXPECT_GT(CabinetDEssai(avec(500, true)).ouvre(Base::RendezVous).query(ancien).count(), 100);
}

TEST(Cabinet, AFolderThatHoldsAPracticeOrFailsIsLeftAsItWas) {
    // The last stands where the path database is prepared: everything is written before it fails.
    for (const char *present : {"CheminBelmor.mdb", "Base", "Donnees", "CheminBelmor.mdb.part"}) {
        const QTemporaryDir dossier;
        const QDir dans(dossier.path());
        ASSERT_TRUE(dans.mkdir(QString::fromLatin1(present)));
        EXPECT_ANY_THROW(ecritCabinet(dossier.path(), avec(300))) << present;
        EXPECT_EQ(dans.entryList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot).join(u' '),
                  QString::fromLatin1(present));
        EXPECT_TRUE(QDir(dans.filePath(QString::fromLatin1(present))).isEmpty());
    }
}

} // namespace
