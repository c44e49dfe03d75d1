"""What the book must show: read from the files, computed here, compared with the screen."""
import datetime
import re
import sqlite3
from dataclasses import dataclass, replace
from types import SimpleNamespace

from cabinet import JOURS

GRIS, BLANC, ROUGE = "#a0a0a0", "#ffffff", "#ff0000"
COULEURS = (None, "#0080ff", "#800080", "#ff8000", "#808000", "#008080", "#804000", "#000080")
SEMAINE = ("lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi", "dimanche")
MOIS = ("janvier", "février", "mars", "avril", "mai", "juin", "juillet", "août", "septembre", "octobre",
        "novembre", "décembre")
MOIS_COURTS = ("janv.", "févr.", "mars", "avr.", "mai", "juin", "juil.", "août", "sept.", "oct.", "nov.",
               "déc.")
GRILLES = ("GrilleRDV", "GrilleRDV02", "GrilleRDV03")
ACTIONS = ("mnuAjouter", "mnuEditer", "mnuSupprimer", "mnuPresent")
VIDE = ["", None, None]


def lit_jour(texte):
    """As the fields write it or understand it, or None."""
    if lu := re.fullmatch(r"(?:[a-z]+ )?(\d\d) (\S+) (\d{4})", texte.strip()):
        return datetime.date(int(lu[3]), MOIS_COURTS.index(lu[2]) + 1, int(lu[1]))
    if lu := re.fullmatch(r"(\d\d?)/(\d\d?)/(?:20)?(\d\d)|(\d\d)(\d\d)20(\d\d)", texte.strip()):
        jour, mois, an = (int(n) for n in lu.groups() if n)
        return datetime.date(2000 + an, mois, jour)
    return None


def lit_heure(texte):
    """As the fields understand it, or None."""
    lu = re.fullmatch(r"(\d\d?)(?:[h:](\d\d)?|(\d\d))", texte.strip())
    return minutes(f"{int(lu[1]):02}:{lu[2] or lu[3] or '00'}") if lu else None


def minutes(texte):
    """Minutes since midnight, or None. Seconds do not count."""
    lu = re.fullmatch(r"(?:\d{4}-\d\d-\d\d )?([01]\d|2[0-3]):([0-5]\d)(?::[0-5]\d)?", texte or "")
    return int(lu[1]) * 60 + int(lu[2]) if lu else None


def hhmm(m):
    return f"{m // 60 % 24:02}:{m % 60:02}"


def entier(valeur):
    return int(str(valeur).strip()) if re.fullmatch(r"\s*-?\d+\s*", str(valeur)) else 0


def propre(texte):
    return (texte or "").strip()


def lit_base(chemin):
    """Every row of every table, by its key."""
    lien = sqlite3.connect(f"file:{chemin}?mode=ro", uri=True)
    lien.row_factory = sqlite3.Row
    lien.execute("begin")  # one moment for all of the tables
    tables = [t[0] for t in lien.execute("select name from sqlite_master where type = 'table' "
                                         "and name not like 'sqlite%'")]
    lu = {t: {r["cle"]: dict(r) for r in lien.execute(f"select rowid as cle, * from {t} order by rowid")}
          for t in tables}
    lien.close()
    return lu


class RendezVous:
    def __init__(self, ref, ligne):
        self.ref, self.ligne = ref, ligne
        jour = ligne["Date1"] or ligne["DateInv"]
        self.jour = datetime.date.fromisoformat(jour[:10]) if jour else None
        self.debut, self.fin = minutes(ligne["HeureDebut"]), minutes(ligne["HeureFin"])
        self.dessine = self.debut is not None and self.fin is not None and self.debut < self.fin
        self.nom, self.prenom = propre(ligne["Nom"]), propre(ligne["Prenom"])
        self.desc = ligne["Description"] or ""
        self.present = bool(ligne["Present"])

    def texte(self):
        return f"  {self.nom} {self.prenom}" + (f"  [{self.desc.strip()}]" if self.desc.strip() else "")

    def cle(self):
        """Panels 1 and 3."""
        suite = f"   [ {self.desc} ]" if self.desc not in ("", " ") else ""
        return f"{self.nom} {self.prenom}{suite}".strip(), f"{hhmm(self.debut)}  /  {hhmm(self.fin)}"


