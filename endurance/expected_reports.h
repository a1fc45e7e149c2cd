#pragma once

#include "endurance/act_log.h"

namespace kelvane::endure {

/// Judges what one station has shown its operator. It knows what faults lead to that were planned, and what
/// stations meet of each other. Everything else is a finding.
class ReportJudge {
  public:
    /// `connectionsEnd`: somebody ends connections to the database while stations act.
    explicit ReportJudge(bool connectionsEnd) : connectionsEnd_(connectionsEnd) {}

    /// Takes the next line of the station's log. False for a report, a message or a refused login that
    /// nothing explains.
    bool explains(const ActLine& line);

  private:
    bool isShownExpected(const ActLine& line);

    bool connectionsEnd_;
    bool isFinishing_ = false;
    /// What was planned for the act, and whether something has failed in it.
    bool hasFault_ = false;
    bool hasBrokenReply_ = false;
    bool hasFailed_ = false;
    /// The connection may end between two acts, too.
    bool isInAct_ = false;
    bool failedBefore_ = false;
};

} // namespace kelvane::endure
