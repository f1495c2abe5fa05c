#!/bin/sh
# check_plugin.sh PLUGIN LIBRARY SHARE WORK: a program loads and unloads the library, with factory files.
set -eu
plugin=$1 library=$2 share=$3 work=$4
rm -rf "$work"
mkdir -p "$work/var" "$work/config"
for name in wsmDefaults 1x.conf; do cp "$share/$name.orig" "$work/var/$name"; done
ORU_ROOT=$work ORU_LOG=file:$work/log "$plugin" "$library"
