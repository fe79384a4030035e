#!/usr/bin/env bash
# Makes the Debian packages, and tries them on this machine if told so.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: package.sh [--try]

Makes libfigura1, libfigura-diagram1, libfigura-dev and libfigura-doc in build/package and checks
them with lintian.
  --try   also installs them on this machine with apt, builds and runs programs with them through
          CMake and through pkg-config, and removes them again; needs root
TEXT
}

build=$root/build/package

make_packages()
{
    "$root/scripts/docs.sh"
    step "building the packages"
    rm -f "$build"/*.deb
    (cd "$root" && cmake --preset package && cmake --build --preset package &&
        cd "$build" && cpack -G DEB) </dev/null
}

check_packages()
{
    step "checking the packages with lintian"
    # Root may build as well; the user name in a log is no fault of the package.
    lintian --allow-root --fail-on error "$build"/*.deb
}

remove_packages()
{
    local names
    mapfile -t names < <(for deb in "$build"/*.deb; do dpkg-deb -f "$deb" Package; done)
    step "removing ${names[*]}"
    DEBIAN_FRONTEND=noninteractive apt-get -q purge -y "${names[@]}" </dev/null
}

# try_project FOLDER PROGRAM [ARGUMENT...]
try_project()
{
    cmake -S "$root/$1" -B "$build/try/$2" -G Ninja
    cmake --build "$build/try/$2"
    "$build/try/$2/$2" "${@:3}"
}

try_packages()
{
    step "installing the packages"
    trap remove_packages EXIT
    DEBIAN_FRONTEND=noninteractive apt-get -q install -y --no-install-recommends \
        "$build"/*.deb </dev/null

    step "building programs with the installed packages"
    rm -rf "$build/try"
    export QT_QPA_PLATFORM=offscreen
    try_project tests/install consumer
    try_project examples/00-ten-lines ten-lines "$build/try/ten-lines.svg"
    "$root/tests/install/pkg-config.sh" c++ "$build/try/pkg-config" /usr
    echo "Programs were built with the packages through CMake and through pkg-config, and ran."
}

case "${1:-}" in
"" | --try) ;;
-h | --help)
    usage
    exit 0
    ;;
*) die "unknown argument $1; try --help" ;;
esac

"$root/scripts/install-dependencies.sh" --package || exit 1
make_packages
check_packages
if [ "${1:-}" = --try ]; then
    try_packages
fi
