"""The history and what it undoes, held against what is computed here from the rows of the book."""
import datetime
import getpass
import json
import re
import socket
import unicodedata
from types import SimpleNamespace

from ecran import Faute
from fenetres import norme
from oracle import entier, minutes
from papier import Papier
from replacer import DU_VOLET

GARDES = 50  # steps
ENTREES = {"ajoute": 1, "edite": 2, "duree": 2, "supprime": 3, "present": 4}  # what a promise is kept as
MOTS = {1: "Ajouté", 3: "Supprimé", 4: "Présence", 6: "Annulé", 7: "Refait", 8: "Rétabli"}
DE_RETOUR = {
    "ne peut pas être (annulé|refait) : la place du": lambda p: p.remis and p.genes_de(p.remis.voulu) is not False,
    "ne peut pas être (annulé|refait) : ce rendez": lambda p: p.remis and p.ligne_de(p.remis.ref) != p.remis.attendu}


def nue(ligne):
    """A row without the key that it is read by."""
    return ligne and {n: v for n, v in ligne.items() if n != "cle"}


def jour_de(ligne):
    return (ligne["Date1"] or "")[:10].replace("-", "") or ligne["DateInv"] if ligne else None


def qui(ligne):
    nom = unicodedata.normalize("NFKD", f"{ligne['Nom'] or ''} {ligne['Prenom'] or ''}") if ligne else ""
    return " ".join("".join(c for c in nom if not unicodedata.combining(c)).upper().split())


