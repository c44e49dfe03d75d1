#include "booking/ReservationTables.h"
#include "platform/db/DbError.h"
#include "start/Demarrage.h"
#include "start/MiseANiveauTables.h"
#include "support/CabinetDEssai.h"
#include "support/Serveur.h"
#include "support/Texte.h"
#include "transfer/Deplacements.h"

#include <QProcess>

namespace {

/// A practice on the server as the papers say: its database, its roles, one person of each.
class RolesTest : public AvecServeur {
  protected:
    void SetUp() override {
        AvecServeur::SetUp();
        if (!serveur) {
            return;
        }
        un = q("un_") + serveur->base();
        deux = q("deux_") + serveur->base();
        for (const QString &nom : {un, deux}) {
            ASSERT_TRUE(psql({q("cabinet=") + nom}, q("roles.sql")));
            for (const QString &role : {q("proprietaire"), q("secretaire"), q("lecture")}) {
                ASSERT_TRUE(psql({q("cabinet=") + nom, q("personne=") + role + u'_' + nom, q("role=") + role},
                                 q("personne.sql")));
            }
        }
        env = cabinet.environnement();
        env.CheminDesChemins = cabinet.fichier(Base::Chemins);
        const FinDeplacement fin = Deplacements(env, MetANiveauDeplace)
                                       .versServeur(lieu(un, q("proprietaire")),
                                                    [](const QString &, qint64, qint64) { return true; });
        ASSERT_TRUE(fin.fait) << fin.texte;
    }
    void TearDown() override {
        if (serveur) {
            for (const QString &nom : {un, deux}) {
                serveur->demande("drop database if exists " + nom.toUtf8() + " with (force)");
                for (const char *role : {"proprietaire", "secretaire", "lecture"}) {
                    serveur->demande("drop role " + QByteArray(role) + '_' + nom.toUtf8() + ", " +
                                     nom.toUtf8() + '_' + role);
                }
            }
        }
        AvecServeur::TearDown();
    }
    QString lieu(const QString &base, const QString &role, const QString &de = {}) const {
        return serveur->url(role + u'_' + (de.isEmpty() ? base : de))
            .replace(u'/' + serveur->base() + u'?', u'/' + base + u'?');
    }
    Database carnet(const QString &role) const {
        return Database::open(lieu(un, role) + q("\\Fichiers\\Tavelin.mdb"));
    }
    bool psql(const QStringList &variables, const QString &fichier) const {
        QProcess processus;
        QStringList arguments{q("-qd"), serveur->url(), q("-f"), q(DOCS_SERVEUR "/") + fichier};
        for (const QString &variable : variables) {
            arguments << q("-v") << variable;
        }
        processus.start(q("psql"), arguments);
        processus.waitForFinished();
        EXPECT_EQ(processus.readAllStandardError(), QByteArray());
        return processus.exitCode() == 0;
    }

    CabinetDEssai cabinet;
    Environnement env;
    QString un, deux;
};

DbError::Kind sorte(const std::function<void()> &action) {
    try {
        action();
    } catch (const DbError &erreur) {
        return erreur.kind();
    }
    ADD_FAILURE() << "no DbError";
    return DbError::Kind::Other;
}

} // namespace

TEST_F(RolesTest, EachDoesWhatItMayAndNoMore) {
    using Kind = DbError::Kind;
    Database secretaire = carnet(q("secretaire"));
    Database lecture = carnet(q("lecture"));
    Database proprietaire = carnet(q("proprietaire"));
    EXPECT_EQ(secretaire.whyReadOnly() + proprietaire.whyReadOnly(), QString());
    EXPECT_TRUE(EstANiveau(secretaire) && EstANiveau(lecture));
    const auto ajoute = [](Database &base) {
        Transaction transaction(base);
        base.insert(q("RDV"), {{q("Nom"), q("ROUX")}, {q("Date1"), q("2026-03-11")}});
        transaction.commit();
    };
    EXPECT_NO_THROW(ajoute(secretaire));
    EXPECT_EQ(sorte([&] { ajoute(lecture); }), Kind::ReadOnly);
    EXPECT_EQ(sorte([&] { lecture.insert(q("RDV"), {{q("Nom"), q("ROUX")}}); }), Kind::ReadOnly);
    EXPECT_EQ(lecture.query(SqlText("select RefRDV from RDV where Nom = 'ROUX' and RefRDV > 2000")).count(),
              1);
    EXPECT_FALSE(lecture.tableDef(q("RDV")).isUpdatable());
    for (Database *sansDroit : {&secretaire, &lecture}) {
        EXPECT_EQ(sorte([&] {
                      sansDroit->tableDef(q("RDV")).appendField({q("Plus"), FieldType::Int16});
                  }),
                  Kind::ReadOnly);
    }
    EXPECT_NO_THROW(proprietaire.tableDef(q("RDV")).appendField({q("Plus"), FieldType::Int16}));
    EXPECT_EQ(sorte([&] { Database::open(lieu(deux, q("secretaire"), un) + q("\\Fichiers\\Tavelin.mdb")); }),
              Kind::Refused)
        << "another practice's database";
}

TEST_F(RolesTest, AReaderGetsABookThatOnlyReads) {
    Environnement monde = env;
    monde.lectureSeule = std::make_shared<QString>();
    monde.prendEmplacements({q("/nulle/part"), lieu(un, q("lecture"))});
    const Depart depart = Demarre(monde);
    EXPECT_TRUE(depart.premier.has_value()) << depart.messages.join(u'\n');
    EXPECT_TRUE(monde.lectureSeule->contains(q("que le droit de lire"))) << *monde.lectureSeule;
    EXPECT_EQ(sorte([&] { monde.ouvreCarnetPourEcrire(); }), DbError::Kind::ReadOnly);
}
