#!/usr/bin/env bash
# Compares what the libraries offer to compiled programs with what they promised.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: abi-check.sh [--accept]

Fails when a program that was built with the promised state would no longer run: when a symbol is
gone, when a class that programs use has another size or another table of virtual operations, and
when the list of exported symbols is not the reviewed one.
  --accept   make the present state the promise (abi/NAME.abi) and the reviewed list
             (abi/NAME.symbols); for additions, and for a new major version. Look at the difference
             before you commit it.
TEXT
}

build=$root/build/package # not stripped, and with all that tells of types
promises=$root/abi

build_libraries()
{
    step "building the libraries"
    (cd "$root" && cmake --preset package && cmake --build --preset package) </dev/null
}

# The links without a version: one for each library.
list_libraries()
{
    find "$build/src" -name 'lib*.so' | sort
}

name_of()
{
    basename "$1" .so | sed 's/^lib//'
}

list_symbols()
{
    nm --dynamic --defined-only --demangle "$1" | cut -d ' ' -f 3- | LC_ALL=C sort -u
}

# Types of Qt and of the compiler have promises of their own: only our headers count.
describe()
{
    abidw --headers-dir "$root/include" --drop-private-types --exported-interfaces-only \
        --no-comp-dir-path --no-corpus-path --no-show-locs --out-file "$2" "$1"
    sed -i "s|path='$root/|path='|" "$2" # the same wherever the tree lies
}

accept()
{
    local name
    name=$(name_of "$1")
    step "accepting $name"
    mkdir -p "$promises"
    describe "$1" "$promises/$name.abi"
    list_symbols "$1" >"$promises/$name.symbols"
}

# Nobody can say later whether a foreign symbol may go, so that none is let out.
check_foreign_symbols()
{
    ! list_symbols "$1" | grep -v 'Velmora::Figura::'
}

check()
{
    local name
    name=$(name_of "$1")
    [ -f "$promises/$name.abi" ] || die "nothing is promised for $name yet; see --help"

    step "comparing the symbols of $name; accept the list once you have looked at it"
    check_foreign_symbols "$1"
    list_symbols "$1" | diff -u "$promises/$name.symbols" -

    step "comparing $name with its promise; nothing of it may go or change"
    describe "$1" "$build/$name.abi"
    abidiff --no-added-syms "$promises/$name.abi" "$build/$name.abi"
}

action=check
case "${1:-}" in
"") ;;
--accept) action=accept ;;
-h | --help)
    usage
    exit 0
    ;;
*) die "unknown argument $1; try --help" ;;
esac

"$root/scripts/install-dependencies.sh" --abi || exit 1
build_libraries
for library in $(list_libraries); do
    "$action" "$library"
done
