#!/bin/sh
# make_locales.sh LOCALEDEF FOLDER: locales with a decimal comma, and with a dotless i. Where that can't be,
# the file "made" stays away.
set -u
localedef=$1 folder=$2
mkdir -p "$folder"
while read -r name charset; do
    "$localedef" --no-archive -i "$name" -f "$charset" "$folder/$name.$charset" >"$folder/log" 2>&1 || {
        echo "no locale $name.$charset: $(tail -n 1 "$folder/log")" >&2
        exit 0
    }
done <<END
de_DE UTF-8
tr_TR UTF-8
tr_TR ISO-8859-9
END
touch "$folder/made"
