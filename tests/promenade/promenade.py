"""promenade.py BINARIES SEED [STEPS]: walks through the program at random on the screen that DISPLAY names, and
looks after every step whether what it shows and writes is what the files say. All chance is from SEED."""
import datetime
import os
import random
import re
import shutil
import sys
import tempfile
import time
import traceback
from dataclasses import replace

import cabinet
from ecran import Faute, Programme, attends, centre
from fenetres import Fenetres
from oracle import GRILLES, Contexte, Livre, Montre, Vue, dans, entier, lit_base

PATIENCE = 2.0  # seconds in which the screen must have come to agree with the files
LONG = 4  # seconds of a lock after which the program may have given up
TIERS = {"ecrit": 0.07, "verrou": 0.012, "emporte": 0.01, "tronque": 0.007}  # chance of each at a step
DECALE = {"BtnPrecedent": -7, "BtnSuivant": 7, "BtnPrecedent2": -1, "BtnSuivant2": 1}
OUVRE = {"mnuAjouter": "FrmAjouter", "mnuEditer": "FrmEditer", "mnuSupprimer": "FrmSupprimer"}
AUTRES = ("mnuPresent", "mnusemaine", "mnuJour", "mnuRafraichir", "mnuZoom")
BOUTONS = (*DECALE, "BtnSemaine", "BtnJour", "BtnRafraichir", "BtnAujourdhui", "BtnAujourdhui2")
FLECHES = {"Up": (-1, 0), "Down": (1, 0), "Left": (0, -1), "Right": (0, 1)}


