# Writes the tests of a program to a file for ctest: a suite at a time, since starting a sanitized program takes longer
# than most tests. Suites with parameters run long and are split into their tests, typed suites are not. Usage:
# cmake -D PROGRAM=... -D NAME=... -D OUTPUT=... -P register_suites.cmake
execute_process(
    COMMAND ${PROGRAM} --gtest_list_tests
    OUTPUT_VARIABLE listing
    TIMEOUT 60 COMMAND_ERROR_IS_FATAL ANY)
# What a list of CMake would take for its own.
foreach(mark ";" "[" "]")
    string(REPLACE "${mark}" "_" listing "${listing}")
endforeach()
string(REPLACE "\n" ";" lines "${listing}")

set(filters "")
foreach(line IN LISTS lines)
    set(isTyped FALSE)
    if(line MATCHES " # TypeParam")
        set(isTyped TRUE)
    endif()
    string(REGEX REPLACE " +#.*" "" line "${line}")
    if(line MATCHES "^([A-Za-z0-9_/]+\\.)$")
        set(suite "${CMAKE_MATCH_1}")
        if(isTyped OR NOT suite MATCHES "/")
            list(APPEND filters "${suite}*")
            set(suite "")
        endif()
    elseif(suite AND line MATCHES "^  (.+)$")
        list(APPEND filters "${suite}${CMAKE_MATCH_1}")
    endif()
endforeach()

set(content "")
foreach(filter IN LISTS filters)
    string(REGEX REPLACE "\\.\\*$" "" test "${NAME}.${filter}")
    string(APPEND content "add_test([=[${test}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${filter}]=] --gtest_brief=1)\n"
           "set_tests_properties([=[${test}]=] PROPERTIES TIMEOUT 300 LABELS ${NAME})\n")
endforeach()
file(WRITE ${OUTPUT} "${content}")
