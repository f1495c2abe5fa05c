#!/bin/sh
# check_log_places.sh SOURCES: every place of liboruSdk that logs has a line number of its own. The build
# gives each source file a range of 1000 numbers, so a file stays below 1000 lines, a line holds one log
# text, and no header logs.
set -eu
cd "$1"
status=0
complain() {
    echo "$*"
    status=1
}

# What logs, or has its caller's place logged.
log='(fail|logError|logWarning|logInfo|saveRadioFile|saveSecurityFile)\('
places=0
for file in $(find core radio bss wps status -name '*.cpp'); do
    [ "$(wc -l <"$file")" -lt 1000 ] || complain "$file has 1000 lines or more"
    twice=$(grep -nE "$log.*$log" "$file" || true)
    [ -z "$twice" ] || complain "$file: two log texts on one line: $twice"
    places=$((places + $(grep -cE "$log" "$file" || true)))
done
for file in $(find core radio bss wps status -name '*.hpp' ! -name log.hpp); do
    found=$(grep -nE '(^|[^a-zA-Z])(fail|logError|logWarning|logInfo)\(' "$file" || true)
    [ -z "$found" ] || complain "$file logs: $found"
done
[ "$places" -gt 50 ] || complain "found only $places places: is this the right folder?"
exit $status
