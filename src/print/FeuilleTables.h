#pragma once

#include "platform/db/Database.h"
#include "print/FeuilleJour.h"

/// Fills the scratch table Impression anew with the sheet of a practitioner's day, and gives that sheet: the
/// hours and the slots are those that his stored configuration of the chair has, the appointments those of
/// all his chairs. It is one transaction, so that two workstations never mix their days; what fails leaves
/// the former sheet. Without a usable configuration the table is left empty.
FeuilleJour RemplitImpression(Database &rdv, long praticien, long fauteuil, QDate jour);

/// Whether the practitioner works with the word processor.
bool AvecWord(Database &param, long praticien);
