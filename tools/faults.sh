#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# faults.sh [ROUNDS [SEED]]: kills the program that often (300 times by default) at random moments
# while real keys are typed, and reads files of 100 MB that hold what they should not. ./test does
# the same with fewer rounds and smaller files. A seed that was printed gives its moments again.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/setup.sh

export SABLEQUILL_KILL_ROUNDS="${1:-300}"
export SABLEQUILL_FAULT_MEGABYTES=100
if [ $# -ge 2 ]; then
    export SABLEQUILL_KILL_SEED="$2"
fi

set_up build run test
build dev program_fault_test bad_files_test
build/dev/tests/fault/program_fault_test --gtest_filter='*KillTest*'
[ ! -d /dev/shm ] || export TMPDIR=/dev/shm
build/dev/tests/fault/bad_files_test --gtest_filter='*LargeFiles*'
