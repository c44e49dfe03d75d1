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

using Composition = word::Verbs (*)(const CadreLettre &, const QString &, const FichiersLettre &,
                                    const QDateTime &);

/// One letter; nothing when it was not made, which is told.
std::optional<WordDocument> fait(const Environnement &env, Courrier &courrier, const Lettre &lettre,
                                 const FichiersLettre &fichiers, Composition compose, const QString &texte) {
    CadreLettre cadre;
    const std::optional<DbError> echec = tente(env, [&] {
        Database impression = env.ouvreParametresImpression();
        Database patients = env.ouvrePatients();
        Database parametres = env.ouvreParametres();
        cadre = LitCadre(impression, patients, parametres, lettre);
    });
    if (echec) {
        courrier.cache();
        env.messages->error(echec->message());
        return std::nullopt;
    }
    return courrier.fait(compose(cadre, lettre.date, fichiers, env.maintenant()), texte);
}

} // namespace

void LettresAbsence(const Environnement &env, QWidget *parent, const QList<Lettre> &lettres) {
    const FichiersLettre fichiers =
        fichiersDe(env, QStringLiteral("AbsenceType.doc"), QStringLiteral("Absence"));
    const Environnement reserve = PourLesLettres(env, fichiers.cadre);
    const int demandees = int(lettres.size());
    int faites = 0;
    QString dossierPdf;
    {
        Courrier courrier(reserve, parent, demandees);
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
    const FichiersLettre fichiers = fichiersDe(env, QStringLiteral("AnnulRDV.doc"), QStringLiteral("Annul"));
    const Environnement reserve = PourLesLettres(env, fichiers.cadre);
    Courrier courrier(reserve, parent, 1);
    const auto faite =
        fait(env, courrier, lettre, fichiers, VerbesAnnulation, QStringLiteral("Lettre d'annulation"));
    if (faite) {
        courrier.montre(faite->saved);
    }
}
