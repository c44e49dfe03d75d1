"""The main window's gestures, each with what must come of it."""
import datetime
from dataclasses import replace

import cabinet
from ecran import attends, centre
from oracle import GRILLES, Vue, dans
from recherche import LANCE

DECALE = {"BtnPrecedent": -7, "BtnSuivant": 7, "BtnPrecedent2": -1, "BtnSuivant2": 1}
OUVRE = {"mnuAjouter": "FrmAjouter", "mnuEditer": "FrmEditer", "mnuSupprimer": "FrmSupprimer"}
AUTRES = ("mnuPresent", "mnusemaine", "mnuJour", "mnuRafraichir", "mnuZoom")
OUTILS = {"OutilPrecedent": -1, "OutilSuivant": 1}  # the toolbar's, in weeks or days
PRESENTATIONS = ("mnuClassique", "mnuContemporaine")
BOUTONS = (*DECALE, *OUTILS, "OutilAujourdhui", "OutilRafraichir", "BtnSemaine", "BtnJour", "BtnRafraichir", "BtnAujourdhui", "BtnAujourdhui2")
FLECHES = {"Up": (-1, 0), "Down": (1, 0), "Left": (0, -1), "Right": (0, 1)}


class Gestes:
    """A part of the walk, which holds the state."""

    GESTES = {("clic",): 30, ("clic", 2): 9, ("clic", 1, 3): 5, ("glisse",): 14, ("fleche",): 8, ("menu",): 14,
              ("ouvrante", "Return"): 4, ("ouvrante", "Delete"): 2, ("touche",): 6, ("bouton",): 9,
              ("raccourci",): 12, ("clavier",): 14, ("molette",): 3, ("zoom_molette",): 2, ("tic",): 5,
              ("retour",): 2, ("historique",): 4, ("replacer",): 12}

    # ---- The grids

    def case(self):
        """A grid, a row and a column that are in sight, and a point in that cell."""
        nom = self.h.choice([n for n in GRILLES if self.etat.grille(n)])
        g, grille = self.etat.grille(nom), self.ctx.grilles[nom]
        lignes, n, nb = self.en_vue(g), grille.horaire.n, len(grille.colonnes)
        if not lignes:
            return nom, 0, 0, centre({"cadre": g["surface"]})
        pris = [(r, c) for r in lignes for c in range(1, nb + 1) if r <= n and g["cellules"][r][c][0]]
        r, c = self.h.choice([r for r in lignes if r <= n] or lignes), self.h.randint(1, nb)
        sort = self.h.random()
        if sort < 0.4 and pris:
            r, c = self.h.choice([p for p in pris if p[0] in (1, n)] or pris if sort < 0.08 else pris)
        elif sort > 0.96:
            c = self.h.choice((0, len(g["colonnes"]) - 1))
        elif sort > 0.92:
            r = self.h.choice((0, lignes[-1]))
        return nom, r, c, self.point(g, r, c)

    @staticmethod
    def en_vue(g):
        return [r for r, (y, haut) in enumerate(g["lignes"]) if haut and y >= 0
                and y + haut <= g["surface"][3]]

    def point(self, g, r, c):
        """A hidden row is the one that the header shows, above the surface."""
        (x, large), (y, haut) = g["colonnes"][c], g["lignes"][r]
        y, haut = (y, haut) if haut else (-12, 4)
        return g["surface"][0] + x + self.h.randrange(3, large - 3), g["surface"][1] + y + haut // 2

    def clic(self, fois=1, bouton=1):
        nom, r, c, point = self.case()
        self.dit(f"{'double ' * (fois - 1)}clic {bouton} {nom} ({r},{c})")
        # there each appointment of a row has a place of its own, and the one under the pointer is meant
        self.cote = any(o["objectName"] == "OutilPrecedent" for o in self.etat.objets())
        self.prog.clic(point, bouton, fois)
        self.peut = True
        self.suite = lambda avant, apres: self.apres_clic(avant, apres, nom, r, c, fois, bouton)

    def apres_clic(self, avant, apres, nom, r, c, fois, bouton):
        grille = apres.grilles[nom]
        n, nb = grille.horaire.n, len(grille.colonnes)
        if vars(avant.grilles[nom].horaire) != vars(grille.horaire):  # other slots since, by another desk
            return []
        dedans = (nom, c) in [(g, gauche) for g, haut, bas, gauche, _ in avant.contours if haut <= r <= bas]
        titre = r == 0 and (bouton == 3 or not self.vue.semaine)
        if self.cote and 1 <= r <= n and 1 <= c <= nb:
            sous = dans(grille.colonnes[c - 1][1], grille.horaire.heure(r), grille.horaire.heure(r + 1))
            if sous and apres.cle in [x.cle() for x in sous]:  # counted among all beside it
                return self.ouvre("mnuEditer", apres) if fois == 2 else []
        if not n or not 1 <= c <= nb or titre or bouton == 3 and dedans:
            if bouton == 3 and self.a_ecrit:
                return []
            memes = (avant.contours, avant.panneaux) == (apres.contours, apres.panneaux)
            return [] if memes and self.etat.dessus == "FrmEntree" else [
                f"un clic qui ne choisit rien : {avant.contours} devient {apres.contours} {self.etat.dessus}"]
        if r == 0 or r > n and self.vue.semaine:
            return self.sur(apres, nom, 1, 1)
        if r > n:  # the whole day
            pris = [x.cle() for x in grille.colonnes[0][1] if grille.horaire.visible(x)]
            juste = apres.cle == pris[0] if pris else apres.contours == [(nom, 1, n, 1, 1)]
            return [f"jour entier : {apres.contours} {apres.cle}"] * (not juste)
        pris = dans(grille.colonnes[c - 1][1], grille.horaire.heure(r), grille.horaire.heure(r + 1))
        cles, refs = [x.cle() for x in pris], [x.ref for x in pris]
        retour = fois == 2 and apres.cle in cles  # what was chosen before keeps its outline
        if faux := self.sur(apres, nom, r, c) * (not retour):
            return faux
        meme = avant.rdv and (avant.nom, avant.jour) == (nom, apres.jour) and avant.rdv.ref in refs
        if pris and not self.a_ecrit:
            rang = (refs.index(avant.rdv.ref) + 2 - fois) % len(pris) if meme else 0
            if apres.cle != cles[rang] or fois == 1 and (apres.rang, apres.nombre) != (rang + 1, len(pris)):
                return [f"choisi {apres.panneaux} au lieu de {cles[rang]}, {rang + 1} parmi {cles}"]
        return self.ouvre("mnuEditer" if pris else "mnuAjouter", apres) if fois == 2 else []

    @staticmethod
    def sur(apres, nom, r, c):
        return [f"la case ({r},{c}) de {nom} n'est pas choisie : {apres.contours}"] * (
            not (apres.plage and (apres.nom, apres.colonne) == (nom, c) and apres.haut <= r <= apres.bas))

    def ouvre(self, action, ctx):
        """The window that this action opens on the selection `ctx`."""
        dessus, voulue = self.etat.dessus, OUVRE[action]
        if dessus == "QMessageBox":
            return []
        if not self.etat.action(action)["enabled"] or not ctx.plage:
            voulue = "FrmEntree"
        elif action == "mnuAjouter" and ctx.grille.config.classe(ctx.jour.weekday(), *ctx.plage) == 2:
            voulue = "FrmQuelHoraire"
        return [] if dessus == voulue else [f"{voulue} attendue, {dessus} montrée"]

    def glisse(self):
        nom, r, c, point = self.case()
        g, n = self.etat.grille(nom), self.ctx.grilles[nom].horaire.n
        if not r or not n:
            return self.clic()
        if sous := self.sous(nom, r, c):
            return self.en_main(nom, r, c, sous[0]) if self.sur_de(nom, sous) else self.clic()
        r2 = self.h.choice([x for x in self.en_vue(g) if x and abs(x - r) < 9])  # none is the room above the slots
        c2 = self.h.choice([c] * 8 + [*range(len(g["colonnes"]))])
        self.dit(f"glisse {nom} ({r},{c}) à ({r2},{c2})")
        self.prog.glisse(point, self.point(g, r2, c2))
        self.peut, nb = True, len(self.ctx.grilles[nom].colonnes)

        def suite(avant, apres):
            horaire = apres.grilles[nom].horaire
            if r > n or not 1 <= c <= nb or not 1 <= c2 <= nb or self.a_ecrit:
                return []
            liste = apres.grilles[nom].colonnes[c - 1][1]
            if c != c2:
                return self.sur(apres, nom, 1, 1) if self.etat.dessus == "QMessageBox" else ["pas de message"]
            haut, bas = min(r, r2), min(max(r, r2), horaire.n)
            pris = dans(liste, horaire.heure(haut), horaire.heure(bas + 1))
            if pris:
                return [f"glissé : {apres.cle}, pas {pris[0].cle()}"] * (r != r2
                                                                         and apres.cle != pris[0].cle())
            return [f"glissé {haut}-{bas} : {apres.contours}"] * (apres.contours != [(nom, haut, bas, c, c)])

        self.suite = suite

    def molette(self):
        nom, _, _, point = self.case()
        self.dit(f"molette {nom}")
        self.prog.clic(point, self.h.choice((4, 5)), self.h.randrange(1, 6))

    def zoom_molette(self):
        nom, _, _, point = self.case()
        sens = self.h.choice((4, 5))
        self.dit(f"Ctrl+molette {sens}")
        self.prog.va(*point)
        self.prog.frappe("Control_L", sens)
        if (sens == 4) == (self.vue.sans_zoom == 0):
            self.montre(self.apres("mnuZoom"))

    # ---- Keys

    def fleche(self):
        touche, maj = self.h.choice(list(FLECHES)), self.h.random() < 0.3
        self.dit(f"{'Maj+' * maj}{touche}")
        foyer, (dr, dc) = self.foyer(), FLECHES[touche]
        self.prog.frappe(*["Shift_L"] * maj, touche)

        def suite(avant, apres):
            if maj or not avant.plage or avant.nom != foyer or not self.inchange(avant.rdv):
                return []
            r = avant.bas + 1 if dr > 0 else avant.haut + dr
            r, c = (min(max(x, 1), dernier) for x, dernier in
                    ((r, avant.grille.horaire.n), (avant.colonne + dc, len(avant.grille.colonnes))))
            return self.sur(apres, foyer, r, c)

        self.suite = suite

    def inchange(self, rdv):
        """Not by another desk either, which may be seen only after this look."""
        return not rdv or self.livre.tables["RDV"].get(rdv.ref) == rdv.ligne

    def foyer(self):
        """The grid that has the keys, if one has."""
        return next((n for n in GRILLES if (self.etat.grille(n) or {}).get("focus")), None)

    def ouvrante(self, touche):
        if (self.etat.grille("ListeReplacer") or {}).get("focus"):  # they are keys of that list
            return self.clic()
        self.dit(touche)
        action = "mnuSupprimer" if touche == "Delete" else "mnuEditer" if self.ctx.rdv else "mnuAjouter"
        sur = self.ctx.plage and self.foyer() == self.ctx.nom and not self.a_ecrit
        self.prog.frappe(touche)
        self.peut = True
        if sur or touche == "Delete":
            self.suite = lambda _, apres: self.ouvre(action, apres)

    def touche(self):
        touche = self.h.choice(("Prior", "Next", "Home", "F5", "Escape"))
        self.dit(touche)
        self.prog.frappe(touche)
        if touche != "Escape":
            self.montre(self.apres(touche))

    # ---- Buttons, menus, timer

    def bouton(self):
        bouton = self.h.choice([o for o in self.etat.objets() if o["objectName"] in BOUTONS])
        self.dit(bouton["objectName"])
        self.prog.clic(centre(bouton))
        self.montre(self.apres(bouton["objectName"]))

    def tic(self):
        self.dit("Timer1")
        self.prog.ordre("tic")
        self.montre(self.fixe)

    def apres(self, nom):
        """The view after this command."""
        vue, aujourdhui, montre = self.fixe, cabinet.MAINTENANT.date(), self.ctx.montre
        pas = 7 if vue.semaine else 1
        if jours := (DECALE | {"Prior": -pas, "Next": pas} | {o: pas * n for o, n in OUTILS.items()}).get(nom):
            return replace(vue, jour=vue.jour + datetime.timedelta(jours))
        if "Aujourdhui" in nom or nom == "Home":
            return replace(vue, jour=aujourdhui)
        if nom in ("BtnJour", "mnuJour"):
            coche = montre.configs[montre.coche].fauteuil if montre.coche >= 0 else None
            return Vue(vue.prat, aujourdhui, False, coche)
        if nom == "mnuZoom":
            grille = montre.grilles.get("GrilleRDV")
            return vue.zoome(grille.config) if grille and grille.horaire.n else vue
        return Vue(vue.prat, vue.jour) if vue.semaine or "emaine" in nom else vue

    def montre(self, vue):
        """Everything is read and drawn again; where the same place is shown the selection stays."""
        self.vues, self.frais = [vue], True
        lundi = [v.jour.isocalendar()[:2] if v.semaine else v.jour for v in (self.fixe, vue)]
        if (vue.prat, lundi[1]) == (self.fixe.prat, lundi[0]):
            self.suite = self.garde

    def garde(self, avant, apres):
        if not avant.plage:
            return []
        if not avant.rdv:
            perdu = apres.plage and (apres.rdv or apres.jour != avant.jour or apres.plage[0] >= avant.plage[1]
                                     or apres.plage[1] <= avant.plage[0])
            return [f"sélection libre {avant.panneaux} devenue {apres.panneaux}"] * bool(perdu)
        la = self.montree(avant.rdv.ref)
        perdu = la and apres.cle != la[0].cle() or not la and apres.rdv
        return [f"sélection {avant.panneaux} devenue {apres.panneaux}"] * bool(perdu)

    def montree(self, ref):
        """The appointment, where a grid shows it."""
        return [x for g in self.ctx.grilles.values() for _, liste in g.colonnes for x in liste
                if x.ref == ref and g.horaire.n and g.horaire.visible(x)]

    def menu(self):
        voulu = self.h.choices(("mnuPraticien", "menuFaut", "menuAffichage", "mnupatient", "menuOptions"),
                               (6, 4, 3, 9, 2))[0]
        titre = next((m for m in self.etat.actions if m["objectName"] == voulu and m["visible"]), None)
        if not titre:
            return self.clic()
        self.dit(f"menu {voulu}")
        self.prog.clic(centre(titre))
        attends(lambda: self.prog.etat().surgis, 3, f"le menu {voulu}")

    def menu_surgi(self):
        offerts = [a for a in self.etat.surgis if a["enabled"] and (
            a["objectName"] in (*OUVRE, *AUTRES, *LANCE, *PRESENTATIONS) or a["menu"] in ("mnuPraticien", "menuFaut"))]
        if not offerts or not self.presse and self.h.random() < 0.1:
            self.dit("Échap dans le menu")
            return self.prog.frappe("Escape")
        action = next((a for a in offerts if self.presse and a["objectName"] == "mnuPresent"), None) \
            or self.h.choices(offerts, [1 + 2 * (a["objectName"] in LANCE) for a in offerts])[0]
        nom = action["objectName"]
        self.dit(f"menu → {nom} « {action['text']} »")
        vue = None
        if action["menu"] == "mnuPraticien":
            prat = next(n for n, t in self.praticiens.items() if t == action["text"])
            vue = Vue(prat, self.fixe.jour, self.fixe.semaine)
        elif action["menu"] == "menuFaut":
            vue = Vue(self.fixe.prat, self.fixe.jour, self.fixe.semaine, int(action["text"].split()[1]))
        elif nom in OUVRE:
            self.peut, self.suite = True, lambda _, apres: self.ouvre(nom, apres)
        elif nom in LANCE:
            self.lance(nom)
        elif nom == "mnuPresent":
            self.promet("present", Present=not action["checked"])
            self.visees, self.peut = [r for r in [self.ctx.rdv] if r], True
        elif nom not in PRESENTATIONS:
            vue = self.apres(nom)
        self.prog.clic(centre(action))
        if vue:
            self.montre(vue)
