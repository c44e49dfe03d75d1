#pragma once

#include "config/PraticienTables.h"

#include <QList>
#include <QObject>

class QAction;
class QMenu;
struct VariablesGlobales;

/// The practitioner and chair menus, and the choice of the configuration that goes with them.
/// What reads the book throws DbError.
class MenusPraticien : public QObject {
    Q_OBJECT
  public:
    /// Item 0 of each menu is there already; the others come and go.
    MenusPraticien(QMenu &mnuPraticien, QMenu &menuFaut, VariablesGlobales &etat, QObject *parent = nullptr);

    void construitPraticiens(const QList<Praticien> &praticiens);
    /// The current practitioner's chairs; the menu shows when one of them is not 0.
    void construitFauteuils();
    /// Loads the practitioner's default configuration, or the fall-back with `fauteuilDeRepli`.
    void choisitConfiguration(int fauteuilDeRepli);
    /// Loads the configuration of one of the practitioner's chairs, or the fall-back.
    void chargeFauteuil(int fauteuil);

    void prendPraticien(int index);
    void cocheFauteuil(int index);
    /// Captions in menu order.
    QStringList libelles() const;
    /// The ticked item's place; -1 when none is.
    int praticienCoche() const;
    int fauteuilCoche() const;
    QString libelleCoche() const;
    int fauteuil(int index) const;

  signals:
    void praticienChoisi(int index);
    void fauteuilChoisi(int index);

  private:
    void chargeConfig(Database &base, const QString &nomConfig, int fauteuil);
    void chargeRepli(Database &base, int fauteuil);

    QMenu &m_menuPraticien;
    QMenu &m_menuFaut;
    VariablesGlobales &v;
    QList<QAction *> m_docteurs;
    QList<QAction *> m_fauteuils;
    int m_fauteuilParDefaut = 0;
};
