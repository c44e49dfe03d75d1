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
from collections import Counter
from dataclasses import replace

import cabinet
from clavier import Clavier
from ecran import Faute, Programme, attends
from fenetres import Fenetres
from gestes import Gestes
from insolite import Question
from mainlevee import MainLevee
from oracle import Contexte, Livre, Montre, Vue, entier, lit_base
from replacer import LISTE, Replacer, ecarts_volet
from retour import Retour

PATIENCE = 2.0  # seconds in which the screen must have come to agree with the files
PURGE = 0.5  # chance that the walk ends with one
LONG = 4  # seconds of a lock after which the program may have given up
TIERS = {"ecrit": 0.07, "verrou": 0.012, "emporte": 0.01, "tronque": 0.007}  # chance of each at a step


class Promenade(Question, Replacer, Retour, Gestes, MainLevee, Clavier, Fenetres):
    def __init__(self, binaires, graine, dossier):
        self.h, self.etape, self.histoire, self.textes = random.Random(graine), 0, [], set()
        self.prog, self.promesse, self.visees, self.classe, self.lieu = None, None, [], None, None
        self.dernier, self.fois = None, Counter()
        prat = cabinet.cree(dossier + "/cabinet", self.h)
        self.bases = dossier + "/cabinet/Base/Fichiers/"
        self.tiers = cabinet.Tiers(self.bases + "Tavelin.mdb", self.h)
        self.chemin_histo = dossier + "/cabinet/Donnees/Fichiers/ChangePatient.mdb"
        self.histo = self.transmis()
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

    def lit_carnet(self):
        return lit_base(self.tiers.fichier if self.tiers.lisible else self.tiers.cache)

    # ---- One step

    def commence(self, *fait):
        self.fait, self.suite, self.vues, self.boite = [*fait], None, [self.vue], None
        self.numeros = None
        self.frais, self.peut, self.a_ecrit, self.presse, self.duree = False, False, False, False, 0
        self.dessus, self.avant = self.etat.dessus, self.ctx
        if self.dessus == "QMessageBox":
            self.boite = self.etat.texte("qt_msgbox_label")
        elif self.dessus != "FrmInsolite":
            self.promesse = None

    def dit(self, texte):
        self.fait.append(texte)

    def marche(self, pas):
        for self.etape in range(1, pas + 1):
            self.commence(f"pas {self.etape}")
            self.un_pas()
            self.histoire = [*self.histoire, " ; ".join(self.fait)][-30:]
        self.etape = "fin"
        self.purge() if self.h.random() < PURGE else self.prog.finit()

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
            if (self.faits or self.annules) and self.h.random() < 0.2:
                geste, combien = "retour", []
            elif etat.grille(LISTE) and self.h.random() < 0.3:
                geste, combien = "replacer", []
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
        elif devance := self.devance():
            self.tiers_ecrit(**devance)
        elif quoi == "ecrit":
            refs = [ref for ref, r in self.livre.rdv.items()
                    if entier(r.ligne["NumPraticien"]) == self.vue.prat] or [0]
            vise = [self.ctx.rdv.ref] if self.ctx.rdv and self.h.random() < 0.7 else refs
            fauteuil = next(iter(self.ctx.grilles.values())).fauteuil
            self.tiers_ecrit(refs=vise, jour=self.fixe.jour, fauteuil=fauteuil)
        elif quoi == "verrou":
            return self.tiers.verrou()
        elif quoi and self.etat.dessus == "FrmEntree":
            self.dit(f"le carnet est {quoi}")
            self.tiers.emporte(quoi == "tronque")
        return None

    def devance(self):
        """The other workstation does first what is about to be done here."""
        if self.libre and "FrmAjouter" in self.etat.par_nom and self.h.random() < 0.1:
            jour, debut, _ = self.libre.place
            return {"quoi": "prend", "jour": jour, "fauteuil": self.libre.config.fauteuil, "debut": debut}
        self.presse = self.ctx.rdv and any(a["objectName"] == "mnuPresent" and a["enabled"]
                                           for a in self.etat.surgis) and self.h.random() < 0.6
        return {"quoi": "present", "refs": [self.ctx.rdv.ref]} if self.presse else None

    def tiers_ecrit(self, **quoi):
        self.dit("tiers : " + self.tiers.ecrit(prat=self.vue.prat, **quoi))
        self.livre, self.a_ecrit = Livre(self.lit()), True
        self.photos = [*self.photos, self.livre]

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
        self.suit_historique()
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
                faux = montre.ecarts(etat, self.praticiens, lu) + ctx.ecarts(etat) + ecarts_volet(etat, ctx, lu)
                essais.append((faux, vue, photo, ctx))
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


def promene(binaires, graine, pas):
    dossier, p, depuis = tempfile.mkdtemp(prefix="promenade-"), None, time.monotonic()
    garde = os.path.abspath(f"build/promenade/{graine}")
    try:
        p = Promenade.__new__(Promenade)
        p.__init__(binaires, graine, dossier)
        p.marche(pas)
        print(f"graine {graine} : {pas} pas en {time.monotonic() - depuis:.0f} s ; {dict(p.fois)} ; "
              f"dits : {sorted(p.textes)}")
        return 0
    except (Faute, Exception) as faute:
        shutil.rmtree(garde, ignore_errors=True)
        shutil.copytree(dossier + "/cabinet", garde)
        if p.prog:
            p.prog.photographie(garde + "/ecran.png")
        print("\n".join([f"graine {graine}", *p.histoire, " ; ".join(getattr(p, "fait", []))]) + f"\n{faute}"
              + ("" if isinstance(faute, Faute) else "\n" + traceback.format_exc())
              + f"\nrejouer : ./run promenade {graine} {pas}  (cabinet et image dans {garde})", flush=True)
        return 1
    finally:
        if p.prog:
            p.prog.processus.kill()  # one that does not answer does not end by itself
            p.prog.processus.wait()
        shutil.rmtree(dossier, ignore_errors=True)


if __name__ == "__main__":
    sys.exit(promene(sys.argv[1], int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 200))
