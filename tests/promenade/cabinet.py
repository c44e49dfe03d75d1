"""Made-up practices, straight into SQLite files, with the oddities that real ones have collected; and the
other workstation, which books, moves, deletes, locks the book, takes it away and gives it back."""
import datetime
import os
import shutil
import sqlite3

MAINTENANT = datetime.datetime(2026, 3, 11, 10, 5)
JOURS = ("Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim")
NOMS = ("MARTIN", "DUPONT", "D'ARC", "L'HÉNAFF", "DE LA TOUR", "12/03/2026", "LÉGER", "DUPOND", "ÇELIK",
        " LE GOFF ")
PRENOMS = ("Jeanne", "Éloïse", "Anne-Marie", "Jean d'Août", "", None)
HORAIRES = (("08:00", "12:00", "14:00", "18:00"), ("08:00", "12:10", "14:00", "18:50"),
            ("09:00", "12:30", "12:30", "17:00"), ("07:30", "11:45", "13:15", "19:20"))
MAUVAIS = ({"Intervalle": 0}, {"HeureMatFin": "abc"}, {"HeurePMFin": "07:00:00"}, {"Intervalle": 900})
FAUTEUILS = {1: (1, 2), 2: (0,), 4: (), 5: (1, 2, 12), 8: (1, 3), 12: (0,),
             7: (0,)}  # chairs of a practitioner
NON_LISTE, SANS_DEFAUT = 7, 8
BIZARRES = ({"HeureDebut": "09:10:30", "HeureFin": "09:40:20"}, {"Nom": None, "Prenom": None},
            {"HeureDebut": None}, {"HeureDebut": "1899-12-30 09:15:00", "HeureFin": "1899-12-30 09:45:00"},
            {"HeureFin": "abc"}, {"HeureFin": "08:10:00"}, {"Fauteuil": None}, {"NumPraticien": None},
            {"DateInv": None}, {"Date1": None}, {"DateInv": "20250101"},
            {"HeureDebut": "17:45:00", "HeureFin": "18:15:00"},
            {"HeureDebut": "06:45:00", "HeureFin": "08:15:00"},
            {"HeureDebut": "08:00:00", "HeureFin": "19:40:00"},
            {"HeureDebut": "11:40:00", "HeureFin": "14:20:00"},
            {"HeureDebut": "09:04:00", "HeureFin": "09:07:00"})
RDV = ("RefRDV INTEGER PRIMARY KEY AUTOINCREMENT, Nom TEXT, Prenom TEXT, Telephone TEXT, "
       "Description TEXT, NumPatient INTEGER, Date1 TEXT, HeureDebut TEXT, HeureFin TEXT, "
       "NumPraticien TEXT, Professionnel INTEGER, Present INTEGER, DateInv TEXT")
TABLES = {
    "Base/Fichiers/Tavelin.mdb": {
        "RDV": RDV + ", Fauteuil INTEGER",
        "Config": "NomConfig TEXT, NumPraticien TEXT, DefaultConfig INTEGER, NbJours INTEGER, "
                  + "".join(f"{j}Affich INTEGER, {j}Grise INTEGER, " for j in JOURS)
                  + "JourRepos INTEGER, Intervalle INTEGER, HeureMatDebut TEXT, HeureMatFin TEXT, "
                    "HeurePMDebut TEXT, HeurePMFin TEXT, Fauteuil INTEGER",
        "Impression": "Heure TEXT, NomPatient TEXT, PrenomPatient TEXT, HeurePM TEXT, NomPatientPM TEXT, "
                      "PrenomPatientPM TEXT"},
    "Base/Fichiers/ZeroRDV.mdb": {"RDV": RDV},
    "Base/Fichiers/Param.mdb": {"Praticien": "codeprat INTEGER, nom TEXT, PreNom TEXT, Word INTEGER"},
    "Base/Fichiers/Patient.mdb": {"TabPat": "cptid INTEGER PRIMARY KEY AUTOINCREMENT, nom TEXT, PreNom TEXT, "
                                            "DateNais TEXT, RDVNonHonoré TEXT"},
    "Base/Fichiers/Actes.mdb": {"Actes": "NumActe INTEGER, NumPatient INTEGER, AFaire INTEGER, Libellé TEXT, "
                                       "CodeSecu TEXT, Coefficient REAL"},
    "Donnees/Fichiers/PatientTavelin.mdb": {
        "LePatient": "NomPatient TEXT, PrenomPatient TEXT, NumPatient INTEGER",
        "LePraticien": "NumPraticien TEXT"},
    "Donnees/Fichiers/ChangePatient.mdb": {"Carnet": "NumPatient INTEGER"},
    "CheminBelmor.mdb": {"Chemin": "LeChemin TEXT, CheminBase TEXT"},
}


