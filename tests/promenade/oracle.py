"""What the book must show: read from the files, computed here, compared with the screen."""
import copy
import datetime
import re
import sqlite3
from types import SimpleNamespace

GRIS, BLANC, ROUGE, TEXTE_HEURE = "#a0a0a0", "#ffffff", "#ff0000", "#f0f0f0"
COULEURS = (None, "#0080ff", "#800080", "#ff8000", "#808000", "#008080", "#804000", "#000080")
SEMAINE = ("lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi", "dimanche")
MOIS = ("janvier", "février", "mars", "avril", "mai", "juin", "juillet", "août", "septembre", "octobre", "novembre",
        "décembre")
MOIS_COURTS = ("janv.", "févr.", "mars", "avr.", "mai", "juin", "juil.", "août", "sept.", "oct.", "nov.", "déc.")
JOURS = ("Lun", "Mar", "Mer", "Jeu", "Ven", "Sam", "Dim")


def etat_date(jour):
    return f"{jour.day:02} {MOIS_COURTS[jour.month - 1]} {jour.year}"


def lit_etat_date(texte):
    jour, mois, an = texte.split()
    return datetime.date(int(an), MOIS_COURTS.index(mois) + 1, int(jour))


def lit_jour(texte):
    """The date of a field, "dimanche 15 mars 2026" or as it may be typed, in ISO form; None when it is none."""
    mots = texte.split()
    if len(mots) == 4 and mots[2] in MOIS_COURTS:
        return f"{mots[3]}-{MOIS_COURTS.index(mots[2]) + 1:02}-{int(mots[1]):02}"
    for forme in ("%d/%m/%Y", "%d%m%Y", "%d/%m/%y"):
        try:
            return datetime.datetime.strptime(texte.strip(), forme).date().isoformat()
        except ValueError:
            pass
    return None


def minutes(texte):
    """Minutes since midnight, or None. Seconds do not count."""
    lu = re.fullmatch(r"(?:\d{4}-\d\d-\d\d )?([01]\d|2[0-3]):([0-5]\d)(?::[0-5]\d)?", texte or "")
    return int(lu[1]) * 60 + int(lu[2]) if lu else None


def hhmm(m):
    return f"{m // 60 % 24:02}:{m % 60:02}"


def entier(valeur):
    try:
        return int(str(valeur).strip())
    except ValueError:
        return 0


def propre(texte):
    return (texte or "").strip()


def lit_base(chemin_ou_lien):
    """Every row of every table."""
    lien = chemin_ou_lien
    if isinstance(lien, str):
        lien = sqlite3.connect(f"file:{lien}?mode=ro", uri=True)
    lien.row_factory = sqlite3.Row
    tables = [t for (t,) in lien.execute("select name from sqlite_master where type = 'table' and name not like "
                                         "'sqlite%' order by name")]
    lu = {t: {r["cle"]: {k: r[k] for k in r.keys() if k != "cle"}
              for r in lien.execute(f"select rowid as cle, * from {t} order by rowid")} for t in tables}
    if lien is not chemin_ou_lien:
        lien.close()
    return lu


class RendezVous:
    def __init__(self, ref, ligne):
        self.ref, self.ligne = ref, ligne
        self.debut, self.fin = minutes(ligne["HeureDebut"]), minutes(ligne["HeureFin"])
        self.dessine = self.debut is not None and self.fin is not None and self.debut < self.fin
        self.nom, self.prenom, self.desc = propre(ligne["Nom"]), propre(ligne["Prenom"]), ligne["Description"] or ""
        self.present = bool(ligne["Present"])

    def texte(self):
        suite = f"  [{self.desc.strip()}]" if self.desc.strip() else ""
        return f"  {self.nom} {self.prenom}{suite}"

    def panneau(self):
        suite = f"   [ {self.desc} ]" if self.desc not in ("", " ") else ""
        return f"{self.nom} {self.prenom}{suite}".strip()

    def heures(self):
        return f"{hhmm(self.debut)}  /  {hhmm(self.fin)}"


