"""The keys of the main window beyond the arrows, each with what must come of it."""
import datetime
from dataclasses import replace

from ecran import attends
from oracle import Vue

LETTRES = {"s": "mnusemaine", "j": "mnuJour"}
RANGEE = ("ampersand", "eacute", "quotedbl", "apostrophe", "parenleft", "minus", "egrave")


class Clavier:
    """A part of the walk, which holds the state."""

    def clavier(self):
        geste = self.h.choices((self.longueur, self.present, self.rang, self.lettre, self.zoome, self.va_au,
                                self.autre), (8, 4, 4, 4, 2, 2, 4))[0]
        geste()

    def dans_la_grille(self):
        return bool(self.ctx.plage) and self.foyer() == self.ctx.nom and not self.a_ecrit

    def longueur(self):
        sens = self.h.choice((1, -1))
        self.dit("+" if sens > 0 else "-")
        rdv, sur, pas = self.ctx.rdv, self.dans_la_grille(), self.ctx.grille and self.ctx.grille.config.pas
        if rdv and self.foyer():
            fin = min(rdv.fin + pas, 1439) if sens > 0 else max(rdv.fin - pas, rdv.debut + pas)
            change = fin > rdv.fin if sens > 0 else fin < rdv.fin
            self.promet("duree", change and sur and self.inchange(rdv), HeureFin=fin)
            self.promesse |= {"heures": (rdv.debut, fin), "jour": rdv.jour}
            self.visees, self.lieu, self.peut = [rdv], self.ctx.grille.config, True
        elif sur:
            self.suite = lambda avant, apres: self.etendu(avant, apres, sens)
        self.prog.frappe(*["Shift_L"] * (sens > 0), "equal" if sens > 0 else "minus")

    @staticmethod
    def etendu(avant, apres, sens):
        bas = avant.bas + sens
        pris = sens > 0 and bas <= avant.grille.horaire.n and any(
            r.debut < avant.grille.horaire.heure(bas + 1) and r.fin > avant.plage[0] for r in avant.liste)
        voulu = avant.bas if pris or not avant.haut <= bas <= avant.grille.horaire.n else bas
        return [f"de {avant.contours} à {apres.contours}, pas jusqu'à {voulu}"] * (
            (apres.haut, apres.bas) != (avant.haut, voulu))

    def present(self):
        self.dit("P")
        if self.ctx.rdv:  # a menu that has just closed gives the keys back after this look
            veut = bool(self.foyer()) and self.inchange(self.ctx.rdv)
            self.promet("present", veut, Present=not self.etat.action("mnuPresent")["checked"])
            self.visees, self.peut = [self.ctx.rdv], True
        self.prog.frappe("p")

    def rang(self):
        """Alt and a digit, with Shift or by the character that the key has without."""
        rang, maj = self.h.randrange(len(RANGEE)), self.h.random() < 0.5
        self.dit(f"Alt+{rang + 1}")
        menu = "menuFaut" if self.etat.action("menuFaut")["visible"] else "mnuPraticien"
        offerts = self.etat.du_menu(menu)
        self.prog.frappe("Alt_L", *["Shift_L"] * maj, RANGEE[rang])
        if rang >= len(offerts):
            return
        if menu == "menuFaut":
            self.montre(Vue(self.fixe.prat, self.fixe.jour, self.fixe.semaine,
                            int(offerts[rang]["text"].split()[1])))
        else:
            prat = next(n for n, t in self.praticiens.items() if t == offerts[rang]["text"])
            self.montre(Vue(prat, self.fixe.jour, self.fixe.semaine))

    def lettre(self):
        lettre = self.h.choice(("s", "j", "n"))
        self.dit(f"Ctrl+{lettre}")
        self.prog.frappe("Control_L", lettre)
        if lettre in LETTRES:
            self.montre(self.apres(LETTRES[lettre]))
        elif self.ctx.plage:
            self.peut = True
            self.suite = lambda _, apres: self.ouvre("mnuAjouter", apres) if not self.ctx.rdv else []

    def zoome(self):
        touche = self.h.choice(("equal", "minus"))
        self.dit(f"Ctrl+{touche}")
        self.prog.frappe("Control_L", touche)
        if (touche == "equal") == (self.vue.sans_zoom == 0):
            self.montre(self.apres("mnuZoom"))

    def va_au(self):
        jour = self.fixe.jour + datetime.timedelta(self.h.randrange(-20, 30))
        self.dit(f"Ctrl+G {jour}")
        self.prog.frappe("Control_L", "g")
        attends(lambda: self.prog.etat().dessus == "FrmMois" and self.prog.repos(), 3, "la date où aller")
        self.prog.tape(f"{jour:%d/%m/%Y}")
        self.prog.frappe("Return")
        self.montre(replace(self.fixe, jour=jour))

    def autre(self):
        touche = self.h.choice(("F6", "F1", "Menu"))
        self.dit(touche)
        foyer = self.foyer()
        self.prog.frappe(touche)
        if touche == "F6":
            self.suite = lambda *_: ["le clavier reste où il était"] * bool(foyer and self.foyer() == foyer)
        elif touche == "F1":
            self.suite = lambda *_: ["pas de page des touches"] * (self.etat.dessus != "FrmTouches")
        elif foyer:
            self.suite = lambda *_: ["pas de menu"] * (not self.etat.surgis)