def ajoute(base, table, **champs):
    base.execute(f"insert into {table} ({', '.join(champs)}) values ({', '.join('?' * len(champs))})",
                 tuple(champs.values()))


def heures(h, debut, durees=(10, 15, 20, 30, 45, 60)):
    debut, fin = (f"{m // 60:02}:{m % 60:02}:00" for m in (debut, debut + h.choice(durees)))
    return {"HeureDebut": debut, "HeureFin": fin}


def rendez_vous(h, jour, debut, praticien, fauteuil):
    return {"Nom": h.choice(NOMS), "Prenom": h.choice(PRENOMS),
            "Telephone": h.choice(("02 97 11 22 33", "", None)),
            "Description": h.choice(("", None, " ", "Contrôle", "Détartrage d'abord")),
            "NumPatient": h.choice((0, h.randint(1, 300))),
            "Date1": jour.isoformat() + h.choice(("", " 00:00:00")),
            "NumPraticien": h.choice((f"0{praticien}", str(praticien))),
            "Professionnel": h.choice((0, 1, -1)), "Present": h.choice((0, 0, 0, 1, -1)),
            "DateInv": jour.strftime("%Y%m%d"), "Fauteuil": fauteuil} | heures(h, debut)


def configuration(h, praticien, fauteuil, defaut):
    caches = h.sample(range(7), h.choice((0, 1, 2, 2, 3, 4)))
    champs = {"NomConfig": f"conf {praticien} {fauteuil}" if praticien else "Défaut",
              "NumPraticien": f"0{praticien}", "DefaultConfig": int(fauteuil == defaut),
              "Fauteuil": fauteuil, "NbJours": h.choice((5, 7)),
              "Intervalle": h.choice((5, 7, 10, 15, 15, 20, 25, 30, 45, 50, 60)),
              "JourRepos": h.choice((7, 1, 3))}
    for i, jour in enumerate(JOURS):
        champs |= {jour + "Affich": 0 if i in caches else i + 1, jour + "Grise": h.choice((0, 0, 0, 1, 2, 3))}
    champs |= zip(("HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin"),
                  (t + ":00" for t in h.choice(HORAIRES)))
    return champs | (h.choice(MAUVAIS) if praticien and h.random() < 0.06 else {})


