#!/bin/sh
# The installed copy, pkg-config, and the use as a part of another tree.
cd "$(dirname "$0")/.." || exit
scripts/install-dependencies.sh --tests && exec cmake --workflow --preset install
