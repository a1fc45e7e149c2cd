# Writes the tests of a program to a file for ctest: a suite at a time, since starting a sanitized program takes longer
# than most tests. Suites with parameters run long and are split into their tests, typed suites are not. Those of the
# filter DATABASE come a second time, for the shared engine on the server in the folder SERVER, and those of the filter
# SHARED for that one alone; what passes LONG, too, has the label "long" there. Those of the filter GERMAN come once more
# with the texts in German. Usage:
# cmake -D PROGRAM=... -D NAME=... -D OUTPUT=... -D DATABASE=... -D LONG=... -D SHARED=... -D GERMAN=... -D SERVER=...
#     -P register_suites.cmake

# Filters, one for each suite or test to register, of those that `filter` lets pass.
function(list_filters result filter)
    execute_process(
        COMMAND ${PROGRAM} --gtest_list_tests --gtest_filter=${filter}
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
    set(${result}
        ${filters}
        PARENT_SCOPE)
endfunction()

set(content "")
list_filters(filters *:-${SHARED})
foreach(filter IN LISTS filters)
    string(REGEX REPLACE "\\.\\*$" "" test "${NAME}.${filter}")
    string(APPEND content "add_test([=[${test}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${filter}]=] --gtest_brief=1)\n"
           "set_tests_properties([=[${test}]=] PROPERTIES TIMEOUT 300 LABELS ${NAME}\n"
           "    ENVIRONMENT [=[KELVANE_DATABASE_TESTS=${DATABASE}]=])\n")
endforeach()
if(DATABASE OR SHARED)
    list_filters(filters ${SHARED}:${DATABASE})
    set(long "")
    if(LONG)
        list_filters(long ${LONG})
    endif()
    string(REGEX MATCH "-.*" exceptions "${DATABASE}")
    foreach(filter IN LISTS filters)
        string(REGEX REPLACE "\\.\\*$" "" test "shared.${NAME}.${filter}")
        set(labels "${NAME};shared")
        list(FIND long "${filter}" place)
        if(NOT place EQUAL -1)
            set(labels "${labels};long")
        endif()
        # Leaks are looked for on the embedded engine.
        string(
            APPEND content
            "add_test([=[${test}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${filter}:${exceptions}]=] --gtest_brief=1)\n"
            "set_tests_properties([=[${test}]=] PROPERTIES TIMEOUT 300 LABELS \"${labels}\"\n"
            "    FIXTURES_REQUIRED shared_server SKIP_RETURN_CODE 77\n"
            "    ENVIRONMENT [=[KELVANE_DATABASE_TESTS=${SHARED}:${DATABASE};KELVANE_TEST_ENGINE=shared;KELVANE_TEST_SERVER=${SERVER};ASAN_OPTIONS=detect_leaks=0:abort_on_error=1]=])\n")
    endforeach()
endif()
if(GERMAN)
    list_filters(filters ${GERMAN})
    foreach(filter IN LISTS filters)
        string(REGEX REPLACE "\\.\\*$" "" test "german.${NAME}.${filter}")
        string(
            APPEND content
            "add_test([=[${test}]=] [=[${PROGRAM}]=] [=[--gtest_filter=${filter}]=] --gtest_brief=1)\n"
            "set_tests_properties([=[${test}]=] PROPERTIES TIMEOUT 300 LABELS \"${NAME};german\"\n"
            "    ENVIRONMENT [=[KELVANE_DATABASE_TESTS=${DATABASE};KELVANE_TEST_LANGUAGE=de]=])\n")
    endforeach()
endif()
file(WRITE ${OUTPUT} "${content}")