def cree(dossier, h):
    """Writes the practice; gives the practitioner that is handed over."""
    bases = {}
    for chemin, tables in TABLES.items():
        os.makedirs(os.path.dirname(f"{dossier}/{chemin}"), exist_ok=True)
        bases[os.path.basename(chemin)] = base = sqlite3.connect(f"{dossier}/{chemin}")
        for table, champs in tables.items():
            base.execute(f"create table {table} ({champs})")
    livre, param, patients, transmis, chemins = (
        bases[n + ".mdb"] for n in ("Tavelin", "Param", "Patient", "PatientTavelin", "CheminBelmor"))
    ajoute(livre, "Config", **configuration(h, 0, 0, 0))
    for praticien, places in FAUTEUILS.items():
        if praticien != NON_LISTE:
            ajoute(param, "Praticien", codeprat=praticien, nom=h.choice(NOMS[:5]) + str(praticien),
                   PreNom=h.choice(PRENOMS[:4]), Word=0)
        defaut = h.choice(places) if places and praticien != SANS_DEFAUT else None
        for place in places:
            ajoute(livre, "Config", **configuration(h, praticien, place, defaut))
        for place in places or (0,):
            for n in range(-7, 14):
                jour, debut = MAINTENANT.date() + datetime.timedelta(n), h.choice((470, 480, 525))
                while debut < 1110:
                    champs = rendez_vous(h, jour, debut, praticien, h.choice((place, place, place, place, 3)))
                    ajoute(livre, "RDV", **champs | (h.choice(BIZARRES) if h.random() < 0.09 else {}))
                    debut += h.choice((10, 20, 30, 45, 60, 100))
    for _ in range(300):
        ajoute(patients, "TabPat", nom=h.choice(NOMS), PreNom=h.choice(PRENOMS), DateNais="02/03/1980",
               RDVNonHonoré=h.choice(("O", "N", None, "")))
    ajoute(bases["Actes.mdb"], "Actes", NumActe=1, NumPatient=17, AFaire=1, Libellé="Couronne")
    prat, (nom, prenom) = h.choice(list(FAUTEUILS)), \
        patients.execute("select nom, PreNom from TabPat where cptid = 17").fetchone()
    if h.random() < 0.7:
        ajoute(transmis, "LePatient", NomPatient=nom, PrenomPatient=prenom, NumPatient=17)
    ajoute(transmis, "LePraticien", NumPraticien=f"0{prat}")
    for numero in (5, 6):
        ajoute(bases["ChangePatient.mdb"], "Carnet", NumPatient=numero)
    ajoute(chemins, "Chemin", LeChemin=dossier + "/Donnees", CheminBase=dossier + "/Base")
    for base in bases.values():
        base.commit()
        base.close()
    return prat


class Tiers:
    """The other workstation."""

    def __init__(self, fichier, h):
        self.fichier, self.cache, self.h, self.lisible = fichier, fichier + ".parti", h, True

    def verrou(self):
        """Nobody else reads or writes until the connection is closed."""
        lien = sqlite3.connect(self.fichier, timeout=5, isolation_level=None)
        lien.execute("begin exclusive")
        return lien

    def emporte(self, tronque):
        os.rename(self.fichier, self.cache)
        if tronque:
            shutil.copy(self.cache, self.fichier)
            os.truncate(self.fichier, os.path.getsize(self.fichier) // 3 + 100)
        self.lisible = False

    def rapporte(self):
        os.rename(self.cache, self.fichier)
        self.lisible = True

    def ecrit(self, prat, refs=(0,), jour=MAINTENANT.date(), fauteuil=0, quoi=None, debut=0):
        """One change, on one of the appointments `refs`, at this place, or on a configuration; says what."""
        h, ref = self.h, self.h.choice(refs)
        quoi = quoi or h.choice(("ajoute", "ajoute", "deplace", "deplace", "reporte", "supprime", "present",
                                 "nom", "config"))
        with sqlite3.connect(self.fichier, timeout=5) as lien:
            if quoi == "prend":
                ajoute(lien, "RDV", **rendez_vous(h, jour, debut, prat, fauteuil))
                return f"prend {debut}"
            jour += datetime.timedelta(h.randrange(7) - jour.weekday())
            if quoi == "ajoute":
                ajoute(lien, "RDV", **rendez_vous(h, jour, h.randrange(450, 1120, 5), prat, fauteuil))
            elif quoi == "config":
                confs = lien.execute("select rowid from Config where NumPraticien <> '00'").fetchall()
                conf = h.choice(confs)[0]
                lien.execute("update Config set Intervalle = ? where rowid = ?" if h.random() < 0.6 else
                             "delete from Config where ? and rowid = ?", (h.choice((10, 20, 25)), conf))
            elif quoi == "supprime":
                lien.execute("delete from RDV where RefRDV = ?", (ref,))
            else:
                champs = {"deplace": heures(h, h.randrange(450, 1120, 5)), "nom": {"Nom": h.choice(NOMS)},
                          "present": {"Present": h.choice((0, 1, -1))},
                          "reporte": {"Date1": jour.isoformat(), "DateInv": jour.strftime("%Y%m%d")}}[quoi]
                lien.execute(f"update RDV set {', '.join(n + ' = ?' for n in champs)} where RefRDV = ?",
                             (*champs.values(), ref))
        lien.close()
        return f"{quoi} {ref}"
