#!/bin/sh
# check_header.sh HEADER: compiles alone, as every language that its callers write, without a warning of
# gcc or clang.
set -eu
header=$1
warnings="-pedantic -Wall -Wextra -Wconversion -Wundef -Wshadow -Werror"
missing=

# try COMPILER LANGUAGE STANDARD OPTION...
try() {
    compiler=$1 language=$2 standard=$3
    shift 3
    # shellcheck disable=SC2086 # words on purpose
    "$compiler" -x "$language" -std="$standard" $warnings -fsyntax-only "$@" "$header"
    echo "$compiler $standard: no warning"
}

for compiler in gcc:g++ clang:clang++; do
    if ! command -v "${compiler#*:}" >/dev/null; then
        missing="$missing ${compiler#*:}"
        continue
    fi
    for standard in c99 c11; do
        try "${compiler%:*}" c "$standard" -Wstrict-prototypes -Wmissing-prototypes
    done
    for standard in c++11 c++20; do
        try "${compiler#*:}" c++ "$standard"
    done
done
[ -z "$missing" ] || { echo "not tried, for they are not installed:$missing"; exit 77; }
