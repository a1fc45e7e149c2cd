# Compiler options stand here once; every target takes them through kelvane_options.
option(KELVANE_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)

add_library(kelvane_options INTERFACE)
target_include_directories(kelvane_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(
    kelvane_options
    INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
              QT_NO_FOREACH QT_NO_KEYWORDS)

if(MSVC)
    target_compile_options(kelvane_options INTERFACE /W4 /WX /utf-8 /fp:precise)
else()
    # No fused multiply-add and no fast math: every rounding of the tolerance rules is to be the same everywhere.
    target_compile_options(
        kelvane_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffp-contract=off)
    # Lets ccache see what a precompiled header holds.
    target_compile_options(kelvane_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
    if(KELVANE_SANITIZE)
        target_compile_options(kelvane_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                         -fno-omit-frame-pointer)
        target_link_options(kelvane_options INTERFACE -fsanitize=address,undefined)
    endif()
endif()
