#include "start/Lancement.h"

#include "platform/db/Attente.h"
#include "platform/db/LockTest.h"
#include "platform/printing/Printer.h"
#include "platform/ui/Messages.h"
#include "platform/word/OfficeProcess.h"
#include "practice/AttenteVivante.h"
#include "start/Demarrage.h"
#include "start/FrmEntree.h"
#include "start/LancementDeplacement.h"
#include "start/Options.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QScreen>
#include <QStandardPaths>
#include <QTextStream>
#include <QTimer>
#include <QTranslator>

#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <future>

namespace {

constexpr int codeErreur = 1;
constexpr int codeLigneRefusee = 2;

QStringList argumentsDe(int argc, char **argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

void parleFrancais() {
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    auto *traduction = new QTranslator(qApp);
    if (traduction->load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(traduction);
    }
}

/// A clock that shows `depart` now and goes on from there.
std::function<QDateTime()> horlogeDepuis(const QDateTime &depart) {
    const qint64 decalage = QDateTime::currentDateTime().msecsTo(depart);
    return [decalage] { return QDateTime::currentDateTime().addMSecs(decalage); };
}

/// Qt ends the program with an English sentence where there is no screen.
void ditSansEcran(QtMsgType genre, const QMessageLogContext &, const QString &) {
    if (genre == QtFatalMsg) {
        QTextStream(stderr) << "tavelin : aucun écran n'est accessible, le carnet ne peut pas s'ouvrir\n";
        std::_Exit(codeErreur);
    }
}

struct Ouverture {
    Environnement env; ///< with the data locations
    QString impossible;
    Depart depart;
};

/// The list of fonts, then what the window opens on, by a thread that cannot wait for a busy file. One thread
/// for both: with two, the window system has to share its processor.
Ouverture litSansAttendre(Environnement env, const QString &chemin) {
    FcInit();
    env.patience = std::chrono::milliseconds(0);
    const QString impossible = LitEmplacements(env, chemin);
    return {env, impossible, impossible.isEmpty() ? Demarre(env) : Depart()};
}

/// A comfortable size, or the whole of a smaller screen.
void montre(QWidget &fenetre, const QString &moitie) {
    constexpr QSize confortable(1280, 940);
    if (!moitie.isEmpty()) {
        QRect place = fenetre.screen()->availableGeometry();
        place.setWidth(place.width() / 2);
        place.moveLeft(place.left() + (moitie == u"droite" ? place.width() : 0));
        fenetre.setGeometry(place);
        fenetre.show();
        return;
    }
    const QSize taille = confortable.boundedTo(fenetre.screen()->availableSize());
    fenetre.resize(taille);
    taille == confortable ? fenetre.show() : fenetre.showMaximized();
}

void ecritImageEtQuitte(QWidget &fenetre, const QString &fichier) {
    if (fenetre.grab().save(fichier)) {
        QCoreApplication::exit(0);
        return;
    }
    QTextStream(stderr) << "tavelin : l'image " << fichier << " ne peut pas être écrite\n";
    QCoreApplication::exit(codeErreur);
}

/// What the options say of the world outside; gives why they are refused, else an empty text.
QString prepare(Environnement &env, const Options &options) {
    if (!options.erreur.isEmpty()) {
        return options.erreur;
    }
    if (!env.chemins.addDrives(options.lecteurs)) {
        return QStringLiteral("« %1 » n'est pas de la forme D=DOSSIER").arg(options.lecteurs);
    }
    if (options.maintenant.isValid()) {
        env.maintenant = horlogeDepuis(options.maintenant);
    }
    return {};
}

/// Takes over what was read beside; gives why the program has to end. A file that was busy is waited for now.
QString prend(Environnement &env, const Ouverture &ouverture, const QString &chemin) {
    if (!ouverture.impossible.isEmpty()) {
        return LitEmplacements(env, chemin);
    }
    const auto patience = env.patience;
    env = ouverture.env;
    env.patience = patience;
    return {};
}

int ouvreFenetre(Environnement &env, const Ouverture &ouverture, const Options &options) {
    const QString impossible = prend(env, ouverture, options.chemin);
    if (!impossible.isEmpty()) {
        env.messages->error(impossible);
        return codeErreur;
    }
    setAttente(attendEnDessinant);
    env.programme = QCoreApplication::applicationFilePath();
    env.fichierReglages =
        QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + QStringLiteral("/tavelin.ini");
    FrmEntree FrmEntree(env);
    if (ouverture.depart.messages.isEmpty() && ouverture.depart.premier) {
        FrmEntree.Form_Load(ouverture.depart);
    } else {
        FrmEntree.Form_Load();
    }
    montre(FrmEntree, options.moitie);
    if (!options.capture.isEmpty()) {
        QTimer::singleShot(0, &FrmEntree, [&] { ecritImageEtQuitte(FrmEntree, options.capture); });
    }
    return QApplication::exec();
}

} // namespace

int Lance(int argc, char **argv) {
    const Options options = LitOptions(argumentsDe(argc, argv));
    if (options.aide) {
        QTextStream(stdout) << AideOptions();
        return 0;
    }
    if (!options.verrou.isEmpty()) {
        return tryLock(options.verrou);
    }
    MessageBoxes boites;
    Environnement env;
    env.messages = &boites;
    env.traitementDeTexte = [] { return std::make_unique<OfficeProcess>(hasDefaultPrinter); };
    const QString erreur = prepare(env, options);
    if (!erreur.isEmpty()) {
        QTextStream(stderr) << "tavelin : " << erreur << "\n(tavelin --help donne les options)\n";
        return codeLigneRefusee;
    }
    if (EstDeplacement(options)) {
        return LanceDeplacement(env, options);
    }
    qputenv("QT_XCB_GL_INTEGRATION", "none"); // nothing here draws with OpenGL, whose libraries load slowly
    // while the window system answers
    std::future<Ouverture> lecture = std::async(std::launch::async, litSansAttendre, env, options.chemin);
    const QtMessageHandler ordinaire = qInstallMessageHandler(ditSansEcran);
    const QApplication application(argc, argv);
    qInstallMessageHandler(ordinaire);
    QApplication::setApplicationName(QStringLiteral("tavelin"));
    parleFrancais();
    return ouvreFenetre(env, lecture.get(), options);
}
