#pragma once

#include "simulators/common/link_calls.h"
#include "simulators/fluke702/operations.h"
#include "simulators/fluke702/transfer.h"

namespace kelvane::simulators::fluke702 {

/// The link library of the calibrator: its operations as a workstation calls them. Nothing that is passed
/// does any harm: a null pointer, a text without end or a number that is none is refused.
class Library : public LinkCalls {
  public:
    explicit Library(const Environment& environment = {});

    Status DPCopen(qint32 baudRate, const char* port, qint32 timing, quint8 tries);
    Status DPCclose();
    Status DPCget70x(char* model, char* serial, char* text, qint32* number, qint32* second, qint32* third);
    Status DPCdnlStart(qint32* count);
    Status DPCdnlStep(qint32* count);
    Status DPCuplStart(qint32* count);
    Status DPCuplStep(qint32* count);

    Status MEMclear();
    Status MEMstrategyDefn(qint32* strategyId, const char* name, qint16 count, const float* points);
    Status MEMpromptDefn(const char* key, const char* prompt);
    Status MEMstartTask(const char* tag);
    Status MEMprompt(const char* key);
    Status MEMtemplate(qint32 strategyId, qint16 readByHand, const char* tag, const char* serial,
                       qint32 stateId);
    Status MEMendTask();

    Status STAinit();
    Status STAsetTempUnits(const char* units);
    Status STAsetTref(const char* mode, float temperature);
    Status STAsetTempStd(const char* standard);
    Status STAsetPresUnits(const char* units);
    Status STAsetOutput(const char* mode, const char* sensor, float value, float amplitude);
    Status STAsetInput(const char* mode, const char* sensor);
    Status STAsetInputRange(qint16 automatic, float top);
    Status STAsetLoopPower(const char* power);
    Status STAsetOutputScale(float high, float low);
    Status STAsetInputScale(float high, float low);
    Status STAsetTestTolerance(float percent);
    Status STAsave(qint32* stateId);

    Status MEMstats(qint32* tasks, qint32* count);
    Status MEMrDir(qint32 record, qint16* kind, qint16* month, qint16* day, qint16* year, qint16* hour,
                   qint16* minute, qint16* second);
    /// The as-found run, the as-left run (both -1 for none) and the number of runs of this instrument.
    Status MEMasflInfo(qint32 record, qint32* found, qint32* left, qint32* runs);
    Status MEMbaseState(qint32 record);
    Status MEMtagidInfo(qint32 record, char* tag, char* serial, char* technician);
    Status MEMcalResult(qint32 record, qint16* entries);
    Status MEMcalResultEntry(qint32 record, qint16 entry, float* reading, qint16* second, float* third,
                             float* applied, qint16* fifth, float* sixth, float* error);
    Status STAgetPressure(char* model, char* serial, qint32* number);

  private:
    template <class Work, class... Values>
    Status call(const char* operation, Code unreachable, Work work, const Values&... values) {
        return carryOut(operation, unreachable, work, values...);
    }
    template <class Work, class... Values>
    Status call(const char* operation, Work work, const Values&... values) {
        return carryOut(operation, OutOfStep, work, values...);
    }
    /// A setting of the current state that is one word.
    Status setWord(const char* operation, const char* word, Code (*set)(State&, const QString&));

    Image image_;
    Transfer transfer_{image_};
};

} // namespace kelvane::simulators::fluke702
