# Sourced by test and endure: the server of the tests. ctest starts and stops it, but an interrupt ends ctest before it
# has come to that. Called in the top folder of the tree.

# use_test_server: from here on no other script stops it. Descriptor 6 is not for the programs that are started.
use_test_server() {
    test_server=$PWD/build/sanitized/shared_server
    mkdir -p build/sanitized
    exec 6>"$test_server.users"
    flock -s 6
}

# Stops it if it still runs and no other script uses it.
stop_test_server() {
    ! flock -n -x 6 || [ ! -e "$test_server" ] || tests/shared_server.sh stop "$test_server" 6>&-
}
