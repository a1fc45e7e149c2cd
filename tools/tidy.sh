#!/usr/bin/env bash
# Clang over the sources of the programs, on all cores: its own warnings and the checks of .clang-tidy are errors.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

# The compiler's precompiled headers are of no use to clang; without them each source reads only what it includes.
cmake --preset plain -B build/tidy -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >build/tidy.log 2>&1 ||
    { cat build/tidy.log >&2; exit 1; }

# Most of the time goes into the toolkit's headers, over and over. So sources that are compiled alike are read together,
# six at a time. Those of a group that has an error are read again one by one, since two sources may use one name.
groups=build/tidy/groups
rm -rf "$groups"
mkdir -p "$groups"
git ls-files '*.cpp' ':!tests' ':!testkit' ':!benchmarks' ':!fuzz' ':!endurance' ':!*_windows.cpp' >"$groups/sources"
awk -v root="$PWD" -v folder="$PWD/$groups" -v size=6 '
    FNR == NR { wanted[root "/" $0] = 1; next }
    /^ *"command": / { command = $0; sub(/^ *"command": "/, "", command); sub(/ -o [^ ]* -c [^ ]*",?$/, "", command) }
    /^ *"file": / {
        file = $0; sub(/^ *"file": "/, "", file); sub(/",?$/, "", file)
        if (file in wanted) { alike[command, ++count[command]] = file; delete wanted[file] }
    }
    END {
        for (file in wanted) { print file " is not compiled" > "/dev/stderr"; exit 1 }
        printf "[" > (folder "/compile_commands.json")
        for (command in count) {
            number = int((count[command] + size - 1) / size)
            for (i = 0; i < number; ++i) {
                group = folder "/" ++groups ".cpp"
                for (j = i + 1; j <= count[command]; j += number)
                    printf "#include \"%s\"\n", alike[command, j] > group
                close(group)
                entry = "{\"directory\": \"" root "/build/tidy\", \"file\": \"" group "\", \"command\": \"" command " -c " group "\"}"
                print separator entry > (folder "/compile_commands.json")
                separator = ","
            }
        }
        printf "]" > (folder "/compile_commands.json")
    }' "$groups/sources" build/tidy/compile_commands.json

# tidy ARGUMENT... : quiet when there is nothing to say.
tidy() {
    clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option "$@" 2>/dev/null
}
export -f tidy
ls "$groups"/*.cpp | xargs -P "$(nproc)" -I{} bash -c \
    'tidy -p "$0" --config-file=.clang-tidy --checks=-bugprone-suspicious-include {} >/dev/null || cat {} >>"$0/again"' \
    "$groups"
[ -e "$groups/again" ] || exit 0
cut -d'"' -f2 "$groups/again" | xargs -P "$(nproc)" -n 1 bash -c 'tidy -p build/tidy "$0"'
