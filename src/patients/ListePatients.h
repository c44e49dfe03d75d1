#pragma once

#include "patients/TabPatTables.h"

#include <QAbstractTableModel>
#include <functional>

/// The found patients as a list of four columns. A single letter may find fifteen thousand: they are read as
/// they come into sight.
class ListePatients : public QAbstractTableModel {
    Q_OBJECT
  public:
    enum Colonne { Nom, Prenom, Numero, DateNais, NbColonnes };
    /// In twips.
    static constexpr int largeurs[NbColonnes] = {1450, 1450, 700, 1100};
    /// Reads the patients of one lot.
    using Lecture = std::function<QList<PatientTrouve>(const LotDeNoms &)>;

    using QAbstractTableModel::QAbstractTableModel;

    void montre(const PatientsTrouves &trouves, Lecture lecture);
    const PatientTrouve &patient(int ligne) const { return m_trouves.patients[ligne]; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

  private:
    PatientsTrouves m_trouves;
    Lecture m_lecture;
};
