"""The other workstation: books, moves, deletes, locks the book, takes it away and gives it back."""
import datetime
import os
import shutil
import sqlite3

import cabinet
from oracle import lit_base


class Tiers:
    def __init__(self, fichier, h):
        self.fichier, self.h = fichier, h
        self.cache = fichier + ".parti"
        self.lisible = True

    def lit(self):
        return lit_base(self.fichier if self.lisible else self.cache)

    def _ecrit(self, sql, *valeurs):
        lien = sqlite3.connect(self.fichier, timeout=5)
        with lien:
            lien.execute(sql, valeurs)
        lien.close()

    def verrou(self):
        """Nobody else reads or writes until the connection is closed."""
        lien = sqlite3.connect(self.fichier, timeout=5, isolation_level=None)
        lien.execute("begin exclusive")
        return lien

    def emporte(self, tronque):
        os.rename(self.fichier, self.cache)
        if tronque:
            shutil.copy(self.cache, self.fichier)
            os.truncate(self.fichier, os.path.getsize(self.fichier) // 3 + 100)
        self.lisible = False

    def rapporte(self):
        os.rename(self.cache, self.fichier)
        self.lisible = True

    def ecrit(self, livre, vue, vise):
        """One change, on the appointment `vise` or on one of the practitioner's; says what it did."""
        h = self.h
        du_prat = [ref for ref, l in livre.tables["RDV"].items() if l["NumPraticien"].strip("0 ") == str(vue.prat)]
        ref = vise if vise and h.random() < 0.7 else h.choice(du_prat) if du_prat else 0
        quoi = h.choice(("ajoute", "ajoute", "deplace", "deplace", "supprime", "present", "nom", "config"))
        if quoi == "ajoute":
            jour = vue.jour - datetime.timedelta(vue.jour.weekday() - h.randrange(7))
            champs = cabinet.rendez_vous(h, jour, h.randrange(450, 1120, 5), h.choice((10, 30, 60)), vue.prat,
                                         vue.config.fauteuil)
            self._ecrit(f"insert into RDV ({', '.join(champs)}) values ({', '.join('?' * len(champs))})",
                        *champs.values())
        elif quoi == "deplace":
            debut = h.randrange(450, 1120, 5)
            self._ecrit("update RDV set HeureDebut = ?, HeureFin = ? where RefRDV = ?", cabinet.heure(debut),
                        cabinet.heure(debut + h.choice((10, 30, 60))), ref)
        elif quoi == "supprime":
            self._ecrit("delete from RDV where RefRDV = ?", ref)
        elif quoi == "present":
            self._ecrit("update RDV set Present = not Present where RefRDV = ?", ref)
        elif quoi == "nom":
            self._ecrit("update RDV set Nom = ?, Description = 'changé' where RefRDV = ?", h.choice(cabinet.NOMS), ref)
        elif h.random() < 0.3:
            self._ecrit("delete from Config where rowid = (select max(rowid) from Config where NumPraticien not in "
                        "('00', ?))", f"0{vue.prat}")
        return f"{quoi} {ref}"
