#!/bin/sh
cd "$(dirname "$0")/.." || exit
[ ! -x scripts/docs.sh ] || exec scripts/docs.sh
