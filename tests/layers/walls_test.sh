#!/bin/sh
# walls_test.sh QTCORE_HEADERS: proves that walls.sh can fail. Each row plants one line in a file of its own
# and tells the first words of the wall that must report it, and nothing else; "-" wants silence.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
failed=0

check() { # FILE WALL LINE
    rm -rf "${tree:?}"/*
    mkdir -p "$tree/src/grid" "$tree/src/start" "$tree/src/platform/db" "$tree/src/platform/ui" "$tree/app"
    cat >"$tree/src/grid/CMakeLists.txt" <<'END'
tavelin_library(grid_rules SOURCES Creneaux.cpp LINK Qt6::Core)
tavelin_library(grid_tables SOURCES RendezVousTables.cpp EtatsTables.cpp FrmSql.cpp LINK grid_rules)
tavelin_library(grid_windows
  SOURCES Dessin.cpp FrmZoom.cpp Panneau.h # drawing
  LINK grid_tables platform_ui)
END
    echo 'tavelin_library(start_windows SOURCES FrmEntree.cpp Lancement.cpp)' >"$tree/src/start/CMakeLists.txt"
    printf '%s\n' "$3" >"$tree/$1"
    status=0
    output=$(sh "$here/walls.sh" "$tree" "$qtcore") || status=$?
    case $2:$status:$output in
    "-:0:1 files, 0 faults") return ;;
    "$2:1:$1:1: $2"*"
1 files, 1 faults") return ;;
    esac
    failed=$((failed + 1))
    printf 'FAILED (wanted "%s"): %s: %s\n%s\n' "$2" "$1" "$3" "$output"
}

qtcore=$1
while IFS='|' read -r file wall line; do
    check "$file" "$wall" "$line"
done <<'END'
src/grid/Creneaux.h|-|#include <QDateTime>
src/grid/Creneaux.h|-|#include <algorithm>
src/grid/Creneaux.cpp|-|#include "schedule/Creneaux.h"
src/grid/Creneaux.cpp|-|#include "schedule/Configuration.h"
src/grid/Creneaux.cpp|rules include|#include <QWidget>
src/grid/Creneaux.cpp|rules include|#  include <QtGui/QPixmap>
src/grid/Creneaux.cpp|rules include|#include <QSqlQuery>
src/grid/Creneaux.cpp|rules include|#include <unistd.h>
src/grid/Creneaux.cpp|rules include|#include "platform/ui/Twips.h"
src/grid/Creneaux.cpp|rules include|#include "platform/db/Database.h"
src/grid/Creneaux.cpp|rules include|#include "grid/RendezVousTables.h"
src/grid/Creneaux.cpp|rules include|#include "patients/RechercheTables.h"
src/grid/Creneaux.cpp|rules include|#include "grid/Dessin.h"
src/grid/Creneaux.cpp|rules include|#include "Dessin.h"
src/grid/Creneaux.cpp|rules include|#include "../grid/FrmZoom.h"
src/grid/Creneaux.cpp|rules include|#include "ui_FrmZoom.h"
src/grid/Creneaux.cpp|rules include|#include "start/VariablesGlobales.h"
src/grid/Panneau.h|-|#include <QPushButton>
src/grid/EnteteSeule.h|rules include|#include <QPushButton>
src/grid/Creneaux.cpp|the time comes|    const QDate jour = QDate::currentDate();
src/grid/RendezVousTables.cpp|the time comes|    depuis(QTime::currentTime());
src/grid/FrmZoom.cpp|the time comes|    m_debut = QDateTime::currentDateTime ();
src/start/VariablesGlobales.h|-|    std::function<QDateTime()> maintenant = [] { return QDateTime::currentDateTime(); };
src/grid/RendezVousTables.cpp|-|#include "platform/db/Database.h"
src/grid/RendezVousTables.cpp|-|#include "platform/db/DateInverse.h"
src/grid/RendezVousTables.cpp|-|    base.query(SqlText("Select * from RDV"));
src/grid/RendezVousTables.cpp|tables include|#include <QImage>
src/grid/RendezVousTables.cpp|tables include|#include "platform/ui/Messages.h"
src/grid/RendezVousTables.h|tables include|#include "start/VariablesGlobales.h"
src/grid/RendezVousTables.h|tables include|#include "grid/Dessin.h"
src/grid/FrmZoom.cpp|-|#include <QDialog>
src/grid/FrmZoom.cpp|-|#include "platform/db/Database.h"
src/grid/FrmZoom.cpp|-|    setWindowTitle(QStringLiteral("Selection du jour"));
src/grid/FrmZoom.cpp|windows hold no SQL|#include "platform/db/SqlText.h"
src/grid/FrmZoom.cpp|windows hold no SQL|    base.query(SqlText(requete));
src/grid/Dessin.cpp|windows hold no SQL|    const char *requete = "select * from RDV";
src/grid/GrilleJour.cpp|windows hold no SQL|    lance("DELETE " + suite);
app/main.cpp|windows hold no SQL|    lance("Update RDV set Venu = 1");
src/grid/FrmSql.cpp|its name and its library|
src/grid/FrmZoom.cpp|the main window|#include "start/FrmEntree.h"
src/start/FrmQuit.cpp|the main window|#include "FrmEntree.h"
src/start/FrmEntree.cpp|-|#include "start/FrmEntree.h"
src/start/Lancement.cpp|-|#include "start/FrmEntree.h"
app/main.cpp|-|#include "start/FrmEntree.h"
src/grid/FrmZoom.cpp|message boxes|    QMessageBox::critical(this, titre, texte);
src/platform/ui/FlexGrid.cpp|message boxes|#include <QMessageBox>
app/main.cpp|message boxes|#include <QMessageBox>
src/platform/ui/Messages.cpp|-|#include <QMessageBox>
src/grid/FrmZoom.cpp|-|    demande(); // never a QMessageBox
src/platform/ui/FlexGrid.cpp|the platform layer|#include "schedule/Creneaux.h"
src/platform/db/Database.cpp|the platform layer|#include <start/DateInverse.h>
src/platform/ui/FlexGrid.cpp|-|#include "platform/ui/Twips.h"
src/platform/db/Database.cpp|SQLite stays|#include <sqlite3.h>
src/platform/db/SqliteEngine.cpp|-|#include <sqlite3.h>
END

# A tree without sources is a wrong path, not a clean tree.
rm -rf "${tree:?}"/*
if sh "$here/walls.sh" "$tree" "$qtcore"; then
    failed=$((failed + 1))
    echo "FAILED: an empty tree passes"
fi
echo "$failed rows failed"
[ "$failed" -eq 0 ]
