#!/bin/sh
# check_device.sh SOURCES WORK: the libraries of a device, built by the preset "libraries" and stripped,
# stay small, need libc alone, are hardened, and let the loader do little.
set -eu
[ "$(uname -m)" = x86_64 ] || { echo "the limits are those of x86_64"; exit 77; }
sources=$1 work=$2
rm -rf "$work"
mkdir -p "$work"
cmake -S "$sources" --preset libraries -B "$work/build"
cmake --build "$work/build" --parallel 2

status=0
complain() {
    echo "$*"
    status=1
}

# The addresses of the texts in the exported tables; each is a relocation that the interface asks for.
texts() {
    nm -DS --defined-only "$1" | while read -r _ size _ name; do
        case ${name%%@*} in
        oruSdkRcStr | oruSdkCountryStrings | rateMap) echo $((0x$size / address_size)) ;;
        esac
    done | awk '{ sum += $1 } END { print sum + 0 }'
}

# check NAME KIB RELOCATIONS
check() {
    library=$work/build/src/lib$1.so
    stripped=$work/lib$1.so
    strip -o "$stripped" "$library"
    address_size=$(readelf -h "$stripped" | awk '/Class:/ { print $2 == "ELF64" ? 8 : 4 }')
    size=$(stat -c %s "$stripped")
    relocations=$(($(readelf -rW "$stripped" | grep -c ' R_') - $(texts "$stripped")))
    echo "$1: $size bytes, $relocations relocations beyond the texts of exported tables"
    [ "$size" -le $(($2 * 1024)) ] || complain "$1 is larger than $2 KiB"
    [ "$relocations" -le "$3" ] || complain "$1 has more than $3 relocations"

    needed=$(readelf -d "$stripped" | grep NEEDED | grep -v -E 'liboruAsf\.so|libc\.') || true
    [ -z "$needed" ] || complain "$1 needs $needed"
    readelf -lW "$stripped" | grep -q GNU_RELRO || complain "$1 is without RELRO"
    readelf -dW "$stripped" | grep -q 'BIND_NOW' || complain "$1 binds lazily: its RELRO is partial"
    readelf -lW "$stripped" | grep GNU_STACK | grep -q ' RW ' || complain "$1 has an executable stack"
    nm -D "$stripped" >"$work/symbols"
    grep -q ' __stack_chk_fail' "$work/symbols" || complain "$1 is without stack protector"
    grep -q '_chk@' "$work/symbols" || complain "$1 is without fortified calls"
}

check oruSdk 112 60
check oruAsf 40 60
exit $status
