#pragma once

#include <QString>

namespace kelvane::bench {

/// Ends the program with these words: a figure taken from work that failed is none.
[[noreturn]] void giveUp(const QString& what);

/// Ends the program with these words unless the condition holds.
inline void require(bool holds, const QString& what) {
    if (!holds)
        giveUp(what);
}

} // namespace kelvane::bench
