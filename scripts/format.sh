#!/usr/bin/env bash
# Checks or applies .clang-format.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# Other versions break lines differently, so that only this one can judge.
version=14

find_formatter()
{
    command -v "clang-format-$version" || command -v clang-format || true
}

list_sources()
{
    find include src tests examples docs fuzz -type f \( -name '*.h' -o -name '*.cpp' \) -print0
}

formatter=$(find_formatter)
if [ -z "$formatter" ]; then
    die "clang-format is missing; install the package clang-format"
fi
if ! "$formatter" --version | grep -q "version $version\."; then
    echo "$script: skipped, as $("$formatter" --version) is not version $version"
    exit 0
fi

cd "$root"
case "${1:-check}" in
check)
    doing="checking the format; scripts/format.sh apply mends it"
    list_sources | xargs -0 "$formatter" --dry-run -Werror
    ;;
apply) list_sources | xargs -0 "$formatter" -i ;;
*) die "usage: format.sh [check|apply]" ;;
esac
