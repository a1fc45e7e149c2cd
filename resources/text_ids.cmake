# Makes the names of the texts out of their table: an enumeration whose values are the numbers.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS strings.txt)
file(STRINGS strings.txt lines REGEX "^[0-9]+\t[A-Za-z0-9]+\t" ENCODING UTF-8)
set(names "")
foreach(line IN LISTS lines)
    if(line MATCHES "^([0-9]+)\t([A-Za-z0-9]+)\t")
        string(APPEND names "    ${CMAKE_MATCH_2} = ${CMAKE_MATCH_1},\n")
    endif()
endforeach()
file(
    CONFIGURE
    OUTPUT ${KELVANE_GENERATED}/resources/text_id.h
    CONTENT
        "#pragma once

#include \"resources/strings.h\"

namespace kelvane {

enum class TextId : int {
@names@};

} // namespace kelvane
"
    @ONLY)
