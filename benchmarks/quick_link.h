#pragma once

#include "drivers/fluke702/dpclnk.h"

#include <QByteArray>

#include <vector>

namespace kelvane::bench {

/// A link library that costs next to nothing but the texts that it writes: its calibrator takes tasks,
/// carries each out once, without an error and with the same pressure module, and has the results ready.
class QuickLink final : public Dpclnk {
  public:
    QString missing() override { return {}; }

    Status DPCopen(qint32, const QString&, qint32, quint8) override { return 0; }
    Status DPCclose() override { return 0; }
    Status DPCget70x(QString& model, QString& serial, QString& text, qint32&, qint32&, qint32&) override;
    Status DPCdnlStart(qint32& count) override { return countNone(count); }
    Status DPCdnlStep(qint32& count) override { return countNone(count); }
    Status DPCuplStart(qint32& count) override { return countNone(count); }
    Status DPCuplStep(qint32& count) override { return countNone(count); }

    Status MEMclear() override { return 0; }
    Status MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                           const float* points) override;
    Status MEMpromptDefn(const QString&, const QString&) override { return 0; }
    Status MEMstartTask(const QString&) override { return 0; }
    Status MEMprompt(const QString&) override { return 0; }
    Status MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag, const QString& serial,
                       qint32 stateId) override;
    Status MEMendTask() override { return 0; }

    Status STAinit() override { return 0; }
    Status STAsetTempUnits(const QString&) override { return 0; }
    Status STAsetTref(const QString&, float) override { return 0; }
    Status STAsetTempStd(const QString&) override { return 0; }
    Status STAsetPresUnits(const QString&) override { return 0; }
    Status STAsetOutput(const QString&, const QString&, float, float) override { return 0; }
    Status STAsetInput(const QString&, const QString&) override { return 0; }
    Status STAsetInputRange(qint16, float) override { return 0; }
    Status STAsetLoopPower(const QString&) override { return 0; }
    Status STAsetOutputScale(float high, float low) override;
    Status STAsetInputScale(float high, float low) override;
    Status STAsetTestTolerance(float) override { return 0; }
    Status STAsave(qint32& stateId) override;

    Status MEMstats(qint32& unused, qint32& count) override;
    Status MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year, qint16& hour,
                   qint16& minute, qint16& second) override;
    Status MEMasflInfo(qint32, qint32&, Open&, Open&) override { return 0; }
    Status MEMbaseState(qint32) override { return 0; }
    Status MEMtagidInfo(qint32 record, QString& tag, QString& serial, QString& technician) override;
    Status MEMcalResult(qint32 record, qint16& entries) override;
    Status MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16& unused2, float& unused3,
                             float& applied, qint16& unused5, float& unused6, float& error) override;
    Status STAgetPressure(QString& model, QString& serial, Open& unused) override;

  private:
    struct Scale {
        float low = 0;
        float high = 0;
        float at(float fraction) const { return low + fraction * (high - low); }
    };
    struct Task {
        QByteArray tag;
        QByteArray serial;
        std::vector<float> points;
        Scale applied;
        Scale read;
    };
    static Status countNone(qint32& count) { return static_cast<Status>(count = 0); }
    const Task& task(qint32 record) const { return tasks_[static_cast<std::size_t>(record)]; }

    std::vector<Task> tasks_;
    /// Of the task to come.
    Task next_;
    qint32 strategies_ = 0;
    qint32 states_ = 0;
};

} // namespace kelvane::bench
