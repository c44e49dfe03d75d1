#include "start/MiseANiveauTables.h"

#include "grid/RendezVousTables.h"
#include "platform/db/DbError.h"
#include "search/RechercheTables.h"
#include "start/Chevauchements.h"

namespace {

const QString tableRDV = QStringLiteral("RDV");
const QString tableConfig = QStringLiteral("Config");
const FieldDef champDateInv{QStringLiteral("DateInv"), FieldType::Text, 10};
const FieldDef champFauteuil{QStringLiteral("Fauteuil"), FieldType::Int16, 5};

/// Rows that an older program wrote without the two fields.
SqlText aRemplir() {
    return SqlText("((DateInv Is Null Or DateInv = '') And Date1 Is Not Null) Or Fauteuil Is Null");
}

std::vector<IndexDef> indexRDV() {
    return {
        // one practitioner's week or day, in drawing order
        {QStringLiteral("RDVParJour"), SqlText("clng(NumPraticien), DateInv, HeureDebut, clng(Fauteuil)")},
        // usually empty: rows that lie on another day than their key says
        {QStringLiteral("RDVDecales"), SqlText("Date1"),
         SqlText("DateInv Is Null Or DateInv <> InverseDate(Date1)")},
        // usually empty: every start looks for these rows, and must not read the whole book for that
        {QStringLiteral("RDVARemplir"), SqlText("RefRDV"), aRemplir()},
        IndexRecherche(),
    };
}

ExclusionDef placeUnique() {
    return {QStringLiteral("RDVPlaceUnique"), SqlText("clng(NumPraticien), clng(Fauteuil)"),
            SqlText("plagerdv(Date1, DateInv, HeureDebut, HeureFin)"), QStringLiteral("RefRDV"),
            SqlText("Date1")};
}

void exclutChevauchements(Database &base, MiseANiveau &bilan) {
    constexpr size_t nommes = 20;
    TableDef rdv = base.tableDef(tableRDV);
    if (rdv.hasExclusion(placeUnique().name)) {
        return;
    }
    const std::vector<qint64> refs = rdv.createExclusion(placeUnique());
    bilan.chevauchements = int(refs.size());
    for (size_t i = 0; i < std::min(nommes, refs.size()); ++i) {
        bilan.premiers << LitRDV(base, refs[i]).value_or(RendezVous());
    }
}

/// Whose day has changed, for workstations that show it (grid/Changement).
NoticeDef annonceRDV() {
    return {QStringLiteral("RDVAnnonce"), SqlText("clng(NumPraticien) & '|' & Date1")};
}

void remplit(Database &base) {
    base.execute(SqlText("Update RDV Set DateInv = iif((DateInv Is Null Or DateInv = '') And Date1 Is Not "
                         "Null, InverseDate(Date1), DateInv), Fauteuil = iif(Fauteuil Is Null, 0, Fauteuil) "
                         "Where ")
                 << aRemplir());
    base.execute(SqlText("Update Config Set Fauteuil = 0 Where Fauteuil Is Null"));
}

} // namespace

bool EstANiveau(Database &base) {
    TableDef rdv = base.tableDef(tableRDV);
    const TableDef config = base.tableDef(tableConfig);
    bool complet = rdv.hasField(champDateInv.name) && rdv.hasField(champFauteuil.name) &&
                   config.hasField(champFauteuil.name) && rdv.hasExclusion(placeUnique().name) &&
                   rdv.hasNotice(annonceRDV().name);
    for (const IndexDef &index : indexRDV()) {
        complet = complet && rdv.hasIndex(index.name);
    }
    if (complet) {
        const RowVisitor manque = [&](const RowView &) { complet = false; };
        base.forEach({{SqlText("Select RefRDV from RDV Where ") << aRemplir(), manque},
                      {SqlText("Select Fauteuil from Config Where Fauteuil Is Null"), manque}});
    }
    return complet;
}

QString ModifieTable(TableDef table, ActionTable action, const FieldDef &champ) {
    if (!table.isUpdatable()) {
        return QStringLiteral("TableDef ne peut pas être mis à jour ! Tâche impossible à exécuter.");
    }
    const bool present = table.hasField(champ.name);
    if (action == ActionTable::Append && !present) {
        table.appendField(champ);
    } else if (action == ActionTable::Delete && present) {
        table.deleteField(champ.name);
    }
    return {};
}

MiseANiveau MetANiveau(Database &base) {
    const QString erreurRDV = QStringLiteral("Erreur ajout de champ dans la base RDV");
    const QString erreurConfig = QStringLiteral("Erreur ajout de champ dans la base Config");
    if (!base.tableDef(tableRDV).isUpdatable()) {
        return {erreurRDV};
    }
    if (!base.tableDef(tableConfig).isUpdatable()) {
        return {erreurConfig};
    }
    if (!base.tableDef(tableRDV).isKey(QStringLiteral("RefRDV"))) { // one action would change several rows
        throw DbError(DbError::Kind::Structure, base.path(),
                      QStringLiteral("« RefRDV » n'est pas la clé de la table « RDV »"));
    }
    if (EstANiveau(base)) {
        return {};
    }
    MiseANiveau bilan;
    Transaction transaction(base);
    ModifieTable(base.tableDef(tableRDV), ActionTable::Append, champDateInv);
    ModifieTable(base.tableDef(tableConfig), ActionTable::Append, champFauteuil);
    ModifieTable(base.tableDef(tableRDV), ActionTable::Append, champFauteuil);
    remplit(base);
    TableDef rdv = base.tableDef(tableRDV);
    for (const IndexDef &index : indexRDV()) {
        if (!rdv.hasIndex(index.name)) {
            rdv.createIndex(index);
        }
    }
    exclutChevauchements(base, bilan);
    if (!rdv.hasNotice(annonceRDV().name)) {
        rdv.createNotice(annonceRDV());
    }
    transaction.commit();
    return bilan;
}

QString MetANiveauDeplace(Database &base) {
    const MiseANiveau bilan = MetANiveau(base);
    if (!bilan.erreur.isEmpty()) {
        throw DbError(DbError::Kind::Other, base.path(), bilan.erreur);
    }
    return TexteChevauchements(bilan.chevauchements, bilan.premiers);
}
