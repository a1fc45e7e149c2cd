#!/bin/sh
# Makes the database of the embedded engine: one SQLite file for each owner, in a folder of its own.
#
#   make.sh <folder> [--demo] [--day=YYYY-MM-DD]
#
# A new folder is built beside its place and moved there when it is whole; with --demo it holds the demonstration
# data, as made today or on the given day. A folder that has a database already keeps its data: it only gets the
# tables that it lacks, and its asset numbers compare without case from then on.
set -eu

files='kelvane mt std abc sys'

fail() {
    echo "make.sh: $*" >&2
    exit 1
}

folder= demo= day=
for argument; do
    case $argument in
    --demo) demo=yes ;;
    --day=[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]) day=${argument#--day=} ;;
    -*) fail "unknown option $argument" ;;
    *) [ -z "$folder" ] || fail 'one folder only'
       folder=$argument ;;
    esac
done
[ -n "$folder" ] || fail 'usage: make.sh <folder> [--demo] [--day=YYYY-MM-DD]'
command -v sqlite3 >/dev/null || fail 'the program sqlite3 is missing (Debian package "sqlite3")'

here=$(CDPATH= cd -- "$(dirname -- "$0")" && pwd)
case $folder in /*) ;; *) folder=$PWD/$folder ;; esac
folder=${folder%/}
umask 077

# query <file> <text>: the rows of one query.
query() {
    sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$1" "$2" || fail "$1 can't be read"
}

# script <file> <script> [sqlite3 options]: one script as one transaction; it is carried out whole or not at all.
script() {
    file=$1 text=$2
    shift 2
    { cat "$here/$text" && printf '\ncommit;\n'; } |
        sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$@" -cmd 'begin immediate;' "$file" ||
        fail "$text failed on $file"
}

# without_case <file>: asset numbers of an older database compare without case from now on. The inventory is built
# anew with all that hangs on it, in one transaction.
without_case() {
    with='i4201 text not null unique,' without='i4201 text not null unique collate nocase,'
    inventory="from sqlite_master where type = 'table' and name = 'inventory' and instr(sql"
    [ "$(query "$1" "select count(*) $inventory, '$without') > 0")" = 0 ] || return 0
    if [ "$(query "$1" "select count(*) $inventory, '$with') > 0")" = 0 ]; then
        echo "make.sh: the inventory of $1 is not the one of these scripts; its asset numbers compare as before" >&2
        return 0
    fi
    twins=$(query "$1" "select group_concat(i4201, ' ') from inventory group by lower(i4201) having count(*) > 1")
    [ -z "$twins" ] || fail "$1 holds asset numbers that differ in case only; rename all but one of each line:
$twins"
    table=$(query "$1" "select 'create table inventory_new ' ||
        replace(substr(sql, instr(sql, '(')), '$with', '$without') $inventory, '$with') > 0")
    kept=$(query "$1" "select sql || ';' from sqlite_master
        where tbl_name = 'inventory' and type in ('index', 'trigger') and sql is not null")
    printf '%s;\n' "$table" 'insert into inventory_new select * from inventory' 'drop table inventory' \
        'alter table inventory_new rename to inventory' "$kept" 'commit' |
        sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' -cmd 'pragma legacy_alter_table = on;' \
            -cmd 'begin immediate;' "$1" || fail "the inventory of $1 could not be rebuilt; it is as it was"
}

# The tables of every file, in the current folder.
tables() {
    for name in $files; do
        sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$name.db" 'pragma journal_mode = wal;' \
            >/dev/null ||
            fail "$name.db can't be opened"
    done
    script kelvane.db embedded/10_accounts.sql
    first=1000001
    for owner in mt std abc; do
        script $owner.db embedded/20_owner.sql -cmd ".parameter set :first_ctag $first"
        without_case $owner.db
        first=$((first + 1000000))
    done
    script mt.db embedded/30_mettrack.sql
    script mt.db embedded/40_kelvane.sql
    script mt.db embedded/50_settings.sql
    script sys.db embedded/60_catalogue.sql
}

# Its days are counted from one moment, `:now`, the local time of the given day.
demonstration() {
    now="${day:-$(date +%Y-%m-%d)} $(date +%H:%M:%S)"
    [ "$(sqlite3 -batch -init /dev/null :memory: "select datetime('$now', '+0 days')")" = "$now" ] || fail "no such day: $day"
    for path in "$here"/demo/*.sql; do
        script kelvane.db "demo/${path##*/}" \
            -cmd "attach 'mt.db' as mt; attach 'std.db' as std; attach 'abc.db' as abc;" \
            -cmd ".parameter set :now \"'$now'\""
    done
}

present=0
for name in $files; do
    [ ! -e "$folder/$name.db" ] || present=$((present + 1))
done
case $present in
5)
    cd -- "$folder"
    tables
    [ -z "$demo" ] || echo "make.sh: $folder holds a database already; its data is left as it is"
    exit
    ;;
0) ;;
*) fail "$folder holds only some of the files $files (.db); nothing was changed" ;;
esac

mkdir -p -- "$(dirname -- "$folder")"
new=$(mktemp -d -- "$folder.making.XXXXXX")
trap 'rm -rf -- "$new"' EXIT
trap 'exit 1' HUP INT TERM
cd -- "$new"
tables
[ -z "$demo" ] || demonstration
cd / # the folder may move now

if [ -d "$folder" ]; then
    chmod 700 -- "$folder"
    for name in sys abc std mt kelvane; do # the one that is opened comes last
        mv -- "$new/$name.db" "$folder/"
    done
else
    mv -T -- "$new" "$folder"
fi
