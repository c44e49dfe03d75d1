#!/bin/sh
# sous-ecran.sh PROGRAM [ARG...]: runs PROGRAM on a virtual screen of its own, a window manager on it, and gives
# its exit code. Nothing of the user's own desktop or settings takes part, and nothing outlives the call.
set -u

limite=20    # seconds for the screen and for the window manager
duree=240    # seconds for the program: less than ctest's own limit, which would leave the screen behind
taille=1280x1000x24

dossier=$(mktemp -d) || exit 1
ecran='' bureau='' programme=''

nettoie() {
    trap - EXIT
    trap '' HUP INT TERM
    # the screen last: what draws on it ends of itself when it goes
    for processus in $programme $bureau $ecran; do
        kill "$processus" 2>/dev/null
    done
    wait
    rm -rf "$dossier"
}
trap nettoie EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

echoue() {
    echo "sous-ecran.sh: $*" >&2
    cat "$dossier/journal" >&2
    exit 1
}

# Waits for a line from the pipe $1; prints it.
ligne() { timeout "$limite" head -n 1 "$dossier/$1"; }

# Only the program under test is built with sanitizers.
nu() { exec env -u LD_PRELOAD -u ASAN_OPTIONS -u LSAN_OPTIONS -u UBSAN_OPTIONS "$@"; }

mkfifo "$dossier/ecran" "$dossier/bureau" && : >"$dossier/journal" && mkdir -m 700 "$dossier/maison" || exit 1
HOME=$dossier/maison
XDG_RUNTIME_DIR=$HOME
LC_ALL=C.UTF-8
QT_QPA_PLATFORM=xcb
QT_XCB_GL_INTEGRATION=none
DBUS_SESSION_BUS_ADDRESS=disabled:
NO_AT_BRIDGE=1
export HOME XDG_RUNTIME_DIR LC_ALL QT_QPA_PLATFORM QT_XCB_GL_INTEGRATION DBUS_SESSION_BUS_ADDRESS NO_AT_BRIDGE
unset XDG_CONFIG_HOME XDG_CACHE_HOME XDG_DATA_HOME XDG_CURRENT_DESKTOP WAYLAND_DISPLAY XAUTHORITY LANGUAGE \
    QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_FONT_DPI QT_IM_MODULE

(nu Xvfb -displayfd 3 -screen 0 "$taille" -dpi 96 -nolisten tcp -noreset 3>"$dossier/ecran" 2>>"$dossier/journal") &
ecran=$!
numero=$(ligne ecran)
[ -n "$numero" ] || echoue "no virtual screen (is Xvfb installed?)"
DISPLAY=:$numero
export DISPLAY
# The window manager takes no click and no key for itself: a click that it looks at first comes late.
mkdir -p "$HOME/.config/openbox"
echo '<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard/><mouse/></openbox_config>' \
    >"$HOME/.config/openbox/rc.xml"
# A French keyboard: xdotool puts a letter that the keyboard lacks on a spare key, one letter after the other, faster
# than programs hear of it. The screen keeps it, also while nobody is connected (-noreset).
(nu setxkbmap fr oss 2>>"$dossier/journal") || echoue "no French keyboard (is setxkbmap installed?)"

(nu openbox --sm-disable --startup "sh -c 'echo >$dossier/bureau'" >>"$dossier/journal" 2>&1) &
bureau=$!
ligne bureau >/dev/null || echoue "no window manager (is openbox installed?)"

timeout -k 5 "$duree" "$@" &
programme=$!
wait "$programme"
code=$?
programme=''
exit "$code"
