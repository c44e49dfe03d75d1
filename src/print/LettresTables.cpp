#include "print/LettresTables.h"

namespace {

/// The fields of the first row; empty texts without one.
template <size_t N>
std::array<QString, N> champs(const Records &rows, const std::array<QStringView, N> &noms) {
    std::array<QString, N> textes;
    if (!rows.isEmpty()) {
        for (size_t i = 0; i < N; ++i) {
            textes[i] = rows.first()[noms[i]].toText();
        }
    }
    return textes;
}

std::array<QString, 10> lignesDe(Database &impression, long praticien) {
    std::array<QString, 10> lignes;
    for (size_t i = 0; i < lignes.size(); ++i) {
        const Records rows = impression.query(SqlText("select LgPerso from Parametres where clng(codeprat)=")
                                              << nombre(praticien) << " and clng(NumLigne)="
                                              << nombre(qint64(i) + 1) << " order by CleLigne");
        lignes[i] = champs<1>(rows, {u"LgPerso"})[0];
    }
    return lignes;
}

} // namespace

CadreLettre LitCadre(Database &impression, Database &patients, Database &parametres, const Lettre &lettre) {
    CadreLettre cadre;
    cadre.lignes = lignesDe(impression, lettre.praticien);
    if (lettre.patient != 0) {
        cadre.patient = champs<7>(
            patients.query(SqlText("select * from TabPat where clng(Cptid)=") << nombre(lettre.patient)),
            {u"Titre", u"nom", u"PreNom", u"adresse1", u"adresse2", u"CodePostal", u"ville"});
    }
    cadre.praticien = champs<3>(parametres.query(SqlText("select * from Praticien where clng(codeprat)=")
                                                 << nombre(lettre.praticien) << " order by CleLigne"),
                                {u"Titre", u"nom", u"PreNom"});
    cadre.ville =
        champs<1>(parametres.query(SqlText("select ville from Cabinet order by CleLigne")), {u"ville"})[0];
    return cadre;
}
