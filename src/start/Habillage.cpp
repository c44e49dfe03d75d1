#include "start/Habillage.h"

#include "ui_FrmEntree.h"

#include "grid/Vues.h"
#include "platform/ui/DatesFr.h"
#include "practice/Environnement.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QSettings>
#include <QToolBar>

namespace {

const QString cle = QStringLiteral("presentation");
const QString contemporaine = QStringLiteral("contemporaine");

QString nomDe(Icone quoi) {
    static const QStringList noms{QStringLiteral("Precedent"),  QStringLiteral("Aujourdhui"),
                                  QStringLiteral("Suivant"),    QStringLiteral("Rechercher"),
                                  QStringLiteral("Libre"),      QStringLiteral("Mois"),
                                  QStringLiteral("Rafraichir"), QStringLiteral("Quitter")};
    return noms.at(int(quoi));
}

/// What an older or a later version may have stored is Classique.
Presentation retenue(const Environnement &env) {
    const QString lue = QSettings(env.fichierReglages, QSettings::IniFormat).value(cle).toString();
    return !env.fichierReglages.isEmpty() && lue == contemporaine ? Presentation::Contemporaine
                                                                  : Presentation::Classique;
}

/// For the whole program. A field's own text is pale when it takes nothing; menus keep the desktop's.
void rendLisible() {
    const QPalette voulue = TextesPales(QApplication::palette());
    const auto differe = [&voulue](QPalette::ColorGroup groupe, QPalette::ColorRole role, const char *quoi) {
        return QApplication::palette(quoi).color(groupe, role) != voulue.color(groupe, role);
    };
    constexpr const char *champs = "QLineEdit";
    if (differe(QPalette::Active, QPalette::PlaceholderText, nullptr)) {
        QPalette indications;
        indications.setBrush(QPalette::PlaceholderText, voulue.brush(QPalette::PlaceholderText));
        QApplication::setPalette(indications);
    }
    if (differe(QPalette::Disabled, QPalette::Text, champs)) {
        QApplication::setPalette(voulue, champs);
    }
}

} // namespace

Habillage::Habillage(const Ui::FrmEntree &ui, const Environnement &env, Vues &vues, QMainWindow &fenetre)
    : QObject(&fenetre), m_ui(ui), m_env(env), m_vues(vues), m_fenetre(fenetre),
      m_presentation(retenue(env)) {
    m_ecriture.setMaxThreadCount(1); // the last choice is the last one written
    connect(ui.mnuClassique, &QAction::triggered, this, [this] { choisit(Presentation::Classique); });
    connect(ui.mnuContemporaine, &QAction::triggered, this, [this] { choisit(Presentation::Contemporaine); });
    fenetre.installEventFilter(this);
    applique();
}

void Habillage::choisit(Presentation presentation) {
    m_presentation = presentation;
    applique();
    retient();
}

/// By a thread: a lock that another host has left beside the file is waited for half a minute.
void Habillage::retient() {
    if (!m_env.fichierReglages.isEmpty()) {
        m_ecriture.start([fichier = m_env.fichierReglages,
                          valeur = avecBoutons() ? QStringLiteral("classique") : contemporaine] {
            QSettings(fichier, QSettings::IniFormat).setValue(cle, valeur);
        });
    }
}

void Habillage::applique() {
    rendLisible();
    m_bureau = QApplication::palette();
    const Aspect aspect = AspectDe(m_presentation, m_bureau);
    m_fenetre.setPalette(avecBoutons() ? QPalette() : PaletteDe(aspect, m_bureau));
    m_vues.habille(aspect);
    if (!avecBoutons()) {
        retireBarre(); // its icons have the look's colour
        construitBarre();
    }
    if (m_barre != nullptr) {
        m_barre->setVisible(!avecBoutons());
    }
    emit change();
}

void Habillage::ajoute(Icone quoi, const QString &texte, const std::function<void()> &operation) {
    QAction *action = m_barre->addAction(icone(quoi, m_vues.aspect().encre), texte, this, operation);
    QWidget *outil = m_barre->widgetForAction(action);
    outil->setObjectName(QStringLiteral("Outil") + nomDe(quoi));
    outil->setFocusPolicy(Qt::TabFocus); // by keys, as the buttons that it stands for
    m_actions[quoi] = action;
}

/// One of its buttons may be waiting for the window that it has opened.
void Habillage::retireBarre() {
    if (m_barre != nullptr) {
        m_fenetre.removeToolBar(m_barre);
        m_barre->setParent(nullptr);
        m_barre->deleteLater();
        m_barre = nullptr;
    }
}

