# What the scripts of this folder share; `address` is set before. Read by them, not run.
#
# An address is a URI of PostgreSQL's: postgresql://[user@][host][:port]/database[?host=...]. A password is no part of it:
# PostgreSQL's programs take it from the file ~/.pgpass.

script=${0##*/}

fail() {
    echo "$script: $*" >&2
    exit 1
}

here=$(CDPATH= cd -- "$(dirname -- "$0")" && pwd)
for program in psql pg_dump pg_restore; do
    command -v $program >/dev/null || fail "the program $program is missing (Debian package \"postgresql-client\")"
done
umask 077
PGOPTIONS="${PGOPTIONS:-} -c client_min_messages=warning"
PGCLIENTENCODING=UTF8
PGAPPNAME="kelvane $script"
export PGOPTIONS PGCLIENTENCODING PGAPPNAME

case $address in
postgresql://* | postgres://*) ;;
*) fail "$address is no address of a database (postgresql://[user@][host]/database)" ;;
esac
server=${address#*://} parameters=
case $server in
*\?*) parameters="?${server#*\?}" server=${server%%\?*} ;;
esac
case $server in
*:*@* | *:*/*@*) fail 'an address holds no password; put it into the file ~/.pgpass' ;;
esac
case $parameters in
*[?\&]password=*) fail 'an address holds no password; put it into the file ~/.pgpass' ;;
*[?\&]dbname=*) fail 'the database stands behind the host: postgresql://[user@][host]/database' ;;
esac
case $server in
*/?*) ;;
*) fail "$address names no database (postgresql://[user@][host]/database)" ;;
esac
# The name of the database, without the URI's %20 and the like.
database=$(printf '%s' "${server#*/}" | LC_ALL=C awk '{
    while (match($0, /%[0-9A-Fa-f][0-9A-Fa-f]/)) {
        high = index("0123456789abcdef", tolower(substr($0, RSTART + 1, 1))) - 1
        low = index("0123456789abcdef", tolower(substr($0, RSTART + 2, 1))) - 1
        printf "%s%c", substr($0, 1, RSTART - 1), high * 16 + low
        $0 = substr($0, RSTART + 3)
    }
    printf "%s", $0
}')
server=${server%%/*}

# engine <database of the address> [psql options]: one session; `plain` names, as the scripts use for their own.
engine_of() {
    name=$1
    shift
    psql -X -q -w -v ON_ERROR_STOP=1 -d "postgresql://$server/$name$parameters" "$@"
}

# engine [psql options]: a session with the database itself; reads statements.
engine() {
    psql -X -q -w -v ON_ERROR_STOP=1 -d "$address" "$@"
}

# query <text> [psql options]: the rows of one query.
query() {
    text=$1
    shift
    printf '%s\n' "$text" | engine -At "$@"
}

# Is there such a database on the server?
exists() {
    found=$(echo "select count(*) from pg_database where datname = :'name';" |
        engine_of postgres -At -v name="$database") || fail "the server of $address can't be reached"
    [ "$found" = 1 ]
}

# The other databases on the server that logins of Kelvane may open, one a line: as it stands in a URI, and its name.
neighbours() {
    query "select regexp_replace(encode(convert_to(datname, 'UTF8'), 'hex'), '(..)', '%\\1', 'g') || ' ' || datname
        from pg_database
        where datname <> current_database() and datallowconn and exists (
            select from aclexplode(datacl) where pg_get_userbyid(grantee) = 'kelvane_login')
        order by datname" || fail "the databases beside $address can't be listed"
}

# The users of these, as JSON: an array a line. What restore.sh has kept is not in use, and one that belongs to somebody
# else can't be read.
users_elsewhere() {
    found=$(neighbours)
    printf '%s\n' "$found" | grep -v '\.before-[0-9]\{8\}-[0-9]\{6\}$' | while read -r place beside; do
        [ -z "$place" ] || echo "select coalesce(jsonb_agg(mtuser::text), '[]') from mt.userlist;" |
            engine_of "$place" -At 2>/dev/null || continue
    done
}

# A text as psql takes it behind its commands.
quoted() {
    printf "'%s'" "$(printf '%s' "$1" | sed "s/[\\\\']/\\\\&/g")"
}

# The names of the steps above a version.
steps_above() {
    for path in "$here"/[0-9][0-9][0-9][0-9]-*.sql; do
        name=${path##*/}
        [ "${name%%-*}" -le "$1" ] || echo "$name"
    done
}

newest=$(steps_above 0 | tail -n 1)
newest=$(expr "${newest%%-*}" + 0)

# The version of the database: the number of its last step, 0 when it is none of ours.
version() {
    known=$(query "select to_regclass('kelvane.upgrades') is not null") || fail "$address can't be reached"
    case $known in
    t) query 'select coalesce(max(number), 0) from kelvane.upgrades' || fail "$address can't be read" ;;
    *) echo 0 ;;
    esac
}
