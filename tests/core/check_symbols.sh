#!/bin/sh
# check_symbols.sh LIBRARY HEADER VERSION: the library exports exactly what the header declares, all of it
# with that symbol version, needs no other library than libc with its loader (and liboruAsf), and has no executable stack.
set -eu
library=$1 header=$2 version=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# Declarations start with the export mark and run to a semicolon; the name stands before ( [ or ;.
tr '\n' ' ' <"$header" | sed 's/(\*[a-z]*)/x/g' | grep -o 'ORU[A-Z]*_API [^;{]*;' |
    sed 's/ORU[A-Z]*_API //; s/[[(].*//; s/;//; s/.*[ *]//' | grep -v '^_*attribute' | sort >"$folder/declared"
nm -D --defined-only "$library" | awk '{ sub(/@.*/, "", $3); print $3 }' |
    grep -v -E '^(ORU(SDK|ASF)_[0-9.]+|_init|_fini|__asan.*|__odr.*)?$' | sort >"$folder/exported"
diff -u "$folder/declared" "$folder/exported"
if nm -D --defined-only "$library" | grep -v -F "@@$version" | grep -v -E " A $version|__asan|__odr"; then
    echo "not of version $version"
    exit 1
fi

[ "$(wc -l <"$folder/exported")" -gt 20 ]
if readelf -d "$library" | grep NEEDED | grep -v -E 'libc\.|ld(64|-linux.*)?\.so|liboruAsf\.so\.1|lib[au]b?san'; then
    echo "needs more than libc"
    exit 1
fi
if readelf -dW "$library" | grep -q SYMBOLIC; then
    echo "binds its own symbols"
    exit 1
fi
readelf -lW "$library" | grep GNU_STACK | grep -q -v E
echo "$(wc -l <"$folder/exported") symbols"
