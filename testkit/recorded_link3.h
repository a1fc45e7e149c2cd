#pragma once

#include "drivers/fluke74x/dpclnk3.h"
#include "testkit/recorded_calls.h"

#include <optional>

namespace kelvane::testing {

/// A bucket of a setup state; what its type does not have stays unused.
struct StoredBucket {
    QString name;
    /// 1 float, 2 text, 3 range, 4 unit, 5 integer, 6 time, 7 mapped word.
    qint16 type = 1;
    /// Of a float; the low end of a range.
    float number = 0;
    float high = 0;
    /// Of an integer or a time.
    qint32 whole = 0;
    /// Of a text, a unit or a mapped word.
    QString words = {};
};

/// A bucket of type 1, and one of type 2.
StoredBucket numberBucket(const QString& name, float number);
StoredBucket textBucket(const QString& name, const QString& words);

/// A step of a run: the buckets of the state that it was stored with.
struct StoredStep {
    QList<StoredBucket> buckets = {};
};

/// An atom of the list of results.
struct StoredAtom {
    qint16 kind = 0;
    /// Of a run (kind 4).
    Dpclnk3::RunTime time = {3, 18, 2026, 8, 15, 30};
    QList<StoredStep> steps = {};
    /// The number of steps that the library claims, when a test sets it.
    std::optional<qint16> claimedSteps = {};
    /// Of a tag (kind 11).
    QString tag = {};
    QString serial = {};
    QString technician = {};
};

struct StoredGroup {
    QList<StoredAtom> atoms = {};
    /// The number of atoms that the library claims, when a test sets it.
    std::optional<qint32> claimedAtoms = {};
};

/// A link library `dpclnk3` under the test's control: it plays back the groups it is given and gives out
/// references and ids from 1 on, each sort by itself. The three numbers of a message or a state are one such
/// number, the same plus 100, and plus 200; a strategy that is found has 100 plus its id as its reference.
class RecordedLink3 final : public Dpclnk3, public RecordedCalls {
  public:
    QString model = QStringLiteral("743");
    QString serial = QStringLiteral("7112044");
    QString text = QStringLiteral("V2.1");
    /// What the start of the maps and of a transfer gives as the number of steps, and what each step leaves.
    qint32 mapSteps = 0;
    qint32 steps = 0;
    std::function<qint32(qint32)> nextCount = [](qint32 count) { return count - 1; };
    QList<StoredGroup> groups;
    /// The number of groups, and of buckets of each state, that the library claims, when a test sets them.
    std::optional<qint32> claimedGroups;
    std::optional<qint32> claimedBuckets;

    QString missing() override { return answerQuestion(); }

    Status DPC3open(qint32 baudRate, const QString& port, qint32 constant1000, qint32 constant5) override;
    Status DPC3close() override;
    Status DPC3get74X(QString& modelOut, QString& serialOut, QString& textOut, qint32& number,
                      qint32& unused1, qint32& unused2) override;
    Status DPC3mapStart(qint32& count) override;
    Status DPC3mapStep(qint32& count) override;
    Status DPC3dnlStart(qint32& count) override;
    Status DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) override;
    Status DPC3uplStart(qint32& count) override;
    Status DPC3uplStep(qint32& count) override;

    Status MEM3clear() override;
    Status MEM3startTask(qint32& task, qint32& atom, const QString& tag, const QString& words) override;
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
                                const QString& serialNumber) override;
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

    Status MEM3ngroups(qint32 list, qint32& count) override;
    Status MEM3natoms(qint32 list, qint32 group, qint32& atoms) override;
    Status MEM3groupDir(qint32 list, qint32 group, qint32& reference) override;
    Status MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16& kind, qint32& reference) override;
    Status MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32& results,
                                 qint32& task) override;
    Status MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, QString& tag, QString& serialNumber,
                            QString& technician) override;
    Status MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16& runSteps,
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
    const StoredGroup* groupAt(qint32 group) const;
    const StoredAtom* atomAt(qint32 group, qint32 atom) const;
    const StoredBucket* bucketOf(const QString& name) const;

    qint32 tasks_ = 0;
    qint32 atoms_ = 0;
    qint32 prompts_ = 0;
    qint32 places_ = 0;
    qint32 states_ = 0;
    /// The ids of the strategies that the image holds, by their names.
    QHash<QString, qint32> strategies_;
    qint32 strategyIds_ = 0;
    /// The steps whose states were given out, and the one that is current.
    QList<StoredStep> stepsGiven_;
    StoredStep current_;
};

} // namespace kelvane::testing
