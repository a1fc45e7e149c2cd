#pragma once

#include "testkit/field_runs.h"
#include "tests/end_to_end/end_to_end.h"
#include "tests/end_to_end/simulated_fluke.h"

namespace kelvane::testing {

/// A calibration from end to end with the simulated calibrator of this test program behind the real link
/// library. The calibrator is empty.
class FlukeEndToEnd : public EndToEndTest {
  protected:
    FlukeEndToEnd();
    ~FlukeEndToEnd() override;

    /// Puts instruments into the list that need no standard.
    void list(const QStringList& assets);
    /// Puts the instruments of runs into the list, with their standards.
    void listRuns(const QList<demo::FieldRun>& runs);

    /// The technician's work, on the working day.
    void carryOut(const QList<demo::FieldRun>& runs);
    /// The same by a plan of its own.
    void carryOutPlan(const QString& plan) { calibrator.carryOut(simulatorFolder.memory(), plan); }

    /// The operator answers the questions for these runs, and sees where the calibrator disagrees.
    void expectRuns(const QList<demo::FieldRun>& runs);
    /// His answers change nothing: the records exist already.
    void expectRefusedRuns(const QList<demo::FieldRun>& runs);
    /// He presses Upload, and these runs make records.
    void upload(const QList<demo::FieldRun>& runs, const QString& message = messages::uploaded());
    /// Expects the records of the day to be exactly these, with the registry as it is.
    void expectRecords(const QList<demo::FieldRun>& runs);
    /// The same, and nothing else left behind.
    void expectRecordsAfter(const QList<demo::FieldRun>& runs);

    /// The library gives these statuses from now on; empty for its own ones.
    void fault(const QString& faults) { setVariable("_FAULTS", faults); }

    HeldTasks held() const { return calibrator.held(simulatorFolder.memory()); }
    /// The tags of the tasks that the calibrator holds.
    QStringList storedTags() const { return held().tags; }
    /// The calls that the library has received; their list is then empty.
    QStringList takeCalls();
    /// Their operations.
    QStringList takeHeard();

    /// One transmitter, found out of tolerance, and its adjustment.
    QList<demo::FieldRun> singleRun() const { return calibrator.runs.measured.first(1); }
    QList<demo::FieldRun> twoRuns() const { return calibrator.runs.measured.first(2); }
    static const QStringList& singleInstrument();

    const SimulatedFluke& calibrator = flukeUnderTest();

  private:
    void setVariable(const char* name, const QString& value) const;
    void expectRecords(const demo::ExpectedRecords& expectedRecords);
};

} // namespace kelvane::testing
