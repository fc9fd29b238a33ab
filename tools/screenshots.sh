#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# screenshots.sh PROGRAM FOLDER [MANAGER [SCALE [SCHEME]]]: leaves a picture of every window and page
# of the program in FOLDER, in a folder for each window manager (xfwm4, which composes, and openbox,
# which does not), scale factor (1, 1.5, 2) and color scheme (light, dark); one of them when it is
# named. Each picture is cut to its window. Fails at the first window that does not show. Needs the
# packages of the groups build, demo and test, and a session bus of its own:
# dbus-run-session --config-file=tools/demo/session-bus.conf -- tools/screenshots.sh …
set -euo pipefail

program="$(realpath "$1")"
mkdir -p "$2"
shots="$(realpath "$2")"
here="$(dirname "$(realpath "${BASH_SOURCE[0]}")")"
managers=("${3:-xfwm4}") scales=("${4:-1}") schemes=("${5:-light}")
[ -n "${3:-}" ] || managers+=(openbox)
[ -n "${4:-}" ] || scales+=(1.5 2)
[ -n "${5:-}" ] || schemes+=(dark)
# shellcheck source=tools/virtual-desktop.sh
. "$here/virtual-desktop.sh"

# The screen in points; so are all places below, from its top-left corner.
width=1200 height=760
# The overlay's usual card: left, top, width, height.
card=(80 90 460 350)
data=

pixels() {
    awk -v points="$1" -v scale="$scale" 'BEGIN { printf "%d", points * scale + 0.5 }'
}

# write_settings [KEY=VALUE...]: the usual ones but for these.
write_settings() {
    local key opacity=0.92 fontSize=16 mirk=true onboarded=true
    local left="${card[0]}" top="${card[1]}" wide="${card[2]}" high="${card[3]}"
    for key in "$@"; do
        local "${key?}"
    done
    cat >"$data/settings.json" <<JSON
{ "alwaysOnTop": true, "fontSize": $fontSize, "hasCompletedOnboarding": $onboarded,
  "launchAtStartup": false, "mirkModeEnabled": $mirk, "opacity": $opacity,
  "overlayFrame": { "x": $left, "y": $((height - top - high)), "width": $wide, "height": $high },
  "shortcuts": {
    "nextNote": { "keyCode": 125, "modifiers": 3 }, "previousNote": { "keyCode": 126, "modifiers": 3 },
    "quickOpen": { "keyCode": 31, "modifiers": 3 }, "toggleOverlay": { "keyCode": 5, "modifiers": 3 } } }
JSON
}

# write_notes TITLE...: short notes of these titles.
write_notes() {
    local title number=0 separator=
    {
        echo '['
        for title in "$@"; do
            number=$((number + 1))
            printf '%s{ "id": "%08d-0000-4000-8000-000000000000", "title": "%s",' \
                "$separator" "$number" "$title"
            printf ' "content": "# %s\\n\\nA few words **to say** here.",' "$title"
            echo ' "createdAt": "2026-01-31T09:15:00Z", "updatedAt": "2026-01-31T09:15:00Z" }'
            separator=,
        done
        echo ']'
    } >"$data/notes.json"
}

many_notes=(Opening 'The numbers' 'What we learned from the customers who left, and from those who stayed'
    Demo 'Questions and answers' Closing 'Names to thank' Travel 'Næste gang' 'Ελληνικά' Backup Numbers)

usual_notes() {
    cp "$here/demo/notes.json" "$data/"
}

begin() {
    start program "$program"
    holds is_mapped overlay || fail "the overlay"
}

end() {
    stop_last || fail "a clean end"
}

# again [KEY=VALUE...]: the program from the start, with these settings, and without its popover.
again() {
    write_settings "$@"
    begin
    holds is_mapped popover || fail "the popover"
    xdotool mousemove "$(pixels 640)" "$(pixels 740)" click 1
    holds is_unmapped popover || fail "the popover goes away"
    rest
}

# point X Y: the pointer there.
point() {
    xdotool mousemove "$(pixels "$1")" "$(pixels "$2")"
}

# rest: the pointer where it touches nothing.
rest() {
    point 4 "$((height - 4))"
}

click_at() {
    point "$1" "$2"
    xdotool click "${3:-1}"
}

