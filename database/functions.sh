# Sourced by upgrade.sh and check.sh: what both read of a database of the embedded engine. The current folder is the
# database's, $here the scripts'; `fail` is the script's own.

engine() {
    sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$@"
}

# query <file> <text>: the rows of one query.
query() {
    engine "$1" "$2" || fail "$1 can't be read"
}

# The names of the owners. A file that a site has added counts when its inventory is one of these scripts.
owners() {
    echo mt std abc
    for file in *.db; do
        case ${file%.db} in
        mt | std | abc | kelvane | sys | *[!A-Za-z0-9_]*) ;;
        *) query "$file" "select '${file%.db}' from sqlite_schema
               where name = 'inventory' and instr(sql, 'i4201 text not null unique')" ;;
        esac
    done
}

version() {
    entered=0
    [ ! -f kelvane.db ] ||
        entered=$(query kelvane.db "select count(*) from sqlite_schema where name = 'kelvane_upgrades'")
    [ "$entered" = 0 ] || entered=$(query kelvane.db 'select coalesce(max(number), 0) from kelvane_upgrades')
    echo "$entered"
}

# The names of the steps above a version.
steps_above() {
    for path in "$here"/embedded/[0-9][0-9][0-9][0-9]-*.sql; do
        name=${path##*/}
        [ "${name%%-*}" -le "$1" ] || echo "$name"
    done
}

# The number of the last step.
newest_version() {
    newest=$(steps_above 0 | tail -n 1)
    expr "${newest%%-*}" + 0
}

# Makes a new database to compare with, in the folder $reference; it goes with the script.
make_reference() {
    reference=$(mktemp -d)
    trap 'rm -rf -- "$reference"' EXIT
    trap 'exit 1' HUP INT TERM
    "$here/upgrade.sh" --new "$reference"
}

# reference_of <name>: the file of the new database that a file is like. A site's own owners are like abc.
reference_of() {
    if [ -f "$reference/$1.db" ]; then echo "$reference/$1.db"; else echo "$reference/abc.db"; fi
}

# removed <name> <expression>: the expression for each table, index and trigger that a file lacks.
removed() {
    query "$(reference_of "$1")" "attach '$1.db' as present;
        select $2 from main.sqlite_schema
        where sql is not null and name not like 'sqlite!_%' escape '!'
            and name not in (select name from present.sqlite_schema)
        order by rowid"
}

# unlike <name>: a line for each column of a file that is missing or of another kind.
unlike() {
    query "$(reference_of "$1")" "attach '$1.db' as present;
        select '$1.db: not as in a new database: ' || t.name || '.' || c.name
        from main.sqlite_schema as t, pragma_table_info(t.name, 'main') as c
        where t.type = 'table' and not exists (
            select 1 from pragma_table_info(t.name, 'present') as p
            where p.name = c.name collate nocase and p.type = c.type collate nocase and p.\"notnull\" = c.\"notnull\")"
}
