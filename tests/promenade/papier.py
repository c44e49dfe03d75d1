"""The day sheet and the listing of the absent, held against what is computed here from the files."""
import datetime

import cabinet
from ecran import Faute, centre
from oracle import entier, hhmm, lit_jour, minutes
from recherche import DE_RECHERCHE, Recherches

IDEM = "''  ''  ''  ''"
FEUILLE, LISTING, APERCU = "FrmDateImpression", "ListingAbsent", "Apercu"
JAUNE = "#ffff00"
DATE = "Cette date n'est pas valide"
DE_PAPIER = {
    DATE: lambda p: FEUILLE in p.etat.par_nom and not lit_jour(p.etat.texte("DateJour", FEUILLE))
    or DE_RECHERCHE[DATE](p),
    "pas de configuration pour ce fauteuil|La feuille ne peut pas être imprimée": lambda p: not p.feuille,
    "ne tien(nen)?t pas sur la grille": lambda p: p.etat.texte("qt_msgbox_label").startswith(
        f"{p.feuille.perdus} rendez-vous ne tien"),
    "n'est ni un numéro de praticien ni": lambda p: p.etat.texte(
        "qt_msgbox_label").startswith(f"« {p.demande()[0]} »")}


class Feuille:
    """A practitioner's day at the hours of one chair; false without usable hours."""

    def __init__(self, livre, prat, fauteuil, jour):
        ligne = next((x for x in livre.tables["Config"].values()
                      if (entier(x["NumPraticien"]), entier(x["Fauteuil"])) == (prat, fauteuil)), None)
        debut, fin = (minutes(ligne[c]) if ligne else None for c in ("HeureMatDebut", "HeurePMFin"))
        pas, self.lignes, self.perdus = ligne and ligne["Intervalle"] or 0, [], 0
        if debut is None or fin is None or fin < debut or pas < 1:
            return
        moitie = round((fin - debut) / pas) // 2 + 1
        heures = [debut + k * pas for k in range(2 * moitie)]
        cases, premieres = {hhmm(t): k for k, t in enumerate(heures) if k < moitie or t <= fin}, []
        occupants = [None] * len(heures)
        for rdv in livre.jour(jour, prat):
            siennes = [cases[hhmm(t)] for t in range(rdv.debut, rdv.fin, pas) if hhmm(t) in cases
                       ] if rdv.dessine else []
            premieres.append((rdv, siennes[:1]))
            for k in siennes:
                occupants[k] = rdv
        self.perdus = sum(not k or occupants[k[0]] is not rdv for rdv, k in premieres)
        textes = self.textes(heures[:moitie], occupants[:moitie], fin=1440), \
            self.textes(heures[moitie:], occupants[moitie:], fin)
        self.lignes = [gauche + droite for gauche, droite in zip(*textes)]

    @staticmethod
    def textes(heures, occupants, fin):
        colonne, dernier = [], None
        for t, rdv in zip(heures, occupants):
            nom = f"{rdv.ligne['Nom'] or ''} {rdv.ligne['Prenom'] or ''}" if rdv else ""
            colonne.append([hhmm(t) if t <= fin else "", IDEM if nom and nom == dernier else nom,
                            rdv.desc if rdv else ""])
            dernier = nom
        return colonne

    def __bool__(self):
        return bool(self.lignes)


def absents(livre, prat, jour):
    """Rows of the listing; no practitioner is all of them."""
    def secondes(texte):
        return -1 if minutes(texte) is None else minutes(texte) * 60 + int(texte[-2:])

    siens = [x.ligne | {"cle": x.ref} for x in livre.rdv.values()
             if x.ligne["DateInv"] == f"{jour:%Y%m%d}" and x.ligne["Present"] == 0
             and prat in (None, entier(x.ligne["NumPraticien"]))]
    siens.sort(key=lambda x: (entier(x["NumPraticien"]) if prat is None else 0, secondes(x["HeureDebut"]),
                              x["HeureDebut"] or "", x["cle"]))
    return [[str(x[c] if x[c] is not None else "") for c in ("NumPraticien", "Nom", "Prenom", "NumPatient")]
            + ["" if minutes(x[c]) is None else hhmm(minutes(x[c])) for c in ("HeureDebut", "HeureFin")]
            + [x["Telephone"] or ""] for x in siens]


