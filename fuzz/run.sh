#!/bin/sh
# run.sh BUILD SECONDS: runs each target for so long, and tells of executions and findings.
set -eu

build=$1
seconds=$2
corpora=$(cd "$(dirname "$0")/corpus" && pwd)
findings=$build/findings
mkdir -p "$findings" "$build/corpus"
TMPDIR=$(mktemp -d -p "${TMPDIR:-$([ -w /dev/shm ] && echo /dev/shm || echo /tmp)}")
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

status=0
for target in dictionary element replies arguments import; do
    log=$build/fuzz_$target.log
    mkdir -p "$build/corpus/$target"
    "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$findings/$target-" \
        "$build/corpus/$target" "$corpora/$target" >"$log" 2>&1 && found=0 || found=1
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    echo "$target: ${executions:-unknown} executions in $seconds s, $found findings"
    if [ "$found" = 1 ]; then
        status=1
        tail -n 5 "$log"
    fi
done
exit "$status"
