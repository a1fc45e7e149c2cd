#!/usr/bin/env bash
# Clang over the sources of the programs, on all cores: its own warnings and the checks of .clang-tidy are errors.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

# The compiler's precompiled headers are of no use to clang; without them each source reads only what it includes.
cmake --preset plain -B build/tidy -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >build/tidy.log 2>&1 ||
    { cat build/tidy.log >&2; exit 1; }

# Most of the time goes into the toolkit's headers, over and over. So sources that are compiled alike are read together,
# but for those that use a name of another one of their group: they are a group of their own. A group that has an error
# is read again by halves, down to the single source, which shows what it has by itself.
groups=build/tidy/groups
rm -rf "$groups"
mkdir -p "$groups"
git ls-files '*.cpp' ':!tests' ':!testkit' ':!benchmarks' ':!fuzz' ':!endurance' ':!*_windows.cpp' >"$groups/sources"
awk -v root="$PWD" -v folder="$PWD/$groups" -v size=24 '
    FNR == NR { wanted[root "/" $0] = 1; next }
    /^ *"command": / { command = $0; sub(/^ *"command": "/, "", command); sub(/ -o [^ ]* -c [^ ]*",?$/, "", command) }
    /^ *"file": / {
        file = $0; sub(/^ *"file": "/, "", file); sub(/",?$/, "", file)
        if (file in wanted) { alike[command, ++count[command]] = file; delete wanted[file] }
    }
    END {
        for (file in wanted) { print file " is not compiled" > "/dev/stderr"; exit 1 }
        for (command in count) {
            number = int((count[command] + size - 1) / size)
            for (i = 0; i < number; ++i) {
                group = folder "/" ++groups
                system("mkdir \"" group "\"")
                for (j = i + 1; j <= count[command]; j += number)
                    print alike[command, j] > (group "/sources")
                close(group "/sources")
                print command > (group "/command")
                close(group "/command")
            }
        }
    }' "$groups/sources" build/tidy/compile_commands.json

# tidy ARGUMENT... : quiet when there is nothing to say.
tidy() {
    clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option "$@" 2>/dev/null
}

# write_group FOLDER: its sources as one, and how that is compiled.
write_group() {
    local group=$1
    sed 's/.*/#include "&"/' "$group/sources" >"$group/group.cpp"
    printf '[{"directory": "%s/build/tidy", "file": "%s/group.cpp", "command": "%s -c %s/group.cpp"}]\n' \
        "$PWD" "$group" "$(cat "$group/command")" "$group" >"$group/compile_commands.json"
}

# clashing FOLDER: the numbers of the sources that have an error when they are read behind the others.
clashing() {
    local group=$1
    # The first word is the other compiler.
    (cd build/tidy && eval "clang++ $(sed 's|^[^ ]*||' "$group/command")" -Wno-unknown-warning-option \
        -ferror-limit=0 -fsyntax-only "$group/group.cpp" 2>&1) |
        awk -v from="In file included from $group/group.cpp:" '
            index($0, from) == 1 { number = substr($0, length(from) + 1) + 0 }
            / error: / && number > 0 && !seen[number]++ { print number }' || true
}

# part_group FOLDER: moves the sources that clash with others of the group into the group FOLDER/apart.
part_group() {
    local group=$1 numbers
    write_group "$group"
    while numbers=$(clashing "$group") && [ -n "$numbers" ] &&
        [ "$(wc -l <<<"$numbers")" -lt "$(wc -l <"$group/sources")" ]; do
        mkdir -p "$group/apart"
        cp "$group/command" "$group/apart/command"
        awk -v numbers="$numbers" -v apart="$group/apart/sources" -v rest="$group/rest" '
            BEGIN { split(numbers, list, "\n"); for (i in list) clashes[list[i]] = 1 }
            FNR in clashes { print >>apart; next }
            { print >rest }' "$group/sources"
        mv "$group/rest" "$group/sources"
        write_group "$group"
    done
}

# read_group FOLDER: reads its sources together; shows what a source has by itself.
read_group() {
    local group=$1 half status=0
    if [ "$(wc -l <"$group/sources")" = 1 ]; then
        tidy -p build/tidy "$(cat "$group/sources")"
        return
    fi
    part_group "$group"
    [ ! -e "$group/apart" ] || read_group "$group/apart" || status=1
    ! tidy -p "$group" --config-file=.clang-tidy --checks=-bugprone-suspicious-include "$group/group.cpp" >/dev/null ||
        return "$status"
    half=$(($(wc -l <"$group/sources") / 2))
    mkdir "$group/1" "$group/2"
    head -n "$half" "$group/sources" >"$group/1/sources"
    tail -n "+$((half + 1))" "$group/sources" >"$group/2/sources"
    for half in "$group/1" "$group/2"; do
        cp "$group/command" "$half/command"
        read_group "$half" || status=1
    done
    return "$status"
}
export -f tidy write_group clashing part_group read_group
ls -d "$PWD/$groups"/*/ | xargs -P "$(nproc)" -I{} bash -c 'read_group "${1%/}"' bash {}
