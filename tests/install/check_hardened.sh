#!/bin/sh
# check_hardened.sh library|program FILE...: what an attacker counts on is missing: tables of addresses that
# can be written, a stack that can be run, code at a known place, copies without limits, and libraries that
# are looked for where anybody may put them.
set -eu
kind=$1
shift
status=0
complain() {
    echo "$*"
    status=1
}

for file in "$@"; do
    name=$(basename "$file")
    head=$(readelf -hW "$file")
    segments=$(readelf -lW "$file")
    dynamic=$(readelf -dW "$file")
    symbols=$(nm -D "$file")
    has() { printf '%s\n' "$1" | grep -q -E "$2"; }

    has "$head" 'Type: +DYN' || complain "$name stands at a fixed place"
    [ "$kind" = library ] || has "$dynamic" 'Flags:.* PIE' || complain "$name is no position-independent program"
    has "$segments" 'GNU_RELRO' || complain "$name is without RELRO"
    has "$dynamic" 'BIND_NOW|Flags:.* NOW' || complain "$name binds lazily: its RELRO is partial"
    has "$segments" 'GNU_STACK.* RW ' || complain "$name has an executable stack"
    ! has "$segments" ' RWE ' || complain "$name can write what it runs"
    ! has "$dynamic" 'TEXTREL' || complain "$name has relocations in its code"
    ! has "$dynamic" '\(RPATH\)' || complain "$name has an RPATH"
    has "$symbols" ' __stack_chk_fail' || complain "$name is without stack protector"
    has "$symbols" '_chk(@|$)' || complain "$name is without fortified calls"
done
exit $status
