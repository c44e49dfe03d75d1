#pragma once

#include "grid/AReplacer.h"
#include "platform/db/Database.h"

/// The table TavReplacer: appointments that are set aside, shared by all workstations. Its rows tell; RDV
/// alone says where an appointment lies.

/// Whether the book has the table.
bool ReplacerEstPret(Database &carnet);
/// Adds what is missing of it.
void PrepareReplacer(Database &carnet);

/// A practitioner's; none in a book without the table.
QList<AReplacer> LitAReplacer(Database &carnet, long praticien);
/// Sets an appointment aside, once. False: the book has no table for it.
bool MetDeCote(Database &carnet, const RendezVous &rdv, const QDateTime &quand);
/// Notes where an appointment that is set aside is placed, in the transaction that does it.
void NotePose(Database &carnet, qint64 RefRDV, const RendezVous &pose);
/// Takes an appointment off the list.
void RetireReplacer(Database &carnet, qint64 RefRDV);
