"""promenade.py BINARIES SEED [STEPS]: walks through the program at random, and looks after every step whether what
it shows and writes is what the files say. All chance comes from SEED. PROMENADE_SANS=a,b leaves gestures out."""
import copy
import datetime
import os
import random
import re
import shutil
import sys
import tempfile
import time
import traceback

import cabinet
from ecran import Ecran, Faute, Programme, attends
from gestes import Gestes, lit_heure
from oracle import Contexte, Livre, RendezVous, Vue, ecarts, entier, lit_base, lit_etat_date, lit_jour, minutes, propre
from tiers import Tiers

PATIENCE = 2.0  # seconds in which the screen must have come to agree with the files
TIERS = {"ecrit": 0.06, "verrou": 0.012, "emporte": 0.01, "tronque": 0.007}  # chance of each at a step


class Promenade:
    def __init__(self, binaires, graine, pas, dossier):
        self.h, self.graine, self.pas, self.dossier = random.Random(graine), graine, pas, dossier
        self.etape, self.fait, self.boites, self.histoire = 0, [], set(), []
        prat = cabinet.cree(dossier + "/cabinet", self.h)
        self.bases = dossier + "/cabinet/Base/Fichiers/"
        self.tiers = Tiers(self.bases + "Tavelin.mdb", self.h)
        self.sans = os.environ.get("PROMENADE_SANS", "").split(",")
        self.ecran = Ecran(dossier)
        try:
            depart = time.monotonic()
            self.prog = Programme(self.ecran, binaires, dossier, ["--chemin", dossier + "/cabinet/CheminBelmor.mdb",
                                                                  "--maintenant", "2026-03-11T10:05"])
        except BaseException:
            self.ecran.ferme()
            raise
        self.maintenant = lambda: cabinet.MAINTENANT + datetime.timedelta(seconds=time.monotonic() - depart)
        self.dessine_a = self.maintenant()
        self.gestes = Gestes(self)
        praticiens = lit_base(self.bases + "Param.mdb")["Praticien"].values()
        self.vue = Vue({p["codeprat"]: f"docteur {p['nom']} {p['PreNom'] or ''}" for p in praticiens}, prat,
                       cabinet.MAINTENANT.date())
        self.patients = lit_base(self.bases + "Patient.mdb")["TabPat"]
        self.promesse = self.reglages = None
        self.relit = self.redessine = self.date_inconnue = self.zoom_incertain = False
        self.classe, self.place, self.visees, self.dessus = None, None, [], "FrmEntree"

    # ---- One step

    def marche(self):
        self.prog.etat(patience=20)
        self.etat = self.prog.repos()
        self.livre = Livre(self.tiers.lit())
        self.photos = self.anciennes = [self.livre]
        self.vue.charge(self.livre)
        while not self.vue.config.affich[self.vue.jour.weekday()]:
            self.vue.jour += datetime.timedelta(1)
        self.regarde(None, None, [self.vue])
        for self.etape in range(1, self.pas + 1):
            self.fait = [f"pas {self.etape}"]
            self.un_pas()
            self.histoire = [*self.histoire, " ; ".join(self.fait)][-40:]
        self.etape = "fin"
        self.prog.finit()

    def dit(self, texte):
        self.fait.append(texte)

    def un_pas(self):
        avant, ancienne = self.ctx, copy.copy(self.vue)
        verrou, duree = self.troisieme(), 0
        self.relit = self.redessine = self.date_inconnue = self.zoom_incertain = False
        geste = self.gestes.choisit()
        if geste.__name__ in self.sans:
            return
        if not self.tiers.lisible and self.etat.dessus == "FrmEntree" and not self.etat.surgis:
            self.relit = False
        suite = geste()
        if verrou:
            duree = self.sous_verrou(verrou)
        vues = [self.vue]
        if self.reglages:
            vues = self.applique_reglages()
        if self.zoom_incertain or self.date_inconnue:
            vues = self.vues_possibles(ancienne)
        if not self.tiers.lisible:
            vues = [ancienne]
        elif duree > 4:
            vues.append(ancienne)
        self.anciennes = self.photos
        if (self.redessine or self.relit) and self.tiers.lisible:
            self.photos = [*(self.photos if self.relit or duree > 4 else []), self.livre]
        self.regarde(avant, suite, vues)

    def troisieme(self):
        """What the other workstation does before this step; the lock that it holds during the step, if any."""
        sort, quoi = self.h.random(), None
        for nom, chance in TIERS.items():
            if sort < chance and quoi is None:
                quoi = nom
            sort -= chance
        if not self.tiers.lisible:
            if self.h.random() < 0.4:
                self.dit("le carnet est rapporté")
                self.tiers.rapporte()
            return None
        if quoi is None or quoi in self.sans:
            return None
        if quoi == "ecrit":
            self.dit("tiers : " + self.tiers.ecrit(self.livre, self.vue, self.ctx.rdv and self.ctx.rdv.ref))
            self.livre = Livre(self.tiers.lit())
            self.photos.append(self.livre)
        elif quoi == "verrou":
            self.dit("le carnet est verrouillé")
            return self.tiers.verrou()
        elif self.etat.dessus == "FrmEntree":
            self.dit(f"le carnet est {quoi}")
            self.tiers.emporte(quoi == "tronque")
        return None

    def sous_verrou(self, lien):
        """The program answers all the while; then the lock goes."""
        duree = self.h.choice((0.2, 0.5, 1, 3, 8))
        self.dit(f"verrou de {duree} s")
        fin = time.monotonic() + duree
        try:
            attends(lambda: self.prog.etat() and time.monotonic() > fin, duree + 2, "verrou")
        finally:
            lien.close()
        return duree

    def vues_possibles(self, ancienne):
        """The wheel may have zoomed or not, the calendar gave a date that is read back from the screen."""
        autre = copy.copy(ancienne)
        if self.zoom_incertain:
            autre.zoome()
            return [ancienne, autre]
        autre.jour = lit_etat_date(self.prog.repos().texte("StatusBar1_4", "FrmEntree"))
        return [autre]

    def applique_reglages(self):
        """Slots or days changed in their windows: the loaded configuration takes them once the window has closed."""
        if {"FrmTrancheHoraire", "FrmJourExclure"} & self.prog.repos().par_nom.keys():
            self.reglages = None
            return [self.vue]
        (quoi, ok, valeurs), self.reglages, vue = self.reglages, None, copy.copy(self.vue)
        vue.config = copy.copy(vue.config)
        if quoi == "tranche":
            vue.prend(vue.config)
            vue.config.pas, vue.config.heures = ok, valeurs
        elif ok:
            vue.config.affich = [not valeurs[f"Check3_{i}"] for i in range(7)]
            vue.config.grise = [valeurs[f"Check1_{i}"] + 2 * valeurs[f"Check2_{i}"] for i in range(7)]
        self.redessine = True
        self.vue = vue
        return [vue]

    # ---- Looking

    def regarde(self, avant, suite, vues):
        """Until everything agrees, or for PATIENCE: the first disagreement that stays is a fault."""
        if self.redessine:
            self.dessine_a = self.maintenant()
        fin = time.monotonic() + PATIENCE
        while faux := self.ecarts(avant, suite, vues):
            if time.monotonic() > fin:
                self.refuse(faux)
                break
            time.sleep(0.02)
        self.dessus = self.etat.dessus

    def refuse(self, faux):
        if faux:
            boite = self.etat.dessus == "QMessageBox" and [o["texte"] for o in self.etat.objets() if o["texte"]]
            raise Faute("\n".join(faux[:12]) + (f"\nboîte {boite}" if boite else ""))

    def ecarts(self, avant, suite, vues):
        self.etat = self.prog.repos()
        self.ecritures()
        instants = [self.dessine_a, self.maintenant()]
        photos = self.photos if self.etat.dessus == "FrmEntree" else list(dict.fromkeys(self.anciennes + self.photos))
        essais = [(ecarts(self.etat, v, l, instants), v, l) for v in vues for l in photos]
        faux, self.vue, vu = min(essais, key=lambda e: len(e[0]))
        self.ctx = Contexte(self.etat, self.vue, vu)
        if faux:
            return faux
        self.photos = photos[photos.index(vu):]
        if self.ctx.jour and self.vue.semaine:
            self.vue.jour = self.ctx.jour
        ouverte = self.gestes.ouverte(self.dessus)
        return (suite(avant, self.ctx) if suite and self.tiers.lisible else []) or ouverte

    # ---- Writing

    def promet(self, quoi, **champs):
        self.promesse = {"quoi": quoi, "champs": champs, "etat": self.etat, "livre": self.livre}
        if quoi == "present":
            self.visees = [self.ctx.rdv] if self.ctx.rdv else []

    def promet_saisie(self, **choisi):
        e = self.etat
        self.promet("ajoute" if e.dessus == "FrmAjouter" else "edite", nom=choisi.get("nom", e.texte("Text1")),
                    prenom=choisi.get("prenom", e.texte("Text2")), tel=e.texte("Text3"), desc=e.texte("Text4"),
                    jour=lit_jour(e.texte("DTPicker1")), debut=lit_heure(e.texte("TextHeureDebut")),
                    fin=lit_heure(e.texte("TextHeureFin")), numero=choisi.get("numero"))

    def ecritures(self):
        """The rows that the program has changed since the last look, and whether it was asked to."""
        if not self.tiers.lisible:
            return
        self.refuse(["la fiche des patients a changé"] * (lit_base(self.bases + "Patient.mdb")["TabPat"] != self.patients))
        neuf, connu, promesse = self.tiers.lit(), self.livre.tables, self.promesse
        if neuf == connu:
            return self.refuse(self.sans_ecrire())
        self.refuse([f"la table {t} a changé" for t in connu if t != "RDV" and neuf[t] != connu[t]])
        lignes = {ref: (connu["RDV"].get(ref), neuf["RDV"].get(ref)) for ref in {*connu["RDV"], *neuf["RDV"]}
                  if connu["RDV"].get(ref) != neuf["RDV"].get(ref)}
        if not promesse or len(lignes) != 1:
            self.refuse([f"écrit sans qu'on l'ait demandé ({promesse and promesse['quoi']}) : {lignes}"])
        else:
            (ref, (ancienne, nouvelle)), = lignes.items()
            self.refuse(getattr(self, "verifie_" + promesse["quoi"])(ref, ancienne, nouvelle, promesse["champs"]))
        self.livre, self.promesse = Livre(neuf), None
        self.photos = [self.livre]

    def sans_ecrire(self):
        """Nothing written although the user asked for it: he must have been told, unless there was nothing to write."""
        promesse, dessus = self.promesse, self.etat.dessus
        if not promesse:
            return []
        if dessus == "QMessageBox":
            promesse["dit"] = True
            return []
        dit, self.promesse = promesse.get("dit"), None
        change = [x for x in self.visees if self.livre.tables["RDV"].get(x.ref) != x.ligne]
        inutile = promesse["quoi"] == "edite" and dessus == "FrmEntree"
        return [] if dit or change or inutile else [f"{promesse['quoi']} : rien n'est écrit et rien n'est dit"]

    def champs_faux(self, ligne, voulu):
        return [f"écrit {n} = {ligne[n]!r}, attendu {v!r}" for n, v in voulu.items() if propre(str(ligne[n] or "")) != v]

    def verifie_saisie(self, ref, nouvelle, c, fauteuil):
        voulu = {"Nom": propre(c["nom"]), "Prenom": propre(c["prenom"]), "Telephone": propre(c["tel"])}
        if propre(c["desc"]):
            voulu["Description"] = propre(c["desc"])
        voulu |= {"Date1": c["jour"], "DateInv": c["jour"].replace("-", "")}
        faux = self.champs_faux(nouvelle, voulu)
        if (minutes(nouvelle["HeureDebut"]), minutes(nouvelle["HeureFin"])) != (c["debut"], c["fin"]):
            faux.append(f"écrit {nouvelle['HeureDebut']}-{nouvelle['HeureFin']}, attendu {c['debut']}-{c['fin']} min")
        jour = datetime.date.fromisoformat(c["jour"])
        genes = [x.ligne for x in self.livre.jour(jour, entier(nouvelle["NumPraticien"]), fauteuil)
                 if x.ref != ref and c["debut"] is not None and x.debut < c["fin"] and x.fin > c["debut"]]
        if genes:
            faux.append(f"écrit par-dessus {genes}")
        return faux

    def numero_faux(self, ligne):
        """The number is nobody's, or that of a patient of this very name."""
        numero = entier(ligne["NumPatient"])
        fiche = self.patients.get(numero)
        juste = fiche and (propre(fiche["nom"]), propre(fiche["PreNom"])) == (propre(ligne["Nom"]), propre(ligne["Prenom"]))
        return [] if not numero or juste else [f"{ligne['Nom']} {ligne['Prenom']} porte le numéro de {fiche}"]

    def verifie_ajoute(self, ref, ancienne, nouvelle, c):
        fauteuil = self.place
        if ancienne or not nouvelle:
            return [f"ajouter a changé la ligne {ref} : {ancienne} → {nouvelle}"]
        faux = self.verifie_saisie(ref, nouvelle, c, fauteuil) + self.numero_faux(nouvelle)
        if entier(nouvelle["NumPraticien"]) != self.vue.prat or nouvelle["Fauteuil"] != fauteuil:
            faux.append(f"écrit pour le praticien {nouvelle['NumPraticien']}, fauteuil {nouvelle['Fauteuil']}, au lieu "
                        f"de {self.vue.prat}, {fauteuil}")
        if self.classe is not None and bool(nouvelle["Professionnel"]) != bool(self.classe):
            faux.append(f"Professionnel {nouvelle['Professionnel']} au lieu de {self.classe}")
        if c["numero"] and entier(nouvelle["NumPatient"]) != entier(c["numero"]):
            faux.append(f"patient {c['numero']} choisi, {nouvelle['NumPatient']} écrit")
        return faux

    def visee(self, ref, ancienne):
        if not ancienne or ref not in [x.ref for x in self.visees]:
            return [f"touché {ref} {ancienne}, vu {[(x.ref, x.ligne) for x in self.visees]}"]
        vu = next(x.ligne for x in self.visees if x.ref == ref)
        return [] if vu == ancienne else [f"écrit par-dessus ce qu'un autre avait changé : vu {vu}, était {ancienne}"]

    def verifie_edite(self, ref, ancienne, nouvelle, c):
        faux = self.visee(ref, ancienne)
        if faux or not nouvelle:
            return faux or ["éditer a supprimé"]
        faux = self.verifie_saisie(ref, nouvelle, c, entier(ancienne["Fauteuil"]))
        faux += [f"éditer a changé {n}" for n in ("NumPraticien", "Fauteuil", "Professionnel", "Present")
                 if ancienne[n] != nouvelle[n]]
        noms = [(propre(l["Nom"]), propre(l["Prenom"]), l["NumPatient"]) for l in (ancienne, nouvelle)]
        return faux + (self.numero_faux(nouvelle) if noms[0] != noms[1] else [])

    def verifie_supprime(self, ref, ancienne, nouvelle, c):
        return self.visee(ref, ancienne) or ([f"supprimer a écrit {nouvelle}"] if nouvelle else [])

    def verifie_present(self, ref, ancienne, nouvelle, c):
        if ref not in [x.ref for x in self.visees] or not nouvelle:
            return [f"présent : touché {ref}, vu {[x.ref for x in self.visees]}"]
        autres = [n for n in nouvelle if n != "Present" and nouvelle[n] != ancienne[n]]
        juste = bool(nouvelle["Present"]) == c["present"]
        return [f"présent a changé {autres}"] * bool(autres) + ["présent à l'envers"] * (not juste)


