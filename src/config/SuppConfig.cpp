#include "config/SuppConfig.h"

#include "ui_SuppConfig.h"

#include "config/ConfigTables.h"
#include "platform/db/DbError.h"
#include "platform/ui/Messages.h"
#include "start/VariablesGlobales.h"

SuppConfig::SuppConfig(VariablesGlobales &etat, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::SuppConfig>()), v(etat) {
    ui->setupUi(this);
    connect(ui->cmdSupprimer, &QPushButton::clicked, this, &SuppConfig::cmdSupprimer_Click);
    remplit();
}

SuppConfig::~SuppConfig() = default;

// ---- Filling

void SuppConfig::remplit() {
    try {
        Database base = v.ouvreCarnet();
        for (const LigneConfig &ligne : ConfigsDuPraticien(base, v.numPraticien())) {
            ui->ListDesConfig->addItem(ligne.NomConfig);
        }
    } catch (const DbError &erreur) {
        ui->cmdSupprimer->setEnabled(false);
        v.messages->error(erreur.message());
    }
}

// ---- Handlers

void SuppConfig::cmdSupprimer_Click() {
    if (!v.messages->ask(QStringLiteral("Etes-vous certain de vouloir supprimer cette configuration ?"),
                         QStringLiteral("Attention"))) {
        return;
    }
    const QList<QListWidgetItem *> choisies = ui->ListDesConfig->selectedItems();
    try {
        if (!choisies.isEmpty()) {
            Database base = v.ouvreCarnet();
            SupprimeConfig(base, choisies.first()->text()); // one already gone ends the program all the same
        }
    } catch (const DbError &erreur) {
        v.messages->error(erreur.message());
        return;
    }
    accept();
}
