#pragma once

#include "config/PraticienTables.h"

#include <QList>
#include <QObject>

class QAction;
class QMenu;
struct Affichage;

/// The practitioner and chair menus. What they show comes from what is displayed, ticks included: Qt has set
/// its own when an item is chosen.
class MenusPraticien : public QObject {
    Q_OBJECT
  public:
    /// Item 0 of each menu is there already; the others come and go.
    MenusPraticien(QMenu &mnuPraticien, QMenu &menuFaut, QObject *parent);

    /// The practitioners of this run.
    void construitPraticiens(const QList<Praticien> &praticiens);
    void dessine(const Affichage &affichage);
    /// "docteur ", surname, first name; one who is not listed has his number.
    QString libelle(const QString &PraticienCourant) const;
    /// Captions in menu order.
    QStringList libelles() const;

  signals:
    void praticienChoisi(const QString &numero);
    void fauteuilChoisi(long fauteuil);

  private:
    /// Alt and a digit choose among the chairs, or among the practitioners where there is no chair menu.
    void poseTouches();

    QMenu &m_menuPraticien;
    QMenu &m_menuFaut;
    QList<Praticien> m_praticiens;
    QList<QAction *> m_docteurs;
    QList<QAction *> m_fauteuils;
    QList<long> m_numeros; ///< chair of each item
};
