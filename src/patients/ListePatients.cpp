#include "patients/ListePatients.h"

#include "platform/ui/PlainTip.h"

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

void ListePatients::montre(const PatientsTrouves &trouves, Lecture lecture) {
    beginResetModel();
    m_trouves = trouves;
    m_lecture = std::move(lecture);
    endResetModel();
}

bool ListePatients::canFetchMore(const QModelIndex &parent) const {
    return !parent.isValid() && !m_trouves.suite.isEmpty();
}

void ListePatients::fetchMore(const QModelIndex &) {
    const QList<PatientTrouve> lus = m_lecture(m_trouves.suite.takeFirst());
    if (!lus.isEmpty()) { // all of a lot may have been renamed meanwhile
        const int premiere = rowCount();
        beginInsertRows({}, premiere, premiere + int(lus.size()) - 1);
        m_trouves.patients += lus;
        endInsertRows();
    }
}

int ListePatients::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_trouves.patients.size());
}

int ListePatients::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : NbColonnes;
}

QVariant ListePatients::data(const QModelIndex &index, int role) const {
    if (role == Qt::TextAlignmentRole) {
        return int(alignement(index.column()));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    const PatientTrouve &trouve = patient(index.row());
    const QString textes[NbColonnes] = {trouve.nom, trouve.prenom, trouve.numero, trouve.dateNais};
    const QString &texte = textes[index.column()];
    return role == Qt::ToolTipRole ? plainTip(texte) : texte; // the tip shows a name that its column cuts
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
