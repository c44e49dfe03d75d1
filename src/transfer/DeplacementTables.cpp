#include "transfer/DeplacementTables.h"

#include "platform/db/DbError.h"
#include "practice/CheminTables.h"

#include <QCryptographicHash>

namespace {

constexpr qint64 entreDeuxNouvelles = 2000; // rows

/// A file knows numbers and texts: what they stand for, the book's own fields say.
TableShape precisee(TableShape forme) {
    for (FieldDef &champ : forme.fields) {
        if (champ.type == FieldType::Text && EstDateOuHeure(champ.name)) {
            champ.type = FieldType::DateTime;
        } else if (champ.type == FieldType::Int32 && EstOuiNon(champ.name)) {
            champ.type = FieldType::Boolean;
        }
    }
    return forme;
}

/// Of every line of a table in their order.
class Empreinte {
  public:
    void ajoute(const QByteArray &ligne) {
        m_hache.addData(ligne);
        m_hache.addData(QByteArrayLiteral("\n"));
        ++m_lignes;
    }
    QByteArray valeur() const { return QByteArray::number(m_lignes) + ' ' + m_hache.result().toHex(); }

  private:
    QCryptographicHash m_hache{QCryptographicHash::Sha1};
    qint64 m_lignes = 0;
};

} // namespace

void Copie::avance(const QString &etape, qint64 lignes) {
    m_fait += lignes;
    if (!m_avance(etape, m_fait, m_total)) {
        throw DeplacementArrete();
    }
}

void Copie::cherche(BilanDeplacement &bilan) {
    bilan.laisses = m_source.othersThanTables();
    for (const TableShape &lue : m_source.tables()) {
        avance(QStringLiteral("Lecture de ") + lue.table, 0);
        const TableShape forme = precisee(lue);
        const qint64 lignes = m_source.check(forme, [&](const OddValue &v) {
            const ValeurInsolite insolite{forme.database, forme.table, v.row, v.field, v.value, v.isKept};
            QList<ValeurInsolite> &liste = v.isKept ? bilan.insolites : m_refusees;
            ++(v.isKept ? bilan.nombreInsolites : m_nombreRefusees);
            if (liste.size() < insolitesDits) {
                liste << insolite;
            }
        });
        m_tables.push_back({forme, lignes});
        m_total += 2 * lignes;
        bilan.tables << TableDeplacee{forme.database, forme.table, lignes};
    }
}

void Copie::copie(TableStore &cible, const QString &lieu) {
    for (const Table &table : m_tables) {
        const QByteArray ecrite = ecrit(cible, table);
        if (relit(cible, table) != ecrite) {
            throw DbError(DbError::Kind::Other, lieu,
                          QStringLiteral("la table « %1 » y est relue autrement qu'elle n'a été écrite")
                              .arg(table.forme.table));
        }
    }
}

QByteArray Copie::ecrit(TableStore &cible, const Table &table) {
    const QString etape = QStringLiteral("Copie de ") + table.forme.table;
    Empreinte empreinte;
    qint64 lignes = 0;
    cible.beginRows(table.forme);
    m_source.read(table.forme, [&](const QByteArray &ligne) {
        empreinte.ajoute(ligne);
        cible.addRow(ligne);
        if (++lignes % entreDeuxNouvelles == 0) {
            avance(etape, entreDeuxNouvelles);
        }
    });
    cible.endRows();
    avance(etape, lignes % entreDeuxNouvelles);
    return empreinte.valeur();
}

QByteArray Copie::relit(TableStore &cible, const Table &table) {
    const QString etape = QStringLiteral("Vérification de ") + table.forme.table;
    Empreinte empreinte;
    qint64 lignes = 0;
    cible.read(table.forme, [&](const QByteArray &ligne) {
        empreinte.ajoute(ligne);
        if (++lignes % entreDeuxNouvelles == 0) {
            avance(etape, entreDeuxNouvelles);
        }
    });
    avance(etape, lignes % entreDeuxNouvelles);
    return empreinte.valeur();
}

void BasculeChemin(Database &chemin, const QString &ancien, const QString &nouveau) {
    Transaction transaction(chemin);
    const std::optional<Emplacements> lus = LitChemin(chemin);
    if (!lus || lus->CheminBase != ancien) {
        throw DbError(DbError::Kind::Other, chemin.path(),
                      QStringLiteral("un autre programme vient d'y changer l'emplacement du carnet"));
    }
    chemin.execute(SqlText("Update Chemin Set CheminBase = ")
                   << texte(nouveau) << " Where CleLigne = (select min(CleLigne) from Chemin)");
    transaction.commit();
}

void VerifieChemin(Database &chemin) {
    Transaction transaction(chemin);
    if (!chemin.tableDef(QStringLiteral("Chemin")).isUpdatable()) {
        throw DbError(DbError::Kind::ReadOnly, chemin.path());
    }
}
