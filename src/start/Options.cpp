#include "start/Options.h"

#include "grid/Navigation.h"

#include <QCommandLineParser>
#include <QStandardPaths>

namespace {

QString cheminFixe() {
    const QString variable = qEnvironmentVariable("TAVELIN_CHEMIN");
    if (!variable.isEmpty()) {
        return variable;
    }
#ifdef Q_OS_WIN
    return QStringLiteral("C:\\CheminBelmor.mdb");
#else
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/tavelin/CheminBelmor.mdb");
#endif
}

} // namespace

Options LitOptions(const QStringList &arguments) {
    const QCommandLineOption chemin(QStringLiteral("chemin"), {}, QStringLiteral("FICHIER"));
    const QCommandLineOption lecteur(QStringLiteral("lecteur"), {}, QStringLiteral("D=DOSSIER"));
    const QCommandLineOption maintenant(QStringLiteral("maintenant"), {}, QStringLiteral("INSTANT"));
    const QCommandLineOption capture(QStringLiteral("capture"), {}, QStringLiteral("FICHIER"));
    const QCommandLineOption aide(
        QStringList{QStringLiteral("h"), QStringLiteral("help"), QStringLiteral("aide")});
    const QCommandLineOption verrou(QStringLiteral("essaie-verrou"), {}, QStringLiteral("FICHIER"));
    const QCommandLineOption versServeur(QStringLiteral("vers-serveur"), {}, QStringLiteral("ADRESSE"));
    const QCommandLineOption versFichiers(QStringLiteral("vers-fichiers"), {}, QStringLiteral("DOSSIER"));
    const QCommandLineOption rejoint(QStringLiteral("rejoint-serveur"), {}, QStringLiteral("ADRESSE"));
    const QCommandLineOption moitie(QStringLiteral("moitie"), {}, QStringLiteral("COTE"));
    QCommandLineParser ligne;
    ligne.addOptions(
        {chemin, lecteur, maintenant, capture, versServeur, versFichiers, rejoint, moitie, verrou, aide});

    Options options;
    const bool comprise = ligne.parse(arguments);
    options.aide = ligne.isSet(aide);
    if (!comprise || !ligne.positionalArguments().isEmpty()) {
        const QStringList inconnues = ligne.unknownOptionNames() + ligne.positionalArguments();
        options.erreur =
            inconnues.isEmpty()
                ? QStringLiteral("il manque la valeur d'une option")
                : QStringLiteral("option inconnue : %1").arg(inconnues.join(QStringLiteral(", ")));
        return options;
    }
    options.chemin = ligne.isSet(chemin) ? ligne.value(chemin) : cheminFixe();
    options.lecteurs =
        ligne.isSet(lecteur) ? ligne.values(lecteur).join(u';') : qEnvironmentVariable("TAVELIN_LECTEURS");
    options.capture = ligne.value(capture);
    options.verrou = ligne.value(verrou);
    options.versServeur = ligne.value(versServeur);
    options.versFichiers = ligne.value(versFichiers);
    options.rejoint = ligne.value(rejoint);
    options.moitie = ligne.value(moitie);
    if (ligne.isSet(maintenant)) {
        options.maintenant = QDateTime::fromString(ligne.value(maintenant), Qt::ISODate);
        const QDate jour = options.maintenant.date();
        if (!options.maintenant.isValid() || jour < premierJourDuCarnet || jour > dernierJourDuCarnet) {
            options.erreur = QStringLiteral("« %1 » n'est pas un instant de la forme 2026-03-11T10:05")
                                 .arg(ligne.value(maintenant));
        }
    }
    return options;
}

QString AideOptions() {
    return QStringLiteral(
        "Usage : tavelin [options]\n"
        "Carnet de rendez-vous du cabinet dentaire.\n"
        "\n"
        "  --chemin FICHIER      base des chemins ; sinon la variable TAVELIN_CHEMIN, sinon\n"
        "                        l'emplacement habituel (CheminBelmor.mdb)\n"
        "  --lecteur D=DOSSIER   dossier qui tient lieu du lecteur D: ; peut être répétée ;\n"
        "                        sinon la variable TAVELIN_LECTEURS (D=DOSSIER;E=DOSSIER)\n"
        "  --maintenant INSTANT  l'horloge du carnet part de cet instant (2026-03-11T10:05)\n"
        "  --capture FICHIER     écrit l'image de la fenêtre principale (PNG) puis quitte\n"
        "  --moitie COTE         la fenêtre prend la moitié « gauche » ou « droite » de l'écran\n"
        "  --vers-serveur ADRESSE   déplace le cabinet vers un serveur (postgresql://…) puis quitte\n"
        "  --vers-fichiers DOSSIER  le ramène dans un dossier puis quitte\n"
        "  --rejoint-serveur ADRESSE  ce poste se servira d'un cabinet déplacé par un autre\n"
        "  -h, --help, --aide    affiche cette aide\n");
}
