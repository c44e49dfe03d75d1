#pragma once

#include "platform/ui/FlexGrid.h"
#include "platform/ui/Messages.h"
#include "start/FrmEntree.h"
#include "start/VariablesGlobales.h"

#include <QDir>

/// build/bench of the current directory: books, copies and results.
QDir dossierBench();

/// When every measure takes place: the sample books are made around that day.
QDateTime instant();

/// A practice of 500,000 appointments, made once.
struct Livre {
    QString chemin;     ///< the path database
    QString rendezVous; ///< the appointment database
};
Livre livreCourant(); ///< up to date, with its indexes
Livre livreAncien();  ///< from before chairs and day keys; measures upgrade copies of it

/// The folder of a suite with 100,000 patients, as CheminFichiers.
QString livrePatients();

/// What opens the current book in the program itself.
QStringList optionsLivreCourant();

/// A message box would wait for somebody who is not there: what it would say ends the measure.
class MessagesImpossibles : public Messages {
  public:
    void show(const QString &text, const QString &title, Icon icon) override;
    bool ask(const QString &text, const QString &title) override;
};

/// The main window on the current book's week, laid out as if it were shown.
class CarnetOuvert {
  public:
    CarnetOuvert();
    /// Appointments that the week grid shows.
    int rendezVousMontres() const;

  private:
    MessagesImpossibles m_messages;

  public:
    VariablesGlobales v;
    std::unique_ptr<FrmEntree> fenetre;
    FlexGrid *GrilleRDV = nullptr;
};
