#!/bin/sh
# The reference; what is public and not documented is an error.
cd "$(dirname "$0")/.." && exec scripts/docs.sh
