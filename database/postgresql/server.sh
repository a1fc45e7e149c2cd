#!/bin/sh
# A private PostgreSQL server in a folder of its own, for one computer: it is reached through a Unix socket only, and
# belongs to whoever starts it. The machine's own servers are left alone.
#
#   server.sh start <folder> [--fast]       makes the server when there is none, starts it; prints the socket's folder
#   server.sh stop <folder> [--immediate]   stops it; --immediate ends it as a power failure would
#   server.sh socket <folder>               prints the socket's folder
#
# The role "kelvane_admin" may do everything; only the operating system's user who starts the server can be it, and
# needs no password. Everybody else logs in with a password. PostgreSQL never runs as root: started by root, the server
# runs as the user "postgres". With --fast it doesn't care about a power failure, which suits tests.
set -eu

fail() {
    echo "server.sh: $*" >&2
    exit 1
}

usage='usage: server.sh start <folder> [--fast] | stop <folder> [--immediate] | socket <folder>'
[ $# -ge 2 ] || fail "$usage"
command=$1 folder=${2%/} option=${3:-}
case $command$option in
start | start--fast | stop | stop--immediate | socket) ;;
*) fail "$usage" ;;
esac
case $folder in /*) ;; *) folder=$PWD/$folder ;; esac

# Programs of the version that has made the data; of the newest one when there are none yet.
version='*'
[ ! -f "$folder/data/PG_VERSION" ] || version=$(cat -- "$folder/data/PG_VERSION")
programs=
for path in /usr/lib/postgresql/$version/bin; do
    [ ! -x "$path/initdb" ] || programs=$path
done
[ -n "$programs" ] || fail "the programs of the server are missing (Debian package \"postgresql-15\")"

account=$(id -un)
if [ "$(id -u)" = 0 ]; then
    account=postgres
    id -u "$account" >/dev/null 2>&1 || fail "root can't run the server, and there is no user \"$account\""
fi

# The data folder is handed to the server as descriptor 9: its user need not reach the folders above, and any name is a
# good one. The server must not keep the lock, which is descriptor 8.
as_server() {
    if [ "$(id -u)" = 0 ]; then
        setpriv --reuid="$account" --regid="$account" --init-groups "$@" 8>&-
    else
        "$@" 8>&-
    fi
}

# The server that serves this folder, and not another process with a number that was left behind.
running() {
    [ -f "$folder/data/postmaster.pid" ] || return 1
    process=$(head -n 1 -- "$folder/data/postmaster.pid")
    [ "$(readlink "/proc/$process/cwd")" = "$(readlink -f -- "$folder/data")" ]
}

socket() {
    cat -- "$folder/socket" 2>/dev/null || fail "$folder holds no server that was started"
}

initialise() {
    new=$folder/data.making
    rm -rf -- "$new"
    mkdir -m 700 -- "$new"
    chown "$account" -- "$new"
    sync=
    [ -z "$option" ] || sync=--no-sync
    (cd / && as_server "$programs/initdb" --pgdata=/proc/self/fd/9 --username=kelvane_admin --encoding=UTF8 \
        --locale=C.UTF-8 --lc-collate=C --auth=reject $sync) 9<"$new" >"$folder/log" 2>&1 || {
        rm -rf -- "$new"
        fail "the server can't be made; $folder/log says why"
    }
    echo "include 'kelvane.conf'" >>"$new/postgresql.conf"
    cat >"$new/pg_hba.conf" <<END_RULES
local all kelvane_admin peer map=kelvane
local all all scram-sha-256
END_RULES
    mv -T -- "$new" "$folder/data"
}

# The socket's name has room for 107 bytes, and clients take some characters for a list or for the end of a value.
choose_socket() {
    run=$folder/run
    mkdir -p -m 700 -- "$run"
    chown "$account" -- "$run"
    plain=yes
    case $run in *[!A-Za-z0-9/._-]*) plain= ;; esac
    if [ -z "$plain" ] || [ ${#run} -gt 93 ] || ! (cd / && as_server test -w "$run"); then
        rmdir -- "$run"
        # The same one as before where nobody else has it now: data sources name it.
        run=$(cat -- "$folder/socket.before" 2>/dev/null || true)
        [ -n "$run" ] && mkdir -m 700 -- "$run" 2>/dev/null || run=$(mktemp -d /tmp/kelvane-socket.XXXXXX)
        chown "$account" -- "$run"
        printf '%s\n' "$run" >"$folder/socket.before"
    fi
    printf '%s\n' "$run" >"$folder/socket"
}

# A statement that fails stands in no log: it may hold a password.
configure() {
    {
        echo "listen_addresses = ''"
        echo 'port = 5432'
        echo "unix_socket_directories = '$run'"
        echo "log_min_error_statement = panic"
        echo "log_statement = none"
        echo "password_encryption = scram-sha-256"
        [ -z "$option" ] || printf '%s = off\n' fsync synchronous_commit full_page_writes
    } >"$folder/data/kelvane.conf"
    {
        echo "kelvane \"$(id -un)\" kelvane_admin"
        [ "$(id -un)" = "$account" ] || echo "kelvane \"$account\" kelvane_admin"
    } >"$folder/data/pg_ident.conf"
    chown "$account" -- "$folder"/data/kelvane.conf "$folder"/data/pg_*.conf
}

start() {
    mkdir -p -- "$folder"
    exec 8>"$folder/lock"
    flock -w 120 8 || fail "$folder is being started or stopped by another process"
    if ! running; then
        remove_socket
        [ -d "$folder/data" ] || initialise
        choose_socket
        configure
        (cd / && as_server "$programs/pg_ctl" start --pgdata=/proc/self/fd/9 --wait --timeout=120 --silent) \
            9<"$folder/data" </dev/null >>"$folder/log" 2>&1 || fail "the server doesn't start; $folder/log says why"
    fi
    socket
}

remove_socket() {
    [ -f "$folder/socket" ] || return 0
    left=$(socket)
    rm -f -- "$left/.s.PGSQL.5432" "$left/.s.PGSQL.5432.lock"
    rmdir -- "$left" 2>/dev/null || true
    rm -- "$folder/socket"
}

stop() {
    [ -d "$folder/data" ] || return 0
    exec 8>"$folder/lock"
    flock -w 120 8 || fail "$folder is being started or stopped by another process"
    mode=fast
    [ -z "$option" ] || mode=immediate
    if running; then
        (cd / && as_server "$programs/pg_ctl" stop --pgdata=/proc/self/fd/9 --wait --timeout=120 --silent --mode=$mode) \
            9<"$folder/data" </dev/null >>"$folder/log" 2>&1 || fail "the server doesn't stop; $folder/log says why"
    fi
    remove_socket
}

$command
