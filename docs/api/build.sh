#!/bin/sh
# build.sh DOXYGEN DOXYFILE FOLDER: the reference of the headers in FOLDER/html and FOLDER/man. Fails on a
# warning.
set -eu
doxygen=$1 doxyfile=$2 folder=$3
rm -rf "$folder"
mkdir -p "$folder"
"$doxygen" "$doxyfile"
# Pages of enumerations without a name, which nobody could ask for.
rm -f "$folder"/man/man3/@*
