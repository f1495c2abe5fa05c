#!/bin/sh
# package.sh BUILD: packs what is built in BUILD, has lintian check the packages, and proves them. Run by
# ./dev package.
set -eu
build=$1
here=$(cd "$(dirname "$0")" && pwd)
packages=$build/packages

# Files are as old as the release, so that the same build makes the same packages, byte for byte.
released=$(sed -n 's/^set(CPACK_ORU_DATE "\(.*\)")$/\1/p' "$build/CPackConfig.cmake")
SOURCE_DATE_EPOCH=$(date -u -d "$released" +%s)
export SOURCE_DATE_EPOCH

# pack: leaves the packages, and their sums in the file "sums".
pack() {
    rm -rf "$packages"
    (cd "$build" && cpack) >"$build/cpack.log" 2>&1 || {
        cat "$build/cpack.log" >&2
        exit 1
    }
    rm -rf "$packages/_CPack_Packages"
    (cd "$packages" && sha256sum ./*.deb >../sums)
}

pack
mv "$build/sums" "$build/sums.first"
pack
cmp "$build/sums.first" "$build/sums"
echo "packed twice, the same bytes"
(cd "$packages" && wc -c ./*.deb)
lintian --allow-root --tag-display-limit 0 --fail-on error,warning "$packages"/*.deb
echo "lintian finds nothing"
exec "$here/prove.sh" "$build"
