#!/bin/sh
# check_layout.sh SOURCES: the records lie as layout.c says, for this processor and for every other whose
# compiler is here. Nothing is linked, so that none needs a C library of its own.
set -eu
sources=$1
tried=0

try() {
    "$@" -std=c11 -Wall -Wextra -Werror -ffreestanding -fsyntax-only -I"$sources/include" \
        "$sources/tests/abi/layout.c"
    echo "$*: as it says"
    tried=$((tried + 1))
}

try cc
[ "$(uname -m)" != x86_64 ] || try cc -m32
for triplet in mips-linux-gnu arm-linux-gnueabihf powerpc-linux-gnu s390x-linux-gnu i686-linux-gnu; do
    ! command -v $triplet-gcc >/dev/null || try $triplet-gcc
done
if command -v clang >/dev/null; then
    for target in x86_64-linux-gnu aarch64-linux-gnu i386-linux-gnu arm-linux-gnueabihf mips-linux-gnu \
        mipsel-linux-gnu powerpc-linux-gnu s390x-linux-gnu riscv32-linux-gnu; do
        try clang --target=$target
    done
fi
[ "$tried" -gt 1 ] || { echo "tried for this processor alone: no clang, no compiler for another"; exit 77; }
