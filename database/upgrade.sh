#!/bin/sh
# Brings a database to the newest version.
#
#   upgrade.sh <folder>
#
# The version of a database is the number of the last step of embedded/ that it has had; a database of the time before
# there were versions has had none that counts. The steps that it lacks are carried out in order, each as one
# transaction over all files: whole, or not at all. A copy of the database is made before, in
# <folder>.version-<number>-<moment>. Everybody has to log out for it; a database that is up to date may be in use.
#
#   upgrade.sh --new <folder>
#
# makes a new, empty database in a folder that has none.
set -eu

fail() {
    echo "upgrade.sh: $*" >&2
    exit 1
}

new=
[ "${1:-}" != --new ] || { new=yes && shift; }
[ $# = 1 ] && [ "${1#-}" = "$1" ] || fail 'usage: upgrade.sh [--new] <folder>'
command -v sqlite3 >/dev/null || fail 'the program sqlite3 is missing (Debian package "sqlite3")'
here=$(CDPATH= cd -- "$(dirname -- "$0")" && pwd)
. "$here/functions.sh"
. "$here/program_version.sh"
CDPATH= cd -- "$1" >/dev/null
folder=$PWD
umask 077

# Of two at once the second waits, and finds the work done: each would keep the other from its locks.
if [ -z "$new" ]; then
    exec 9<.
    flock -w 600 9 || fail "another upgrade of $folder is running; nothing was changed"
fi

# What stands in kelvane.db is reached by no statement of the workstation.
history='create table if not exists kelvane_upgrades (
    number      integer primary key,
    name        text not null,
    carried_out text not null
) strict;'

# Every file, locked for this session alone, and with the journal under which a transaction over several files is one.
locked() {
    echo '.output /dev/null'
    echo 'pragma locking_mode = exclusive;'
    for name in $owners sys; do
        echo "attach '$name.db' as $name;"
    done
    for name in main $owners sys; do
        echo "pragma $name.journal_mode = delete;"
        [ -z "$new" ] || echo "pragma $name.synchronous = off;" # nobody has a new one before it is whole
    done
    echo 'begin exclusive; commit;'
    echo '.output stdout'
}

# One step. It enters itself first, so that it fails when another run has just carried it out. What can't be read ends
# the session before it is committed.
step() {
    name=${1#*-}
    echo "begin exclusive; $history"
    echo "insert into kelvane_upgrades (number, name, carried_out) values (${1%%-*}, '${name%%.*}', datetime('now', 'localtime'));"
    case $name in
    *.owner.sql)
        for owner in $owners; do
            sed "s/OWNER/$owner/g" "$here/embedded/$1" || exit 1
        done
        ;;
    *) cat "$here/embedded/$1" || exit 1 ;;
    esac
    # The steps of this run; the history has that column since step 9.
    [ "${1%%-*}" -lt 9 ] ||
        echo "update kelvane_upgrades set program = '$program' where number > $present and program is null;"
    printf '\n%s\n' 'commit;'
}

# Carries out the steps that the database lacks.
upgrade() {
    copy=
    if [ -z "$new" ]; then
        for name in kelvane $owners sys; do
            [ -w "$name.db" ] || fail "$folder/$name.db can't be written; nothing was changed"
        done
        locked | engine kelvane.db ||
            fail "$folder is in use, or can't be written; log out everywhere and try again; nothing was changed"
        copy=$folder.version-$present-$(date +%Y%m%d-%H%M%S)
        [ ! -e "$copy" ] || copy=$copy-$$
        "$here/backup.sh" "$folder" "$copy" || fail "without a copy nothing was changed"
    fi
    if {
        locked
        for name in $pending; do
            step "$name"
        done
    } | engine kelvane.db && [ "$(version)" = "$newest" ]; then
        [ -z "$copy" ] || echo "$folder is of version $newest now. As it was before, it is in $copy."
        return
    fi
    # An engine that was killed has left something to roll back.
    locked | engine kelvane.db || fail "$folder is not upgraded, and is in use or damaged now; as it was before, it is in $copy"
    reached=$(version)
    [ "$reached" != "$present" ] || [ -z "$copy" ] || rm -r -- "$copy"
    fail "embedded/$(steps_above "$reached" | head -n 1) failed; $folder is of version $reached, as it was before that step"
}

# Tables, indexes and triggers that somebody has removed come back; columns that are missing are named. What a site has
# added stays.
complete() {
    make_reference
    for name in kelvane $owners sys; do
        texts=$(removed "$name" "sql || ';'")
        [ -z "$texts" ] || printf 'begin immediate;\n%s\ncommit;\n' "$texts" | engine "$name.db" ||
            fail "what was removed from $name.db can't be put back"
        unlike "$name"
    done
}

for name in kelvane mt std abc sys; do
    [ -n "$new" ] || [ -f "$name.db" ] || fail "$folder holds no database: $name.db is missing"
    [ -z "$new" ] || [ ! -e "$name.db" ] || fail "$folder holds $name.db already"
done
owners=$(owners)
present=$(version)
newest=$(newest_version)
program=$(program_version "$here")
[ "$present" -le "$newest" ] ||
    fail "$folder is of version $present, and these scripts end at $newest; update the program; nothing was changed"
pending=$(steps_above "$present")
[ -z "$pending" ] || upgrade
[ -n "$new" ] || complete
for name in kelvane $owners sys; do
    engine "$name.db" 'pragma journal_mode = wal;' >/dev/null || fail "$name.db can't be opened"
done
