#include "Cabinet.h"
#include "platform/db/DbError.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <limits>
#include <optional>

namespace {

constexpr int ecritureImpossible = 1;
constexpr int mauvaisAppel = 2;

/// What is wrong with the command line: a sentence in French.
struct MauvaisAppel {
    QString message;
};

constexpr QStringView aide = uR"(Utilisation : tavelin-demo DOSSIER [options]

Crée dans DOSSIER un cabinet dentaire imaginaire : patients, rendez-vous, paramètres et images.
Le carnet s'ouvre ensuite avec « tavelin --chemin DOSSIER/CheminBelmor.mdb ».

Options :
  --graine N                numéro du tirage ; le même numéro redonne le même cabinet (1)
  --patients N              nombre de patients, de 1 à 100000 (2000)
  --annees N                années de rendez-vous, moitié avant et moitié après aujourd'hui, de 1 à 20 (2)
  --rdv N                   nombre exact de rendez-vous, de 0 à 2000000 (autant qu'il est plausible)
  --aujourdhui AAAA-MM-JJ   le jour qui compte pour aujourd'hui (celui de l'ordinateur)
  --ancien                  carnet d'une version ancienne, que le programme met à jour à son démarrage
  -h, --help, --aide        cette aide
)";

void ajouteOptions(QCommandLineParser &parser) {
    for (const char *nom : {"graine", "patients", "annees", "rdv", "aujourdhui"}) {
        parser.addOption({QString::fromLatin1(nom), {}, QStringLiteral("valeur")});
    }
    parser.addOption(QCommandLineOption(QStringLiteral("ancien")));
    parser.addOption(
        QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help"), QStringLiteral("aide")}));
}

template <typename Entier>
void litNombre(const QCommandLineParser &parser, const char *nom, qint64 min, qint64 max, Entier &valeur) {
    const QString option = QString::fromLatin1(nom);
    if (!parser.isSet(option)) {
        return;
    }
    bool ok = false;
    const qint64 lu = parser.value(option).toLongLong(&ok);
    if (!ok || lu < min || lu > max) {
        throw MauvaisAppel{QStringLiteral("L'option --%1 attend un nombre entier de %2 à %3, et non « %4 ».")
                               .arg(option)
                               .arg(min)
                               .arg(max)
                               .arg(parser.value(option))};
    }
    valeur = Entier(lu);
}

OptionsCabinet litOptions(const QCommandLineParser &parser) {
    OptionsCabinet options;
    litNombre(parser, "graine", 0, std::numeric_limits<quint32>::max(), options.graine);
    litNombre(parser, "patients", 1, 100'000, options.patients);
    litNombre(parser, "annees", 1, 20, options.annees);
    litNombre(parser, "rdv", 0, 2'000'000, options.rdv);
    options.ancien = parser.isSet(QStringLiteral("ancien"));
    if (parser.isSet(QStringLiteral("aujourdhui"))) {
        const QString jour = parser.value(QStringLiteral("aujourdhui"));
        options.aujourdhui = QDate::fromString(jour, QStringLiteral("yyyy-MM-dd"));
        if (!options.aujourdhui.isValid()) {
            throw MauvaisAppel{
                QStringLiteral("L'option --aujourdhui attend une date AAAA-MM-JJ, et non « %1 ».").arg(jour)};
        }
    }
    return options;
}

void verifieAppel(QCommandLineParser &parser, const QStringList &arguments) {
    const bool lu = parser.parse(arguments);
    if (!parser.unknownOptionNames().isEmpty()) {
        throw MauvaisAppel{
            QStringLiteral("Option inconnue : « %1 ».").arg(parser.unknownOptionNames().first())};
    }
    if (!lu) {
        throw MauvaisAppel{QStringLiteral("Une option est incomplète ou reçoit une valeur de trop.")};
    }
    if (!parser.isSet(QStringLiteral("aide")) && parser.positionalArguments().size() != 1) {
        throw MauvaisAppel{QStringLiteral("Il faut indiquer un dossier, et un seul.")};
    }
}

void ecrit(const QStringList &arguments, QTextStream &sortie) {
    QCommandLineParser parser;
    ajouteOptions(parser);
    verifieAppel(parser, arguments);
    if (parser.isSet(QStringLiteral("aide"))) {
        sortie << aide;
        return;
    }
    const QString dossier = parser.positionalArguments().first();
    const Bilan bilan = ecritCabinet(dossier, litOptions(parser));
    sortie << QStringLiteral("Cabinet créé dans « %1 » :\n").arg(dossier)
           << QStringLiteral("  %1 patients, %2 rendez-vous, %3 actes, %4 images\n")
                  .arg(bilan.patients)
                  .arg(bilan.rendezVous)
                  .arg(bilan.actes)
                  .arg(bilan.images);
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication app(argc, argv);
    QTextStream sortie(stdout);
    QTextStream erreurs(stderr);
    try {
        ecrit(QCoreApplication::arguments(), sortie);
        return 0;
    } catch (const MauvaisAppel &erreur) {
        erreurs << erreur.message << QStringLiteral(" Voir --aide.\n");
        return mauvaisAppel;
    } catch (const ErreurCabinet &erreur) {
        erreurs << erreur.message() << '\n';
    } catch (const DbError &erreur) {
        erreurs << erreur.message() << '\n';
    }
    return ecritureImpossible;
}
