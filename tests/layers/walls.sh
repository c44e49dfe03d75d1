#!/bin/sh
# walls.sh TREE: prints each line of TREE's src/ and app/ that breaks a wall; fails if there is one.
set -eu
walls=$(cd "$(dirname "$0")" && pwd)/walls.awk
cd "$1"
# the CMake lists first: they tell what kind each source is
awk -f "$walls" $(find src -name CMakeLists.txt | LC_ALL=C sort) \
    $(find src app -name '*.h' -o -name '*.cpp' | LC_ALL=C sort)
