# A library whose sources the modules add with kelvane_sources.
function(kelvane_library name)
    add_library(${name} STATIC)
    target_link_libraries(${name} PUBLIC kelvane_options ${ARGN})
endfunction()

# The sources of the current folder, sorted by name, given to the library they belong to.
function(kelvane_sources library)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(${library} PRIVATE ${ARGN})
endfunction()

# A program: name, then LINKS libraries and SOURCES files.
function(kelvane_program name)
    cmake_parse_arguments(arg "" "" "LINKS;SOURCES" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE kelvane_options ${arg_LINKS})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()
