#!/bin/sh
# Puts a copy of a database back, which backup.sh has made.
#
#   restore.sh <copy> <folder>
#
# Refused while a workstation uses the database in <folder>. What stood there is kept beside it, in
# <folder>.before-<moment>; the copy stays as it is.
set -eu

fail() {
    echo "restore.sh: $*" >&2
    exit 1
}

[ $# = 2 ] || fail 'usage: restore.sh <copy> <folder>'
copy=${1%/} folder=${2%/}
command -v sqlite3 >/dev/null || fail 'the program sqlite3 is missing (Debian package "sqlite3")'
case $copy in /*) ;; *) copy=$PWD/$copy ;; esac
case $folder in /*) ;; *) folder=$PWD/$folder ;; esac
umask 077

for name in kelvane mt std abc sys; do
    [ -f "$copy/$name.db" ] || fail "$copy is no whole copy: $name.db is missing"
done
for file in "$copy"/*.db; do
    [ ! -e "$file-wal" ] || fail "$copy is a database in use; copy it with backup.sh"
done

mkdir -p -- "$folder"
new=$(mktemp -d -- "$folder/restoring.XXXXXX")
trap 'rm -rf -- "$new"' EXIT
trap 'exit 1' HUP INT TERM
cp -- "$copy"/*.db "$new/"
for file in "$new"/*.db; do
    [ "$(sqlite3 -batch -bail -init /dev/null "$file" 'pragma quick_check;' 2>&1)" = ok ] ||
        fail "$copy/${file##*/} is damaged; nothing was changed"
done
# Who may use the database stays as it is.
for file in "$new"/*.db; do
    present=$folder/${file##*/}
    [ -f "$present" ] || present=$folder/kelvane.db
    [ -f "$present" ] || continue
    chmod --reference="$present" -- "$file"
    chown --reference="$present" -- "$file" 2>/dev/null || true
done
sync -- "$new"/*.db

# A file that others have open can't leave the write-ahead log. One that is damaged is no obstacle.
mkdir -- "$new/sound"
for file in "$folder"/*.db; do
    [ -f "$file" ] || continue
    case $(sqlite3 -batch -bail -init /dev/null -cmd '.timeout 200' "$file" 'pragma journal_mode = delete;' 2>&1) in
    delete) touch -- "$new/sound/${file##*/}" ;;
    *locked* | *busy* | wal) fail "$folder is in use (${file##*/}); log out everywhere and try again" ;;
    esac
done

before=$folder.before-$(date +%Y%m%d-%H%M%S)
[ ! -e "$before" ] || fail "$before exists already"
cat >"$new/exchange" <<'END'
set -eu
for file in "$folder"/*.db "$folder"/*.db-wal "$folder"/*.db-shm "$folder"/*.db-journal; do
    [ -f "$file" ] || continue
    mkdir -p -- "$before"
    mv -- "$file" "$before/"
done
for file in "$new"/*.db; do
    [ "${file##*/}" = kelvane.db ] || mv -- "$file" "$folder/"
done
mv -- "$new/kelvane.db" "$folder/" # the one that is opened comes last
touch -- "$new/done"
END
export folder new before

# While the files are exchanged nobody gets in.
first=
for file in "$folder"/*.db; do
    [ ! -e "$new/sound/${file##*/}" ] || first=$file
done
if [ -n "$first" ]; then
    {
        number=0
        for file in "$folder"/*.db; do
            [ -e "$new/sound/${file##*/}" ] && [ "$file" != "$first" ] || continue
            number=$((number + 1))
            echo "attach '$(printf %s "$file" | sed "s/'/''/g")' as owner$number;"
        done
        echo 'begin exclusive;'
        echo '.shell sh exchange'
    } | (cd -- "$new" && sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$first" >/dev/null) ||
        fail "$folder is in use; log out everywhere and try again"
else
    sh "$new/exchange"
fi
[ -e "$new/done" ] || fail "the files could not be exchanged; look into $folder and $before"
sync -- "$folder"
[ ! -d "$before" ] || echo "What stood in $folder before is in $before."
