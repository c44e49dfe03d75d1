#include "start/Touches.h"

#include <utility>

namespace {

QString enFrancais(const QString &suite) {
    static const QList<std::pair<QString, QString>> noms{
        {QStringLiteral("Shift"), QStringLiteral("Maj")},
        {QStringLiteral("Return"), QStringLiteral("Entrée")},
        {QStringLiteral("Del"), QStringLiteral("Suppr")},
        {QStringLiteral("Backspace"), QStringLiteral("Retour arrière")},
        {QStringLiteral("Space"), QStringLiteral("Espace")},
        {QStringLiteral("Esc"), QStringLiteral("Échap")},
        {QStringLiteral("PgUp"), QStringLiteral("Page préc.")},
        {QStringLiteral("PgDown"), QStringLiteral("Page suiv.")},
        {QStringLiteral("Home"), QStringLiteral("Début")},
        {QStringLiteral("Left"), QStringLiteral("←")},
        {QStringLiteral("Right"), QStringLiteral("→")},
        {QStringLiteral("Up"), QStringLiteral("↑")},
        {QStringLiteral("Down"), QStringLiteral("↓")},
    };
    QString texte = suite;
    for (const auto &[nom, francais] : noms) {
        texte.replace(nom, francais);
    }
    return texte;
}

using enum PorteeTouche;

constexpr Touche touches[] = {
    {"Left Right Up Down", Grille, "choisir ; un rendez-vous est pris entier"},
    {"Shift+Up Shift+Down", Grille, "étendre le choix"},
    {"Return", Grille, "ajouter au créneau choisi, ou éditer le rendez-vous choisi"},
    {"Ctrl+N", Fenetre, "ajouter un rendez-vous au créneau choisi", "mnuAjouter"},
    {"P", Grille, "présent, ou non", "mnuPresent"},
    {"Space", Grille, "fiche du rendez-vous choisi (ou le pointeur posé dessus)"},
    {"Esc", Grille, "fermer la fiche"},
    {"Del", Fenetre, "supprimer le rendez-vous, après confirmation", "mnuSupprimer"},
    {"+ =", Grille, "allonger d'un créneau le rendez-vous, ou le choix libre", "mnuAllonger"},
    {"-", Grille, "raccourcir d'un créneau", "mnuRaccourcir"},
    {"Ctrl+X", Fenetre, "mettre le rendez-vous de côté, dans « À replacer »", "mnuMettreDeCote"},
    {"Ctrl+V", Fenetre, "poser à la place choisie celui qui y est choisi, ou le premier", "mnuPoser"},
    {"Ctrl+Z", Fenetre, "annuler ce qui vient d'être écrit sur ce poste", "mnuAnnuler"},
    {"Ctrl+Y", Fenetre, "rétablir ce qui vient d'être annulé", "mnuRetablir"},
    {"Shift+F10 Menu", Grille, "menu de ce qui est choisi"},
    {"Ctrl+F", Fenetre, "chercher les rendez-vous d'un patient", "mnurechercher"},
    {"Ctrl+L", Fenetre, "chercher un créneau libre", "mnuRDVlibre"},
    {"Ctrl+H", Fenetre, "historique du patient", "menuAllerHisto"},
    {"Ctrl+T", Fenetre, "ce qui a été écrit : rendez-vous, patient, journée", "mnuHistorique"},
    {"Ctrl+P", Fenetre, "imprimer la feuille d'un jour", "mnuImprimer"},
    {"PgUp", Fenetre, "semaine ou jour d'avant", "touchePrecedent", true},
    {"PgDown", Fenetre, "semaine ou jour d'après", "toucheSuivant", true},
    {"Home", Fenetre, "aujourd'hui", "toucheAujourdhui"},
    {"Ctrl+S", Fenetre, "par semaine", "mnusemaine"},
    {"Ctrl+J", Fenetre, "par jour", "mnuJour"},
    {"Ctrl+G", Fenetre, "aller à une date", "mnuAllerDate"},
    {"Alt+1 Alt+2 Alt+3 Alt+4 Alt+5 Alt+6 Alt+7 Alt+8 Alt+9", Fenetre,
     "fauteuil, dans l'ordre du menu ; sans fauteuils, praticien", "menuFaut"},
    {"Ctrl++ Ctrl+=", Fenetre, "zoom (ou Ctrl+molette)", "mnuZoom"},
    {"Ctrl+-", Fenetre, "fin du zoom", "mnuZoom"},
    {"F5", Fenetre, "relire le carnet", "mnuRafraichir"},
    {"F6", Fenetre, "volet suivant", "toucheVolet", true},
    {"Shift+F6", Fenetre, "volet précédent", "toucheVoletPrecedent", true},
    {"F1", Fenetre, "cette page", "mnuTouches"},
    {"Ctrl+Q", Fenetre, "quitter", "mnuquitter"},
    {"Return", RendezVous, "rendez-vous, patient trouvé : c'est lui que l'on réserve"},
    {"Down", RendezVous, "rendez-vous, recherche : dans la liste des patients"},
    {"A B C D E F G H I J K L M N O P Q R S T U V W X Y Z", RendezVous,
     "rendez-vous, liste : le prochain prénom qui commence ainsi"},
    {"Backspace", RendezVous, "rendez-vous, liste : retour à la recherche"},
    {"Up Down", RendezVous, "rendez-vous, une heure : un créneau plus tard, plus tôt"},
    {"Ctrl+Up Ctrl+Down", RendezVous, "rendez-vous, une heure : les deux à la fois"},
    {"Alt+Down", RendezVous, "une date : le calendrier"},
};

} // namespace

std::span<const Touche> Touches() {
    return touches;
}

QStringList SuitesDe(const Touche &touche) {
    return QString::fromLatin1(touche.suites).split(u' ');
}

QStringList SuitesDe(const char *action, int rang) {
    for (const Touche &touche : Touches()) {
        if (qstrcmp(touche.action, action) == 0 && rang-- == 0) {
            return SuitesDe(touche);
        }
    }
    return {};
}

QString LibelleTouche(const Touche &touche) {
    constexpr int toutes = 4; // more are a series, of which the first and the last say enough
    const QStringList suites = SuitesDe(touche);
    if (suites.size() > toutes) {
        return enFrancais(suites.first()) + QStringLiteral(" … ") + enFrancais(suites.last());
    }
    QStringList noms;
    for (const QString &suite : suites) {
        noms << enFrancais(suite);
    }
    return noms.join(QStringLiteral(", "));
}
