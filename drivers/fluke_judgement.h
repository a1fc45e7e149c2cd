#pragma once

#include "drivers/judgement.h"

namespace kelvane {

/// Judges a run that a documenting calibrator has stored, reading by reading. Each test point stands in it as
/// often as the instrument has repetitions and is judged on the means of its readings. The calibrator has
/// judged each reading too, with one tolerance for the whole range; where the two disagree the operator sees
/// a message.
class RunJudgement {
  public:
    /// The lines of the points go into `record`. `tolerance` is the one that the calibrator knows, in percent
    /// of span.
    RunJudgement(Session& session, CalRecord& record, const CalParamRecord& instrument, double tolerance)
        : session_(session), record_(record), instrument_(instrument), tolerance_(tolerance) {}

    /// Takes the reading of the next entry, whose index counts from 0: what was applied and what was read, in
    /// the instrument's units, and the calibrator's error in percent of span. Error 6 for values that are no
    /// numbers, 11 for an instrument without repetitions.
    void take(int entry, double applied, double reading, double calibratorError);

    const PointCounts& counts() const { return counts_; }

    /// A box for each direction in which workstation and calibrator have disagreed.
    void showDisagreements(const QString& asset) const;

  private:
    void compare(const ErrorResult& result, double reading, double calibratorError);
    void closePoint(int entry);

    Session& session_;
    CalRecord& record_;
    const CalParamRecord& instrument_;
    double tolerance_;
    PointCounts counts_;
    int taken_ = 0;
    double appliedSum_ = 0;
    double readingSum_ = 0;
    bool calibratorSaysPass_ = false;
    bool calibratorSaysFail_ = false;
};

} // namespace kelvane
