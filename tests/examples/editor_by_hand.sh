#!/usr/bin/env bash
# Uses the diagram editor as a person would, from outside: keys and mouse on a display of its own.
# usage: editor_by_hand.sh DIAGRAM_EDITOR
set -Eeuo pipefail

editor=$1
folder=$(mktemp -d)
export XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data HOME=$folder
unset QT_QPA_PLATFORM WAYLAND_DISPLAY
pids=()

finish()
{
    local status=$?
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    if [ "$status" = 0 ]; then rm -rf "$folder"; else echo "pictures and files are in $folder" >&2; fi
}
trap finish EXIT

fail()
{
    echo "$*" >&2
    exit 1
}

for tool in Xvfb xdotool import compare; do
    command -v "$tool" >/dev/null || fail "$tool is missing: install xvfb, xdotool and imagemagick"
done

start_display()
{
    Xvfb -displayfd 3 -screen 0 1400x900x24 3>"$folder/display" 2>/dev/null &
    pids+=($!)
    for _ in {1..100}; do
        [ -s "$folder/display" ] && break
        sleep 0.1
    done
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
}

start_editor()
{
    "$editor" --size 1200x800 2>"$folder/errors" &
    pids+=($!)
    editor_pid=$!
    window=$(xdotool search --sync --onlyvisible --pid "$editor_pid" --name "Diagram editor" | tail -1)
    xdotool windowmove --sync "$window" 0 0 || true
    settle
}

# Until two pictures of the window in a row are the same.
settle()
{
    local former=none latest
    for _ in {1..60}; do
        latest=$(import -window root rgba:- | md5sum)
        [ "$latest" = "$former" ] && return
        former=$latest
        sleep 0.15
    done
    fail "the window does not come to rest"
}

keys() { xdotool key --clearmodifiers "$@"; settle; }
click() { xdotool mousemove "$1" "$2" click 1; settle; }

drag() # from x y to x y
{
    xdotool mousemove "$1" "$2" mousedown 1
    for step in 1 2 3 4 5; do
        xdotool mousemove $(($1 + ($3 - $1) * step / 5)) $(($2 + ($4 - $2) * step / 5))
        sleep 0.03
    done
    xdotool mouseup 1
    settle
}

# The canvas: what lies between the panels. The mouse is put where it lights nothing up.
picture()
{
    xdotool mousemove 640 790
    settle
    import -window root -crop 560x640+280+100 +repage "$folder/$1.png"
}

expect_equal()
{
    local pixels
    pixels=$(compare -metric AE "$folder/$1.png" "$folder/$2.png" null: 2>&1) || true
    [ "$pixels" = 0 ] || fail "$1 and $2 differ in $pixels pixels"
}

expect_different()
{
    ! cmp -s "$folder/$1.png" "$folder/$2.png" || fail "$1 and $2 are the same picture"
}

# An entry of the palette, by the place of its picture, and then the canvas.
create() # column row x y
{
    click $((50 + $1 * 76)) $((110 + $2 * 62))
    click "$3" "$4"
}

count() { grep -c "\"$1\":" "$folder/a.figura" || true; }

# There is no window manager that would hand the keys back after a dialog.
await_window()
{
    for _ in {1..50}; do
        [ "$(xdotool search --onlyvisible --pid "$editor_pid" --name '.*' | wc -l)" = 1 ] && break
        sleep 0.1
    done
    xdotool windowfocus --sync "$window"
    settle
}

save_as()
{
    xdotool key --clearmodifiers ctrl+shift+s
    xdotool search --sync --onlyvisible --pid "$editor_pid" --name "Save the diagram" >/dev/null
    sleep 0.3
    xdotool type --delay 15 "$1"
    keys Return
    for _ in {1..50}; do
        [ -s "$1" ] && break
        sleep 0.1
    done
    [ -s "$1" ] || fail "$1 was not saved"
    await_window
}

start_display
start_editor
picture empty

create 0 0 420 240
create 0 1 660 240
create 1 0 540 480
picture created
expect_different empty created

keys Escape c
drag 420 240 660 240
drag 660 240 540 480
keys Escape Escape
picture connected
expect_different created connected

drag 540 480 420 560
keys Escape
picture dragged
expect_different connected dragged

keys ctrl+plus
picture zoomed
expect_different dragged zoomed
keys ctrl+0
picture normal

for _ in {1..6}; do keys ctrl+z; done
picture undone
expect_different normal undone
for _ in {1..6}; do keys ctrl+shift+z; done
keys Escape ctrl+9
picture redone

save_as "$folder/a.figura"
keys Escape ctrl+9
[ "$(count kind)" = 3 ] || fail "$(count kind) figures were saved"
[ "$(count source)" = 2 ] || fail "$(count source) connections were saved"
picture saved
expect_equal redone saved

keys ctrl+n
picture closed
expect_equal empty closed
xdotool key --clearmodifiers ctrl+o
xdotool search --sync --onlyvisible --pid "$editor_pid" --name "Open a diagram" >/dev/null
sleep 0.3
xdotool type --delay 15 "$folder/a.figura"
keys Return
await_window
keys ctrl+9
picture reopened
expect_equal saved reopened

xdotool key --clearmodifiers ctrl+q
for _ in {1..50}; do
    kill -0 "$editor_pid" 2>/dev/null || break
    sleep 0.1
done
! kill -0 "$editor_pid" 2>/dev/null || fail "the editor does not end, though all is saved"
[ ! -s "$folder/errors" ] || fail "the editor complained: $(cat "$folder/errors")"
