#pragma once

#include "booking/Insolite.h"

#include <QDialog>
#include <memory>

namespace Ui {
class FrmInsolite;
}
struct Environnement;

/// Lists what is odd about a place before an appointment is booked or moved there. Accepted, it is wanted all
/// the same; a key too many goes back.
class FrmInsolite : public QDialog {
    Q_OBJECT
  public:
    FrmInsolite(const Visee &visee, const QList<Insolite> &insolites, QWidget *parent = nullptr);
    ~FrmInsolite() override;

  private:
    std::unique_ptr<Ui::FrmInsolite> ui;
};

/// Reads the day and asks, where something is odd about the place. True: it is to be written. What would be
/// refused is not asked about, since the writing says why. A reading that fails is told, and nothing is to be
/// written. `deja`: what was told of the very same place before.
bool Confirme(const Environnement &env, const Visee &visee, QWidget *parent,
              const QList<Insolite> &deja = {});
