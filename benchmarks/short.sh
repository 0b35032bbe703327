#!/bin/bash
# Runs the short form of the benchmarks in the release build: seconds each, without a display. It
# shows that they work and prints figures, which a busy machine makes worse: no figure fails it.
# bench_cpu has no short form: it means something on a display only, and after minutes.
set -euo pipefail

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
export QT_QPA_PLATFORM=offscreen
failed=0
for name in line logger recording lookback plot overview events link export startup window badline; do
    echo "-- bench_$name --short"
    timeout 600 "build/release/benchmarks/bench_$name" --short || failed=1
done
exit "$failed"
