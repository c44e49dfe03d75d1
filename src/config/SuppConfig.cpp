#include "config/SuppConfig.h"

#include "ui_SuppConfig.h"

#include "config/ConfigTables.h"
#include "platform/ui/Messages.h"
#include "practice/Essai.h"

SuppConfig::SuppConfig(const Environnement &env, long praticien, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::SuppConfig>()), m_env(env), m_praticien(praticien) {
    ui->setupUi(this);
    connect(ui->cmdSupprimer, &QPushButton::clicked, this, &SuppConfig::cmdSupprimer_Click);
    // The list gives its first line the focus frame of a chosen one: what looks chosen is chosen.
    connect(ui->ListDesConfig, &QListWidget::currentItemChanged, this, [](QListWidgetItem *item) {
        if (item != nullptr) {
            item->setSelected(true);
        }
    });
    remplit();
}

SuppConfig::~SuppConfig() = default;

// ---- Filling

void SuppConfig::remplit() {
    QList<LigneConfig> configs;
    const bool lues = essaie(m_env, [&] {
        Database base = m_env.ouvreCarnet();
        configs = LitConfigs(base, m_praticien).duPraticien;
    });
    ui->cmdSupprimer->setEnabled(lues);
    for (const LigneConfig &ligne : configs) {
        ui->ListDesConfig->addItem(ligne.config.NomConfig);
    }
}

// ---- Handlers

void SuppConfig::cmdSupprimer_Click() {
    if (!m_env.messages->ask(QStringLiteral("Etes-vous certain de vouloir supprimer cette configuration ?"),
                             QStringLiteral("Attention"))) {
        return;
    }
    const QList<QListWidgetItem *> choisies = ui->ListDesConfig->selectedItems();
    const bool faite = choisies.isEmpty() || essaie(m_env, [&] {
                           Database base = m_env.ouvreCarnetPourEcrire();
                           // one already gone ends the program all the same
                           SupprimeConfig(base, m_praticien, choisies.first()->text());
                       });
    if (faite) {
        accept();
    }
}
