#include "Cabinet.h"
#include "platform/db/DbError.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

namespace {

constexpr QStringView aide = uR"(Usage : tavelin-demo DOSSIER [options]
Crée dans DOSSIER un cabinet dentaire imaginaire ; « tavelin --chemin DOSSIER/CheminBelmor.mdb » l'ouvre.

  --graine N                le même numéro redonne le même cabinet (1)
  --patients N              nombre de patients (2000)
  --annees N                années de rendez-vous, moitié avant et moitié après aujourd'hui (2)
  --rdv N                   nombre exact de rendez-vous (autant qu'il est plausible)
  --aujourdhui AAAA-MM-JJ   le jour qui compte pour aujourd'hui (celui de l'ordinateur)
  --ancien                  carnet d'une version ancienne, que le programme met à jour à son démarrage
  -h, --help, --aide        affiche cette aide
)";

void litNombre(const QCommandLineParser &ligne, const QString &option, int min, int max, auto &valeur) {
    if (ligne.isSet(option)) {
        const QString lu = ligne.value(option);
        bool ok = false;
        const int nombre = lu.toInt(&ok);
        if (!ok || nombre < min || nombre > max) {
            throw ErreurCabinet(QStringLiteral("--%1 attend un nombre de %2 à %3, et non « %4 ».")
                                    .arg(option, QString::number(min), QString::number(max), lu));
        }
        valeur = nombre;
    }
}

OptionsCabinet options(const QCommandLineParser &ligne) {
    OptionsCabinet lues;
    litNombre(ligne, QStringLiteral("graine"), 0, 1'000'000'000, lues.graine);
    litNombre(ligne, QStringLiteral("patients"), 1, 100'000, lues.patients);
    litNombre(ligne, QStringLiteral("annees"), 1, 20, lues.annees);
    litNombre(ligne, QStringLiteral("rdv"), 0, 2'000'000, lues.rdv);
    lues.ancien = ligne.isSet(QStringLiteral("ancien"));
    if (ligne.isSet(QStringLiteral("aujourdhui"))) {
        const QString jour = ligne.value(QStringLiteral("aujourdhui"));
        lues.aujourdhui = QDate::fromString(jour, Qt::ISODate);
        if (!lues.aujourdhui.isValid()) {
            throw ErreurCabinet(
                QStringLiteral("--aujourdhui attend une date AAAA-MM-JJ, et non « %1 ».").arg(jour));
        }
    }
    return lues;
}

/// What there is to say once it is done.
QString execute(const QStringList &arguments) {
    QCommandLineParser ligne;
    for (const char *nom : {"graine", "patients", "annees", "rdv", "aujourdhui"}) {
        ligne.addOption({QString::fromLatin1(nom), {}, QStringLiteral("valeur")});
    }
    const QCommandLineOption demandeAide(
        QStringList{QStringLiteral("h"), QStringLiteral("help"), QStringLiteral("aide")});
    ligne.addOptions({QCommandLineOption(QStringLiteral("ancien")), demandeAide});
    const bool comprise = ligne.parse(arguments);
    if (ligne.isSet(demandeAide)) {
        return aide.toString();
    }
    const QStringList inconnues = ligne.unknownOptionNames();
    if (!inconnues.isEmpty()) {
        throw ErreurCabinet(
            QStringLiteral("Option inconnue : %1.").arg(inconnues.join(QStringLiteral(", "))));
    }
    if (!comprise || ligne.positionalArguments().size() != 1) {
        throw ErreurCabinet(
            QStringLiteral("Il faut un dossier, et une valeur à chaque option. Voir --aide."));
    }
    const QString dossier = ligne.positionalArguments().first();
    const Bilan b = ecritCabinet(dossier, options(ligne));
    return QStringLiteral("Cabinet créé dans « %1 » : %2 patients, %3 rendez-vous, %4 actes, %5 images\n")
        .arg(dossier)
        .arg(b.patients)
        .arg(b.rendezVous)
        .arg(b.actes)
        .arg(b.images);
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication app(argc, argv);
    QString message;
    try {
        QTextStream(stdout) << execute(QCoreApplication::arguments());
        return 0;
    } catch (const ErreurCabinet &erreur) {
        message = erreur.message();
    } catch (const DbError &erreur) {
        message = erreur.message();
    }
    QTextStream(stderr) << message << '\n';
    return 1;
}
