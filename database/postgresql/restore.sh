#!/bin/sh
# Puts a copy of a database back, which backup.sh has made.
#
#   restore.sh <file> <address>
#
# Refused while anybody uses the database. It is put back beside its place, brought to the newest version and moved there
# when it is whole; what stood there is kept on the server as <database>.before-<moment>. The file stays as it is.
#
# Logins belong to the server. Those of the users in the copy are made where they are missing, and get the rights of their
# level; a new one is named and has no password yet. A login that is there gets the rights of the copy when this takes the
# place of a database, and keeps its own otherwise: it serves the server's other databases. The owner account "MT" has no
# row among the users: on another server it is made anew (select kelvane.set_account('MT', 'MT', 6)).
set -eu

[ $# = 2 ] || { echo 'restore.sh: usage: restore.sh <file> <address>' >&2 && exit 1; }
file=$1 address=$2
. "$(dirname -- "$0")/common.sh"

pg_restore --list "$file" 2>/dev/null | grep -q ' TABLE kelvane upgrades ' || fail "$file is no copy of a database of Kelvane"
new=restoring_$$_$(date +%s)
before=$(printf '%s' "$database" | cut -c1-40).before-$(date +%Y%m%d-%H%M%S)
place=postgresql://$server/$new$parameters

# Nothing is begun while somebody is there.
present=
if exists; then
    present=yes
    # A session that has just ended may still be leaving. Everybody can see whose a session is, and nothing else of it.
    for attempt in 1 2 3; do
        users=$(echo "select count(*) from pg_stat_activity where datname = :'name' and usesysid is not null;" |
            engine_of postgres -At -v name="$database") || fail "the server of $address can't be reached"
        [ "$users" != 0 ] || break
        [ $attempt = 3 ] || sleep 1
    done
    [ "$users" = 0 ] || fail "$address is in use; log out everywhere and try again"
fi

made=
clean() {
    [ -z "$made" ] || echo 'drop database if exists :"name" with (force);' | engine_of postgres -v name="$new" ||
        echo "restore.sh: the database $new is left behind" >&2
}
trap clean EXIT
trap 'exit 1' HUP INT TERM
echo "create database :\"name\" template template0 encoding 'UTF8' lc_collate 'C' lc_ctype 'C.UTF-8';" |
    engine_of postgres -v name="$new" || fail "$address can't be made; nothing was changed"
made=yes
# Rights name roles that this server may not have yet; they are granted anew.
pg_restore -w -d "$place" --no-owner --no-privileges --exit-on-error --single-transaction "$file" ||
    fail "$file could not be read; nothing was changed"
"$here/upgrade.sh" "$place" || fail "$file could not be brought to the newest version; nothing was changed"

# The server refuses to rename a database that somebody uses.
{
    echo 'begin;'
    [ -z "$present" ] || echo 'alter database :"name" rename to :"before";'
    echo 'alter database :"new" rename to :"name";'
    echo 'commit;'
} | engine_of postgres -v name="$database" -v before="$before" -v new="$new" || {
    fail "$address is in use; log out everywhere and try again; nothing was changed"
}
made=
[ -z "$present" ] || echo "What stood in $address before is in the database \"$before\" of the same server."

# tell <heading> <names>
tell() {
    [ -z "$2" ] || printf '%s:\n%s\n' "$1" "$2"
}
in_place=false
[ -z "$present" ] || in_place=true
logins=$(query "select kelvane.restore_accounts($in_place)") || fail "the logins could not be made; see upgrade.sh and check.sh"
tell 'These logins are new on the server and have no password yet' "$logins"
logins=$(query 'select name from kelvane.logins where present <> expected order by name') ||
    fail "the logins can't be looked at; see check.sh"
tell 'These logins keep the rights that they have on the server; the copy says otherwise' "$logins"
[ -n "$present" ] || exit 0
elsewhere=$(users_elsewhere)
logins=$(query "select login_name from kelvane.logins_of_nobody(:'elsewhere')" -v elsewhere="$elsewhere") ||
    fail "the logins can't be looked at; see check.sh"
tell 'These logins have rights and are no users of the copy; kelvane-admin remove takes them away' "$logins"
