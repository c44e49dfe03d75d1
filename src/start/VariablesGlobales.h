#pragma once

#include "schedule/Configuration.h"
#include "grid/RendezVous.h"
#include "practice/Environnement.h"

/// The program-wide state, created once and handed to windows.
struct VariablesGlobales : Environnement {
    // Hand-off and practitioner
    QString PraticienCourant; ///< number as text: "01"
    QString NomPatientTransmis;
    QString PrenomPatientTransmis;
    int NumPatientTransmis = 0;
    bool AvecWord = false;
    int NbPraticiens = 0;

    // Loaded configuration
    Configuration config;
    bool ConfigExiste = false;  ///< the practitioner has a configuration of his own
    bool AvecFauteuils = false; ///< one of his configurations has a chair other than 0
    int ConfigGrilleJour = -1;  ///< day grid (0 or 1) whose chair's configuration is loaded, -1 for none
    int intervalleSansZoom = 0; ///< slot length to come back to, 0 until the first zoom

    // View
    bool VueSemaine = true;
    QDate txtNumJourEnCours; ///< the current date
    int JourSemaineCourant = 0;

    // Appointment being drawn or selected
    QTime HeureDebutCourante;
    QTime HeureFinCourante;
    QString NomRDV;
    QString PrenomRDV;
    QString TelephoneRDV;
    QString DescriptionRDV;
    QString NumPatientCourant;
    bool PresentRDV = false;
    int ColonneJour = 1;

    // Selection
    int LigneDebut = 0; ///< rows and columns of the last selection; 0: nothing was selected yet
    int LigneFin = 0;
    int ColonneDebut = 0;
    int ColonneFin = 0;
    int ChoixHoraire = 0; ///< the selection against the working hours, see HoraireProf
    qint64 RefRDVCourant = 0;
    bool SelectionLibre = true;
    bool RDVPartiel = false;
    bool RDVHorsGrille = false;
    QString txtUnPatientBelmor;

    /// The current practitioner's number, as every query writes it.
    long numPraticien() const { return CLng(PraticienCourant); }
    /// Copies an appointment into the values above.
    void prendRendezVous(const RendezVous &rdv) {
        HeureDebutCourante = rdv.HeureDebut;
        HeureFinCourante = rdv.HeureFin;
        NomRDV = rdv.Nom;
        PrenomRDV = rdv.Prenom;
        TelephoneRDV = rdv.Telephone;
        DescriptionRDV = rdv.Description;
        NumPatientCourant = rdv.NumPatient;
        PresentRDV = rdv.Present;
    }
    /// The appointment under the selection, as the values above say.
    RendezVous rdvSelectionne() const {
        return {RefRDVCourant,     NomRDV,
                PrenomRDV,         TelephoneRDV,
                DescriptionRDV,    NumPatientCourant,
                txtNumJourEnCours, HeureDebutCourante,
                HeureFinCourante,  PresentRDV,
                numPraticien(),    CLng(config.FauteuilCourant)};
    }
};