void Habillage::construitBarre() {
    constexpr int cote = 16;
    m_actions.clear();
    m_barre = new QToolBar(&m_fenetre);
    m_barre->setObjectName(QStringLiteral("BarreOutils"));
    m_barre->setMovable(false);
    m_barre->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_barre->setIconSize(QSize(cote, cote));
    const auto presse = [this](QPushButton *semaine, QPushButton *jour) {
        return [this, semaine, jour] { (m_semaine ? semaine : jour)->click(); };
    };
    ajoute(Icone::Precedent, {}, presse(m_ui.BtnPrecedent, m_ui.BtnPrecedent2));
    ajoute(Icone::Aujourdhui, m_ui.BtnAujourdhui->text(), presse(m_ui.BtnAujourdhui, m_ui.BtnAujourdhui2));
    ajoute(Icone::Suivant, {}, presse(m_ui.BtnSuivant, m_ui.BtnSuivant2));
    m_periode = new QLabel(m_barre);
    QFont gras = m_fenetre.font();
    gras.setWeight(QFont::DemiBold);
    m_periode->setFont(gras);
    m_periode->setObjectName(QStringLiteral("Periode"));
    m_periode->setContentsMargins(cote / 2, 0, cote, 0);
    m_barre->addWidget(m_periode);
    auto *ressort = new QWidget(m_barre);
    ressort->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_barre->addWidget(ressort);
    ajoute(Icone::Rechercher, QStringLiteral("Rechercher"), [this] { m_ui.mnurechercher->trigger(); });
    ajoute(Icone::Libre, QStringLiteral("Créneau libre"), [this] { m_ui.mnuRDVlibre->trigger(); });
    m_barre->addSeparator();
    ajoute(Icone::Mois, m_ui.BtnMois->text(), presse(m_ui.BtnMois, m_ui.BtnMois));
    ajoute(Icone::Rafraichir, m_ui.BtnRafraichir->text(), presse(m_ui.BtnRafraichir, m_ui.BtnRafraichir));
    ajoute(Icone::Quitter, m_ui.mnuquitter->text().remove(u'&'), presse(m_ui.BtnQuitter, m_ui.BtnQuitter));
    m_fenetre.addToolBar(m_barre);
}

void Habillage::dessine(const Affichage &affichage) {
    m_ui.mnuClassique->setChecked(avecBoutons());
    m_ui.mnuContemporaine->setChecked(!avecBoutons());
    m_semaine = affichage.demande.VueSemaine;
    for (const char *nom : {"BtnSemaine", "BtnJour"}) {
        auto *bouton = m_fenetre.findChild<QPushButton *>(QLatin1String(nom));
        bouton->setPalette(avecBoutons() ? QPalette() : PaletteBouton(m_vues.aspect(), bouton->isChecked()));
    }
    if (avecBoutons()) {
        return;
    }
    m_actions[Icone::Precedent]->setText(m_semaine ? QStringLiteral("Précédente")
                                                   : QStringLiteral("Précédent"));
    m_actions[Icone::Suivant]->setText(m_semaine ? QStringLiteral("Suivante") : QStringLiteral("Suivant"));
    const std::initializer_list<std::pair<Icone, bool>> actives{
        {Icone::Precedent, m_ui.BtnPrecedent->isEnabled()},
        {Icone::Aujourdhui, m_ui.BtnAujourdhui->isEnabled()},
        {Icone::Suivant, m_ui.BtnSuivant->isEnabled()},
        {Icone::Rechercher, m_ui.mnurechercher->isEnabled()},
        {Icone::Libre, m_ui.mnuRDVlibre->isEnabled()},
        {Icone::Mois, m_ui.BtnMois->isEnabled()},
        {Icone::Rafraichir, m_ui.BtnRafraichir->isEnabled()},
        {Icone::Quitter, m_ui.BtnQuitter->isEnabled()}};
    for (const auto &[quoi, active] : actives) {
        m_actions[quoi]->setEnabled(active);
    }
    const auto [premier, dernier] = JoursLus(affichage.demande);
    m_periode->setText(affichage.grilles.isEmpty() ? QString() : DatesFr::periode(premier, dernier));
}

/// The desktop turns dark or light while the book is open. What has been changed here comes back, too.
bool Habillage::eventFilter(QObject *objet, QEvent *evenement) {
    if (evenement->type() == QEvent::ApplicationPaletteChange && QApplication::palette() != m_bureau) {
        applique();
    }
    return QObject::eventFilter(objet, evenement);
}
