#include "start/ActionsPatient.h"

#include "patients/HistoriqueTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"
#include "start/CarnetMontre.h"

#include <QWidget>

ActionsPatient::ActionsPatient(const Environnement &env, CarnetMontre &carnet, QWidget &fenetre)
    : QObject(&fenetre), m_env(env), m_carnet(carnet), m_fenetre(fenetre) {}

/// What is selected counts, also when another workstation has deleted it since: the patient has other
/// appointments. Without one, empty names are looked for.
void ActionsPatient::menuAllerHisto_Click() {
    const RendezVous choisi = m_carnet.selection().rdv.value_or(RendezVous());
    qint64 numero = 0;
    if (!essaie(m_env, [&] {
            Database carnet = m_env.ouvreCarnet();
            numero = DernierNumero(carnet, choisi.Nom, choisi.Prenom);
        })) {
        return;
    }
    if (numero == 0) {
        m_env.messages->show(
            QStringLiteral("Le patient ne possède pas de numéro Belmor !\nActin Impossible à exécuter."),
            QStringLiteral("Action Impossible"), Messages::Icon::Critical);
        return;
    }
    if (essaie(m_env, [&] {
            Database historique = m_env.ouvreHistorique();
            DemandeHistorique(historique, numero);
        })) {
        m_fenetre.showMinimized();
    }
}
