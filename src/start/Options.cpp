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

void connaitOptions(QCommandLineParser &ligne) {
    const std::pair<const char *, const char *> avecValeur[] = {
        {"chemin", "FICHIER"},        {"lecteur", "D=DOSSIER"},       {"maintenant", "INSTANT"},
        {"capture", "FICHIER"},       {"essaie-verrou", "FICHIER"},   {"vers-serveur", "ADRESSE"},
        {"vers-fichiers", "DOSSIER"}, {"rejoint-serveur", "ADRESSE"}, {"moitie", "COTE"}};
    for (const auto &[nom, valeur] : avecValeur) {
        ligne.addOption({QString::fromLatin1(nom), {}, QString::fromLatin1(valeur)});
    }
    ligne.addOption(
        QCommandLineOption(QStringList{QStringLiteral("aide"), QStringLiteral("h"), QStringLiteral("help")}));
}

} // namespace

Options LitOptions(const QStringList &arguments) {
    QCommandLineParser ligne;
    connaitOptions(ligne);
    Options options;
    const bool comprise = ligne.parse(arguments);
    options.aide = ligne.isSet(QStringLiteral("aide"));
    if (!comprise || !ligne.positionalArguments().isEmpty()) {
        const QStringList inconnues = ligne.unknownOptionNames() + ligne.positionalArguments();
        options.erreur =
            inconnues.isEmpty()
                ? QStringLiteral("il manque la valeur d'une option")
                : QStringLiteral("option inconnue : %1").arg(inconnues.join(QStringLiteral(", ")));
        return options;
    }
    options.chemin =
        ligne.isSet(QStringLiteral("chemin")) ? ligne.value(QStringLiteral("chemin")) : cheminFixe();
    options.lecteurs = ligne.isSet(QStringLiteral("lecteur"))
                           ? ligne.values(QStringLiteral("lecteur")).join(u';')
                           : qEnvironmentVariable("TAVELIN_LECTEURS");
    options.capture = ligne.value(QStringLiteral("capture"));
    options.verrou = ligne.value(QStringLiteral("essaie-verrou"));
    options.versServeur = ligne.value(QStringLiteral("vers-serveur"));
    options.versFichiers = ligne.value(QStringLiteral("vers-fichiers"));
    options.rejoint = ligne.value(QStringLiteral("rejoint-serveur"));
    options.moitie = ligne.value(QStringLiteral("moitie"));
    if (ligne.isSet(QStringLiteral("maintenant"))) {
        options.maintenant = QDateTime::fromString(ligne.value(QStringLiteral("maintenant")), Qt::ISODate);
        const QDate jour = options.maintenant.date();
        if (!options.maintenant.isValid() || jour < premierJourDuCarnet || jour > dernierJourDuCarnet) {
            options.erreur = QStringLiteral("« %1 » n'est pas un instant de la forme 2026-03-11T10:05")
                                 .arg(ligne.value(QStringLiteral("maintenant")));
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
