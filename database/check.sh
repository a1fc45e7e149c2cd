#!/bin/sh
# Looks for faults in a database, which may be in use, and changes nothing.
#
#   check.sh <folder>
#
# Each fault is a line. The exit status is 0 when there is none, and 1 otherwise.
set -eu

fail() {
    echo "check.sh: $*" >&2
    exit 1
}

[ $# = 1 ] && [ "${1#-}" = "$1" ] || fail 'usage: check.sh <folder>'
command -v sqlite3 >/dev/null || fail 'the program sqlite3 is missing (Debian package "sqlite3")'
here=$(CDPATH= cd -- "$(dirname -- "$0")" && pwd)
. "$here/functions.sh"
[ -d "$1" ] || fail "$1 holds no database"
CDPATH= cd -- "$1" >/dev/null
folder=$PWD

files() {
    for name in kelvane mt std abc sys; do
        [ -f "$name.db" ] || echo "$name.db is missing"
    done
}

damage() {
    for file in *.db; do
        [ -r "$file" ] || { echo "$file can't be read by you" && continue; }
        engine "$file" 'pragma quick_check;' 2>&1 | sed -n "/^ok\$/!s/^/$file: /p"
    done
}

# Without the steps that it lacks a database can't be compared with a new one.
structure() {
    present=$(version)
    newest=$(newest_version)
    if [ "$present" -lt "$newest" ]; then
        echo "$folder is of version $present; upgrade it to $newest"
    elif [ "$present" -gt "$newest" ]; then
        echo "$folder is of version $present, and these scripts end at $newest; update the program"
    else
        make_reference
        for name in kelvane $owners sys; do
            removed "$name" "'$name.db: missing: ' || type || ' ' || name"
            unlike "$name"
        done
    fi
}

# keys <column> <table>: a query of that column in the tables of all owners.
keys() {
    separator=
    for owner in $owners; do
        echo "${separator}select $1 from $owner.$2"
        separator='union all '
    done
}

# Rows that belong to nothing, and marks that contradict each other. What the program itself may leave when it is
# interrupted, and sweeps away at a login, is none of them; nor is a strategy that is gone.
rows() {
    for owner in $owners sys; do
        echo "attach '$owner.db' as $owner;"
    done
    for owner in $owners; do
        echo "select '$owner.calibration: record ' || ctag || ' is of no instrument: ' || mtag
            from $owner.calibration where mtag not in (select mtag from $owner.inventory);
            select '$owner.calibration: instrument ' || mtag || ' has ' || count(*) || ' current records'
            from $owner.calibration where c2339 = '1' group by mtag having count(*) > 1;"
    done
    calibrations=$(keys ctag calibration)
    instruments=$(keys mtag inventory)
    for table in standards calresults; do
        echo "select 'mt.$table: ' || count(*) || ' rows of no record: ' || coalesce(ctag, 'null')
            from mt.$table where coalesce(ctag, -1) not in ($calibrations) group by ctag;"
    done
    for table in hvm_kv_tag_config hvm_kv_proc_prompts; do
        echo "select 'mt.$table: of no instrument: ' || coalesce(mtag, 'null')
            from mt.$table where coalesce(mtag, '') not in ($instruments) group by mtag;"
    done
    echo "select 'mt.hvm_kv_proc_prompts: no such message: ' || coalesce(pname, 'null')
        from mt.hvm_kv_proc_prompts where coalesce(pname, '') not in (select pname from mt.hvm_kv_prompts) group by pname;
        select 'mt.userlist: ' || mtuser || ' has an owner that does not exist: ' || coalesce(i4240, 'null')
        from mt.userlist where lower(coalesce(i4240, '')) not in (select name from pragma_database_list);
        select 'sys.syscolumn: ' || column_name || ' is of no kind'
        from sys.syscolumn where domain_id not in (select domain_id from sys.sysdomain);"
}

# report <faults>: writes them, and keeps that there were any.
found=
report() {
    [ -n "$1" ] || return 0
    printf '%s\n' "$1"
    found=yes
}

# Files that are missing or damaged can't be looked into.
for look in files damage; do
    faults=$($look)
    report "$faults"
    [ -z "$found" ] || exit 1
done
owners=$(owners)
faults=$(structure)
report "$faults"
if [ -z "$found" ]; then
    faults=$(rows | engine kelvane.db 2>&1) || faults=${faults:-the rows can\'t be read}
else
    faults=$(rows | engine kelvane.db 2>/dev/null) || true # up to the query that needs what is missing
fi
report "$faults"
[ -z "$found" ] || exit 1
echo "$folder is of version $(version), and whole."