class Retour(Papier):
    """A part of the walk, which holds the state."""

    messages = Papier.messages | DE_RETOUR | DU_VOLET
    remis, faits, annules, quoi = None, [], [], None
    connues, regardees = {}, True  # the rows as the history's window has read them; whether it has since

    def ligne_de(self, ref):
        return nue(self.livre.tables["RDV"].get(ref))

    # ---- The keys

    def retour(self):
        annule = self.h.random() < 0.65
        pile = self.faits if annule else self.annules
        action = self.etat.action("mnuAnnuler" if annule else "mnuRetablir")
        self.dit(f"Ctrl+{'Z' if annule else 'Y'} « {action['text']} »")
        if bool(pile) != action["enabled"]:
            raise Faute(f"{action['text']} : {action['enabled']}, et {len(pile)} pas")
        self.prog.frappe("Control_L", "z" if annule else "y")
        if pile:
            avant, apres = pile[-1] if annule else reversed(pile[-1])
            self.remet(6 if annule else 7, apres, avant)

    def remet(self, quoi, attendu, voulu):
        ref = (attendu or voulu)["RefRDV"]
        self.promet("retour")
        self.remis = SimpleNamespace(ref=ref, attendu=attendu, voulu=voulu, quoi=quoi)
        self.visees, self.peut = [r for r in [self.livre.rdv.get(ref)] if r], True

    def genes_de(self, ligne):
        """Whether something lies on the place of a row; None where an hour that cannot be read, or seconds, may."""
        debut, fin = minutes(ligne["HeureDebut"]), minutes(ligne["HeureFin"])
        if debut is None or fin is None or debut >= fin:
            return True
        jour = datetime.datetime.strptime(jour_de(ligne), "%Y%m%d").date()
        autres = [r for r in self.livre.jour(jour, entier(ligne["NumPraticien"]))
                  if entier(r.ligne["Fauteuil"]) == entier(ligne["Fauteuil"]) and r.ref != ligne["RefRDV"]]
        if any(r.dessine and r.debut < fin and debut < r.fin for r in autres):
            return True
        return None if any(not r.dessine or debut <= r.fin for r in autres) else False

    # ---- The window

    def historique(self):
        self.dit("Ctrl+T")
        self.regardees = False
        self.prog.frappe("Control_L", "t")
        self.quoi = ("OptRDV" if self.ctx.rdv else "OptJour", self.ctx.rdv, self.ctx.date)
        self.peut = True
        self.suite = lambda *_: ["pas d'historique"] * (self.etat.dessus != "FrmHistorique")

    def dans_fenetre(self):
        self.dans_historique() if self.etat.dessus == "FrmHistorique" else super().dans_fenetre()

    def dans_historique(self):
        grille, self.peut = self.etat.grille("Ecritures", "FrmHistorique"), True
        lignes, choisie = self.en_vue(grille), (grille["selection"] or [None])[0]
        vues = [n for n in ("OptRDV", "OptPatient", "OptJour") if self.etat.objet(n)["enabled"]]
        rend = self.etat.objet("BtnRetablir")["enabled"]
        nom = self.bouton_de(("ligne", *vues, "BtnRetablir", "BtnFermer", "Escape"),
                             (6 if lignes else 0, *[2] * len(vues), 8 if rend else 0, 2, 1))
        self.regardees = False
        if nom == "ligne":
            r = self.h.choice(lignes)
            self.dit(str(r))
            self.prog.clic(self.point(grille, r, 4), loin=9999)
        elif nom in vues:
            self.quoi = (nom, *self.quoi[1:])
        elif nom == "BtnRetablir":
            ecrite = self.ecrites()[choisie]
            self.remet(8, nue(self.connues.get(ecrite["RefRDV"])), json.loads(ecrite["Avant"]))

    def ecrites(self):
        """The rows of the history that the window has to list, newest first."""
        vue, rdv, jour = self.quoi
        autre = lambda ligne: entier(rdv.ligne["NumPatient"]) and entier(ligne["NumPatient"]) not in (
            0, entier(rdv.ligne["NumPatient"]))
        choisies = []
        for ecrite in sorted(self.livre.tables["TavJournal"].values(), key=lambda e: -e["RefJournal"]):
            deux = [json.loads(ecrite[n]) for n in ("Avant", "Apres") if ecrite[n]]
            if vue == "OptRDV":
                garde = ecrite["RefRDV"] == rdv.ref
            elif vue == "OptJour":
                garde = entier(deux[-1]["NumPraticien"]) == self.fixe.prat and any(
                    jour_de(x) == f"{jour:%Y%m%d}" for x in deux)
            else:
                garde = any(qui(x) == qui(rdv.ligne) for x in deux) and not all(map(autre, deux))
            choisies += [ecrite] * garde
        return choisies

    def ouverte(self):
        faux = super().ouverte()
        if faux or "FrmHistorique" not in self.etat.par_nom or not self.tiers.lisible:
            return faux
        if "n'a pas pu être lu" in self.etat.texte("LblVide", "FrmHistorique"):
            return []
        if not self.regardees:
            self.connues, self.regardees = self.livre.tables["RDV"], True
        voulu = [MOTS.get(e["Quoi"]) for e in self.ecrites()]
        vu = [ligne[3][0] for ligne in self.etat.grille("Ecritures", "FrmHistorique")["cellules"]]
        if self.a_ecrit or self.duree > 1 or vu == [v or x for v, x in zip(voulu, vu)] and len(vu) == len(voulu):
            return []
        return [f"historique {self.quoi[0]} : {vu} au lieu de {voulu}"]

    # ---- What is written

    def juge(self):
        avant = self.boite
        faux = super().juge()
        if self.remis and self.boite and self.boite != avant and re.search("ne peut pas être .* : ce rendez-vous", self.boite):
            {6: self.faits, 7: self.annules, 8: [None]}[self.remis.quoi].pop()
            self.remis = None
        return faux

    def ecriture_fausse(self, ref, ancienne, nouvelle):
        if self.promesse["quoi"] != "retour":
            return super().ecriture_fausse(ref, ancienne, nouvelle)
        r = self.remis
        if (ref, nue(ancienne), nue(nouvelle)) != (r.ref, r.attendu, r.voulu):
            return f"remis {r}"
        de, vers = norme(ancienne), norme(nouvelle)
        bouge = not de or vers and any(de[n] != vers[n] for n in ("Date1", "HeureDebut", "HeureFin"))
        return "par-dessus un autre" if nouvelle and bouge and self.genes_de(nouvelle) else None

    def ecritures(self):
        avant, promesse = self.livre, self.promesse
        if promesse and self.etat.dessus == "QMessageBox":
            promesse["dit"] = True  # also of a book that is away
        faux = super().ecritures()
        if self.livre is not avant and promesse["quoi"] in ("de_cote", "retire"):
            if avant.tables["TavJournal"] != self.livre.tables["TavJournal"]:
                raise Faute("une ligne d'historique, et aucun rendez-vous n'est écrit")
        elif self.livre is not avant:
            self.verifie_journal(avant, promesse)
            self.suit(avant.tables["RDV"].get(self.dernier), self.livre.tables["RDV"].get(self.dernier), promesse)
        return faux

    def suit(self, ancienne, nouvelle, promesse):
        pas, quoi = (nue(ancienne), nue(nouvelle)), self.remis and self.remis.quoi
        if promesse["quoi"] == "retour" and quoi != 8:
            de, vers = (self.faits, self.annules) if quoi == 6 else (self.annules, self.faits)
            vers.append(de.pop())
        else:
            self.faits, self.annules = [*self.faits, pas][-GARDES:], []
        if promesse["quoi"] == "retour":
            self.remis, self.suite, self.frais = None, None, True
            self.fois["remis"] += 1
            if nouvelle:
                self.amene(self.dernier)

    def verifie_journal(self, avant, promesse):
        """One row for what was written, that says what the book says."""
        connues, lues = avant.tables["TavJournal"], self.livre.tables["TavJournal"]
        neuves = [e for n, e in lues.items() if n not in connues]
        if len(neuves) != 1 or {n: e for n, e in lues.items() if n in connues} != connues:
            raise Faute(f"historique : {neuves}")
        e, deux = neuves[0], [t["RDV"].get(self.dernier) for t in (avant.tables, self.livre.tables)]
        derniere, premiere = deux[1] or deux[0], deux[0] if deux[1] else None
        age = (self.maintenant() - datetime.datetime.fromisoformat(e["Quand"])).total_seconds()
        jours, noms = [jour_de(x) for x in (derniere, premiere)], [qui(x) for x in (derniere, premiere)]
        voulu = {"Poste": socket.gethostname(), "Utilisateur": getpass.getuser(), "RefRDV": self.dernier,
                 "Quoi": self.remis.quoi if promesse["quoi"] == "retour" else ENTREES[promesse["quoi"]],
                 "NumPraticien": entier(derniere["NumPraticien"]), "Jour": jours[0], "Patient": noms[0] or None,
                 "JourAvant": jours[1] if jours[1] != jours[0] else None,
                 "PatientAvant": noms[1] if noms[1] and noms[1] != noms[0] else None}
        lu = [e[n] and json.loads(e[n]) for n in ("Avant", "Apres")]
        if {n: e[n] for n in voulu} != voulu or lu != [nue(x) for x in deux] or not -5 < age < 15 + self.duree:
            raise Faute(f"historique : {e}\nau lieu de {voulu} {deux} ({age} s)")

    # ---- The purge

    def compte(self, avant, jour):
        """One row of the history has as many as have left."""
        apres, connues = self.lit()["TavJournal"], avant.tables["TavJournal"]
        neuves = [e for n, e in apres.items() if n not in connues]
        nombre, partis = sum(json.loads(e["Apres"])["Nombre"] for e in neuves), avant.avant(jour, self.vue.prat)
        if nombre != len(partis) or [e["Quoi"] for e in neuves] != [5] * bool(partis):
            raise Faute(f"historique de la purge : {neuves}, {len(partis)} partis")
        avant.tables["TavJournal"] = apres
        super().compte(avant, jour)
