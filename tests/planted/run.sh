#!/bin/sh
# run.sh [NAME...]: plants the defects of defects.txt (or those named), one at a time, in a copy of the sources,
# and expects each to be caught: by the cases that its row names or, where these pass, by the whole suite.
#
#   caught       it builds, and a test fails: the first one is named
#   SURVIVED     it builds, and all tests pass: one is missing
#   ERROR        the change no longer applies, or does not build
#   not planted  its cases are skipped on this machine; not counted
#
# First everything has to pass without a defect, or each would count as caught.
#
# The last line counts them; the exit status is 0 when all were caught. The copy is what git knows of, committed
# or not, and stays in build-planted for the next run, which sets it right first.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
folder=${ORU_BUILD_DIR:-$root/build}-planted
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
tree=$folder/tree
build=$folder/build
log=$folder/log
tab=$(printf '\t')
exec 9>"$folder/lock"
flock -n 9 || { echo "planted: another run uses $folder" >&2; exit 1; }

# Each step runs beside the script, which a signal reaches at once.
child=
clean() {
    [ -z "$child" ] || kill "$child" 2>/dev/null || :
    [ ! -d "$tree" ] || git -C "$tree" reset -q --hard 2>/dev/null || :
}
trap clean EXIT
trap 'exit 130' INT
trap 'exit 143' HUP TERM

step() { # SECONDS COMMAND...: what it prints stays in the log
    timeout "$@" >"$log" 2>&1 9>&- &
    child=$!
    status=0
    wait "$child" || status=$?
    child=
    return "$status"
}
build() { step 1800 cmake --build "$build" ${1:+--target "$@"}; }
tests() { # TIMEOUT FOLDER OPTION...: whether they pass; each is a process of its own
    seconds=$1
    where=$2
    shift 2
    step "$seconds" ctest --test-dir "$where" --parallel "$(nproc)" --stop-on-failure --no-tests=error "$@"
}
cases() { tests 300 "$(dirname "$(ls "$build"/tests/*/"$1")")" -R "^($2)"; } # TEST CASES
suite() { tests 1800 "$build"; }
die() {
    tail -n 40 "$log" >&2
    echo "planted: $*" >&2
    exit 1
}

# The first test that the log says failed, which one that could not be started did not.
culprit() {
    sed -n '/tests FAILED:$/,$ {/(Not Run)$/d; s/^[[:space:]]*[0-9]* - \([^ ]*\).*(.*)$/\1/p}' "$log" | head -n 1
}

prepare() {
    [ -d "$tree" ] || git clone -q --shared --no-checkout "$root" "$tree"
    state=$(git -C "$root" stash create) # the work tree as a commit, if it differs from the last one
    git -C "$tree" reset -q --hard "${state:-$(git -C "$root" rev-parse HEAD)}"
    git -C "$tree" clean -q -d -f
    launcher=
    command -v ccache >/dev/null && launcher=-DCMAKE_CXX_COMPILER_LAUNCHER=ccache
    # shellcheck disable=SC2086 # a word or none
    step 300 cmake -G Ninja -S "$tree" -B "$build" $launcher -DORU_TOOLS=ON -DORU_TESTS=ON -DORU_BENCH=OFF \
        -DORU_WERROR=OFF -DCMAKE_LINK_DEPENDS_NO_SHARED=ON || die 'could not configure'
}

choose() { # [NAME...]: the rows to run
    grep -v '^#' "$here/defects.txt" >"$folder/all"
    [ $# != 0 ] || cat "$folder/all"
    for name in "$@"; do
        grep "^$name$tab" "$folder/all" || { echo "planted: no defect $name" >&2; exit 1; }
    done
}

# What the rows name builds and passes without a defect.
check_clean() {
    # shellcheck disable=SC2046 # words on purpose
    build $(cut -f 3 "$folder/rows" | sort -u) || die 'does not build without a defect'
    cut -f 3,4 "$folder/rows" | sort -u >"$folder/cases"
    : >"$folder/skipped"
    while IFS=$tab read -r test filter; do
        cases "$test" "$filter" || die "no cases $filter of $test that pass without a defect"
        grep -q ' Passed ' "$log" || echo "$test$tab$filter" >>"$folder/skipped"
    done <"$folder/cases"
}

# The suite is asked for what its row's cases let pass, when it is green itself.
suite_is_green=
check_suite() {
    [ -z "$suite_is_green" ] || return 0
    build || die 'does not build without a defect'
    suite || die 'the suite fails without a defect'
    suite_is_green=yes
}

plant() { # FILE CHANGE
    sed -i "$2" "$tree/$1" 2>/dev/null
    ! git -C "$tree" diff --quiet -- "$1"
}

# verdict FILE TEST CASES CHANGE: what the tests say of one defect.
verdict() {
    plant "$1" "$4" || { echo 'ERROR: no such text'; return; }
    build "$2" || { echo 'ERROR: does not build'; return; }
    instead=
    if cases "$2" "$3"; then
        git -C "$tree" checkout -q -- "$1"
        check_suite
        plant "$1" "$4"
        build || { echo 'ERROR: does not build'; return; }
        if suite; then echo SURVIVED; return; fi
        instead=", not by $3"
    fi
    by=$(culprit)
    if [ -n "$by" ]; then echo "caught by $by$instead"; else echo 'ERROR: the tests did not run'; fi
}

[ -n "${TMPDIR:-}" ] || [ ! -w /dev/shm ] || export TMPDIR=/dev/shm
prepare
choose "$@" >"$folder/rows"
check_clean
: >"$folder/results"
while IFS=$tab read -r name file test filter change; do
    if grep -qxF "$test$tab$filter" "$folder/skipped"; then
        echo "$name: not planted, its cases are skipped on this machine"
        continue
    fi
    verdict "$file" "$test" "$filter" "$change" >"$folder/result"
    git -C "$tree" checkout -q -- "$file"
    echo "$name: $(cat "$folder/result")"
    cat "$folder/result" >>"$folder/results"
done <"$folder/rows"

count() { grep -c "^$1" "$folder/results" || :; }
echo "$(count '') planted, $(count caught) caught, $(count SURVIVED) survived, $(count ERROR) errors"
[ "$(count '')" = "$(count caught)" ]
