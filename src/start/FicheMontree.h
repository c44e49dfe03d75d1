#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <optional>

class CarnetMontre;
class FicheRDV;
class QWidget;
class Vues;
struct Environnement;
struct RendezVous;

/// Opens the card of an appointment and keeps it true: it follows what is shown, and closes when its
/// appointment is gone, a reading fails or the window is left.
class FicheMontree : public QObject {
    Q_OBJECT
  public:
    FicheMontree(const Environnement &env, const CarnetMontre &carnet, const Vues &vues, QWidget &fenetre);

    /// 0 closes it.
    void demande(qint64 RefRDV);

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    std::optional<RendezVous> trouve() const;
    void montre();
    void ferme();
    QString acte(const RendezVous &rdv) const;

    const Environnement &m_env;
    const CarnetMontre &m_carnet;
    const Vues &m_vues;
    QWidget &m_fenetre;
    FicheRDV *m_fiche = nullptr; ///< made for the first card
    qint64 m_ref = 0;            ///< 0: closed
    QTimer m_suite;
};
