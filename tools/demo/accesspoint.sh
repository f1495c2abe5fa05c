# Sourced by the scripts of ./dev: a simulated access point in a folder.
#
# start_access_point BUILD FOLDER [fresh]: makes the folder (anew with "fresh"), starts the services, and
# puts the tools on the PATH. service_log is what they report.
start_access_point() {
    build=$1
    ORU_ROOT=$2
    ORU_LOG=none
    ORUSIM_FACTORY=$(cd "$(dirname "$0")/../../share" && pwd)
    PATH=$build/tools/oructl:$build/tools/orusim:$PATH
    export ORU_ROOT ORU_LOG ORUSIM_FACTORY PATH
    [ "${3:-}" = fresh ] && rm -rf "$ORU_ROOT"
    mkdir -p "$ORU_ROOT"
    service_log=$ORU_ROOT/services.log
    trap stop_access_point EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM

    orusim --init >/dev/null
    ready=$ORU_ROOT/ready
    rm -f "$ready"
    mkfifo "$ready"
    orusim >"$service_log" 2>&1 3>"$ready" --ready-fd 3 &
    services=$!
    read -r _ <"$ready" || {
        cat "$service_log" >&2
        exit 1
    }
    rm -f "$ready"
}

stop_access_point() {
    trap - EXIT
    [ -n "${services:-}" ] || return 0
    kill "$services" 2>/dev/null || true
    wait "$services" 2>/dev/null || true
    services=
}
