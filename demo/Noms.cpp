#include "Noms.h"

namespace Noms {

namespace {

constexpr QStringView lesFamilles[] = {
    u"MARTIN",       u"BERNARD",    u"THOMAS",      u"PETIT",      u"ROBERT",       u"RICHARD",
    u"DURAND",       u"DUBOIS",     u"MOREAU",      u"LAURENT",    u"SIMON",        u"MICHEL",
    u"LEFÈVRE",      u"LEROY",      u"ROUX",        u"DAVID",      u"BERTRAND",     u"MOREL",
    u"FOURNIER",     u"GIRARD",     u"BONNET",      u"DUPONT",     u"LAMBERT",      u"FONTAINE",
    u"ROUSSEAU",     u"VINCENT",    u"MÜLLER",      u"FAURE",      u"ANDRÉ",        u"MERCIER",
    u"BLANC",        u"GUÉRIN",     u"BOYER",       u"GARNIER",    u"CHEVALIER",    u"FRANÇOIS",
    u"LEGRAND",      u"GAUTHIER",   u"GARCIA",      u"PERRIN",     u"ROBIN",        u"CLÉMENT",
    u"MORIN",        u"NICOLAS",    u"HENRY",       u"ROUSSEL",    u"MATHIEU",      u"GAUTIER",
    u"MASSON",       u"MARCHAND",   u"DUVAL",       u"DENIS",      u"DUMONT",       u"MARIE",
    u"LEMAIRE",      u"NOËL",       u"MEYER",       u"DUFOUR",     u"MEUNIER",      u"BRUN",
    u"BLANCHARD",    u"GIRAUD",     u"JOLY",        u"RIVIÈRE",    u"LUCAS",        u"BRUNET",
    u"GAILLARD",     u"BARBIER",    u"ARNAUD",      u"MARTÍNEZ",   u"GÉRARD",       u"ROCHE",
    u"RENARD",       u"SCHMITT",    u"ROY",         u"LEROUX",     u"COLIN",        u"VIDAL",
    u"CARON",        u"PICARD",     u"ROGER",       u"FABRE",      u"AUBERT",       u"LEMOINE",
    u"RENAUD",       u"DUMAS",      u"LACROIX",     u"OLIVIER",    u"PHILIPPE",     u"BOURGEOIS",
    u"PIERRE",       u"BENOÎT",     u"REY",         u"LECLERC",    u"PAYET",        u"ROLLAND",
    u"LECLERCQ",     u"GUILLAUME",  u"LECOMTE",     u"LOPEZ",      u"JEAN",         u"DUPUY",
    u"GUILLOT",      u"HUBERT",     u"BERGER",      u"CARPENTIER", u"SÁNCHEZ",      u"DUPUIS",
    u"MOULIN",       u"LOUIS",      u"DESCHAMPS",   u"HUET",       u"VASSEUR",      u"PEREZ",
    u"BOUCHER",      u"FLEURY",     u"ROYER",       u"KLEIN",      u"JACQUET",      u"ADAM",
    u"LE GALL",      u"LE GOFF",    u"LE ROUX",     u"LE BRETON",  u"KERVELLA",     u"KERGOAT",
    u"PRIGENT",      u"TANGUY",     u"GUÉGAN",      u"JÉGO",       u"LE FLOC'H",    u"LE CLEC'H",
    u"CARRÉ",        u"LE DÛ",      u"PENVEN",      u"QUÉMÉNEUR",  u"TRÉGOUËT",     u"HERVÉ",
    u"D'ARC",        u"L'HERMITE",  u"L'HOSTIS",    u"D'HARCOURT", u"D'AVOUST",     u"L'HELGOUALC'H",
    u"D'ALMEIDA",    u"N'DIAYE",    u"O'BRIEN",     u"DE LA TOUR", u"DE KERSAUSON", u"DU BOISBERRANGER",
    u"VAN DEN BERG", u"DE SOUSA",   u"DES ESSARTS", u"SAINT-JUST", u"SAINT-MARTIN", u"PETIT-JEAN",
    u"GROS-LOUIS",   u"CŒURDACIER", u"LAÎNÉ",       u"BÉRANGER",   u"CÔTÉ",         u"MAÎTREJEAN",
    u"NGUYEN",       u"TRAN",       u"BENALI",      u"HADDAD",     u"TRAORÉ",       u"KOWALSKI"};

constexpr QStringView femmesAvant[] = {
    u"Marie",      u"Jeanne", u"Françoise", u"Monique",  u"Catherine", u"Nathalie",  u"Isabelle",
    u"Jacqueline", u"Sylvie", u"Martine",   u"Anne",     u"Nicole",    u"Hélène",    u"Christine",
    u"Thérèse",    u"Yvonne", u"Geneviève", u"Brigitte", u"Simone",    u"Véronique", u"Marie-Thérèse",
    u"Anne-Marie", u"Odile",  u"Solange",   u"Édith",    u"Agnès",     u"Chantal",   u"Joëlle"};
constexpr QStringView femmesApres[] = {
    u"Camille", u"Léa",         u"Manon",   u"Chloé",   u"Emma",     u"Inès",    u"Zoé",
    u"Océane",  u"Émilie",      u"Élodie",  u"Aurélie", u"Julie",    u"Céline",  u"Maëlle",
    u"Anaïs",   u"Lucie",       u"Héloïse", u"Jade",    u"Louise",   u"Nolwenn", u"Gaëlle",
    u"Sarah",   u"Anne-Sophie", u"Fatou",   u"Mélanie", u"Clémence", u"Rozenn",  u"Amélie"};
constexpr QStringView hommesAvant[] = {
    u"Jean",   u"Pierre",   u"Michel",  u"André",   u"Philippe",    u"René",      u"Louis",
    u"Alain",  u"Jacques",  u"Bernard", u"Marcel",  u"Daniel",      u"Roger",     u"Raymond",
    u"Gérard", u"François", u"Hervé",   u"Joël",    u"Jean-Pierre", u"Jean-Yves", u"Yannick",
    u"Noël",   u"Étienne",  u"Guy",     u"Maurice", u"Serge",       u"Loïc",      u"Jean-François"};
constexpr QStringView hommesApres[] = {
    u"Lucas",  u"Enzo",    u"Mathéo", u"Hugo",     u"Théo",  u"Jérôme", u"Sébastien",
    u"Kévin",  u"Raphaël", u"Léo",    u"Gaël",     u"Ewen",  u"Mathis", u"Nicolas",
    u"Julien", u"Thomas",  u"Maxime", u"Clément",  u"Noé",   u"Adrien", u"Jean-Baptiste",
    u"Malo",   u"Gaspard", u"Émile",  u"Aurélien", u"Mehdi", u"Yann",   u"Paul-Émile"};

constexpr QStringView lesRues[] = {
    u"rue des Écoles",    u"rue de l'Église",    u"place de la République", u"avenue du Maréchal-Foch",
    u"rue Saint-Vincent", u"rue du Port",        u"quai de l'Île",          u"allée des Châtaigniers",
    u"chemin de l'Étang", u"impasse du Four",    u"boulevard de la Paix",   u"rue d'Auray",
    u"rue Jeanne-d'Arc",  u"avenue Victor-Hugo", u"rue des Frères-Jolivel", u"rue du Général-de-Gaulle",
    u"hent Ar Mor",       u"rue des Genêts",     u"rue Hélène-Boucher",     u"venelle du Puits"};

constexpr QStringView lesComplements[] = {u"Résidence Les Ajoncs", u"Appartement 12",
                                          u"Bâtiment B, 3e étage", u"Lieu-dit Kerbiscam",
                                          u"Chez Mme LE GALL",     u"BP 24"};

constexpr QStringView lesMotifsAdulte[] = {u"Détartrage",
                                           u"Contrôle annuel",
                                           u"Couronne 26",
                                           u"Pose d'implant",
                                           u"Urgence : douleur",
                                           u"Carie 36",
                                           u"Dévitalisation 14",
                                           u"Empreintes",
                                           u"Essayage bridge 11-13",
                                           u"Pose couronne 46",
                                           u"Extraction 38",
                                           u"Dépose des fils",
                                           u"Radio panoramique",
                                           u"Devis prothèse",
                                           u"Retouche d'appareil",
                                           u"Blanchiment",
                                           u"Composite 21",
                                           u"Surfaçage, 1er quadrant",
                                           u"Réglage d'occlusion",
                                           u"Première consultation",
                                           u"Couronne descellée",
                                           u"Suite de soins",
                                           u"Gouttière",
                                           u"Inlay-core 45"};

constexpr QStringView lesMotifsEnfant[] = {
    u"Contrôle orthodontie", u"Pose de bagues",  u"Bilan M'T dents",         u"Scellement des sillons",
    u"Bague décollée",       u"Carie 75",        u"Changement d'arc",        u"Empreintes orthodontie",
    u"Contention",           u"Dent de lait 64", u"Contrôle avec un parent", u"Urgence : chute à l'école"};

constexpr Commune lesCommunes[] = {
    {u"56000", u"VANNES"},       {u"56000", u"VANNES"},   {u"56000", u"VANNES"},
    {u"56860", u"SÉNÉ"},         {u"56610", u"ARRADON"},  {u"56890", u"SAINT-AVÉ"},
    {u"56450", u"THEIX-NOYALO"}, {u"56890", u"PLESCOP"},  {u"56880", u"PLOEREN"},
    {u"56400", u"AURAY"},        {u"56250", u"ELVEN"},    {u"56230", u"QUESTEMBERT"},
    {u"56870", u"BADEN"},        {u"56370", u"SARZEAU"},  {u"56870", u"LARMOR-BADEN"},
    {u"56390", u"GRAND-CHAMP"},  {u"56190", u"MUZILLAC"}, {u"56780", u"L'ÎLE-AUX-MOINES"},
    {u"56400", u"LE BONO"},      {u"56100", u"LORIENT"},  {u"44000", u"NANTES"},
    {u"35000", u"RENNES"},       {u"75011", u"PARIS"},    {u"20000", u"AJACCIO"}};

constexpr Acte lesActes[] = {{u"Bilan", u"TO", 15},
                             {u"Détartrage", u"SC", 12},
                             {u"Carie 2 faces", u"SC", 20.5},
                             {u"Traitement canalaire", u"SC", 34},
                             {u"Extraction", u"DC", 16},
                             {u"Couronne céramo-métallique", u"SPR", 50},
                             {u"Inlay-core", u"SPR", 57},
                             {u"Appareil amovible", u"SPR", 85},
                             {u"Radio panoramique", u"Z", 16},
                             {u"Traitement d'orthodontie, semestre", u"TO", 90},
                             {u"Contention", u"TO", 75}};

} // namespace

Liste familles() {
    return lesFamilles;
}

Liste prenomsFemmes(bool recents) {
    return recents ? Liste(femmesApres) : Liste(femmesAvant);
}

Liste prenomsHommes(bool recents) {
    return recents ? Liste(hommesApres) : Liste(hommesAvant);
}

Liste rues() {
    return lesRues;
}

Liste complements() {
    return lesComplements;
}

Liste motifsAdulte() {
    return lesMotifsAdulte;
}

Liste motifsEnfant() {
    return lesMotifsEnfant;
}

std::span<const Commune> communes() {
    return lesCommunes;
}

std::span<const Acte> actes() {
    return lesActes;
}

} // namespace Noms
