#pragma once

#include "simulators/common/link_calls.h"
#include "simulators/fluke74x/operations.h"
#include "simulators/fluke74x/transfer.h"

namespace kelvane::simulators::fluke74x {

/// The link library of the calibrator: its operations as a workstation calls them. Nothing that is passed
/// does any harm: a null pointer, a text without end or a number that is none is refused. A text goes out
/// with its terminating zero into a buffer of the length that is passed with it, or of 33.
class Library : public LinkCalls {
  public:
    explicit Library(const Environment& environment = {});

    Status DPC3open(qint32 baudRate, const char* port, qint32 timing, qint32 tries);
    Status DPC3close();
    Status DPC3get74X(char* model, qint32 modelLength, char* serial, qint32 serialLength, char* text,
                      qint32 textLength, qint32* number, qint32* second, qint32* third);
    Status DPC3mapStart(qint32* count);
    Status DPC3mapStep(qint32* count);
    Status DPC3dnlStart(qint32* count);
    /// The last three have to be what the step before left in them, at first 0.
    Status DPC3dnlStep(qint32* count, qint32* kept1, qint32* kept2, qint32* kept3);
    Status DPC3uplStart(qint32* count);
    Status DPC3uplStep(qint32* count);

    Status MEM3clear();
    Status MEM3startTask(qint32* task, qint32* atom, const char* tag, const char* text);
    Status MEM3promptDefn(qint32* first, qint32* second, qint32* third, const char* key, const char* prompt,
                          const char* style, const char* font);
    Status MEM3promptTemplate(qint32 task, qint32 atom, qint32* place, qint32 first, qint32 second,
                              qint32 third);
    Status MEM3findStrategyDefn(qint32 kind, const char* name, qint32* strategy, qint32* strategyId);
    /// The task's atom goes in, the strategy's comes out.
    Status MEM3strategyDefn(qint32 task, qint32* atom, qint32* strategyId, const char* name,
                            const float* points, qint16 count);
    /// The strategy's two references are not looked at, its id is.
    Status MEM3instrCalTemplate(qint32 task, qint32 atom, qint32* place, qint32 strategy, qint32 strategyAtom,
                                qint32 strategyId, qint32 state1, qint32 state2, qint32 state3,
                                qint16 measureByHand, qint16 sourceByHand, qint32 kind, const char* tag,
                                const char* serial);
    Status MEM3endTask();

    Status STA3beginOps();
    Status STA3initOp();
    Status STA3setMappedOp(const char* root, const char* item, const char* word);
    Status STA3setUnitOp(const char* root, const char* item, const char* unit);
    Status STA3setFloatOp(const char* root, const char* item, float value);
    Status STA3setIntOp(const char* root, const char* item, qint32 value);
    Status STA3evalOp();
    Status STA3saveOps(qint32* first, qint32* second, qint32* third);
    Status STA3freeOps();

    Status MEM3ngroups(qint32 list, qint32* groups);
    Status MEM3natoms(qint32 list, qint32 group, qint32* atoms);
    Status MEM3groupDir(qint32 list, qint32 group, qint32* reference);
    Status MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16* kind, qint32* reference);
    Status MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32* results, qint32* task);
    Status MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, char* tag, char* serial,
                            char* technician);
    Status MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16* steps, qint16* month,
                                  qint16* day, qint16* year, qint16* hour, qint16* minute, qint16* second);
    Status MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom, qint16 step, qint32* first,
                                      qint32* second, qint32* third);
    Status STA3restore(qint32 first, qint32 second, qint32 third);

    Status STA3getBktListInfo(const char* root, qint32* buckets);
    Status STA3getBktName(const char* root, qint16 bucket, char* name, qint32 length);
    Status STA3getType(const char* root, const char* bucket, qint16* type);
    Status STA3getFloat(const char* root, const char* bucket, float* value);
    Status STA3getStr(const char* root, const char* bucket, char* value, qint32 length);
    Status STA3getRange(const char* root, const char* bucket, float* low, float* high);
    Status STA3getUnit(const char* root, const char* bucket, char* unit, qint32 length);
    Status STA3getInt(const char* root, const char* bucket, qint32* value);
    Status STA3getTime(const char* root, const char* bucket, qint32* value);
    Status STA3getMapped(const char* root, const char* bucket, char* word, qint32 length);

  private:
    template <class Work, class... Values>
    Status call(const char* operation, Code unreachable, Work work, const Values&... values) {
        return carryOut(operation, unreachable, work, values...);
    }
    template <class Work, class... Values>
    Status call(const char* operation, Work work, const Values&... values) {
        return carryOut(operation, OutOfStep, work, values...);
    }
    /// An operation on a setup state, which needs the maps.
    template <class Work, class... Values>
    Status stateCall(const char* operation, Work work, const Values&... values) {
        return call(
            operation, [&] { return maps_.areThere() ? work() : NoMaps; }, values...);
    }
    template <class Given>
    Status setItem(const char* operation, const char* root, const char* item, Given given,
                   Value (*valueOf)(Given));
    /// What reads the current state: `work` gets its buckets.
    template <class Work>
    Code onState(const char* root, Work work);
    /// `take` gets the value of a bucket of the current state.
    template <class Take>
    Status withBucket(const char* operation, const char* root, const char* bucket, Take take);
    /// It has to be of that type.
    template <class Kept, class Take>
    Status readBucket(const char* operation, const char* root, const char* bucket, Take take);
    /// One that reads an atom of a kind.
    template <class Work, class... Values>
    Status atomCall(const char* operation, qint32 list, qint32 group, qint32 atom, qint16 kind, Work work,
                    const Values&... values);
    const Run& runOf(const Atom& atom) const { return image_.contents().runs[atom.run]; }

    Image image_;
    Transfer transfer_{image_};
    KeptNumbers kept_;
    MapFetch maps_;
};

} // namespace kelvane::simulators::fluke74x
