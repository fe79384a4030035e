#!/bin/sh
# usage: pkg-config.sh COMPILER FOLDER PREFIX [FLAG...]
#
# A program without CMake: what pkg-config says has to be all that a compiler needs. It also includes
# each installed class by its short name.
set -eu
source=$(dirname "$0")
compiler=$1
folder=$2
prefix=$3
shift 3

pc=$(find "$prefix"/lib* -name figura.pc)
PKG_CONFIG_PATH=$(dirname "$pc")
export PKG_CONFIG_PATH
pkg-config --atleast-version=1.0 figura
pkg-config --max-version=1.99 figura

mkdir -p "$folder"
find "$prefix/include/figura" -path "$prefix/include/figura/forwarding" -prune -o \
    -name '[A-Z]*.h' -print | sed 's|.*/\(.*\)\.h$|#include <Figura/\1>|' | sort >"$folder/all.cpp"
test "$(wc -l <"$folder/all.cpp")" -gt 70

# shellcheck disable=SC2046 # one word for each flag
"$compiler" "$@" -std=c++17 "$source/main.cpp" "$folder/all.cpp" -o "$folder/consumer" \
    $(pkg-config --cflags --libs figura)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir figura) QT_QPA_PLATFORM=offscreen "$folder/consumer"
