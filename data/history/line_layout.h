#pragma once

#include "data/session.h"

#include <array>
#include <optional>

namespace kelvane {

/// The texts of a result line's fields, in the order of `resultFields`; empty for a field without a tag.
using LineFields = std::array<QString, resultFields.size()>;

/// Takes a stored line apart by the columns and substitutions of the session's template, as `ResultLine` has
/// put it together; blanks in front and substitutions are undone. Nothing when the line can't have come from
/// that template, or when more than one value of a field could have led to it: a value that reaches the next
/// column may have lost its end there or the other its beginning; a substitution may have dropped what it
/// replaced, or have moved what was written before it; a column lies beyond the end of the line. Comment,
/// units and verdict are those that the program writes. The line that `ResultLine` makes of the fields is the
/// stored one, but for blanks at the end.
std::optional<LineFields> fieldsOfLine(Session& session, const QString& stored);

} // namespace kelvane
