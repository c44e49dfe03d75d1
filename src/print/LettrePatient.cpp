#include "print/LettrePatient.h"

#include "platform/ui/Messages.h"
#include "practice/Courrier.h"
#include "practice/Essai.h"
#include "print/LettresTables.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>

namespace {

constexpr std::chrono::milliseconds verrouOublie{60'000}; ///< no letter takes that long

FichiersLettre fichiersDe(const Environnement &env, const QString &modele, const QString &lettre) {
    const auto reel = [&](const QString &chemin) { return env.chemins.real(env.CheminRacine + chemin); };
    return {reel(QStringLiteral("\\Fichiers\\ModèleOrtho.doc")),
            reel(QStringLiteral("\\Documents\\ModèleOrtho1.doc")),
            reel(QStringLiteral("\\Documents\\") + modele), reel(QStringLiteral("\\Word")) + u'/' + lettre};
}

std::optional<CadreLettre> litCadre(const Environnement &env, const Lettre &lettre) {
    CadreLettre cadre;
    const bool lu = essaie(env, [&] {
        Database impression = env.ouvreParametresImpression();
        Database patients = env.ouvrePatients();
        Database parametres = env.ouvreParametres();
        cadre = LitCadre(impression, patients, parametres, lettre);
    });
    return lu ? std::optional(cadre) : std::nullopt;
}

/// All workstations fill the same frame: until a letter has taken it in, it is that letter's alone. False
/// when another one keeps it too long, which is told.
bool prendCadre(const Environnement &env, QLockFile &verrou) {
    verrou.setStaleLockTime(verrouOublie);
    const QDeadlineTimer limite(2 * env.patience);
    while (!verrou.tryLock(0)) {
        if (verrou.error() != QLockFile::LockFailedError) {
            const QString dossier = QFileInfo(verrou.fileName()).path();
            env.messages->error(QStringLiteral("Les lettres ont besoin d'écrire dans le dossier « %1 », qui "
                                               "est introuvable ou en lecture seule.")
                                    .arg(QDir::toNativeSeparators(dossier)));
            return false;
        }
        if (limite.hasExpired()) {
            env.messages->error(QStringLiteral("Un autre poste est en train de faire une lettre. Réessayez "
                                               "dans un instant."));
            return false;
        }
        patiente();
    }
    return true;
}

using Composition = word::Verbs (*)(const CadreLettre &, const QString &, const FichiersLettre &,
                                    const QDateTime &);

/// Nothing when it was not made, which is told.
std::optional<WordDocument> fait(const Environnement &env, Courrier &courrier, const Lettre &lettre,
                                 const FichiersLettre &fichiers, Composition compose, const QString &texte) {
    const std::optional<CadreLettre> cadre = litCadre(env, lettre);
    QLockFile verrou(fichiers.cadre + QStringLiteral(".verrou"));
    if (!cadre || !prendCadre(env, verrou)) {
        return std::nullopt;
    }
    return courrier.fait(compose(*cadre, lettre.date, fichiers, env.maintenant()), texte);
}

} // namespace

void LettresAbsence(const Environnement &env, QWidget *parent, const QList<Lettre> &lettres) {
    const FichiersLettre fichiers =
        fichiersDe(env, QStringLiteral("AbsenceType.doc"), QStringLiteral("Absence"));
    const int demandees = int(lettres.size());
    int faites = 0;
    QString dossierPdf;
    {
        Courrier courrier(env, parent, demandees);
        while (faites < demandees && !courrier.arrete()) {
            const auto faite = fait(env, courrier, lettres[faites], fichiers, VerbesAbsence,
                                    TexteProgression(faites + 1, demandees));
            if (!faite) {
                break;
            }
            ++faites;
            if (!faite->pdf.isEmpty()) {
                dossierPdf = QDir::toNativeSeparators(QFileInfo(faite->pdf).path());
            }
        }
    } // its window is gone before the last word
    if (faites > 0) {
        env.messages->show(BilanLettres(faites, demandees, dossierPdf));
    }
}

void LettreAnnulation(const Environnement &env, QWidget *parent, const Lettre &lettre) {
    Courrier courrier(env, parent, 1);
    const auto faite =
        fait(env, courrier, lettre, fichiersDe(env, QStringLiteral("AnnulRDV.doc"), QStringLiteral("Annul")),
             VerbesAnnulation, QStringLiteral("Lettre d'annulation"));
    if (faite) {
        courrier.montre(faite->saved);
    }
}
