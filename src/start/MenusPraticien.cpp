#include "start/MenusPraticien.h"

#include "config/ConfigTables.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"

#include <QAction>
#include <QMenu>

namespace {

int coche(const QList<QAction *> &items) {
    for (int i = 0; i < items.size(); ++i) {
        if (items[i]->isChecked()) {
            return i;
        }
    }
    return -1;
}

void cocheSeul(const QList<QAction *> &items, int index) {
    for (int i = 0; i < items.size(); ++i) {
        items[i]->setChecked(i == index);
    }
}

} // namespace

MenusPraticien::MenusPraticien(QMenu &mnuPraticien, QMenu &menuFaut, VariablesGlobales &etat, QObject *parent)
    : QObject(parent), m_menuPraticien(mnuPraticien), m_menuFaut(menuFaut), v(etat),
      m_docteurs(mnuPraticien.actions()), m_fauteuils(menuFaut.actions()) {
    connect(m_docteurs.first(), &QAction::triggered, this, [this] { emit praticienChoisi(0); });
    connect(m_fauteuils.first(), &QAction::triggered, this, [this] { emit fauteuilChoisi(0); });
    m_docteurs.first()->setVisible(false);
    m_menuFaut.menuAction()->setVisible(false);
}

void MenusPraticien::construitPraticiens(const QList<Praticien> &praticiens) {
    for (int i = 0; i < praticiens.size(); ++i) {
        if (i > 0) {
            m_docteurs << m_menuPraticien.addAction(QString());
            connect(m_docteurs[i], &QAction::triggered, this, [this, i] { emit praticienChoisi(i); });
        }
        m_docteurs[i]->setText(praticiens[i].libelle());
        m_docteurs[i]->setCheckable(true);
        m_docteurs[i]->setChecked(praticiens[i].codeprat == v.numPraticien());
        m_docteurs[i]->setVisible(true);
    }
}

void MenusPraticien::construitFauteuils() {
    v.AvecFauteuils = false;
    while (m_fauteuils.size() > 1) {
        delete m_fauteuils.takeLast();
    }
    m_fauteuils.first()->setChecked(false);
    Database base = v.ouvreCarnet();
    const QList<LigneConfig> configs = ConfigsDuPraticien(base, v.numPraticien());
    for (int i = 0; i < configs.size(); ++i) {
        if (i > 0) {
            m_fauteuils << m_menuFaut.addAction(QString());
            connect(m_fauteuils[i], &QAction::triggered, this, [this, i] { emit fauteuilChoisi(i); });
        }
        m_fauteuils[i]->setText(LibelleFauteuil(configs[i].Fauteuil));
        m_fauteuils[i]->setCheckable(true);
        m_fauteuils[i]->setChecked(configs[i].DefaultConfig);
        if (CLng(configs[i].Fauteuil) != 0) {
            v.AvecFauteuils = true;
        }
        if (configs[i].DefaultConfig) {
            m_fauteuilParDefaut = fauteuil(i);
        }
    }
    m_menuFaut.menuAction()->setVisible(v.AvecFauteuils);
}

void MenusPraticien::choisitConfiguration(int fauteuilDeRepli) {
    Database base = v.ouvreCarnet();
    if (const auto parDefaut = NomConfigParDefaut(base, v.numPraticien())) {
        chargeConfig(base, *parDefaut, m_fauteuilParDefaut);
    } else {
        chargeRepli(base, fauteuilDeRepli);
    }
    v.ConfigExiste = !ConfigsDuPraticien(base, v.numPraticien()).isEmpty();
}

void MenusPraticien::chargeFauteuil(int fauteuil) {
    Database base = v.ouvreCarnet();
    if (const auto nom = NomConfigDuFauteuil(base, v.numPraticien(), fauteuil)) {
        chargeConfig(base, *nom, fauteuil);
    } else {
        chargeRepli(base, -1);
    }
}

void MenusPraticien::chargeRepli(Database &base, int fauteuil) {
    if (const auto repli = NomConfigDeRepli(base)) {
        chargeConfig(base, *repli, fauteuil);
        return;
    }
    v.config = Configuration();
    v.messages->error(QStringLiteral("Ce praticien n'a pas de configuration et la configuration « Défaut » "
                                     "n'existe pas : le carnet ne peut pas être affiché."));
}

void MenusPraticien::chargeConfig(Database &base, const QString &nomConfig, int fauteuil) {
    const auto lue = LitConfig(base, nomConfig, v.numPraticien(), fauteuil);
    if (!lue) {
        return; // the loaded one stays
    }
    v.config = *lue;
    v.intervalleSansZoom = 0;
    const QString defaut = DefautConfiguration(v.config);
    if (!defaut.isEmpty()) {
        v.messages->error(QStringLiteral("La configuration « %1 » ne peut pas être affichée : %2.")
                              .arg(nomConfig.left(100), defaut));
    }
}

void MenusPraticien::prendPraticien(int index) {
    cocheSeul(m_docteurs, index);
    v.PraticienCourant = NumeroPraticien(index);
}

void MenusPraticien::cocheFauteuil(int index) {
    cocheSeul(m_fauteuils, index);
}

QStringList MenusPraticien::libelles() const {
    QStringList textes;
    for (const QAction *docteur : m_docteurs) {
        textes << docteur->text();
    }
    return textes;
}

int MenusPraticien::praticienCoche() const {
    return coche(m_docteurs);
}

int MenusPraticien::fauteuilCoche() const {
    return coche(m_fauteuils);
}

QString MenusPraticien::libelleCoche() const {
    const int index = praticienCoche();
    return index < 0 ? QString() : m_docteurs[index]->text();
}

int MenusPraticien::fauteuil(int index) const {
    return NumeroFauteuil(m_fauteuils[index]->text());
}
