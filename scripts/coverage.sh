#!/usr/bin/env bash
# Measures which lines and branches of the library the tests run, and holds them to the bar.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: coverage.sh [--report-only]

Builds the libraries with the preset coverage and the tests with the preset dev, runs the tests with
these libraries, and fails when fewer than 99 % of the lines or 95 % of the branches of src/ ran, or
when a line that did not run with all of its branches is not listed in docs/coverage.md.
  --report-only   the numbers of the last run, without building or testing
TEXT
}

report_only=
case "${1:-}" in
"") ;;
--report-only) report_only=1 ;;
-h | --help)
    usage
    exit 0
    ;;
*) die "unknown argument $1; try --help" ;;
esac

folder=$root/build/coverage
tests=$root/build/dev

if [ -z "$report_only" ]; then
    "$root/scripts/install-dependencies.sh" --tests --coverage || exit 1

    step "building the libraries with the preset coverage"
    cmake --preset coverage -S "$root" >/dev/null
    cmake --build "$folder" --target src/all

    # They need no counters of their own, and are there already where somebody works.
    step "building the tests with the preset dev"
    cmake --preset dev -S "$root" >/dev/null
    cmake --build "$tests"

    # Without this the tests of deletions take only one row in so many.
    step "running the tests, with all rows"
    find "$folder" -name '*.gcda' -delete
    (
        cd "$tests"
        export LD_LIBRARY_PATH=$folder/src:$folder/src/diagram FIGURA_ALL_DELETIONS=1
        ctest --output-on-failure --label-exclude package
    )
fi

step "measuring"
# The compiler makes a branch for each call that may throw; nobody wrote those.
gcovr --root "$root" --filter 'src/' --object-directory "$folder/src" \
    --exclude-throw-branches --exclude-unreachable-branches \
    --json "$folder/coverage.json" "$folder/src"
"$root/scripts/coverage_report.py" "$folder/coverage.json" "$root/docs/coverage.md"
