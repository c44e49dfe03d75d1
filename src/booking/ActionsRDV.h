#pragma once

#include "booking/HorairesRDV.h"
#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"
#include "journal/Ecriture.h"

#include <QObject>

class QWidget;
struct BilanEcriture;
struct Environnement;

/// What the menus do with a place or an appointment: each opens its window, or acts at once.
class ActionsRDV : public QObject {
    Q_OBJECT
  public:
    /// `fenetre` is the windows' parent.
    ActionsRDV(const Environnement &env, QWidget &fenetre);

    /// `place` is free; a range across the working hours is asked about first.
    void ajoute(const PlaceRDV &place);
    /// `rdv` is the appointment as the window shows it, just read, here and below.
    void edite(const RendezVous &rdv, const PlaceRDV &place);
    void supprime(const RendezVous &rdv, const PlaceRDV &place);
    void marquePresent(const RendezVous &rdv, bool present);
    /// Its end moves by one slot of `place`; where it cannot, nothing is written.
    void changeDuree(const RendezVous &rdv, const PlaceRDV &place, Sens sens);
    /// Moves it to the start of `place`, as long as it is; what is odd there is asked first.
    void deplace(const RendezVous &rdv, const PlaceRDV &place);
    /// Sets it aside; it stays where it is.
    void metDeCote(const RendezVous &rdv);
    void reporte();

  signals:
    /// The book was changed, or is not what the window shows: it is to be read again. `rdv` is the
    /// appointment as it now stands, its RefRDV 0 when there is none left; `ecriture` what was written here,
    /// empty when nothing was.
    void rdvEcrit(const RendezVous &rdv, const EcritureRDV &ecriture);

  private:
    /// Tells what became of a writing that was to make `voulu` of `rdv`, and signals it.
    void conclut(const BilanEcriture &bilan, const RendezVous &rdv, const RendezVous &voulu);

    const Environnement &m_env;
    QWidget &m_fenetre;
};
