#!/usr/bin/env bash
# Shows a graph with the graph viewer, or opens the diagram editor.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

usage()
{
    cat <<'TEXT'
usage: demo.sh [FILE.gv] [ARGUMENT...]
       demo.sh --editor [FILE.figura] [ARGUMENT...]

Installs what is missing, builds the graph viewer and opens FILE.gv (a sample, if none is named) in
its window; with --editor the same with the diagram editor. Without a display the same window is
rendered to a picture, whose path is printed. All further arguments go to the program, for example:
  --engine NAME      dot, neato, fdp, circo or twopi (graph viewer)
  --sample NAME      gallery, state-machine or network-plan (diagram editor)
  --dark             dark colours (diagram editor)
  --render OUT.png   only render to this picture
TEXT
}

name=graph-viewer
folder=graph-viewer
sample=("$root/examples/graph-viewer/samples/build-pipeline.gv")
case "${1:-}" in
-h | --help)
    usage
    exit 0
    ;;
--editor)
    shift
    name=diagram-editor
    folder=editor
    sample=(--sample state-machine)
    ;;
esac
program=$root/build/release/examples/$folder/$name

build_program()
{
    step "building the ${name/-/ }"
    (cd "$root" && cmake --preset release && cmake --build --preset release --target "$name") \
        </dev/null
}

# A variable can name a display that is gone. Whether Qt can open one, only Qt knows: it aborts.
has_display()
{
    [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || return 1
    # In one shell more, so that it is that one which reports the abort, and to nobody.
    (ulimit -c 0 && "$program" --help && true) &>/dev/null </dev/null
}

show()
{
    step "showing $1"
    "$program" "$@"
}

render()
{
    step "rendering $1"
    QT_QPA_PLATFORM=offscreen "$program" "$@"
}

# Without a file, a sample; an editor that was told to open a sample has one.
case "${1:-}" in
"" | -*) [[ " $* " == *" --sample"* ]] || set -- "${sample[@]}" "$@" ;;
esac

"$root/scripts/install-dependencies.sh" || exit 1
build_program

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
