#!/bin/sh
# What compiled programs rely on.
cd "$(dirname "$0")/.." && exec scripts/abi-check.sh
