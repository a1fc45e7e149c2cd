#pragma once

#include "drivers/fluke702/dpclnk.h"
#include "testkit/recorded_calls.h"

#include <optional>

namespace kelvane::testing {

/// A point of a stored run.
struct ResultEntry {
    float reading = 0;
    float applied = 0;
    float error = 0;
};

/// A run that the calibrator has stored.
struct StoredRun {
    qint16 kind = 1;
    qint16 month = 3;
    qint16 day = 18;
    qint16 year = 2026;
    qint16 hour = 8;
    qint16 minute = 15;
    qint16 second = 30;
    QString tag = {};
    QString serial = {};
    QString technician = {};
    QString pressureModule = {};
    QList<ResultEntry> entries = {};
};

/// A link library `dpclnk` under the test's control: it plays back the runs it is given and gives out ids
/// from 1 on.
class RecordedLink final : public Dpclnk, public RecordedCalls {
  public:
    QString model = QStringLiteral("702");
    QString serial = QStringLiteral("6841207");
    QString text = QStringLiteral("V1.0");
    /// What the start of a transfer gives as the number of steps, and what each step leaves.
    qint32 steps = 0;
    std::function<qint32(qint32)> nextCount = [](qint32 count) { return count - 1; };
    QList<StoredRun> runs;
    /// The number of runs that the library claims to hold, when a test sets it.
    std::optional<qint32> storedRuns;

    QString missing() override;
    Status DPCopen(qint32 baudRate, const QString& port, qint32 constant1000, quint8 constant5) override;
    Status DPCclose() override;
    Status DPCget70x(QString& modelOut, QString& serialOut, QString& textOut, qint32& number, qint32& unused1,
                     qint32& unused2) override;
    Status DPCdnlStart(qint32& count) override;
    Status DPCdnlStep(qint32& count) override;
    Status DPCuplStart(qint32& count) override;
    Status DPCuplStep(qint32& count) override;
    Status MEMclear() override;
    Status MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                           const float* points) override;
    Status MEMpromptDefn(const QString& key, const QString& prompt) override;
    Status MEMstartTask(const QString& tag) override;
    Status MEMprompt(const QString& key) override;
    Status MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag, const QString& serialNumber,
                       qint32 stateId) override;
    Status MEMendTask() override;
    Status STAinit() override;
    Status STAsetTempUnits(const QString& units) override;
    Status STAsetTref(const QString& mode, float temperature) override;
    Status STAsetTempStd(const QString& standard) override;
    Status STAsetPresUnits(const QString& units) override;
    Status STAsetOutput(const QString& mode, const QString& sensor, float value, float amplitude) override;
    Status STAsetInput(const QString& mode, const QString& sensor) override;
    Status STAsetInputRange(qint16 automatic, float top) override;
    Status STAsetLoopPower(const QString& power) override;
    Status STAsetOutputScale(float high, float low) override;
    Status STAsetInputScale(float high, float low) override;
    Status STAsetTestTolerance(float percent) override;
    Status STAsave(qint32& stateId) override;
    Status MEMstats(qint32& unused, qint32& count) override;
    Status MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year, qint16& hour,
                   qint16& minute, qint16& second) override;
    Status MEMasflInfo(qint32 record, qint32& unused1, qint32& unused2, qint32& unused3) override;
    Status MEMbaseState(qint32 record) override;
    Status MEMtagidInfo(qint32 record, QString& tag, QString& serialNumber, QString& technician) override;
    Status MEMcalResult(qint32 record, qint16& entries) override;
    Status MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16& unused2, float& unused3,
                             float& applied, qint16& unused5, float& unused6, float& error) override;
    Status STAgetPressure(QString& modelOut, QString& serialOut, qint32& unused) override;

  private:
    const StoredRun* run(qint32 index) const;

    qint32 strategies_ = 0;
    qint32 states_ = 0;
    qint32 current_ = -1;
};

} // namespace kelvane::testing
