#!/bin/sh
# Looks whether a database on a PostgreSQL server is whole.
#
#   check.sh <address>
#
# Names, one a line: tables, columns, indexes, functions, triggers and rights that are missing or not as in a new
# database; logins that are not in the groups of their users, or have rights and are no users in any database of the
# server; numbers of records that would come twice; assets with more than one current record; results, standards and
# members whose record or package is not there. Ends with 1 when there is any, and changes nothing.
set -eu

address=${1:-}
[ $# = 1 ] && [ -n "$address" ] || { echo 'check.sh: usage: check.sh <address>' >&2 && exit 1; }
. "$(dirname -- "$0")/common.sh"

present=$(version)
[ "$present" != 0 ] || fail "$address holds no database of Kelvane"
[ "$present" = "$newest" ] || fail "$address is of version $present, these scripts of version $newest; upgrade.sh brings it there"
elsewhere=$(users_elsewhere)
findings=$(engine -v parts="$here/parts.sql" -v elsewhere="$elsewhere" -f "$here/check.sql") || fail "$address can't be checked"
[ -z "$findings" ] || { printf '%s\n' "$findings" && exit 1; }
echo "$address is of version $present, and whole."
