#pragma once

#include "drivers/fluke702/link.h"

#include <utility>

namespace kelvane::Module702Interface {

/// The rule for what the library answers while an instrument is written: nothing is said of 0, a warning is
/// shown and passed over, an error ends the download.
class StatusRule {
  public:
    StatusRule(Session& session, QString asset) : session_(session), asset_(std::move(asset)) {}

    /// True when the work goes on after this status.
    bool passes(Dpclnk::Status status) {
        if (status == 0)
            return true;
        const auto words = DPCStatusText(session_, status, asset_);
        if (!isFatal(status))
            return true;
        failure_ = words;
        return false;
    }
    /// The words of the error, which may be none.
    const QString& failure() const { return failure_; }

  private:
    Session& session_;
    QString asset_;
    QString failure_;
};

} // namespace kelvane::Module702Interface
