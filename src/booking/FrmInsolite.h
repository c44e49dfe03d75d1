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

/// Reads the day; gives what is odd about the place: nothing of what would be refused, since the writing says
/// why. No list: the reading has failed, which is told.
std::optional<QList<Insolite>> LitInsolites(const Environnement &env, const Visee &visee);
/// Asks, where there is something. True: it is to be written.
bool DemandeQuandMeme(const Visee &visee, const QList<Insolite> &insolites, QWidget *parent);
/// Both. `deja`: what was told of the very same place before.
bool Confirme(const Environnement &env, const Visee &visee, QWidget *parent,
              const QList<Insolite> &deja = {});
