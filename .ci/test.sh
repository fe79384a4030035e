#!/bin/sh
# The format, g++ without a warning, every public header on its own, and all tests, those of the
# installed copy included.
cd "$(dirname "$0")/.." || exit
exec scripts/test.sh
