#!/bin/sh
# check_abi.sh LIBRARY BASELINE HEADERS: the library's interface is the one of the baseline. After a change
# that is meant, ORU_UPDATE_GOLDEN=1 writes the baseline anew, to be read as a difference before it is committed.
set -eu
library=$1 baseline=$2 headers=$3
command -v abidiff >/dev/null || { echo "abidiff is missing (abigail-tools)"; exit 77; }
[ "$(uname -m)" = x86_64 ] || { echo "the baselines are those of x86_64"; exit 77; }
readelf -SW "$library" | grep -q ' \.debug_info ' || { echo "built without debug information"; exit 77; }

if [ -n "${ORU_UPDATE_GOLDEN:-}" ]; then
    abidw --exported-interfaces-only --drop-private-types --headers-dir "$headers" --no-show-locs \
        --no-corpus-path --no-comp-dir-path --no-elf-needed --out-file "$baseline" "$library"
fi
abidiff --harmless --exported-interfaces-only --drop-private-types --headers-dir2 "$headers" "$baseline" "$library"
echo "no difference"