# shoot NAME LEFT TOP WIDTH HEIGHT: that part of the screen, in pixels.
shoot() {
    capture "$private/now.png" || fail "the screen at rest"
    convert "$private/now.png" -crop "$4x$5+$2+$3" +repage "$folder/$1.png"
}

# geometry_of WINDOW: left, top, width and height on the screen, in pixels, without a frame.
geometry_of() {
    xwininfo -id "$1" | awk '
        /Absolute upper-left [XY]:/ || /^  (Width|Height):/ { printf "%d ", $NF }'
}

# shoot_window NAME NUMBER [MARGIN]: a window with what lies around it.
shoot_window() {
    local margin X Y wide high left top
    margin="$(pixels "${3:-0}")"
    read -r X Y wide high <<<"$(geometry_of "$2")"
    left=$((X - margin)) top=$((Y - margin))
    left=$((left < 0 ? 0 : left)) top=$((top < 0 ? 0 : top))
    shoot "$1" "$left" "$top" $((X + wide + margin - left)) $((Y + high + margin - top))
}

shoot_overlay() {
    shoot_window "overlay-$1" "$(window_with WM_WINDOW_ROLE '"overlay"')" "${2:-16}"
}

background() {
    feh --no-fehbg --bg-scale "$private/$1.png"
}

# The places of the overlay's controls: LEFT and TOP of the card, then its size.
edit_button() { click_at $((card[0] + card[2] - 60)) $((card[1] + 22)); }

shoot_overlay_states() {
    usual_notes
    again
    shoot_overlay reading
    background white
    shoot_overlay reading-on-white
    background photograph
    point $((card[0] + card[2] / 2)) $((card[1] + 22))
    shoot_overlay header-under-pointer
    point $((card[0] + card[2] - 26)) $((card[1] + 22))
    holds window_with _NET_WM_WINDOW_TYPE TOOLTIP || fail "a tooltip"
    shoot_overlay tooltip 48
    click_at $((card[0] + 60)) $((card[1] + 120)) 3
    holds menu_window || fail "the text's menu"
    shoot_overlay menu-reading
    xdotool key Escape
    edit_button
    rest
    shoot_overlay editing
    xdotool key ctrl+a
    click_at $((card[0] + 60)) $((card[1] + 120)) 3
    holds menu_window || fail "the editor's menu"
    shoot_overlay menu-editing
    end
    shoot_overlay_settings
    shoot_overlay_notes
}

shoot_overlay_settings() {
    local size
    again mirk=false
    shoot_overlay mirk-off
    end
    for size in 12 28; do
        again fontSize=$size
        shoot_overlay font-$size
        end
    done
    again opacity=0.4
    shoot_overlay opacity-40
    end
    again wide=800 high=600
    shoot_overlay 800x600
    end
    again wide=280 high=160
    shoot_overlay 280x160
    click_at $((card[0] + 280 - 60)) $((card[1] + 22))
    rest
    shoot_overlay 280x160-editing
    xdotool key shift+Tab
    shoot_overlay focus-ring
    end
}

shoot_overlay_notes() {
    write_notes "${many_notes[@]:2}"
    again
    shoot_overlay long-title
    end
    again wide=280 high=160
    shoot_overlay 280x160-long-title
    end
    write_notes
    again
    shoot_overlay no-notes
    end
}

shoot_popover() {
    write_settings
    begin
    holds is_mapped popover || fail "the popover"
    rest
    shoot_window "popover-$1" "$(window_with WM_WINDOW_ROLE '"popover"')" 6
}

shoot_popovers() {
    write_notes "${many_notes[@]}"
    shoot_popover many-notes
    end
    write_notes
    shoot_popover no-notes
    end
    usual_notes
    shoot_popover few-notes
    # Its second button from the end, by the keyboard as it is reached fastest.
    point $((width - 280)) 60
    "$program"
    point $((width - 100)) 140
    shoot_window popover-under-pointer "$(window_with WM_WINDOW_ROLE '"popover"')" 6
    rest
    xdotool key Up Up
    shoot_window popover-focus-ring "$(window_with WM_WINDOW_ROLE '"popover"')" 6
    end
}

