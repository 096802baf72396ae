#!/usr/bin/env bash
# Fuzzes each target under AddressSanitizer and UndefinedBehaviorSanitizer (clang): run.sh SECONDS [image] [object] [tune].
# What it finds is written to build/fuzz/findings; once mended, it belongs into regressions/, which the tests replay.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=$1
shift
[ $# -gt 0 ] || set -- image object tune
cd "$root"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target $(printf 'fuzz_%s ' "$@") >/dev/null

work=$root/build/fuzz
fuzz/corpus.sh "$work/seeds"
mkdir -p "$work/findings"
status=0
for target in "$@"; do
    mkdir -p "$work/corpus/$target" # grows from run to run
    log=$work/$target.log
    result=clean
    "$work/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -print_final_stats=1 \
        -dict="fuzz/dictionaries/$target.dict" -artifact_prefix="$work/findings/$target-" \
        "$work/corpus/$target" "$work/seeds/$target" "fuzz/regressions/$target" >"$log" 2>&1 || { result="FOUND: see $log"; status=1; }
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    echo "$target: ${runs:-?} executions, $result"
done
exit $status
