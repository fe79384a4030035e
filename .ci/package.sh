#!/bin/sh
# The Debian packages, and the recipes of other package managers as far as they can be read here.
cd "$(dirname "$0")/.." || exit
scripts/package.sh && exec scripts/check-recipes.sh
