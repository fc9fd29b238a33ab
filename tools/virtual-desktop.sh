# shellcheck shell=bash
# SPDX-License-Identifier: MIT
#
# What demo.sh and screenshots.sh share; they source this. A display, programs on it and a home,
# all of their own, that go away when the script ends.

private="$(mktemp -d)"
started=()

# Ends what was started, last first, so that no client outlives its server.
stop_all() {
    local index
    for ((index = ${#started[@]} - 1; index >= 0; index--)); do
        kill "${started[index]}" 2>/dev/null || true
        wait "${started[index]}" 2>/dev/null || true
    done
    started=()
}

finish() {
    stop_all
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

# stop_last: ends what was started last; true when it ended well.
stop_last() {
    local last=$((${#started[@]} - 1))
    local process="${started[last]}"
    unset "started[last]"
    kill -TERM "$process"
    wait "$process"
}

fail() {
    echo "NOT seen: $1" >&2
    if [ -s "$private/program.log" ]; then
        echo "The program said:" >&2
        cat "$private/program.log" >&2
    fi
    exit 1
}

# holds COMMAND...: whether the command succeeds within ten seconds.
holds() {
    local deadline=$((SECONDS + 10))
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$deadline" ] || return 1
        sleep 0.05
    done
}

# await WHAT COMMAND...: until the command succeeds, ten seconds at most.
await() {
    local what="$1"
    shift
    holds "$@" || fail "$what"
    echo "seen: $what"
}

# capture FILE: the screen once it no longer fades or moves; fails when it never stands still.
capture() {
    local deadline=$((SECONDS + 30))
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

# window_with PROPERTY PATTERN: the number of the program's window that shows and whose property,
# as xprop prints it, has that pattern.
window_with() {
    local window
    for window in $(xdotool search --onlyvisible --class '^sablequill$'); do
        if xprop -id "$window" -notype "$1" | grep -q "$2"; then
            echo "$window"
            return 0
        fi
    done
    return 1
}

# is_mapped ROLE: whether the program shows its window of that role.
is_mapped() {
    window_with WM_WINDOW_ROLE "\"$1\""
}

is_unmapped() {
    ! is_mapped "$1"
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
}

# start_display WIDTH HEIGHT, in pixels.
start_display() {
    DISPLAY="$(free_display)"
    export DISPLAY
    start server Xvfb "$DISPLAY" -screen 0 "$1x$2x24" -dpi 96 -noreset -nolisten tcp
    await "a display" xdotool getdisplaygeometry
}
