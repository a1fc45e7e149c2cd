#!/bin/sh
# The server of the tests that run on the shared engine: a private one in a folder of the build, with a database that
# each test copies.
#
#   shared_server.sh start <folder> [--durable]   starts it, and prepares the database when the day or its scripts have
#                                                 changed; with --durable what was committed outlives a crash
#   shared_server.sh stop <folder>
#
# The folder is kept in memory where there is room: copying a database takes a tenth of the time then. It is a link, and
# what it leads to goes when the server stops. Where no server can be started, the file <folder>/missing says why; those tests are then skipped.
set -eu

case $1${3:-} in
start | start--durable | stop) folder=$2 ;;
*)
    echo 'usage: shared_server.sh start <folder> [--durable] | stop <folder>' >&2
    exit 2
    ;;
esac
speed=--fast
[ -z "${3:-}" ] || speed=
scripts=$(CDPATH= cd -- "$(dirname -- "$0")/../database" && pwd)
template=kelvane_template_demo

as_administrator() {
    PGOPTIONS='-c client_min_messages=warning' psql -X -q -A -t -v ON_ERROR_STOP=1 -h "$socket" -U kelvane_admin -d postgres "$@"
}

drop() {
    as_administrator -c "drop database if exists $1 with (force)"
}

# What the prepared database depends on. Its days are counted from the day on which it is made.
stamp() {
    date +%Y-%m-%d
    find "$scripts/demo" "$scripts/embedded" "$scripts/postgresql" -type f -exec cksum {} + | LC_ALL=C sort | cksum
}

prepare() {
    made=$(stamp | tr '\n' ' ')
    kept=$(as_administrator -c "select shobj_description(oid, 'pg_database') from pg_database where datname = '$template'")
    [ "$made" != "$kept" ] || return 0
    drop "$template"
    drop "${template}_making"
    address=postgresql://kelvane_admin@/${template}_making?host=$(printf %s "$socket" | sed 's:/:%2F:g')
    "$scripts/postgresql/make.sh" "$address" --demo
    as_administrator -c "comment on database ${template}_making is '$made'" \
        -c "alter database ${template}_making rename to $template"
}

memory=/dev/shm
needed=1048576 # KiB

make_folder() {
    [ ! -d "$folder" ] || return 0
    mkdir -p -- "$(dirname -- "$folder")"
    rm -f -- "$folder" # a link that has lost its target
    if [ -w "$memory" ] && [ "$(df --output=avail -k "$memory" | tail -n 1)" -ge "$needed" ]; then
        target=$(mktemp -d "$memory/kelvane-tests.XXXXXX")
        chmod 755 -- "$target" # the server's own user goes through
        ln -s -- "$target" "$folder"
    else
        mkdir -- "$folder"
    fi
}

start() {
    make_folder
    rm -f -- "$folder/missing"
    if ! "$scripts/postgresql/server.sh" start "$folder" $speed >/dev/null 2>"$folder/complaint"; then
        mv -- "$folder/complaint" "$folder/missing"
        cat -- "$folder/missing"
        return
    fi
    socket=$(cat -- "$folder/socket")
    # What killed tests have left behind.
    for name in $(as_administrator -c "select datname from pg_database where datname like 'kelvane\\_test\\_%'"); do
        drop "$name"
    done
    prepare
}

stop() {
    [ -e "$folder/missing" ] || "$scripts/postgresql/server.sh" stop "$folder"
    [ -L "$folder" ] || return 0
    case $(readlink -- "$folder") in
    "$memory"/kelvane-tests.*) rm -rf -- "$(readlink -- "$folder")" ;;
    esac
    rm -- "$folder"
}

"$1"
