#pragma once

#include "patients/TabPatTables.h"

#include <QAbstractTableModel>

/// The found patients as a list of four columns. It keeps the records and nothing per cell: a single letter
/// may find fifteen thousand.
class ListePatients : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Colonne { Nom, Prenom, Numero, DateNais, NbColonnes };
    /// In twips.
    static constexpr int largeurs[NbColonnes] = {1450, 1450, 700, 1100};

    using QAbstractTableModel::QAbstractTableModel;

    void montre(const QList<PatientTrouve> &patients);
    const PatientTrouve &patient(int ligne) const { return m_patients[ligne]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QList<PatientTrouve> m_patients;
};
