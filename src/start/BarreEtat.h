#pragma once

#include "booking/Selection.h"
#include "start/Veille.h"

#include <QLabel>

class QStatusBar;

/// The status bar's panels: 1 the selected appointment, 2 the practitioner, 3 the selected hours, 4 the date,
/// 5 how fresh all that is.
class BarreEtat {
  public:
    explicit BarreEtat(QStatusBar &StatusBar1);

    void montrePraticien(const QString &libelle) { m_panneaux[1]->setText(libelle); }
    void montreSelection(const Affichage &affichage, const Selection &selection);
    void montreLecture(const Affichage &affichage, const EtatLecture &etat);

  private:
    QList<QLabel *> m_panneaux;
};
