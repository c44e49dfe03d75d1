#pragma once

#include <QString>
#include <gtest/gtest.h>
#include <memory>

struct pg_conn;

/// A database of its own on the private server that avec-postgres gives a test, and another client on it, in
/// the server's own words. Both go with it.
class Serveur {
  public:
    Serveur();
    ~Serveur();
    Serveur(const Serveur &) = delete;
    Serveur &operator=(const Serveur &) = delete;

    /// Whether there is a server. Where there is none, the test says so and is skipped; not under CI.
    static bool present();

    /// Where `fichier` of the catalogue lies, for `utilisateur`, with more parameters ("&connect_timeout=1").
    QString lieu(const QString &fichier = QStringLiteral("Tavelin.mdb"),
                 const QString &utilisateur = QStringLiteral("tavelin"), const QString &plus = {}) const;
    QString url(const QString &utilisateur = QStringLiteral("tavelin"), const QString &plus = {}) const;
    const QString &base() const { return m_base; }
    /// The first field of the first row. A failure is the test's.
    QString demande(const QByteArray &sql) const;

  private:
    QString m_base;
    pg_conn *m_autre = nullptr;
};

/// A fixture with one; what needs it is skipped without.
class AvecServeur : public testing::Test {
  protected:
    void SetUp() override {
        if (!Serveur::present()) {
            GTEST_SKIP() << "no PostgreSQL here";
        }
        serveur = std::make_unique<Serveur>();
    }
    void TearDown() override { serveur.reset(); }

    std::unique_ptr<Serveur> serveur;
};
