"""A virtual screen with a window manager, the program on it, and its mouse, keys and witness."""
import json
import os
import select
import socket
import struct
import subprocess
import time
import zlib

from Xlib import X, XK, display
from Xlib.ext import xtest
from Xlib.protocol import event

ATTENTE = 20.0  # seconds for the screen, the window manager, the first window
REPONSE = 1.0  # seconds within which the program answers, whatever it does
DOUBLE_CLIC = 0.45  # seconds after which two clicks in one place are two clicks
MARQUE = 0x7E3014
SANS_GESTE = """<?xml version="1.0"?><openbox_config xmlns="http://openbox.org/3.4/rc">
<keyboard/><mouse><doubleClickTime>1</doubleClickTime></mouse></openbox_config>"""


class Faute(Exception):
    """What is wrong with the program."""


def attends(condition, limite, quoi):
    fin = time.monotonic() + limite
    while not (venu := condition()):
        if time.monotonic() > fin:
            raise Faute(f"{quoi} : toujours pas après {limite} s")
        time.sleep(0.005)
    return venu


class Ecran:
    def __init__(self, dossier):
        maison = os.path.join(dossier, "maison")
        os.makedirs(maison + "/.config/openbox", mode=0o700)
        with open(maison + "/.config/openbox/rc.xml", "w") as rc:
            rc.write(SANS_GESTE)
        garde = ("PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        self.env = {nom: os.environ[nom] for nom in garde if nom in os.environ}
        self.env |= {"HOME": maison, "XDG_RUNTIME_DIR": maison, "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "xcb",
                     "DBUS_SESSION_BUS_ADDRESS": "disabled:", "NO_AT_BRIDGE": "1"}
        self.journal = open(os.path.join(dossier, "ecran.log"), "w")
        lit, ecrit = os.pipe()
        self.processus = [self._lance(["Xvfb", "-displayfd", str(ecrit), "-screen", "0", "1280x1000x24", "-dpi", "96",
                                       "-nolisten", "tcp", "-noreset"], pass_fds=(ecrit,))]
        os.close(ecrit)
        if not select.select([lit], [], [], ATTENTE)[0]:
            raise RuntimeError("no virtual screen (is Xvfb installed?)")
        self.env["DISPLAY"] = ":" + os.read(lit, 16).decode().strip()
        subprocess.run(["setxkbmap", "fr", "oss"], env=self.env, check=True, stderr=self.journal)
        pret = os.path.join(dossier, "pret")
        self.processus.insert(0, self._lance(["openbox", "--sm-disable", "--startup", f"touch {pret}"]))
        attends(lambda: os.path.exists(pret), ATTENTE, "le gestionnaire de fenêtres")
        self.x = display.Display(self.env["DISPLAY"])
        self.dernier = (0, 0, 0.0)

    def _lance(self, commande, **suite):
        return subprocess.Popen(commande, env=self.env, stdout=self.journal, stderr=self.journal, **suite)

    def ferme(self):
        for processus in self.processus:  # the screen last
            processus.kill()
            processus.wait()
        self.journal.close()

    # ---- Mouse and keys

    def va(self, x, y):
        xtest.fake_input(self.x, X.MotionNotify, x=int(x), y=int(y))
        self.x.sync()

    def bouton(self, numero, presse):
        xtest.fake_input(self.x, X.ButtonPress if presse else X.ButtonRelease, numero)
        self.x.sync()

    def clic(self, x, y, bouton=1, fois=1):
        """Never taken for the second half of a double click with the click before."""
        attends(lambda: self.doux(x, y), 2, "un clic simple")
        self.va(x, y)
        for _ in range(fois):
            self.bouton(bouton, True)
            self.bouton(bouton, False)
        self.note(x, y)

    def doux(self, x, y):
        dx, dy, quand = self.dernier
        return abs(dx - x) + abs(dy - y) >= 12 or time.monotonic() > quand + DOUBLE_CLIC

    def note(self, x, y):
        self.dernier = (x, y, time.monotonic())

    def touche(self, nom, *avec):
        codes = [self._code(n)[0] for n in (*avec, nom)]
        for code in codes:
            xtest.fake_input(self.x, X.KeyPress, code)
        for code in reversed(codes):
            xtest.fake_input(self.x, X.KeyRelease, code)
        self.x.sync()

    def tient(self, nom):
        code = self._code(nom)[0]
        xtest.fake_input(self.x, X.KeyPress, code)
        return code

    def lache(self, code):
        xtest.fake_input(self.x, X.KeyRelease, code)
        self.x.sync()

    def _code(self, nom):
        symbole = XK.string_to_keysym(nom) if len(nom) > 1 else ord(nom)
        return min((rang, code) for code, rang in self.x.keysym_to_keycodes(symbole))[::-1]

    def tape(self, texte):
        for lettre in texte:
            _, rang = self._code(lettre)
            self.touche(lettre, *(["Shift_L"] if rang == 1 else []))

    def marque(self, fenetre, numero):
        """Behind everything sent before, on the way to the program."""
        cible = self.x.create_resource_object("window", fenetre)
        envoi = event.ClientMessage(window=cible, client_type=MARQUE, data=(32, [numero, 0, 0, 0, 0]))
        self.x.send_event(cible, envoi)
        self.x.flush()

    def image(self, fichier):
        racine = self.x.screen().root.get_geometry()
        brute = self.x.screen().root.get_image(0, 0, racine.width, racine.height, X.ZPixmap, 0xFFFFFFFF).data
        pixels = bytearray(len(brute) // 4 * 3)
        for couleur in range(3):
            pixels[couleur::3] = brute[2 - couleur::4]
        rang = racine.width * 3
        rangs = b"".join(b"\0" + pixels[i:i + rang] for i in range(0, len(pixels), rang))

        def morceau(nom, donnees):
            return struct.pack(">I", len(donnees)) + nom + donnees + struct.pack(">I", zlib.crc32(nom + donnees))

        with open(fichier, "wb") as sortie:
            sortie.write(b"\x89PNG\r\n\x1a\n"
                         + morceau(b"IHDR", struct.pack(">IIBBBBB", racine.width, racine.height, 8, 2, 0, 0, 0))
                         + morceau(b"IDAT", zlib.compress(rangs, 1)) + morceau(b"IEND", b""))


class Programme:
    """The program under test, and its witness."""

    def __init__(self, ecran, binaires, dossier, arguments):
        self.ecran = ecran
        self.erreurs = os.path.join(dossier, "stderr")
        chemin = os.path.join(dossier, "temoin")
        env = ecran.env | {"TEMOIN": chemin, "LD_PRELOAD": os.path.join(binaires, "temoin.so"),
                           "ASAN_OPTIONS": "verify_asan_link_order=0:halt_on_error=1:detect_leaks=0:"
                           + ecran.env.get("ASAN_OPTIONS", "")}
        with open(self.erreurs, "w") as erreurs:
            self.processus = subprocess.Popen([os.path.join(binaires, "tavelin"), *arguments], env=env, stderr=erreurs)
        self.lien = socket.socket(socket.AF_UNIX)
        attends(lambda: self.vit() and self.lien.connect_ex(chemin) == 0, ATTENTE, "le programme")
        self.numero = 0
        self.fenetre = None
        self.recu = b""
        self.fenetre = attends(self._principale, ATTENTE, "la fenêtre du carnet")

    def vit(self):
        code = self.processus.poll()
        plainte = open(self.erreurs).read() if code is not None else ""
        if code is not None:
            raise Faute(f"le programme a fini avec le code {code}\n{plainte[-3000:]}")
        return True

    def ordre(self, texte):
        try:
            self.lien.sendall(texte.encode() + b"\n")
        except OSError:
            attends(self.vit, 0.1, "fin")

    def _principale(self):
        """Before its first window is known the witness answers no mark: the root window tells its number."""
        racine = self.ecran.x.screen().root
        atome = self.ecran.x.intern_atom("_NET_CLIENT_LIST")
        liste = racine.get_full_property(atome, X.AnyPropertyType)
        self.vit()
        return liste.value[0] if liste is not None and len(liste.value) else None

    def etat(self, patience=REPONSE):
        """What is on the screen, everything sent having been dealt with."""
        self.numero += 1
        depuis = time.monotonic()
        self.ordre(f"etat {self.numero}")
        self.ecran.marque(self.fenetre, self.numero)
        while b"\n" not in self.recu:
            if select.select([self.lien], [], [], max(0.0, depuis + patience - time.monotonic()))[0]:
                morceau = self._lit(1 << 20)
                if not morceau:
                    attends(lambda: self.processus.poll() is not None, 5, "fin du programme")
                    self.vit()
                self.recu += morceau
            elif time.monotonic() >= depuis + patience:
                self.muet(depuis, patience)
        ligne, _, self.recu = self.recu.partition(b"\n")
        return Etat(json.loads(ligne))

    def _lit(self, combien, *comment):
        """Nothing when the program has gone."""
        try:
            return self.lien.recv(combien, *comment)
        except ConnectionResetError:
            return b""

    def muet(self, depuis, patience):
        """It has not answered in time: because it is busy, hangs, or is ending."""
        limite = depuis + 10
        while time.monotonic() < limite and self.vit() and not select.select([self.lien], [], [], 0.05)[0]:
            pass
        if time.monotonic() < limite and not self._lit(1, socket.MSG_PEEK):
            self.processus.wait(ATTENTE)
        self.vit()
        reste = "et ne répond plus" if time.monotonic() >= limite else f"mais en {time.monotonic() - depuis:.1f} s"
        raise Faute(f"pas de réponse en {patience} s, {reste}")

    def repos(self):
        """The same once the window that has the user's attention shows and takes the keys."""
        fin = time.monotonic() + 5
        while not (etat := self.etat()).pose():
            if time.monotonic() > fin:
                print(self.ecran.x.get_input_focus(), etat.fenetres[0]["numero"], [hex(w) for w in self.ecran.x.screen().root.get_full_property(self.ecran.x.intern_atom("_NET_CLIENT_LIST"),0).value], [hex(w) for w in self.ecran.x.screen().root.get_full_property(self.ecran.x.intern_atom("_NET_ACTIVE_WINDOW"),0).value])
                raise Faute(f"pas de repos : {etat.dessus}, {[(n, f['active']) for n, f in etat.par_nom.items()]}"
                            f"{' occupé' * etat.occupe}")
            time.sleep(0.005)
        return etat

    def finit(self):
        self.ordre("fin")
        code = self.processus.wait(ATTENTE)
        plaintes = open(self.erreurs).read()
        if code != 0 or "ERROR" in plaintes or "ASSERT" in plaintes or "runtime error" in plaintes:
            raise Faute(f"fin avec le code {code}\n{plaintes[-3000:]}")

    def tue(self):
        self.processus.kill()
        self.processus.wait()
        self.lien.close()


class Etat:
    """One look at the screen."""

    def __init__(self, brut):
        self.__dict__.update(brut)
        self.par_nom = {f["nom"]: f for f in self.fenetres}
        self.dessus = self.dessus or "FrmEntree"

    def pose(self):
        fenetre = self.par_nom.get(self.dessus)
        return not self.occupe and fenetre is not None and (self.surgis or fenetre["active"])

    def objets(self, fenetre=None):
        return self.par_nom[fenetre or self.dessus]["objets"]

    def objet(self, nom, fenetre=None):
        return next((o for o in self.objets(fenetre) if o["nom"] == nom), None)

    def texte(self, nom, fenetre=None):
        trouve = self.objet(nom, fenetre)
        return trouve and trouve["texte"] or ""

    def grille(self, nom, fenetre="FrmEntree"):
        return self.par_nom[fenetre]["grilles"].get(nom)

    def action(self, nom):
        return next(a for a in self.menus + self.barre if a["nom"] == nom)

    def du_menu(self, menu):
        return [a for a in self.menus if a["menu"] == menu and a["visible"]]
