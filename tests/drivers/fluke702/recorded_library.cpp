// A `dpclnk` for tests.

#include "testkit/recorded_library.h"

OPERATION int16_t DPCopen(int32_t baudRate, const char* port, int32_t constant1000, uint8_t constant5) {
    return recordCall("DPCopen", baudRate, port, constant1000, int(constant5));
}

OPERATION int16_t DPCclose() {
    return recordCall("DPCclose");
}

OPERATION int16_t DPCget70x(char* model, char* serial, char* text, int32_t* number, int32_t* other,
                            int32_t* another) {
    const auto status = recordCall("DPCget70x");
    write(model, 16, "702");
    write(serial, 10, "\x80\xE9");
    write(text, 40, "");
    fill(number, other, another);
    return status;
}

OPERATION int16_t DPCdnlStart(int32_t* count) {
    *count = 70000;
    return recordCall("DPCdnlStart");
}

OPERATION int16_t DPCdnlStep(int32_t* count) {
    return recordCall("DPCdnlStep", (*count)--);
}

OPERATION int16_t DPCuplStart(int32_t* count) {
    *count = -70000;
    return recordCall("DPCuplStart");
}

OPERATION int16_t DPCuplStep(int32_t* count) {
    return recordCall("DPCuplStep", (*count)--);
}

OPERATION int16_t MEMclear() {
    return recordCall("MEMclear");
}

OPERATION int16_t MEMstrategyDefn(int32_t* id, const char* name, int16_t count, const float* points) {
    *id = 100000;
    return recordCall("MEMstrategyDefn", name, count, points[0], points[count - 1]);
}

OPERATION int16_t MEMpromptDefn(const char* key, const char* prompt) {
    return recordCall("MEMpromptDefn", key, prompt);
}

OPERATION int16_t MEMstartTask(const char* tag) {
    return recordCall("MEMstartTask", tag);
}

OPERATION int16_t MEMprompt(const char* key) {
    return recordCall("MEMprompt", key);
}

OPERATION int16_t MEMtemplate(int32_t strategy, int16_t byHand, const char* tag, const char* serial,
                              int32_t state) {
    return recordCall("MEMtemplate", strategy, byHand, tag, serial, state);
}

OPERATION int16_t MEMendTask() {
    return recordCall("MEMendTask");
}

OPERATION int16_t STAinit() {
    return recordCall("STAinit");
}

OPERATION int16_t STAsetTempUnits(const char* units) {
    return recordCall("STAsetTempUnits", units);
}

OPERATION int16_t STAsetTref(const char* mode, float temperature) {
    return recordCall("STAsetTref", mode, temperature);
}

OPERATION int16_t STAsetTempStd(const char* standard) {
    return recordCall("STAsetTempStd", standard);
}

OPERATION int16_t STAsetPresUnits(const char* units) {
    return recordCall("STAsetPresUnits", units);
}

OPERATION int16_t STAsetOutput(const char* mode, const char* sensor, float value, float amplitude) {
    return recordCall("STAsetOutput", mode, sensor, value, amplitude);
}

OPERATION int16_t STAsetInput(const char* mode, const char* sensor) {
    return recordCall("STAsetInput", mode, sensor);
}

OPERATION int16_t STAsetInputRange(int16_t automatic, float top) {
    return recordCall("STAsetInputRange", automatic, top);
}

OPERATION int16_t STAsetLoopPower(const char* power) {
    return recordCall("STAsetLoopPower", power);
}

OPERATION int16_t STAsetOutputScale(float high, float low) {
    return recordCall("STAsetOutputScale", high, low);
}

OPERATION int16_t STAsetInputScale(float high, float low) {
    return recordCall("STAsetInputScale", high, low);
}

OPERATION int16_t STAsetTestTolerance(float percent) {
    return recordCall("STAsetTestTolerance", percent);
}

OPERATION int16_t STAsave(int32_t* state) {
    *state = 200000;
    return recordCall("STAsave");
}

OPERATION int16_t MEMstats(int32_t* number, int32_t* count) {
    const auto status = recordCall("MEMstats");
    fill(number, count);
    return status;
}

OPERATION int16_t MEMrDir(int32_t record, int16_t* kind, int16_t* month, int16_t* day, int16_t* year,
                          int16_t* hour, int16_t* minute, int16_t* second) {
    const auto status = recordCall("MEMrDir", record);
    fill(kind, month, day, year, hour, minute, second);
    return status;
}

OPERATION int16_t MEMasflInfo(int32_t record, int32_t* asFound, int32_t* asLeft, int32_t* runs) {
    const auto status = recordCall("MEMasflInfo", record);
    fill(asFound, asLeft, runs);
    return status;
}

OPERATION int16_t MEMbaseState(int32_t record) {
    return recordCall("MEMbaseState", record);
}

OPERATION int16_t MEMtagidInfo(int32_t record, char* tag, char* serial, char* technician) {
    const auto status = recordCall("MEMtagidInfo", record);
    write(tag, 33, "PT-1");
    write(serial, 33, "K-1");
    write(technician, 33, "J. Doe");
    return status;
}

OPERATION int16_t MEMcalResult(int32_t record, int16_t* entries) {
    const auto status = recordCall("MEMcalResult", record);
    fill(entries);
    return status;
}

OPERATION int16_t MEMcalResultEntry(int32_t record, int16_t entry, float* reading, int16_t* second,
                                    float* third, float* applied, int16_t* fifth, float* sixth,
                                    float* error) {
    const auto status = recordCall("MEMcalResultEntry", record, entry);
    fill(reading, second, third, applied, fifth, sixth, error);
    return status;
}

#ifndef KELVANE_LACKS_PRESSURE
OPERATION int16_t STAgetPressure(char* model, char* serial, int32_t* number) {
    const auto status = recordCall("STAgetPressure");
    write(model, 16, "700P06");
    write(serial, 10, "P-1");
    fill(number);
    return status;
}
#endif
