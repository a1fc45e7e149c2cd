#include "simulators/fluke702/library.h"

#include <cstdint>

// The link library as a workstation loads it: plain C functions over one image, which lives as long as the
// process. The environment is read with each call, so that a program may change its calibrator's environment
// while it runs.

namespace {

using kelvane::simulators::fluke702::Library;

Library& library() {
    static Library only;
    only.setEnvironment(
        kelvane::simulators::environmentOf("KELVANE_FLUKE702", QStringLiteral("fluke702.json")));
    return only;
}

} // namespace

extern "C" {

Q_DECL_EXPORT std::int16_t DPCopen(std::int32_t baudRate, const char* port, std::int32_t timing,
                                   std::uint8_t tries) {
    return library().DPCopen(baudRate, port, timing, tries);
}

Q_DECL_EXPORT std::int16_t DPCclose() {
    return library().DPCclose();
}

Q_DECL_EXPORT std::int16_t DPCget70x(char* model, char* serial, char* text, std::int32_t* number,
                                     std::int32_t* second, std::int32_t* third) {
    return library().DPCget70x(model, serial, text, number, second, third);
}

Q_DECL_EXPORT std::int16_t DPCdnlStart(std::int32_t* count) {
    return library().DPCdnlStart(count);
}

Q_DECL_EXPORT std::int16_t DPCdnlStep(std::int32_t* count) {
    return library().DPCdnlStep(count);
}

Q_DECL_EXPORT std::int16_t DPCuplStart(std::int32_t* count) {
    return library().DPCuplStart(count);
}

Q_DECL_EXPORT std::int16_t DPCuplStep(std::int32_t* count) {
    return library().DPCuplStep(count);
}

Q_DECL_EXPORT std::int16_t MEMclear() {
    return library().MEMclear();
}

Q_DECL_EXPORT std::int16_t MEMstrategyDefn(std::int32_t* strategyId, const char* name, std::int16_t count,
                                           const float* points) {
    return library().MEMstrategyDefn(strategyId, name, count, points);
}

Q_DECL_EXPORT std::int16_t MEMpromptDefn(const char* key, const char* prompt) {
    return library().MEMpromptDefn(key, prompt);
}

Q_DECL_EXPORT std::int16_t MEMstartTask(const char* tag) {
    return library().MEMstartTask(tag);
}

Q_DECL_EXPORT std::int16_t MEMprompt(const char* key) {
    return library().MEMprompt(key);
}

Q_DECL_EXPORT std::int16_t MEMtemplate(std::int32_t strategyId, std::int16_t readByHand, const char* tag,
                                       const char* serial, std::int32_t stateId) {
    return library().MEMtemplate(strategyId, readByHand, tag, serial, stateId);
}

Q_DECL_EXPORT std::int16_t MEMendTask() {
    return library().MEMendTask();
}

Q_DECL_EXPORT std::int16_t STAinit() {
    return library().STAinit();
}

Q_DECL_EXPORT std::int16_t STAsetTempUnits(const char* units) {
    return library().STAsetTempUnits(units);
}

Q_DECL_EXPORT std::int16_t STAsetTref(const char* mode, float temperature) {
    return library().STAsetTref(mode, temperature);
}

Q_DECL_EXPORT std::int16_t STAsetTempStd(const char* standard) {
    return library().STAsetTempStd(standard);
}

Q_DECL_EXPORT std::int16_t STAsetPresUnits(const char* units) {
    return library().STAsetPresUnits(units);
}

Q_DECL_EXPORT std::int16_t STAsetOutput(const char* mode, const char* sensor, float value, float amplitude) {
    return library().STAsetOutput(mode, sensor, value, amplitude);
}

Q_DECL_EXPORT std::int16_t STAsetInput(const char* mode, const char* sensor) {
    return library().STAsetInput(mode, sensor);
}

Q_DECL_EXPORT std::int16_t STAsetInputRange(std::int16_t automatic, float top) {
    return library().STAsetInputRange(automatic, top);
}

Q_DECL_EXPORT std::int16_t STAsetLoopPower(const char* power) {
    return library().STAsetLoopPower(power);
}

Q_DECL_EXPORT std::int16_t STAsetOutputScale(float high, float low) {
    return library().STAsetOutputScale(high, low);
}

Q_DECL_EXPORT std::int16_t STAsetInputScale(float high, float low) {
    return library().STAsetInputScale(high, low);
}

Q_DECL_EXPORT std::int16_t STAsetTestTolerance(float percent) {
    return library().STAsetTestTolerance(percent);
}

Q_DECL_EXPORT std::int16_t STAsave(std::int32_t* stateId) {
    return library().STAsave(stateId);
}

Q_DECL_EXPORT std::int16_t MEMstats(std::int32_t* tasks, std::int32_t* count) {
    return library().MEMstats(tasks, count);
}

Q_DECL_EXPORT std::int16_t MEMrDir(std::int32_t record, std::int16_t* kind, std::int16_t* month,
                                   std::int16_t* day, std::int16_t* year, std::int16_t* hour,
                                   std::int16_t* minute, std::int16_t* second) {
    return library().MEMrDir(record, kind, month, day, year, hour, minute, second);
}

Q_DECL_EXPORT std::int16_t MEMasflInfo(std::int32_t record, std::int32_t* found, std::int32_t* left,
                                       std::int32_t* runs) {
    return library().MEMasflInfo(record, found, left, runs);
}

Q_DECL_EXPORT std::int16_t MEMbaseState(std::int32_t record) {
    return library().MEMbaseState(record);
}

Q_DECL_EXPORT std::int16_t MEMtagidInfo(std::int32_t record, char* tag, char* serial, char* technician) {
    return library().MEMtagidInfo(record, tag, serial, technician);
}

Q_DECL_EXPORT std::int16_t MEMcalResult(std::int32_t record, std::int16_t* entries) {
    return library().MEMcalResult(record, entries);
}

Q_DECL_EXPORT std::int16_t MEMcalResultEntry(std::int32_t record, std::int16_t entry, float* reading,
                                             std::int16_t* second, float* third, float* applied,
                                             std::int16_t* fifth, float* sixth, float* error) {
    return library().MEMcalResultEntry(record, entry, reading, second, third, applied, fifth, sixth, error);
}

Q_DECL_EXPORT std::int16_t STAgetPressure(char* model, char* serial, std::int32_t* number) {
    return library().STAgetPressure(model, serial, number);
}

} // extern "C"