shoot_guide() {
    local page
    usual_notes
    write_settings onboarded=false
    begin
    holds is_mapped guide || fail "the guide"
    xdotool key Escape
    end
    begin
    holds is_mapped guide || fail "the guide"
    rest
    for page in 1 2 3; do
        shoot_window "guide-$page" "$(window_with WM_WINDOW_ROLE '"guide"')" 6
        xdotool key Right
    done
    end
}

# Of the program's windows only menus have no name.
menu_window() {
    window_with WM_NAME '= *$'
}

settings_window() {
    window_with WM_NAME 'Sablequill Settings'
}

shoot_settings() {
    local tab window
    write_notes "${many_notes[@]}"
    write_settings left=10 top=590 wide=280 high=160
    begin
    "$program"
    holds is_mapped popover || fail "the popover"
    xdotool key Up Up Return
    holds settings_window || fail "the Settings window"
    window="$(settings_window)"
    xdotool windowmove --sync "$window" "$(pixels 340)" "$(pixels 120)" || true
    for tab in general notes shortcuts about; do
        rest
        shoot_window "settings-$tab" "$window" 40
        if [ "$tab" = notes ]; then
            shoot_notes_menu "$window"
        fi
        xdotool key ctrl+Next
    done
    xdotool key Tab Tab Tab Tab Tab
    shoot_window settings-focus-ring "$window" 40
    end
}

# The Notes tab's second row, under the pointer and with its menu.
shoot_notes_menu() {
    local X Y size
    read -r X Y size <<<"$(geometry_of "$1")"
    : "$size"
    xdotool mousemove $((X + $(pixels 120))) $((Y + $(pixels 200)))
    shoot_window settings-notes-under-pointer "$1" 40
    xdotool click 3
    holds menu_window || fail "a note's menu"
    shoot_window settings-notes-menu "$1" 40
    xdotool key Escape
}

draw_backgrounds() {
    convert -size "${width}x$height" xc:white "$private/white.png"
    convert -size "${width}x$height" -seed 7 plasma:'#e8b27a'-'#1d4f73' -blur 0x6 \
        -modulate 100,70 "$private/photograph.png"
}

start_desktop() {
    start_display "$(pixels $width)" "$(pixels $height)"
    if [ "$manager" = xfwm4 ]; then
        start xfconf "$(sed -n 's/^Exec=//p' /usr/share/dbus-1/services/org.xfce.Xfconf.service)"
        start manager xfwm4 --compositor=on --vblank=off
    else
        start manager openbox --sm-disable --config-file "$here/demo/openbox.xml"
    fi
    holds wmctrl_is_there || fail "a window manager"
    background photograph
}

wmctrl_is_there() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q '#'
}

start_bus() {
    export DBUS_SESSION_BUS_ADDRESS="unix:path=$XDG_RUNTIME_DIR/bus"
    start bus dbus-daemon --session --nofork --address="$DBUS_SESSION_BUS_ADDRESS"
    holds dbus-send --session --dest=org.freedesktop.DBus / org.freedesktop.DBus.Peer.Ping ||
        fail "a session bus"
}

# portal_of SCHEME: a desktop that prefers it.
start_portal() {
    local number=2
    [ "$1" = light ] || number=1
    start portal "$here/../build/dev/tests/desktop/portal/portal_program" "$number"
    holds dbus-send --session --print-reply --dest=org.freedesktop.portal.Desktop \
        /org/freedesktop/portal/desktop org.freedesktop.DBus.Peer.Ping || fail "a portal"
}

shoot_all() {
    folder="$shots/$manager-$scale-$scheme"
    mkdir -p "$folder"
    rm -f "$folder"/*.png
    start_bus
    start_desktop
    start_portal "$scheme"
    export QT_SCALE_FACTOR="$scale"
    # The overlay is dark on every desktop.
    [ "$scheme" = light ] || shoot_overlay_states
    shoot_popovers
    shoot_guide
    shoot_settings
    unset QT_SCALE_FACTOR
    stop_all
    echo "$folder"
}

make_home
data="$XDG_DATA_HOME/Sablequill"
draw_backgrounds
for manager in "${managers[@]}"; do
    for scale in "${scales[@]}"; do
        for scheme in "${schemes[@]}"; do
            shoot_all
        done
    done
done
