"""Made-up practices, straight into SQLite files, with the oddities that real ones have collected."""
import datetime
import os
import sqlite3

MAINTENANT = datetime.datetime(2026, 3, 11, 10, 5)
JOURS = ("Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim")
NOMS = ("MARTIN", "DUPONT", "D'ARC", "L'HÉNAFF", "DE LA TOUR", "12/03/2026", "LÉGER", "O'BRIEN", "DUPOND", "ÇELIK",
        "NOËL", "DUPONTEL", " LE GOFF ", "1234")
PRENOMS = ("Jeanne", "Éloïse", "Noël", "Anne-Marie", "Zoé", "Luc", "Jean d'Août", "", None)
HEURES = (("08:00", "12:00", "14:00", "18:00"), ("08:00", "12:10", "14:00", "18:50"),
          ("09:00", "12:30", "12:30", "17:00"), ("07:30", "11:45", "13:15", "19:20"))

TABLES = {
    "Base/Fichiers/Tavelin.mdb": {
        "RDV": "RefRDV INTEGER PRIMARY KEY AUTOINCREMENT, Nom TEXT, Prenom TEXT, Telephone TEXT, Description TEXT, "
               "NumPatient INTEGER, Date1 TEXT, HeureDebut TEXT, HeureFin TEXT, NumPraticien TEXT, "
               "Professionnel INTEGER, Present INTEGER, DateInv TEXT, Fauteuil INTEGER",
        "Config": "NomConfig TEXT, NumPraticien TEXT, DefaultConfig INTEGER, NbJours INTEGER, "
                  + "".join(f"{j}Affich INTEGER, {j}Grise INTEGER, " for j in JOURS)
                  + "JourRepos INTEGER, Intervalle INTEGER, HeureMatDebut TEXT, HeureMatFin TEXT, "
                    "HeurePMDebut TEXT, HeurePMFin TEXT, Fauteuil INTEGER",
        "Impression": "Heure TEXT, NomPatient TEXT, PrenomPatient TEXT, HeurePM TEXT, NomPatientPM TEXT, "
                      "PrenomPatientPM TEXT"},
    "Base/Fichiers/Param.mdb": {
        "Praticien": "codeprat INTEGER, Titre TEXT, nom TEXT, PreNom TEXT, Word INTEGER", "Cabinet": "ville TEXT"},
    "Base/Fichiers/Patient.mdb": {
        "TabPat": "cptid INTEGER PRIMARY KEY AUTOINCREMENT, nom TEXT, PreNom TEXT, Titre TEXT, adresse1 TEXT, "
                  "adresse2 TEXT, CodePostal TEXT, ville TEXT, telephone TEXT, Portable TEXT, Profession TEXT, "
                  "telephone1 TEXT, NomJF TEXT, CAM TEXT, medecin TEXT, AdrPar TEXT, mutuelle TEXT, DateNais TEXT, "
                  "NumeroSS TEXT, TauxCam INTEGER, TauxMut INTEGER, PenChargeTp INTEGER, Option INTEGER, "
                  "Filler1 INTEGER, Filler2 INTEGER, cmu TEXT, DateDerLg TEXT, MontantHis REAL, RDVNonHonoré TEXT"},
    "Base/Fichiers/Actes.mdb": {
        "Actes": "NumActe INTEGER, NumPatient INTEGER, AFaire INTEGER, Libellé TEXT, CodeSecu TEXT, Coefficient REAL"},
    "Donnees/Fichiers/PatientTavelin.mdb": {
        "LePatient": "NomPatient TEXT, PrenomPatient TEXT, NumPatient INTEGER", "LePraticien": "NumPraticien TEXT"},
    "CheminBelmor.mdb": {"Chemin": "LeChemin TEXT, CheminBase TEXT"},
}


def ajoute(base, table, **champs):
    noms = ", ".join(champs)
    curseur = base.execute(f"insert into {table} ({noms}) values ({', '.join('?' * len(champs))})",
                           tuple(champs.values()))
    return curseur.lastrowid


def heure(minutes, secondes=0):
    return f"{minutes // 60 % 24:02}:{minutes % 60:02}:{secondes:02}"


def rendez_vous(h, jour, debut, duree, praticien, fauteuil):
    """The fields of an ordinary appointment."""
    return {"Nom": h.choice(NOMS), "Prenom": h.choice(PRENOMS), "Telephone": h.choice(("02 97 11 22 33", "", None)),
            "Description": h.choice(("", None, " ", "Contrôle", "Détartrage d'abord")),
            "NumPatient": h.choice((0, h.randint(1, 300))), "Date1": jour.isoformat(),
            "HeureDebut": heure(debut), "HeureFin": heure(debut + duree),
            "NumPraticien": h.choice((f"0{praticien}", str(praticien))), "Professionnel": h.choice((0, 1, -1)),
            "Present": h.choice((0, 0, 0, 1, -1)), "DateInv": jour.strftime("%Y%m%d"), "Fauteuil": fauteuil}


