# shellcheck shell=bash disable=SC2034 # the names are used where this is sourced
# Sourced by the scripts beside it: strict mode, the root of the tree, and one clear line on failure.
set -Eeuo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
script=$(basename "$0")
doing="starting"

# Fewer would waste cores; Ninja chooses the same for the build.
export CTEST_PARALLEL_LEVEL=${CTEST_PARALLEL_LEVEL:-$(nproc 2>/dev/null || echo 2)}

# Qt grumbles where no session has made one.
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    export XDG_RUNTIME_DIR=$root/build/runtime
    # shellcheck disable=SC2174 # only the last folder has to be private
    mkdir -p -m 700 "$XDG_RUNTIME_DIR"
fi

step()
{
    doing=$1
    echo "== $script: $doing"
}

die()
{
    trap - ERR
    echo "$script: $*" >&2
    exit 1
}

trap 'die "failed while $doing; the lines above say why"' ERR
