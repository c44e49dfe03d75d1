#pragma once

#include "booking/HorairesRDV.h"
#include "booking/Insolite.h"
#include "grid/PlaceRDV.h"
#include "grid/RendezVous.h"
#include "journal/Ecriture.h"

#include <QObject>
#include <functional>
#include <optional>

class Database;
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
    /// As `apres` has it, on `place`; what is odd there is asked first.
    void deplace(const RendezVous &rdv, const RendezVous &apres, const PlaceRDV &place);
    /// Books the patient of `rdv` once more, as `encore` has it; a range across the working hours is asked
    /// about first, as what is odd is.
    void reserveEncore(const RendezVous &rdv, const RendezVous &encore, const PlaceRDV &place);
    /// Says that another appointment lies there; `encore`: where one was to be booked.
    void refuse(bool encore);
    /// Sets it aside; it stays where it is.
    void metDeCote(const RendezVous &rdv);
    /// Takes it off the list of what is set aside.
    void retireDeCote(qint64 RefRDV);
    void reporte();

  signals:
    /// The book was changed, or is not what the window shows: it is to be read again. `rdv` is the
    /// appointment as it now stands, its RefRDV 0 when there is none left; `ecriture` what was written here,
    /// empty when nothing was.
    void rdvEcrit(const RendezVous &rdv, const EcritureRDV &ecriture);

  private:
    /// How the user classes a range across the working hours; nothing, when he went back.
    std::optional<PlaceRDV> classee(const PlaceRDV &place, const QList<Insolite> &insolites);
    /// Writes an appointment anew as `visee` has it.
    void reecrit(const Visee &visee, const std::function<BilanEcriture(Database &)> &ecriture);
    /// Tells what kept `rdv` from becoming `apres`, and has the book read again.
    void rend(const RendezVous &rdv, const RendezVous &apres, const BilanEcriture &bilan,
              bool encore = false);

    const Environnement &m_env;
    QWidget &m_fenetre;
};
