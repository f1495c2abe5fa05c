#!/bin/sh
# coverage.sh BUILD: runs the tests of a build that counts coverage, prints which lines and branches of the
# libraries they ran, writes that as pages into BUILD/coverage, and checks what has to be run whole.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
source=$(cd "$here/../.." && pwd)
build=$(cd "$1" && pwd)
log=$build/coverage.log
[ -z "${TMPDIR:-}" ] && [ -d /dev/shm ] && [ -w /dev/shm ] && export TMPDIR=/dev/shm

# Empty files of counters, which children that gave root's rights up can add to.
find "$build" -name '*.gcda' -delete
find "$build" -name '*.gcno' | sed 's/no$/da/' | while read -r counters; do
    : >"$counters"
    chmod 666 "$counters"
done
ctest --test-dir "$build" --output-on-failure --parallel "$(nproc)" --no-tests=error >"$log" 2>&1 ||
    { grep -E '\*\*\*(Failed|Timeout|Exception)' "$log"; echo "see $log" >&2; exit 1; }
find "$build" -name '*.gcda' -empty -delete
grep 'tests passed,' "$log"

# Of the text search, what this machine runs: the other one's functions have the same names.
report() {
    gcovr --root "$source" --filter "$source/src/" --exclude-directories '.*asf_portable_test.*' "$@"
}
mkdir -p "$build/coverage"
report --json "$build/coverage/coverage.json" "$build"
pages() { report --add-tracefile "$build/coverage/coverage.json" "$@"; }
pages --html-details "$build/coverage/index.html" --html-title "The libraries"
pages --txt
pages --branches --txt | grep -v '^TOTAL\|100%\|--%'
for library in oruAsf oruSdk; do
    printf '%s: ' "$library"
    only="--filter $source/src/asf/"
    [ "$library" = oruAsf ] || only="--filter $source/src/[b-z]"
    # shellcheck disable=SC2086
    gcovr --root "$source" $only --add-tracefile "$build/coverage/coverage.json" --print-summary --txt "$build/coverage/$library.txt" |
        tr '\n' ' '
    echo
done
python3 -B "$here/check.py" "$build"
