#include "print/LettrePatient.h"

#include "platform/ui/Messages.h"
#include "practice/Courrier.h"
#include "practice/Essai.h"
#include "print/LettresTables.h"
#include "print/TraitementDesLettres.h"

#include <QDir>
#include <QFileInfo>

namespace {

FichiersLettre fichiersDe(const Environnement &env, const QString &modele, const QString &lettre) {
    const auto reel = [&](const QString &chemin) { return env.chemins.real(env.CheminRacine + chemin); };
    return {reel(QStringLiteral("\\Fichiers\\ModèleOrtho.doc")),
            reel(QStringLiteral("\\Documents\\ModèleOrtho1.doc")),
            reel(QStringLiteral("\\Documents\\") + modele), reel(QStringLiteral("\\Word")) + u'/' + lettre};
}

/// Before anything is made: what cannot be read stops all of them. Empty then, which is told.
QList<CadreLettre> litCadres(const Environnement &env, const QList<Lettre> &lettres) {
    QList<CadreLettre> cadres;
    const bool lus = essaie(env, [&] {
        cadres.clear();
        Database impression = env.ouvreParametresImpression();
        Database patients = env.ouvrePatients();
        Database parametres = env.ouvreParametres();
        for (const Lettre &lettre : lettres) {
            cadres << LitCadre(impression, patients, parametres, lettre);
        }
    });
    return lus ? cadres : QList<CadreLettre>();
}

} // namespace

void LettresAbsence(const Environnement &env, QWidget *parent, const QList<Lettre> &lettres) {
    const QList<CadreLettre> cadres = litCadres(env, lettres);
    const FichiersLettre fichiers =
        fichiersDe(env, QStringLiteral("AbsenceType.doc"), QStringLiteral("Absence"));
    const Environnement reserve = PourLesLettres(env, fichiers.cadre);
    const int demandees = int(cadres.size());
    int faites = 0;
    QString dossierPdf;
    if (demandees > 0) {
        Courrier courrier(reserve, parent, demandees);
        while (faites < demandees && !courrier.arrete()) {
            const auto faite =
                courrier.fait(VerbesAbsence(cadres[faites], lettres[faites].date, fichiers, env.maintenant()),
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
    const QList<CadreLettre> cadres = litCadres(env, {lettre});
    if (cadres.isEmpty()) {
        return;
    }
    const FichiersLettre fichiers = fichiersDe(env, QStringLiteral("AnnulRDV.doc"), QStringLiteral("Annul"));
    const Environnement reserve = PourLesLettres(env, fichiers.cadre);
    Courrier courrier(reserve, parent, 1);
    const auto faite =
        courrier.fait(VerbesAnnulation(cadres.first(), lettre.date, fichiers, env.maintenant()),
                      QStringLiteral("Lettre d'annulation"));
    if (faite) {
        courrier.montre(faite->saved);
    }
}
