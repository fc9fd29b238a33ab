#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# sanitizers.sh [address | memcheck]: runs every test under the address and undefined-behavior
# sanitizers, and the unit tests under valgrind's memcheck as well; by default both. Whatever one of
# them finds fails, and so does a leak. Takes half an hour and more.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/setup.sh

# A window with a note of a megabyte has to answer within a second, which it cannot in here.
too_slow=LargeNote

address() {
    set_up build run test
    build asan
    ctest --preset asan -j "$(nproc)" -E "$too_slow"
}

# One program of unit tests; what its children print belongs to no test.
memcheck_one() {
    local log="build/dev/memcheck/$1.log"
    if ! QT_QPA_PLATFORM=offscreen valgrind --quiet --num-callers=30 --gen-suppressions=all \
        --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
        --suppressions=tests/memcheck.supp --child-silent-after-fork=yes --error-exitcode=99 \
        "build/dev/tests/unit/$1" --gtest_filter="-*$too_slow*" >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
    echo "$1: no finding in $(grep -c '^\[ *OK \]' "$log") tests"
}

memcheck() {
    set_up build run test memcheck
    build dev unit_tests
    mkdir -p build/dev/memcheck
    export -f memcheck_one
    export too_slow
    find build/dev/tests/unit -maxdepth 1 -name '*_test' -printf '%f\n' | sort |
        xargs -P "$(nproc)" -I '{}' bash -euo pipefail -c 'memcheck_one {}'
}

case "${1:-both}" in
address) address ;;
memcheck) memcheck ;;
both)
    address
    memcheck
    ;;
*)
    sed -n '4,6s/^# //p' "$0" >&2
    exit 2
    ;;
esac
