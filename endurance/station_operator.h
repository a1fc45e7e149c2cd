#pragma once

#include "endurance/act_log.h"
#include "testkit/quiet_operator.h"

#include <functional>
#include <optional>

namespace kelvane::endure {

/// The operator of a station: chooses the Fluke 702, agrees to what is proposed, and notes errors.
class StationOperator final : public testing::QuietOperator {
  public:
    explicit StationOperator(ActLog& log) : log_(log) {}

    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override;
    QString askOneField(const DialogQuestion& question) override;

    /// Asked before anything else; nothing leaves the answer to the operator.
    std::function<std::optional<QString>(const DialogQuestion&)> answer;
    bool hasUploaded = false;
    bool hasDownloaded = false;

  private:
    ActLog& log_;
};

} // namespace kelvane::endure
