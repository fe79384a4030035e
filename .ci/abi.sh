#!/bin/sh
cd "$(dirname "$0")/.." && exec scripts/abi-check.sh
