#!/bin/sh
# run.sh [NAME...]: plants each defect of defects.txt (or those named) into a copy of what is committed, one
# at a time, and runs the test that should catch it. Prints how many were caught; 1 when any was not.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/oru-planted-XXXXXX")
trap 'rm -rf "$work"' EXIT
git clone -q "$here/../.." "$work/tree"
cd "$work/tree"
launcher=
command -v ccache >/dev/null && launcher=-DCMAKE_CXX_COMPILER_LAUNCHER=ccache
# shellcheck disable=SC2086
cmake -G Ninja -S . -B build $launcher -DORU_TOOLS=ON -DORU_TESTS=ON -DORU_BENCH=OFF >"$work/log" 2>&1
tab=$(printf '\t')

wanted() { # NAME LIST...
    name=$1
    shift
    [ $# = 0 ] && return 0
    case " $* " in *" $name "*) return 0 ;; *) return 1 ;; esac
}

# verdict TEST FILTER: the binary's word on the defect that stands in the tree.
verdict() {
    git diff --quiet && { echo 'not planted: no such text'; return; }
    cmake --build build --target oruAsf oruSdk "$1" >"$work/log" 2>&1 ||
        { echo 'not planted: does not build'; return; }
    binary=$(find build/tests -name "$1" -type f)
    if timeout 120 "$binary" --gtest_filter="$2" --gtest_brief=1 >"$work/log" 2>&1; then
        echo 'NOT CAUGHT'
    else
        echo caught
    fi
}

# Each test passes before anything is planted.
for test in $(grep -v '^#' "$here/defects.txt" | cut -f 3 | grep . | sort -u); do
    cmake --build build --target "$test" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
done
all=0
caught=0
while IFS=$tab read -r name file test filter change; do
    case $name in '' | '#'*) continue ;; esac
    wanted "$name" "$@" || continue
    binary=$(find build/tests -name "$test" -type f)
    timeout 120 "$binary" --gtest_filter="$filter" >"$work/log" 2>&1 || { echo "$name: $test fails without it"; exit 1; }
    grep -q 'PASSED  \] [1-9]' "$work/log" || { echo "$name: no case of $test matches $filter"; exit 1; }
    sed -i "$change" "$file"
    result=$(verdict "$test" "$filter")
    echo "$result: $name"
    git checkout -q .
    all=$((all + 1))
    [ "$result" = caught ] && caught=$((caught + 1))
done <"$here/defects.txt"
echo "planted defects: $caught of $all caught"
[ "$caught" = "$all" ]
