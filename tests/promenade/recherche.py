"""The searches, the history and the purge, held against what is computed here from the files."""
import datetime
import os
from dataclasses import replace
from types import SimpleNamespace

import cabinet
from ecran import Faute, attends, centre
from fenetres import MESSAGES, norme
from oracle import (MOIS_COURTS, SEMAINE, Livre, Montre, Vue, dans, debuts_libres, entier, hhmm, lit_base,
                    lit_jour, minutes)

LANCE = {"mnurechercher": "FrmRecherche", "mnuRDVlibre": "FrmRDVlibre", "menuAllerHisto": None,
         "mnuImprimer": "FrmDateImpression", "mnuListAbs": "ListingAbsent"}
REPOS = "sur votre jour de repos"
DERNIER = 23 * 60 + 30  # the longest slot
JOURS_CHERCHES = 40  # the book is empty long before
DE_RECHERCHE = {
    "Cette date n'est pas valide": lambda p: any(p.etat.objet("DTPicker1", f) and not lit_jour(
        p.etat.texte("DTPicker1", f)) for f in p.etat.par_nom),
    REPOS: lambda p: p.libre.saute,
    "Tous les jours sont des jours de repos": lambda p: set(p.libre.config.grise) == {3},
    "La recherche n'est pas possible avec": lambda p: not p.libre.config.horaire().n,
    "Aucun horaire libre de": lambda p: not p.creneaux(),
    "n'est choisi dans le menu Fauteuil|n'a qu'un fauteuil :":
        lambda p: not any(g.horaire.n for g in p.ctx.grilles.values()),
    "n'est montré ni par la semaine ni par": lambda p: not p.vues_de(p.livre.rdv[p.vise]),
    "ne possède pas de numéro Belmor !\nActin": lambda p: 0 in p.numeros}


def en_lettres(jour):
    return f"{jour.day:02} {MOIS_COURTS[jour.month - 1]} {jour.year}"


