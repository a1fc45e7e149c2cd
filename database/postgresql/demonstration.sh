#!/bin/sh
# Writes the rows of an embedded database as files from which psql copies them into a new one on a server.
#
#   demonstration.sh <embedded database> <folder>
#
# In the folder, copy.sql is what psql has to carry out. It makes the logins too; those that are new get the password
# "kelvane".
set -eu

database=${1%/} folder=${2%/}

engine() {
    sqlite3 -batch -bail -init /dev/null "$@"
}

quoted() {
    printf "'%s'" "$(printf '%s' "$1" | sed "s/[\\\\']/\\\\&/g")"
}

# A value as COPY reads it. A number in full, so that the same one comes out.
value="case typeof(COLUMN) when 'null' then '\\N' when 'real' then printf('%!.17g', COLUMN) else
    replace(replace(replace(replace(COLUMN, '\\', '\\\\'), char(9), '\\t'), char(10), '\\n'), char(13), '\\r') end"

exec >"$folder/copy.sql"
for owner in mt std abc; do
    file=$database/$owner.db
    echo "alter table $owner.calibration disable trigger user;"
    for table in $(engine "$file" "select name from sqlite_schema where type = 'table' and name not like 'sqlite!_%' escape '!'"); do
        columns=$(engine "$file" "select name from pragma_table_info('$table')")
        values=
        for column in $columns; do
            values="$values${values:+ || char(9) || }$(printf '%s' "$value" | sed "s/COLUMN/\"$column\"/g")"
        done
        engine "$file" "select $values from $table order by rowid" >"$folder/$owner.$table"
        echo "delete from $owner.$table;"
        printf '%s\n' "\\copy $owner.$table ($(echo $columns | sed 's/ /, /g')) from $(quoted "$folder/$owner.$table")"
    done
    echo "alter table $owner.calibration enable trigger user;"
    echo "select setval(pg_get_serial_sequence('$owner.calibration', 'ctag'), $(
        engine "$file" "select seq from sqlite_sequence where name = 'calibration'"));"
done

engine "$database/kelvane.db" 'select name from accounts order by name' >"$folder/logins"
cat <<STATEMENTS
create temp table logins (name text);
\\copy logins from $(quoted "$folder/logins")
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
