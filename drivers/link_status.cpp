#include "drivers/link_status.h"

#include "resources/strings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

std::optional<QString> linkStatusText(std::span<const LinkStatus> statuses, qint16 code) {
    const auto found =
        std::find_if(statuses.begin(), statuses.end(), [&](const auto& one) { return one.code == code; });
    if (found == statuses.end())
        return {};
    return text(found->message) + u" ("_s + found->name.toString() + u')';
}

} // namespace kelvane
