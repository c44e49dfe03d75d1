#include "support/Relais.h"

#include <algorithm>
#include <array>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

using std::chrono::milliseconds;
using Horloge = std::chrono::steady_clock;

sockaddr_un adresse(const QByteArray &fichier) {
    sockaddr_un adresse{AF_UNIX, {}};
    std::ranges::copy(fichier, adresse.sun_path);
    return adresse;
}

int prise() {
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

} // namespace

Relais::Relais()
    : m_serveur(qgetenv("TAVELIN_SERVEUR_DOSSIER") + "/.s.PGSQL." + qgetenv("TAVELIN_SERVEUR_PORT")),
      m_ecoute(prise()), m_reveil(eventfd(0, EFD_CLOEXEC)) {
    const auto ici = adresse(m_dossier.filePath(QStringLiteral(".s.PGSQL.5432")).toUtf8());
    if (bind(m_ecoute, reinterpret_cast<const sockaddr *>(&ici), sizeof ici) != 0 ||
        listen(m_ecoute, 64) != 0) {
        qFatal("no socket for the line");
    }
    m_fil = std::thread([this] { tourne(); });
}

Relais::~Relais() {
    {
        const std::scoped_lock verrou(m_verrou);
        m_fini = true;
    }
    eventfd_write(m_reveil, 1);
    m_fil.join();
    close(m_ecoute);
    close(m_reveil);
}

QString Relais::par(QString lieu) const {
    return lieu
        .replace(QStringLiteral("host=") + qEnvironmentVariable("TAVELIN_SERVEUR_DOSSIER"),
                 QStringLiteral("host=") + m_dossier.path())
        .replace(QStringLiteral("port=") + qEnvironmentVariable("TAVELIN_SERVEUR_PORT"),
                 QStringLiteral("port=5432"));
}

void Relais::change(Etat etat) {
    {
        const std::scoped_lock verrou(m_verrou);
        m_etat = etat;
    }
    eventfd_write(m_reveil, 1);
}

void Relais::tait() {
    change(Etat::Tait);
}
void Relais::coupe() {
    change(Etat::Coupe);
}
void Relais::reprend() {
    change(Etat::Passe);
}

void Relais::retarde(milliseconds allerRetour) {
    const std::scoped_lock verrou(m_verrou);
    m_retard = allerRetour / 2;
}

// ---- The thread

void Relais::accueille() {
    const int client = accept4(m_ecoute, nullptr, nullptr, SOCK_CLOEXEC);
    const int serveur = prise();
    const auto la = adresse(m_serveur);
    if (m_etat == Etat::Coupe || connect(serveur, reinterpret_cast<const sockaddr *>(&la), sizeof la) != 0) {
        close(client);
        close(serveur);
        return;
    }
    m_lignes.push_back({{client, serveur}, {serveur, client}});
}

void Relais::ferme(Ligne &ligne) const {
    close(ligne.aller.de);
    close(ligne.retour.de);
    ligne.finie = true;
}

/// Takes what is there, and gives what has been held back for long enough.
void Relais::passe(Ligne &ligne, Sens &sens, bool aLire) const {
    if (aLire && !ligne.finie) {
        std::string octets(65536, '\0');
        const ssize_t lus = read(sens.de, octets.data(), octets.size());
        if (lus <= 0) {
            ferme(ligne);
            return;
        }
        octets.resize(size_t(lus));
        sens.retenus.push_back({Horloge::now() + m_retard, std::move(octets)});
    }
    while (!ligne.finie && !sens.retenus.empty() && sens.retenus.front().du <= Horloge::now()) {
        const std::string &octets = sens.retenus.front().octets;
        if (send(sens.vers, octets.data(), octets.size(), MSG_NOSIGNAL) < 0) {
            ferme(ligne);
            return;
        }
        sens.retenus.pop_front();
    }
}

/// How long nothing has to be done.
milliseconds Relais::echeance(Temps maintenant) const {
    milliseconds attente{1000};
    for (const Ligne &ligne : m_lignes) {
        for (const Sens *sens : {&ligne.aller, &ligne.retour}) {
            if (!sens->retenus.empty()) {
                attente =
                    std::min(attente, std::chrono::ceil<milliseconds>(sens->retenus.front().du - maintenant));
            }
        }
    }
    return std::max(attente, milliseconds(0));
}

void Relais::tourne() {
    std::unique_lock verrou(m_verrou);
    while (!m_fini) {
        const bool tait = m_etat == Etat::Tait;
        std::vector<pollfd> prises{{m_reveil, POLLIN, 0}};
        if (!tait) { // who comes while it is silent waits
            prises.push_back({m_ecoute, POLLIN, 0});
            for (const Ligne &ligne : m_lignes) {
                prises.push_back({ligne.aller.de, POLLIN, 0});
                prises.push_back({ligne.retour.de, POLLIN, 0});
            }
        }
        const milliseconds attente = tait ? milliseconds(1000) : echeance(Horloge::now());
        verrou.unlock();
        poll(prises.data(), prises.size(), int(attente.count()));
        verrou.lock();
        if (eventfd_t vu = 0; prises[0].revents != 0) {
            eventfd_read(m_reveil, &vu);
        }
        if (tait || m_etat == Etat::Tait) {
            continue;
        }
        size_t place = 2;
        for (Ligne &ligne : m_lignes) {
            m_etat == Etat::Coupe ? ferme(ligne) : passe(ligne, ligne.aller, prises[place].revents != 0);
            passe(ligne, ligne.retour, prises[place + 1].revents != 0);
            place += 2;
        }
        m_lignes.remove_if([](const Ligne &ligne) { return ligne.finie; });
        if (prises[1].revents != 0) {
            accueille();
        }
    }
    for (Ligne &ligne : m_lignes) {
        ferme(ligne);
    }
}
