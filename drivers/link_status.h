#pragma once

#include "data/session.h"
#include "resources/text_id.h"

#include <optional>
#include <span>
#include <utility>

namespace kelvane {

/// A status of a link library: its number, its message, and its name.
struct LinkStatus {
    qint16 code;
    TextId message;
    QStringView name;
};

/// The statuses of one link library, and which of them the operator sees at once.
struct LinkStatuses {
    std::span<const LinkStatus> table;
    /// The words for a code that is not in the table; without them such a code has none.
    std::optional<TextId> unknown;
    /// The codes, from the first to the last, that are shown; all others are for the caller.
    qint16 firstShown;
    qint16 lastShown;
};

/// The message and the name in parentheses, such as "Insufficient Memory (DPCERR_MEMORY_SIZE)"; nothing for a
/// code that is not in the table.
std::optional<QString> linkStatusText(std::span<const LinkStatus> statuses, qint16 code);

/// The name alone, which is the same in every language; empty for a code that is not in the table.
QString linkStatusName(std::span<const LinkStatus> statuses, qint16 code);

/// The text for a status. Those for the operator are shown in a box, with `name` (an asset number or nothing)
/// before them, and the result is empty; the others are the result.
QString reportStatus(Session& session, const LinkStatuses& statuses, qint16 code, const QString& name);

/// The errors: an operation that gives one of these ends the current work.
constexpr bool isFatal(qint16 status) {
    return status >= 2000;
}

/// The rule for what a link library answers while an instrument is written: nothing is said of 0, a warning
/// is shown and passed over, an error ends the work.
class StatusRule {
  public:
    /// Gives the words for a status that concerns an asset, or shows them.
    using Report = QString (*)(Session& session, qint16 status, const QString& asset);

    StatusRule(Session& session, Report report, QString asset = {})
        : session_(session), report_(report), asset_(std::move(asset)) {}

    /// The statuses to come concern this asset.
    void setAsset(const QString& asset) { asset_ = asset; }

    /// True when the work continues after this status.
    bool passes(qint16 status);
    /// The text of the error, which may be empty.
    const QString& failure() const { return failure_; }

  private:
    Session& session_;
    Report report_;
    QString asset_;
    QString failure_;
};

} // namespace kelvane
