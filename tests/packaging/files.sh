#!/bin/sh
# The files for desktop, software centre and manual, judged by the tools that read them.
#
#   files.sh <sources> <build>
set -eu

sources=$1 build=$2
status=0
expect_silent() {
    complaint=$("$@" 2>&1) || complaint="$complaint
$* has failed"
    [ -z "$complaint" ] || { printf '%s\n' "$complaint"; status=1; }
}

for entry in "$sources"/packaging/*.desktop; do
    expect_silent desktop-file-validate "$entry"
done
appstreamcli validate --no-net --no-color "$build/packaging/kelvane.metainfo.xml" || status=1
for page in "$sources"/packaging/man/*.1; do
    expect_silent mandoc -T lint -W warning "$page"
done
expect_silent bash -n "$sources/packaging/completion/kelvane"
exit "$status"
