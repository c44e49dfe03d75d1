#pragma once

#include "grid/RendezVous.h"

#include <QList>

/// What the user is told, once, about appointments that overlap another of the same practitioner and chair
/// since before the book was looked at for that: `combien`, of which `premiers` are named. Empty for none.
QString TexteChevauchements(int combien, const QList<RendezVous> &premiers);
