"""What the user does: each gesture works the mouse or the keys, says what it did to the view that it expects, and
gives a check of what must have come of it (state before, context before, state after, context after) or None."""
import datetime
import re

import cabinet
from ecran import attends
from oracle import Contexte, dans, hhmm, lit_etat_date, lit_jour, minutes, propre

NAVIGATION = {"BtnPrecedent": -7, "BtnSuivant": 7, "BtnPrecedent2": -1, "BtnSuivant2": 1}
HEURES_TAPEES = ("9h30", "930", "0930", "9:30", "10:05", "17:45", "18:15", "8h", "25:00", "abc", "")


def centre(cadre):
    x, y, l, h = cadre
    return x + l // 2, y + h // 2


def lit_heure(texte):
    """As the fields understand it, or None."""
    lu = re.fullmatch(r"\s*(\d{1,2})(?:[h:](\d\d)?)?\s*|\s*(\d{1,2})(\d\d)\s*", texte)
    if not lu:
        return None
    return minutes(f"{int(lu[1] or lu[3]):02}:{lu[2] or lu[4] or '00'}")


def memes(a, b):
    return (a.contours, a.panneaux) == (b.contours, b.panneaux)


class Gestes:
    """On the main window. `p` is the walk: its screen, its chance, its view, what it has seen last."""

    def __init__(self, p):
        self.p, self.h, self.ecran = p, p.h, p.ecran
        self.dernier = None  # the cell clicked last, when nothing else has been done since

    def choisit(self):
        """The next gesture for what is on the screen: its name and itself."""
        etat, p = self.p.etat, self.p
        if etat.surgis:
            return self.menu_surgi
        propre_a = {"FrmAjouter": self.dans_champs, "FrmEditer": self.dans_champs, "FrmMois": self.dans_mois,
                    "FrmTrancheHoraire": self.dans_tranche, "FrmJourExclure": self.dans_jours,
                    "FrmEntree": None}.get(etat.dessus, self.dans_boite)
        if propre_a:
            return propre_a
        poids = {self.clic: 30, self.double_clic: 9, self.glisse: 7, self.clic_droit: 5, self.fleche: 8,
                 self.entree: 4, self.touche_navigation: 5, self.touche_suppr: 2, self.bouton: 9, self.menu: 14,
                 self.molette: 3, self.zoom_molette: 2, self.tic: 5, self.echap: 1}
        return p.h.choices(list(poids), list(poids.values()))[0]

    # ---- The grids

    def case(self):
        """A grid, a row and a column that are in sight, and a point in that cell."""
        nom = self.h.choice([n for n in ("GrilleRDV", "GrilleRDV02", "GrilleRDV03") if self.p.etat.grille(n)])
        g = self.p.etat.grille(nom)
        hauteur = g["surface"][3]
        lignes = [r for r, (y, haut) in enumerate(g["lignes"]) if r and y >= 0 and y + haut <= hauteur]
        nb = len(g["colonnes"])
        if not lignes or nb < 2:
            return nom, 0, 0, centre(g["entete"])
        jours = range(1, nb - 1) if nb > 2 else [1]
        pris = [(r, c) for r in lignes for c in jours if g["cellules"][r][c][0]]
        bords = [(r, c) for r, c in pris if r == 1 or r > len(g["lignes"]) - 5]
        sort = self.h.random()
        if sort < 0.4 and pris:
            r, c = self.h.choice(bords if sort < 0.08 and bords else pris)
        elif sort < 0.9:
            r, c = self.h.choice(lignes[:-1] or lignes), self.h.choice(jours)
        elif sort < 0.94:
            r, c = self.h.choice(lignes), self.h.choice((0, nb - 1 if nb > 2 else 0))
        elif sort < 0.97:
            r, c = len(g["lignes"]) - 1 if len(g["lignes"]) - 1 in lignes else lignes[-1], self.h.choice(jours)
        else:
            r, c = 0, self.h.choice(jours)
        return nom, r, c, self.point(g, r, c)

    def point(self, g, r, c):
        x, l = g["colonnes"][c]
        y, haut = g["lignes"][r] if r else (0, g["entete"][3])
        coin = g["surface"] if r else g["entete"]
        return coin[0] + x + self.h.randrange(3, l - 3), coin[1] + y + haut // 2

    def clic(self, fois=1, bouton=1):
        nom, r, c, point = self.case()
        encore = self.dernier == (nom, r, c) and bouton == 1
        self.p.dit(f"{'double ' * (fois - 1)}clic {bouton} {nom} ({r},{c})")
        self.ecran.clic(*point, bouton, fois)
        self.dernier = (nom, r, c) if fois == 1 else None

        def suite(avant, apres):
            horaire = apres.grilles[nom].horaire if nom in apres.grilles else None
            if not horaire or not horaire.n:
                return []
            derniere = len(apres.grilles[nom].colonnes) + 1
            if r == 0:
                if nom != "GrilleRDV" or bouton == 3:
                    return [] if memes(avant, apres) else ["un clic sur un titre a changé la sélection"]
                return [] if c in (0, derniere) else self.sur(apres, nom, 1, 1)
            if c == 0 or (nom == "GrilleRDV" and c == derniere):
                return [] if memes(avant, apres) else [f"un clic dans une colonne d'heures a changé {avant.contours} "
                                                       f"{avant.panneaux} en {apres.contours} {apres.panneaux}"]
            if r > horaire.n:
                return self.sur(apres, nom, 1, 1) if nom == "GrilleRDV" else []
            faux = self.sur(apres, nom, r, c)
            return faux or self.lequel(avant, apres, r, encore and fois == 1)

        return suite if bouton == 1 or not self.p.etat.surgis else None

    @staticmethod
    def sur(apres, nom, r, c):
        if apres.plage and (apres.nom_grille, apres.colonne) == (nom, c) and apres.haut <= r <= apres.bas:
            return []
        return [f"la case ({r},{c}) de {nom} n'est pas sélectionnée : {apres.contours}"]

    @staticmethod
    def lequel(avant, apres, r, encore):
        horaire = apres.grille.horaire
        pris = dans(apres.liste, horaire.heure(r), horaire.heure(r + 1))
        if not pris:
            return []
        cles = [(x.panneau(), x.heures()) for x in pris]
        choisi, precedent = (apres.nom, apres.heures), (avant.nom, avant.heures)
        permis = {cles[0]}
        if precedent in cles and avant.jour == apres.jour:
            suivant = cles[(cles.index(precedent) + 1) % len(cles)]
            permis = {suivant} if encore else {cles[0], suivant, precedent}
        return [] if choisi in permis else [f"sélectionné {choisi} au lieu de {permis} parmi {cles}"]

    def double_clic(self):
        p = self.p
        nom, r, c, point = self.case()
        p.dit(f"double clic {nom} ({r},{c})")
        self.ecran.clic(*point, 1, 2)
        self.dernier = None
        p.relit = True

        def suite(avant, apres):
            grille = apres.grilles.get(nom)
            if not grille or not 1 <= r <= grille.horaire.n:
                return []
            heures = c == 0 or (nom == "GrilleRDV" and c == len(grille.colonnes) + 1)
            if heures:
                return [] if p.etat.dessus == "FrmEntree" else ["un double clic sur une heure a ouvert une fenêtre"]
            faux = self.sur(apres, nom, r, c)
            horaire = grille.horaire
            pris = dans(grille.colonnes[c - 1][1], horaire.heure(r), horaire.heure(r + 1))
            cles = [(x.panneau(), x.heures()) for x in pris]
            avant_clic = (avant.nom, avant.heures)
            if pris and not faux:
                voulu = avant_clic if avant_clic in cles and avant.jour == apres.jour else cles[0]
                if (apres.nom, apres.heures) != voulu:
                    faux.append(f"double clic : {(apres.nom, apres.heures)} au lieu de {voulu}")
            return faux or self.ouverture("mnuEditer" if pris else "mnuAjouter", apres)

        return suite

    def ouverture(self, action, ctx):
        """The window that this action opens on the selection `ctx`."""
        p, etat = self.p, self.p.etat
        if not p.tiers.lisible or etat.dessus == "QMessageBox":
            return []
        voulue = {"mnuEditer": "FrmEditer", "mnuSupprimer": "FrmSupprimer", "mnuAjouter": "FrmAjouter"}[action]
        if not etat.action(action)["actif"] or not ctx.plage:
            voulue = "FrmEntree"
        elif action == "mnuAjouter" and ctx.grille.config.classe(ctx.jour.weekday(), *ctx.plage) == 2:
            voulue = "FrmQuelHoraire"
        return [] if etat.dessus == voulue else [f"{voulue} attendue, {etat.dessus} montrée"]

    def ouverte(self, avant):
        """A window that has just opened over `avant`: what it is about, and whether its fields say so."""
        p, ctx, dessus = self.p, self.p.ctx, self.p.etat.dessus
        if avant == dessus or dessus not in ("FrmAjouter", "FrmEditer", "FrmSupprimer") \
                or avant == "QMessageBox" or not ctx.plage:
            return []
        if dessus == "FrmAjouter":
            p.place = ctx.grille.fauteuil
            if avant != "FrmQuelHoraire":
                p.classe = ctx.grille.config.classe(ctx.jour.weekday(), *ctx.plage)
        else:
            p.visees = [x for x in ctx.dessous if (x.panneau(), x.heures()) == (ctx.nom, ctx.heures)]
        return self.champs_ouverts(dessus, ctx)

    def champs_ouverts(self, fenetre, ctx):
        etat = self.p.etat
        montre = {o["nom"]: propre(o["texte"]) for o in etat.objets()}
        if fenetre == "FrmAjouter":
            voulu = {"TextHeureDebut": hhmm(ctx.plage[0]), "TextHeureFin": hhmm(ctx.plage[1])}
        else:
            ligne, x = ctx.rdv.ligne, ctx.rdv
            heures = {"TextHeureDebut": hhmm(x.debut), "TextHeureFin": hhmm(x.fin)}
            voulu = heures | {"Text1": x.nom, "Text2": x.prenom, "Text3": propre(ligne["Telephone"]),
                              "Text4": x.desc.strip(), "txtNumPatient": str(ligne["NumPatient"])}
            if fenetre == "FrmSupprimer":
                voulu = {"Label3": x.nom, "Label4": x.prenom, "Label13": hhmm(x.debut), "Label15": hhmm(x.fin)}
        if fenetre != "FrmSupprimer":
            montre["DTPicker1"] = lit_jour(montre["DTPicker1"])
            voulu["DTPicker1"] = ctx.jour.isoformat()
        return [f"{fenetre}.{n} montre « {montre.get(n)} » au lieu de « {t} »" for n, t in voulu.items()
                if montre.get(n) != t]

    def glisse(self):
        nom, r, c, (x, y) = self.case()
        g = self.p.etat.grille(nom)
        if not r:
            return self.clic()
        nb = len(g["colonnes"])
        hauteur = g["surface"][3]
        vues = [n for n, (haut, l) in enumerate(g["lignes"]) if n and haut >= 0 and haut + l <= hauteur]
        r2 = self.h.choice([n for n in vues if abs(n - r) < 9])
        c2 = self.h.choice([c] * 8 + [n for n in range(nb)])
        self.p.dit(f"glisse {nom} ({r},{c}) à ({r2},{c2})")
        attends(lambda: self.ecran.doux(x, y), 2, "un clic simple")
        self.ecran.va(x, y)
        self.ecran.bouton(1, True)
        x2, y2 = self.point(g, r2, c2)
        self.ecran.va((x + x2) / 2, (y + y2) / 2)
        self.ecran.va(x2, y2)
        self.ecran.bouton(1, False)
        self.ecran.note(x2, y2)
        self.dernier = None

        def suite(avant, apres):
            horaire = apres.grilles[nom].horaire if nom in apres.grilles else None
            fin = len(apres.grilles[nom].colonnes) + 1 if horaire else 0
            if not horaire or not 1 <= r <= horaire.n or c in (0, fin) or c2 in (0, fin):
                return []
            depart = dans(avant.grilles[nom].colonnes[c - 1][1], horaire.heure(r), horaire.heure(r + 1))
            if depart:  # the press took the appointment, and its outline may have ended the drag
                return []
            if c != c2:
                if self.p.etat.dessus == "QMessageBox":
                    return self.sur(apres, nom, 1, 1)
                return ["plusieurs colonnes, et pas de message"]
            haut, bas = min(r, r2), min(max(r, r2), horaire.n)
            pris = dans(apres.grilles[nom].colonnes[c - 1][1], horaire.heure(haut), horaire.heure(bas + 1))
            if pris:
                premier = (pris[0].panneau(), pris[0].heures())
                return [] if (apres.nom, apres.heures) == premier else [f"glissé : {apres.nom}, pas {premier}"]
            return [] if apres.contours == [(nom, haut, bas, c, c)] else [f"glissé {haut}-{bas} : {apres.contours}"]

        return suite

    def clic_droit(self):
        return self.clic(bouton=3)

    def molette(self):
        nom, _, _, point = self.case()
        self.p.dit(f"molette {nom}")
        self.ecran.va(*point)
        self.ecran.clic(*point, self.h.choice((4, 5)), self.h.randrange(1, 6))

    # ---- Keys

    def fleche(self):
        touche, maj = self.h.choice(("Up", "Down", "Left", "Right")), self.h.random() < 0.3
        self.p.dit(f"{'Maj+' * maj}{touche}")
        self.ecran.touche(touche, *["Shift_L"] * maj)
        foyer = self.foyer()
        self.dernier = None

        def suite(avant, apres):
            if maj or not avant.plage or avant.nom_grille != foyer:
                return []
            n, nb = avant.grille.horaire.n, len(avant.grille.colonnes)
            dr, dc = {"Up": (-1, 0), "Down": (1, 0), "Left": (0, -1), "Right": (0, 1)}[touche]
            r = min(avant.bas + 1, n) if dr > 0 else max(avant.haut + dr, 1)
            return self.sur(apres, avant.nom_grille, r, min(max(avant.colonne + dc, 1), nb))

        return suite

    def foyer(self):
        """The grid that has the keys, if one has."""
        return next((n for n in ("GrilleRDV", "GrilleRDV02", "GrilleRDV03") if (self.p.etat.grille(n) or {}).get("focus")),
                    None)

    def entree(self):
        self.p.dit("Entrée")
        libre, foyer = not self.p.ctx.rdv, self.foyer()
        self.ecran.touche("Return")
        self.p.relit = True
        return lambda avant, apres: self.ouverture("mnuAjouter" if libre else "mnuEditer", apres) if foyer else []

    def touche_suppr(self):
        self.p.dit("Suppr")
        self.ecran.touche("Delete")
        self.p.relit = True
        return lambda avant, apres: self.ouverture("mnuSupprimer", apres)

    def echap(self):
        self.p.dit("Échap")
        self.ecran.touche("Escape")

    def touche_navigation(self):
        touche = self.h.choice(("Prior", "Next", "Home", "F5"))
        self.p.dit(touche)
        self.ecran.touche(touche)
        if touche == "F5":
            return self.rafraichit()
        if touche == "Home":
            return self.va(cabinet.MAINTENANT.date())
        pas = (7 if self.p.vue.semaine else 1) * (-1 if touche == "Prior" else 1)
        return self.va(self.p.vue.jour + datetime.timedelta(pas))

    def zoom_molette(self):
        g = next(g for n in ("GrilleRDV", "GrilleRDV02") if (g := self.p.etat.grille(n)))
        self.p.dit("Ctrl+molette")
        self.ecran.va(*centre(g["surface"]))
        code = self.ecran.tient("Control_L")
        self.ecran.clic(*centre(g["surface"]), self.h.choice((4, 5)))
        self.ecran.lache(code)
        self.p.zoom_incertain = True
        return None

    # ---- Buttons, menus, timer

    def bouton(self):
        noms = ["BtnSemaine", "BtnJour", "BtnRafraichir", "BtnMois", *NAVIGATION, "BtnAujourdhui", "BtnAujourdhui2"]
        bouton = self.h.choice([o for o in self.p.etat.objets() if o["nom"] in noms])
        nom = bouton["nom"]
        self.p.dit(nom)
        self.ecran.clic(*centre(bouton["cadre"]))
        return self.fait(nom)

    def fait(self, nom):
        """What the button or the menu item of this name does to the view."""
        p, vue = self.p, self.p.vue
        self.dernier = None
        if nom in NAVIGATION:
            return self.va(vue.jour + datetime.timedelta(NAVIGATION[nom]))
        if nom.startswith("BtnAujourdhui"):
            return self.va(cabinet.MAINTENANT.date())
        if nom in ("BtnSemaine", "mnusemaine"):
            vue.semaine = True
            vue.charge(p.livre)
            return self.redessine(garde=False)
        if nom in ("BtnJour", "mnuJour"):
            vue.semaine = False
            return self.va(cabinet.MAINTENANT.date())
        if nom in ("BtnRafraichir", "mnuRafraichir"):
            return self.rafraichit()
        if nom == "mnuZoom":
            return self.zoom()
        if nom in ("mnuAjouter", "mnuEditer", "mnuSupprimer"):
            p.relit = True
            return lambda avant, apres: self.ouverture(nom, apres)
        if nom == "mnuPresent":
            p.promet("present", present=not p.etat.action("mnuPresent")["coche"])
            return self.redessine()
        return None

    def va(self, jour):
        self.p.vue.jour = jour
        return self.redessine(garde=False)

    def rafraichit(self):
        vue = self.p.vue
        meme = not vue.semaine
        if vue.semaine:
            avant = (vue.config.fauteuil, vue.config.pas)
            vue.charge(self.p.livre)
            meme = avant[0] == vue.config.fauteuil
        return self.redessine(meme)

    def zoom(self):
        vue = self.p.vue
        vue.zoome()
        return self.redessine()

    def redessine(self, garde=True):
        """Everything is read again; the selection stays the appointment or the hours that it was."""
        self.p.redessine = True
        self.dernier = None

        def suite(avant, apres):
            if not garde or not avant.plage:
                return []
            if avant.rdv:
                la = [x for x in apres.grilles[avant.nom_grille].colonnes[avant.colonne - 1][1]
                      if x.ref == avant.rdv.ref] if avant.nom_grille in apres.grilles else []
                if la and apres.grille and apres.grille.horaire.visible(la[0]):
                    return [] if apres.rdv and (apres.nom, apres.heures) == (la[0].panneau(), la[0].heures()) else \
                        [f"sélection perdue : {avant.panneaux} devient {apres.panneaux}"]
                if apres.rdv and not la and apres.rdv.ref != avant.rdv.ref:
                    return [f"{avant.panneaux} n'est plus là, et {apres.panneaux} est sélectionné"]
                return []
            if apres.plage and not apres.rdv and apres.heures != avant.heures:
                return [f"sélection libre {avant.heures} devenue {apres.heures}"]
            return []

        return suite

    def tic(self):
        self.p.dit("Timer1")
        self.p.prog.ordre("tic")
        return self.redessine()

    def menu(self):
        voulu = self.h.choices(("mnuPraticien", "menuFaut", "menuAffichage", "mnupatient", "menuOptions"),
                               (6, 4, 3, 3, 2))[0]
        titre = next((m for m in self.p.etat.barre if m["nom"] == voulu and m["visible"]), None)
        if not titre:
            return self.clic()
        self.p.dit(f"menu {voulu}")
        self.ecran.clic(*centre(titre["cadre"]))
        attends(lambda: self.p.prog.etat().surgis, 3, f"le menu {voulu}")
        return None

    def menu_surgi(self):
        permis = ("mnuAjouter", "mnuEditer", "mnuSupprimer", "mnuPresent", "mnusemaine", "mnuJour", "mnuRafraichir",
                  "mnuZoom", "mnutranche", "mnuexclure")
        offerts = [(i, a) for s in self.p.etat.surgis[-1:] for i, a in enumerate(a for a in s if a["visible"])
                   if a["actif"] and (a["nom"] in permis or a["menu"] in ("mnuPraticien", "menuFaut"))]
        if not offerts or self.h.random() < 0.1:
            self.p.dit("Échap dans le menu")
            self.ecran.touche("Escape")
            return None
        rang, action = self.h.choice(offerts)
        self.p.dit(f"menu → {action['nom']} « {action['texte']} »")
        self.ecran.clic(*centre(action["cadre"]))
        vue, livre = self.p.vue, self.p.livre
        if action["menu"] == "mnuPraticien":
            vue.prat = next(n for n, t in vue.praticiens.items() if t == action["texte"])
            vue.charge(livre)
            return self.redessine(garde=False)
        if action["menu"] == "menuFaut":
            configs = livre.du_praticien(vue.prat)
            vue.coche = rang
            if vue.semaine and rang < len(configs):
                vue.prend(configs[rang])
            return self.redessine(garde=False)
        return self.fait(action["nom"])

    # ---- Windows

    def dans_boite(self):
        """Message boxes and small windows: one of their buttons, or Escape."""
        p, etat = self.p, self.p.etat
        p.boites.add(" | ".join(o["texte"] or "" for o in etat.objets() if o["classe"] == "QLabel"))
        boutons = [o for o in etat.objets() if o["classe"] in ("QPushButton", "QRadioButton") and o["actif"]]
        if etat.dessus == "FrmSupprimer" and self.h.random() < 0.4:
            boutons = [o for o in boutons if o["nom"] == "BtnOK"]
        bouton = self.h.choice(boutons)
        p.relit = True  # what the window was about may be drawn now
        p.dit(f"{etat.dessus} : {bouton['texte']}")
        if etat.dessus == "FrmSupprimer" and bouton["nom"] == "BtnOK":
            p.promet("supprime")
            p.redessine = True
        if etat.dessus == "FrmQuelHoraire" and bouton["nom"] == "BtnOK":
            p.classe = 1 if etat.objet("Option1")["coche"] else 0
            p.relit = True
        self.ecran.clic(*centre(bouton["cadre"]))
        return None

    def dans_mois(self):
        p, etat = self.p, self.p.etat
        vue = etat.grille("qt_calendar_calendarview", "FrmMois")
        boutons = [o for o in etat.objets() if o["nom"] in ("BtnNow", "BtnOK", "BtnAnnuler")]
        if self.h.random() < 0.4:
            r, c = self.h.randrange(2, 6), self.h.randrange(1, 7)
            p.dit(f"calendrier ({r},{c})")
            x, y = vue["surface"][:2]
            self.ecran.clic(x + vue["colonnes"][c][0] + 6, y + vue["lignes"][r][0] + 6)
            p.mois = True
            return None
        bouton = self.h.choice(boutons)
        p.dit(f"FrmMois : {bouton['nom']}")
        self.ecran.clic(*centre(bouton["cadre"]))
        if bouton["nom"] == "BtnOK":
            p.redessine = p.date_inconnue = True
        return None

    def dans_tranche(self):
        etat = self.p.etat
        fini = self.h.random()
        if fini < 0.35:
            nom = "BtnOK" if fini < 0.2 and self.p.tiers.lisible else "BtnAnnuler"
            self.p.dit(f"FrmTrancheHoraire : {nom}")
            pas = next((5 * int(o["nom"][6:]) for o in etat.objets() if o["nom"].startswith("Option") and o["coche"]), 0)
            heures = [lit_heure(etat.texte(f"Text{i}")) for i in range(1, 5)]
            self.ecran.clic(*centre(etat.objet(nom)["cadre"]))
            if nom == "BtnOK":
                self.p.reglages = ("tranche", pas, heures)
            return None
        choix = [o for o in etat.objets() if o["nom"].startswith("Option") or o["nom"] in ("Augmenter", "Diminuer")]
        objet = self.h.choice(choix)
        self.p.dit(f"FrmTrancheHoraire : {objet['nom']}")
        self.ecran.clic(*centre(objet["cadre"]))
        return None

    def dans_jours(self):
        etat = self.p.etat
        fini = self.h.random()
        cases = [o for o in etat.objets() if o["classe"] in ("QCheckBox", "QRadioButton") and o["actif"]]
        if fini < 0.35:
            nom = "BtnOK" if fini < 0.2 and self.p.tiers.lisible else "BtnAnnuler"
            self.p.dit(f"FrmJourExclure : {nom}")
            self.p.reglages = ("jours", nom == "BtnOK", {o["nom"]: o["coche"] for o in etat.objets() if "coche" in o})
            self.ecran.clic(*centre(etat.objet(nom)["cadre"]))
            return None
        objet = self.h.choice(cases)
        self.p.dit(f"FrmJourExclure : {objet['nom']}")
        self.ecran.clic(*centre(objet["cadre"]))
        return None

    def dans_champs(self):
        """The windows that add and edit: fields, search, arrows, reset, and in the end one of the two buttons."""
        p, etat = self.p, self.p.etat
        valide = "BtnAjouter" if etat.dessus == "FrmAjouter" else "BtnMettreAJour"
        quoi = self.h.choices(("nom", "prenom", "desc", "heure", "date", "cherche", "liste", "fleche", "reset", "tab",
                               "valide", "entree", "annule"), (8, 4, 4, 5, 3, 8, 8, 4, 2, 2, 14, 4, 5))[0]
        champ = {"nom": "Text1", "prenom": "Text2", "desc": "Text4", "date": "DTPicker1", "cherche": "TxtPatient",
                 "heure": self.h.choice(("TextHeureDebut", "TextHeureFin"))}.get(quoi)
        if champ:
            return self.tape(quoi, etat.objet(champ))
        liste = etat.grille("Grille1", etat.dessus)
        lignes = len(liste["lignes"])
        if quoi == "liste" and lignes:
            return self.choisit_patient(liste, lignes)
        p.dit(f"{etat.dessus} : {quoi}")
        if quoi in ("valide", "reset", "annule"):
            nom = {"valide": valide, "reset": "BtnInit", "annule": "BtnAnnuler"}[quoi]
            if quoi == "valide":
                p.promet_saisie()
            self.ecran.clic(*centre(etat.objet(nom)["cadre"]))
        elif quoi == "fleche":
            self.ecran.clic(*centre(self.h.choice([o for o in etat.objets() if o["nom"] in
                                                   ("Augmenter", "Diminuer")])["cadre"]))
        elif quoi == "tab":
            self.ecran.touche("Tab")
        elif quoi == "entree":
            focus = next((o["nom"] for o in etat.objets() if o["focus"]), None)
            if focus in ("Text1", "Text2", "Text3", "Text4", "TextHeureDebut", "TextHeureFin"):
                p.promet_saisie()
                self.ecran.touche("Return")
            elif focus == "TxtPatient" and liste["courante"] >= 0:
                self.pointe(liste, liste["courante"])
                self.ecran.touche("Return")
        return None

    def tape(self, quoi, champ):
        texte, date = self.h.choice(HEURES_TAPEES), None
        if quoi == "date":
            date = self.p.vue.jour + datetime.timedelta(self.h.randrange(-3, 9))
            texte = date.strftime(self.h.choice(("%d/%m/%Y", "%d%m%Y", "%d/%m/%y")))
        elif quoi != "heure":
            texte = self.h.choice([n.lower().replace("ç", "c") for n in cabinet.NOMS[:9]] + ["", " ", "du", "17", "é'"])
        self.p.dit(f"{champ['nom']} ← « {texte} »")
        x, y, _, haut = champ["cadre"]
        self.ecran.clic(x + 20, y + haut // 2)
        self.ecran.touche("a", "Control_L")
        self.ecran.touche("Delete")
        self.ecran.tape(texte)
        if date:
            self.ecran.touche("Tab")
            return lambda avant, apres: [] if lit_jour(self.p.etat.texte("DTPicker1")) == date.isoformat() else \
                [f"date tapée {texte}, comprise {self.p.etat.texte('DTPicker1')}"]
        return None

    def choisit_patient(self, liste, lignes):
        if self.h.random() < 0.5:
            self.p.dit("flèche dans la liste")
            focus = self.p.etat.objet("TxtPatient")
            self.ecran.clic(*centre(focus["cadre"]))
            for _ in range(self.h.randrange(1, 4)):
                self.ecran.touche("Down")
            return self.surligne if self.p.etat.dessus == "FrmAjouter" else None
        hauteur = liste["surface"][3]
        vues = [r for r, (y, haut) in enumerate(liste["lignes"]) if y >= 0 and y + haut <= hauteur]
        r = self.h.choice(vues or [0])
        self.p.dit(f"clic sur le patient {r} : {liste['cellules'][r][0][0]}")
        self.pointe(liste, r)
        self.ecran.clic(liste["surface"][0] + 20, liste["surface"][1] + liste["lignes"][r][0] + 8)
        return None

    def surligne(self, avant, apres):
        etat = self.p.etat
        liste = etat.grille("Grille1", etat.dessus) if etat.dessus == "FrmAjouter" else None
        if not liste or liste["courante"] < 0:
            return []
        nom, prenom = (propre(liste["cellules"][liste["courante"]][c][0]) for c in (0, 1))
        montre = propre(etat.texte("Text1")), propre(etat.texte("Text2"))
        return [] if montre == (nom, prenom) else [f"patient surligné {(nom, prenom)}, champs {montre}"]

    def pointe(self, liste, r):
        nom, prenom, numero = (propre(liste["cellules"][r][c][0]) for c in range(3))
        if self.p.etat.dessus == "FrmAjouter":
            self.p.promet_saisie(nom=nom, prenom=prenom, numero=numero)

