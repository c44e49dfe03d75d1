"""The windows that the main window opens: worked at random, their texts judged, and what they write."""
import datetime
import re

import cabinet
from ecran import Faute, centre
from oracle import Livre, entier, hhmm, lit_base, lit_heure, lit_jour, minutes, propre

HEURES = ("9h30", "930", "0930", "9:30", "10:05", "17:45", "18:15", "8h", "25:00", "abc", "")
TEXTES = [n.lower().replace("ç", "c") for n in cabinet.NOMS] + ["", " ", "du", "17", "é'"]
POIDS = {"BtnAjouter": 14, "BtnMettreAJour": 14, "BtnAnnuler": 4, "BtnOK": 6, "BtnInit": 2, "Text1": 6, "Text2": 3, "Text3": 1, "Text4": 3, "TxtPatient": 9, "DTPicker1": 3, "Augmenter": 1,
         "TextHeureDebut": 2, "TextHeureFin": 2, "Diminuer": 1, "Grille1": 9, "Tab": 2, "Return": 4, "Escape": 1}
VALIDE = {"BtnAjouter", "BtnMettreAJour", "BtnOK", "Return"}
SAISIE = ("FrmAjouter", "FrmEditer")
MESSAGES = {  # what may be said, and when
    "est occupé par un autre programme": lambda p: p.duree > 1,
    "est endommagé|est introuvable|pas une base": lambda p: not p.tiers.lisible,
    "a été modifié sur un autre poste": lambda p: any(
        x and p.livre.tables["RDV"].get(x.ref, x.ligne) != x.ligne for x in (*p.visees, p.avant.rdv)),
    "Ce rendez-vous n'existe": lambda p: any(x and x.ref not in p.livre.rdv
                                             for x in (*p.visees, p.avant.rdv)),
    "obligatoirement entrer un Nom": lambda p: not p.promesse["champs"]["Nom"],
    "Cette heure n'est pas valide": lambda p: None in p.promesse["heures"],
    "L'heure de fin doit venir": lambda p: p.promesse["heures"][0] >= p.promesse["heures"][1],
    "Cette date n'est pas valide": lambda p: not p.promesse["jour"],
    "n'est pas libre|s'y trouve déjà": lambda p: (
        p.genes(True) if p.promesse else p.a_ecrit or p.avant.montre.configs != [
            c for prat, c in p.livre.configs if prat == p.vue.prat]),  # the slots are others since
    "n'a plus de configuration pour ce fauteuil": lambda p: not p.etat.action("mnuAjouter")["enabled"],
    "plusieurs colonnes": lambda p: "glisse" in " ".join(p.fait),
    "est enregistré au .* n'est pas dans ce qui est affiché": lambda p: not p.montree(p.dernier),
    "inscrit comme n'honorant pas": lambda p: (
        p.promesse["champs"]["Nom"], "O") in [(propre(x["nom"]), x["RDVNonHonoré"])
                                              for x in p.patients.values()]}


def norme(ligne):
    """What a row means, whatever the way in which it is stored."""
    return ligne and {
        n: propre(ligne[n]) for n in ("Nom", "Prenom", "Telephone", "Description", "DateInv")} | {
        n: entier(ligne[n]) for n in ("NumPatient", "NumPraticien", "Fauteuil")} | {
        n: bool(ligne[n]) for n in ("Present", "Professionnel")} | {
        n: minutes(ligne[n]) for n in ("HeureDebut", "HeureFin")} | {"Date1": propre(ligne["Date1"])[:10]}


