#!/usr/bin/env bash
# Installs the Debian packages that are needed to build and to run the demo, as far as they are
# missing; with --tests, --coverage, --fuzz, --bench, --clang, --package, --abi and --docs also what
# only these need.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

packages=(
    cmake ninja-build ccache g++ pkg-config
    qt6-base-dev qt6-svg-dev libgl-dev
    libgraphviz-dev graphviz zlib1g-dev
    fonts-dejavu-core
)
for purpose in "$@"; do
    case $purpose in
    --tests)
        packages+=(clang-format graphviz-doc imagemagick locales poppler-utils xauth xdotool xvfb)
        ;;
    --coverage) packages+=(gcovr) ;;
    --fuzz) packages+=(clang libclang-rt-dev) ;;
    --bench) packages+=(valgrind) ;;
    --clang) packages+=(clang clang-tidy) ;;
    --package) packages+=(lintian dpkg-dev file gzip python3) ;;
    --abi) packages+=(abigail-tools binutils) ;;
    --docs) packages+=(doxygen graphviz python3) ;;
    *) die "unknown argument $purpose" ;;
    esac
done

is_installed()
{
    [[ $(dpkg-query -W -f '${db:Status-Abbrev}' "$1" 2>/dev/null || true) == ?i* ]]
}

list_missing()
{
    local package
    for package in "${packages[@]}"; do
        is_installed "$package" || echo "$package"
    done
}

as_root()
{
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        die "root rights are needed (and there is no sudo) to install: ${missing[*]}"
    fi
}

apt()
{
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 "$@" </dev/null
}

if [ "${FIGURA_SKIP_INSTALL:-}" = 1 ]; then
    exit 0
fi
if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    die "there is no apt-get here. Install what your system calls ${packages[*]}, then set" \
        "FIGURA_SKIP_INSTALL=1"
fi

mapfile -t missing < <(list_missing)
if [ ${#missing[@]} = 0 ]; then
    exit 0
fi

step "installing ${missing[*]}"
apt update
apt install -y --no-install-recommends "${missing[@]}"
