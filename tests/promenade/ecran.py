"""The program on the screen that DISPLAY names: its mouse, its keys, and what its witness says of it."""
import json
import os
import select
import socket
import subprocess
import time

from Xlib import X, XK, display
from Xlib.ext import xtest
from Xlib.protocol import event

ATTENTE = 20.0  # seconds for the first window, and for the end
REPONSE = 1.0  # seconds within which the program answers, whatever it does
DOUBLE_CLIC = 0.45  # seconds after which two clicks in one place are two clicks
MARQUE = 0x7E3014
PLAINTES = ("ERROR", "ASSERT", "runtime error")


class Faute(Exception):
    """What is wrong with the program."""


def attends(condition, limite, quoi):
    fin = time.monotonic() + limite
    while not (venu := condition()):
        if time.monotonic() > fin:
            raise Faute(f"{quoi} : toujours pas après {limite} s")
        time.sleep(0.005)
    return venu


def centre(quoi):
    x, y, largeur, hauteur = quoi["cadre"]
    return x + largeur // 2, y + hauteur // 2


class Programme:
    def __init__(self, binaires, dossier, arguments):
        self.x = display.Display()
        self.dernier, self.numero, self.fenetre, self.recu = (0, 0, 0.0), 0, None, b""
        self.erreurs, chemin = dossier + "/stderr", dossier + "/temoin"
        porte = socket.socket(socket.AF_UNIX)
        porte.bind(chemin)
        porte.listen()
        env = os.environ | {"TEMOIN": chemin, "LD_PRELOAD": os.path.join(binaires, "temoin.so"),
                            "ASAN_OPTIONS": "verify_asan_link_order=0:halt_on_error=1:detect_leaks=0"}
        with open(self.erreurs, "w") as erreurs:
            self.processus = subprocess.Popen([binaires + "/tavelin", *arguments], env=env, stderr=erreurs)
        attends(lambda: self.vit() and select.select([porte], [], [], 0)[0], ATTENTE, "le programme")
        self.lien = porte.accept()[0]
        racine, atome = self.x.screen().root, self.x.intern_atom("_NET_CLIENT_LIST")
        self.fenetre = attends(lambda: self.vit()
                               and getattr(racine.get_full_property(atome, 0), "value", None), ATTENTE,
                               "la fenêtre du carnet")[0]

    # ---- Mouse and keys

    def frappe(self, *touches):
        """Keys by name and mouse buttons by number, held one after the other and let go."""
        quoi = [(X.ButtonPress, n) if isinstance(n, int) else (X.KeyPress, self._code(n)[0]) for n in touches]
        laches = [(genre + 1, code) for genre, code in reversed(quoi)]  # a release follows its press
        for sens in quoi + laches:
            xtest.fake_input(self.x, *sens)
        self.x.sync()

    def _code(self, nom):
        symbole = XK.string_to_keysym(nom) if len(nom) > 1 else ord(nom)
        return min((rang, code) for code, rang in self.x.keysym_to_keycodes(symbole))[::-1]

    def tape(self, texte):
        for lettre in texte:
            self.frappe(*["Shift_L"] * (self._code(lettre)[1] == 1), lettre)

    def va(self, x, y):
        xtest.fake_input(self.x, X.MotionNotify, x=int(x), y=int(y))
        self.x.sync()

    def clic(self, point, bouton=1, fois=1, loin=8):
        """Never taken for the second half of a double click with the click before, up to `loin` pixels away."""
        self.seul(point, loin)
        for _ in range(fois):
            self.frappe(bouton)

    def seul(self, point, loin=8):
        (dx, dy, quand), (x, y) = self.dernier, point
        attends(lambda: max(abs(dx - x), abs(dy - y)) > loin or time.monotonic() > quand + DOUBLE_CLIC, 2,
                "un clic")
        self.va(x, y)
        self.dernier = (x, y, time.monotonic())

    def glisse(self, d_ou, ou, avec=None):
        """From one point to another, perhaps with a key held."""
        self.seul(d_ou)
        code = avec and self._code(avec)[0]
        if code:
            xtest.fake_input(self.x, X.KeyPress, code)
        xtest.fake_input(self.x, X.ButtonPress, 1)
        self.va((d_ou[0] + ou[0]) / 2, (d_ou[1] + ou[1]) / 2)
        self.va(*ou)
        xtest.fake_input(self.x, X.ButtonRelease, 1)
        if code:
            xtest.fake_input(self.x, X.KeyRelease, code)
        self.x.sync()
        self.dernier = (*ou, time.monotonic())

    def ramene(self):
        """The window that the program has minimised."""
        racine, atome = self.x.screen().root, self.x.intern_atom("_NET_ACTIVE_WINDOW")
        demande = event.ClientMessage(window=self.fenetre, client_type=atome, data=(32, [2, 0, 0, 0, 0]))
        racine.send_event(demande, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.x.sync()

    def photographie(self, fichier):
        """What is on the screen, as long as the program answers."""
        try:
            self.ordre(f"image {fichier}")
            self.etat(patience=5)
        except Faute:
            pass  # another one is told already

    # ---- What the witness says

    def vit(self):
        code = self.processus.poll()
        if code is not None:
            raise Faute(f"le programme a fini avec le code {code}\n{open(self.erreurs).read()[-3000:]}")
        return True

    def ordre(self, texte):
        try:
            self.lien.sendall(texte.encode() + b"\n")
        except OSError:
            attends(self.vit, ATTENTE, "la fin")

    def etat(self, patience=REPONSE):
        """What is on the screen, everything sent having been dealt with."""
        self.numero += 1
        depuis = time.monotonic()
        self.ordre(f"etat {self.numero}")
        cible = self.x.create_resource_object("window", self.fenetre)
        self.x.send_event(cible, event.ClientMessage(window=cible, client_type=MARQUE,
                                                     data=(32, [self.numero, 0, 0, 0, 0])))
        self.x.flush()
        while b"\n" not in self.recu:
            reste = depuis + patience - time.monotonic()
            if select.select([self.lien], [], [], max(0.0, reste))[0]:
                self._recoit()
            elif reste < 0:
                attends(lambda: self.vit() and select.select([self.lien], [], [], 0.05)[0], 10, "une réponse")
                self._recoit()
                raise Faute(f"pas de réponse en {patience} s, mais en {time.monotonic() - depuis:.1f} s")
        ligne, _, self.recu = self.recu.partition(b"\n")
        return Etat(json.loads(ligne))

    def _recoit(self):
        try:
            morceau = self.lien.recv(1 << 20)
        except ConnectionResetError:
            morceau = b""
        if not morceau:
            self.processus.wait(ATTENTE)
            self.vit()
        self.recu += morceau

    def repos(self):
        """The same once the window that has the user's attention shows and takes the keys."""
        depuis = time.monotonic()
        while not (etat := self.etat()).pose():
            if time.monotonic() > depuis + 5:
                raise Faute(f"pas de repos : {etat.dessus}{' occupé' * etat.occupe}")
            if time.monotonic() > depuis + 1 and etat.dessus in etat.par_nom:  # the window manager has none
                self.x.set_input_focus(int(etat.par_nom[etat.dessus]["numero"]), X.RevertToParent, 0)
            time.sleep(0.005)
        return etat

    def finit(self):
        self.ordre("fin")
        code, plaintes = self.processus.wait(ATTENTE), open(self.erreurs).read()
        if code != 0 or any(p in plaintes for p in PLAINTES):
            raise Faute(f"fin avec le code {code}\n{plaintes[-3000:]}")


class Etat:
    """One look at the screen."""

    def __init__(self, brut):
        self.__dict__.update(brut)
        self.par_nom = {f["nom"]: f for f in self.fenetres}
        self.dessus = self.dessus or "FrmEntree"
        self.surgis = [a for a in self.actions if a["surgi"] and a["visible"]]

    def pose(self):
        return not self.occupe and self.dessus in self.par_nom and \
            (self.surgis or self.par_nom[self.dessus]["active"])

    def objets(self, fenetre=None):
        return self.par_nom[fenetre or self.dessus]["objets"]

    def objet(self, nom, fenetre=None):
        return next((o for o in self.objets(fenetre) if o["objectName"] == nom), None)

    def texte(self, nom, fenetre=None):
        return (self.objet(nom, fenetre) or {"text": ""})["text"].replace("\u00a0", " ")

    def textes(self):
        return {o["objectName"]: o["text"].strip() for o in self.objets() if "text" in o}

    def grille(self, nom, fenetre="FrmEntree"):
        return self.par_nom[fenetre]["grilles"].get(nom)

    def action(self, nom):
        return next(a for a in self.actions if a["objectName"] == nom)

    def du_menu(self, menu):
        return [a for a in self.actions if a["menu"] == menu and a["visible"]]
