#!/bin/sh
# All tests but those of the installed copy, which have a gate of their own.
cd "$(dirname "$0")/.." || exit
exec ctest --preset dev --label-exclude package -j "$(nproc)"
