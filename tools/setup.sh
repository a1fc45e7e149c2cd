# Sourced by run, test, bench and .ci/run: installs the Debian packages that are missing, and says so.
# setup_packages NAME... : does nothing (and is quick) when all of them are there.

build_packages=(
    g++ cmake ninja-build ccache
    qt6-base-dev qt6-serialport-dev qt6-svg-dev libgl-dev
    libboost-math-dev libkainjow-mustache-dev libjsoncpp-dev libzint-dev
    unixodbc-dev odbcinst libsqliteodbc libcrypt-dev libpq-dev
    sqlite3 fonts-dejavu-core cmark-gfm
    libgtest-dev
)
# A database server, and what reaches it.
server_packages=(postgresql-15 postgresql-client-15 odbc-postgresql)
test_packages=(appstream desktop-file-utils locales mandoc poppler-utils valgrind zbar-tools)
check_packages=(clang-format clang-tidy)
package_packages=(dpkg-dev lintian mmdebstrap uidmap)

setup_packages() {
    local missing=() name
    for name in "$@"; do
        dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q ' ok installed$' || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These Debian packages are missing, and neither root nor sudo is at hand: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing Debian packages: ${missing[*]}"
    local log status=0
    log=$(mktemp)
    install_packages "${missing[@]}" >"$log" 2>&1 || status=1
    if [ "$status" -ne 0 ]; then
        tail -n 20 "$log" >&2
        echo "The packages could not be installed." >&2
    fi
    rm -f "$log"
    return "$status"
}

# install_packages NAME... : with the rights of `as_root`. A new server package would make a database cluster of the
# machine and start it; the servers of this tree are their own.
install_packages() {
    local folder=/etc/postgresql-common/createcluster.d status=0
    "${as_root[@]}" apt-get update -q || return 1
    "${as_root[@]}" mkdir -p "$folder"
    echo 'create_main_cluster = false' | "${as_root[@]}" tee "$folder/kelvane.conf"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@" || status=1
    "${as_root[@]}" rm -f "$folder/kelvane.conf"
    "${as_root[@]}" rmdir -p --ignore-fail-on-non-empty "$folder"
    return "$status"
}

# answer_help SCRIPT [ARGUMENT...]: with --help in front, prints the comment at the head of the script, and ends.
answer_help() {
    [ "${2:-}" = --help ] || return 0
    sed -n '2,/^[^#]/{s/^# \{0,1\}//p}' "$1"
    exit 0
}

# show_progress: reads the output of a build, and shows how far it is: on a terminal in one line that changes, else in a
# few lines, which a short build has none of.
show_progress() {
    local line percent shown=0 open=
    while IFS= read -r line; do
        [[ $line =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
        percent=$((100 * BASH_REMATCH[1] / BASH_REMATCH[2]))
        if [ -t 1 ]; then
            printf '\r  %3d %% (%d of %d)' "$percent" "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}"
            open=yes
        elif [ "${BASH_REMATCH[2]}" -ge 50 ] && [ "$percent" -ge $((shown + 10)) ]; then
            shown=$((percent / 10 * 10))
            echo "  $shown %"
        fi
    done
    [ -z "$open" ] || echo
}

# build_preset PRESET [TARGET...]: configures when needed and builds; shows how far it is, and the output when it fails.
build_preset() {
    local preset=$1 log
    shift
    mkdir -p "build/$preset"
    log="build/$preset/build.log"
    echo "Building ($preset) ..."
    if ! { cmake --preset "$preset" && NINJA_STATUS='[%f/%t] ' cmake --build "build/$preset" ${1:+--target "$@"}; } 2>&1 |
        tee "$log" | show_progress; then
        grep -nE 'error|Error|FAILED' "$log" | head -n 20 >&2
        tail -n 30 "$log" >&2
        echo "The build failed; all of its output is in $log" >&2
        return 1
    fi
}

# memory_folder: makes a new folder for temporary files in memory, where nobody waits for a disk, and prints it; prints
# nothing where there is no room for a gigabyte or programs can't run.
memory_folder() {
    local folder
    folder=$(mktemp -d /dev/shm/kelvane.XXXXXX 2>/dev/null) || return 0
    chmod 755 "$folder" # servers and tests that give up their rights go through
    install -m 700 /dev/null "$folder/program"
    if [ -x "$folder/program" ] && [ "$(df --output=avail "$folder" | tail -n 1)" -ge 1048576 ]; then
        rm "$folder/program"
        echo "$folder"
    else
        rm -r "$folder"
    fi
}
