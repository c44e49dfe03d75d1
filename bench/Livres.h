#pragma once

#include "platform/ui/Messages.h"
#include "practice/Environnement.h"

#include <QDir>

/// build/bench of the current directory: books, copies and results.
QDir dossierBench();

/// When every measure takes place: the sample books are made around that moment.
QDateTime instant();

// The path databases of sample practices. Each is made when it is first asked for, and kept.
QString livreCourant();  ///< 500,000 appointments, up to date with its indexes
QString livreAncien();   ///< the same from before chairs and day keys; measures upgrade copies of it
QString livrePatients(); ///< 100,000 patients
QString livrePlein();    ///< 100,000 appointments, up to date; a measure fills the coming year

/// The world of a sample practice. A message box would wait for somebody who is not there: what it would say
/// is thrown as a MesureImpossible.
Environnement environnement(const QString &livre);

/// The real file of its appointment database.
QString fichierRDV(const Environnement &env);
