#pragma once

#include <QList>
#include <QString>

/// What tells two patients of the same name and first name apart.
struct Identite {
    QString DateNais; ///< "dd/mm/yyyy"
    QString NumeroSS;
};

/// What the new patient shares with those who bear the same name and first name, in the words of
/// QuestionDoublon: that of the last one, unless one has the same date of birth and number. Empty without
/// any.
QString LibelleDoublon(const QList<Identite> &homonymes, const Identite &nouveau);

QString QuestionDoublon(const QString &libelle);
