// A `dpclnk3` for tests.

#include "testkit/recorded_library.h"

OPERATION int16_t DPC3open(int32_t baudRate, const char* port, int32_t constant1000, int32_t constant5) {
    return recordCall("DPC3open", baudRate, port, constant1000, constant5);
}

OPERATION int16_t DPC3close() {
    return recordCall("DPC3close");
}

OPERATION int16_t DPC3get74X(char* model, int32_t modelLength, char* serial, int32_t serialLength, char* text,
                             int32_t textLength, int32_t* number, int32_t* other, int32_t* another) {
    const auto status = recordCall("DPC3get74X", modelLength, serialLength, textLength);
    write(model, static_cast<std::size_t>(modelLength), "743");
    write(serial, static_cast<std::size_t>(serialLength), "\x80\xE9");
    write(text, static_cast<std::size_t>(textLength), "");
    fill(number, other, another);
    return status;
}

OPERATION int16_t DPC3mapStart(int32_t* count) {
    *count = 80000;
    return recordCall("DPC3mapStart");
}

OPERATION int16_t DPC3mapStep(int32_t* count) {
    return recordCall("DPC3mapStep", (*count)--);
}

OPERATION int16_t DPC3dnlStart(int32_t* count) {
    *count = 70000;
    return recordCall("DPC3dnlStart");
}

OPERATION int16_t DPC3dnlStep(int32_t* count, int32_t* kept1, int32_t* kept2, int32_t* kept3) {
    return recordCall("DPC3dnlStep", (*count)--, (*kept1)++, (*kept2)++, (*kept3)++);
}

OPERATION int16_t DPC3uplStart(int32_t* count) {
    *count = -70000;
    return recordCall("DPC3uplStart");
}

OPERATION int16_t DPC3uplStep(int32_t* count) {
    return recordCall("DPC3uplStep", (*count)--);
}

OPERATION int16_t MEM3clear() {
    return recordCall("MEM3clear");
}

OPERATION int16_t MEM3startTask(int32_t* task, int32_t* atom, const char* tag, const char* text) {
    return recordCall("MEM3startTask", (*task)++, (*atom)++, tag, text);
}

OPERATION int16_t MEM3promptDefn(int32_t* first, int32_t* second, int32_t* third, const char* key,
                                 const char* prompt, const char* style, const char* font) {
    const auto status = recordCall("MEM3promptDefn", key, prompt, style, font);
    fill(first, second, third);
    return status;
}

OPERATION int16_t MEM3promptTemplate(int32_t task, int32_t atom, int32_t* place, int32_t first,
                                     int32_t second, int32_t third) {
    const auto status = recordCall("MEM3promptTemplate", task, atom, first, second, third);
    fill(place);
    return status;
}

OPERATION int16_t MEM3findStrategyDefn(int32_t constant1, const char* name, int32_t* strategy, int32_t* id) {
    const auto status = recordCall("MEM3findStrategyDefn", constant1, name);
    fill(strategy, id);
    return status;
}

OPERATION int16_t MEM3strategyDefn(int32_t task, int32_t* atom, int32_t* id, const char* name,
                                   const float* points, int16_t count) {
    const auto status =
        recordCall("MEM3strategyDefn", task, *atom, name, points[0], points[count - 1], count);
    fill(atom, id);
    return status;
}

OPERATION int16_t MEM3instrCalTemplate(int32_t task, int32_t atom, int32_t* place, int32_t strategy,
                                       int32_t strategyAtom, int32_t strategyId, int32_t first,
                                       int32_t second, int32_t third, int16_t measureByHand,
                                       int16_t sourceByHand, int32_t constant2, const char* tag,
                                       const char* serial) {
    const auto status = recordCall("MEM3instrCalTemplate", task, atom, strategy, strategyAtom, strategyId,
                                   first, second, third, measureByHand, sourceByHand, constant2, tag, serial);
    fill(place);
    return status;
}

OPERATION int16_t MEM3endTask() {
    return recordCall("MEM3endTask");
}

OPERATION int16_t STA3beginOps() {
    return recordCall("STA3beginOps");
}

OPERATION int16_t STA3initOp() {
    return recordCall("STA3initOp");
}

OPERATION int16_t STA3setMappedOp(const char* root, const char* item, const char* word) {
    return recordCall("STA3setMappedOp", root, item, word);
}

OPERATION int16_t STA3setUnitOp(const char* root, const char* item, const char* unit) {
    return recordCall("STA3setUnitOp", root, item, unit);
}

OPERATION int16_t STA3setFloatOp(const char* root, const char* item, float value) {
    return recordCall("STA3setFloatOp", root, item, value);
}

OPERATION int16_t STA3setIntOp(const char* root, const char* item, int32_t value) {
    return recordCall("STA3setIntOp", root, item, value);
}

OPERATION int16_t STA3evalOp() {
    return recordCall("STA3evalOp");
}

