#!/bin/sh
# Makes the database of the embedded engine: one SQLite file for each owner, in a folder of its own.
#
#   make.sh <folder> [--demo] [--day=YYYY-MM-DD] [--past=<kelvane-admin>]
#
# A new folder is built beside its place and moved there when it is whole; with --demo it holds the demonstration
# data, as made today or on the given day. With --past it also holds five years of records of instruments of its own
# (demo/past), which that program makes. A folder that has a database already keeps its data: it is only brought to
# the newest version (upgrade.sh).
set -eu

files='kelvane mt std abc sys'

fail() {
    echo "make.sh: $*" >&2
    exit 1
}

folder= demo= day= past=
for argument; do
    case $argument in
    --demo) demo=yes ;;
    --day=[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]) day=${argument#--day=} ;;
    --past=?*) past=${argument#--past=} ;;
    -*) fail "unknown option $argument" ;;
    *) [ -z "$folder" ] || fail 'one folder only'
       folder=$argument ;;
    esac
done
[ -n "$folder" ] || fail 'usage: make.sh <folder> [--demo] [--day=YYYY-MM-DD] [--past=<kelvane-admin>]'
command -v sqlite3 >/dev/null || fail 'the program sqlite3 is missing (Debian package "sqlite3")'

here=$(CDPATH= cd -- "$(dirname -- "$0")" && pwd)
case $folder in /*) ;; *) folder=$PWD/$folder ;; esac
case $past in '' | /*) ;; *) past=$PWD/$past ;; esac
folder=${folder%/}
umask 077

# script <file> <script> [sqlite3 options]: one script as one transaction; it is carried out whole or not at all.
script() {
    file=$1 text=$2
    shift 2
    { cat "$here/$text" && printf '\ncommit;\n'; } |
        sqlite3 -batch -bail -init /dev/null -cmd '.timeout 5000' "$@" -cmd 'begin immediate;' "$file" ||
        fail "$text failed on $file"
}

# Its days are counted from one moment, `:now`, the local time of the given day.
demonstration() {
    now="${day:-$(date +%Y-%m-%d)} $(date +%H:%M:%S)"
    [ "$(sqlite3 -batch -init /dev/null :memory: "select datetime('$now', '+0 days')")" = "$now" ] || fail "no such day: $day"
    demonstration_of demo
    [ -z "$past" ] || five_years
}

# demonstration_of <folder>: its scripts, in their order.
demonstration_of() {
    for path in "$here/$1"/*.sql; do
        script kelvane.db "$1/${path##*/}" \
            -cmd "attach 'mt.db' as mt; attach 'std.db' as std; attach 'abc.db' as abc;" \
            -cmd ".parameter set :now \"'$now'\""
    done
}

# Records are judged and laid out, which the program alone can do. It tells on a terminal how far it is.
five_years() {
    demonstration_of demo/past
    progress=
    [ ! -t 2 ] || progress=--progress
    "$past" demonstration-past --day="${now%% *}" $progress . || fail 'the demonstration has got no past'
    rm -f kelvane.lock # of the program's locks; the database's users make their own
}

present=0
for name in $files; do
    [ ! -e "$folder/$name.db" ] || present=$((present + 1))
done
case $present in
5)
    "$here/upgrade.sh" "$folder"
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
"$here/upgrade.sh" --new .
[ -z "$demo" ] || demonstration
sync -- *.db
cd / # the folder may move now

if [ -d "$folder" ]; then
    chmod 700 -- "$folder"
    for name in sys abc std mt kelvane; do # the one that is opened comes last
        mv -- "$new/$name.db" "$folder/"
    done
else
    mv -T -- "$new" "$folder"
fi