class Fenetres:
    """A part of the walk, which holds the state."""

    # ---- Working them

    def dans_fenetre(self):
        etat, dessus = self.etat, self.etat.dessus
        if dessus == "QMessageBox":
            bouton = self.h.choice([o for o in etat.objets() if o["classe"] == "QPushButton"])
            self.dit(f"boîte : {bouton['text']}")
            self.peut = True  # what it told of may be drawn now
            return self.prog.clic(centre(bouton))
        if dessus == "FrmInsolite":
            return self.dans_question()
        grilles = [g for g in etat.par_nom[dessus]["grilles"].values() if self.en_vue(g)]
        touches = [{"objectName": t, "classe": "touche"} for t in ("Tab", "Return", "Escape")
                   if dessus in SAISIE]
        choix = [(o, POIDS.get(o["objectName"]) or bool(re.match("Option|Check", o["objectName"])))
                 for o in etat.objets() + grilles + touches if o.get("enabled", True)]
        objet = self.h.choices(*zip(*choix))[0]
        nom, ligne = objet["objectName"], None
        foyer = next((o["objectName"] for o in etat.objets() + grilles if o["focus"]), None)
        if "cellules" in objet:
            r = self.h.choice(self.en_vue(objet))
            ligne = objet["cellules"][r] if nom == "Grille1" else None
        elif nom == "Return" and foyer in ("TxtPatient", "Grille1"):
            liste = etat.grille("Grille1", dessus)
            ligne = liste["cellules"][liste["selection"][0]] if liste["selection"] else None
        self.dit(f"{dessus} : {nom} {[c[0] for c in ligne or []]}")
        self.promet_fenetre(nom, ligne)
        if "cellules" in objet:
            self.prog.clic(self.point(objet, r, 1 if ligne is None else 0), loin=9999)  # no second click
        elif objet["classe"] == "touche":
            self.prog.frappe(nom)
        elif objet["classe"] in ("QLineEdit", "ChampDate"):
            self.tape(objet)
        else:
            self.prog.clic(centre(objet))

    def tape(self, champ):
        nom, texte, jour = champ["objectName"], self.h.choice(TEXTES), None
        if nom == "DTPicker1":
            jour = self.vue.jour + datetime.timedelta(self.h.randrange(-3, 9))
            texte = self.h.choice((f"{jour:%d/%m/%Y}", f"{jour:%d%m%Y}", f"{jour.day}/{jour.month}/{jour:%y}",
                                   "31/02"))
        elif nom.startswith("TextHeure"):
            texte = self.h.choice(HEURES)
        self.dit(f"« {texte} »")
        x, y, _, haut = champ["cadre"]
        self.prog.clic((x + 20, y + haut // 2))
        self.prog.frappe("Control_L", "a")
        self.prog.frappe("Delete")
        self.prog.tape(texte)
        if nom == "TxtPatient":
            for _ in range(self.h.choice((0, 0, 1, 2, 3))):
                self.prog.frappe(self.h.choice(("Down", "Down", "m")) if "Down" in self.fait else "Down")
                self.dit("Down")
            self.suite = self.surligne
        if nom in ("Text1", "Text2") and self.etat.dessus in SAISIE and texte.strip():
            self.suite = lambda *_: ["un autre nom garde le numéro " + self.etat.texte("txtNumPatient")] * (
                entier(self.etat.texte("txtNumPatient")) != 0)
        if nom == "DTPicker1" and texte != "31/02":
            self.prog.frappe("Tab")
            self.suite = lambda *_: ["mal compris"] * (lit_jour(self.etat.texte("DTPicker1")) != jour)

    def surligne(self, *_):
        liste, textes = self.etat.grille("Grille1", self.etat.dessus), self.etat.textes()
        if not liste or self.etat.dessus not in SAISIE:
            return []
        if not liste["selection"]:
            return ["une liste, et personne de choisi"] * bool(liste["cellules"])
        ligne = [propre(c[0]) for c in liste["cellules"][liste["selection"][0]]][:3]
        montre = [textes[n] for n in ("Text1", "Text2", "txtNumPatient")]
        return [] if montre == ligne else [f"patient surligné {ligne}, champs {montre}"]

    # ---- What may come of it

    def promet(self, quoi, veut=True, **champs):
        self.promesse = {"quoi": quoi, "veut": veut, "champs": champs, "heures": (0, 1), "jour": True}

    def promet_fenetre(self, nom, ligne):
        """Nothing may be written but what the fields say, with the patient picked; settings only by OK."""
        dessus, t = self.etat.dessus, self.etat.textes()
        self.peut = True
        if dessus == "FrmSupprimer":
            self.promet("supprime", nom == "BtnOK")
        elif dessus == "FrmQuelHoraire":
            self.classe = int(self.etat.objet("Option1")["checked"])
        elif dessus in SAISIE:
            jour = lit_jour(t["DTPicker1"])
            heures = lit_heure(t["TextHeureDebut"]), lit_heure(t["TextHeureFin"])
            qui = [propre(c[0]) for c in ligne[:3]] if ligne else [t["Text1"], t["Text2"], t["txtNumPatient"]]
            ajoute = dessus == "FrmAjouter"
            self.promet("ajoute" if ajoute else "edite", nom in VALIDE - {"Return"} or bool(ligne and ajoute),
                        Nom=qui[0], Prenom=qui[1], NumPatient=entier(qui[2]), Telephone=t["Text3"],
                        Description=t["Text4"], Date1=str(jour), DateInv=str(jour).replace("-", ""),
                        HeureDebut=heures[0], HeureFin=heures[1])
            self.promesse |= {"heures": heures, "jour": jour}

    def ouverte(self):
        """A window that has just opened: what it is about, and whether its fields say so."""
        ctx, etat = self.ctx, self.etat
        if self.dessus == etat.dessus or self.dessus in ("QMessageBox", "FrmInsolite") or not ctx.plage:
            return []
        t, x, voulu = etat.textes(), ctx.rdv, {}
        if etat.dessus == "FrmAjouter":
            self.lieu, self.visees = ctx.grille.config, []
            if self.dessus != "FrmQuelHoraire":
                self.classe = ctx.grille.config.classe(ctx.jour.weekday(), *ctx.plage)
            voulu = {"TextHeureDebut": hhmm(ctx.plage[0]), "TextHeureFin": hhmm(min(ctx.plage[1], 1439))}
        elif etat.dessus in ("FrmEditer", "FrmSupprimer"):
            self.lieu, self.visees = ctx.grille.config, [r for r in ctx.dessous if r.cle() == ctx.cle]
            voulu = {"Label3": x.nom, "Label4": x.prenom, "Label13": hhmm(x.debut), "Label15": hhmm(x.fin)}
        if etat.dessus == "FrmEditer":
            voulu = {"Text1": x.nom, "Text2": x.prenom, "Text3": propre(x.ligne["Telephone"]),
                     "Text4": x.desc.strip(), "txtNumPatient": str(x.ligne["NumPatient"]),
                     "TextHeureDebut": hhmm(x.debut),
                     "TextHeureFin": hhmm(x.fin)}
        faux = [f"{etat.dessus}.{n} : « {t[n]} » au lieu de « {v} »" for n, v in voulu.items() if t[n] != v]
        jour = t.get("DTPicker1" if etat.dessus in SAISIE else "Label17")
        return faux or [f"{etat.dessus} : {jour}, pas {ctx.jour}"] * bool(
            voulu and lit_jour(jour) != ctx.jour)

    def juge(self):
        """A message must be one that the situation calls for."""
        texte = self.etat.texte("qt_msgbox_label") if self.etat.dessus == "QMessageBox" else None
        if not texte or texte == self.boite:
            return []
        self.boite, connu = texte, next((m for m in self.messages if re.search(m, texte)), None)
        self.textes.add(connu)
        if not connu or not self.messages[connu](self):
            raise Faute(f"message hors de propos : {texte}\npromesse {self.promesse}"
                        f"\nvu {[x.ligne for x in self.visees]}")
        if "modifié" in connu:
            self.visees = [self.livre.rdv[x.ref] for x in self.visees if x.ref in self.livre.rdv]
        return []

    # ---- What is written

    def ecritures(self):
        """The rows that the program has changed since the last look, and whether it was asked to."""
        if not self.tiers.lisible:
            return []
        neuf, connu = self.lit(), self.livre.tables
        if neuf == connu:
            return self.sans_ecrire()
        lignes = [(connu["RDV"].get(ref), neuf["RDV"].get(ref), ref) for ref in {*connu["RDV"], *neuf["RDV"]}
                  if connu["RDV"].get(ref) != neuf["RDV"].get(ref)]
        de_cote = self.promesse and self.promesse["quoi"] in ("de_cote", "retire")
        if len(lignes) != (not de_cote) or not self.promesse or neuf["Config"] != connu["Config"]:
            raise Faute(f"écrit sans qu'on l'ait demandé : {lignes}, {self.promesse}")
        self.verifie_notes(connu["TavReplacer"], neuf["TavReplacer"])
        if de_cote:
            self.fois[self.promesse["quoi"]] += 1
            self.livre, self.promesse = Livre(neuf), None
            self.photos = self.anciennes = [self.livre]
            return []
        ancienne, nouvelle, ref = lignes[0]
        faux = self.ecriture_fausse(ref, ancienne, nouvelle)
        if faux or lit_base(self.bases + "Patient.mdb")["TabPat"] != self.patients:
            raise Faute(f"{faux or 'fiche changée'}\nécrit {nouvelle}\nétait {ancienne}"
                        f"\ndemandé {self.promesse}"
                        f"\nvu {[x.ligne for x in self.visees]}, {self.lieu}, classe {self.classe}")
        self.livre, self.promesse, self.dernier = Livre(neuf), None, ref
        self.photos = self.anciennes = [self.livre]
        if nouvelle:
            self.suite = lambda _, apres: [f"{ref} écrit, {apres.panneaux} choisi"] * bool(
                apres.rdv and apres.rdv.ref != ref and apres.rdv.cle() != self.livre.rdv[ref].cle())
        return []

    def ecriture_fausse(self, ref, ancienne, nouvelle):
        quoi, champs = self.promesse["quoi"], self.promesse["champs"]
        avant, apres = norme(ancienne), norme(nouvelle)
        vu = {x.ref: norme(x.ligne) for x in self.visees}.get(ref)
        if quoi == "ajoute":
            avant = {"NumPraticien": self.vue.prat, "Fauteuil": self.lieu.fauteuil, "Present": False,
                     "Professionnel": bool(self.classe)}
            if not champs["Description"] and apres and apres["Description"] == "Couronne ( )":
                champs["Description"] = "Couronne ( )"  # what the suite's patient is to have done
        elif not ancienne or not vu or \
                vu | {"Present": (vu if quoi == "supprime" else avant)["Present"]} != avant:
            return "une autre ligne, ou une ligne changée depuis qu'elle a été vue"
        if apres != (None if quoi == "supprime" else avant | champs) or (quoi == "ajoute") != (not ancienne):
            return "autre chose que ce qui était demandé"
        if quoi in ("ajoute", "edite", "duree") and self.genes(False, ref):
            return f"par-dessus {self.genes(False, ref)}"
        fiche = apres and self.patients.get(apres["NumPatient"])
        if fiche and (propre(fiche["nom"]), propre(fiche["PreNom"])) != (apres["Nom"], apres["Prenom"]):
            noms = ("Nom", "Prenom", "NumPatient")
            if quoi == "ajoute" or [avant[n] for n in noms] != [apres[n] for n in noms]:
                return f"le numéro de {fiche}"
        return None

    def genes(self, illisibles, ref=0):
        """What lies in the way of the fields' hours; on demand also what no grid shows: seconds at the end, and
        rows of which one hour cannot be read."""
        (debut, fin), refs = self.promesse["heures"], [x.ref for x in self.visees] + [ref]
        places = self.promesse.get("places") or {
            self.lieu.fauteuil, *(entier(x.ligne["Fauteuil"]) for x in self.visees)}
        return [r.ligne for place in places
                for r in self.livre.jour(self.promesse["jour"], self.vue.prat, place) if r.ref not in refs
                and (r.debut < fin and debut < r.fin + illisibles if r.dessine else illisibles)]

    def sans_ecrire(self):
        """Nothing written although the user asked for it: he was told, or there was nothing to write."""
        promesse = self.promesse
        if not promesse or not promesse["veut"] or promesse.get("dit"):
            return []
        if self.etat.dessus in ("QMessageBox", "FrmInsolite"):
            promesse["dit"] = True
            return []
        lignes = [norme(self.livre.tables["RDV"].get(x.ref)) for x in self.visees]
        pareil = any(x and x | promesse["champs"] == x for x in lignes)
        return [f"{promesse['quoi']} : rien n'est écrit et rien n'est dit"] * (
            not pareil or promesse["quoi"] not in ("edite", "present"))
