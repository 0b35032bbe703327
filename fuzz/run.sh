#!/bin/bash
# Builds the fuzz targets and runs each for so many seconds (30), as many at a time as there are
# processors, with a line about each. An input that crashes, hangs or breaks a property is kept in
# build/fuzz/findings, and the exit status tells of it. Inputs that reached something new are kept
# in build/fuzz/corpus, where the next run starts from them.
#
#     fuzz/run.sh [SECONDS [TARGET...]]
#
# To look at a finding: build/fuzz/fuzz/fuzz_TARGET build/fuzz/findings/FILE
set -euo pipefail

all_targets=(framecodec ldbstatus ldbsettings settingsfile scenario)
seconds=${1:-30}
targets=("${@:2}")
if [ ${#targets[@]} -eq 0 ]; then
    targets=("${all_targets[@]}")
fi

cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

output=build/fuzz
mkdir -p "$output/findings" "$output/logs"

# The last value of a final statistic of libFuzzer: statistic LOG NAME.
statistic() { sed -n "s/^stat::$2: *//p" "$1" | tail -n 1; }

run_target() {
    local target=$1 log=$output/logs/$1.log status=0 detect_leaks=1
    mkdir -p "$output/corpus/$target"
    if [ "$target" = scenario ]; then
        # Qt's JSON reader leaks objects in which a key stands twice.
        detect_leaks=0
    fi
    # Longer inputs than any answer or file of a site has would only be slower.
    ASAN_OPTIONS=detect_leaks=$detect_leaks "$output/fuzz/fuzz_$target" \
        -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -max_len=4096 \
        -use_value_profile=1 -print_final_stats=1 \
        -artifact_prefix="$output/findings/$target-" \
        "$output/corpus/$target" "fuzz/corpus/$target" >"$log" 2>&1 || status=$?
    local covered
    covered=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "$log" | tail -n 1)
    printf '%-13s %9s inputs, %6s a second, %5s edges covered: ' "$target" \
        "$(statistic "$log" number_of_executed_units)" \
        "$(statistic "$log" average_exec_per_sec)" "$covered"
    if [ "$status" -eq 0 ]; then
        echo "clean"
    else
        echo "FINDING (see $log)"
        grep -E -m 3 'Does not hold|ERROR: |runtime error: |SUMMARY: ' "$log" || tail -n 5 "$log"
    fi
    return "$status"
}

jobs=$(nproc)
failed=0
running=0
for target in "${targets[@]}"; do
    if [ "$running" -ge "$jobs" ]; then
        wait -n || failed=1
        running=$((running - 1))
    fi
    run_target "$target" &
    running=$((running + 1))
done
while [ "$running" -gt 0 ]; do
    wait -n || failed=1
    running=$((running - 1))
done
exit "$failed"
