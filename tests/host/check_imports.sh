#!/bin/sh
# check_imports.sh NAME LIBRARY LIST: the library takes no other names from outside than the list has.
set -eu
export LC_ALL=C
name=$1 library=$2 list=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
nm -D -u "$library" | awk '{ sub(/@.*/, "", $2); print $2 }' |
    sed 's/^__\(.*\)_chk$/\1/' | sort -u |
    grep -v -E '^(_ITM_.*|__gmon_start__|oruAsf.*)$' >"$folder/imports"
sed -n "s/^$name //p" "$list" | sort >"$folder/allowed"
[ "$(wc -l <"$folder/imports")" -gt 10 ]
new=$(comm -23 "$folder/imports" "$folder/allowed")
if [ -n "$new" ]; then
    echo "$name takes what $list does not have: $new"
    exit 1
fi
echo "$(wc -l <"$folder/imports") names"
