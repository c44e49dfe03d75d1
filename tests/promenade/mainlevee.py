"""Appointments moved by hand: where a drop has to put them is computed here from the rows and columns that are seen."""
import math

from ecran import centre
from fenetres import norme
from oracle import dans, entier

SEUIL = 12  # pixels, more than makes a drag
CHAMPS = ("Nom", "Prenom", "NumPatient", "Telephone", "Description")


class MainLevee:
    """A part of the walk, which holds the state."""

    def sous(self, nom, r, c):
        """The appointments under a cell."""
        grille = self.ctx.grilles[nom]
        dedans = 1 <= c <= len(grille.colonnes) and 1 <= r <= grille.horaire.n
        return dans(grille.colonnes[c - 1][1], *map(grille.horaire.heure, (r, r + 1))) if dedans else []

    def sur_de(self, nom, sous):
        """Whether the hand takes that one, whose place is that of its chair."""
        grille = self.ctx.grilles[nom]
        # where blocks stand side by side a part of a cell may be free: that look is tried by click alone
        cote = any(o["objectName"] == "OutilPrecedent" for o in self.etat.objets())
        seul = len(sous) == 1 and self.inchange(sous[0]) and not self.a_ecrit and self.tiers.lisible
        return seul and self.du_fauteuil(grille) and not cote

    @staticmethod
    def du_fauteuil(grille):
        """Whether what it shows is all of its chair: what is beside it would be in the way, too."""
        return all(entier(x.ligne["Fauteuil"]) == grille.fauteuil for _, liste in grille.colonnes for x in liste)

    def en_main(self, nom, r, c, rdv):
        g, grille = self.etat.grille(nom), self.ctx.grilles[nom]
        horaire, premiere, derniere = grille.horaire, *grille.horaire.lignes(rdv)
        bord, de = derniere == r and self.h.random() < 0.35, self.point(g, r, c)
        if bord:
            de = de[0], g["surface"][1] + sum(g["lignes"][r]) - 4
        volet = self.etat.grille("ListeReplacer")
        if volet and not bord and self.h.random() < 0.3:
            self.dit(f"{rdv.ref} à replacer")
            self.met_de_cote(rdv)
            return self.prog.glisse(de, centre({"cadre": volet["surface"]}))
        r2 = self.h.choice(self.en_vue(g) + [0] * (self.h.random() < 0.1))
        c2 = self.h.choice([c] * 3 + [*range(len(g["colonnes"]))])
        vers = self.point(g, r2, c2)
        if abs(vers[0] - de[0]) + abs(vers[1] - de[1]) < SEUIL:
            return self.clic()
        copie = self.h.random() < 0.25 and self.copiable(grille, rdv)
        slot = 1 <= r2 <= horaire.n and 1 <= c2 <= len(grille.colonnes)
        jour = grille.colonnes[c2 - 1][0] if slot and not bord else rdv.jour
        bouge = self.minute(g, horaire, vers[1], r2) - self.minute(g, horaire, de[1], r)
        if self.a_mi_chemin(horaire, (rdv.fin if bord else rdv.debut) + bouge):
            return self.clic()
        debut, fin = self.depot(horaire, rdv, bord, bouge) if slot else (0, 0)
        if copie and not bord and slot and grille.config.classe(jour.weekday(), debut, fin) == 2:
            copie = False  # a window would ask
        self.dit(f"{'bord ' * bord}{'copie ' * (copie and not bord)}{rdv.ref} de {nom} ({r},{c}) à ({r2},{c2})")
        self.peut, self.visees, self.lieu = True, [rdv], grille.config
        if slot and (copie and not bord or (jour, debut, fin) != (rdv.jour, rdv.debut, rdv.fin)) \
                and debut < fin <= 1439:
            self.promet_depot(grille, rdv, jour, debut, fin, copie and not bord)
            if not copie or bord:
                self.note_pose(rdv, jour, debut, grille.fauteuil)
        self.prog.glisse(de, vers, "Control_L" if copie else None)

    @staticmethod
    def minute(g, horaire, y, ligne):
        """The one at a height of the screen."""
        haut, hauteur = g["lignes"][ligne]
        return horaire.heure(ligne) + (y - g["surface"][1] - haut) / hauteur * horaire.pas if hauteur else 0

    @staticmethod
    def a_mi_chemin(horaire, minute):
        """As near to the slot above as to the one below."""
        return abs((minute - horaire.debut) / horaire.pas % 1 - 0.5) < 0.1

    def copiable(self, grille, rdv):
        lu, fiche = norme(rdv.ligne), self.patients.get(entier(rdv.ligne["NumPatient"]))
        juste = not fiche or (fiche["nom"], fiche["PreNom"]) == (lu["Nom"], lu["Prenom"])
        return juste and self.a_lui(grille)

    def a_lui(self, grille):
        return grille.fauteuil in [x.fauteuil for x in self.ctx.montre.configs]

    @staticmethod
    def depot(horaire, rdv, bord, bouge, dedans=True):
        """The hours after a drop so many minutes further down; `dedans`: taken from the same grid."""
        pas, bas = horaire.pas, min(horaire.heure(horaire.n + 1), 1439)
        avant = rdv.fin if bord else rdv.debut
        pres = avant if abs(bouge) * 2 < pas else \
            horaire.debut + math.floor((avant + bouge - horaire.debut) / pas + 0.5) * pas
        if bord:
            return rdv.debut, rdv.fin if pres == rdv.fin else max(min(pres, bas), rdv.debut + pas)
        duree = rdv.fin - rdv.debut
        dernier = horaire.debut + max(bas - horaire.debut - duree, 0) // pas * pas
        debut = rdv.debut if pres == rdv.debut and dedans else max(min(pres, dernier), horaire.debut)
        return debut, debut + duree

    def promet_depot(self, grille, rdv, jour, debut, fin, copie):
        lieu = {"Date1": str(jour), "DateInv": f"{jour:%Y%m%d}"} if copie or jour != rdv.jour else {}
        if copie or debut != rdv.debut:
            lieu["HeureDebut"] = debut
        if copie or fin != rdv.fin:
            lieu["HeureFin"] = fin
        if copie:
            lieu |= {n: norme(rdv.ligne)[n] for n in CHAMPS}
            self.classe = grille.config.classe(jour.weekday(), debut, fin)
        self.promet("ajoute" if copie else "edite", **lieu)
        self.promesse |= {"heures": (debut, fin), "jour": jour}
        self.fois["déposés"] += 1
        if copie:  # its own place is taken
            self.visees = []
