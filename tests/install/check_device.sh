#!/bin/sh
# check_device.sh SOURCES WORK: the libraries of a device, built by the preset "libraries" and stripped,
# stay small, need libc alone, are hardened, and let the loader do little.
set -eu
[ "$(uname -m)" = x86_64 ] || { echo "the limits are those of x86_64"; exit 77; }
sources=$1 work=$2
here=$(dirname "$0")
rm -rf "$work"
mkdir -p "$work"
cmake -S "$sources" --preset libraries -B "$work/build" -DCMAKE_INSTALL_PREFIX=/usr
cmake --build "$work/build" --parallel 2
DESTDIR=$work/root cmake --install "$work/build"

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
    library=$(find "$work/root" -name "lib$1.so")
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
    readelf -dW "$stripped" | grep RUNPATH && complain "$1 says where to look for libraries"
    "$here/check_hardened.sh" library "$stripped" || status=1
    "$here/../host/check_imports.sh" "$1" "$stripped" "$here/../host/imports.txt" || status=1
}

check oruSdk 112 60
check oruAsf 40 60
exit $status
