#!/usr/bin/env bash
# Builds the benchmarks as released and compares the library with what Qt offers.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: bench.sh [--quick | --instructions] [n...]

Compares Figura with QGraphicsView and with a bare painter at n figures (1000, 10000 and 100000
unless given) and writes the medians to build/bench/results-<n>.json.
  --quick         fewer and shorter repetitions, 1000 and 10000 figures
  --instructions  counts instructions with valgrind at 10000 and 100000 figures instead, and fails
                  when an operation grows more than it may
TEXT
}

counts=()
mode=full
while [ $# -gt 0 ]; do
    case "$1" in
    --quick) mode=quick ;;
    --instructions) mode=instructions ;;
    -h | --help)
        usage
        exit 0
        ;;
    *[!0-9]* | "") die "unknown argument $1; try --help" ;;
    *) counts+=("$1") ;;
    esac
    shift
done

export QT_QPA_PLATFORM=offscreen
compare=$root/build/bench/benchmarks/compare/compare

"$root/scripts/install-dependencies.sh" --bench || exit 1

step "building"
cd "$root"
cmake --preset bench >/dev/null
cmake --build --preset bench --target compare >/dev/null

# A million figures: only the sides that can be waited for, and few builds.
options_for()
{
    if [ "$mode" = quick ]; then
        echo "--repetitions 9 --builds 3 --milliseconds 3"
    elif [ "$1" -gt 200000 ]; then
        echo "--repetitions 9 --builds 1 --sides figura,floor,flat"
    else
        echo "--repetitions 9 --builds 9"
    fi
}

if [ "$mode" = instructions ]; then
    step "counting instructions"
    exec "$root/scripts/count-instructions.sh" "$compare" "${counts[@]:-}"
fi

if [ ${#counts[@]} = 0 ]; then
    counts=(1000 10000)
    [ "$mode" = quick ] || counts+=(100000)
fi
for count in "${counts[@]}"; do
    step "comparing at $count figures"
    # shellcheck disable=SC2046 # the options are words
    "$compare" --count "$count" $(options_for "$count") --router \
        --json "$root/build/bench/results-$count.json"
done