def promene(binaires, graine, pas):
    dossier = tempfile.mkdtemp(prefix="promenade-")
    p = None
    depuis = time.monotonic()
    try:
        p = Promenade(binaires, graine, pas, dossier)
        p.marche()
        print(f"graine {graine} : {pas} pas en {time.monotonic() - depuis:.0f} s ; boîtes : {sorted(p.boites)}")
        return True
    except (Faute, Exception) as faute:
        garde = os.path.join("build", "promenade", str(graine))
        shutil.rmtree(garde, ignore_errors=True)
        shutil.copytree(dossier + "/cabinet", garde)
        if p:
            p.ecran.image(garde + "/ecran.png")
        histoire = "\n".join([*p.histoire, " ; ".join(p.fait)]) if p else "départ"
        print(f"graine {graine}\n{histoire}\n{faute}"
              + ("" if isinstance(faute, Faute) else "\n" + traceback.format_exc())
              + f"\nrejouer : ./run promenade {graine} {pas}  (cabinet et image dans {garde})", flush=True)
        return False
    finally:
        if p:
            p.prog.tue()
            p.ecran.ferme()
        shutil.rmtree(dossier, ignore_errors=True)


if __name__ == "__main__":
    graines = [int(sys.argv[2])] if len(sys.argv) > 2 else range(1, 5)
    pas = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    bon = [promene(sys.argv[1], g, pas) for g in graines]
    sys.exit(0 if all(bon) else 1)
