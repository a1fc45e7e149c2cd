# What is installed where: the component "kelvane" for a workstation and its administrator, the component
# "kelvane-simulators" for trying it without a calibrator. Programs find the folders "share/kelvane" and "share/doc/kelvane"
# from their own (platform/installed_files.h); so these two have no other name.
install(TARGETS kelvane COMPONENT kelvane)
install(
    DIRECTORY ${CMAKE_SOURCE_DIR}/resources/layouts
    DESTINATION share/kelvane
    COMPONENT kelvane)
install(
    DIRECTORY ${CMAKE_SOURCE_DIR}/docs/pictures
    DESTINATION share/doc/kelvane
    COMPONENT kelvane)
if(NOT UNIX)
    return() # the other programs need POSIX, the rest is for its desktops
endif()

install(TARGETS kelvane-admin kelvane-records COMPONENT kelvane)
install(
    DIRECTORY ${CMAKE_SOURCE_DIR}/database
    DESTINATION share/kelvane
    COMPONENT kelvane
    FILES_MATCHING
    PATTERN "*.frm"
    PATTERN "*.ini"
    PATTERN "*.sql"
    PATTERN "*.sh"
    PATTERN server.sh EXCLUDE # for tests and trials in the sources
    # Those that are started; the others are read by them.
    REGEX "/(backup|check|demonstration|make|restore|upgrade)\\.sh$"
          PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
install(TARGETS kelvane-demo kelvane-technician kelvane-torquestar COMPONENT kelvane-simulators)
install(TARGETS dpclnk dpclnk3 LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/kelvane COMPONENT kelvane-simulators)

# The same folders for the programs of the build.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/share/kelvane ${CMAKE_BINARY_DIR}/share/doc)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/database ${CMAKE_BINARY_DIR}/share/kelvane/database SYMBOLIC)
file(CREATE_LINK ${CMAKE_SOURCE_DIR}/resources/layouts ${CMAKE_BINARY_DIR}/share/kelvane/layouts SYMBOLIC)
file(CREATE_LINK ${CMAKE_BINARY_DIR}/packaging/pages ${CMAKE_BINARY_DIR}/share/doc/kelvane SYMBOLIC)
