#!/bin/sh
# Brings a database on a PostgreSQL server to the newest version.
#
#   upgrade.sh <address> [--owner=<name>]...
#
# The version of a database is the number of the last step (0001-...sql) that it has had. The steps that it lacks are
# carried out in order, each as one transaction: whole, or not at all. Then functions, views, triggers and rights are made
# again (again/), and tables, keys and indexes that somebody has removed come back. A step that changes a table waits a
# minute for those who use it; a database that is up to date may be in use. Make a copy before (backup.sh).
#
# --owner adds an owner with an inventory and records of its own, beside mt, std and abc.
#
#   upgrade.sh --new [--demonstration=<folder>] <address>
#
# makes the tables of a new, empty database, in one transaction; the folder holds rows to copy in (make.sh).
set -eu

address= new= demonstration= added=
usage='upgrade.sh: usage: upgrade.sh <address> [--owner=<name>]...'
for argument; do
    case $argument in
    --new) new=yes ;;
    --demonstration=?*) demonstration=${argument#--demonstration=} ;;
    --owner=*[!a-z0-9_]* | --owner=[0-9]* | --owner=)
        echo 'upgrade.sh: an owner has a name of small letters, digits and "_"' >&2 && exit 1 ;;
    --owner=*) added="$added ${argument#--owner=}" ;;
    -*) echo "upgrade.sh: unknown option $argument" >&2 && exit 1 ;;
    *) [ -z "$address" ] || { echo "$usage" >&2 && exit 1; }
       address=$argument ;;
    esac
done
[ -n "$address" ] || { echo "$usage" >&2 && exit 1; }
. "$(dirname -- "$0")/common.sh"
. "$here/../program_version.sh"

# Statements name an owner's tables without quotation marks.
for owner in $added; do
    case $owner in
    pg_* | dialect | sys | kelvane | public | information_schema) fail "an owner has a name that nothing else has: $owner" ;;
    esac
    [ ${#owner} -le 40 ] && [ "$(query "select quote_ident(:'owner')" -v owner="$owner")" = "$owner" ] ||
        fail "an owner has a name of at most 40 characters that is no word of SQL: $owner"
done

# The parts of the database before a step, and what the step has made of them.
look_at_parts='truncate pg_temp.parts_before;
insert into pg_temp.parts_before select kind, relation, name, definition from kelvane.parts_present;'
note_parts='delete from kelvane.parts
where (kind, relation, name, definition) in (table pg_temp.parts_before except table kelvane.parts_present);
insert into kelvane.parts (kind, relation, name, definition)
select kind, relation, name, definition
from (
    select *, row_number() over () as number from kelvane.parts_present
) as present
where (kind, relation, name, definition) not in (table pg_temp.parts_before)
order by number
on conflict (kind, relation, name) do update set definition = excluded.definition;'
parts="\\i $(quoted "$here/parts.sql")"

# step <file> <owner>...: the statements of a step, for each of the owners when it is one for owners.
step() {
    file=$1
    shift
    case $file in
    *.owner.sql)
        for owner; do
            printf '%s\n' "\\set owner $owner"
            printf '%s\n' "\\i $(quoted "$here/$file")"
        done
        ;;
    *) printf '%s\n' "\\i $(quoted "$here/$file")" ;;
    esac
}

# Each step enters itself. Steps of a new database are one transaction with all that follows. The first ones make what
# `parts.sql` looks at.
steps() {
    for file in $(steps_above 0); do
        number=$(expr "${file%%-*}" + 0)
        name=${file#*-}
        echo "select not exists (select from kelvane.upgrades where number = $number) as lacking \\gset"
        printf '%s\n' '\if :lacking'
        printf '%s\n' '\if :new' '\else' 'begin;' "$look_at_parts" '\endif'
        step "$file" $owners
        echo "insert into kelvane.upgrades values ($number, '${name%%.*}', localtimestamp(0));"
        # The steps of this run; the history has that column since step 5.
        [ "$number" -lt 5 ] ||
            echo "update kelvane.upgrades set program = '$program' where number > $present and program is null;"
        printf '%s\n' '\if :new' '\else' "$parts" "$note_parts" 'commit;' '\endif' '\endif'
    done
}

# All steps for owners, for one more.
owner_steps() {
    for owner in $added; do
        echo "select not exists (select from kelvane.owners where name = '$owner') as lacking \\gset"
        printf '%s\n' '\if :lacking' '\if :new' '\else' 'begin;' '\endif' "$look_at_parts"
        for file in $(steps_above 0); do
            case $file in *.owner.sql) step "$file" "$owner" ;; esac
        done
        printf '%s\n' "$note_parts" '\if :new' '\else' 'commit;' '\endif' '\endif'
    done
}

# One session does all of it. Of two at once the second waits, and finds the work done.
session() {
    cat <<'STATEMENTS'
\o /dev/null
set lock_timeout = '600s';
select pg_advisory_lock(hashtextextended('kelvane upgrade', 0));
set lock_timeout = '60s';
select to_regclass('kelvane.upgrades') is null as new \gset
create temp table parts_before (kind text, relation text, name text, definition text);
\if :new
begin;
create schema kelvane;
create table kelvane.upgrades (
    number      integer primary key,
    name        text not null,
    carried_out timestamp(0) not null
);
\else
STATEMENTS
    echo "$parts"
    printf '%s\n' '\o' '\pset tuples_only on' '\pset format unaligned'
    printf '%s\n' 'select * from kelvane.put_back_parts();' '\o /dev/null' '\endif'
    steps
    printf '%s\n' '\if :new' "$parts" 'truncate pg_temp.parts_before;' "$note_parts" '\endif'
    owner_steps
    printf '%s\n' '\if :new' '\else' 'begin;' '\endif'
    for path in "$here"/again/*.sql; do
        printf '%s\n' "\\i $(quoted "$path")"
    done
    # What is made again is known anew each time.
    cat <<'STATEMENTS'
create temp table parts_again as
select * from kelvane.parts_present where kind in ('trigger', 'policy', 'view', 'function', 'operator');
delete from kelvane.parts
where kind in ('trigger', 'policy', 'view', 'function', 'operator')
    and (kind, relation, name, definition) not in (table pg_temp.parts_again);
insert into kelvane.parts (kind, relation, name, definition)
select * from pg_temp.parts_again
except
select kind, relation, name, definition from kelvane.parts;
STATEMENTS
    if [ -n "$demonstration" ]; then
        printf '%s\n' '\if :new' "\\cd $(quoted "$demonstration")" '\i copy.sql' '\endif'
    fi
    echo "select format('alter database %I set datestyle = ''ISO, YMD''', current_database()) \\gexec"
    echo 'commit;'
}

present=$(version)
program=$(program_version "$here/..")
[ -n "$new" ] || [ "$present" != 0 ] || fail "$address holds no database of Kelvane; make.sh makes one"
[ "$present" -le "$newest" ] ||
    fail "$address is of version $present, and these scripts end at $newest; update the program; nothing was changed"
owners='mt std abc'
[ "$present" = 0 ] || owners=$(query 'select name from kelvane.owners order by first_ctag')
session | engine && exit
reached=$(version)
missing=$(steps_above "$reached" | head -n 1)
[ "$reached" != 0 ] || fail "postgresql/ failed on $address; nothing was changed"
[ -z "$missing" ] || fail "postgresql/$missing failed; $address is of version $reached, as it was before that step"
fail "what is made again (postgresql/again) failed; $address is of version $reached"
