#include "transfer/Deplacements.h"

#include "platform/db/DbError.h"

#include <QDir>
#include <QFile>

namespace {

const QString fichiers = QStringLiteral("\\Fichiers");
const QString carnet = QStringLiteral("\\Tavelin.mdb");

/// Why there is nothing to move: a sentence.
struct Refus {
    QString phrase;
};

/// Complete or not there at all.
bool copie(const QString &de, const QString &vers) {
    const QString provisoire = vers + QStringLiteral(".part");
    QFile::remove(provisoire);
    return QFile::copy(de, provisoire) && QFile::rename(provisoire, vers);
}

/// A folder is stored as the suite writes it, or whole.
QString dossierComplet(const QString &saisi) {
    const bool aLecteur = saisi.size() > 1 && saisi[1] == u':';
    return aLecteur ? saisi : QDir::toNativeSeparators(QDir(saisi).absolutePath());
}

QStringList basesAbsentes(const std::vector<TableShape> &tables) {
    QStringList absentes = BasesDuCabinet();
    for (const TableShape &table : tables) {
        absentes.removeAll(table.database);
    }
    return absentes;
}

} // namespace

struct Deplacements::Demande {
    Emplacements lus{};
    QString nouveau;        ///< CheminBase
    QString dossierAvant;   ///< CheminFichiers, real
    QString dossierApres{}; ///< the same when the move is made
    BilanDeplacement bilan{};
};

/// Gives what `operation` tells; whatever it fails of leaves the practice where it is.
FinDeplacement Deplacements::essaie(const Avancement &avance,
                                    const std::function<QString(Demande &)> &operation) const {
    const QString interrompu = QStringLiteral("Le déplacement est interrompu.");
    QString ancien = m_env.CheminBases;
    try {
        Database chemin = Database::open(m_env.CheminDesChemins);
        VerifieChemin(chemin);
        Demande demande{
            LitChemin(chemin).value_or(Emplacements()), {}, m_env.chemins.real(m_env.CheminFichiers)};
        ancien = demande.lus.CheminBase;
        demande.bilan.ancien = ancien;
        return {true, operation(demande)};
    } catch (const DbError &erreur) {
        // a wait that was ended looks like a line that was cut
        const bool arrete = avance && !avance({}, 0, 0);
        return {false, TexteEchec(arrete ? interrompu : erreur.message(), ancien)};
    } catch (const Refus &refus) {
        return {false, TexteEchec(refus.phrase, ancien)};
    } catch (const DeplacementArrete &) {
        return {false, TexteEchec(interrompu, ancien)};
    }
}

FinDeplacement Deplacements::versServeur(const QString &url, const Avancement &avance) const {
    return essaie(avance, [&](Demande &demande) {
        if (StoredPaths::isPath(url)) {
            throw Refus{
                QStringLiteral("« %1 » n'est pas l'emplacement d'un serveur (postgresql://…).").arg(url)};
        }
        if (!StoredPaths::isPath(demande.lus.CheminBase)) {
            throw Refus{QStringLiteral("Le carnet est déjà sur un serveur.")};
        }
        demande.nouveau = url;
        demande.dossierApres = m_env.chemins.real(demande.lus.LeChemin + fichiers);
        const auto source =
            openFolder(m_env.chemins.real(demande.lus.CheminBase + fichiers), BasesDuCabinet());
        const auto cible = createServer(url, BasesDuCabinet());
        return deplace(demande, *source, *cible, avance);
    });
}

FinDeplacement Deplacements::versFichiers(const QString &dossier, const Avancement &avance) const {
    return essaie(avance, [&](Demande &demande) {
        if (StoredPaths::isPath(demande.lus.CheminBase)) {
            throw Refus{QStringLiteral("Le carnet est déjà dans un dossier.")};
        }
        if (dossier.trimmed().isEmpty() || !StoredPaths::isPath(dossier)) {
            throw Refus{QStringLiteral("« %1 » n'est pas un dossier.").arg(dossier)};
        }
        demande.nouveau = dossierComplet(dossier);
        demande.dossierApres = m_env.chemins.real(demande.nouveau + fichiers);
        if (QFile::exists(demande.dossierApres)) {
            throw Refus{QStringLiteral("Le dossier « %1 » existe déjà : choisissez-en un autre.")
                            .arg(QDir::toNativeSeparators(demande.dossierApres))};
        }
        const auto source = openServer(demande.lus.CheminBase, BasesDuCabinet());
        const auto cible = createFolder(demande.dossierApres);
        return deplace(demande, *source, *cible, avance);
    });
}

