#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# fuzz.sh [SECONDS]: runs each fuzz target for that long (10 seconds by default) on what the sources
# hold as its corpus. A finding fails and leaves its input in build/fuzz/findings. What was learnt
# stays in build/fuzz/corpus for the next time.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/setup.sh

seconds="${1:-10}"
targets=(notes settings inline lines titles)

set_up build fuzz
build fuzz "${targets[@]/#/fuzz_}"
mkdir -p build/fuzz/findings
trap 'rm -rf /dev/shm/sablequill-fuzz' EXIT
for target in "${targets[@]}"; do
    learnt="build/fuzz/corpus/$target"
    log="build/fuzz/$target.log"
    mkdir -p "$learnt"
    if ! "build/fuzz/tests/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=10 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$target-" \
        "$learnt" "tests/fuzz/corpus/$target" >"$log" 2>&1; then
        cat "$log" >&2
        exit 1
    fi
    echo "$target: no finding in $(sed -n 's/^stat::number_of_executed_units: *//p' "$log") inputs"
done
