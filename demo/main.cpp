#include "Cabinet.h"
#include "platform/db/DbError.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTextStream>
#include <QTranslator>

namespace {

void decrit(QCommandLineParser &ligne) {
    const QString n = QStringLiteral("N");
    const QString jour = QDate::currentDate().toString(Qt::ISODate);
    ligne.setApplicationDescription(QStringLiteral(
        "Crée un cabinet dentaire imaginaire, que « tavelin --chemin DOSSIER/CheminBelmor.mdb » ouvre."));
    ligne.addPositionalArgument(QStringLiteral("DOSSIER"), QStringLiteral("où l'écrire"));
    ligne.addOptions(
        {{QStringLiteral("graine"), QStringLiteral("le même numéro redonne le même cabinet (1)"), n,
          QStringLiteral("1")},
         {QStringLiteral("patients"), QStringLiteral("nombre de patients (2000)"), n, QStringLiteral("2000")},
         {QStringLiteral("annees"),
          QStringLiteral("années de rendez-vous, moitié avant et moitié après aujourd'hui (2)"), n,
          QStringLiteral("2")},
         {QStringLiteral("rdv"),
          QStringLiteral("nombre exact de rendez-vous (-1 : autant qu'il est plausible)"), n,
          QStringLiteral("-1")},
         {QStringLiteral("aujourdhui"), QStringLiteral("le jour qui compte pour aujourd'hui"),
          QStringLiteral("AAAA-MM-JJ"), jour},
         {QStringLiteral("ancien"),
          QStringLiteral("carnet d'une version ancienne, que le programme met à jour")},
         {QStringLiteral("sans-modeles"), QStringLiteral("sans les modèles du traitement de texte")},
         {QStringList{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("affiche cette aide")}});
}

int nombre(const QCommandLineParser &ligne, const QString &option, int min, int max) {
    const QString lu = ligne.value(option);
    bool ok = false;
    const int valeur = lu.toInt(&ok);
    if (!ok || valeur < min || valeur > max) {
        throw ErreurCabinet(QStringLiteral("--%1 attend un nombre de %2 à %3, et non « %4 ».")
                                .arg(option, QString::number(min), QString::number(max), lu));
    }
    return valeur;
}

OptionsCabinet options(const QCommandLineParser &ligne) {
    const QString jour = ligne.value(QStringLiteral("aujourdhui"));
    const OptionsCabinet lues{quint32(nombre(ligne, QStringLiteral("graine"), 0, 1'000'000'000)),
                              nombre(ligne, QStringLiteral("patients"), 1, 100'000),
                              nombre(ligne, QStringLiteral("annees"), 1, 20),
                              nombre(ligne, QStringLiteral("rdv"), -1, 2'000'000),
                              QDate::fromString(jour, Qt::ISODate),
                              ligne.isSet(QStringLiteral("ancien")),
                              !ligne.isSet(QStringLiteral("sans-modeles"))};
    if (!lues.aujourdhui.isValid()) {
        throw ErreurCabinet(
            QStringLiteral("--aujourdhui attend une date AAAA-MM-JJ, et non « %1 ».").arg(jour));
    }
    if (ligne.positionalArguments().size() != 1) {
        throw ErreurCabinet(QStringLiteral("Il faut un dossier, et un seul."));
    }
    return lues;
}

} // namespace

int main(int argc, char *argv[]) {
    const QCoreApplication app(argc, argv);
    QTranslator francais;
    if (francais.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&francais);
    }
    QCommandLineParser ligne;
    decrit(ligne);
    ligne.process(app);
    if (ligne.isSet(QStringLiteral("help"))) {
        ligne.showHelp();
    }
    try {
        const OptionsCabinet voulu = options(ligne);
        const Bilan b = ecritCabinet(ligne.positionalArguments().first(), voulu);
        QTextStream(stdout) << QStringLiteral(
                                   "Cabinet créé : %1 patients, %2 rendez-vous, %3 actes, %4 images\n")
                                   .arg(b.patients)
                                   .arg(b.rendezVous)
                                   .arg(b.actes)
                                   .arg(b.images);
        if (!b.modelesManquants.isEmpty()) {
            QTextStream(stderr) << QStringLiteral("LibreOffice n'a pas pu écrire ces modèles : %1\n")
                                       .arg(b.modelesManquants.join(QStringLiteral(", ")));
        }
        return 0;
    } catch (const ErreurCabinet &erreur) {
        QTextStream(stderr) << erreur.message() << '\n';
    } catch (const DbError &erreur) {
        QTextStream(stderr) << erreur.message() << '\n';
    }
    return 1;
}
