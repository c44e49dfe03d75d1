"""What has to be asked before something odd is booked: computed here from the rows and the configuration that is
shown, and held against the lines of the window that asks."""
import datetime

from fenetres import norme
from oracle import MOIS, SEMAINE, entier, hhmm
from retour import qui

DEMANDES = ("ajoute", "edite", "duree")  # promises of a place
DE_SOI = ("Passe", "Repos", "NonAffiche", "Midi", "DemiJournee")


def en_toutes_lettres(jour):
    return f"{SEMAINE[jour.weekday()]} {jour.day} {MOIS[jour.month - 1]} {jour.year}"


def du_lieu(config, jour, debut, fin, maintenant):
    """What is odd about a place, whoever comes: kind → title and detail, in the order in which it is told."""
    dits, nom, grise = {}, SEMAINE[jour.weekday()], config.grise[jour.weekday()]
    (_, midi, reprise, _), minute = config.heures, maintenant.hour * 60 + maintenant.minute
    if jour < maintenant.date():
        dits["Passe"] = "Ce jour est passé", f"Nous sommes le {en_toutes_lettres(maintenant.date())}."
    elif jour == maintenant.date() and debut < minute:
        dits["Passe"] = "Cette heure est passée", f"Il est {hhmm(minute)}."
    repos = grise == 3 or config.repos == jour.isoweekday()
    if repos:
        dits["Repos"] = "C'est un jour de repos", f"Le {nom} n'est pas travaillé."
    if not config.affich[jour.weekday()]:
        dits["NonAffiche"] = "Ce jour n'est pas affiché", f"La semaine ne montre pas le {nom}."
    travaille = [m for m in range(debut, fin) if not midi <= m < reprise]
    if not repos and 0 < len(travaille) < fin - debut:
        dits["Midi"] = "Il traverse la pause de midi", (
            f"Le matin finit à {hhmm(midi)}." if debut < midi else f"L'après-midi commence à {hhmm(reprise)}.")
    if not repos and grise == 1 and debut < midi:
        dits["DemiJournee"] = "Le matin de ce jour est grisé", f"Le {nom} matin n'est pas travaillé."
    if not repos and grise == 2 and fin > reprise:
        dits["DemiJournee"] = "L'après-midi de ce jour est grisé", f"Le {nom} après-midi n'est pas travaillé."
    return dits


def seconds(livre, jour, ligne, sauf):
    """The same patient's other appointments of that day, with whichever practitioner, at whichever chair."""
    numero, heures = entier(ligne["NumPatient"]), []
    for x in (x for x in livre.rdv.values() if x.jour == jour and x.ref != sauf and x.ligne["NumPraticien"]):
        autre = entier(x.ligne["NumPatient"])
        if numero == autre if numero and autre else qui(ligne) == qui(x.ligne):
            heures.append("une heure illisible" if x.debut is None else hhmm(x.debut))
    if not heures:
        return {}
    seul = len(heures) == 1
    return {"Second": (f"{'Second' if seul else 'Encore un'} rendez-vous de ce jour pour ce patient",
                       (f"L'autre est à {heures[0]}." if seul else f"Les autres sont à {', '.join(sorted(heures))}."))}


class Question:
    """A part of the walk, which holds the state."""

    dits_avant = None, {}  # the place of which something was told already, and what

    def instants(self):
        """One in each minute that it may have been when the program looked."""
        fin = self.maintenant()
        return [fin - datetime.timedelta(seconds=s) for s in range(0, 65 + int(self.duree), 30)]

    def attendus(self):
        """What is to be asked of what is promised, at each of these moments."""
        p, ((debut, fin), jour) = self.promesse, (self.promesse["heures"], self.promesse["jour"])
        if p["quoi"] not in DEMANDES or None in (debut, fin) or not jour or debut >= fin:
            return [{}]
        avant = self.visees[0] if p["quoi"] != "ajoute" and self.visees else None
        if avant and (jour, debut, fin) == (avant.jour, avant.debut, avant.fin) and "Fauteuil" not in p["champs"]:
            return [{}]  # no other place
        ligne, tous = (norme(avant.ligne) if avant else {}) | p["champs"], []
        for quand in self.instants():
            dits = du_lieu(self.lieu, jour, debut, fin, quand)
            dits |= seconds(self.livre, jour, ligne, avant and avant.ref)
            sus = {}
            if avant and (jour, debut) == (avant.jour, avant.debut) and "Fauteuil" not in p["champs"]:
                sus = du_lieu(self.lieu, jour, debut, avant.fin, quand) | {"Second": ()}
            elif self.dits_avant[0] == (jour, debut, fin) and p["quoi"] == "ajoute":
                sus = self.dits_avant[1]
            tous.append({genre: dit for genre, dit in dits.items() if genre not in sus})
        return tous

    def dans_question(self):
        """What was asked for is wanted all the same, or given up; the window before it is as it was."""
        nom = self.h.choice(("BtnQuandMeme", "BtnQuandMeme", "BtnRevenir", "Escape", "Return"))
        if nom != "BtnQuandMeme":
            self.promesse = None
        else:
            self.promesse |= {"veut": True, "dit": False}
        self.bouton_de((nom,), (1,))

    def ouverte(self):
        return super().ouverte() or self.question()

    def question(self):
        etat, ctx = self.etat, self.ctx
        if etat.dessus == "FrmAjouter" and self.dessus == "FrmEntree":
            self.dits_avant = None, {}
        elif etat.dessus == "FrmAjouter" and self.dessus == "FrmRDVlibre":  # which says so of a hidden day
            self.dits_avant = self.libre.place, {"NonAffiche"}
        if self.dessus == etat.dessus or etat.dessus not in ("FrmInsolite", "FrmQuelHoraire"):
            return []
        lus = [o["text"] for o in etat.objets() if o["classe"] == "QLabel" and not o["objectName"] and o["text"]]
        if etat.dessus == "FrmQuelHoraire":
            if not ctx.plage:
                return []
            place = ctx.jour, ctx.plage[0], min(ctx.plage[1], 1439)
            attendus = [du_lieu(ctx.grille.config, *place, quand) for quand in self.instants()]
            self.dits_avant = place, attendus[0]
        else:
            (debut, fin), jour = self.promesse["heures"], self.promesse["jour"]
            attendus = self.attendus()
            place = f"{en_toutes_lettres(jour)}, {hhmm(debut)}–{hhmm(fin)}"
            self.promesse["demande"] = True
            if not etat.texte("LblA").endswith(place) or not etat.objet("BtnRevenir")["focus"]:
                return [f"question : {etat.textes()}, pas {place}"]
            if self.genes(False):
                return [f"une question avant un refus : {self.genes(False)}"]
        voulus = [[ligne for dit in a.values() for ligne in dit] for a in attendus]
        self.fois[etat.dessus] += 1
        return [] if lus in voulus else [f"{etat.dessus} : {lus}\nau lieu de {voulus}"]

    def ecriture_fausse(self, ref, ancienne, nouvelle):
        faux = super().ecriture_fausse(ref, ancienne, nouvelle)
        sans = not self.promesse.get("demande") and all(attendus := self.attendus())
        return faux or (f"écrit sans demander {attendus}" if sans else None)
