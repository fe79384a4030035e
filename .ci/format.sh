#!/bin/sh
cd "$(dirname "$0")/.." || exit
scripts/install-dependencies.sh --tests && exec scripts/format.sh check
