# Sourced by run: the packages for Debian, made in build/package, checked, and tried in a root of their own.

package_programs=(dpclnk dpclnk3 kelvane kelvane-admin kelvane-demo kelvane-records kelvane-technician kelvane-torquestar)

# The day of the sources stands for that of the build, so that one commit gives the same packages on every day.
set_source_date() {
    local moment
    [ -z "${SOURCE_DATE_EPOCH:-}" ] || return 0
    moment=$(git log -1 --format=%ct 2>/dev/null) || return 0
    export SOURCE_DATE_EPOCH=$moment
}

# make_packages: leaves them in build/package/packages.
make_packages() {
    set_source_date
    build_preset package "${package_programs[@]}" kelvane_documents kelvane_package_files
    rm -rf build/package/packages
    local log=build/package/cpack.log
    (umask 022 && cpack --config build/package/CPackConfig.cmake -B "$PWD/build/package/packages") >"$log" 2>&1 || {
        tail -n 20 "$log" >&2
        echo "The packages could not be made; all of the output is in $log" >&2
        return 1
    }
    rm -rf build/package/packages/_CPack_Packages
    packages=("$PWD"/build/package/packages/*.deb)
    settle_times
    printf 'Made %s\n' "${packages[@]}"
}

# cpack keeps the times at which it has copied the files. Debian's own program takes none later than the sources'.
settle_times() {
    local deb content=build/package/content
    for deb in "${packages[@]}"; do
        rm -rf "$content"
        dpkg-deb --raw-extract "$deb" "$content"
        dpkg-deb --root-owner-group --build "$content" "$deb" >/dev/null
    done
    rm -rf "$content"
}

# What is accepted is told with its reason in packaging/debian.
inspect_packages() {
    lintian --allow-root --fail-on error,warning "${packages[@]}"
    echo "lintian has found nothing."
}

# try_packages: installs them in a new minimal Debian, runs the demonstration, removes them. Says so where the machine
# gives no such root: without the right to make one, or without a way to the archive.
try_packages() {
    local folder=$PWD/build/package/trial log copy="copy-in" file
    rm -rf "$folder"
    mkdir -p "$folder"
    chmod 755 "$folder"
    log=$folder/trial.log
    for file in "${packages[@]}" tools/package_trial.sh; do
        copy+=" $(printf %q "$file")"
    done
    echo "Trying the packages in a root of their own ..."
    if TMPDIR=$folder mmdebstrap --variant=minbase --format=null --customize-hook="$copy /srv" \
        --customize-hook='exec chroot "$1" sh /srv/package_trial.sh' \
        bookworm /dev/null >"$log" 2>&1; then
        sed -n 's/^trial: /  /p' "$log"
    elif ! grep -q '^trial: ' "$log"; then
        grep '^E: ' "$log" | head -n 3 >&2
        echo "Skipped: this machine gives no root of its own to try the packages in; see $log" >&2
    else
        sed -n 's/^trial: /  /p' "$log"
        tail -n 30 "$log" >&2
        echo "The packages do not work; all of the output is in $log" >&2
        return 1
    fi
}
