#!/usr/bin/env bash
# Reads the vcpkg port and the Conan recipe as JSON, CMake and Python. Whether vcpkg and Conan take
# them is not known here.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

cd "$root/packaging"
version=$(sed -n 's/^    VERSION //p' "$root/CMakeLists.txt")

# What programs link with, such as Figura::Figura.
list_targets()
{
    sed -n 's/^add_library(\(Figura::[A-Za-z]*\) ALIAS.*/\1/p' "$root"/src/CMakeLists.txt \
        "$root"/src/*/CMakeLists.txt
}

# ... and the names of their files, such as figura.
list_libraries()
{
    sed -n 's/^add_library(\([a-z_]*\) SHARED)/\1/p' "$root"/src/CMakeLists.txt \
        "$root"/src/*/CMakeLists.txt
}

step "reading the vcpkg port"
python3 - "$version" <<'PYTHON'
import json
import sys

port = json.load(open("vcpkg/figura/vcpkg.json", encoding="utf-8"))
assert port["name"] == "figura", port["name"]
assert port["version-semver"] == sys.argv[1], port["version-semver"]
PYTHON
for target in $(list_targets); do
    grep -q "$target" vcpkg/figura/usage || die "vcpkg tells nobody of $target"
done
# Its commands are vcpkg's own: stubs take their place, so that the rest is read as CMake reads it.
reading=$(mktemp --suffix .cmake)
trap 'rm -f "$reading"' EXIT
{
    for command in vcpkg_check_linkage vcpkg_cmake_configure vcpkg_cmake_install \
        vcpkg_cmake_config_fixup vcpkg_fixup_pkgconfig vcpkg_install_copyright file; do
        echo "function($command)"
        echo "endfunction()"
    done
    echo "include($root/packaging/vcpkg/figura/portfile.cmake)"
} >"$reading"
cmake -D "CURRENT_PORT_DIR=$root/packaging/vcpkg/figura" -P "$reading"

step "reading the Conan recipe"
python3 - "$version" conan/conanfile.py conan/test_package/conanfile.py <<'PYTHON'
import ast
import sys

for path in sys.argv[2:]:
    tree = ast.parse(open(path, encoding="utf-8").read(), path)
    recipe = next(node for node in tree.body if isinstance(node, ast.ClassDef))
    for node in recipe.body:
        if isinstance(node, ast.Assign) and node.targets[0].id == "version":
            assert node.value.value == sys.argv[1], node.value.value
PYTHON
for library in $(list_libraries); do
    grep -q "libs = .*\"$library\"" conan/conanfile.py || die "the Conan recipe forgets $library"
done
echo "The recipes can be read, and name version $version."
