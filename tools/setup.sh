# shellcheck shell=bash
# SPDX-License-Identifier: MIT
#
# What ./run, ./test and .ci/run share; they source this from the top of the source tree.

# The lines "package probe" of the named groups of packages.txt.
packages_of() {
    awk -v groups=" $* " '
        { sub(/#.*/, "") }
        /^\[/ { name = $1; gsub(/[][]/, "", name); wanted = index(groups, " " name " "); next }
        NF && wanted { print }
    ' packages.txt
}

# Whether apt-get and the package names of packages.txt mean anything here.
is_debian_family() {
    command -v apt-get >/dev/null && command -v dpkg-query >/dev/null &&
        grep -qE '^ID(_LIKE)?=.*debian' /etc/os-release 2>/dev/null
}

# Whether the thing that a probe of packages.txt describes is on this system.
is_present() {
    local what="${1#*:}"
    case "$1" in
    cmd:*) command -v "$what" >/dev/null ;;
    pc:*) command -v pkg-config >/dev/null && pkg-config --exists "$what" ;;
    bus:*) [ -e "/usr/share/dbus-1/services/$what.service" ] ;;
    header:*) echo "#include <$what>" | c++ -E -x c++ - >/dev/null 2>&1 ;;
    font:*) command -v fc-list >/dev/null && fc-list -q "$what" ;;
    file:*) [ -e "$what" ] ;;
    plugin:*) [ -e "$(qtpaths6 --query QT_INSTALL_PLUGINS 2>/dev/null)/$what" ] ;;
    part:*) [ -n "$(find /usr/libexec /usr/lib -maxdepth 2 -name "$what" -type f -perm -u+x \
        -print -quit 2>/dev/null)" ] ;;
    esac
}

in_words() {
    local what="${1#*:}"
    case "$1" in
    cmd:*) echo "command $what" ;;
    pc:*) echo "pkg-config module $what" ;;
    bus:*) echo "service $what of the session bus" ;;
    header:*) echo "header $what" ;;
    font:*) echo "font $what" ;;
    file:*) echo "file $what" ;;
    plugin:*) echo "toolkit plug-in $what" ;;
    part:*) echo "program $what in /usr/libexec" ;;
    esac
}

# The names of the packages that are not installed, one a line.
missing_packages() {
    local names
    names="$(packages_of "$@" | awk '{ print $1 }')"
    # shellcheck disable=SC2086 # one argument a package
    comm -23 <(sort -u <<<"$names") \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $names 2>/dev/null |
            sed -n 's/^installed //p' | sort -u)
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

install_packages() {
    local log
    log="$(mktemp)"
    echo "Installing Debian packages: $*"
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        echo "Neither root nor sudo. As root: apt-get install $*" >&2
        return 1
    fi
    if ! { as_root apt-get -q update && as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y -o DPkg::Lock::Timeout=300 --no-install-recommends install "$@"; } \
        </dev/null >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# Installs what is missing of the named groups; elsewhere than on Debian names it and fails.
set_up() {
    local package probe missing=()
    if is_debian_family; then
        mapfile -t missing < <(missing_packages "$@")
        [ "${#missing[@]}" -eq 0 ] || install_packages "${missing[@]}"
        return
    fi
    while read -r package probe; do
        is_present "$probe" || missing+=("  $(in_words "$probe") (Debian: $package)")
    done < <(packages_of "$@" | sort -u)
    [ "${#missing[@]}" -eq 0 ] && return
    echo "Only Debian packages are installed from here. Missing on this system:" >&2
    printf '%s\n' "${missing[@]}" >&2
    return 1
}

# Configures one preset of CMakePresets.json and builds the named targets, by default all.
build() {
    local preset="$1" targets=()
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    fi
    # Ninja configures again by itself after any change but one to the presets.
    if [ ! "build/$preset/build.ninja" -nt CMakePresets.json ]; then
        cmake --preset "$preset" --log-level=WARNING
    fi
    cmake --build --preset "$preset" "${targets[@]}"
}
