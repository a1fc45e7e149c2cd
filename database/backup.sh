#!/bin/sh
# Copies a database, also while workstations use it.
#
#   backup.sh <folder> <copy>
#
# <copy> must not exist yet; it is made whole or not at all. All files are copied as of one moment: meanwhile the
# write lock of every file is held, so that workstations can read, and wait to write.
set -eu

fail() {
    echo "backup.sh: $*" >&2
    exit 1
}

[ $# = 2 ] || fail 'usage: backup.sh <folder> <copy>'
folder=${1%/} copy=${2%/}
command -v sqlite3 >/dev/null || fail 'the program sqlite3 is missing (Debian package "sqlite3")'
[ -f "$folder/kelvane.db" ] || fail "$folder holds no database"
[ ! -e "$copy" ] || fail "$copy exists already"
case $folder in /*) ;; *) folder=$PWD/$folder ;; esac
case $copy in /*) ;; *) copy=$PWD/$copy ;; esac
umask 077

mkdir -p -- "$(dirname -- "$copy")"
new=$(mktemp -d -- "$copy.making.XXXXXX")
trap 'rm -rf -- "$new"' EXIT
trap 'exit 1' HUP INT TERM

# Runs in the new folder while the locks are held; other connections may read then. The copies are left without a
# write-ahead log, so that they can also be read where nothing can be written.
cat >"$new/copy" <<'END'
set -eu
for file in "$folder"/*.db; do
    name=${file##*/}
    to=$(printf %s "$name" | sed 's/[\\"]/\\&/g')
    sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$file" ".backup \"$to\""
    [ "$(sqlite3 -batch -bail -init /dev/null "./$name" 'pragma journal_mode = delete; pragma quick_check;')" = 'delete
ok' ]
done
touch whole
END
export folder

{
    number=0
    for file in "$folder"/*.db; do
        [ "${file##*/}" != kelvane.db ] || continue
        number=$((number + 1))
        echo "attach '$(printf %s "$file" | sed "s/'/''/g")' as owner$number;"
    done
    echo 'begin immediate;'
    echo '.shell sh copy'
    echo 'rollback;'
} | (cd -- "$new" && sqlite3 -batch -bail -init /dev/null -cmd '.timeout 60000' "$folder/kelvane.db" >/dev/null) ||
    fail "$folder can't be locked; nothing was copied"
[ -e "$new/whole" ] || fail "$folder could not be copied"
rm -- "$new/whole" "$new/copy"
sync -- "$new"/*.db "$new"
[ ! -e "$copy" ] || fail "$copy exists already"
mv -T -- "$new" "$copy"