class Recherches:
    """A part of the walk, which holds the state."""

    messages = MESSAGES | DE_RECHERCHE
    libre, trouves, vise, numeros, perdu = None, [], None, None, None

    # ---- From the main window

    def raccourci(self):
        touche, action = self.h.choice((("f", "mnurechercher"), ("l", "mnuRDVlibre"), ("p", "mnuImprimer")))
        self.lance(action)
        self.prog.frappe("Control_L", touche)

    def lance(self, action):
        self.dit(action)
        if LANCE[action]:
            self.suite = lambda *_: [f"{action} n'ouvre rien"] * (
                self.etat.dessus not in (LANCE[action], "QMessageBox"))
            return
        lignes = [x.ligne for x in self.livre.du_nom(*self.noms())]
        dernier = max((x["DateInv"] or "" for x in lignes), default="")
        self.numeros = {entier(x["NumPatient"]) for x in lignes if (x["DateInv"] or "") == dernier} or {0}

    def noms(self):
        """Of the patient who is selected."""
        return [self.ctx.rdv and self.ctx.rdv.ligne[champ] or "" for champ in ("Nom", "Prenom")]

    def transmis(self):
        return lit_base(self.chemin_histo)["Carnet"]

    def suit_historique(self):
        """A hand-off is over when something is said or the window is away; it is brought back then."""
        if self.numeros:
            fenetre = self.prog.x.create_resource_object("window", self.prog.fenetre)
            reduite = "réduite"
            fin = attends(lambda: self.prog.etat().dessus == "QMessageBox" and "dite"
                          or getattr(fenetre.get_wm_state(), "state", 0) == 3 and reduite, 8, "l'historique")
            carnet, connu = self.transmis(), self.histo
            if fin == reduite:
                connu = connu | {1: connu[1] | {"NumPatient": carnet[1]["NumPatient"]}}
                self.prog.ramene()
                if carnet[1]["NumPatient"] not in self.numeros - {0} or not self.tiers.lisible:
                    raise Faute(f"historique de {carnet[1]['NumPatient']} au lieu de {self.numeros}")
            if carnet != connu:
                raise Faute(f"historique : {carnet} au lieu de {connu}")
            self.histo = carnet

    def vues_de(self, rdv):
        """What shows this appointment, the nearest to what is shown first."""
        prat, place = entier(rdv.ligne["NumPraticien"]), entier(rdv.ligne["Fauteuil"])
        vues = [Vue(prat, rdv.jour, s, place) for s in (self.fixe.semaine, not self.fixe.semaine)]
        vues = [replace(self.fixe, jour=rdv.jour)] * (prat == self.fixe.prat) + vues
        return [v for v in vues if prat and any(
            x.ref == rdv.ref and g.horaire.n and g.horaire.visible(x)
            for g in Montre(v, self.livre).grilles.values() for _, liste in g.colonnes for x in liste)]

    def amene(self, ref):
        """This appointment is what must be selected, and in sight."""
        self.vise, rdv, self.frais = ref, self.livre.rdv.get(ref), True
        vues = self.vues_de(rdv) if rdv else []
        self.vues = vues[:1] or self.vues

        def suite(_, apres):
            if not vues:
                return [f"{ref} ne peut être montré, et rien n'est dit"] * (self.etat.dessus != "QMessageBox")
            la = apres.plage and apres.jour == rdv.jour and apres.cle == rdv.cle() and {
                *range(apres.haut, apres.bas + 1)} & {*self.en_vue(self.etat.grille(apres.nom))}
            return [f"{ref} n'est pas choisi en vue : {apres.contours} {apres.panneaux}"] * (not la)

        self.suite = suite

    # ---- Working the windows

    def dans_fenetre(self):
        travaille = {"FrmResultatRech": self.dans_resultat, "FrmRDVlibre": self.dans_libre}
        travaille.get(self.etat.dessus, super().dans_fenetre)()

    def promet_fenetre(self, nom, ligne):
        super().promet_fenetre(nom, ligne)
        if self.etat.dessus == "FrmRecherche" and (ligne or nom == "BtnOK"):
            def suite(*_):
                champs = [self.etat.texte(n, "FrmRecherche") for n in ("Text1", "Text2")]
                autres = ligne and champs != [c[0].strip() for c in ligne[:2]]
                return [f"cherché {champs}, ouvert {self.etat.dessus}"] * bool(
                    autres or self.etat.dessus not in ("FrmResultatRech", "QMessageBox"))
            self.suite = suite

    def bouton_de(self, noms, poids):
        nom = self.h.choices(noms, poids)[0]
        self.dit(f"{self.etat.dessus} : {nom}")
        if objet := self.etat.objet(nom):
            self.prog.clic(centre(objet))
        elif nom in ("Return", "Escape", "Down", "Up"):
            self.prog.frappe(nom)
        return nom

    def dans_resultat(self):
        grille, self.peut = self.etat.grille("Grille"), True
        lignes = self.en_vue(grille)
        nom = self.bouton_de(("ligne", "Return", "Down", "Up", "BtnOK", "BtnAnnuler", "Escape"),
                             (8 if lignes else 0, 4 if grille["focus"] else 0, 3, 1, 1, 2, 1))
        if nom == "ligne":
            r = self.h.choice(lignes)
            self.prog.clic(self.point(grille, r, 1), 1, 2)
        elif nom == "Return" and lignes:
            r = grille["selection"][0]
        else:
            return
        self.dit(f"ligne {r}")
        self.visees = [self.trouves[r]]
        self.amene(self.trouves[r].ref)

    def dans_libre(self):
        liste, libre, config = self.etat.grille("List1"), self.libre, self.libre.config
        lignes, jour = self.en_vue(liste), self.depart()
        nom = self.bouton_de(
            ("ligne", "Return", "BtnOK", "cmdJourSuivant", "Augmenter", "Diminuer", "date", "BtnAnnuler",
             "Escape"),
            (9 if lignes else 0, 5 if liste["focus"] and lignes else 0, 6, 4 if jour else 0, 6, 3, 3, 1, 1))
        libre.saute, libre.revient = False, False
        if nom in ("Augmenter", "Diminuer"):
            d, pas = libre.duree, config.pas
            plus, moins = d + pas <= DERNIER, d != 30 and d - pas >= pas
            libre.duree += pas * plus if nom == "Augmenter" else -pas * moins
        elif nom in ("date", "cmdJourSuivant"):
            if nom == "date":
                self.tape(self.etat.objet("DTPicker1"))
                voulu = lit_jour(self.fait[-1].strip("« »")) if self.suite else None
            else:
                voulu = jour + datetime.timedelta(1)
                libre.cherche = set(config.grise) != {3}
            if voulu:
                self.commence_le(voulu)
        elif nom == "BtnOK":
            libre.cherche = bool(jour)
        elif nom in ("ligne", "Return"):
            r = self.h.choice(lignes) if nom == "ligne" else liste["selection"][0]
            self.choisit(r, liste["cellules"][r][0][0])
            if nom == "ligne":
                self.prog.clic(self.point(liste, r, 0), loin=9999)

    def commence_le(self, voulu):
        libre, jour, grise = self.libre, voulu, self.libre.config.grise
        while grise[jour.weekday()] == 3 and set(grise) != {3}:
            jour += datetime.timedelta(1)
        libre.saute = jour != voulu
        self.suite = lambda *_: [f"recherche du {self.depart()}, pas du {jour}"] * (
            self.depart() != jour or libre.saute and self.etat.dessus != "QMessageBox")

    def depart(self):
        return lit_jour(self.etat.texte("DTPicker1", "FrmRDVlibre"))

    def choisit(self, r, texte):
        """The slot of this row is shown and outlined; the add window carries it."""
        self.dit(texte)
        jour, debut = datetime.datetime.strptime(texte[17:27], "%d/%m/%Y").date(), minutes(texte[-8:])
        fin = min(debut + self.libre.duree, 1439)
        self.libre.place, self.libre.revient = (jour, debut, fin), True
        self.montre(replace(self.fixe, jour=jour))

        def suite(_, apres):
            config, faux = self.libre.config if self.libre else None, []
            if self.etat.dessus == "QMessageBox":
                return []
            if self.etat.dessus != "FrmAjouter":
                return [f"créneau choisi, ouvert {self.etat.dessus}"]
            for nom, g in apres.grilles.items():
                h, c = g.horaire, next((c for c, (j, _) in enumerate(g.colonnes, 1) if j == jour), 0)
                dedans = c and h.n and h.debut <= debut and fin <= h.heure(h.n + 1)
                if dedans and g.fauteuil == config.fauteuil:
                    haut, bas = (debut - h.debut) // h.pas + 1, -((h.debut - fin) // h.pas)
                    pris = dans(g.colonnes[c - 1][1], h.heure(haut), h.heure(bas + 1))
                    voulu = [] if pris else [(nom, haut, bas, c, c)]
                    en_vue = pris or {*range(haut, bas + 1)} & {*self.en_vue(self.etat.grille(nom))}
                    faux = [f"créneau {texte} : {apres.contours}, pas {voulu}"] * (
                        apres.contours != voulu or not en_vue)
                    break
            return faux or [f"créneau {texte}, date {apres.date}"] * (apres.date != jour)

        self.suite = suite

    # ---- What they show

    def ouverte(self):
        etat, libre, ctx = self.etat, self.libre, self.ctx
        faux = self.resultats() + (self.liste() if libre else [])
        if faux:
            return faux
        if "FrmRDVlibre" not in etat.par_nom:
            self.libre = None
        if etat.dessus == "FrmRecherche" and self.dessus == "FrmEntree":
            qui = self.noms()
            champs = [etat.texte(n) for n in ("Text1", "Text2")]
            juste = champs == qui and lit_jour(etat.texte("DTPicker1")) == cabinet.MAINTENANT.date()
            return [f"FrmRecherche : {champs} au lieu de {qui}"] * (not juste)
        if etat.dessus == "FrmRDVlibre" and self.dessus == "FrmEntree":
            config = (ctx.grille or next(iter(ctx.grilles.values()))).config
            duree = config.pas if 0 <= config.pas <= DERNIER else 0
            self.libre = SimpleNamespace(config=config, duree=duree, montres=[[]], cherche=False, saute=False,
                                         revient=False, ajoute=False, refuse=False, ecrit=False)
            return self.liste() or [f"départ {self.depart()}"] * (self.depart() != cabinet.MAINTENANT.date())
        if etat.dessus == "FrmAjouter" and self.dessus == "FrmRDVlibre":
            jour, debut, fin = libre.place
            self.lieu, self.visees = libre.config, []
            self.classe = libre.config.classe(jour.weekday(), debut, fin)
            champs = [etat.texte(n) for n in ("TextHeureDebut", "TextHeureFin")] + [
                lit_jour(etat.texte("DTPicker1"))]
            return [f"FrmAjouter : {champs}, pas {libre.place}"] * (champs != [hhmm(debut), hhmm(fin), jour])
        return super().ouverte()

    def resultats(self):
        etat = self.etat
        if etat.dessus != "FrmResultatRech":
            return []
        nom, prenom, depuis = (etat.texte(n, "FrmRecherche") for n in ("Text1", "Text2", "DTPicker1"))
        jour = lit_jour(depuis)
        if self.dessus == "FrmRecherche":
            siens = [x for x in self.livre.du_nom(nom, prenom) if x.ligne["Date1"] and x.jour >= jour]
            self.trouves = sorted((x for x in siens if x.ligne["Professionnel"]), key=lambda x: (
                x.jour, (x.ligne["HeureDebut"] or "")[-8:], x.ref))
            self.perdu = len(siens) - len(self.trouves)
        voulu = [[SEMAINE[x.jour.weekday()], en_lettres(x.jour), *("" if m is None else hhmm(m)
                  for m in (x.debut, x.fin))] for x in self.trouves]
        vu = [[c[0] for c in ligne] for ligne in etat.grille("Grille")["cellules"]]
        gris, jamais = etat.texte("LblHorsHoraires"), etat.texte("LblAucun")
        juste = (vu == voulu and [etat.texte("Label3"), etat.texte("Label4")] == [nom, prenom]
                 and gris[:gris.find(" ")] == (str(self.perdu) if self.perdu else "")
                 and bool(jamais) != bool(voulu) and (en_lettres(jour) in jamais or bool(voulu)))
        return [f"trouvé {vu} {gris} {jamais}\nau lieu de {voulu}, {self.perdu}"] * (not juste)

    def creneaux(self):
        """The entries of the first day that has one, from the day that the window says."""
        config, ici = self.libre.config, (self.fixe.prat, self.libre.config.fauteuil)
        pas = next((c.pas for prat, c in self.livre.configs if (prat, c.fauteuil) == ici), 0)
        for n in range(JOURS_CHERCHES if pas > 0 and config.horaire().n else 0):
            jour = self.depart() + datetime.timedelta(n)
            pris = self.livre.jour(jour, self.fixe.prat, config.fauteuil)
            if libres := debuts_libres(config, pas, jour, self.libre.duree, pris):
                return [f"Horaire Libre le {jour:%d/%m/%Y} à {hhmm(t)}:00" for t in libres]
        return []

    def liste(self):
        etat, libre = self.etat, self.libre
        dit = etat.texte("qt_msgbox_label") if etat.dessus == "QMessageBox" else ""
        if "FrmAjouter" in etat.par_nom:
            libre.ajoute, libre.refuse = True, libre.refuse or "'est pas libre" in dit or "s'y trouve" in dit
            return []
        if "FrmRDVlibre" not in etat.par_nom:
            return ["la recherche s'est fermée sur un refus"] * (libre.refuse and not libre.ecrit)
        if libre.ajoute and (libre.ecrit or not libre.refuse):
            return ["la recherche reste"] * (not dit)
        if etat.texte("Label3", "FrmRDVlibre").startswith("Recherche en cours"):
            return ["cherche toujours"]
        if libre.ajoute or libre.cherche and REPOS not in dit:
            if self.depart():
                libre.montres = [self.creneaux()] if self.tiers.lisible else [[]]
                libre.montres += [[]] * (self.duree > 1)
            libre.cherche = libre.ajoute = libre.refuse = False
        elif libre.revient and not dit and self.depart():  # the chair may have gone, and the list is made anew
            libre.montres += [self.creneaux()] if self.tiers.lisible else [[]]
        montre = [ligne[0][0] for ligne in etat.grille("List1", "FrmRDVlibre")["cellules"]]
        if montre not in libre.montres or etat.texte("TextDuree", "FrmRDVlibre") != hhmm(libre.duree):
            return [f"liste {montre}\nau lieu de {libre.montres}\nde {hhmm(libre.duree)} {libre.config}"]
        cache = montre and not libre.config.affich[lit_jour(montre[0][17:27]).weekday()]
        return [f"jour caché : {cache}, et la ligne ne convient pas"] * (
            bool(cache) != ("La semaine n'affiche pas" in etat.texte("Label3", "FrmRDVlibre")))

    def ecritures(self):
        avant = self.livre
        faux = super().ecritures()
        if self.libre and self.livre is not avant:
            self.libre.ecrit = True
            self.amene(self.dernier)
        return faux

    # ---- The purge

    def purge(self):
        """The last step: what has gone is in the archive, and nothing else has changed."""
        if not self.tiers.lisible:
            self.tiers.rapporte()
        while (etat := self.prog.repos()).dessus != "FrmEntree" or etat.surgis:
            self.prog.frappe("Escape")
        if not etat.action("mnuPurger")["enabled"]:
            return self.prog.finit()
        jour = cabinet.MAINTENANT.date() + datetime.timedelta(self.h.randrange(-5, 12))
        self.commence(f"purge jusqu'au {jour}")
        self.prog.clic(centre(etat.action("menuOptions")))
        self.prog.clic(centre(self.attend(lambda e: e.surgis and e.action("mnuPurger"))))
        etat = self.attend(lambda e: e.dessus == "FrmPurger" and e)
        if self.praticiens.get(self.vue.prat, "praticien") not in etat.texte("LabelPraticien"):
            raise Faute(etat.texte("LabelPraticien"))
        self.prog.clic(centre(etat.objet("DateFinPurge")))
        self.prog.tape(f"{jour:%d/%m/%Y}")
        self.dit("tiers : " + self.tiers.ecrit(self.vue.prat, list(self.livre.rdv), jour))
        avant = Livre(self.lit())
        self.prog.clic(centre(etat.objet("Command1")))
        for nom in ("Tavelin", "archive 1"):
            self.attend(lambda e: e.dessus == "QFileDialog")
            self.prog.tape(nom)
            self.prog.frappe("Return")
            if nom == "Tavelin":
                etat = self.attend(lambda e: e.dessus == "QMessageBox" and e)
                if "existe déjà, veuillez" not in etat.texte("qt_msgbox_label"):
                    raise Faute(etat.texte("qt_msgbox_label"))
                self.prog.frappe("Return")
        etat = self.attend(lambda e: e.dessus in ("FrmQuit", "QMessageBox") and e)
        if etat.dessus != "FrmQuit":
            raise Faute(etat.texte("qt_msgbox_label"))
        self.compte(avant, jour)
        self.prog.clic(centre(etat.objet("Command1")))
        self.prog.finit()

    def attend(self, condition):
        return attends(lambda: condition(self.prog.repos()), 10, "la purge")

    def compte(self, avant, jour):
        partis = avant.avant(jour, self.vue.prat)
        archive = lit_base(self.bases + "archive 1.mdb")["RDV"].values()
        voulu = {ref: norme(x.ligne | {"Fauteuil": 0}) for ref, x in avant.rdv.items() if ref in partis}
        lu = {ligne["RefRDV"]: norme(ligne | {"Fauteuil": 0}) for ligne in archive}
        apres, reste = self.lit(), {r: x.ligne for r, x in avant.rdv.items() if r not in partis}
        if lu != voulu or len(archive) != len(lu) or apres != avant.tables | {"RDV": reste}:
            raise Faute(f"purge : {len(lu)} archivés au lieu de {len(voulu)}, {len(apres['RDV'])} restés au "
                        f"lieu de {len(reste)} ; {[*{*lu} ^ {*voulu}][:9]} {[*{*apres['RDV']} ^ {*reste}][:9]}")
