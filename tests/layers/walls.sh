#!/bin/sh
# walls.sh TREE QTCORE_HEADERS: prints each line of TREE's src/ and app/ that breaks a wall; fails if there is one.
set -eu
walls=$(cd "$(dirname "$0")" && pwd)/walls.awk
cd "$1"
find src app -name CMakeLists.txt -o -name '*.h' -o -name '*.cpp' 2>/dev/null |
    LC_ALL=C sort | awk -v qtcore="$2" -f "$walls"
