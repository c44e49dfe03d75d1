#include "print/FrmDateImpression.h"

#include "ui_FrmDateImpression.h"

#include "platform/printing/PrintPreview.h"
#include "platform/ui/Messages.h"
#include "platform/ui/Sablier.h"
#include "practice/Courrier.h"
#include "practice/Essai.h"
#include "practice/Impression.h"
#include "practice/JourSaisi.h"
#include "print/FeuilleTables.h"
#include "print/NomsDocument.h"
#include "print/RapportJour.h"
#include "schedule/TrancheHoraire.h"

#include <QDir>

FrmDateImpression::FrmDateImpression(const Environnement &env, long praticien, long fauteuil, QString libelle,
                                     QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::FrmDateImpression>()), m_env(env), m_praticien(praticien),
      m_fauteuil(fauteuil), m_libelle(std::move(libelle)) {
    ui->setupUi(this);
    ui->DateJour->setFocus();
    ui->DateJour->setReader(LitDate, premiereDate, derniereDate);
    ui->DateJour->setSpelling(DatesFr::courte);
    connect(ui->Moins, &QPushButton::clicked, this, [this] { decale(-1); });
    connect(ui->Plus, &QPushButton::clicked, this, [this] { decale(1); });
    connect(ui->CmdImprimer, &QPushButton::clicked, this, &FrmDateImpression::CmdImprimer_Click);
    connect(ui->CmdAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    ui->DateJour->setDate(env.maintenant().date());
}

FrmDateImpression::~FrmDateImpression() = default;

void FrmDateImpression::decale(int jours) {
    if (const auto jour = ui->DateJour->date()) {
        ui->DateJour->setDate(jour->addDays(jours));
    }
}

void FrmDateImpression::CmdImprimer_Click() {
    const std::optional<QDate> jour = JourSaisi(m_env, *ui->DateJour);
    if (!jour) {
        return;
    }
    bool avecWord = false;
    FeuilleJour feuille;
    const bool remplie = essaie(m_env, [&] {
        const Sablier sablier;
        Database parametres = m_env.ouvreParametres();
        avecWord = AvecWord(parametres, m_praticien);
        Database carnet = m_env.ouvreCarnetPourEcrire();
        feuille = RemplitImpression(carnet, m_praticien, m_fauteuil, *jour);
    });
    if (!remplie) {
        return;
    }
    if (!feuille.empechement.isEmpty()) {
        m_env.messages->show(feuille.empechement);
        return;
    }
    const QString date = DatesFr::jourImprime(*jour);
    if (!avecWord) {
        montreRapport(feuille, date);
    } else if (!imprimeDocument(feuille, date)) {
        return;
    }
    if (!feuille.sansLigne.isEmpty()) {
        m_env.messages->show(TexteSansLigne(feuille.sansLigne));
    }
}

bool FrmDateImpression::imprimeDocument(const FeuilleJour &feuille, const QString &jour) {
    const auto sousRacine = [this](const QString &chemin) {
        return m_env.chemins.real(m_env.CheminRacine + chemin);
    };
    const QString modele = sousRacine(QStringLiteral("\\Documents\\ImpTavelin.doc"));
    const QStringList noms =
        NomsDocument(sousRacine(QStringLiteral("\\Word\\ImpTavelin")), m_env.maintenant());
    const std::optional<WordDocument> fait =
        Courrier(m_env, this, 1)
            .fait(DocumentFeuille(feuille.lignes, modele, noms, m_libelle, jour),
                  QStringLiteral("Feuille du %1").arg(jour));
    if (!fait) {
        return false;
    }
    accept();
    if (!fait->pdf.isEmpty()) {
        m_env.messages->show(EnregistreSansImprimante(QDir::toNativeSeparators(fait->pdf)));
    }
    return true;
}

void FrmDateImpression::montreRapport(const FeuilleJour &feuille, const QString &jour) {
    accept();
    const QString nom = QStringLiteral("ImpTavelin");
    const QList<Page> pages = RapportJour(feuille.lignes, m_libelle, jour);
    PrintPreview apercu(pages, titreRapport, parentWidget());
    connect(&apercu, &PrintPreview::printAsked, this, [&] { imprime(m_env, pages, nom, titreRapport); });
    connect(&apercu, &PrintPreview::otherPrinterAsked, this, [&] {
        if (const std::optional<Printer> choisie = choosePrinter(&apercu)) {
            imprime(m_env, *choisie, pages, nom, titreRapport);
        }
    });
    apercu.exec();
}
