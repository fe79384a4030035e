#!/usr/bin/env bash
# Installs what is missing, builds everything and runs all tests.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: test.sh [--sanitize]

Installs what is missing, checks the format, builds everything and runs all tests.
  --sanitize   with the address, undefined behaviour and leak sanitizers
TEXT
}

# A program holds many test functions; both numbers are worth knowing.
print_summary()
{
    awk -v preset="$preset" '
        /^Totals: / { programs++; passed += $2; failed += $4; skipped += $6 }
        END {
            printf "%s: %d tests passed, %d failed, %d skipped in %d programs\n",
                   preset, passed, failed, skipped, programs
        }' "$root/build/$preset/Testing/Temporary/LastTest.log"
}

preset=dev
case "${1:-}" in
"") ;;
--sanitize) preset=asan ;;
-h | --help)
    usage
    exit 0
    ;;
*) die "unknown argument $1; try --help" ;;
esac

"$root/scripts/install-dependencies.sh" --tests || exit 1

step "checking the format"
"$root/scripts/format.sh" check

step "building and testing with the preset $preset"
(cd "$root" && cmake --workflow --preset "$preset" </dev/null)

print_summary
