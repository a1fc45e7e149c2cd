#include "simulators/fluke74x/library.h"

#include <cstdint>

// The link library as a workstation loads it: plain C functions over one image, which lives as long as the
// process. The environment is read with each call, so that a program may change its calibrator's environment
// while it runs.

namespace {

using kelvane::simulators::fluke74x::Library;

Library& library() {
    static Library only;
    only.setEnvironment(
        kelvane::simulators::environmentOf("KELVANE_FLUKE74X", QStringLiteral("fluke74x.json")));
    return only;
}

} // namespace

extern "C" {

Q_DECL_EXPORT std::int16_t DPC3open(std::int32_t baudRate, const char* port, std::int32_t timing,
                                    std::int32_t tries) {
    return library().DPC3open(baudRate, port, timing, tries);
}

Q_DECL_EXPORT std::int16_t DPC3close() {
    return library().DPC3close();
}

Q_DECL_EXPORT std::int16_t DPC3get74X(char* model, std::int32_t modelLength, char* serial,
                                      std::int32_t serialLength, char* text, std::int32_t textLength,
                                      std::int32_t* number, std::int32_t* second, std::int32_t* third) {
    return library().DPC3get74X(model, modelLength, serial, serialLength, text, textLength, number, second,
                                third);
}

Q_DECL_EXPORT std::int16_t DPC3mapStart(std::int32_t* count) {
    return library().DPC3mapStart(count);
}

Q_DECL_EXPORT std::int16_t DPC3mapStep(std::int32_t* count) {
    return library().DPC3mapStep(count);
}

Q_DECL_EXPORT std::int16_t DPC3dnlStart(std::int32_t* count) {
    return library().DPC3dnlStart(count);
}

Q_DECL_EXPORT std::int16_t DPC3dnlStep(std::int32_t* count, std::int32_t* kept1, std::int32_t* kept2,
                                       std::int32_t* kept3) {
    return library().DPC3dnlStep(count, kept1, kept2, kept3);
}

Q_DECL_EXPORT std::int16_t DPC3uplStart(std::int32_t* count) {
    return library().DPC3uplStart(count);
}

Q_DECL_EXPORT std::int16_t DPC3uplStep(std::int32_t* count) {
    return library().DPC3uplStep(count);
}

Q_DECL_EXPORT std::int16_t MEM3clear() {
    return library().MEM3clear();
}

Q_DECL_EXPORT std::int16_t MEM3startTask(std::int32_t* task, std::int32_t* atom, const char* tag,
                                         const char* text) {
    return library().MEM3startTask(task, atom, tag, text);
}

Q_DECL_EXPORT std::int16_t MEM3promptDefn(std::int32_t* first, std::int32_t* second, std::int32_t* third,
                                          const char* key, const char* prompt, const char* style,
                                          const char* font) {
    return library().MEM3promptDefn(first, second, third, key, prompt, style, font);
}

Q_DECL_EXPORT std::int16_t MEM3promptTemplate(std::int32_t task, std::int32_t atom, std::int32_t* place,
                                              std::int32_t first, std::int32_t second, std::int32_t third) {
    return library().MEM3promptTemplate(task, atom, place, first, second, third);
}

Q_DECL_EXPORT std::int16_t MEM3findStrategyDefn(std::int32_t kind, const char* name, std::int32_t* strategy,
                                                std::int32_t* strategyId) {
    return library().MEM3findStrategyDefn(kind, name, strategy, strategyId);
}

Q_DECL_EXPORT std::int16_t MEM3strategyDefn(std::int32_t task, std::int32_t* atom, std::int32_t* strategyId,
                                            const char* name, const float* points, std::int16_t count) {
    return library().MEM3strategyDefn(task, atom, strategyId, name, points, count);
}

Q_DECL_EXPORT std::int16_t MEM3instrCalTemplate(std::int32_t task, std::int32_t atom, std::int32_t* place,
                                                std::int32_t strategy, std::int32_t strategyAtom,
                                                std::int32_t strategyId, std::int32_t state1,
                                                std::int32_t state2, std::int32_t state3,
                                                std::int16_t measureByHand, std::int16_t sourceByHand,
                                                std::int32_t kind, const char* tag, const char* serial) {
    return library().MEM3instrCalTemplate(task, atom, place, strategy, strategyAtom, strategyId, state1,
                                          state2, state3, measureByHand, sourceByHand, kind, tag, serial);
}

Q_DECL_EXPORT std::int16_t MEM3endTask() {
    return library().MEM3endTask();
}

Q_DECL_EXPORT std::int16_t STA3beginOps() {
    return library().STA3beginOps();
}

Q_DECL_EXPORT std::int16_t STA3initOp() {
    return library().STA3initOp();
}

Q_DECL_EXPORT std::int16_t STA3setMappedOp(const char* root, const char* item, const char* word) {
    return library().STA3setMappedOp(root, item, word);
}

Q_DECL_EXPORT std::int16_t STA3setUnitOp(const char* root, const char* item, const char* unit) {
    return library().STA3setUnitOp(root, item, unit);
}

Q_DECL_EXPORT std::int16_t STA3setFloatOp(const char* root, const char* item, float value) {
    return library().STA3setFloatOp(root, item, value);
}

Q_DECL_EXPORT std::int16_t STA3setIntOp(const char* root, const char* item, std::int32_t value) {
    return library().STA3setIntOp(root, item, value);
}

Q_DECL_EXPORT std::int16_t STA3evalOp() {
    return library().STA3evalOp();
}

Q_DECL_EXPORT std::int16_t STA3saveOps(std::int32_t* first, std::int32_t* second, std::int32_t* third) {
    return library().STA3saveOps(first, second, third);
}

Q_DECL_EXPORT std::int16_t STA3freeOps() {
    return library().STA3freeOps();
}

Q_DECL_EXPORT std::int16_t MEM3ngroups(std::int32_t list, std::int32_t* groups) {
    return library().MEM3ngroups(list, groups);
}

Q_DECL_EXPORT std::int16_t MEM3natoms(std::int32_t list, std::int32_t group, std::int32_t* atoms) {
    return library().MEM3natoms(list, group, atoms);
}

Q_DECL_EXPORT std::int16_t MEM3groupDir(std::int32_t list, std::int32_t group, std::int32_t* reference) {
    return library().MEM3groupDir(list, group, reference);
}

Q_DECL_EXPORT std::int16_t MEM3atomDir(std::int32_t list, std::int32_t group, std::int32_t atom,
                                       std::int16_t* kind, std::int32_t* reference) {
    return library().MEM3atomDir(list, group, atom, kind, reference);
}

Q_DECL_EXPORT std::int16_t MEM3taskResultRefInfo(std::int32_t list, std::int32_t group, std::int32_t atom,
                                                 std::int32_t* results, std::int32_t* task) {
    return library().MEM3taskResultRefInfo(list, group, atom, results, task);
}

Q_DECL_EXPORT std::int16_t MEM3instrTagInfo(std::int32_t list, std::int32_t group, std::int32_t atom,
                                            char* tag, char* serial, char* technician) {
    return library().MEM3instrTagInfo(list, group, atom, tag, serial, technician);
}

Q_DECL_EXPORT std::int16_t MEM3instrCalResultInfo(std::int32_t list, std::int32_t group, std::int32_t atom,
                                                  std::int16_t* steps, std::int16_t* month, std::int16_t* day,
                                                  std::int16_t* year, std::int16_t* hour,
                                                  std::int16_t* minute, std::int16_t* second) {
    return library().MEM3instrCalResultInfo(list, group, atom, steps, month, day, year, hour, minute, second);
}

Q_DECL_EXPORT std::int16_t MEM3instrCalResultStepInfo(std::int32_t list, std::int32_t group,
                                                      std::int32_t atom, std::int16_t step,
                                                      std::int32_t* first, std::int32_t* second,
                                                      std::int32_t* third) {
    return library().MEM3instrCalResultStepInfo(list, group, atom, step, first, second, third);
}

Q_DECL_EXPORT std::int16_t STA3restore(std::int32_t first, std::int32_t second, std::int32_t third) {
    return library().STA3restore(first, second, third);
}

Q_DECL_EXPORT std::int16_t STA3getBktListInfo(const char* root, std::int32_t* buckets) {
    return library().STA3getBktListInfo(root, buckets);
}

Q_DECL_EXPORT std::int16_t STA3getBktName(const char* root, std::int16_t bucket, char* name,
                                          std::int32_t length) {
    return library().STA3getBktName(root, bucket, name, length);
}

Q_DECL_EXPORT std::int16_t STA3getType(const char* root, const char* bucket, std::int16_t* type) {
    return library().STA3getType(root, bucket, type);
}

Q_DECL_EXPORT std::int16_t STA3getFloat(const char* root, const char* bucket, float* value) {
    return library().STA3getFloat(root, bucket, value);
}

Q_DECL_EXPORT std::int16_t STA3getStr(const char* root, const char* bucket, char* value,
                                      std::int32_t length) {
    return library().STA3getStr(root, bucket, value, length);
}

Q_DECL_EXPORT std::int16_t STA3getRange(const char* root, const char* bucket, float* low, float* high) {
    return library().STA3getRange(root, bucket, low, high);
}

Q_DECL_EXPORT std::int16_t STA3getUnit(const char* root, const char* bucket, char* unit,
                                       std::int32_t length) {
    return library().STA3getUnit(root, bucket, unit, length);
}

Q_DECL_EXPORT std::int16_t STA3getInt(const char* root, const char* bucket, std::int32_t* value) {
    return library().STA3getInt(root, bucket, value);
}

Q_DECL_EXPORT std::int16_t STA3getTime(const char* root, const char* bucket, std::int32_t* value) {
    return library().STA3getTime(root, bucket, value);
}

Q_DECL_EXPORT std::int16_t STA3getMapped(const char* root, const char* bucket, char* word,
                                         std::int32_t length) {
    return library().STA3getMapped(root, bucket, word, length);
}

} // extern "C"
