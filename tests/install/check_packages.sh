#!/bin/sh
# check_packages.sh BUILD WORK PYTHON: each file that BUILD installs is in one package (packaging/), which is
# named after its library; and what is installed, below a prefix of choice, works from there. PYTHON is the
# folder of the bindings, below the prefix.
set -eu
build=$1 work=$2 python=$3
rm -rf "$work"
mkdir -p "$work"
status=0
complain() {
    echo "$*"
    status=1
}

# put FOLDER [PACKAGE]: installs everything, or what one package holds, and lists it.
put() {
    cmake --install "$build" --prefix "$work/$1" ${2:+--component "$2"} >"$work/$1.log"
    mkdir -p "$work/$1"
    (cd "$work/$1" && find . ! -type d | sort) >"$work/$1.list"
}

# library PACKAGE FILE: a shared library in a package.
library() {
    soname=$(readelf -d "$2" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p')
    [ "$1" = "$(echo "$soname" | sed 's/\.so\.//' | tr '[:upper:]' '[:lower:]')" ] ||
        complain "the package $1 holds $soname"
    [ "$(readlink "$(dirname "$2")/$soname")" = "$(basename "$2")" ] || complain "$1: no link $soname"
    development=$(dirname "$2" | sed "s:/$1/:/liborusdk-dev/:")/${soname%.[0-9]*}
    [ "$(readlink "$development")" = "$soname" ] || complain "liborusdk-dev: no link to $soname"
}

put all
put liborusdk-dev liborusdk-dev
libraries=0
while read -r package; do
    put "$package" "$package"
    [ -s "$work/$package.list" ] || complain "$package holds nothing"
    # shellcheck disable=SC2044 # names without spaces
    for file in $(find "$work/$package" -type f -name '*.so.*'); do
        library "$package" "$file"
        libraries=$((libraries + 1))
    done
done <"$build/packaging/packages"
[ $libraries = 2 ] || complain "$libraries libraries in the packages"
(cd "$work" && xargs -I{} cat {}.list <"$build/packaging/packages") | sort >"$work/packed.list"
diff "$work/all.list" "$work/packed.list" || complain "files without a package (<), or in several (>)"

export ORU_LOG=none
for tool in oructl orusim; do
    "$work/all/bin/$tool" --version || complain "$tool does not start from where it is installed"
done
libraries=$(dirname "$(find "$work/all" -name liboruSdk.so)")
version=$(LD_LIBRARY_PATH=$libraries PYTHONPATH=$work/all/$python python3 -B -c '
import orusdk
print(orusdk.__file__, orusdk.version())')
echo "$version"
[ "$version" = "$work/all/$python/orusdk/__init__.py 5.0.600.16" ] || complain "the bindings do not work"
exit $status
