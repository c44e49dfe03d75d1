#pragma once

#include "Schema.h"
#include "config/ConfigTables.h"
#include "start/VariablesGlobales.h"
#include "support/RecordingMessages.h"

#include <QAbstractButton>
#include <QDialog>
#include <QTemporaryDir>
#include <ostream>

inline void PrintTo(const QString &texte, std::ostream *sortie) {
    *sortie << texte.toStdString();
}

/// A usable configuration: 08:00–12:00 and 14:00–18:00 by quarters of an hour, Monday to Friday.
inline Configuration semaineOrdinaire() {
    return {.FauteuilCourant = QStringLiteral("1"),
            .NbJours = 5,
            .JourAffich = {1, 2, 3, 4, 5, 0, 0},
            .JourRepos = 7,
            .JourGrise = {0, 1, 2, 3, 0, 0, 3},
            .Intervalle = 15,
            .HeureMatDebut = QTime(8, 0),
            .HeureMatFin = QTime(12, 0),
            .HeurePMDebut = QTime(14, 0),
            .HeurePMFin = QTime(18, 0)};
}

/// An empty appointment book, and the state of a program that practitioner 1 uses.
struct LivreDEssai {
    LivreDEssai() {
        creeBase(chemin(), schema(Base::RendezVous));
        v.messages = &messages;
        v.CheminBaseRDV = chemin();
        v.PraticienCourant = QStringLiteral("01");
        v.config = semaineOrdinaire();
    }
    QString chemin() const { return dossier.filePath(QStringLiteral("Tavelin.mdb")); }
    Database ouvre() const { return Database::open(chemin()); }
    void ajoute(const QString &nom, const QString &praticien, int fauteuil, bool defaut,
                int intervalle = 15) {
        Database base = ouvre();
        base.insert(QStringLiteral("Config"), {{QStringLiteral("NomConfig"), nom},
                                               {QStringLiteral("NumPraticien"), praticien},
                                               {QStringLiteral("Fauteuil"), fauteuil},
                                               {QStringLiteral("DefaultConfig"), Value::boolean(defaut)},
                                               {QStringLiteral("Intervalle"), intervalle}});
    }
    /// "name practitioner chair", and a star for a default, of every row in table order.
    QStringList lignes() const {
        const Records rows = ouvre().query(SqlText("Select * from Config"));
        QStringList textes;
        for (const Record row : rows) {
            textes << QStringLiteral("%1 %2 %3%4")
                          .arg(row[u"NomConfig"].toText(), row[u"NumPraticien"].toText(),
                               row[u"Fauteuil"].toText(),
                               row[u"DefaultConfig"].toBoolean() ? QStringLiteral(" *") : QString());
        }
        return textes;
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
T &controle(const QDialog &fenetre, const QString &nom) {
    return *fenetre.findChild<T *>(nom);
}
inline void clique(const QDialog &fenetre, const QString &nom) {
    controle<QAbstractButton>(fenetre, nom).click();
}
