#!/bin/sh
# prove_inside.sh: run in the small Debian, with the packages in /prove: installs, uses and purges them.
set -eu
export LC_ALL=C.UTF-8 ORU_LOG=none ORU_ROOT=/prove/ap DEBIAN_FRONTEND=noninteractive
log=/prove/log
cd /prove

# step TEXT COMMAND...: says what is tried; what the command printed is shown when it fails.
exec 8>&1
tried=
trap '[ -z "$tried" ] || { cat $log; echo "FAILED: $tried"; } >&8' EXIT
step() {
    tried=$1
    shift
    "$@" >$log 2>&1 # no condition, which would let a function go on after a failure
    echo "  $tried"
    tried=
}

# expect TEXT COMMAND...: the command prints exactly this.
expect() {
    text=$1
    shift
    "$@" | tee printed
    [ "$(cat printed)" = "$text" ]
}

start_access_point() {
    mkdir $ORU_ROOT
    mkfifo ready
    orusim --init
    orusim >services 2>&1 3>ready --ready-fd 3 &
    services=$!
    read -r _ <ready || { cat services; false; }
}

set_get_commit() {
    oructl set mimo 0 off
    expect "mimo[0] = off" oructl get mimo 0
    oructl commit
    grep -q 'mimoFlag: 1 -> 0' services
}

documents() {
    for page in man1/oructl.1 man7/oructl-items.7 man1/orusim.1 man3/oruSdk.3 man3/oruAsf.3; do
        gzip -t "/usr/share/man/$page.gz"
    done
    for package in $packages; do
        grep -q Copyright "/usr/share/doc/$package/copyright"
        gzip -t "/usr/share/doc/$package/changelog.Debian.gz"
    done
}

bindings() {
    python3 -c '
import orusdk
assert orusdk.stations(0, 0)
orusdk.set_ssid(0, "Lobby")
orusdk.commit()'
    expect 'ssid[0] = "Lobby"' oructl get ssid 0
    test -d /usr/lib/python3/dist-packages/orusdk/__pycache__ # which has to go with the package
}

# shellcheck disable=SC2046 # words on purpose
by_pkg_config() {
    cc consumer/consumer.c -o c $(pkg-config --cflags --libs oruSdk)
    c++ consumer/consumer.cpp -o cpp $(pkg-config --cflags --libs oruSdk)
    cc -static consumer/consumer.c -o c-static $(pkg-config --static --cflags --libs oruSdk)
    for program in c cpp c-static; do ./$program; done
    ldd ./c | grep 'liboruAsf.so.1 => /' # found by what ldconfig wrote
}

by_cmake() {
    cmake -S consumer -B built
    cmake --build built
    for program in c cpp c_static cpp_static; do built/consumer_$program; done
}

purge() {
    # shellcheck disable=SC2086 # words on purpose
    dpkg --purge $packages
    if dpkg-query -W | grep oru; then return 1; fi
}

packages=$(for file in packages/*.deb; do dpkg-deb -f "$file" Package; done)
echo "In a small Debian:"
step "install" dpkg -i packages/*.deb
# shellcheck disable=SC2086 # words on purpose
step "files are as they were packed" dpkg --verify $packages
step "manual pages, copyrights, changelogs" documents
step "oructl --help" oructl --help
step "orusim, with the factory files of the package" start_access_point
step "oructl set, get, commit" set_get_commit
step "orusdk from Python" bindings
kill "$services"
wait "$services" || true
step "C and C++ by pkg-config, shared and static" by_pkg_config
step "C and C++ by CMake, shared and static" by_cmake
step "purge" purge
