#!/usr/bin/env bash
# Renders the pictures of the guide and of the examples anew.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: pictures.sh [PICTURE...]

Builds the examples with the preset dev and stores what they show in docs/images: all pictures, or
those named, such as layouts or printed-page. Look at them before you commit them.
TEXT
}

build=$root/build/dev
images=$root/docs/images
samples=$build/docs/guide/samples/guide-samples
scenes=(circle-layout coordinates damage diagrams diamonds many-figures routers survivors
    zoomed-at-mouse)

list_programs()
{
    (cd "$root/examples" && printf '%s\n' [0-9]*-*)
}

list_pictures()
{
    list_programs | cut -d- -f2-
    printf '%s\n' "${scenes[@]}" graph-viewer printed-page
}

program_of()
{
    local folder
    folder=$(list_programs | grep -- "^[0-9]*-$1\$")
    echo "$build/examples/$folder/$1"
}

render_page()
{
    "$(program_of printing-and-export)" "$build/printed-page.pdf"
    pdftoppm -png -singlefile -r 60 "$build/printed-page.pdf" "$images/printed-page"
}

render_graph()
{
    "$build/examples/graph-viewer/graph-viewer" --render "$images/graph-viewer.png" \
        "$root/examples/graph-viewer/samples/build-pipeline.gv"
}

render()
{
    step "rendering $1"
    if [ "$1" = printed-page ]; then
        render_page
    elif [ "$1" = graph-viewer ]; then
        render_graph
    elif [[ " ${scenes[*]} " == *" $1 "* ]]; then
        "$samples" "$1" "$images/$1.png"
    else
        "$(program_of "$1")" "$images/$1.png"
    fi
}

if [[ "${1:-}" == -* ]]; then
    usage
    exit 0
fi

"$root/scripts/install-dependencies.sh" --tests || exit 1

step "building the examples"
mapfile -t programs < <(list_programs | cut -d- -f2-)
(cd "$root" && cmake --preset dev >/dev/null)
cmake --build "$build" --target guide-samples graph-viewer "${programs[@]}" </dev/null

# As for the tests, so that every machine makes the same pictures.
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
mapfile -t pictures < <(if [ $# -gt 0 ]; then printf '%s\n' "$@"; else list_pictures; fi)
for picture in "${pictures[@]}"; do
    render "$picture"
done
