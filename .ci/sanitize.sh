#!/bin/sh
# All tests once more with the address, undefined behaviour and leak sanitizers.
cd "$(dirname "$0")/.." || exit
exec scripts/test.sh --sanitize
