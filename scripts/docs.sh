#!/usr/bin/env bash
# Makes the reference from the public headers.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: docs.sh [FOLDER]

Makes the reference, with the guide beside it, as HTML in FOLDER/html (build/docs/html, if none is
named) and its tag file in FOLDER/figura.tags. Fails when something public is not documented. Where
Qt's own documentation is installed, the names of Qt link to it; FIGURA_QT_DOCS names its folder.
TEXT
}

# Qt ships one tag file for each module beside the pages of that module.
list_tag_files()
{
    local docs=${FIGURA_QT_DOCS:-} tags
    if [ -z "$docs" ]; then
        docs=$(qtpaths6 --query QT_INSTALL_DOCS 2>/dev/null || true)
    fi
    for tags in "$docs"/qt{core,gui,widgets,printsupport}/*.tags; do
        if [ -f "$tags" ]; then
            echo "$tags=$(dirname "$tags")"
        fi
    done
}

# What Doxygen cannot follow it leaves as it was, without a word.
check_links()
{
    (cd "$folder/html" && python3 - ./*.html) <<'PYTHON'
import os
import re
import sys

lost = False
for page in sys.argv[1:]:
    with open(page, encoding="utf-8") as text:
        targets = set(re.findall(r'(?:href|src)="([^"#]+)', text.read()))
    for target in sorted(targets):
        if not re.match(r"[a-z]+:", target) and not os.path.exists(target):
            print(f"{page}: nothing is at {target}")
            lost = True
sys.exit(lost)
PYTHON
}

case "${1:-}" in
-h | --help)
    usage
    exit 0
    ;;
-*) die "unknown argument $1; try --help" ;;
esac

folder=$(realpath -m "${1:-$root/build/docs}")

"$root/scripts/install-dependencies.sh" --docs || exit 1

step "making the reference in $folder"
mkdir -p "$folder"
cd "$root"
mapfile -t tag_files < <(list_tag_files)
version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt | head -1)
doxygen - <<TEXT
$(cat docs/Doxyfile)
PROJECT_NUMBER = $version
OUTPUT_DIRECTORY = "$folder"
GENERATE_TAGFILE = "$folder/figura.tags"
TAGFILES = $(printf '"%s" ' "${tag_files[@]}")
TEXT

step "following the links"
ln -sfn "$root/examples" "$folder/examples"
ln -sfn "$root/docs" "$folder/docs"
check_links
echo "$folder/html/index.html"
