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
    /// Puts the instruments into the list that are read manually or with a standard.
    void listManualRuns();
    /// The box that says that the calibrator can't read the output.
    void expectCantMeasure(const QString& asset);

    /// The technician's work, on the working day.
    void carryOut(const QList<demo::FieldRun>& runs);
    /// The same by a plan of its own.
    void carryOutPlan(const QString& plan);

    /// The operator answers the questions for these runs, and sees where the calibrator disagrees.
    void expectRuns(const QList<demo::FieldRun>& runs);
    /// His answers change nothing: the records exist already.
    void expectRefusedRuns(const QList<demo::FieldRun>& runs);
    /// He presses Upload, and these runs make records.
    void upload(const QList<demo::FieldRun>& runs, const QString& message = messages::uploaded);
    /// Expects the records of the day to be exactly these.
    void expectRecords(const QList<demo::FieldRun>& runs);
    /// The same, and nothing else left behind.
    void expectRecordsAfter(const demo::ExpectedRecords& expectedRecords);

    /// The library gives these statuses from now on; empty for its own ones.
    static void fault(const QString& faults);

    simulators::fluke702::Memory held() const;
    /// The tags of the tasks that the calibrator holds.
    QStringList storedTags() const;
    /// The operations that the library has received; their list is then empty.
    QStringList takeHeard();

    /// One transmitter, found out of tolerance, and its adjustment.
    static QList<demo::FieldRun> singleRun() { return demo::measuredRuns().first(1); }
    static QList<demo::FieldRun> twoRuns() { return demo::measuredRuns().first(2); }
    static const QStringList& singleInstrument();
};

} // namespace kelvane::testing
