#pragma once

#include "grid/Affichage.h"

#include <QWidget>

class JourDuBandeau;

/// The days of the shown month in a row, each with a bar that says how full it is. A click goes there.
class BandeauMois : public QWidget {
    Q_OBJECT
  public:
    explicit BandeauMois(QWidget *parent = nullptr);

    void dessine(const Affichage &affichage);
    /// Also before a month is shown.
    QSize sizeHint() const override;

  signals:
    void jourChoisi(QDate jour);

  private:
    void faitJours();

    QList<JourDuBandeau *> m_jours;
    QDate m_premier; ///< first day of the month that is shown
};
