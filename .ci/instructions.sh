#!/bin/sh
cd "$(dirname "$0")/.." && exec scripts/bench.sh --instructions
