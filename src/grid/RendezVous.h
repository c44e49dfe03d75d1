#pragma once

#include <QDate>
#include <QString>
#include <QTime>

/// One appointment as the grids and the dialogs read it. A Null text is empty, a Null time invalid.
struct RendezVous {
    qint64 RefRDV = 0;
    QString Nom;
    QString Prenom;
    QString Telephone;
    QString Description;
    QString NumPatient;
    QDate Date1;
    QTime HeureDebut;
    QTime HeureFin;
    bool Present = false;
    long NumPraticien = 0;
    long Fauteuil = 0;

    /// Whether the end comes at a later minute than the start; an appointment that has no length is not
    /// drawn.
    bool aUneDuree() const {
        return HeureDebut.isValid() && HeureFin.isValid() && HeureFin > HeureDebut &&
               (HeureFin.minute() != HeureDebut.minute() || HeureFin.hour() != HeureDebut.hour());
    }
    friend bool operator==(const RendezVous &, const RendezVous &) = default;
};
// as its members are: a growing list copies bytes
Q_DECLARE_TYPEINFO(RendezVous, Q_RELOCATABLE_TYPE);
