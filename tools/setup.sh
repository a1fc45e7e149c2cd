# Sourced by run, test, bench and .ci/run: installs the Debian packages that are missing, and says so.
# setup_packages NAME... : does nothing (and is quick) when all of them are there.

build_packages=(
    g++ cmake ninja-build ccache
    qt6-base-dev qt6-serialport-dev libgl-dev
    libkainjow-mustache-dev libjsoncpp-dev libzint-dev
    unixodbc-dev odbcinst libsqliteodbc libcrypt-dev libpq-dev
    sqlite3 fonts-dejavu-core
    libgtest-dev
)
test_packages=(locales poppler-utils valgrind zbar-tools)
check_packages=(clang-format clang-tidy)

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
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update -q &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"; } \
        >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        echo "The packages could not be installed." >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# build_preset PRESET [TARGET...]: configures when needed and builds; the output is shown when it fails.
build_preset() {
    local preset=$1 log
    shift
    mkdir -p "build/$preset"
    log="build/$preset/build.log"
    echo "Building ($preset) ..."
    if ! { cmake --preset "$preset" && cmake --build "build/$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
        grep -nE 'error|Error|FAILED' "$log" | head -n 20 >&2
        tail -n 30 "$log" >&2
        echo "The build failed; all of its output is in $log" >&2
        return 1
    fi
}
