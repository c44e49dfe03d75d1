#pragma once

#include "booking/Selection.h"
#include "practice/Environnement.h"

#include <QObject>
#include <functional>

/// What is shown and what is selected: the two values that the window is drawn from. Nothing else holds them,
/// and they change here only, whole, after everything was read.
class CarnetMontre : public QObject {
    Q_OBJECT
  public:
    /// Whether a reading that fails is told each time, or once until one goes well again.
    enum class Annonce { Toujours, UneFois };

    CarnetMontre(const Environnement &env, QObject *parent) : QObject(parent), m_env(env) {}

    /// Nothing was read yet: the Affichage has no grid.
    bool estVide() const { return m_affichage.grilles.isEmpty(); }
    const Affichage &affichage() const { return m_affichage; }
    const Selection &selection() const { return m_selection; }
    /// Why the last reading failed; empty when it did not.
    const QString &lectureManquee() const { return m_lectureManquee; }
    /// What nobody can reach is shown as it was, and is not written into; what is asked for meanwhile fails
    /// at once, with `pourquoi`. Empty: it can be reached again.
    void perdContact(const QString &pourquoi);
    bool enContact() const { return m_contactPerdu.isEmpty(); }
    QDate jourCourant() const { return JourCourant(m_affichage, m_selection); }

    /// Shows what was read; the selection is found again on it.
    void prend(const Affichage &lu);
    /// Reads what is asked for, and shows it. False: the reading failed, and all stays.
    bool montre(const Demande &demande, Annonce annonce = Annonce::Toujours);
    /// The same once more, everything kept.
    bool relit(Annonce annonce = Annonce::Toujours) { return montre(m_affichage.suite(), annonce); }

    // Elsewhere in the book: chair and configuration as the book has them
    void montrePraticien(const QString &numero);
    void montreFauteuil(long fauteuil);
    bool montreSemaine();
    bool montreJour();
    /// The book as it is, unsaved settings and zoom given up where the week is shown.
    void rafraichit();
    // Elsewhere with the same chair and configuration
    void vaAu(QDate jour);
    /// Goes to a free place and selects its hours. False: the reading failed, and all stays.
    bool montrePlace(const PlaceRDV &place);
    /// One week, or one day, on (1) or back (-1); says where the book ends.
    void tourne(int sens);
    /// The week in 5-minute slots, or back; the day grids keep their own.
    bool basculeZoom();
    /// The configuration that the settings windows work on, and what they make of it.
    const Configuration &reglages() const { return m_affichage.reglages(m_selection.grille); }
    void prendReglages(const Configuration &config);

    /// What the user selects. A click looks at the book first: a day that is not what is shown any more is
    /// shown again, and one that cannot be read leaves the selection where it is.
    /// `RefRDV`: the appointment that is clicked, where it stands beside others; else 0.
    void selectionne(int grille, const Coins &coins, Geste geste, qint64 RefRDV = 0);
    /// The free selection ends a row later or earlier; it stays where an appointment is in the way.
    void etend(Sens sens);
    /// Selects an appointment, if it is shown.
    bool selectionneRDV(qint64 RefRDV);
    /// Goes where an appointment lies now and selects it: in the view that is shown, or in the other one
    /// where only that has its day. One that is gone, or that neither shows, is told, and what is shown is
    /// read again.
    void montreRDV(qint64 RefRDV);
    /// Reads again after a writing and selects what was written (RefRDV 0: nothing); tells where it lies when
    /// it is not shown.
    void montreEcrit(const RendezVous &rdv);
    /// A double click's first press was no wish for the next appointment of the row.
    void annuleSuivant();

  signals:
    /// Another Affichage, and with it another selection.
    void affichageChange();
    void selectionChange();
    /// The selection was asked for by its appointment, and may lie out of sight.
    void selectionAMontrer();
    /// A reading begins: all that was written until now will be in it.
    void lectureCommence();
    /// A reading went well or failed, or none is possible any more.
    void lectureChange();

  private:
    bool lit(const std::function<void(Database &)> &lecture, Annonce annonce);
    std::optional<Affichage> lit(const Demande &demande, Annonce annonce);
    /// The only place that assigns what is shown.
    void prend(const Affichage &lu, const Selection &selection);
    bool relitJour(int grille, QDate jour);
    Demande courante() const;
    QList<Demande> demandesPour(const RendezVous &rdv) const;
    void prendSelection(const Selection &selection);

    const Environnement &m_env;
    Affichage m_affichage;
    Selection m_selection;
    Selection m_avantClic;
    QString m_lectureManquee;
    QString m_contactPerdu;
};
