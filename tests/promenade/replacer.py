"""The pinboard: what it has to list is computed here from its table and the rows of the book; setting aside, placing."""
import datetime
from types import SimpleNamespace

from ecran import Faute
from fenetres import norme
from oracle import MOIS_COURTS, SEMAINE, entier, hhmm, minutes

LISTE = "ListeReplacer"
PERDU = {"deplace": "déplacé depuis : ", "disparu": "ce rendez-vous n'existe plus"}
DU_VOLET = {
    " : (déplacé depuis : .*|ce rendez-vous n'existe plus)\\.$": lambda p: p.note and p.note.etat in PERDU,
    "Aucun rendez-vous n'est à replacer": lambda p: not p.note}


def lieu(jour, debut):
    return f"{SEMAINE[jour.weekday()][:3]}. {jour.day} {MOIS_COURTS[jour.month - 1]} {debut[:5]}"


class Note:
    """One that was set aside, and what has become of it."""

    def __init__(self, ligne, livre):
        self.ligne, self.ref, self.rdv = ligne, ligne["RefRDV"], livre.rdv.get(ligne["RefRDV"])
        note, pose = ([ligne[c] for c in champs] for champs in (("Jour", "HeureDebut", "Fauteuil"),
                                                                ("JourPose", "DebutPose", "FauteuilPose")))
        x = self.rdv and self.rdv.ligne
        if x and x["Nom"] != ligne["Nom"] and str(x["NumPatient"]) != ligne["NumPatient"]:
            x = self.rdv = None  # its key is another patient's
        la = x and [str(self.rdv.jour), (x["HeureDebut"] or "")[-8:], entier(x["Fauteuil"])]
        self.etat = "disparu" if not x else "pose" if la == pose else "attend" if la == note else "deplace"

    def texte(self, lu):
        n, x = self.ligne, (self.rdv or self).ligne
        attente = max(int((lu - datetime.datetime.fromisoformat(n["Depuis"])).total_seconds()) // 60, 0)
        dit = PERDU.get(self.etat, f"en attente depuis {attente} minute{'s' * (attente > 1)}")
        if self.etat == "deplace":
            dit += lieu(self.rdv.jour, (x["HeureDebut"] or "")[-8:])
        ou = lieu(datetime.date.fromisoformat(n["Jour"]), n["HeureDebut"])
        duree = minutes(n["HeureFin"]) - minutes(n["HeureDebut"])
        return "\n".join((" ".join(f"{x['Nom'] or ''} {x['Prenom'] or ''}".split()), f"{ou} · {duree} min", dit))


def notes(livre, prat):
    """Those that are listed, the longest waiting first."""
    toutes = [Note(n, livre) for n in livre.tables["TavReplacer"].values() if n["NumPraticien"] == prat]
    return sorted((n for n in toutes if n.etat != "pose"), key=lambda n: n.ligne["Depuis"])


def ecarts_volet(etat, ctx, lu):
    """What the pinboard shows wrongly, having read at `lu`; it is there where it has something."""
    montre, volet = ctx.montre, etat.grille(LISTE)
    listees = notes(montre.livre, montre.vue.prat)
    attend = ctx.rdv and any(n.ref == ctx.rdv.ref and n.etat == "attend" for n in listees)
    dits = [("À replacer", [c[0][0] for c in volet["cellules"]] if volet else [], [n.texte(lu) for n in listees]),
            ("mettre de côté", etat.action("mnuMettreDeCote")["enabled"], bool(ctx.rdv and not attend)),
            ("replacer", etat.action("mnuPoser")["enabled"],
             bool(etat.action("mnuAjouter")["enabled"] and ctx.contours and listees))]
    return [f"{quoi} : {vu} au lieu de {voulu}" for quoi, vu, voulu in dits if vu != voulu]


class Replacer:
    """A part of the walk, which holds the state."""

    note = None  # the one that is placed

    def choisie(self):
        """The one that is chosen in the list."""
        volet = self.etat.grille(LISTE)
        return volet and volet["selection"] and self.notes_vues()[volet["selection"][0]]

    def notes_vues(self):
        return notes(self.ctx.montre.livre, self.vue.prat)

    def replacer(self):
        volet = self.etat.grille(LISTE)
        la = volet and not self.a_ecrit and self.tiers.lisible and self.en_vue(volet)
        gestes = {self.de_cote: 4 if self.ctx.rdv else 0.1, self.clic: 1} | ({
            self.pose: 8 if self.etat.action("mnuPoser")["enabled"] else 1,
            self.du_volet: 6, self.reprend: 6, self.va_voir: 2, self.retire: 1} if la else {})
        self.h.choices([*gestes], [*gestes.values()])[0]()

    def entree(self):
        """An entry of the list, and a point on it."""
        volet = self.etat.grille(LISTE)
        r = self.h.choice(self.en_vue(volet))
        self.dit(f"À replacer, {r}")
        return Note(self.notes_vues()[r].ligne, self.livre), self.point(volet, r, 0)

    def de_cote(self):
        self.dit("Ctrl+X")
        self.met_de_cote(self.ctx.rdv)
        self.prog.frappe("Control_L", "x")

    def met_de_cote(self, rdv):
        """It stays in the book as it is."""
        if rdv:
            pareil = self.livre.rdv.get(rdv.ref) and self.livre.rdv[rdv.ref].ligne == rdv.ligne
            attend = any(n.ref == rdv.ref and n.etat == "attend" for n in self.notes_vues())
            self.promet("de_cote", pareil and not attend)  # another desk's change may be shown by then
            self.visees, self.peut = [rdv], True

    def pose(self):
        """The one that is chosen, else the first that waits, goes where the selection is."""
        self.dit("Ctrl+V")
        choisie, toutes = self.choisie(), notes(self.livre, self.vue.prat)
        self.note = next((n for n in toutes if choisie and n.ref == choisie.ref), None) or next(
            (n for n in toutes if n.etat == "attend"), None)
        if self.etat.action("mnuPoser")["enabled"]:
            self.peut, x = True, self.note and self.note.rdv
            if x and self.note.etat == "attend":
                debut = self.ctx.plage[0]
                self.promet_pose(self.ctx.grille, x, self.ctx.jour, debut, min(debut + x.fin - x.debut, 1439))
            else:
                self.promet("rien")
        self.prog.frappe("Control_L", "v")

    def promet_pose(self, grille, rdv, jour, debut, fin):
        self.visees, self.lieu = [rdv], grille.config
        self.promet_depot(grille, rdv, jour, debut, fin, False)
        self.promesse["places"] = {grille.fauteuil}
        if grille.fauteuil != entier(rdv.ligne["Fauteuil"]):
            self.promesse["champs"]["Fauteuil"] = grille.fauteuil
        self.note_pose(rdv, jour, debut, grille.fauteuil)
        self.fois["replacés"] += 1

    def note_pose(self, rdv, jour, debut, fauteuil):
        """Lengthened where it is, it goes on waiting."""
        if (jour, debut, fauteuil) != (rdv.jour, rdv.debut, entier(rdv.ligne["Fauteuil"])):
            self.promesse["pose"] = str(jour), hhmm(debut), fauteuil

    def du_volet(self):
        """Dragged off the list, held at its start."""
        (note, de), (nom, r, c, vers), x = self.entree(), self.case(), None
        g, grille = self.etat.grille(nom), self.ctx.grilles[nom]
        horaire, slot = grille.horaire, 1 <= r <= grille.horaire.n and 1 <= c <= len(grille.colonnes)
        if note.etat == "attend" and slot and self.du_fauteuil(grille):
            vers = vers[0], vers[1] + g["lignes"][r][1] * self.h.choice((-1, 1)) // 4
            x, bouge = note.rdv, self.minute(g, horaire, vers[1], r) - note.rdv.debut
            jour, (debut, fin) = grille.colonnes[c - 1][0], self.depot(horaire, x, False, bouge, False)
        self.dit(f"à {nom} ({r},{c})")
        self.peut = True
        sienne = x and entier(x.ligne["Fauteuil"]) == grille.fauteuil
        if x and debut < fin <= 1439 and (sienne or self.a_lui(grille)) and (
                not sienne or (jour, debut, fin) != (x.jour, x.debut, x.fin)):
            self.promet_pose(grille, x, jour, debut, fin)
        if x or not slot or note.etat != "attend":
            self.prog.glisse(de, vers)

    def reprend(self):
        """One that waits, by hand where it lies."""
        attendent, prises = {n.ref for n in self.notes_vues() if n.etat == "attend"}, []
        for nom, grille in self.ctx.grilles.items():
            for c, (_, liste) in enumerate(grille.colonnes, 1):
                prises += [(nom, grille.horaire.lignes(x)[1], c, x) for x in liste if x.ref in attendent]
        prises = [(nom, r, c, x) for nom, r, c, x in prises if r in self.en_vue(self.etat.grille(nom))
                  and self.sous(nom, r, c) == [x] and self.sur_de(nom, [x])]
        self.en_main(*self.h.choice(prises)) if prises else self.va_voir()

    def va_voir(self):
        note, de = self.entree()
        self.dit("double clic")
        self.visees, self.peut = [note.rdv or SimpleNamespace(ref=note.ref, ligne=None)], True
        self.amene(note.ref)
        self.prog.clic(de, 1, 2)

    def retire(self):
        note, de = self.entree()
        self.dit("Suppr")
        self.promet("retire")
        self.visees, self.peut = [SimpleNamespace(ref=note.ref, ligne=None)], True
        self.prog.clic(de)
        self.prog.frappe("Delete")

    # ---- What is written

    def verifie_notes(self, avant, apres):
        """The rows of the pinboard are those before, but for what is promised."""
        p, quoi, x = self.promesse, self.promesse["quoi"], self.visees[0] if self.visees else None
        vues = [{c: v for c, v in n.items() if c not in ("cle", "RefReplacer")} for n in apres.values()]
        voulu = [{c: v for c, v in n.items() if c not in ("cle", "RefReplacer")} for n in avant.values()]
        if quoi in ("de_cote", "retire"):
            voulu = [n for n in voulu if n["RefRDV"] != x.ref]
        if quoi == "de_cote":
            depuis, maintenant = (vues or [{}])[-1].get("Depuis", ""), self.maintenant()
            marge = datetime.timedelta(seconds=15 + self.duree)
            if not str(maintenant - marge) < depuis < str(maintenant + marge):
                raise Faute(f"mis de côté à {depuis}")
            li = x.ligne
            voulu.append({"RefRDV": x.ref, "Depuis": depuis, "NumPraticien": self.vue.prat,
                          "Fauteuil": entier(li["Fauteuil"]), "Nom": li["Nom"] or "", "Prenom": li["Prenom"] or "",
                          "NumPatient": str(li["NumPatient"]), "Jour": str(x.jour),
                          "HeureDebut": li["HeureDebut"][-8:], "HeureFin": li["HeureFin"][-8:],
                          "JourPose": None, "DebutPose": None, "FauteuilPose": None})
        for n in voulu:
            if "pose" in p and n["RefRDV"] == x.ref:
                n["JourPose"], n["DebutPose"], n["FauteuilPose"] = p["pose"]
        for n in (n for n in vues if n["DebutPose"]):
            n["DebutPose"] = n["DebutPose"][:5]
        for n in (n for n in voulu if n["DebutPose"]):
            n["DebutPose"] = n["DebutPose"][:5]
        if vues != voulu:
            raise Faute(f"à replacer : {vues}\nau lieu de {voulu}\ndemandé {p}")
