#pragma once

#include "Schema.h"
#include "patients/TabPatTables.h"
#include "start/VariablesGlobales.h"
#include "support/RecordingMessages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QWidget>
#include <ostream>

inline void PrintTo(const QString &texte, std::ostream *sortie) {
    *sortie << texte.toStdString();
}

/// The suite's empty patient databases, and the state of a program that uses them on 11 March 2026.
struct PatientsDEssai {
    PatientsDEssai() {
        for (const Base base : {Base::Patients, Base::PatientsCrees, Base::Actes}) {
            creeBase(fichier(base), schema(base));
        }
        v.messages = &messages;
        v.CheminFichiers = dossier.path();
        v.maintenant = [] { return QDateTime(QDate(2026, 3, 11), QTime(10, 5)); };
    }
    QString fichier(Base base) const { return dossier.filePath(schema(base).fichier); }
    Database ouvre(Base base) const { return Database::open(fichier(base)); }
    void protege(Base base) const {
        QFile::setPermissions(fichier(base), QFile::ReadOwner | QFile::ReadUser);
    }
    qint64 ajoute(const char *nom, const char *prenom, const char *dateNais = "", const char *secu = "",
                  const Value &drapeau = {}) const {
        const auto valeur = [](const char *texte) {
            return texte == nullptr ? Value() : Value(QString::fromUtf8(texte));
        };
        Database base = ouvre(Base::Patients);
        return base.insert(QStringLiteral("TabPat"), {{QStringLiteral("nom"), valeur(nom)},
                                                      {QStringLiteral("PreNom"), valeur(prenom)},
                                                      {QStringLiteral("DateNais"), valeur(dateNais)},
                                                      {QStringLiteral("NumeroSS"), valeur(secu)},
                                                      {QStringLiteral("RDVNonHonoré"), drapeau}});
    }
    int nombreDe(Base base) const {
        Database ouverte = ouvre(base);
        return ouverte
            .query(base == Base::Patients ? SqlText("select * from TabPat")
                                          : SqlText("select * from LesPatients"))
            .count();
    }
    QString messagesLus() const {
        QStringList textes;
        for (const auto &message : messages.shown) {
            textes << message.title + u'|' + message.text;
        }
        return textes.join(u'\n');
    }

    QTemporaryDir dossier;
    RecordingMessages messages;
    VariablesGlobales v;
};

template <typename T>
T &controle(const QWidget &fenetre, const char *nom) {
    return *fenetre.findChild<T *>(QString::fromLatin1(nom));
}
