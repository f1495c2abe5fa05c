#!/bin/sh
# check_start.sh ORUCTL CONFIG FACTORY WORK: a start of oructl is cheap. It loads no library but libc and the
# project's own, has no streams of the standard library in it, and reads an item in few instructions.
set -eu
oructl=$1 config=$2 factory=$3 work=$4

needed=$(readelf -d "$oructl" | grep NEEDED | grep -v -E 'liboru(Sdk|Asf)\.so|libc\.|ld-linux') || true
[ -z "$needed" ] || { echo "it needs $needed"; exit 1; }
streams=$(nm -C "$oructl" | grep -E 'std::(ios_base|basic_ostream|basic_istream)' | head -3)
[ -z "$streams" ] || { echo "it has streams: $streams"; exit 1; }

case $config in Rel*) ;; *) echo "instructions are counted of optimized builds"; exit 0 ;; esac
command -v valgrind >/dev/null || { echo "instructions were not counted: valgrind is not installed"; exit 77; }
rm -rf "$work"
mkdir -p "$work/var"
cp "$factory/wsmDefaults.orig" "$work/var/wsmDefaults"
count=$(ORU_ROOT=$work ORU_LOG=none valgrind --tool=callgrind --callgrind-out-file=/dev/null \
    "$oructl" get mimo 0 2>&1 | sed -n 's/.*Collected : *//p')
echo "get mimo 0: $count instructions"
limit=600000
! readelf -h "$oructl" | grep -q ELF32 || limit=720000 # fewer registers, a fifth more instructions
[ "$count" -lt "$limit" ]
