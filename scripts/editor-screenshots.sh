#!/usr/bin/env bash
# Makes the pictures of the diagram editor that are in docs/images, with the build of the demo.
# shellcheck source-path=SCRIPTDIR source=common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

editor=${1:-$root/build/release/examples/editor/diagram-editor}
[ -x "$editor" ] || die "$editor is missing; scripts/demo.sh --editor builds it"
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT

render()
{
    local picture=$root/docs/images/$1.png
    shift
    step "rendering $picture"
    # Settings of its own, so that the pictures do not depend on who makes them.
    XDG_CONFIG_HOME=$home XDG_DATA_HOME=$home QT_QPA_PLATFORM=offscreen \
        "$editor" --render "$picture" "$@"
}

render editor-light --sample state-machine --size 1280x860 --select 6
render editor-dark --sample network-plan --dark --grid --size 1280x800 --select 4
render editor-light-2x --sample network-plan --size 1280x800 --scale 2 --select 5
render editor-dark-2x --sample state-machine --dark --size 1280x860 --scale 2 --select 6
render editor-gallery --sample gallery --size 1700x1300
