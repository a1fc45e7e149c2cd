# Compiler options stand here once; every target takes them through kelvane_options.
option(KELVANE_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(KELVANE_FUZZER "Build the fuzz targets for clang's fuzzer" OFF)

# Targets below tests/ are test code.
define_property(TARGET PROPERTY KELVANE_TEST_CODE INITIALIZE_FROM_VARIABLE default_KELVANE_TEST_CODE)

add_library(kelvane_options INTERFACE)
# Headers that are made from tables stand beside those of the source tree, under the same folders.
set(KELVANE_GENERATED ${CMAKE_BINARY_DIR}/generated)
target_include_directories(kelvane_options INTERFACE ${CMAKE_SOURCE_DIR} ${KELVANE_GENERATED})
target_compile_definitions(
    kelvane_options
    INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
              QT_NO_FOREACH QT_NO_KEYWORDS)

# What makes a defect in a program of ours harder to use. The sanitized build checks its memory itself, so it takes the
# linker's part alone.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
add_library(kelvane_hardening INTERFACE)
if(NOT MSVC)
    target_compile_options(kelvane_hardening INTERFACE -fstack-protector-strong)
    string(TOUPPER "${CMAKE_BUILD_TYPE}" type)
    set(flags "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${type}}")
    if(flags MATCHES "-O[1-3s]" AND NOT flags MATCHES "_FORTIFY_SOURCE")
        target_compile_options(kelvane_hardening INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    endif()
    set(hardened_links -Wl,-z,relro,-z,now)
    target_link_options(kelvane_hardening INTERFACE ${hardened_links})
    if(KELVANE_SANITIZE)
        target_link_options(kelvane_options INTERFACE ${hardened_links})
    else()
        target_link_libraries(kelvane_options INTERFACE kelvane_hardening)
    endif()
endif()

if(MSVC)
    target_compile_options(kelvane_options INTERFACE /W4 /WX /utf-8 /fp:precise)
else()
    # No fused multiply-add and no fast math: every rounding of the tolerance rules is to be the same everywhere.
    target_compile_options(
        kelvane_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffp-contract=off)
    # Lets ccache see what a precompiled header holds.
    target_compile_options(kelvane_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    if(KELVANE_SANITIZE)
        # The checked code has both sanitizers. Test code has the address sanitizer alone, unoptimised: the checks of
        # its own code would cost more than half of the build.
        target_compile_options(
            kelvane_options
            INTERFACE -fno-omit-frame-pointer -fsanitize=address -fno-sanitize-recover=all
                      $<IF:$<BOOL:$<TARGET_PROPERTY:KELVANE_TEST_CODE>>,-O0,-fsanitize=undefined>)
        target_link_options(kelvane_options INTERFACE -fsanitize=address,undefined)
    endif()
    if(KELVANE_FUZZER)
        # The fuzzer sees which ways an input has taken.
        target_compile_options(kelvane_options INTERFACE -fsanitize=fuzzer-no-link)
    endif()
endif()
