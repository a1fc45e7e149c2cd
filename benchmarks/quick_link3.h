#pragma once

#include "drivers/fluke74x/dpclnk3.h"

#include <QByteArray>
#include <QHash>

#include <vector>

namespace kelvane::bench {

/// A link library `dpclnk3` that costs next to nothing but the texts that it writes: its calibrator takes
/// tasks, carries each out once, without an error and with the same pressure module, and has the results
/// ready, with as many buckets a step as a state has items.
class QuickLink3 final : public Dpclnk3 {
  public:
    QString missing() override { return {}; }

    Status DPC3open(qint32, const QString&, qint32, qint32) override { return 0; }
    Status DPC3close() override { return 0; }
    Status DPC3get74X(QString& model, QString& serial, QString& text, qint32&, qint32&, qint32&) override;
    Status DPC3mapStart(qint32& count) override { return countNone(count); }
    Status DPC3mapStep(qint32& count) override { return countNone(count); }
    Status DPC3dnlStart(qint32& count) override { return countNone(count); }
    Status DPC3dnlStep(qint32& count, qint32&, qint32&, qint32&) override { return countNone(count); }
    Status DPC3uplStart(qint32& count) override { return countNone(count); }
    Status DPC3uplStep(qint32& count) override { return countNone(count); }

    Status MEM3clear() override { return 0; }
    Status MEM3startTask(qint32&, qint32&, const QString&, const QString&) override { return 0; }
    Status MEM3promptDefn(PromptNumbers&, const QString&, const QString&, const QString&,
                          const QString&) override {
        return 0;
    }
    Status MEM3promptTemplate(qint32, qint32, qint32&, const PromptNumbers&) override { return 0; }
    Status MEM3findStrategyDefn(qint32, const QString& name, qint32& strategy, qint32& strategyId) override;
    Status MEM3strategyDefn(qint32, qint32&, qint32& strategyId, const QString& name, const float* points,
                            qint16 count) override;
    Status MEM3instrCalTemplate(qint32, qint32, qint32&, qint32, qint32, qint32 strategyId, const State&,
                                qint16, qint16, qint32, const QString& tag, const QString& serial) override;
    Status MEM3endTask() override { return 0; }

    Status STA3beginOps() override { return 0; }
    Status STA3initOp() override { return 0; }
    Status STA3setMappedOp(const QString&, const QString&, const QString&) override { return 0; }
    Status STA3setUnitOp(const QString&, const QString&, const QString&) override { return 0; }
    Status STA3setFloatOp(const QString&, const QString& item, float value) override;
    Status STA3setIntOp(const QString&, const QString&, qint32) override { return 0; }
    Status STA3evalOp() override { return 0; }
    Status STA3saveOps(State&) override { return 0; }
    Status STA3freeOps() override { return 0; }

    Status MEM3ngroups(qint32, qint32& groups) override;
    Status MEM3natoms(qint32, qint32 group, qint32& atoms) override;
    Status MEM3groupDir(qint32, qint32, qint32&) override { return 0; }
    Status MEM3atomDir(qint32, qint32 group, qint32 atom, qint16& kind, qint32&) override;
    Status MEM3taskResultRefInfo(qint32, qint32, qint32, qint32&, qint32&) override { return 0; }
    Status MEM3instrTagInfo(qint32, qint32 group, qint32, QString& tag, QString& serial,
                            QString& technician) override;
    Status MEM3instrCalResultInfo(qint32, qint32 group, qint32, qint16& steps, RunTime& time) override;
    Status MEM3instrCalResultStepInfo(qint32, qint32 group, qint32, qint16 step, State& state) override;
    Status STA3restore(const State& state) override;

    Status STA3getBktListInfo(const QString&, qint32& buckets) override;
    Status STA3getBktName(const QString&, qint16 bucket, QString& name) override;
    Status STA3getType(const QString&, const QString& bucket, qint16& type) override;
    Status STA3getFloat(const QString&, const QString& bucket, float& value) override;
    Status STA3getStr(const QString&, const QString&, QString& value) override;
    Status STA3getRange(const QString&, const QString&, float&, float&) override { return 0; }
    Status STA3getUnit(const QString&, const QString&, QString& unit) override;
    Status STA3getInt(const QString&, const QString&, qint32&) override { return 0; }
    Status STA3getTime(const QString&, const QString&, qint32&) override { return 0; }
    Status STA3getMapped(const QString&, const QString&, QString& word) override;

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
        Scale sourced;
        Scale measured;
    };
    static Status countNone(qint32& count) { return static_cast<Status>(count = 0); }
    const Task& task(qint32 group) const { return tasks_[static_cast<std::size_t>(group)]; }

    std::vector<Task> tasks_;
    /// Of the task to come.
    Task next_;
    QHash<QString, qint32> strategyIds_;
    std::vector<std::vector<float>> strategies_;
    /// The restored step.
    float sourced_ = 0;
    float measured_ = 0;
};

} // namespace kelvane::bench