class Promenade(Fenetres):
    GESTES = {("clic",): 30, ("clic", 2): 9, ("clic", 1, 3): 5, ("glisse",): 7, ("fleche",): 8, ("menu",): 14,
              ("ouvrante", "Return"): 4, ("ouvrante", "Delete"): 2, ("touche",): 6, ("bouton",): 9,
              ("molette",): 3, ("zoom_molette",): 2, ("tic",): 5}

    def __init__(self, binaires, graine, dossier):
        self.h, self.etape, self.histoire, self.textes = random.Random(graine), 0, [], set()
        self.prog, self.promesse, self.visees, self.classe, self.place = None, None, [], None, None
        self.dernier = None
        prat = cabinet.cree(dossier + "/cabinet", self.h)
        self.bases = dossier + "/cabinet/Base/Fichiers/"
        self.tiers = cabinet.Tiers(self.bases + "Tavelin.mdb", self.h)
        depart = time.monotonic()
        arguments = ["--chemin", dossier + "/cabinet/CheminBelmor.mdb", "--maintenant"]
        self.prog = Programme(binaires, dossier, [*arguments, cabinet.MAINTENANT.isoformat()])
        self.maintenant = lambda: cabinet.MAINTENANT + datetime.timedelta(seconds=time.monotonic() - depart)
        self.praticiens = {p["codeprat"]: f"docteur {p['nom']} {p['PreNom'] or ''}"
                           for p in lit_base(self.bases + "Param.mdb")["Praticien"].values()}
        self.patients = lit_base(self.bases + "Patient.mdb")["TabPat"]
        self.prog.etat(patience=20)
        self.etat = self.prog.repos()
        self.livre = Livre(self.lit())
        self.photos = self.anciennes = [self.livre]
        self.vue = Vue(prat, cabinet.MAINTENANT.date())
        affich = Montre(self.vue, self.livre).grilles["GrilleRDV"].config.affich
        while any(affich) and not affich[self.vue.jour.weekday()]:
            self.vue.jour += datetime.timedelta(1)
        self.ctx = None
        self.commence("départ")
        self.regarde()

    def lit(self):
        return lit_base(self.tiers.fichier if self.tiers.lisible else self.tiers.cache)

    # ---- One step

    def commence(self, *fait):
        self.fait, self.suite, self.vues, self.boite = [*fait], None, [self.vue], None
        self.frais, self.peut, self.a_ecrit, self.duree = False, False, False, 0
        self.dessus, self.avant = self.etat.dessus, self.ctx
        if self.dessus == "QMessageBox":
            self.boite = self.etat.texte("qt_msgbox_label")
        else:
            self.promesse = None

    def dit(self, texte):
        self.fait.append(texte)

    def marche(self, pas):
        for self.etape in range(1, pas + 1):
            self.commence(f"pas {self.etape}")
            self.un_pas()
            self.histoire = [*self.histoire, " ; ".join(self.fait)][-30:]
        self.etape = "fin"
        self.prog.finit()

    def un_pas(self):
        etat, config = self.etat, next(iter(self.ctx.grilles.values()))
        self.fixe = replace(self.vue, jour=self.ctx.date)
        if self.vue.semaine and config.horaire.n:
            self.fixe.config = config.config
        self.vues, verrou = [self.fixe], self.troisieme()
        if etat.surgis:
            self.menu_surgi()
        elif etat.dessus != "FrmEntree":
            self.dans_fenetre()
        else:
            geste, *combien = self.h.choices(list(self.GESTES), list(self.GESTES.values()))[0]
            getattr(self, geste)(*combien)
        if verrou:
            self.sous_verrou(verrou)
        if not self.tiers.lisible:
            self.vues = [self.fixe]
        elif self.duree > LONG:
            self.vues.append(self.fixe)
        self.anciennes = self.photos
        if (self.frais or self.peut) and self.tiers.lisible:
            self.photos = [*(self.photos if self.peut or self.duree > LONG else []), self.livre]
        self.regarde()

    def troisieme(self):
        """What the other workstation does before this step; the lock that it holds during it, if any."""
        quoi = self.h.choices([*TIERS, None], [*TIERS.values(), 1 - sum(TIERS.values())])[0]
        if not self.tiers.lisible:
            if self.h.random() < 0.4:
                self.dit("le carnet est rapporté")
                self.tiers.rapporte()
        elif quoi == "ecrit":
            refs = [ref for ref, r in self.livre.rdv.items()
                    if entier(r.ligne["NumPraticien"]) == self.vue.prat] or [0]
            vise = [self.ctx.rdv.ref] if self.ctx.rdv and self.h.random() < 0.7 else refs
            fauteuil = next(iter(self.ctx.grilles.values())).fauteuil
            self.dit("tiers : " + self.tiers.ecrit(vise, self.fixe.jour, self.vue.prat, fauteuil))
            self.livre, self.a_ecrit = Livre(self.lit()), True
            self.photos = [*self.photos, self.livre]
        elif quoi == "verrou":
            return self.tiers.verrou()
        elif quoi and self.etat.dessus == "FrmEntree":
            self.dit(f"le carnet est {quoi}")
            self.tiers.emporte(quoi == "tronque")
        return None

    def sous_verrou(self, lien):
        """The program answers all the while; then the lock goes."""
        self.duree = self.h.choice((0.2, 0.5, 1, 3, 8))
        self.dit(f"verrou de {self.duree} s")
        fin = time.monotonic() + self.duree
        try:
            attends(lambda: self.prog.etat() and time.monotonic() > fin, self.duree + 2, "le verrou")
        finally:
            lien.close()

    # ---- Looking

    def regarde(self):
        """Until everything agrees, or for PATIENCE: what stays wrong is a fault."""
        fin = time.monotonic() + PATIENCE
        while True:
            self.etat = self.prog.repos()
            faux = self.ecritures() or self.ecarts() or self.juge() or self.ouverte()
            if not faux:
                return
            if time.monotonic() > fin:
                raise Faute("\n".join(faux[:12]) + f"\nà l'écran : {self.etat.dessus} {self.etat.textes()}")
            time.sleep(0.02)

    def ecarts(self):
        etat, fermee = self.etat, self.etat.dessus == "FrmEntree"
        photos = self.photos if fermee else list(dict.fromkeys(self.anciennes + self.photos))
        panneau = etat.objet("StatusBar1_5", "FrmEntree")
        bulle, en_gras = panneau["toolTip"], "bold" in panneau["styleSheet"]
        lu = datetime.datetime.strptime(re.search(r"\d\d/.* à [\d:]+", bulle)[0], "%d/%m/%Y à %H:%M:%S")
        essais = []
        for vue in self.vues:
            for photo in photos:
                montre = Montre(vue, photo)
                ctx = Contexte(etat, montre)
                essais.append((montre.ecarts(etat, self.praticiens, lu) + ctx.ecarts(etat), vue, photo, ctx))
        faux, self.vue, vu, self.ctx = min(essais, key=lambda e: len(e[0]))
        if faux:
            return faux
        self.photos = photos[photos.index(vu):]
        if self.peut:  # two books that look the same: it is the newer one that was read
            self.ctx = [e for e in essais if not e[0]][-1][3]
        if not self.tiers.lisible:
            return ["la lecture manque, et la barre d'état ne le dit pas"] * (self.frais and not en_gras)
        if self.duree > LONG:
            return []
        age = self.maintenant() - lu
        if self.frais and fermee and (en_gras or age.total_seconds() > PATIENCE + 3 + self.duree):
            return [f"relu, mais la barre d'état dit : {bulle}"]
        return self.suite(self.avant, self.ctx) if self.suite else []

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
        cles = [x.cle() for x in pris]
        retour = fois == 2 and apres.cle in cles  # what was chosen before keeps its outline
        if faux := self.sur(apres, nom, r, c) * (not retour):
            return faux
        meme = avant.rdv and (avant.nom, avant.jour) == (nom, apres.jour) and avant.cle in cles
        if pris and not self.a_ecrit:
            rang = (cles.index(avant.cle) + 2 - fois) % len(pris) if meme else 0
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
        r2 = self.h.choice([x for x in self.en_vue(g) if abs(x - r) < 9])
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
            if maj or not avant.plage or avant.nom != foyer:
                return []
            r = avant.bas + 1 if dr > 0 else avant.haut + dr
            r, c = (min(max(x, 1), dernier) for x, dernier in
                    ((r, avant.grille.horaire.n), (avant.colonne + dc, len(avant.grille.colonnes))))
            return self.sur(apres, foyer, r, c)

        self.suite = suite

    def foyer(self):
        """The grid that has the keys, if one has."""
        return next((n for n in GRILLES if (self.etat.grille(n) or {}).get("focus")), None)

    def ouvrante(self, touche):
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
        if jours := (DECALE | {"Prior": -pas, "Next": pas}).get(nom):
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
                               (6, 4, 3, 3, 2))[0]
        titre = next((m for m in self.etat.actions if m["objectName"] == voulu and m["visible"]), None)
        if not titre:
            return self.clic()
        self.dit(f"menu {voulu}")
        self.prog.clic(centre(titre))
        attends(lambda: self.prog.etat().surgis, 3, f"le menu {voulu}")

    def menu_surgi(self):
        offerts = [a for a in self.etat.surgis if a["enabled"] and (
            a["objectName"] in (*OUVRE, *AUTRES) or a["menu"] in ("mnuPraticien", "menuFaut"))]
        if not offerts or self.h.random() < 0.1:
            self.dit("Échap dans le menu")
            return self.prog.frappe("Escape")
        action = self.h.choice(offerts)
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
        elif nom == "mnuPresent":
            self.promet("present", Present=not action["checked"])
            self.visees, self.peut = [r for r in [self.ctx.rdv] if r], True
        else:
            vue = self.apres(nom)
        self.prog.clic(centre(action))
        if vue:
            self.montre(vue)


