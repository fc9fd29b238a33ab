#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# Runs the tests of the panel in whole Wayland sessions without a screen: KWin and mutter, with a
# Wayland client that fills the screen. They take more of a machine than ./test should.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/setup.sh

set_up build run test wayland
cmake --preset dev --log-level=WARNING -DSABLEQUILL_WAYLAND_TESTS=ON
build dev wayland_test
exec build/dev/tests/wayland/wayland_test
