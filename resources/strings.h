#pragma once

#include <QString>

namespace kelvane {

/// The texts by name; the names stand in `resources/text_id.h`, which is made from `strings.txt`.
enum class TextId : int;

/// The text of `id` from the one table of strings that a user sees (numbers from 101 on). Line ends are
/// CR LF. The text of a number that is not in the table is "#" and the number.
QString text(TextId id);

/// Lays a translation over the table: lines of a number, a tab and the text. Lines without a number and a
/// tab are passed over, numbers unknown to the table are added. False when the file can't be read.
bool overlayStrings(const QString& path);

} // namespace kelvane
