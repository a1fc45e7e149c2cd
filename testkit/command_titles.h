#pragma once

#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane::testing {

// The titles of the boxes that the two commands show, in the language of the run.

inline QString downloadTitle() {
    return text(TextId::downloadProcedures);
}
inline QString uploadTitle() {
    return text(TextId::uploadTestResults);
}

} // namespace kelvane::testing
