#!/bin/sh
# run.sh [NAME...]: plants each defect of defects.txt (or those named) into a copy of what is committed, one
# at a time, and runs the test that should catch it. Prints how many were caught; 1 when any was not.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/oru-planted-XXXXXX")
trap 'rm -rf "$work"' EXIT
tab=$(printf '\t')
grep -v '^#' "$here/defects.txt" >"$work/defects"
if [ $# != 0 ]; then
    for name in "$@"; do grep "^$name$tab" "$work/defects"; done >"$work/chosen"
    mv "$work/chosen" "$work/defects"
fi

git clone -q "$here/../.." "$work/tree"
cd "$work/tree"
launcher=
command -v ccache >/dev/null && launcher=-DCMAKE_CXX_COMPILER_LAUNCHER=ccache
# shellcheck disable=SC2086
cmake -G Ninja -S . -B build $launcher -DORU_TOOLS=ON -DORU_TESTS=ON -DORU_BENCH=OFF >"$work/log" 2>&1

build() { cmake --build build --target "$@" >"$work/log" 2>&1; }
run() { # TEST FILTER
    timeout 120 "$(find build/tests -name "$1" -type f)" --gtest_filter="$2" >"$work/log" 2>&1
}

# Without a defect every test has cases, and they pass.
# shellcheck disable=SC2046 # words on purpose
build oruAsf oruSdk $(cut -f 3 "$work/defects" | sort -u) || { cat "$work/log"; exit 1; }
while IFS=$tab read -r name file test filter change; do
    if ! run "$test" "$filter" || ! grep -q 'PASSED  \] [1-9]' "$work/log"; then
        echo "$name: no cases $filter of $test that pass without it"
        exit 1
    fi
done <"$work/defects"

# verdict TEST FILTER: the test's word on the defect that stands in the tree.
verdict() {
    if git diff --quiet; then echo 'not planted, no such text'
    elif ! build oruAsf oruSdk "$1"; then echo 'not planted, does not build'
    elif run "$1" "$2"; then echo 'NOT CAUGHT'
    else echo caught
    fi
}

all=0
caught=0
while IFS=$tab read -r name file test filter change; do
    sed -i "$change" "$file"
    result=$(verdict "$test" "$filter")
    git checkout -q .
    echo "$result: $name"
    all=$((all + 1))
    [ "$result" != caught ] || caught=$((caught + 1))
done <"$work/defects"
echo "planted defects: $caught of $all caught"
[ "$caught" = "$all" ]
