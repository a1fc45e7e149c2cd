#!/bin/sh
# Makes the database on a PostgreSQL server: a schema for each owner, roles and rights.
#
#   make.sh <address> [--demo] [--day=YYYY-MM-DD] [--past=<kelvane-admin>] [--owner=<name>]...
#
# The database is made when the server has none of this name; one that is there has to be empty. With --demo it holds the
# demonstration data, as made today or on the given day, with the past that the program of --past makes, and its logins; it
# is refused beside a database of Kelvane that lacks the demonstration's users, and where a role that Kelvane has not made
# has the name of one of them. It is made whole or not at all. A database of Kelvane keeps its data: it is only brought to
# the newest version (upgrade.sh).
set -eu

address= demo= day= past= owners=
for argument; do
    case $argument in
    --demo) demo=yes ;;
    --day=[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]) day=$argument ;;
    --past=?*) past=$argument ;;
    --owner=*[!a-z0-9_]* | --owner=[0-9]* | --owner=)
        echo 'make.sh: an owner has a name of small letters, digits and "_"' >&2 && exit 1 ;;
    --owner=*) owners="$owners $argument" ;;
    -*) echo "make.sh: unknown option $argument" >&2 && exit 1 ;;
    *) [ -z "$address" ] || { echo 'make.sh: one database only' >&2 && exit 1; }
       address=$argument ;;
    esac
done
[ -n "$address" ] ||
    { echo 'make.sh: usage: make.sh <address> [--demo] [--day=YYYY-MM-DD] [--past=<kelvane-admin>] [--owner=<name>]...' >&2
      exit 1; }
. "$(dirname -- "$0")/common.sh"

made= rows=
clean() {
    [ -z "$rows" ] || rm -rf -- "$rows"
    [ -n "$made" ] || return 0
    # Another run may have filled it in the meantime, or be at it: then it can't be dropped.
    filled=$(query "select to_regclass('kelvane.upgrades') is not null" 2>/dev/null) || true
    [ "$filled" != t ] || return 0
    { [ -n "$filled" ] && echo 'drop database if exists :"name";' | engine_of postgres -v name="$database" 2>/dev/null; } ||
        echo "make.sh: an empty database is left behind at $address" >&2
}

# refuse_beside_others <folder with the demonstration's rows>: logins and their groups are the server's, so that those of
# the demonstration, whose password everybody knows, may open each of its databases.
refuse_beside_others() {
    users=$(sqlite3 -batch -init /dev/null "$1/embedded/mt.db" 'select mtuser from userlist')
    neighbours >"$1/neighbours"
    while read -r place beside; do
        lacking=$(echo "select count(*) from string_to_array(:'users', chr(10)) as users, unnest(users) as name
            where name not in (select mtuser::text from mt.userlist);" |
            engine_of "$place" -At -v users="$users" 2>/dev/null) || lacking=all
        [ "$lacking" = 0 ] || fail "the server has the database \"$beside\", which lacks the demonstration's users, or is" \
            "none of yours: everybody who knows their password could open it; nothing was changed"
    done <"$1/neighbours"
    foreign=$(query "select string_agg(rolname, ', ' order by rolname) from pg_roles
        where rolname = any (string_to_array(:'logins', chr(10)))
            and shobj_description(oid, 'pg_authid') is distinct from 'Kelvane';" -v logins="$(cat -- "$1/logins")")
    [ -z "$foreign" ] || fail "the server has roles with names of the demonstration's logins: $foreign; nothing was changed"
}
trap clean EXIT
trap 'exit 1' HUP INT TERM

if ! exists; then
    if words=$(echo "create database :\"name\" template template0 encoding 'UTF8' lc_collate 'C' lc_ctype 'C.UTF-8';" |
        engine_of postgres -v name="$database" -v VERBOSITY=terse 2>&1); then
        made=yes
    else # by another run in between
        exists || fail "$address can't be made: $words"
    fi
fi
present=$(version)
if [ "$present" != 0 ]; then
    made=
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
    "$here/../make.sh" "$rows/embedded" --demo $day ${past:+"$past"}
    "$here/demonstration.sh" "$rows/embedded" "$rows"
    refuse_beside_others "$rows"
    "$here/upgrade.sh" --new --demonstration="$rows" "$address" $owners
else
    "$here/upgrade.sh" --new "$address" $owners
fi
made=
