#pragma once

#include <QString>
#include <QTemporaryDir>
#include <chrono>
#include <deque>
#include <list>
#include <mutex>
#include <string>
#include <thread>

/// The line between a program and the private server of a test: a socket of its own in front of the server's,
/// which delays what goes through, falls silent or is cut.
class Relais {
  public:
    Relais();
    ~Relais();
    Relais(const Relais &) = delete;
    Relais &operator=(const Relais &) = delete;

    /// A location of the server, by way of this line.
    QString par(QString lieu) const;

    void retarde(std::chrono::milliseconds allerRetour);
    /// Nothing goes through any more, and nobody is told.
    void tait();
    /// Every connection ends, and none is let in.
    void coupe();
    /// As at the beginning; what was held back while silent goes through.
    void reprend();

  private:
    enum class Etat { Passe, Tait, Coupe };
    using Temps = std::chrono::steady_clock::time_point;
    struct Morceau {
        Temps du;
        std::string octets;
    };
    struct Sens {
        int de, vers;
        std::deque<Morceau> retenus = {};
    };
    struct Ligne {
        Sens aller, retour;
        bool finie = false;
    };

    void change(Etat etat);
    void tourne();
    void accueille();
    void passe(Ligne &ligne, Sens &sens, bool aLire) const;
    std::chrono::milliseconds echeance(Temps maintenant) const;
    void ferme(Ligne &ligne) const;

    QTemporaryDir m_dossier;
    QByteArray m_serveur;
    int m_ecoute;
    int m_reveil;
    std::mutex m_verrou; ///< of the three below
    Etat m_etat = Etat::Passe;
    std::chrono::milliseconds m_retard{0};
    bool m_fini = false;
    std::list<Ligne> m_lignes; ///< the thread's own
    std::thread m_fil;
};
