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
# shellcheck source=tools/virtual-desktop.sh
. "$here/virtual-desktop.sh"
slide_alone="$private/slide-alone.png"

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

is_saved() {
    grep -qF "$1" "$XDG_DATA_HOME/Sablequill/notes.json"
}

start_desktop() {
    start_display 1280 800
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
cp "$here/demo/notes.json" "$here/demo/settings.json" "$XDG_DATA_HOME/Sablequill/"
start_desktop

start program "$program"
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

stop_last && status=0 || status=$?
[ "$status" -eq 0 ] || fail "a clean end (it ended with status $status)"
echo "seen: a clean end"

echo "Screenshots:"
printf '  %s\n' "${pictures[@]}"
