#pragma once

#include "grid/RendezVous.h"
#include "platform/ui/Aspect.h"

#include <QFrame>
#include <QList>

class QFormLayout;
class QLabel;

/// The card of one appointment: all that the book knows of it, beside its block. It takes no focus.
class FicheRDV : public QFrame {
    Q_OBJECT
  public:
    explicit FicheRDV(QWidget *parent);

    /// `acte`: the patient's act still to do. `choisi`: keys act on this appointment. `bloc`, and `choix`,
    /// which is selected: on the screen. False, and hidden, where the card has no room beside it.
    bool montre(const RendezVous &rdv, const QString &acte, bool choisi, const Aspect &aspect,
                const QRect &bloc, const QRect &choix);

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    /// At most `plus` letters of each text.
    void remplit(const RendezVous &rdv, const QString &acte, qsizetype plus);
    void habille(const Aspect &aspect);

    QLabel *m_nom;
    QLabel *m_quand;
    QFormLayout *m_champs;
    QLabel *Telephone;
    QLabel *Description;
    QLabel *Acte;
    QLabel *NumPatient;
    QLabel *Present;
    QLabel *m_touches;
    QColor m_bord;
    Aspect m_aspect;
    QFont m_police;
};