class Horaire:
    """The slots of one grid, rows 1 to n."""

    def __init__(self, debut=0, fin=0, pas=1):
        self.debut, self.pas, self.n = debut, pas, -((debut - fin) // pas)

    def heure(self, ligne):
        return self.debut + (ligne - 1) * self.pas

    def lignes(self, rdv):
        return (rdv.debut - self.debut) // self.pas + 1, -((self.debut - rdv.fin) // self.pas)

    def visible(self, rdv):
        premiere, derniere = self.lignes(rdv)
        return derniere >= 1 and premiere <= self.n


@dataclass
class Config:
    nom: str
    fauteuil: int
    affich: list
    grise: list
    pas: int
    heures: list
    defaut: bool = False
    repos: int = 0

    @staticmethod
    def de(ligne):
        affich = [any(ligne[j + "Affich"] == i + 1 for j in JOURS) for i in range(7)]
        heures = [minutes(ligne[c]) for c in ("HeureMatDebut", "HeureMatFin", "HeurePMDebut", "HeurePMFin")]
        return Config(ligne["NomConfig"], entier(ligne["Fauteuil"]), affich,
                      [ligne[j + "Grise"] for j in JOURS], ligne["Intervalle"] or 0, heures,
                      bool(ligne["DefaultConfig"]), entier(ligne["JourRepos"]))

    def horaire(self, debut=0, fin=3):
        h = self.heures
        tracable = None not in h and h == sorted(h) and 1 <= self.pas <= h[3] - h[0] and any(self.affich)
        return Horaire(h[debut], h[fin], self.pas) if tracable else Horaire()

    def grisees(self, n, jour_semaine):
        m1, m2, a1, _ = self.heures
        repas, reprise = (-((m1 - t) // self.pas) for t in (m2, a1))
        debut, fin = {1: (1, repas + 1), 2: (reprise + 1, n + 1),
                      3: (1, n + 1)}.get(self.grise[jour_semaine], (1, 0))
        return {*range(repas + 1, reprise + 1), *range(debut, fin + 1)}

    def classe(self, jour_semaine, debut, fin):
        """1 inside the working hours, 0 outside, 2 across."""
        (_, mf, pd, _), g = self.heures, self.grise[jour_semaine]
        if not self.affich[jour_semaine] or g == 3:
            return 0
        if g == 0:
            return 1 if fin <= mf or debut >= pd else 0 if mf <= debut and fin <= pd else 2
        if g == 1:
            return 0 if fin <= pd else 1 if debut >= pd else 2
        return 1 if fin <= mf else 0 if debut >= mf else 2


def debuts_libres(config, pas, jour, duree, pris):
    """The free starts of a day in minutes, tried one by one."""
    (t, repas, reprise, fin), grise, libres = config.heures, config.grise[jour.weekday()], []
    t, fin = (reprise if grise == 1 else t), (repas if grise == 2 else fin)
    while grise != 3 and t < fin and t + duree <= fin:
        if repas <= t < reprise or repas < t + duree <= reprise:
            t = reprise
        if not any(r.dessine and r.debut <= point < r.fin
                   for point in range(t, t + duree, pas) for r in pris):
            libres.append(t)
        t += pas
    return libres


class Livre:
    """The appointment database as it was at one moment."""

    def __init__(self, tables):
        self.tables = tables
        self.rdv = {ref: RendezVous(ref, ligne) for ref, ligne in tables["RDV"].items()}
        self.configs = [(entier(ligne["NumPraticien"]), Config.de(ligne))
                        for ligne in tables["Config"].values()]

    def jour(self, jour, prat, fauteuil=None):
        """In the order in which they are drawn; without a chair, those of all."""
        return sorted((r for r in self.rdv.values()
                       if r.jour == jour and entier(r.ligne["NumPraticien"]) == prat
                       and (fauteuil is None or r.ligne["Fauteuil"] == fauteuil)),
                      key=lambda r: ((r.ligne["HeureDebut"] or "")[-8:], r.ref))

    def du_nom(self, nom, prenom):
        """Names are whole, in whatever case; one that is missing is nobody's."""
        return [r for r in self.rdv.values() if all(
            (r.ligne[champ] or "").upper() == voulu.upper() and r.ligne[champ] is not None
            for champ, voulu in (("Nom", nom), ("Prenom", prenom)))]

    def avant(self, jour, prat):
        """What a purge up to this day takes: both of its dates lie before, where it has both."""
        return {ref for ref, r in self.rdv.items() if entier(r.ligne["NumPraticien"]) == prat
                and r.jour < jour and (r.ligne["DateInv"] or "9") < f"{jour:%Y%m%d}"}


@dataclass
class Vue:
    """What the user has asked to see; no chair is the default one, no configuration that of the book."""
    prat: int
    jour: datetime.date
    semaine: bool = True
    fauteuil: int | None = None
    config: Config | None = None
    sans_zoom: int = 0

    def zoome(self, config):
        if config.pas == 5:
            return replace(self, config=replace(config, pas=self.sans_zoom or 5), sans_zoom=0)
        return replace(self, config=replace(config, pas=5), sans_zoom=config.pas)


class Montre:
    """What a view shows of a book."""

    def __init__(self, vue, livre):
        self.vue, self.livre, self.configs = vue, livre, [c for prat, c in livre.configs if prat == vue.prat]
        self.avec_fauteuils = any(c.fauteuil for c in self.configs)
        repli = next(c for _, c in livre.configs if c.nom == "Défaut")
        fauteuil = vue.fauteuil
        if fauteuil is None:
            fauteuil = next((c.fauteuil for c in self.configs if c.defaut), None)
        choisie = next((c for c in self.configs if c.fauteuil == fauteuil), None)
        self.grilles, self.sans_horaire = {}, set()
        if vue.semaine:
            config, lundi = vue.config or choisie or repli, vue.jour - datetime.timedelta(vue.jour.weekday())
            self.coche = next((i for i, c in enumerate(self.configs) if c.nom == config.nom), -1)
            jours = [lundi + datetime.timedelta(n) for n in range(7)]
            self._ajoute(livre, "GrilleRDV", config, config.horaire(), jours, config.fauteuil, "")
            return
        self.coche = self.configs.index(choisie) if choisie else -1
        nb = len(self.configs)
        if not self.avec_fauteuils:
            config = self.configs[0] if self.configs else repli
            self._ajoute(livre, "GrilleRDV02", config, config.horaire(0, 1), [vue.jour], None, "Matin")
            self._ajoute(livre, "GrilleRDV03", config, config.horaire(2, 3), [vue.jour], None, "Après-midi")
        elif nb < 2 or not choisie:
            aucune = Config("", 0, [False] * 7, [0] * 7, 0, [None] * 4)
            self._ajoute(livre, "GrilleRDV02", aucune, Horaire(), [vue.jour], None, "Matin")
            self._ajoute(livre, "GrilleRDV03", aucune, Horaire(), [vue.jour], None, "Après-midi")
        else:
            premier = 0 if nb == 2 else self.coche
            for nom, c in zip(GRILLES[1:], (self.configs[premier], self.configs[(premier + 1) % nb])):
                self._ajoute(livre, nom, c, c.horaire(), [vue.jour], c.fauteuil, f"Fauteuil {c.fauteuil}")

    def _ajoute(self, livre, nom, config, horaire, jours, fauteuil, titre):
        listes = [(jour, livre.jour(jour, self.vue.prat, fauteuil)) for jour in jours]
        self.sans_horaire |= {r.ref for _, liste in listes for r in liste if not r.dessine and horaire.n}
        colonnes = [(jour, [r for r in liste if r.dessine]) for jour, liste in listes
                    if not self.vue.semaine or config.affich[jour.weekday()]]
        self.grilles[nom] = SimpleNamespace(config=config, horaire=horaire, colonnes=colonnes, titre=titre,
                                            fauteuil=config.fauteuil)

    # ---- Compared with the screen

    def ecarts(self, etat, praticiens, lu):
        """All that the main window shows wrongly, having read at `lu`."""
        titre, faux = praticiens.get(self.vue.prat, f"praticien {self.vue.prat}"), []
        coches = [a["text"] for a in etat.du_menu("mnuPraticien") if a["checked"]]
        menu = [(a["text"], a["checked"]) for a in etat.du_menu("menuFaut")]
        barre, vues = etat.texte("StatusBar1_5", "FrmEntree"), [n for n in GRILLES if etat.grille(n)]
        sans = re.match(r"(\d+) rendez-vous sans horaire lisible · ", barre)
        for quoi, montre, voulu in (
                ("titre", etat.par_nom["FrmEntree"]["windowTitle"], "Carnet de rendez-vous du " + titre),
                ("panneau 2", etat.texte("StatusBar1_2", "FrmEntree"), titre),
                ("praticiens cochés", coches, [titre] * (self.vue.prat in praticiens)),
                ("menu Fauteuil montré", etat.action("menuFaut")["visible"], self.avec_fauteuils),
                ("fauteuils", menu if self.avec_fauteuils else [],
                 [(f"Fauteuil {c.fauteuil}", i == self.coche) for i, c in enumerate(self.configs)
                  if self.avec_fauteuils]),
                ("sans horaire", int(sans[1]) if sans else 0, len(self.sans_horaire)),
                ("panneau 5", barre[-len("lu à 10:05"):], f"lu à {lu:%H:%M}"),
                ("grilles", vues, list(self.grilles))):
            if montre != voulu:
                faux.append(f"{quoi} : {montre} au lieu de {voulu}")
        return faux or [e for nom, g in self.grilles.items()
                        for e in self._ecarts_grille(nom, g, etat.grille(nom), lu)]

    def _cellules(self, grille, lu):
        """(row, column) → [text, background, text colour] of all that is not an empty white cell."""
        attendu, horaire = {}, grille.horaire
        for c, (jour, liste) in enumerate(grille.colonnes, 1):
            if self.vue.semaine:
                attendu |= {(r, c): ["", GRIS, None]
                            for r in grille.config.grisees(horaire.n, jour.weekday())}
            for rdv in (r for r in liste if horaire.visible(r)):
                premiere, derniere = horaire.lignes(rdv)
                premiere = max(premiere, 1)
                for r in range(premiere, min(derniere, horaire.n) + 1):
                    cellule = attendu.setdefault((r, c), ["", None, None])
                    if rdv.present:
                        cellule[1:] = [COULEURS[jour.isoweekday()], BLANC]
                attendu[premiere, c][0] = rdv.texte()
                if not rdv.present and jour == lu.date() and f"{lu:%H:%M}" > hhmm(horaire.heure(premiere)):
                    attendu[premiere, c][2] = ROUGE
        return attendu

    def _ecarts_grille(self, nom, grille, montree, lu):
        lues, horaire, nb = montree["cellules"], grille.horaire, len(grille.colonnes)
        if not horaire.n:
            return [f"{nom} : des lignes, ou rien qui dise pourquoi il n'y en a pas"] * (
                len(lues) > 1 or not montree["accessibleDescription"])
        if len(lues) != horaire.n + 2 or montree["accessibleDescription"]:
            return [f"{nom} : {len(lues)} lignes au lieu de {horaire.n + 2}"]
        if self.vue.semaine:
            titres = ["Heure", *(f"{SEMAINE[j.weekday()]} {j.day:02} {MOIS_COURTS[j.month - 1]}"
                                 for j, _ in grille.colonnes), "Heure"]
        else:
            j = self.vue.jour
            titres = ["Heure", f"{SEMAINE[j.weekday()]} {j.day:02} {MOIS[j.month - 1]}       {grille.titre}"]
        if [c[0] for c in lues[0]] != titres:
            return [f"{nom} : titres {lues[0]} au lieu de {titres}"]
        attendu, ecarts = self._cellules(grille, lu), []
        for r in range(1, horaire.n + 2):
            for c, montre in enumerate(lues[r]):
                heure = c in (0, nb + 1)
                voulu = [hhmm(horaire.heure(r))] if heure else attendu.get((r, c), VIDE)
                qui = 1 if heure else 3 if voulu[0] else 2
                if montre[:qui] != voulu[:qui]:
                    ecarts.append(f"{nom} ({r},{c}) {hhmm(horaire.heure(r))} : {montre}, pas {voulu}")
        return ecarts


class Contexte:
    """What is selected, as the screen says it."""

    def __init__(self, etat, montre):
        self.montre, self.grilles = montre, montre.grilles
        self.contours = [(n, *g["selection"]) for n in GRILLES if (g := etat.grille(n)) and g["selection"]]
        self.panneaux = [etat.texte(f"StatusBar1_{i}", "FrmEntree") for i in range(1, 5)]
        self.rang, self.nombre = 1, 1
        if lu := re.match(r"(\d+) sur (\d+) : ", self.panneaux[0]):
            self.rang, self.nombre = int(lu[1]), int(lu[2])
        self.cle = (re.sub(r"^\d+ sur \d+ : ", "", self.panneaux[0]).strip(), self.panneaux[2])
        self.rdv = self.plage = self.grille = self.jour = None
        self.date = lit_jour(self.panneaux[3])
        for self.nom, self.haut, self.bas, self.colonne, droite in self.contours[:1]:
            self.grille = self.grilles.get(self.nom)
            if self.grille and self.colonne == droite <= len(self.grille.colonnes) and self.colonne \
                    and 1 <= self.haut <= self.bas <= self.grille.horaire.n:
                self.jour, self.liste = self.grille.colonnes[self.colonne - 1]
                self.plage = self.grille.horaire.heure(self.haut), self.grille.horaire.heure(self.bas + 1)
                self.dessous = dans(self.liste, *self.plage)
                self.rdv = next((r for r in self.dessous if r.cle() == self.cle), None)

    def ecarts(self, etat):
        actif = {n: etat.action(n)["enabled"] for n in ACTIONS}
        present = etat.action("mnuPresent")["checked"]
        if not self.contours:
            sur = any(actif.values()) or self.cle[0]
            return [f"rien de sélectionné, mais {self.panneaux} {actif}"] * bool(sur)
        if self.plage is None or len(self.contours) > 1:
            return [f"contours : {self.contours}"]
        horaire, sur = self.grille.horaire, bool(self.dessous)
        a_lui = self.grille.fauteuil in [c.fauteuil for c in self.montre.configs]
        voulu = dict(zip(ACTIONS, (not sur and a_lui, sur, sur, sur)))
        fin = min(self.plage[1], 1439)
        dits = [(self.date, self.jour, "panneau 4"), (actif, voulu, "menus")]
        if not sur:
            dits.append((self.cle, ("", f"{hhmm(self.plage[0])}  /  {hhmm(fin)}"), "place libre"))
        elif not self.rdv or self.nombre > len(self.dessous) or self.rang > self.nombre:
            return [f"sous le contour {[r.cle() for r in self.dessous]}, panneaux {self.panneaux}"]
        else:
            premiere, derniere = horaire.lignes(self.rdv)
            if premiere >= 1 and derniere <= horaire.n:
                dits.append(((self.haut, self.bas), (premiere, derniere), "contour"))
        if etat.dessus == "FrmEntree":
            dits.append((present, bool(self.rdv and self.rdv.present), "Présent coché"))
        return [f"{quoi} : {vu} au lieu de {attendu}" for vu, attendu, quoi in dits if vu != attendu]


def dans(liste, debut, fin):
    return [r for r in liste if r.debut < fin and r.fin > debut]
