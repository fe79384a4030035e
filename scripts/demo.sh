#!/usr/bin/env bash
# Shows a graph with the graph viewer.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: demo.sh [FILE.gv] [ARGUMENT...]

Installs what is missing, builds the graph viewer and opens FILE.gv (a sample, if none is named) in
its window. Without a display the same window is rendered to a picture, whose path is printed. All
further arguments go to the viewer, for example:
  --engine NAME      dot, neato, fdp, circo or twopi
  --render OUT.png   only render to this picture
TEXT
}

viewer=$root/build/release/examples/graph-viewer/graph-viewer

build_viewer()
{
    step "building the graph viewer"
    (cd "$root" && cmake --preset release && cmake --build --preset release --target graph-viewer) \
        </dev/null
}

# A variable can name a display that is gone. Whether Qt can open one, only Qt knows: it aborts.
has_display()
{
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || return 1
    # In one shell more, so that it is that one which reports the abort, and to nobody.
    (ulimit -c 0 && "$viewer" --help && true) &>/dev/null </dev/null
}

show()
{
    step "showing $1"
    "$viewer" "$@"
}

render()
{
    step "rendering $1"
    QT_QPA_PLATFORM=offscreen "$viewer" "$@"
}

case "${1:-}" in
-h | --help)
    usage
    exit 0
    ;;
"" | -*) set -- "$root/examples/graph-viewer/samples/build-pipeline.gv" "$@" ;;
esac

"$root/scripts/install-dependencies.sh" || exit 1
build_viewer

if [[ " $* " == *" --render"* ]]; then
    render "$@"
elif has_display; then
    show "$@"
else
    picture=$root/build/release/demo.png
    render "$@" --render "$picture"
    echo "There is no display; the window was rendered to"
    echo "$picture"
fi
