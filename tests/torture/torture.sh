#!/bin/sh
# torture.sh BUILD [REGEX]: runs the tests that sample a large space over all of it, and sums up what they
# report in lines "torture: WHAT: NUMBER UNIT, NUMBER UNIT...".
set -eu

build=$1
log=$build/torture.log
export ORU_TORTURE=1 ORU_KILL_EVERYWHERE=1
[ -z "${TMPDIR:-}" ] && [ -d /dev/shm ] && [ -w /dev/shm ] && export TMPDIR=/dev/shm

status=0
ctest --test-dir "$build" --tests-regex "${2:-Torture|EachSystemCall|SaveTogether|^Killed|^PowerCut|^OructlPowerCut|^Full|^SlowServices|^RogueService|^Crowd|^Secrets|^HostProgram|^ForkingProgram}" --verbose \
    --timeout 3600 --parallel "$(nproc)" --no-tests=error >"$log" 2>&1 || status=$?
grep -E '\*\*\*(Failed|Timeout|Exception|Skipped|Not Run)' "$log" || true
awk '
    match($0, /torture: [^:]*: /) {
        what = substr($0, RSTART + 9, RLENGTH - 11)
        count = split(substr($0, RSTART + RLENGTH), parts, ", ")
        for (i = 1; i <= count; ++i) {
            split(parts[i], word, " ")
            unit = substr(parts[i], length(word[1]) + 2)
            if (!((what, unit) in sum)) units[what] = units[what] SUBSEP unit
            sum[what, unit] += word[1]
        }
    }
    END {
        for (what in units) {
            line = what ":"
            count = split(substr(units[what], 2), names, SUBSEP)
            for (i = 1; i <= count; ++i) line = line (i > 1 ? ", " : " ") sum[what, names[i]] " " names[i]
            print line
        }
    }' "$log" | sort
grep 'tests passed,' "$log" || status=1
[ "$status" = 0 ] || echo "see $log" >&2
exit "$status"
