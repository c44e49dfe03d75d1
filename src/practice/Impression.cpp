#include "practice/Impression.h"

#include "platform/printing/PageDrawing.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Environnement.h"

#include <QDir>
#include <QFile>

namespace {

struct Fichier {
    QString chemin;
    QString erreur; ///< why it could not be written, the end of a French sentence; empty when it was
};

QString raison(const QFile &fichier) {
    switch (fichier.error()) {
    case QFileDevice::WriteError:
    case QFileDevice::ResourceError:
        return QStringLiteral("le disque est plein ou en panne");
    case QFileDevice::PermissionsError:
        return QStringLiteral("l'accès est refusé");
    default:
        return QFileInfo(fichier).dir().exists() ? QStringLiteral("l'accès est refusé")
                                                 : QStringLiteral("son dossier est introuvable");
    }
}

/// Under a name of its own: what is there already, another workstation's too, is never written over.
Fichier enregistre(const Environnement &env, const QByteArray &pdf, const QString &nom) {
    const QString dossier = env.chemins.real(env.CheminRacine + QStringLiteral("\\Word"));
    QDir().mkdir(dossier);
    const QString debut = dossier + u'/' + nom + env.maintenant().toString(QStringLiteral("yyyyMMdd_HHmmss"));
    for (int rang = 1;; ++rang) {
        QFile fichier(debut + (rang > 1 ? QStringLiteral("_%1").arg(rang) : QString()) +
                      QStringLiteral(".pdf"));
        const QString chemin = QDir::toNativeSeparators(fichier.fileName());
        if (fichier.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (fichier.write(pdf) == pdf.size() && fichier.flush()) {
                return {chemin, {}};
            }
            const QString erreur = raison(fichier);
            fichier.close(); // what cannot be closed, remove() would leave
            QFile::remove(fichier.fileName());
            return {chemin, erreur};
        }
        if (!fichier.exists()) {
            return {chemin, raison(fichier)};
        }
    }
}

void imprimeDansUnFichier(const Environnement &env, const QList<Page> &pages, const QString &nom,
                          const QString &titre) {
    const Fichier fichier = enregistre(env, pdfOf(pages, titre), nom);
    if (fichier.erreur.isEmpty()) {
        env.messages->show(EnregistreSansImprimante(fichier.chemin));
    } else {
        env.messages->error(
            QStringLiteral("Ce poste n'a pas d'imprimante par défaut, et le fichier « %1 » ne "
                           "peut pas être écrit : %2.")
                .arg(fichier.chemin, fichier.erreur));
    }
}

} // namespace

QString EnregistreSansImprimante(const QString &fichier) {
    return QStringLiteral("Ce poste n'a pas d'imprimante par défaut : le document est enregistré dans le "
                          "fichier « %1 ».")
        .arg(fichier);
}

void imprime(const Environnement &env, const QList<Page> &pages, const QString &nom, const QString &titre) {
    imprime(env, env.imprimante, pages, nom, titre);
}

void imprime(const Environnement &env, const Printer &imprimante, const QList<Page> &pages,
             const QString &nom, const QString &titre) {
    const PrintResult resultat = [&] {
        const Sablier sablier;
        return imprimante(pages, titre);
    }();
    if (resultat.outcome == PrintResult::Outcome::Refused) {
        env.messages->error(QStringLiteral("L'imprimante « %1 » refuse le document : rien n'est imprimé.")
                                .arg(resultat.printer));
    } else if (resultat.outcome == PrintResult::Outcome::NoPrinter) {
        imprimeDansUnFichier(env, pages, nom, titre);
    }
}
