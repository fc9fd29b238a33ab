#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Runs the tests of the overlay under the window managers that take more of a machine than ./test
# should: metacity, marco, mutter and KWin. Prints a line for each test that failed and one for each
# window manager.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/setup.sh

set_up build run test managers
build dev
status=0
for manager in metacity marco mutter kwin; do
    log="$(mktemp)"
    build/dev/tests/desktop/overlay_test --gtest_filter="Further/*/$manager" >"$log" 2>&1 || status=1
    grep -E '^\[  FAILED  \].*\(' "$log" || true
    echo "$manager: $(grep -E '^\[  PASSED  \]' "$log" || echo 'did not finish')"
    rm -f "$log"
done
exit "$status"
