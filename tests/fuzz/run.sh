#!/bin/sh
# Builds the fuzz targets and runs each of them for a while on its corpus. Ends with an error when an
# input crashes one, takes too long or too much memory; the input is kept below build/fuzz/findings.
#   run.sh [SECONDS] [TARGET ...]
set -eu
cd "$(dirname "$0")/../.."
seconds=${1:-60}
[ $# -eq 0 ] || shift

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target kelmar_fuzz_targets

[ $# -gt 0 ] || set -- $(cd build/fuzz/bin/fuzz && ls)
failed=
for target in "$@"; do
    seeds=tests/fuzz/corpus/${target#fuzz_}
    found=build/fuzz/corpus/$target
    findings=build/fuzz/findings/$target
    mkdir -p "$found" "$findings"
    echo "== $target: $seconds s"
    # What is found goes to the first folder; the seeds stay as they are.
    QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*=false' ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=0 \
        "build/fuzz/bin/fuzz/$target" -max_total_time="$seconds" -rss_limit_mb=2560 -malloc_limit_mb=1100 -timeout=20 \
        -max_len=65536 -print_final_stats=1 -artifact_prefix="$findings/" "$found" "$seeds" \
        >"$findings/log" 2>&1 || failed="$failed $target"
    grep -E '^(stat::(number_of_executed_units|peak_rss_mb)|SUMMARY|==.*ERROR|artifact|Test unit written)' "$findings/log" || true
done
if [ -n "$failed" ]; then
    echo "failed:$failed" >&2
    exit 1
fi
