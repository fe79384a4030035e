#!/bin/sh
# The installed copy, pkg-config, and the use as a part of another tree.
cd "$(dirname "$0")/.." || exit
exec ctest --preset install
