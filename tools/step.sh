# Sourced by .ci/run.

# step LIMIT NAME COMMAND... : runs a command under a heading; one that takes longer than the limit is stopped, with all
# that it has started, and fails. The interrupt key stops it too.
step() {
    local limit=$1 name=$2 status=0
    echo "== $name"
    set -m
    timeout --kill-after=30s "$limit" "${@:3}" &
    trap "kill $! 2>/dev/null; exit 130" INT
    wait $! || status=$?
    trap - INT
    set +m
    case $status in
    124 | 137) echo "$name took longer than the limit of $limit and was stopped." >&2 ;;
    esac
    return $status
}
