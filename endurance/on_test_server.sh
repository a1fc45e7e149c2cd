#!/bin/sh
# The short run on the shared engine: on a copy of the database that the tests have prepared on their server.
#
#   on_test_server.sh <server's folder> <kelvane-endure> <work folder> <seconds>
set -eu

server=$1 program=$2 work=$3 seconds=$4
if [ ! -s "$server/socket" ]; then
    cat -- "$server/missing" 2>/dev/null || echo 'No server was started.'
    exit 77
fi
socket=$(cat -- "$server/socket")
database=kelvane_test_endurance

as_administrator() {
    PGOPTIONS='-c client_min_messages=warning' psql -X -q -v ON_ERROR_STOP=1 -h "$socket" -U kelvane_admin -d postgres "$@"
}

as_administrator -c "drop database if exists $database with (force)" \
    -c "create database $database template kelvane_template_demo" \
    -c "revoke all on database $database from public" -c "grant connect on database $database to kelvane_login"
status=0
"$program" stress --engine shared --work "$work" --seconds "$seconds" \
    --database "postgresql://kelvane_admin@/$database?host=$(printf %s "$socket" | sed 's:/:%2F:g')" || status=$?
as_administrator -c "drop database if exists $database with (force)"
exit "$status"
