#!/bin/sh
# clang++; warnings are errors.
cd "$(dirname "$0")/.." || exit
scripts/install-dependencies.sh --clang && exec cmake --workflow --preset clang
