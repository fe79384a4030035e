#!/bin/sh
# How the instructions of each operation grow with the number of figures.
cd "$(dirname "$0")/.." && exec scripts/bench.sh --instructions
