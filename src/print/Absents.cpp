#include "print/Absents.h"

#include "print/NomsDocument.h"
#include "schedule/Configuration.h"

#include <algorithm>

namespace {

QString heure(QTime time) {
    return time.toString(QStringLiteral("HH:mm"));
}

} // namespace

std::array<QString, colonnesAbsents> Absent::textes() const {
    return {NumPraticien, nom, PreNom, NumPatient, heure(HeureDebut), heure(HeureFin), telephone};
}

bool Absent::peutEtreMarque() const {
    return EstNumero(NumPraticien);
}

void ListeAbsents::basculeMarque(int place) {
    if (place >= 0 && place < absents.size() && absents[place].peutEtreMarque() && !marques.remove(place)) {
        marques.insert(place);
    }
}

QList<Lettre> ListeAbsents::lettres() const {
    QList<int> places = marques.values();
    std::ranges::sort(places);
    QList<Lettre> lettres;
    for (const int place : places) {
        const Absent &absent = absents[place];
        lettres.append(Lettre{CLng(absent.NumPraticien), CLng(absent.NumPatient), demande.date});
    }
    return lettres;
}

bool EstNumero(const QString &texte) {
    bool lu = false;
    (void)texte.trimmed().toLong(&lu);
    return lu;
}

QString TexteMarques(int combien) {
    return combien == 0   ? QStringLiteral("aucun marqué")
           : combien == 1 ? QStringLiteral("1 marqué")
                          : QStringLiteral("%1 marqués").arg(combien);
}

std::array<int, colonnesAbsents> LargeursAbsents(int largeurGrille) {
    constexpr std::array<int, colonnesAbsents> largeursVoulues{700, 1500, 1500, 700, 700, 700, 1500};
    constexpr int somme = 7300;
    std::array<int, colonnesAbsents> largeurs = largeursVoulues;
    for (int &largeur : largeurs) {
        largeur = largeur * std::max(largeurGrille, somme) / somme;
    }
    return largeurs;
}

word::Verbs VerbesListing(const ListeAbsents &liste, const QString &modele, const QString &debut,
                          const QDateTime &maintenant) {
    QList<std::optional<QString>> cellules;
    for (const Absent &absent : liste.absents.isEmpty() ? QList<Absent>{Absent()} : liste.absents) {
        for (const QString &texte : absent.textes()) {
            cellules << texte;
        }
    }
    return {word::Open{modele},
            word::Reserve{NomsDocument(debut, maintenant)},
            word::Select{QStringLiteral("Début")},
            word::Cells{cellules},
            word::Select{QStringLiteral("noprat")},
            word::Type{liste.demande.date},
            word::Print{},
            word::Save{},
            word::Close{}};
}
