#pragma once

#include "simulators/fluke702/memory.h"
#include "testkit/field_runs.h"
#include "tests/end_to_end/end_to_end.h"

namespace kelvane::testing {

/// A calibration from end to end with the simulated Fluke 702 behind the real link library. The calibrator
/// (F702-01, serial number 6841207) is empty.
class Fluke702EndToEnd : public EndToEndTest {
  protected:
    Fluke702EndToEnd();
    ~Fluke702EndToEnd() override;

    /// Puts instruments into the list that need no standard.
    void list(const QStringList& assets);
    /// Puts the instruments into the list that are read by eye or with a standard.
    void listByEye();
    /// The box that tells that the calibrator can't read the output.
    void expectCantMeasure(const QString& asset);

    /// The technician's work, on the working day.
    void carryOut(const QList<demo::FieldRun>& runs);
    /// The same by a plan of its own.
    void carryOutPlan(const QString& plan);

    /// The operator answers the questions for these runs, and is told where the calibrator disagrees.
    void expectRuns(const QList<demo::FieldRun>& runs);
    /// He answers them in vain: the records are there.
    void expectRefusedRuns(const QList<demo::FieldRun>& runs);
    /// He presses Upload, and these runs make records.
    void upload(const QList<demo::FieldRun>& runs, const QString& message = told::uploaded);
    /// Expects the records of the day to be these, to the letter.
    void expectRecords(const QList<demo::FieldRun>& runs);
    /// The same, and nothing else left behind.
    void expectAftermath(const demo::Aftermath& aftermath);

    /// The library gives these statuses from now on; empty for its own ones.
    static void fault(const QString& faults);

    simulators::fluke702::Memory held() const;
    /// The tags of the tasks that the calibrator holds.
    QStringList heldTags() const;
    /// The operations that the library has heard, and forgets them.
    QStringList takeHeard();

    /// One transmitter, found out of tolerance, and its adjustment.
    static QList<demo::FieldRun> oneRun() { return demo::measuredRuns().first(1); }
    static QList<demo::FieldRun> twoRuns() { return demo::measuredRuns().first(2); }
    static const QStringList& oneInstrument();
};

} // namespace kelvane::testing
