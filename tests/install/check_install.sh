#!/bin/sh
# check_install.sh SOURCES WORK: the two libraries build with a compiler and CMake alone, install under a
# prefix of choice, and are found there by find_package() and pkg-config, from C and from C++.
set -eu
sources=$1 work=$2
rm -rf "$work"
mkdir -p "$work"

# In the folder of this machine's libraries where it has one, two below the prefix.
cmake -S "$sources" -B "$work/build" -DORU_TOOLS=OFF -DORU_TESTS=OFF -DORU_BENCH=OFF \
    -DCMAKE_INSTALL_LIBDIR="lib/$(cc -print-multiarch)"
cmake --build "$work/build" --parallel 2
cmake --install "$work/build" --prefix "$work/prefix"
# Moved, to see that nothing depends on where it was installed.
mv "$work/prefix" "$work/moved"
for library in $(find "$work/moved" -name 'lib*.so'); do
    [ "$(readelf -dW "$library" | sed -n 's/.*runpath: //p')" = '[$ORIGIN]' ] || {
        echo "$library looks for libraries elsewhere than beside itself"
        exit 1
    }
done

cmake -S "$sources/tests/install/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$work/moved"
cmake --build "$work/consumer"
export ORU_LOG=none
for program in consumer_c consumer_cpp consumer_c_static consumer_cpp_static; do
    "$work/consumer/$program"
done
if readelf -d "$work/consumer/consumer_c_static" "$work/consumer/consumer_cpp_static" | grep oru; then
    echo "a static program needs a library"
    exit 1
fi
cmake -S "$sources/examples" -B "$work/examples" -DCMAKE_PREFIX_PATH="$work/moved"
cmake --build "$work/examples"

if command -v pkg-config >/dev/null; then
    PKG_CONFIG_PATH=$(dirname "$(find "$work/moved" -name oruSdk.pc)")
    export PKG_CONFIG_PATH
    # shellcheck disable=SC2046 # words on purpose
    cc "$sources/tests/install/consumer/consumer.c" -o "$work/by-pkg-config" \
        $(pkg-config --cflags --libs oruSdk)
    LD_LIBRARY_PATH=$(pkg-config --variable=libdir oruSdk) "$work/by-pkg-config"
    # shellcheck disable=SC2046 # words on purpose
    cc -static "$sources/tests/install/consumer/consumer.c" -o "$work/by-pkg-config-static" \
        $(pkg-config --static --cflags --libs oruSdk)
    "$work/by-pkg-config-static"
fi
