#!/bin/sh
# usage: pkg-config.sh COMPILER FOLDER PREFIX [FLAG...]
#
# Programs without CMake: what pkg-config says has to be all that a compiler needs. The first also
# includes each installed class by its short name.
set -eu
source=$(dirname "$0")
compiler=$1
folder=$2
prefix=$3
shift 3
flags=$*

pc=$(find "$prefix"/lib* -name figura.pc)
PKG_CONFIG_PATH=$(dirname "$pc")
export PKG_CONFIG_PATH
pkg-config --atleast-version=1.0 figura
pkg-config --max-version=1.99 figura

mkdir -p "$folder"
find "$prefix/include/figura" -path "$prefix/include/figura/forwarding" -prune -o \
    -name '[A-Z]*.h' -print | sed 's|.*/\(.*\)\.h$|#include <Figura/\1>|' | sort >"$folder/all.cpp"
test "$(wc -l <"$folder/all.cpp")" -gt 70

# build MODULE SOURCE...: a program that bears the name of the module.
build()
{
    module=$1
    shift
    # shellcheck disable=SC2046,SC2086 # one word for each flag
    "$compiler" $flags -std=c++17 "$@" -o "$folder/$module" $(pkg-config --cflags --libs "$module")
}

LD_LIBRARY_PATH=$(pkg-config --variable=libdir figura)
QT_QPA_PLATFORM=offscreen
export LD_LIBRARY_PATH QT_QPA_PLATFORM
build figura "$source/main.cpp" "$folder/all.cpp"
"$folder/figura"

# The diagram library may have been left out.
if [ -d "$prefix/include/figura/diagram" ]; then
    build figura-diagram "$source/../../examples/00-ten-lines/main.cpp"
    "$folder/figura-diagram" "$folder/diagram.svg"
    grep -q 'Boil water' "$folder/diagram.svg"
fi
