#include "drivers/link_status.h"

#include "drivers/download_note.h"
#include "resources/strings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

std::optional<QString> linkStatusText(std::span<const LinkStatus> statuses, qint16 code) {
    const auto found = std::ranges::find(statuses, code, &LinkStatus::code);
    if (found == statuses.end())
        return {};
    return text(found->message) + u" ("_s + found->name.toString() + u')';
}

QString linkStatusName(std::span<const LinkStatus> statuses, qint16 code) {
    const auto found = std::ranges::find(statuses, code, &LinkStatus::code);
    return found == statuses.end() ? QString() : found->name.toString();
}

QString reportStatus(Session& session, const LinkStatuses& statuses, qint16 code, const QString& name) {
    const auto unknown = statuses.unknown ? text(*statuses.unknown) : QString();
    const auto words = linkStatusText(statuses.table, code).value_or(unknown);
    if (code < statuses.firstShown || code > statuses.lastShown)
        return words;
    showDownloadNote(session.ui, name, words);
    return {};
}

bool StatusRule::passes(qint16 status) {
    if (status == 0)
        return true;
    const auto words = report_(session_, status, asset_);
    if (!isFatal(status))
        return true;
    failure_ = words;
    return false;
}

} // namespace kelvane
