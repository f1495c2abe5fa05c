#!/bin/sh
# check_musl.sh SOURCES WORK: the two libraries build for musl, which has no C++ library to lean on, and serve
# a program in C that is linked with them, or that they are part of.
set -eu
command -v musl-gcc >/dev/null || { echo "musl-gcc is missing (musl-tools)"; exit 77; }
sources=$1 work=$2
rm -rf "$work"
mkdir -p "$work"
cmake -S "$sources" -B "$work/build" --toolchain "$sources/cmake/toolchains/musl.cmake" \
    -DORU_TOOLS=OFF -DORU_TESTS=OFF -DORU_BENCH=OFF
cmake --build "$work/build" --parallel 2

libraries=$work/build/src
for library in oruAsf oruSdk; do
    if readelf -d "$libraries/lib$library.so" | grep NEEDED | grep -v -E '\[(libc|liboruAsf)\.so'; then
        echo "$library needs more than musl"
        exit 1
    fi
done

export ORU_LOG=none
consumer=$sources/tests/install/consumer/consumer.c
musl-gcc -I"$sources/include" "$consumer" -L"$libraries" -loruSdk -loruAsf -Wl,-rpath,"$libraries" \
    -o "$work/shared"
musl-gcc -static -I"$sources/include" "$consumer" "$libraries/liboruSdk.a" "$libraries/liboruAsf.a" \
    -o "$work/static"
readelf -lW "$work/shared" | grep 'interpreter: /lib/ld-musl'
"$work/shared"
"$work/static"
