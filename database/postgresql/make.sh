#!/bin/sh
# Makes the database on a PostgreSQL server: a schema for each owner, roles and rights.
#
#   make.sh <address> [--demo] [--day=YYYY-MM-DD] [--owner=<name>]...
#
# The database is made when the server has none of this name; one that is there has to be empty. With --demo it holds the
# demonstration data, as made today or on the given day, and its logins. It is made whole or not at all. A database of
# Kelvane keeps its data: it is only brought to the newest version (upgrade.sh).
set -eu

address= demo= day= owners=
for argument; do
    case $argument in
    --demo) demo=yes ;;
    --day=[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]) day=$argument ;;
    --owner=*[!a-z0-9_]* | --owner=[0-9]* | --owner=)
        echo 'make.sh: an owner has a name of small letters, digits and "_"' >&2 && exit 1 ;;
    --owner=*) owners="$owners $argument" ;;
    -*) echo "make.sh: unknown option $argument" >&2 && exit 1 ;;
    *) [ -z "$address" ] || { echo 'make.sh: one database only' >&2 && exit 1; }
       address=$argument ;;
    esac
done
[ -n "$address" ] ||
    { echo 'make.sh: usage: make.sh <address> [--demo] [--day=YYYY-MM-DD] [--owner=<name>]...' >&2 && exit 1; }
. "$(dirname -- "$0")/common.sh"

made= rows=
clean() {
    [ -z "$rows" ] || rm -rf -- "$rows"
    # One that somebody else is already using stays.
    [ -z "$made" ] || echo 'drop database if exists :"name";' | engine_of postgres -v name="$database" 2>/dev/null ||
        echo "make.sh: an empty database is left behind at $address" >&2
}
trap clean EXIT
trap 'exit 1' HUP INT TERM

if ! exists; then
    if echo "create database :\"name\" template template0 encoding 'UTF8' lc_collate 'C' lc_ctype 'C.UTF-8';" |
        engine_of postgres -v name="$database" -v VERBOSITY=terse; then
        made=yes
    else
        exists || fail "$address can't be made"
    fi
fi
if [ "$(version)" != 0 ]; then
    "$here/upgrade.sh" "$address" $owners
    [ -z "$demo" ] || echo "make.sh: $address holds a database already; its data is left as it is"
    exit
fi

# Texts sort by their characters' codes.
case $(query "select pg_encoding_to_char(encoding), datcollate, datctype from pg_database where datname = current_database()") in
'UTF8|C|C.UTF-8' | 'UTF8|C|C.utf8' | 'UTF8|C|C') ;;
*) fail "$address needs the encoding UTF8, LC_COLLATE C and LC_CTYPE C.UTF-8; let this script make the database" ;;
esac
[ "$(query "select count(*) from pg_namespace where nspname in ('mt', 'std', 'abc', 'sys', 'dialect', 'kelvane')")" = 0 ] ||
    # Another one may have made it in the meantime.
    [ "$(version)" != 0 ] || fail "$address holds other schemas of these names; nothing was changed"

if [ -n "$demo" ]; then
    rows=$(mktemp -d)
    "$here/../make.sh" "$rows/embedded" --demo $day
    "$here/demonstration.sh" "$rows/embedded" "$rows"
    "$here/upgrade.sh" --new --demonstration="$rows" "$address" $owners
else
    "$here/upgrade.sh" --new "$address" $owners
fi
made=
