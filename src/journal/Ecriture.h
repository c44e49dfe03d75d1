#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>

/// What the history keeps of a writing: values.

/// What was done to an appointment. The numbers are stored.
enum class Operation {
    Ajout = 1,
    Edition = 2, ///< moved, lengthened or changed: its two rows tell
    Suppression = 3,
    Presence = 4,
    Purge = 5, ///< of many at once: `apres` has their number, their archive, and the day that they lay before
    Annulation = 6,
    Refait = 7,  ///< what had been undone
    Retabli = 8, ///< put back out of the history
};

/// A row of RDV as it is stored, every field of it. Empty: there is none.
using Rangee = QJsonObject;

// The fields of a purge's `apres`, beside Date1.
inline const QString champNombre = QStringLiteral("Nombre");
inline const QString champArchive = QStringLiteral("Archive");

/// One writing: the row before and after it.
struct EcritureRDV {
    Operation quoi = Operation::Ajout;
    Rangee avant = {};
    Rangee apres = {};

    /// Nothing is another than before: nothing is kept of it.
    bool vide() const { return avant == apres; }
    qint64 RefRDV() const;
};

/// The same as the history has it.
struct LigneJournal {
    qint64 RefJournal = 0;
    QDateTime quand;
    QString poste;
    QString utilisateur;
    EcritureRDV ecriture = {};
};

/// What a patient's writings are found by: his names in capitals without accents, one blank between words.
QString ClePatient(const QString &nom, const QString &prenom);
QString ClePatient(const Rangee &rangee);
/// What a day's writings are found by: the eight digits of the day on which a row lies. Empty without one.
QString CleJour(const Rangee &rangee);
