#!/usr/bin/env bash
# Lets a fuzzer look for lists of operations that break the library.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: fuzz.sh SECONDS [ARGUMENT...]

Installs what is missing, builds the storm as a fuzz target and runs it for SECONDS. New inputs are
kept in build/fuzz/corpus, those that fail in build/fuzz/findings. All further arguments go to the
fuzzer. To see what a finding does, boiled down:
  build/dev/tests/storm/storm --bytes build/fuzz/findings/crash-...
TEXT
}

case "${1:-}" in
-h | --help)
    usage
    exit 0
    ;;
"" | *[!0-9]*) die "how many seconds? Try --help" ;;
esac
seconds=$1
shift

"$root/scripts/install-dependencies.sh" --fuzz || exit 1

step "building the fuzz target"
(cd "$root" && cmake --preset fuzz && cmake --build --preset fuzz --target fuzz_storm) </dev/null

step "fuzzing for $seconds seconds"
mkdir -p "$root/build/fuzz/corpus" "$root/build/fuzz/findings"
export ASAN_OPTIONS=suppressions=$root/cmake/address.supp:detect_leaks=0:handle_abort=1
export UBSAN_OPTIONS=print_stacktrace=1
"$root/build/fuzz/fuzz/fuzz_storm" -max_total_time="$seconds" -max_len=1200 -timeout=60 \
    -rss_limit_mb=4096 -print_final_stats=1 -artifact_prefix="$root/build/fuzz/findings/" "$@" \
    "$root/build/fuzz/corpus" "$root/fuzz/corpus"
