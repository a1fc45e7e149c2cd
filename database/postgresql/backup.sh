#!/bin/sh
# Copies a database on a PostgreSQL server into a file, also while workstations use it.
#
#   backup.sh <address> <file>
#
# <file> must not exist yet; it is made whole or not at all, as of one moment, in PostgreSQL's custom format. Logins and
# passwords belong to the server and are not in it: restore.sh makes the logins of its users again, without passwords.
# "pg_dumpall --roles-only", by the server's administrator, copies the passwords too.
set -eu

[ $# = 2 ] || { echo 'backup.sh: usage: backup.sh <address> <file>' >&2 && exit 1; }
address=$1 file=$2
. "$(dirname -- "$0")/common.sh"

present=$(version)
[ "$present" != 0 ] || fail "$address holds no database of Kelvane"
case $file in /*) ;; *) file=$PWD/$file ;; esac
[ ! -e "$file" ] || fail "$file exists already"
mkdir -p -- "$(dirname -- "$file")"
new=$(mktemp -- "$file.making.XXXXXX")
trap 'rm -f -- "$new"' EXIT
trap 'exit 1' HUP INT TERM
pg_dump -w -d "$address" --format=custom --file="$new" || fail "$address could not be copied"
sync -- "$new"
ln -- "$new" "$file" 2>/dev/null || fail "$file can't be made"
