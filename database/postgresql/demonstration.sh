#!/bin/sh
# Writes the rows of an embedded database as files from which psql copies them into a new one on a server.
#
#   demonstration.sh <embedded database> <folder>
#
# In the folder, copy.sql is what psql has to carry out there. It makes the logins too; those that are new get the
# password "kelvane".
set -eu

database=${1%/} folder=${2%/}
case $database in /*) ;; *) database=$PWD/$database ;; esac
case $folder in /*) ;; *) folder=$PWD/$folder ;; esac

engine() {
    sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$@"
}

# for_tables <file> <text>: the text for each table of a file; COLUMNS are its columns, VALUES theirs as COPY reads them. A
# number is written in full, so that the same one comes out.
for_tables() {
    engine "$1" <<END
with named as (
    select t.rowid as number, t.name, c.name as column_name
    from sqlite_schema as t, pragma_table_info(t.name) as c
    where t.type = 'table' and t.name not like 'sqlite!_%' escape '!'
    order by t.rowid, c.cid
), written as (
    select number, name, group_concat(column_name, ', ') as columns,
        group_concat(replace('case typeof(COLUMN) when ''null'' then ''\N'' when ''real'' then printf(''%!.17g'', COLUMN) else
            replace(replace(replace(replace(COLUMN, ''\'', ''\\\\''), char(9), ''\t''), char(10), ''\n''), char(13), ''\r'') end',
            'COLUMN', '"' || column_name || '"'), ' || char(9) || ') as fields
    from named
    group by number
)
select replace(replace(replace('$(printf '%s' "$2" | sed "s/'/''/g")', 'TABLE', name), 'COLUMNS', columns), 'VALUES', fields)
from written
order by number;
END
}

cd -- "$folder"
exec >copy.sql
for owner in mt std abc; do
    file=$database/$owner.db
    for_tables "$file" ".once $owner.TABLE
select VALUES from TABLE order by rowid;" >queries
    engine "$file" <queries
    echo "alter table $owner.calibration disable trigger user;"
    for_tables "$file" "delete from $owner.TABLE;
\\copy $owner.TABLE (COLUMNS) from $owner.TABLE"
    echo "alter table $owner.calibration enable trigger user;"
    echo "select setval(pg_get_serial_sequence('$owner.calibration', 'ctag'), $(
        engine "$file" "select seq from sqlite_sequence where name = 'calibration'"));"
done

engine "$database/kelvane.db" 'select name from accounts order by name' >logins
cat <<STATEMENTS
create temp table logins (name text);
\\copy logins from logins
select kelvane.set_password(name, 'kelvane')
from (
    select name, kelvane.set_account(name, i4240, mtlevel) as is_new
    from logins
    left join mt.userlist on mtuser::text = name
    order by name
    offset 0
) as accounts
where is_new;
drop table logins;
STATEMENTS