def promene(binaires, graine, pas):
    dossier, p, depuis = tempfile.mkdtemp(prefix="promenade-"), None, time.monotonic()
    garde = os.path.abspath(f"build/promenade/{graine}")
    try:
        p = Promenade.__new__(Promenade)
        p.__init__(binaires, graine, dossier)
        p.marche(pas)
        print(f"graine {graine} : {pas} pas en {time.monotonic() - depuis:.0f} s ; dits : {sorted(p.textes)}")
        return 0
    except (Faute, Exception) as faute:
        shutil.rmtree(garde, ignore_errors=True)
        shutil.copytree(dossier + "/cabinet", garde)
        if p.prog:
            p.prog.ordre(f"image {garde}/ecran.png") if p.prog.processus.poll() is None else None
        print("\n".join([f"graine {graine}", *p.histoire, " ; ".join(getattr(p, "fait", []))]) + f"\n{faute}"
              + ("" if isinstance(faute, Faute) else "\n" + traceback.format_exc())
              + f"\nrejouer : ./run promenade {graine} {pas}  (cabinet et image dans {garde})", flush=True)
        return 1
    finally:
        if p.prog:
            p.prog.lien.close()
            p.prog.processus.wait(10)
        shutil.rmtree(dossier, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(promene(sys.argv[1], int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 200))
