#!/bin/sh
# package.sh BUILD: packs what is built in BUILD, has lintian check the packages, and proves them. Run by
# ./dev package.
set -eu
build=$1
here=$(cd "$(dirname "$0")" && pwd)
packages=$build/packages

rm -rf "$packages"
(cd "$build" && cpack) >"$build/cpack.log" 2>&1 || {
    cat "$build/cpack.log" >&2
    exit 1
}
rm -rf "$packages/_CPack_Packages"
(cd "$packages" && wc -c ./*.deb)
lintian --allow-root --tag-display-limit 0 --fail-on error,warning "$packages"/*.deb
echo "lintian finds nothing"
exec "$here/prove.sh" "$build"
