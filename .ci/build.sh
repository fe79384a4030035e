#!/bin/sh
# g++; warnings are errors, and each header is compiled on its own.
cd "$(dirname "$0")/.." || exit
scripts/install-dependencies.sh --tests && exec cmake --workflow --preset build
