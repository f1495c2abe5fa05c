#!/bin/sh
# run.sh BUILD [SECONDS | seconds=SECONDS | runs=COUNT] [TARGET...]: mutates the corpora of the targets, each for
# so long or so often, and tells of executions, coverage and findings.
set -eu

build=$1
shift
all='element replies import roundtrip dictionary arguments operations'
limit=-max_total_time=60
case ${1:-} in
runs=*)
    limit=-runs=${1#runs=}
    shift
    ;;
seconds=* | [0-9]*)
    limit=-max_total_time=${1#seconds=}
    shift
    ;;
esac
case ${limit#*=} in
'' | *[!0-9]*)
    echo "run.sh: no number: ${limit#*=}" >&2
    exit 2
    ;;
esac
for target in "$@"; do
    case " $all " in
    *" $target "*) ;;
    *)
        echo "run.sh: no such target: $target (there are: $all)" >&2
        exit 2
        ;;
    esac
done
[ $# -gt 0 ] || set -- $all

# The longest input of a target: room for all that it distinguishes, and little more.
longest() {
    case $1 in
    arguments) echo 128 ;;
    operations) echo 192 ;;
    replies) echo 1024 ;;
    *) echo 384 ;;
    esac
}

# value NAME: a number of the final statistics.
value() { sed -n "s/^stat::$1: *//p" "$log"; }

corpora=$(cd "$(dirname "$0")/corpus" && pwd)
findings=$build/findings
status=0
mkdir -p "$findings"
for target in "$@"; do
    log=$build/fuzz_$target.log
    mutated=$build/corpus/$target
    mkdir -p "$mutated"
    begin=$(date +%s.%N)
    # Leaks are looked for once, at the end.
    "$build/fuzz/fuzz_$target" "$limit" -max_len="$(longest "$target")" -timeout=20 -rss_limit_mb=2048 \
        -detect_leaks=0 -entropic=0 -reduce_inputs=0 -print_final_stats=1 \
        -artifact_prefix="$findings/$target-" "$mutated" "$corpora/$target" >"$log" 2>&1 && found=0 || found=1
    executions=$(value number_of_executed_units)
    edges=$(sed -n 's/^#.* cov: \([0-9]*\).*/\1/p' "$log" | tail -n 1)
    printf '%s %s\n' "$begin" "$(date +%s.%N)" | awk -v target="$target" -v runs="${executions:-0}" \
        -v edges="${edges:-unknown}" -v found="$found" '{
            seconds = $2 - $1
            printf "%s: %d executions, %.0f seconds, %.0f executions/s, %s edges, %d findings\n",
                target, runs, seconds, runs / seconds, edges, found
        }'
    if [ "$found" = 1 ]; then
        status=1
        grep -E 'must hold|ERROR|runtime error|Test unit written' "$log" || tail -n 5 "$log"
    fi
done
exit "$status"
