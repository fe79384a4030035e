#!/usr/bin/env bash
# Builds, edits, zooms and destroys a large diagram again and again, and watches the memory.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: soak.sh [ROUNDS [FIGURES]]

Runs ROUNDS rounds (200) with a diagram of FIGURES figures (5000) and compares the memory in use
after the last round with that after the twentieth. The ordinary tests do the same with less.
TEXT
}

case "${1:-}" in
-h | --help)
    usage
    exit 0
    ;;
esac

"$root/scripts/install-dependencies.sh" || exit 1

step "building the soak test"
(cd "$root" && cmake --preset dev && cmake --build --preset dev --target tst_soak) </dev/null

step "soaking"
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} LC_ALL=C.UTF-8
export FIGURA_SOAK_ROUNDS=${1:-200} FIGURA_SOAK_FIGURES=${2:-5000}
export QTEST_FUNCTION_TIMEOUT=7200000
"$root/build/dev/tests/storm/tst_soak"
