#pragma once

#include "platform/db/Database.h"

#include <QTime>
#include <optional>

/// All that the endurance programs do to an appointment book, under names of their own.

struct Place {
    int praticien = 1;
    int fauteuil = 1;
    QDate jour;
    QTime debut;
    QTime fin;
};

/// Creates an up-to-date book without appointments.
void creeLivre(const QString &livre);
/// Adds an appointment, known by its `marque`; gives its key.
std::optional<qint64> ajoute(Database &rdv, const Place &place, const QString &marque);
/// Moves one of the day's appointments to `place` and gives it that mark, or deletes it when there is none;
/// gives its key, 0 when that was refused.
qint64 change(Database &rdv, unsigned tirage, const Place &place, const std::optional<QString> &marque);

/// An appointment in one line, as it was written and as the book has it.
QString contenu(const Place &place, const QString &marque);
QString contenu(const Record &row);
