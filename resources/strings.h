#pragma once

#include <QString>

namespace kelvane {

/// The text of `id` from the one table of strings that a user sees (ids from 101 on). Line ends are CR LF.
/// An id that is not in the table is a defect of the program; its text is then "#" and the number.
QString text(int id);

/// Lays a second table of the same form (`strings.txt`) over the compiled-in one: a translation. Lines
/// without a number and a tab are passed over, ids unknown to the first table are added. False when the file
/// can't be read.
bool overlayStrings(const QString& path);

} // namespace kelvane
