#!/bin/sh
# changelog.sh CHANGELOG.md REVISION MAINTAINER DATE: the newest version of the changelog as Debian writes it.
set -eu
date=$(LC_ALL=C date -u -R -d "$4")
awk -v revision="$2" -v maintainer="$3" -v date="$date" '
    # An item, in lines of at most 79 letters.
    function write_item(    count, words, i, line) {
        count = split(item, words, " ")
        line = count ? "  *" : ""
        for (i = 1; i <= count; i++) {
            if (length(line " " words[i]) > 79) { print line; line = "   " }
            line = line " " words[i]
        }
        if (count) print line
        item = ""
    }
    /^## / && version != "" { exit }
    /^## / { version = $2; printf "orusdk (%s-%s) unstable; urgency=medium\n\n", version, revision; next }
    version == "" { next }
    /^- / { write_item(); sub(/^- /, "") }
    { gsub(/`/, ""); item = item " " $0 }
    END { write_item(); printf "\n -- %s  %s\n", maintainer, date }' "$1"
