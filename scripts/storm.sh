#!/usr/bin/env bash
# Runs random operations for as long as you like.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: storm.sh [--sanitize] [--operations N] [--seed S] [ARGUMENT...]

Builds the storm and runs N random operations (10000 when not told) from seed S (or seeds: 1-20, N
operations each), checking what comes of them. Stops at the first fault, and prints its seed and the
shortest list of operations that still fails; that is written to storm-fault.storm as well.
  --sanitize      with the address, undefined behaviour and leak sanitizers; has to come first
  --replay FILE   runs such a list again
  --help          says this; the program has more: -- --help
TEXT
}

preset=dev
case "${1:-}" in
-h | --help)
    usage
    exit 0
    ;;
--sanitize)
    preset=asan
    shift
    ;;
esac

"$root/scripts/install-dependencies.sh" || exit 1

step "building the storm"
(cd "$root" && cmake --preset $preset && cmake --build --preset $preset --target storm) </dev/null

step "running the storm"
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} LC_ALL=C.UTF-8
export ASAN_OPTIONS=suppressions=$root/cmake/address.supp:detect_stack_use_after_return=1
export UBSAN_OPTIONS=print_stacktrace=1
export LSAN_OPTIONS=suppressions=$root/cmake/leak.supp:print_suppressions=0
trap - ERR # what it found is said already
exec "$root/build/$preset/tests/storm/storm" "$@"