def configuration(h, praticien, fauteuil, defaut, pas):
    caches = h.sample(range(7), h.choice((0, 1, 2, 2, 3, 4)))
    affiches = [0 if i in caches else i + 1 for i in range(7)]
    champs = {"NomConfig": "Défaut" if praticien == 0 else f"conf {praticien} {fauteuil}",
              "NumPraticien": f"0{praticien}", "DefaultConfig": defaut, "Fauteuil": fauteuil, "Intervalle": pas,
              "NbJours": h.choice((7 - len(caches), 7 - len(caches), 5)), "JourRepos": h.choice((7, 1, 3))}
    for i, jour in enumerate(JOURS):
        champs |= {jour + "Affich": affiches[i], jour + "Grise": h.choice((0, 0, 0, 1, 2, 3))}
    return champs | dict(zip(("HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin"),
                             (t + ":00" for t in h.choice(HEURES))))


def semaine(h, praticien, fauteuil, lundi):
    """Ordinary days, and in them all that is not ordinary."""
    for jour in (lundi + datetime.timedelta(n) for n in range(7)):
        debut = 480
        while debut < 1080 and h.random() < 0.93:
            duree = h.choice((10, 15, 20, 30, 45, 60))
            if h.random() < 0.55:
                yield rendez_vous(h, jour, debut, duree, praticien, fauteuil)
            debut += duree + h.choice((0, 0, 5, 15, 40))
    bizarres = ((1065, 30), (405, 90), (700, 160), (1090, 40), (540, 50), (545, 20), (550, 8), (600, 3), (604, 4),
                (480, 700), (1020, 60))
    for debut, duree in h.sample(bizarres, 5):
        jour = lundi + datetime.timedelta(h.randrange(7))
        yield rendez_vous(h, jour, debut, duree, praticien, fauteuil)
    for champs in h.sample(({"HeureDebut": "09:10:30", "HeureFin": "09:40:20"}, {"Nom": None, "Prenom": None},
                            {"HeureDebut": None}, {"HeureFin": "abc"}, {"HeureFin": "08:10:00"},
                            {"Date1": None}), 3):
        jour = lundi + datetime.timedelta(h.randrange(7))
        if "Date1" in champs:
            champs = {"Date1": jour.isoformat() + " 00:00:00"}
        yield rendez_vous(h, jour, 540, 30, praticien, fauteuil) | champs


def cree(dossier, h):
    """Writes the practice; gives the practitioner that is handed over."""
    bases = {}
    for chemin, tables in TABLES.items():
        fichier = os.path.join(dossier, chemin)
        os.makedirs(os.path.dirname(fichier), exist_ok=True)
        bases[os.path.basename(fichier)] = base = sqlite3.connect(fichier)
        for table, champs in tables.items():
            base.execute(f"create table {table} ({champs})")
    pas = [5, 7, 10, 15, 20, 25, 30, 45, 50, 60]
    fauteuils = {1: (1, 2), 2: (0,), 4: (), 5: (1, 2, 12), 8: (1, 3), 12: (0,), 7: (0,)}
    livre, param = bases["Tavelin.mdb"], bases["Param.mdb"]
    ajoute(livre, "Config", **configuration(h, 0, 0, 1, 15))
    for praticien, places in fauteuils.items():
        if praticien != 7:
            ajoute(param, "Praticien", codeprat=praticien, nom=h.choice(NOMS[:5]) + str(praticien),
                   PreNom=h.choice(PRENOMS[:6]), Word=0)
        defaut = h.choice(places) if places and praticien != 8 else None
        for place in places:
            ajoute(livre, "Config", **configuration(h, praticien, place, int(place == defaut), h.choice(pas)))
        lundi = MAINTENANT.date() - datetime.timedelta(MAINTENANT.weekday())
        for place in places or (0,):
            for n in (-7, 0, 7):
                for champs in semaine(h, praticien, place, lundi + datetime.timedelta(n)):
                    ajoute(livre, "RDV", **champs)
        if praticien == 2:
            ajoute(livre, "RDV", **rendez_vous(h, MAINTENANT.date(), 610, 20, 2, 3))
    for _ in range(300):
        ajoute(bases["Patient.mdb"], "TabPat", nom=h.choice(NOMS), PreNom=h.choice(PRENOMS), DateNais="02/03/1980",
               RDVNonHonoré=h.choice(("O", "N", None, "")))
    ajoute(bases["Actes.mdb"], "Actes", NumActe=1, NumPatient=17, AFaire=1, Libellé="Couronne", Coefficient=1.0)
    transmis = h.choice((1, 2, 4, 5, 7, 8, 12))
    nom = bases["Patient.mdb"].execute("select nom, PreNom from TabPat where cptid = 17").fetchone()
    if h.random() < 0.7:
        ajoute(bases["PatientTavelin.mdb"], "LePatient", NomPatient=nom[0], PrenomPatient=nom[1], NumPatient=17)
    ajoute(bases["PatientTavelin.mdb"], "LePraticien", NumPraticien=f"0{transmis}")
    ajoute(bases["CheminBelmor.mdb"], "Chemin", LeChemin=dossier + "/Donnees", CheminBase=dossier + "/Base")
    for base in bases.values():
        base.commit()
        base.close()
    return transmis
