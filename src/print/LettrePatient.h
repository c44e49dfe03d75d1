#pragma once

#include "print/Lettres.h"

class QWidget;
struct Environnement;

/// Makes and prints an absence letter for each, one after the other, and tells how many were made. The first
/// one that fails or is cancelled is the last.
void LettresAbsence(const Environnement &env, QWidget *parent, const QList<Lettre> &lettres);

/// Makes the cancellation letter and leaves it open in the user's word processor.
void LettreAnnulation(const Environnement &env, QWidget *parent, const Lettre &lettre);
