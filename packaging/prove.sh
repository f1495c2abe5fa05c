#!/bin/sh
# prove.sh BUILD: installs the packages in a small Debian of its own, uses them there, purges them, and
# expects the small Debian to be what it was. It is fetched once, as BUILD/debian.tar.
set -eu
build=$1
here=$(cd "$(dirname "$0")" && pwd)
skip() {
    echo "The packages were not installed anywhere: $*"
    exit 0
}
[ "$(id -u)" = 0 ] || skip "a chroot needs root"
unshare --mount --pid --fork true 2>/dev/null || skip "this machine lets nobody unshare namespaces"

# What the packages need, and compilers for programs that use them.
contents=python3,g++,cmake,make,pkgconf
# shellcheck source=/dev/null
. /etc/os-release
debian=$build/debian.tar
wanted="$VERSION_CODENAME $contents"
if [ "$(cat "$debian.wanted" 2>/dev/null)" != "$wanted" ]; then
    echo "Fetching a small Debian: $wanted"
    sources=/etc/apt/sources.list.d/$ID.sources
    [ -e "$sources" ] || sources=/etc/apt/sources.list
    mmdebstrap --quiet --variant=minbase --include="$contents" "$VERSION_CODENAME" "$debian" "$sources"
    echo "$wanted" >"$debian.wanted"
fi

root=$build/debian
rm -rf "$root"
mkdir "$root"
trap 'rm -rf "$root"' EXIT
tar -C "$root" -xf "$debian"
mkdir "$root/prove"
cp -r "$build/packages" "$here/../tests/install/consumer" "$here/prove_inside.sh" "$root/prove"

# Every file with its type, mode, owner and size, but for what dpkg and ldconfig keep for themselves.
list() {
    (cd "$root" && find . \( -path ./prove -o -path ./var/lib/dpkg -o -path ./var/log/dpkg.log \
        -o -path ./var/cache/ldconfig \) -prune -o -type d -printf '%p %m %U\n' \
        -o -printf '%p %y %m %U %s %l\n') | sort
}

list >"$build/debian.before"
# shellcheck disable=SC2016 # expands inside
unshare --mount --pid --fork --kill-child sh -c '
    mount -t proc proc "$1/proc"
    exec env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin chroot "$1" /prove/prove_inside.sh' sh "$root"
list >"$build/debian.after"
diff "$build/debian.before" "$build/debian.after" || {
    echo "The purged packages left something behind, or took something away" >&2
    exit 1
}
echo "Purged, nothing is left behind"
