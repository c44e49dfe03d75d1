#pragma once

#include "Schema.h"
#include "patients/TabPatTables.h"
#include "practice/Environnement.h"
#include "support/Livre.h"
#include "support/RecordingMessages.h"

#include <QFile>

/// The suite's empty patient databases, and the world of a program that uses them on 11 March 2026.
struct PatientsDEssai {
    PatientsDEssai() {
        for (const Base base : {Base::Patients, Base::PatientsCrees, Base::Actes}) {
            creeBase(fichier(base), schema(base));
        }
        env.messages = &messages;
        env.patience = std::chrono::milliseconds(0);
        env.CheminFichiers = dossier.path();
        env.maintenant = [] { return QDateTime(QDate(2026, 3, 11), QTime(10, 5)); };
    }
    QString fichier(Base base) const { return dossier.filePath(schema(base).fichier); }
    Database ouvre(Base base) const { return Database::open(fichier(base)); }
    void protege(Base base) const {
        QFile::setPermissions(fichier(base), QFile::ReadOwner | QFile::ReadUser);
    }
    /// Patients "name|first name|date of birth"; what is missing is Null.
    void ajoute(const QStringList &patients) const {
        Database base = ouvre(Base::Patients);
        Transaction transaction(base);
        for (const QString &patient : patients) {
            const auto champ = [&](int i) {
                const QString texte = patient.section(u'|', i, i);
                return texte.isEmpty() ? Value() : Value(texte);
            };
            base.insert(q("TabPat"),
                        {{q("nom"), champ(0)}, {q("PreNom"), champ(1)}, {q("DateNais"), champ(2)}});
        }
        transaction.commit();
    }
    /// "field=value" of every row and field of the table, without the Nulls.
    QString contenu(Base base) const {
        const bool patients = base == Base::Patients;
        const Records rows = ouvre(base).query(patients ? SqlText("select * from TabPat")
                                                        : SqlText("select * from LesPatients"));
        QString champs;
        for (const Record row : rows) {
            for (int i = 0; i < rows.fields().size(); ++i) {
                champs +=
                    row.at(i).isNull() ? QString() : rows.fields()[i] + u'=' + row.at(i).toText() + u';';
            }
        }
        return champs;
    }

    QTemporaryDir dossier;
    RecordingMessages messages;
    Environnement env;
};
