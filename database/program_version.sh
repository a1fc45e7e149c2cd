# Sourced by the upgrade.sh of both engines: prints the version of the program that these scripts belong to. The program
# says it (KELVANE_VERSION); in the sources it is that of the project.
# program_version <folder of database/>
program_version() {
    number=${KELVANE_VERSION:-}
    [ -n "$number" ] || [ ! -r "$1/../CMakeLists.txt" ] ||
        number=$(sed -n 's/^project(kelvane VERSION \([0-9.]*\).*/\1/p' "$1/../CMakeLists.txt")
    case $number in
    *[!0-9A-Za-z.~+-]* | '') echo unknown ;;
    *) echo "$number" ;;
    esac
}
