#!/bin/sh
cd "$(dirname "$0")/.." || exit
scripts/install-dependencies.sh --clang && exec cmake --workflow --preset tidy
