#pragma once

#include "drivers/fluke74x/dpclnk3.h"

#include <QCoreApplication>

#include <memory>

namespace kelvane {

/// The real link library, `dpclnk3.dll` or `libdpclnk3.so`, loaded when `missing` is asked: first from
/// `folder`, which is the program's own, then from where the system looks for libraries, then the simulated
/// one that is installed. Its operations are plain C functions with the names, the order of arguments and the
/// widths of `Dpclnk3`; out arguments are pointers, a structure goes as its members, texts end with a zero.
/// Error 53 for an operation that is called without a library.
class Dpclnk3Library : public Dpclnk3 {
  public:
    explicit Dpclnk3Library(const QString& folder = QCoreApplication::applicationDirPath());
    ~Dpclnk3Library() override;

    QString missing() override;
    QString file() const override;

    Status DPC3open(qint32 baudRate, const QString& port, qint32 constant1000, qint32 constant5) override;
    Status DPC3close() override;
    Status DPC3get74X(QString& model, QString& serial, QString& text, qint32& number, qint32& unused1,
                      qint32& unused2) override;
    Status DPC3mapStart(qint32& count) override;
    Status DPC3mapStep(qint32& count) override;
    Status DPC3dnlStart(qint32& count) override;
    Status DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) override;
    Status DPC3uplStart(qint32& count) override;
    Status DPC3uplStep(qint32& count) override;

    Status MEM3clear() override;
    Status MEM3startTask(qint32& task, qint32& atom, const QString& tag, const QString& text) override;
    Status MEM3promptDefn(PromptNumbers& numbers, const QString& key, const QString& prompt,
                          const QString& style, const QString& font) override;
    Status MEM3promptTemplate(qint32 task, qint32 atom, qint32& place, const PromptNumbers& numbers) override;
    Status MEM3findStrategyDefn(qint32 constant1, const QString& name, qint32& strategy,
                                qint32& strategyId) override;
    Status MEM3strategyDefn(qint32 task, qint32& atom, qint32& strategyId, const QString& name,
                            const float* points, qint16 count) override;
    Status MEM3instrCalTemplate(qint32 task, qint32 atom, qint32& place, qint32 strategy, qint32 strategyAtom,
                                qint32 strategyId, const State& state, qint16 measureByHand,
                                qint16 sourceByHand, qint32 constant2, const QString& tag,
                                const QString& serial) override;
    Status MEM3endTask() override;

    Status STA3beginOps() override;
    Status STA3initOp() override;
    Status STA3setMappedOp(const QString& root, const QString& item, const QString& word) override;
    Status STA3setUnitOp(const QString& root, const QString& item, const QString& unit) override;
    Status STA3setFloatOp(const QString& root, const QString& item, float value) override;
    Status STA3setIntOp(const QString& root, const QString& item, qint32 value) override;
    Status STA3evalOp() override;
    Status STA3saveOps(State& state) override;
    Status STA3freeOps() override;

    Status MEM3ngroups(qint32 list, qint32& groups) override;
    Status MEM3natoms(qint32 list, qint32 group, qint32& atoms) override;
    Status MEM3groupDir(qint32 list, qint32 group, qint32& reference) override;
    Status MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16& kind, qint32& reference) override;
    Status MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32& results,
                                 qint32& task) override;
    Status MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, QString& tag, QString& serial,
                            QString& technician) override;
    Status MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16& steps,
                                  RunTime& time) override;
    Status MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom, qint16 step,
                                      State& state) override;
    Status STA3restore(const State& state) override;

    Status STA3getBktListInfo(const QString& root, qint32& buckets) override;
    Status STA3getBktName(const QString& root, qint16 bucket, QString& name) override;
    Status STA3getType(const QString& root, const QString& bucket, qint16& type) override;
    Status STA3getFloat(const QString& root, const QString& bucket, float& value) override;
    Status STA3getStr(const QString& root, const QString& bucket, QString& value) override;
    Status STA3getRange(const QString& root, const QString& bucket, float& low, float& high) override;
    Status STA3getUnit(const QString& root, const QString& bucket, QString& unit) override;
    Status STA3getInt(const QString& root, const QString& bucket, qint32& value) override;
    Status STA3getTime(const QString& root, const QString& bucket, qint32& value) override;
    Status STA3getMapped(const QString& root, const QString& bucket, QString& word) override;

  private:
    struct Operations;
    std::unique_ptr<Operations> library_;
};

} // namespace kelvane
