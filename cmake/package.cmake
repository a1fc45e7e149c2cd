# Two packages for Debian, made by cpack: "kelvane" and "kelvane-simulators". `./run package` makes and tries them.
option(KELVANE_PACKAGE "Make packages for Debian" OFF)
if(NOT KELVANE_PACKAGE)
    return()
endif()

# Who answers for a package is who builds it: Debian's tools take the name from the same two variables.
if(DEFINED ENV{DEBFULLNAME} AND DEFINED ENV{DEBEMAIL})
    set(KELVANE_MAINTAINER "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
else()
    set(KELVANE_MAINTAINER "Kelvane maintainers <maintainers@kelvane.example.org>")
endif()
set(KELVANE_PACKAGE_VERSION ${PROJECT_VERSION}-1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelvane)
set(CPACK_PACKAGE_CONTACT ${KELVANE_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL kelvane kelvane-simulators)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_KELVANE_PACKAGE_NAME kelvane)
# The scripts of the embedded engine and the database for trying need SQLite's program and driver.
set(CPACK_DEBIAN_KELVANE_PACKAGE_DEPENDS "libsqliteodbc, sqlite3")
# A database of a server needs its driver, and the administrator its programs. The layout of worksheets names the font.
set(CPACK_DEBIAN_KELVANE_PACKAGE_RECOMMENDS "fonts-dejavu-core, odbc-postgresql, postgresql-client")
set(CPACK_DEBIAN_KELVANE_PACKAGE_SUGGESTS "kelvane-simulators")
set(CPACK_DEBIAN_KELVANE_DESCRIPTION
    "workstation for the calibration of process instruments
Kelvane prepares calibrations, sends the work to documenting calibrators,
takes their results back, judges each test point and writes the calibration
records into a MET/TRACK database, which it reaches through ODBC. It also
prints paper worksheets and makes records of what comes back on them.
.
kelvane-records shows what the records say: what is due, the history of an
instrument, and what a standard was used for. It only reads.
.
kelvane-admin makes and looks after databases of PostgreSQL and SQLite for
sites that have none.
.
A technician who works with a calibrator on a serial line has to belong to the
group dialout, to which Debian gives the serial ports.")

set(CPACK_DEBIAN_KELVANE-SIMULATORS_PACKAGE_NAME kelvane-simulators)
set(CPACK_DEBIAN_KELVANE-SIMULATORS_PACKAGE_DEPENDS "kelvane (= ${KELVANE_PACKAGE_VERSION})")
set(CPACK_DEBIAN_KELVANE-SIMULATORS_DESCRIPTION
    "simulated calibrators for Kelvane
Programs that stand in for a calibrator, to learn and to try the workstation:
a torque calibrator on a pseudo terminal, the link libraries of simulated
Fluke 702, 743 and 744, the technician who carries out the work on them, and a
demonstration that works through days with each of them.
.
A workstation without the link library of a real Fluke calibrator takes the
simulated one. Do not install this package where records count.")

# What Debian wants beside the files of the programs.
string(TIMESTAMP moment "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(debian ${CMAKE_BINARY_DIR}/packaging/debian)
file(MAKE_DIRECTORY ${debian})
add_custom_command(
    OUTPUT ${debian}/changelog.gz
    COMMAND gzip --best --no-name --stdout ${CMAKE_SOURCE_DIR}/CHANGELOG.md > ${debian}/changelog.gz
    DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md
    VERBATIM)
set(compressed ${debian}/changelog.gz)
foreach(package ${CPACK_COMPONENTS_ALL})
    configure_file(packaging/debian/changelog.in ${debian}/${package}.changelog @ONLY)
    set(changelog ${debian}/${package}.changelog.gz)
    add_custom_command(
        OUTPUT ${changelog}
        COMMAND gzip --best --no-name --stdout ${debian}/${package}.changelog > ${changelog}
        DEPENDS ${debian}/${package}.changelog
        VERBATIM)
    list(APPEND compressed ${changelog})
    configure_file(packaging/debian/lintian-overrides.in ${debian}/${package}.lintian-overrides @ONLY)
    install(
        FILES ${debian}/${package}.lintian-overrides
        DESTINATION share/lintian/overrides
        RENAME ${package}
        COMPONENT ${package})
    install(
        FILES ${changelog}
        DESTINATION share/doc/${package}
        RENAME changelog.Debian.gz
        COMPONENT ${package})
    install(
        FILES ${debian}/changelog.gz packaging/debian/copyright
        DESTINATION share/doc/${package}
        COMPONENT ${package})
endforeach()
install(
    FILES packaging/debian/README.Debian
    DESTINATION share/doc/kelvane
    COMPONENT kelvane)
add_custom_target(kelvane_package_files ALL DEPENDS ${compressed})

include(CPack)
