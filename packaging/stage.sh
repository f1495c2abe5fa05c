#!/bin/sh
# stage.sh STAGE CONTROL VERSION: turns installed files, in STAGE/PACKAGE, into those of Debian packages:
# documents are there, binaries stripped, manual pages compressed. CONTROL/changelog is the changelog. Leaves
# in CONTROL/PACKAGE the files "shlibs" and "symbols" of a library, and "depends", what its binaries depend on.
set -eu
stage=$1 control=$2 version=$3
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$control/debian"
: >"$control/debian/control" # the helpers below ask for one, and need nothing that could stand in it

# documents PACKAGE
documents() {
    folder=$stage/$1/usr/share/doc/$1
    copyright=$here/copyright
    [ ! -e "$copyright.$1" ] || copyright=$copyright.$1
    install -D -m 644 "$copyright" "$folder/copyright"
    install -D -m 644 "$control/changelog" "$folder/changelog.Debian"
}

# As Debian's own packages are stripped.
strip_all() {
    find "$stage" -name '*.a' -exec strip --strip-debug --enable-deterministic-archives \
        --remove-section=.comment --remove-section=.note {} +
    find "$stage" -type f \( -name '*.so.*' -o -path '*/usr/bin/*' \) -exec strip --strip-unneeded \
        --remove-section=.comment --remove-section=.note {} +
}

# library PACKAGE: what other packages need to know of a library.
library() {
    file=$(find "$stage/$1" -type f -name '*.so.*')
    soname=$(objdump -p "$file" | awk '$1 == "SONAME" { print $2 }')
    mkdir -p "$control/$1"
    (cd "$control" && dpkg-gensymbols -q -c4 -p"$1" -v"$version" -P"$stage/$1" -I"$here/$1.symbols" \
        -O"$control/$1/symbols")
    echo "${soname%.so.*} ${soname##*.so.} $1 (>= $version)" >"$control/$1/shlibs"
    cp "$control/$1/symbols" "$control/$1/shlibs" "$stage/$1/DEBIAN"
}

# depends PACKAGE: of what libraries its binaries need.
depends() {
    binaries=$(find "$stage/$1" -type f \( -name '*.so.*' -o -path '*/usr/bin/*' \))
    [ -n "$binaries" ] || return 0
    mkdir -p "$control/$1"
    # shellcheck disable=SC2046,SC2086 # words on purpose
    (cd "$control" && dpkg-shlibdeps -O $(printf -- '-S%s ' "$stage"/lib*[0-9]) $binaries) |
        sed 's/^shlibs:Depends=//' >"$control/$1/depends"
}

for package in "$stage"/*/; do
    mkdir "$package/DEBIAN" # where the helpers look
    documents "$(basename "$package")"
done
find "$stage" -type f \( -path '*/share/man/*' -o -name changelog.Debian \) -exec gzip -9n {} +
strip_all
for package in "$stage"/lib*[0-9]; do library "${package##*/}"; done
for package in "$stage"/*/; do depends "$(basename "$package")"; done
rm -rf "$stage"/*/DEBIAN
find "$stage" -type d -exec chmod 755 {} + # whatever the umask was
