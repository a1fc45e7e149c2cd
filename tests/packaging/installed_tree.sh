#!/bin/bash
# Everything installed into a folder of the test: each program has its manual and its completion, which tell the same
# options as its help, and works with the files that are installed with it.
#
#   installed_tree.sh <build> <folder>
set -euo pipefail

build=$1 root="$2/a root"
faults=0
fault() {
    echo "$*"
    faults=$((faults + 1))
}

rm -rf "$root"
for component in kelvane kelvane-simulators; do
    DESTDIR=$root cmake --install "$build" --component "$component" >"$2.log"
done
prefix=$(dirname "$(find "$root" -type d -name bin)")
export PATH=$prefix/bin:$PATH LC_ALL=C.UTF-8 # commands of a completion are found by their names

# option_names: the long options in a text, sorted.
option_names() {
    { grep -oE -e '(^|[^[:alnum:]-])--[a-z][a-z-]*' || true; } | sed 's/^[^-]//' | sort -u
}

# help_of PROGRAM: of the program and of each of its commands.
help_of() {
    local command
    "$1" --help
    [ "$1" = kelvane-admin ] || return 0
    for command in $(commands_of "$1"); do
        "$1" "$command" --help
    done
}

manual_of() {
    gunzip -c "$prefix/share/man/man1/$1.1.gz"
}

# commands_of PROGRAM: those that its manual describes.
commands_of() {
    manual_of "$1" | sed -nE '/^(\.Ss Options|The options)/q; s/^\.It Cm ([a-z-]+)$/\1/p' | sort -u
}

# completed WORD... : what the completion offers for the last word.
completed() {
    bash -c '
        . "$1/$2"
        COMP_WORDS=("${@:2}") COMP_CWORD=$(($# - 2))
        _kelvane
        printf "%s\n" "${COMPREPLY[@]}"' bash "$prefix/share/bash-completion/completions" "$@" | sort -u
}

expect_same() {
    diff <(printf '%s\n' "$2") <(printf '%s\n' "$3") || fault "$1"
}

programs=$(ls "$prefix/bin")
for program in $programs; do
    help=$(help_of "$program")
    expect_same "$program: its help (<) and its manual (>) tell other options" "$(option_names <<<"$help")" \
        "$(manual_of "$program" | sed -nE 's/^\.It Fl (.* Fl )?-([a-z-]+).*/--\2/p' | sort -u)"
    expect_same "$program: its help (<) and its completion (>) tell other options" \
        "$("$program" --help | sed -nE '/^ +-/p' | option_names)" "$(completed "$program" -- | grep -v '^$')"
    [[ $(completed "$program" --he) = --help* ]] || fault "$program: --he is not completed"
done
[ "$(wc -w <<<"$programs")" -ge 5 ] || fault "only these programs are installed: $programs"

# Each command, by itself and with options of its own.
for program in kelvane-admin kelvane-technician; do
    expect_same "$program: its manual (<) and its completion (>) tell other commands" "$(commands_of "$program")" \
        "$(completed "$program" '')"
done
for command in $(commands_of kelvane-admin); do
    kelvane-admin --help | grep -q "^  $command " || fault "kelvane-admin: its help does not name $command"
    expect_same "kelvane-admin $command: its help (<) and its completion (>) tell other options" \
        "$( (echo ' --help' && kelvane-admin "$command" --help) | option_names)" "$(completed kelvane-admin "$command" --)"
done

# What the desktop looks for.
for entry in "$prefix"/share/applications/{kelvane,kelvane-records}.desktop; do
    [ -x "$prefix/bin/$(sed -nE 's/^Exec=([^ ]*).*/\1/p' "$entry")" ] || fault "$entry starts no installed program"
    icon=$(sed -n 's/^Icon=//p' "$entry")
    for file in scalable/apps/"$icon".svg {16x16,32x32,64x64,256x256}/apps/"$icon".png; do
        [ -s "$prefix/share/icons/hicolor/$file" ] || fault "the icon $file is missing"
    done
done

# What the programs find from their own folder. A changed script can't be that of the sources.
for file in share/kelvane/layouts/{kvwrksht,kvuses}.rpt share/kelvane/database/demo/rslt_db.frm \
    share/doc/kelvane/administrators-guide.html share/doc/kelvane/technicians-guide.html; do
    [ -s "$prefix/$file" ] || fault "$file is missing"
done
# Each page and picture that a page leads to stands there, and so does the heading that it means.
for page in "$prefix"/share/doc/kelvane/*.html; do
    while read -r link; do
        target=${link%%#*} heading=${link#"${link%%#*}"}
        target=$(dirname "$page")/${target:-$(basename "$page")}
        if [ ! -s "$target" ]; then
            fault "$(basename "$page") leads to $link, which is missing"
        elif [ -n "$heading" ] && ! grep -qF " id=\"${heading#\#}\"" "$target"; then
            fault "$(basename "$page") leads to $link, which is no heading"
        fi
    done < <(grep -oE '(href|src)="[^"]*"' "$page" | sed -E 's/^[a-z]+="(.*)"$/\1/' | grep -v '^https\?:')
done
kelvane-admin make "$root/a database" --demo >/dev/null || fault 'no database can be made with the installed scripts'
printf '#!/bin/sh\necho installed\n' >"$prefix/share/kelvane/database/check.sh"
[ "$(kelvane-admin check "$root/a database")" = installed ] || fault 'kelvane-admin does not take the installed scripts'
libraries=$(find "$prefix" -name 'libdpclnk*.so' -path '*/kelvane/*' | wc -l)
[ "$libraries" = 2 ] || fault "$libraries link libraries stand in a folder of their own, not two"

# Whatever the rights in the sources are, all users can read what is installed.
unreadable=$(find "$root" \( -path "$root/a database" -prune \) -o ! -type l ! -perm -444 -print)
[ -z "$unreadable" ] || fault "not everybody can read $unreadable"

rm -rf "$root"
[ "$faults" = 0 ]
