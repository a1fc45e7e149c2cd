#pragma once

#include "resources/strings.h"

#include <QString>

#include <optional>
#include <span>

namespace kelvane {

/// A status of a link library: its number, the string of its message, and its name.
struct LinkStatus {
    qint16 code;
    TextId message;
    QStringView name;
};

/// The message and the name in parentheses, such as "Insufficient Memory (DPCERR_MEMORY_SIZE)"; nothing for a
/// code that is not in the table.
std::optional<QString> linkStatusText(std::span<const LinkStatus> statuses, qint16 code);

} // namespace kelvane
