# Sourced by run: a private database server in a folder, which ends with the last script that uses it.

# start_server FOLDER: starts it, unless it runs. Called in the top folder of the tree.
start_server() {
    server_script=$PWD/database/postgresql/server.sh
    server_folder=$1
    mkdir -p "$server_folder"
    exec {server_users}>"$server_folder/users.lock"
    flock -s "$server_users" # from here on nobody else stops it
    server_socket=$("$server_script" start "$server_folder" {server_users}>&-)
    on_exit=(stop_server "${on_exit[@]}")
}

# Stops it when no other script uses it.
stop_server() {
    ! flock -n -x "$server_users" || "$server_script" stop "$server_folder" {server_users}>&-
}

# in_address TEXT: a text as it stands in a part of an address.
in_address() {
    local LC_ALL=C i character code
    for ((i = 0; i < ${#1}; ++i)); do
        character=${1:i:1}
        case $character in
        [a-zA-Z0-9._~-]) printf %s "$character" ;;
        *)
            printf -v code %d "'$character"
            printf '%%%02X' $((code & 255))
            ;;
        esac
    done
}

# server_address DATABASE
server_address() {
    echo "postgresql://kelvane_admin@/$1?host=$(in_address "$server_socket")"
}

# drop_database NAME: also one that is not there; its notice about that is left out, errors are shown.
drop_database() {
    PGOPTIONS='-c client_min_messages=warning' psql --no-psqlrc --quiet --set=ON_ERROR_STOP=1 \
        --command="drop database if exists $1 with (force)" "$(server_address postgres)"
}
