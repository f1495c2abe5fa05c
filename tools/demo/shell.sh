#!/bin/sh
# shell.sh BUILD: a shell with the simulated access point running. Run by ./dev shell.
set -eu
build=$1
. "$(dirname "$0")/accesspoint.sh"
start_access_point "$build" "$build/shell-ap"
cat <<END
A simulated access point runs in $ORU_ROOT (kept for the next time).
  oructl list                 every item
  oructl get mimo 0           read one
  tail -f $service_log        what the services report
Leave with exit or Ctrl-D: the services stop.
END
PS1='oru$ ' "${SHELL:-/bin/sh}" -i || true
stop_access_point
