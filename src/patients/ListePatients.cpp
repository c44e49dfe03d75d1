#include "patients/ListePatients.h"

namespace {

Qt::Alignment alignement(int colonne) {
    const bool centree = colonne == ListePatients::Numero || colonne == ListePatients::DateNais;
    return (centree ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

QString titre(int colonne) {
    static const QString titres[] = {QStringLiteral("Nom Patient"), QStringLiteral("Prénom Patient"),
                                     QStringLiteral("N°"), QStringLiteral("Date N")};
    return titres[colonne];
}

} // namespace

void ListePatients::montre(const QList<PatientTrouve> &patients) {
    beginResetModel();
    m_patients = patients;
    endResetModel();
}

int ListePatients::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_patients.size());
}

int ListePatients::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : NbColonnes;
}

QVariant ListePatients::data(const QModelIndex &index, int role) const {
    if (role == Qt::TextAlignmentRole) {
        return int(alignement(index.column()));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) { // the tip shows a name that its column cuts
        return {};
    }
    const PatientTrouve &trouve = m_patients[index.row()];
    switch (index.column()) {
    case Nom:
        return trouve.nom;
    case Prenom:
        return trouve.prenom;
    case Numero:
        return trouve.numero;
    default:
        return trouve.dateNais;
    }
}

QVariant ListePatients::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return titre(section);
    }
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole) {
        return int(alignement(section));
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}
