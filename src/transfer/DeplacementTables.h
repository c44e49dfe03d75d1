#pragma once

#include "platform/db/Database.h"
#include "platform/db/TableStore.h"
#include "transfer/ReglesDeplacement.h"

/// Is told how far a move has come; false stops it.
using Avancement = std::function<bool(const QString &etape, qint64 fait, qint64 total)>;

/// Thrown where an Avancement stopped a move.
struct DeplacementArrete {};

/// The tables of a practice on their way from one store to another: what is odd is looked for before anything
/// is written, what arrived is read back and compared.
class Copie {
  public:
    Copie(TableStore &source, Avancement avance) : m_source(source), m_avance(std::move(avance)) {}

    /// Goes through everything.
    void cherche(BilanDeplacement &bilan);
    const QList<ValeurInsolite> &refusees() const { return m_refusees; }
    qint64 nombreRefusees() const { return m_nombreRefusees; }

    /// Throws DbError when what is read there is not what was written. `lieu` names the destination.
    void copie(TableStore &cible, const QString &lieu);

  private:
    struct Table {
        TableShape forme;
        qint64 lignes = 0;
    };
    void avance(const QString &etape, qint64 lignes);
    QByteArray ecrit(TableStore &cible, const Table &table);
    QByteArray relit(TableStore &cible, const Table &table);

    TableStore &m_source;
    Avancement m_avance;
    std::vector<Table> m_tables;
    QList<ValeurInsolite> m_refusees;
    qint64 m_nombreRefusees = 0;
    qint64 m_fait = 0;
    qint64 m_total = 0;
};

/// Has the path database name another place in one transaction. Throws DbError, also when it does not name
/// `ancien` any more.
void BasculeChemin(Database &chemin, const QString &ancien, const QString &nouveau);
/// Whether that will be possible. Throws DbError when it will not.
void VerifieChemin(Database &chemin);