class Papier(Recherches):
    """A part of the walk, which holds the state."""

    messages = Recherches.messages | DE_PAPIER
    feuille, imprimee, connue = None, [], []
    cherchee, listes, marques = None, [[]], set()

    def lit(self):
        """The scratch table of the day sheets is looked at by itself."""
        tables = self.lit_carnet()
        self.imprimee = [[ligne[c] for c in ligne if c != "cle"] for ligne in tables.pop("Impression").values()]
        return tables

    # ---- Working the windows

    def dans_fenetre(self):
        travaille = {FEUILLE: self.dans_feuille, LISTING: self.dans_listing}
        if self.etat.dessus == APERCU:
            self.bouton_de(("Suivante", "Precedente", "Agrandir", "Reduire", "Fermer", "Escape"),
                           (1, 1, 1, 1, 4, 2))
        else:
            travaille.get(self.etat.dessus, super().dans_fenetre)()

    def date_dans(self, nom):
        jour = self.vue.jour + datetime.timedelta(self.h.randrange(-3, 9))
        texte = self.h.choice((f"{jour:%d/%m/%Y}", f"{jour.day}/{jour.month}/{jour:%y}", "31/02", ""))
        self.ecrit_dans(self.etat.objet(nom)["cadre"], texte)

    def ecrit_dans(self, cadre, texte):
        self.dit(f"« {texte} »")
        self.prog.clic((cadre[0] + 20, cadre[1] + cadre[3] // 2))
        self.prog.frappe("Control_L", "a")
        self.prog.frappe("Delete")
        self.prog.tape(texte)

    def dans_feuille(self):
        avant = lit_jour(self.etat.texte("DateJour"))
        nom = self.bouton_de(("Moins", "Plus", "date", "CmdImprimer", "Return", "CmdAnnuler", "Escape"),
                             (3, 3, 3, 6, 3, 1, 1))
        if nom == "date":
            self.date_dans("DateJour")
        elif nom in ("Moins", "Plus") and avant:
            voulu = avant + datetime.timedelta(1 if nom == "Plus" else -1)
            self.suite = lambda *_: [f"{nom} depuis le {avant}"] * (
                lit_jour(self.etat.texte("DateJour")) != voulu)
        elif nom in ("CmdImprimer", "Return") and avant:
            fauteuil = (self.ctx.grille or next(iter(self.ctx.grilles.values()))).fauteuil
            self.feuille = Feuille(self.livre, self.vue.prat, fauteuil, avant)
            self.suite = lambda *_: [f"feuille du {avant} : {self.etat.dessus}"] * (
                self.etat.dessus != (APERCU if self.feuille and self.imprimee == self.feuille.lignes
                                     else "QMessageBox"))

    def dans_listing(self):
        grille = self.etat.grille("ListAbsent", LISTING)
        lignes = [r for r in self.en_vue(grille) if r]
        nom = self.bouton_de(("ligne", "space", "Down", "cmdOK", "date", "praticien", "cmdAnnuler", "Escape"),
                             (9, 3 if grille["focus"] else 0, 2 if grille["focus"] else 0, 4, 2, 2, 1, 1))
        if nom == "date":
            self.date_dans("txtdatedebut")
        elif nom == "praticien":
            texte = self.h.choice(("Tous", "abc", *map(str, cabinet.FAUTEUILS), "02"))
            self.ecrit_dans(self.champ_praticien()["cadre"], texte)
        elif nom == "cmdOK":
            self.cherche()
        elif nom == "space":
            self.prog.frappe("space")
            self.marques ^= {grille["selection"][0]} if grille["selection"] else set()
        elif nom == "ligne" and lignes:
            r = self.h.choice(lignes)
            self.dit(str(r))
            self.prog.clic(self.point(grille, r, 1), loin=9999)
            self.marques ^= {r}

    def champ_praticien(self):
        return next(o for o in self.etat.objets(LISTING) if o["classe"] == "QLineEdit")

    def demande(self):
        return self.champ_praticien()["text"].strip(), lit_jour(self.etat.texte("txtdatedebut", LISTING))

    def cherche(self):
        self.cherchee, self.marques = self.demande(), set()
        qui, jour = self.cherchee
        self.listes = [[]]
        if jour and self.tiers.lisible and (qui == "Tous" or entier(qui)):
            self.listes = [absents(self.livre, None if qui == "Tous" else entier(qui), jour)]
            self.listes += [[]] * (self.duree > 1)

    # ---- What they show and write

    def ouverte(self):
        if self.etat.dessus == LISTING and self.dessus == "FrmEntree":
            self.cherche()
            if entier(self.cherchee[0]) != self.vue.prat or self.cherchee[1] != cabinet.MAINTENANT.date():
                return [f"listing de {self.cherchee}"]
        return super().ouverte() or (self.listing() if LISTING in self.etat.par_nom else [])

    def listing(self):
        vues = self.etat.grille("ListAbsent", LISTING)["cellules"][1:]
        a_jour = self.demande() == self.cherchee
        for liste in self.listes if a_jour else [[]]:
            marquables = self.marques if liste else set()
            voulu = [[[t, JAUNE if r in marquables and entier(x[0]) else "#ffffff"] for t in x]
                     for r, x in enumerate(liste, 1)]
            if [[c[:2] for c in ligne] for ligne in vues] == voulu or \
                    not voulu and [[c[0] for c in ligne] for ligne in vues] == [[""] * 7]:
                return []
        return [f"listing {vues}\nau lieu de {self.listes} {self.marques} {a_jour} {self.cherchee}"]

    def ecritures(self):
        faux = super().ecritures()
        if self.imprimee != self.connue:
            voulu = self.feuille.lignes if self.feuille is not None else []
            if self.imprimee != voulu:
                raise Faute(f"feuille {self.imprimee}\nau lieu de {voulu}")
            self.connue = voulu
        return faux