/// The order is what keeps the practice safe: what is odd, the copy, its indexes, what lies beside it, and
/// only then the path database.
QString Deplacements::deplace(Demande &demande, TableStore &source, TableStore &cible,
                              const Avancement &avance) const {
    BilanDeplacement &bilan = demande.bilan;
    bilan.nouveau = demande.nouveau;
    const std::vector<TableShape> tables = source.tables();
    bilan.absentes = basesAbsentes(tables);
    if (tables.empty() || bilan.absentes.contains(BasesDuCabinet().first())) {
        throw Refus{QStringLiteral("Il n'y a pas de carnet à cet endroit.")};
    }
    Copie copie(source, avance);
    copie.cherche(bilan);
    if (copie.nombreRefusees() > 0) {
        throw Refus{RefusInsolites(copie.refusees(), copie.nombreRefusees())};
    }
    copie.copie(cible, demande.nouveau);
    try {
        cible.commit(); // which may be made, and its answer lost
        const QString prepare = QStringLiteral("Préparation du carnet");
        if (!avance(prepare, 0, 0)) {
            throw DeplacementArrete();
        }
        Database nouveau = Database::open(m_env.chemins.real(demande.nouveau + fichiers + carnet));
        bilan.aDire = m_metANiveau(nouveau);
        copieDocuments(demande, DocumentsDesBases() + bilan.absentes);
        if (!avance(prepare, 0, 0)) {
            throw DeplacementArrete();
        }
        bascule(demande);
    } catch (...) {
        if (nomme(demande.lus.CheminBase)) { // a commit that seemed to fail may have been made
            cible.discard();
        }
        throw;
    }
    try {
        cible.declareInUse();
    } catch (const DbError &) { // the next desk that joins is told; this one works
    }
    return TexteBilan(bilan);
}

/// False also where that cannot be read.
bool Deplacements::nomme(const QString &CheminBase) const {
    try {
        Database chemin = Database::open(m_env.CheminDesChemins);
        const std::optional<Emplacements> lus = LitChemin(chemin);
        return lus && lus->CheminBase == CheminBase;
    } catch (const DbError &) {
        return false;
    }
}

/// Where they are not yet. Nothing that is there is written over.
void Deplacements::copieDocuments(Demande &demande, const QStringList &noms) const {
    for (const QString &nom : noms) {
        const QString de = m_env.chemins.real(m_env.CheminFichiers + u'\\' + nom);
        const QString vers = demande.dossierApres + u'/' + nom;
        if (!QFile::exists(de) || QFile::exists(m_env.chemins.real(vers))) {
            continue;
        }
        if (!QDir().mkpath(demande.dossierApres) || !::copie(de, vers)) {
            throw Refus{QStringLiteral("« %1 » ne peut pas être copié dans « %2 ».")
                            .arg(nom, QDir::toNativeSeparators(demande.dossierApres))};
        }
        demande.bilan.documents << QDir::toNativeSeparators(vers);
    }
}

void Deplacements::bascule(const Demande &demande) const {
    Database chemin = Database::open(m_env.CheminDesChemins);
    BasculeChemin(chemin, demande.lus.CheminBase, demande.nouveau);
}

FinDeplacement Deplacements::rejointServeur(const QString &url) const {
    return essaie({}, [&](Demande &demande) {
        if (StoredPaths::isPath(url)) {
            throw Refus{
                QStringLiteral("« %1 » n'est pas l'emplacement d'un serveur (postgresql://…).").arg(url)};
        }
        if (!isInUse(url, BasesDuCabinet().first())) {
            throw Refus{QStringLiteral(
                "Un déplacement vers cette base n'est pas terminé : aucun poste ne s'en sert.")};
        }
        Database::open(url + fichiers + carnet); // as every start will
        demande.nouveau = url;
        demande.dossierApres = m_env.chemins.real(demande.lus.LeChemin + fichiers);
        copieDocuments(demande, DocumentsDesBases());
        bascule(demande);
        return QStringLiteral("Ce poste se servira du carnet du serveur dès son prochain lancement.\n"
                              "CheminBase était « %1 »\nCheminBase est   « %2 »")
            .arg(demande.lus.CheminBase, url);
    });
}
