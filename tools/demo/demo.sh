#!/bin/sh
# demo.sh BUILD: walks the road of a setting on a simulated access point of its own. Run by ./dev demo.
set -eu
build=$1
. "$(dirname "$0")/accesspoint.sh"
start_access_point "$build" "$build/demo-ap" fresh

bold=$(printf '\033[1m') plain=$(printf '\033[0m')
[ -t 1 ] || bold='' plain=''

# step TEXT: what comes next.
step() { printf '\n%s== %s%s\n' "$bold" "$*" "$plain"; }

# run COMMAND...: prints a command, then its output. A refusal is part of the walk.
run() {
    printf '%s$ %s%s\n' "$bold" "$*" "$plain"
    status=0
    "$@" 2>&1 || status=$?
    [ "$status" = 0 ] || printf '(exit %s)\n' "$status"
}

# services LINES: waits until the services have reported that many lines, and prints the new ones.
reported=0
services() {
    tries=100
    while [ "$(wc -l <"$service_log")" -lt $((reported + $1)) ] && [ $tries -gt 0 ]; do
        sleep 0.05
        tries=$((tries - 1))
    done
    tail -n "+$((reported + 1))" "$service_log" | sed 's/^/    /'
    reported=$(wc -l <"$service_log")
}

step "An access point of its own, in $ORU_ROOT"
run oructl version
services 1

step 'Read a switch, change it, read it again'
run oructl get mimo 0
run oructl set mimo 0 off
run oructl get mimo 0

step 'A value that is refused, and why'
run oructl set tx-power 0 9

step 'What changed is one line of the configuration file; the factory file is beside it'
run diff "$ORU_ROOT/var/wsmDefaults.orig" "$ORU_ROOT/var/wsmDefaults"

step 'Nothing reaches the radios until a commit; the services say what they took'
run oructl commit
services 3

step 'A channel: refused for a rule, with what to do about it; then set and applied'
run oructl get channel 1
run oructl set channel 1 52
run oructl set radar-detect 1 off
run oructl set channel 1 52
run oructl commit
services 5

step 'One BSS back to its factory values, then everything'
run oructl set ssid 1 'Lobby'
run oructl get ssid 1
run oructl reset bss 1
run oructl get ssid 1
run oructl reset all
run oructl get mimo 0
run oructl commit
services 5

step 'What the access point says of itself'
run oructl show radios
run oructl show stations 0 0
run oructl show scan
run oructl get --json mimo 0

stop_access_point
cat <<END

To go on by hand:

    ./dev shell      a shell with the simulated access point running and oructl on the PATH
    oructl list      every item, its range, its key and its file
    oructl help      the verbs
END
