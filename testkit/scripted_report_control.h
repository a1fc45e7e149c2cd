#pragma once

#include "worksheets/report_control.h"

#include <QList>

#include <functional>

namespace kelvane::testing {

/// A report engine without reports: it keeps what it was run with, and answers as a test has set it.
class ScriptedReportControl final : public ReportControl {
  public:
    int run(const ReportRequest& request) override {
        requests << request;
        if (onRun)
            onRun();
        return result;
    }
    QString lastErrorText() const override { return errorText; }

    QList<ReportRequest> requests;
    int result = 0;
    QString errorText;
    /// Runs while the report comes up, when a test sets it.
    std::function<void()> onRun;
};

} // namespace kelvane::testing