class Horaire:
    """The slots of one grid. Without a length or hours that follow one another there are none."""

    def __init__(self, debut, fin, pas):
        self.debut, self.fin, self.pas = debut, fin, pas
        self.n = -((debut - fin) // pas) if pas > 0 and fin > debut else 0

    def heure(self, ligne):
        return self.debut + (ligne - 1) * self.pas

    def lignes(self, rdv):
        return (rdv.debut - self.debut) // self.pas + 1, -((self.debut - rdv.fin) // self.pas)

    def tient(self, rdv):
        premiere, derniere = self.lignes(rdv)
        return premiere >= 1 and derniere <= self.n

    def visible(self, rdv):
        premiere, derniere = self.lignes(rdv)
        return derniere >= 1 and premiere <= self.n


class Config:
    def __init__(self, ligne):
        self.nom, self.prat = ligne["NomConfig"], entier(ligne["NumPraticien"])
        self.fauteuil, self.defaut = entier(ligne["Fauteuil"]), bool(ligne["DefaultConfig"])
        self.affich = [ligne[j + "Affich"] == i + 1 for i, j in enumerate(JOURS)]
        self.grise = [ligne[j + "Grise"] for j in JOURS]
        self.pas = ligne["Intervalle"] or 0
        self.heures = [minutes(ligne[c]) for c in ("HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin")]

    def tracable(self):
        h = self.heures
        return None not in h and h == sorted(h) and h[0] < h[3] and 1 <= self.pas <= h[3] - h[0] and any(self.affich)

    def horaire(self, debut=0, fin=3):
        return Horaire(self.heures[debut], self.heures[fin], self.pas) if self.tracable() else Horaire(0, 0, 0)

    def colonnes(self, jour):
        """The days that are shown of this day's week."""
        lundi = jour - datetime.timedelta(jour.weekday())
        return [lundi + datetime.timedelta(i) for i in range(7) if self.affich[i]]

    def grisees(self, horaire, jour_semaine):
        m1, m2, a1, _ = self.heures
        repas = -((self.heures[0] - m2) // self.pas) + 1
        reprise = -((self.heures[0] - a1) // self.pas)
        lignes = set(range(repas, reprise + 1))
        quoi = self.grise[jour_semaine]
        lignes |= set(range(1, repas + 1)) if quoi == 1 else set()
        lignes |= set(range(reprise + 1, horaire.n + 2)) if quoi == 2 else set()
        return lignes | set(range(1, horaire.n + 2)) if quoi == 3 else lignes

    def classe(self, jour_semaine, debut, fin):
        """1 inside the working hours, 0 outside, 2 across."""
        _, mf, pd, _ = self.heures
        g = self.grise[jour_semaine]
        if not self.affich[jour_semaine] or g == 3:
            return 0
        if g == 0:
            return 1 if fin <= mf or debut >= pd else 0 if mf <= debut and fin <= pd else 2
        if g == 1:
            return 0 if fin <= pd else 1 if debut >= pd else 2
        return 1 if fin <= mf else 0 if debut >= mf else 2


class Livre:
    """The appointment database as it was at one moment."""

    def __init__(self, tables):
        self.tables = tables
        self.configs = [Config(ligne) for ligne in tables["Config"].values()]

    def du_praticien(self, prat):
        return [c for c in self.configs if c.prat == prat]

    def repli(self):
        return next(c for c in self.configs if c.nom == "Défaut")

    def jour(self, jour, prat, fauteuil=None):
        """In the order in which they are drawn; without a chair, those of all."""
        cle = jour.strftime("%Y%m%d")
        trouves = [RendezVous(ref, l) for ref, l in self.tables["RDV"].items()
                   if l["DateInv"] == cle and entier(l["NumPraticien"]) == prat
                   and (fauteuil is None or entier(l["Fauteuil"]) == fauteuil)]
        return sorted((r for r in trouves if r.dessine), key=lambda r: (r.ligne["HeureDebut"][-8:], r.ref))


class Vue:
    """What the user has asked to see."""

    def __init__(self, praticiens, prat, jour):
        self.praticiens, self.prat, self.jour = praticiens, prat, jour
        self.semaine, self.coche, self.config, self.sans_zoom = True, None, None, 0

    def charge(self, livre):
        """The practitioner's default configuration, else the fall-back."""
        configs = livre.du_praticien(self.prat)
        self.libelles = [f"Fauteuil {c.fauteuil}" for c in configs]
        defauts = [i for i, c in enumerate(configs) if c.defaut]
        self.coche = defauts[0] if defauts else None
        self.prend(configs[self.coche] if defauts else livre.repli())

    def prend(self, config):
        self.config, self.sans_zoom = config, 0

    def zoome(self):
        self.config = copy.copy(self.config)
        if self.config.pas != 5:
            self.sans_zoom, self.config.pas = self.config.pas, 5
        else:
            self.config.pas = self.sans_zoom or 5

    def avec_fauteuils(self, livre):
        return any(c.fauteuil for c in livre.du_praticien(self.prat))

    def titre(self):
        return self.praticiens.get(self.prat, f"praticien {self.prat}")

    def volets(self, livre):
        """The two day grids: schedule, configuration, chair drawn (None: all), end of the heading."""
        configs = livre.du_praticien(self.prat)
        if not self.avec_fauteuils(livre):
            c = configs[0] if configs else livre.repli()
            return [SimpleNamespace(horaire=c.horaire(0, 1), config=c, fauteuil=None, titre="Matin"),
                    SimpleNamespace(horaire=c.horaire(2, 3), config=c, fauteuil=None, titre="Après-midi")]
        if len(configs) < 2 or self.coche is None:
            return None
        a = 0 if len(configs) == 2 else min(self.coche, len(configs) - 1)
        return [SimpleNamespace(horaire=c.horaire(), config=c, fauteuil=c.fauteuil, titre=f"Fauteuil {c.fauteuil}")
                for c in (configs[a], configs[(a + 1) % len(configs)])]

    def grilles(self, livre):
        """Name of each grid shown, with its schedule and the day and appointments of each column from 1."""
        if self.semaine:
            colonnes = [(j, livre.jour(j, self.prat, self.config.fauteuil)) for j in self.config.colonnes(self.jour)]
            return {"GrilleRDV": SimpleNamespace(horaire=self.config.horaire(), config=self.config, colonnes=colonnes,
                                                 fauteuil=self.config.fauteuil)}
        volets = self.volets(livre) or []
        return {nom: SimpleNamespace(horaire=v.horaire, config=v.config, titre=v.titre,
                                     fauteuil=v.config.fauteuil,
                                     colonnes=[(self.jour, livre.jour(self.jour, self.prat, v.fauteuil))])
                for nom, v in zip(("GrilleRDV02", "GrilleRDV03"), volets)}


def cellules(grille, semaine, maintenant):
    """(row, column) → [text, background, text colour] of all that is not an empty white cell."""
    attendu, horaire = {}, grille.horaire
    for c, (jour, liste) in enumerate(grille.colonnes, 1):
        if semaine:
            attendu |= {(r, c): ["", GRIS, None] for r in grille.config.grisees(horaire, jour.weekday())}
        for rdv in (r for r in liste if horaire.visible(r)):
            premiere, derniere = horaire.lignes(rdv)
            premiere, derniere = max(premiere, 1), min(derniere, horaire.n)
            for r in range(premiere, derniere + 1):
                cellule = attendu.setdefault((r, c), ["", None, None])
                if rdv.present:
                    cellule[1:] = [COULEURS[jour.isoweekday()], BLANC]
            attendu[premiere, c][0] = rdv.texte()
            tard = jour == maintenant.date() and maintenant.strftime("%H:%M") > hhmm(horaire.heure(premiere))
            if not rdv.present and tard:
                attendu[premiere, c][2] = ROUGE
    return attendu


def ecarts_grille(nom, vue_grille, grille, semaine, maintenant):
    horaire, nb = grille.horaire, len(grille.colonnes)
    lues = vue_grille["cellules"]
    if len(lues) != (horaire.n + 2 if horaire.n else len(lues)) or (not horaire.n and len(lues) > 1):
        return [f"{nom} : {len(lues)} lignes au lieu de {horaire.n + 2}"]
    if not horaire.n:
        return []
    if semaine:
        titres = ["Heure", *(f"{SEMAINE[j.weekday()]} {j.day:02} {MOIS_COURTS[j.month - 1]}"
                             for j, _ in grille.colonnes), "Heure"]
    else:
        j = grille.colonnes[0][0]
        titres = ["Heure", f"{SEMAINE[j.weekday()]} {j.day:02} {MOIS[j.month - 1]}       {grille.titre}"]
    if vue_grille["titres"] != titres:
        return [f"{nom} : titres {vue_grille['titres']} au lieu de {titres}"]
    attendu = cellules(grille, semaine, maintenant)
    ecarts = []
    for r in range(1, horaire.n + 2):
        for c in (0, nb + 1) if semaine else (0,):
            if lues[r][c][0] != hhmm(horaire.heure(r)) or (semaine and lues[r][c][1:] != [GRIS, TEXTE_HEURE]):
                ecarts.append(f"{nom} : heure de la ligne {r} : {lues[r][c]} au lieu de {hhmm(horaire.heure(r))}")
        for c in range(1, nb + 1):
            voulu = attendu.get((r, c), ["", None, None])
            if lues[r][c][:2] != voulu[:2] or (voulu[0] and lues[r][c][2] != voulu[2]):
                ecarts.append(f"{nom} ({r},{c}) {hhmm(horaire.heure(r))} : montré {lues[r][c]}, attendu {voulu}")
    return ecarts


class Contexte:
    """What is selected, as the screen says it."""

    def __init__(self, etat, vue, livre):
        self.grilles = vue.grilles(livre)
        self.contours = [(nom, *g["selection"]) for nom in ("GrilleRDV", "GrilleRDV02", "GrilleRDV03")
                         if (g := etat.grille(nom)) and g["selection"] and g["selection"][1] > 0]
        self.panneaux = [etat.texte(f"StatusBar1_{i}", "FrmEntree") for i in range(1, 5)]
        self.nom = re.sub(r"^\d+ sur \d+ : ", "", self.panneaux[0]).strip()
        self.heures, self.date = self.panneaux[2], self.panneaux[3]
        self.rdv = self.jour = self.grille = self.plage = None
        if len(self.contours) == 1 and self.contours[0][0] in self.grilles:
            self._situe(*self.contours[0])

    def _situe(self, nom, haut, bas, gauche, droite):
        grille = self.grilles[nom]
        if gauche != droite or not 1 <= gauche <= len(grille.colonnes) or not 1 <= haut <= bas <= grille.horaire.n:
            return
        self.grille, self.nom_grille, self.haut, self.bas, self.colonne = grille, nom, haut, bas, gauche
        self.jour, self.liste = grille.colonnes[gauche - 1]
        self.plage = grille.horaire.heure(haut), grille.horaire.heure(bas + 1)
        self.dessous = dans(self.liste, *self.plage)
        self.rdv = next((r for r in self.dessous if r.panneau() == self.nom and r.heures() == self.heures), None)

    def ecarts(self, etat, config_existe):
        if len(self.contours) > 1:
            return [f"deux contours : {self.contours}"]
        actif = {n: etat.action(n)["actif"] for n in ("mnuAjouter", "mnuEditer", "mnuSupprimer", "mnuPresent")}
        present = etat.action("mnuPresent")["coche"]
        if not self.contours:
            sur = any(actif[n] for n in ("mnuEditer", "mnuSupprimer", "mnuPresent")) or present or self.nom
            return [f"rien de sélectionné, mais {self.panneaux} {actif}"] if sur else []
        if self.plage is None:
            return [f"contour hors de la grille : {self.contours}"]
        ecarts = [f"panneau 4 : {self.date} au lieu de {etat_date(self.jour)}"] * (self.date != etat_date(self.jour))
        if not self.dessous:
            heures = f"{hhmm(self.plage[0])}  /  {hhmm(self.plage[1])}"
            voulu = dict(mnuAjouter=config_existe, mnuEditer=False, mnuSupprimer=False, mnuPresent=False)
            if (self.nom, self.heures) != ("", heures):
                ecarts.append(f"place libre {heures}, panneaux {self.panneaux}")
        else:
            voulu = dict(mnuAjouter=False, mnuEditer=True, mnuSupprimer=True, mnuPresent=True)
            if self.rdv is None:
                return ecarts + [f"sous le contour {[(r.panneau(), r.heures()) for r in self.dessous]}, "
                                 f"panneaux {self.panneaux}"]
            if self.grille.horaire.tient(self.rdv) and self.grille.horaire.lignes(self.rdv) != (self.haut, self.bas):
                ecarts.append(f"contour {self.haut}-{self.bas} au lieu de {self.grille.horaire.lignes(self.rdv)}")
        if actif != voulu:
            ecarts.append(f"menus {actif} au lieu de {voulu}")
        if present != bool(self.rdv and self.rdv.present):
            ecarts.append(f"Présent {'coché' if present else 'pas coché'} pour {self.rdv and self.rdv.ligne}")
        return ecarts


def dans(liste, debut, fin):
    return [r for r in liste if r.debut < fin and r.fin > debut]


def ecarts(etat, vue, livre, instants):
    """All that the main window shows wrongly; of the instants at which it may have been drawn, the best one."""
    titre = vue.titre()
    principale = etat.par_nom["FrmEntree"]
    faux = []
    if principale["titre"] != "Carnet de rendez-vous du " + titre or etat.texte("StatusBar1_2", "FrmEntree") != titre:
        faux.append(f"titre « {principale['titre']} », panneau 2 « {etat.texte('StatusBar1_2', 'FrmEntree')} » : {titre}")
    coches = [a["texte"] for a in etat.du_menu("mnuPraticien") if a["coche"]]
    if coches != [titre] * (vue.prat in vue.praticiens):
        faux.append(f"praticiens cochés {coches}, attendu {titre}")
    if etat.action("menuFaut")["visible"] != vue.avec_fauteuils(livre):
        faux.append("le menu Fauteuil est montré ou caché à tort")
    elif vue.avec_fauteuils(livre):
        montres = [(a["texte"], a["coche"]) for a in etat.du_menu("menuFaut")]
        voulus = [(t, i == vue.coche) for i, t in enumerate(vue.libelles)]
        if montres != voulus:
            faux.append(f"fauteuils {montres}, attendu {voulus}")
    vues = [n for n in ("GrilleRDV", "GrilleRDV02", "GrilleRDV03") if etat.grille(n)]
    if vues != (["GrilleRDV"] if vue.semaine else ["GrilleRDV02", "GrilleRDV03"]):
        return faux + [f"grilles montrées : {vues}"]
    grilles = vue.grilles(livre)
    if not grilles and any(c[0] for n in vues for r in etat.grille(n)["cellules"][1:] for c in r[1:]):
        faux.append("des rendez-vous sont montrés alors qu'aucun fauteuil n'est choisi")
    faux += min(([e for n, g in grilles.items() for e in ecarts_grille(n, etat.grille(n), g, vue.semaine, quand)]
                 for quand in instants), key=len)
    return faux + Contexte(etat, vue, livre).ecarts(etat, bool(livre.du_praticien(vue.prat)))
