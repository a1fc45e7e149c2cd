#include "drivers/fluke74x/logged_dpclnk3.h"

#include "drivers/fluke74x/link.h"
#include "drivers/logged_calls.h"

namespace kelvane {

static QString loggedText(const Dpclnk3::State& state) {
    return loggedNumbers({state.first, state.second, state.third});
}

static QString loggedText(const Dpclnk3::RunTime& time) {
    return loggedNumbers({time.month, time.day, time.year, time.hour, time.minute, time.second});
}

namespace {

class LoggedDpclnk3 final : public Dpclnk3 {
  public:
    LoggedDpclnk3(Dpclnk3& real, const LinkLog& log)
        : log_(log), call_(real, log.log, Module74xInterface::statusName) {}

    QString missing() override {
        const auto missing = call_.link().missing();
        return log_.begin(missing, file());
    }
    QString file() const override { return call_.link().file(); }

    Status DPC3open(qint32 baudRate, const QString& port, qint32 constant1000, qint32 constant5) override;
    Status DPC3close() override { return call_("DPC3close", &Dpclnk3::DPC3close); }
    Status DPC3get74X(QString& model, QString& serial, QString& text, qint32& number, qint32& unused1,
                      qint32& unused2) override {
        return call_("DPC3get74X", &Dpclnk3::DPC3get74X, model, serial, text, number, unused1, unused2);
    }
    Status DPC3mapStart(qint32& count) override {
        return call_("DPC3mapStart", &Dpclnk3::DPC3mapStart, count);
    }
    Status DPC3mapStep(qint32& count) override { return call_("DPC3mapStep", &Dpclnk3::DPC3mapStep, count); }
    Status DPC3dnlStart(qint32& count) override {
        return call_("DPC3dnlStart", &Dpclnk3::DPC3dnlStart, count);
    }
    Status DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) override {
        return call_("DPC3dnlStep", &Dpclnk3::DPC3dnlStep, count, kept1, kept2, kept3);
    }
    Status DPC3uplStart(qint32& count) override {
        return call_("DPC3uplStart", &Dpclnk3::DPC3uplStart, count);
    }
    Status DPC3uplStep(qint32& count) override { return call_("DPC3uplStep", &Dpclnk3::DPC3uplStep, count); }
    Status MEM3clear() override { return call_("MEM3clear", &Dpclnk3::MEM3clear); }
    Status MEM3startTask(qint32& task, qint32& atom, const QString& tag, const QString& text) override {
        return call_("MEM3startTask", &Dpclnk3::MEM3startTask, task, atom, tag, text);
    }
    Status MEM3promptDefn(PromptNumbers& numbers, const QString& key, const QString& prompt,
                          const QString& style, const QString& font) override {
        return call_("MEM3promptDefn", &Dpclnk3::MEM3promptDefn, numbers, key, prompt, style, font);
    }
    Status MEM3promptTemplate(qint32 task, qint32 atom, qint32& place,
                              const PromptNumbers& numbers) override {
        return call_("MEM3promptTemplate", &Dpclnk3::MEM3promptTemplate, task, atom, place, numbers);
    }
    Status MEM3findStrategyDefn(qint32 constant1, const QString& name, qint32& strategy,
                                qint32& strategyId) override {
        return call_("MEM3findStrategyDefn", &Dpclnk3::MEM3findStrategyDefn, constant1, name, strategy,
                     strategyId);
    }
    Status MEM3strategyDefn(qint32 task, qint32& atom, qint32& strategyId, const QString& name,
                            const float* points, qint16 count) override {
        return call_("MEM3strategyDefn", &Dpclnk3::MEM3strategyDefn, task, atom, strategyId, name, points,
                     count);
    }
    Status MEM3instrCalTemplate(qint32 task, qint32 atom, qint32& place, qint32 strategy, qint32 strategyAtom,
                                qint32 strategyId, const State& state, qint16 measureByHand,
                                qint16 sourceByHand, qint32 constant2, const QString& tag,
                                const QString& serial) override {
        return call_("MEM3instrCalTemplate", &Dpclnk3::MEM3instrCalTemplate, task, atom, place, strategy,
                     strategyAtom, strategyId, state, measureByHand, sourceByHand, constant2, tag, serial);
    }
    Status MEM3endTask() override { return call_("MEM3endTask", &Dpclnk3::MEM3endTask); }
    Status STA3beginOps() override { return call_("STA3beginOps", &Dpclnk3::STA3beginOps); }
    Status STA3initOp() override { return call_("STA3initOp", &Dpclnk3::STA3initOp); }
    Status STA3setMappedOp(const QString& root, const QString& item, const QString& word) override {
        return call_("STA3setMappedOp", &Dpclnk3::STA3setMappedOp, root, item, word);
    }
    Status STA3setUnitOp(const QString& root, const QString& item, const QString& unit) override {
        return call_("STA3setUnitOp", &Dpclnk3::STA3setUnitOp, root, item, unit);
    }
    Status STA3setFloatOp(const QString& root, const QString& item, float value) override {
        return call_("STA3setFloatOp", &Dpclnk3::STA3setFloatOp, root, item, value);
    }
    Status STA3setIntOp(const QString& root, const QString& item, qint32 value) override {
        return call_("STA3setIntOp", &Dpclnk3::STA3setIntOp, root, item, value);
    }
    Status STA3evalOp() override { return call_("STA3evalOp", &Dpclnk3::STA3evalOp); }
    Status STA3saveOps(State& state) override { return call_("STA3saveOps", &Dpclnk3::STA3saveOps, state); }
    Status STA3freeOps() override { return call_("STA3freeOps", &Dpclnk3::STA3freeOps); }
    Status MEM3ngroups(qint32 list, qint32& groups) override {
        return call_("MEM3ngroups", &Dpclnk3::MEM3ngroups, list, groups);
    }
    Status MEM3natoms(qint32 list, qint32 group, qint32& atoms) override {
        return call_("MEM3natoms", &Dpclnk3::MEM3natoms, list, group, atoms);
    }
    Status MEM3groupDir(qint32 list, qint32 group, qint32& reference) override {
        return call_("MEM3groupDir", &Dpclnk3::MEM3groupDir, list, group, reference);
    }
    Status MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16& kind, qint32& reference) override {
        return call_("MEM3atomDir", &Dpclnk3::MEM3atomDir, list, group, atom, kind, reference);
    }
    Status MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32& results,
                                 qint32& task) override {
        return call_("MEM3taskResultRefInfo", &Dpclnk3::MEM3taskResultRefInfo, list, group, atom, results,
                     task);
    }
    Status MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, QString& tag, QString& serial,
                            QString& technician) override {
        return call_("MEM3instrTagInfo", &Dpclnk3::MEM3instrTagInfo, list, group, atom, tag, serial,
                     technician);
    }
    Status MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16& steps,
                                  RunTime& time) override {
        return call_("MEM3instrCalResultInfo", &Dpclnk3::MEM3instrCalResultInfo, list, group, atom, steps,
                     time);
    }
    Status MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom, qint16 step,
                                      State& state) override {
        return call_("MEM3instrCalResultStepInfo", &Dpclnk3::MEM3instrCalResultStepInfo, list, group, atom,
                     step, state);
    }
    Status STA3restore(const State& state) override {
        return call_("STA3restore", &Dpclnk3::STA3restore, state);
    }
    Status STA3getBktListInfo(const QString& root, qint32& buckets) override {
        return call_("STA3getBktListInfo", &Dpclnk3::STA3getBktListInfo, root, buckets);
    }
    Status STA3getBktName(const QString& root, qint16 bucket, QString& name) override {
        return call_("STA3getBktName", &Dpclnk3::STA3getBktName, root, bucket, name);
    }
    Status STA3getType(const QString& root, const QString& bucket, qint16& type) override {
        return call_("STA3getType", &Dpclnk3::STA3getType, root, bucket, type);
    }
    Status STA3getFloat(const QString& root, const QString& bucket, float& value) override {
        return call_("STA3getFloat", &Dpclnk3::STA3getFloat, root, bucket, value);
    }
    Status STA3getStr(const QString& root, const QString& bucket, QString& value) override {
        return call_("STA3getStr", &Dpclnk3::STA3getStr, root, bucket, value);
    }
    Status STA3getRange(const QString& root, const QString& bucket, float& low, float& high) override {
        return call_("STA3getRange", &Dpclnk3::STA3getRange, root, bucket, low, high);
    }
    Status STA3getUnit(const QString& root, const QString& bucket, QString& unit) override {
        return call_("STA3getUnit", &Dpclnk3::STA3getUnit, root, bucket, unit);
    }
    Status STA3getInt(const QString& root, const QString& bucket, qint32& value) override {
        return call_("STA3getInt", &Dpclnk3::STA3getInt, root, bucket, value);
    }
    Status STA3getTime(const QString& root, const QString& bucket, qint32& value) override {
        return call_("STA3getTime", &Dpclnk3::STA3getTime, root, bucket, value);
    }
    Status STA3getMapped(const QString& root, const QString& bucket, QString& word) override {
        return call_("STA3getMapped", &Dpclnk3::STA3getMapped, root, bucket, word);
    }

  private:
    LinkLog log_;
    LoggedCalls<Dpclnk3> call_;
};

Dpclnk3::Status LoggedDpclnk3::DPC3open(qint32 baudRate, const QString& port, qint32 constant1000,
                                        qint32 constant5) {
    const auto status = call_("DPC3open", &Dpclnk3::DPC3open, baudRate, port, constant1000, constant5);
    log_.setOpening(port, status, Module74xInterface::statusWords(status));
    return status;
}

} // namespace

std::unique_ptr<Dpclnk3> loggedDpclnk3(Dpclnk3& real, const LinkLog& log) {
    return std::make_unique<LoggedDpclnk3>(real, log);
}

} // namespace kelvane
