#include "Preuves.h"

#include "booking/RangeeTables.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <algorithm>
#include <tuple>

QString fichier(const QString &dossier, Base base) {
    const QString entre = dossier.startsWith(QStringLiteral("postgresql:")) ? QStringLiteral("\\Fichiers\\")
                                                                            : QStringLiteral("/");
    return dossier + entre + schema(base).fichier;
}

QString contenu(const RendezVous &rdv) {
    if (rdv.RefRDV == 0 && rdv.Nom.isEmpty()) {
        return {};
    }
    return QStringLiteral("%1|%2|%3 %4-%5|%6|%7")
        .arg(rdv.Nom, rdv.Description, rdv.Date1.toString(Qt::ISODate), rdv.HeureDebut.toString(),
             rdv.HeureFin.toString())
        .arg(rdv.NumPraticien)
        .arg(rdv.Fauteuil);
}

QList<RendezVous> rendezVous(const QString &dossier) {
    QList<RendezVous> tous;
    Database rdv = Database::open(fichier(dossier, Base::RendezVous), std::chrono::minutes(1));
    for (int agenda = 0; agenda < 4; ++agenda) {
        tous += RendezVousEntre(rdv, lundi, lundi.addDays(2), 1 + agenda / 2, 1 + agenda % 2);
    }
    return tous;
}

int chevauchements(const QList<RendezVous> &rdv) {
    int paires = 0;
    for (qsizetype i = 1; i < rdv.size(); ++i) { // each list by day and start: neighbours are enough
        const auto &[a, b] = std::tie(rdv[i - 1], rdv[i]);
        paires += a.NumPraticien == b.NumPraticien && a.Fauteuil == b.Fauteuil && a.Date1 == b.Date1 &&
                          b.HeureDebut < a.HeureFin
                      ? 1
                      : 0;
    }
    return paires;
}

QStringList noms(const QString &dossier, Base base) {
    Database ouverte = Database::open(fichier(dossier, base));
    const Records rows =
        ouverte.query(base == Base::Patients ? SqlText("Select nom from TabPat order by nom")
                                             : SqlText("Select nom from LesPatients order by nom"));
    QStringList liste;
    for (const Record row : rows) {
        liste << row.at(0).toText();
    }
    return liste;
}

QStringList ecartsHistoire(const QString &dossier) {
    Database rdv = Database::open(fichier(dossier, Base::RendezVous));
    QMap<qint64, QString> etats;
    QStringList fautes;
    rdv.forEach(SqlText("Select RefRDV, Avant, Apres from TavJournal order by RefJournal"),
                [&](const RowView &r) {
                    QString &etat = etats[r.integer(0)];
                    if (r.text(1) != etat) {
                        fautes << QStringLiteral("une écriture sans suite : ") + r.text(1);
                    }
                    etat = r.text(2);
                });
    QMap<qint64, QString> livre;
    rdv.forEach(SqlText("Select RefRDV from RDV"),
                [&](const RowView &r) { livre[r.integer(0)] = QString(); });
    for (auto rangee = livre.begin(); rangee != livre.end(); ++rangee) {
        *rangee =
            QString::fromUtf8(QJsonDocument(LitRangee(rdv, rangee.key())).toJson(QJsonDocument::Compact));
    }
    etats.removeIf([](const auto &etat) { return etat.value().isEmpty(); });
    if (etats != livre) {
        fautes << QStringLiteral("l'historique ne finit pas par le carnet");
    }
    return fautes;
}

QStringList ecartsDepots(const QString &dossier, int &deposes) {
    Database rdv = Database::open(fichier(dossier, Base::RendezVous));
    QMap<qint64, QPair<QString, QString>> depots; // of those that were dropped last: from where, and where to
    const auto lieu = [](const QJsonObject &r) {
        return r[QLatin1String("Date1")].toString().left(10) + r[QLatin1String("HeureDebut")].toString() +
               QString::number(r[QLatin1String("Fauteuil")].toInt());
    };
    rdv.forEach(SqlText("Select RefRDV, Quoi, Avant, Apres from TavJournal order by RefJournal"),
                [&](const RowView &r) {
                    const QJsonObject avant = QJsonDocument::fromJson(r.text(2).toUtf8()).object();
                    const QJsonObject apres = QJsonDocument::fromJson(r.text(3).toUtf8()).object();
                    depots.remove(r.integer(0)); // undone, it may be set aside again where it was
                    if (r.integer(1) == int(Operation::Edition) &&
                        avant[QLatin1String("Nom")] == apres[QLatin1String("Nom")]) {
                        depots[r.integer(0)] = {lieu(avant), lieu(apres)};
                        ++deposes;
                    }
                });
    QStringList fautes;
    rdv.forEach(SqlText("Select RefRDV, Jour, HeureDebut, Fauteuil, JourPose, DebutPose, FauteuilPose "
                        "from TavReplacer"),
                [&](const RowView &r) {
                    const auto [de, a] = depots.value(r.integer(0));
                    const QString note = r.text(1) + r.text(2) + QString::number(r.integer(3));
                    const QString pose = r.text(4) + r.text(5) + QString::number(r.integer(6));
                    const bool attend = r.text(4).isEmpty();
                    if (!a.isEmpty() && (attend ? note == de : pose != a)) {
                        fautes << QStringLiteral("de %1 à %2, noté %3").arg(de, a, pose);
                    }
                });
    return fautes;
}

void Journal::lit(const QByteArray &sortie) {
    QStringList annonce;
    for (const QString &ligne : QString::fromUtf8(sortie).split(u'\n', Qt::SkipEmptyParts)) {
        if (ligne == u"1") {
            ecrit(annonce);
            ++acquittes;
        }
        annonce = ligne.contains(u'\t') ? ligne.split(u'\t') : QStringList();
    }
    if (!annonce.isEmpty()) {
        enCours << annonce;
    }
}

void Journal::ecrit(const QStringList &annonce) {
    --compte[annonce[0]];
    ++compte[annonce[1]];
}

QStringList Journal::ecarts(const QStringList &livre) {
    const auto compteDe = [&](const QString &contenu) {
        return compte.value(contenu) - int(livre.count(contenu)); // more than 0: it has left
    };
    for (qsizetype passe = enCours.size(); passe > 0; --passe) {
        const auto ecrits = enCours.removeIf([&](const QStringList &a) {
            const bool fait = a[1].isEmpty() ? compteDe(a[0]) > 0 : compteDe(a[1]) < 0;
            fait ? ecrit(a) : void();
            return fait;
        });
        const auto parti = std::ranges::find_if(
            enCours, [&](const auto &a) { return !a[0].isEmpty() && compteDe(a[0]) > 0; });
        if (ecrits == 0 && parti != enCours.end()) { // what it became was deleted by one that was killed, too
            ecrit(*parti);
            enCours.erase(parti);
        }
    }
    compte.remove(QString());
    for (const QString &contenu : livre) {
        --compte[contenu];
    }
    compte.removeIf([](const auto &reste) { return reste.value() == 0; });
    return compte.keys();
}

int remis(const QString &dossier) {
    Database rdv = Database::open(fichier(dossier, Base::RendezVous));
    return rdv.query(SqlText("Select RefJournal from TavJournal Where Quoi in (6, 7) order by RefJournal"))
        .count();
}
