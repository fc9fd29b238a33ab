#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# demo.sh PROGRAM FOLDER: shows the program at work above another program's full-screen slide, by
# real key presses on a virtual display, and leaves screenshots in FOLDER. Fails at the first step
# that does not show. Its notes and settings live in a home of their own that goes away afterwards.
set -euo pipefail

program="$(realpath "$1")"
rm -f "$2"/*.png
mkdir -p "$2"
shots="$(realpath "$2")"
here="$(dirname "$(realpath "${BASH_SOURCE[0]}")")"
private="$(mktemp -d)"
slide_alone="$private/slide-alone.png"
started=()

# Ends what was started, last first, so that no client outlives its server.
finish() {
    local index
    for ((index = ${#started[@]} - 1; index >= 0; index--)); do
        kill "${started[index]}" 2>/dev/null || true
        wait "${started[index]}" 2>/dev/null || true
    done
    rm -rf "$private"
}
trap finish EXIT
trap 'exit 130' INT TERM

# start NAME COMMAND...: in the background, its output kept in a file of that name.
start() {
    local name="$1"
    shift
    "$@" >"$private/$name.log" 2>&1 </dev/null &
    started+=($!)
}

fail() {
    echo "NOT seen: $1" >&2
    if [ -s "$private/program.log" ]; then
        echo "The program said:" >&2
        cat "$private/program.log" >&2
    fi
    exit 1
}

# await WHAT COMMAND...: until the command succeeds, ten seconds at most.
await() {
    local what="$1" deadline=$((SECONDS + 10))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$deadline" ] || fail "$what"
        sleep 0.05
    done
    echo "seen: $what"
}

# capture FILE: the screen once it no longer fades or moves; fails when it never stands still.
capture() {
    local deadline=$((SECONDS + 10))
    import -silent -window root "$1"
    until cp "$1" "$private/before.png" && sleep 0.3 && import -silent -window root "$1" &&
        same_picture "$private/before.png" "$1"; do
        [ "$SECONDS" -lt "$deadline" ] || return 1
    done
}

# same_picture A B: whether not one pixel differs.
same_picture() {
    [ "$(compare -metric AE "$1" "$2" null: 2>&1)" = 0 ]
}

screenshot() {
    capture "$shots/$1.png" || fail "the screen at rest"
    pictures+=("$shots/$1.png")
}

shows() {
    capture "$private/now.png" && same_picture "$1" "$private/now.png"
}

shows_something_else_than() {
    capture "$private/now.png" && ! same_picture "$1" "$private/now.png"
}

slide_has_keyboard() {
    [ "$(xdotool getwindowfocus)" = "$slide" ]
}

slide_lost_keyboard() {
    ! slide_has_keyboard
}

# is_mapped ROLE: whether the program shows its window of that role.
is_mapped() {
    local window
    for window in $(xdotool search --onlyvisible --class '^sablequill$'); do
        [ "$(xprop -id "$window" -notype WM_WINDOW_ROLE)" != "WM_WINDOW_ROLE = \"$1\"" ] || return 0
    done
    return 1
}

is_unmapped() {
    ! is_mapped "$1"
}

is_saved() {
    grep -qF "$1" "$XDG_DATA_HOME/Sablequill/notes.json"
}

free_display() {
    local number
    while number=$((RANDOM % 20000 + 100)) && [ -e "/tmp/.X11-unix/X$number" ]; do :; done
    echo ":$number"
}

make_home() {
    export HOME="$private/home" XDG_DATA_HOME="$private/home/.local/share"
    export XDG_CONFIG_HOME="$private/home/.config" XDG_CACHE_HOME="$private/home/.cache"
    export XDG_RUNTIME_DIR="$private/runtime"
    mkdir -p "$XDG_DATA_HOME/Sablequill" "$XDG_CONFIG_HOME" "$XDG_CACHE_HOME"
    mkdir -m 700 "$XDG_RUNTIME_DIR"
    cp "$here/demo/notes.json" "$here/demo/settings.json" "$XDG_DATA_HOME/Sablequill/"
}

start_desktop() {
    DISPLAY="$(free_display)"
    export DISPLAY
    start server Xvfb "$DISPLAY" -screen 0 1280x800x24 -noreset -nolisten tcp
    await "a display" xdotool getdisplaygeometry
    start manager openbox --sm-disable --config-file "$here/demo/openbox.xml"
    start compositor picom --backend xrender --config /dev/null
    "$here/demo/draw-slide.sh" "$private/slide.png"
    start slide feh --fullscreen --hide-pointer --class slide "$private/slide.png"
    await "another program's slide, full screen" xdotool search --onlyvisible --class '^slide$'
    slide="$(xdotool search --onlyvisible --class '^slide$')"
    await "the slide has the keyboard" slide_has_keyboard
    capture "$slide_alone" || fail "the screen at rest"
}

pictures=()
make_home
start_desktop

start program "$program"
program_id="${started[-1]}"
await "the popover" is_mapped popover
await "the overlay" is_mapped overlay
await "the keyboard still with the slide" slide_has_keyboard
screenshot 1-just-started

xdotool mousemove 300 400 click 1
await "the popover goes away on a click elsewhere" is_unmapped popover
await "the overlay stays above the slide" shows_something_else_than "$slide_alone"
await "the keyboard still with the slide" slide_has_keyboard
screenshot 2-above-a-full-screen-slide
reading="${pictures[-1]}"

xdotool key super+shift+g
await "toggle: the overlay goes away" is_unmapped overlay
await "toggle: nothing of it is left" shows "$slide_alone"

xdotool key super+shift+g
await "toggle: the overlay comes back" is_mapped overlay
await "toggle: as it was" shows "$reading"
xdotool key super+shift+Down
await "next note: another text" shows_something_else_than "$reading"
await "the keyboard still with the slide" slide_has_keyboard
screenshot 3-next-note

xdotool key super+shift+Up
await "previous note: the first text" shows "$reading"
xdotool key super+shift+o
await "quick open: the keyboard with the overlay" slide_lost_keyboard
xdotool key ctrl+Home
xdotool key End
xdotool type --delay 20 ', slowly'
await "quick open: what is typed is on disk" is_saved '# Opening, slowly'
screenshot 4-quick-open

kill -TERM "$program_id"
wait "$program_id" && status=0 || status=$?
[ "$status" -eq 0 ] || fail "a clean end (it ended with status $status)"
echo "seen: a clean end"

echo "Screenshots:"
printf '  %s\n' "${pictures[@]}"