OPERATION int16_t STA3saveOps(int32_t* first, int32_t* second, int32_t* third) {
    const auto status = recordCall("STA3saveOps");
    fill(first, second, third);
    return status;
}

OPERATION int16_t STA3freeOps() {
    return recordCall("STA3freeOps");
}

OPERATION int16_t MEM3ngroups(int32_t list, int32_t* groups) {
    const auto status = recordCall("MEM3ngroups", list);
    fill(groups);
    return status;
}

OPERATION int16_t MEM3natoms(int32_t list, int32_t group, int32_t* atoms) {
    const auto status = recordCall("MEM3natoms", list, group);
    fill(atoms);
    return status;
}

OPERATION int16_t MEM3groupDir(int32_t list, int32_t group, int32_t* reference) {
    const auto status = recordCall("MEM3groupDir", list, group);
    fill(reference);
    return status;
}

OPERATION int16_t MEM3atomDir(int32_t list, int32_t group, int32_t atom, int16_t* kind, int32_t* reference) {
    const auto status = recordCall("MEM3atomDir", list, group, atom);
    fill(kind, reference);
    return status;
}

OPERATION int16_t MEM3taskResultRefInfo(int32_t list, int32_t group, int32_t atom, int32_t* results,
                                        int32_t* task) {
    const auto status = recordCall("MEM3taskResultRefInfo", list, group, atom);
    fill(results, task);
    return status;
}

OPERATION int16_t MEM3instrTagInfo(int32_t list, int32_t group, int32_t atom, char* tag, char* serial,
                                   char* technician) {
    const auto status = recordCall("MEM3instrTagInfo", list, group, atom);
    write(tag, 33, "PT-1");
    write(serial, 33, "K-1");
    write(technician, 33, "J. Doe");
    return status;
}

OPERATION int16_t MEM3instrCalResultInfo(int32_t list, int32_t group, int32_t atom, int16_t* steps,
                                         int16_t* month, int16_t* day, int16_t* year, int16_t* hour,
                                         int16_t* minute, int16_t* second) {
    const auto status = recordCall("MEM3instrCalResultInfo", list, group, atom);
    fill(steps, month, day, year, hour, minute, second);
    return status;
}

OPERATION int16_t MEM3instrCalResultStepInfo(int32_t list, int32_t group, int32_t atom, int16_t step,
                                             int32_t* first, int32_t* second, int32_t* third) {
    const auto status = recordCall("MEM3instrCalResultStepInfo", list, group, atom, step);
    fill(first, second, third);
    return status;
}

OPERATION int16_t STA3restore(int32_t first, int32_t second, int32_t third) {
    return recordCall("STA3restore", first, second, third);
}

OPERATION int16_t STA3getBktListInfo(const char* root, int32_t* buckets) {
    const auto status = recordCall("STA3getBktListInfo", root);
    fill(buckets);
    return status;
}

OPERATION int16_t STA3getBktName(const char* root, int16_t bucket, char* name, int32_t length) {
    const auto status = recordCall("STA3getBktName", root, bucket, length);
    write(name, static_cast<std::size_t>(length), "suev");
    return status;
}

OPERATION int16_t STA3getType(const char* root, const char* bucket, int16_t* type) {
    const auto status = recordCall("STA3getType", root, bucket);
    fill(type);
    return status;
}

OPERATION int16_t STA3getFloat(const char* root, const char* bucket, float* value) {
    const auto status = recordCall("STA3getFloat", root, bucket);
    fill(value);
    return status;
}

OPERATION int16_t STA3getStr(const char* root, const char* bucket, char* value, int32_t length) {
    const auto status = recordCall("STA3getStr", root, bucket, length);
    write(value, static_cast<std::size_t>(length), "P-1");
    return status;
}

OPERATION int16_t STA3getRange(const char* root, const char* bucket, float* low, float* high) {
    const auto status = recordCall("STA3getRange", root, bucket);
    fill(low, high);
    return status;
}

OPERATION int16_t STA3getUnit(const char* root, const char* bucket, char* unit, int32_t length) {
    const auto status = recordCall("STA3getUnit", root, bucket, length);
    write(unit, static_cast<std::size_t>(length), "psi");
    return status;
}

OPERATION int16_t STA3getInt(const char* root, const char* bucket, int32_t* value) {
    const auto status = recordCall("STA3getInt", root, bucket);
    fill(value);
    return status;
}

OPERATION int16_t STA3getTime(const char* root, const char* bucket, int32_t* value) {
    const auto status = recordCall("STA3getTime", root, bucket);
    fill(value);
    return status;
}

#ifndef KELVANE_LACKS_MAPPED
OPERATION int16_t STA3getMapped(const char* root, const char* bucket, char* word, int32_t length) {
    const auto status = recordCall("STA3getMapped", root, bucket, length);
    write(word, static_cast<std::size_t>(length), "DCV");
    return status;
}
#endif
