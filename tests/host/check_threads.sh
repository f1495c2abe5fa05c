#!/bin/sh
# check_threads.sh THREADS SHARE WORK: threads call everything at once, with factory files.
set -eu
threads=$1 share=$2 work=$3
rm -rf "$work"
mkdir -p "$work/var" "$work/config"
for name in wsmDefaults 1x.conf; do
    cp "$share/$name.orig" "$work/var/$name"
    cp "$share/$name.orig" "$work/var/$name.orig"
done
cp "$share/wsmSavedRadarDetectList" "$work/config"
rounds=300
[ -z "${ORU_TORTURE:-}" ] || rounds=20000
# The sanitizer of some compilers does not know where new kernels put things.
fixed=
setarch "$(uname -m)" --addr-no-randomize true 2>/dev/null && fixed="setarch $(uname -m) --addr-no-randomize"
export ORU_ROOT="$work" ORU_LOG="file:$work/log" TSAN_OPTIONS="exitcode=66 halt_on_error=1"
$fixed "$threads" $rounds
[ -s "$work/log" ] || { echo "nothing was logged"; exit 1; }
