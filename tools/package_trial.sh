#!/bin/sh
# Run as root in a new minimal Debian that holds the packages in its folder /srv: installs them, runs the demonstration
# as a user, removes them, and looks for what they have left.
set -eu

export LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive
cd /srv
user=technician
home=/home/$user

say() {
    echo "trial: $*"
}

# The terminals of such a root are root's; its users get some of their own, in mounts that end with this script.
if [ "${1:-}" != with-terminals ]; then
    say 'in a root of its own'
    exec unshare --mount --propagation unchanged sh "$0" with-terminals
fi
mount -t devpts -o newinstance,gid=5,mode=620,ptmxmode=666 devpts /dev/pts

# as_user COMMAND... : in the user's home, with nothing of root's environment.
as_user() {
    runuser -u "$user" -- env -i HOME="$home" LC_ALL=C.UTF-8 PATH=/usr/bin:/bin XDG_RUNTIME_DIR="$home/runtime" sh -ceu 'cd; "$@"' sh "$@"
}

# The files of the root, without what belongs to the user or to Debian's own bookkeeping.
list_files() {
    find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /run -o -path /srv -o -path /tmp/apt\* \
        -o -path "$home" -o -path /var/cache -o -path /var/lib/apt -o -path /var/lib/dpkg -o -path /var/log \) -prune \
        -o -print | sort
}

# dependencies DEB: without the package that comes with it.
dependencies() {
    dpkg-deb -f "$1" Depends | sed 's/kelvane ([^)]*), *//; s/, *kelvane ([^)]*)//'
}

useradd --create-home "$user"
install -d -o "$user" -m 700 "$home/runtime"
for deb in *.deb; do
    apt-get satisfy --yes --no-install-recommends "$(dependencies "$deb")"
done
list_files >before
apt-get install --yes --no-install-recommends ./*.deb
say "installed $(dpkg-query -W kelvane kelvane-simulators | tr '\t' ' ' | paste -s -d ,)"

as_user kelvane --version
as_user kelvane-admin --version
# A demonstration from the installed files alone, as the manual of kelvane-demo describes it. What it calibrates is due
# within a year then.
as_user sh -ceu '
    mkdir demonstration && cd demonstration
    kelvane-admin make database --demo
    kelvane-admin data-source database >odbc.ini
    cp /usr/share/kelvane/database/demo/rslt_db.frm /usr/share/kelvane/layouts/kvwrksht.rpt .
    ODBCINI=$PWD/odbc.ini kelvane-demo
    echo kelvane | ODBCINI=$PWD/odbc.ini kelvane-records --due=400 --csv --user=jdoe >due.csv
    grep -q "^PT-101," due.csv'
say 'the demonstration has run'

# The entry of the menu: still there after some seconds, with what it has written in folders of the user.
status=0
as_user env QT_QPA_PLATFORM=offscreen ODBCINI="$home/demonstration/odbc.ini" timeout 5 kelvane --user-folders || status=$?
[ "$status" = 124 ] || { say "kelvane --user-folders ended by itself with status $status"; exit 1; }
say 'the workstation starts'

apt-get purge --yes kelvane kelvane-simulators
list_files >after
if ! diff before after; then
    say 'the packages have left files behind'
    exit 1
fi
[ -e "$home/demonstration/database/kelvane.db" ] || { say "the user's files are gone"; exit 1; }
say "removed; only the user's own files are left"
