#include "tests/simulators/fluke74x_bench.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

using Status = Library::Status;

template <class Start, class Step>
Status carryThrough(const Start& start, const Step& step) {
    qint32 count = 0;
    Status status = start(count);
    while (status == Done && count > 0)
        status = step(count);
    return status;
}

} // namespace

Status Fluke74xBench::identify(OutTexts& out) {
    return library_.DPC3get74X(out.first.data(), 16, out.second.data(), 10, out.third.data(), 40,
                               &out.numbers[0], &out.numbers[1], &out.numbers[2]);
}

Status Fluke74xBench::fetchMaps() {
    library_.DPC3close();
    const Status status = open();
    return status == Done ? carryThrough([&](qint32& count) { return library_.DPC3mapStart(&count); },
                                         [&](qint32& count) { return library_.DPC3mapStep(&count); })
                          : status;
}

Status Fluke74xBench::download() {
    Status status = fetchMaps();
    References kept;
    if (status == Done)
        status = carryThrough([&](qint32& count) { return library_.DPC3dnlStart(&count); },
                              [&](qint32& count) {
                                  return library_.DPC3dnlStep(&count, &kept.first, &kept.second, &kept.third);
                              });
    library_.DPC3close();
    return status;
}

Status Fluke74xBench::upload() {
    Status status = fetchMaps();
    if (status == Done)
        status = carryThrough([&](qint32& count) { return library_.DPC3uplStart(&count); },
                              [&](qint32& count) { return library_.DPC3uplStep(&count); });
    library_.DPC3close();
    return status;
}

void Fluke74xBench::startTask(const char* tag) {
    EXPECT_EQ(library_.MEM3startTask(&task_, &atom_, tag, ""), Done);
}

Status Fluke74xBench::definePrompt(const char* key, const char* text) {
    return library_.MEM3promptDefn(&prompt_.first, &prompt_.second, &prompt_.third, key, text, "ordinary",
                                   "helvr12");
}

Status Fluke74xBench::placePrompt() {
    qint32 place = 0;
    return library_.MEM3promptTemplate(task_, atom_, &place, prompt_.first, prompt_.second, prompt_.third);
}

qint32 Fluke74xBench::defineStrategy(const char* name, const std::vector<float>& points) {
    qint32 atom = atom_;
    qint32 id = 0;
    library_.MEM3strategyDefn(task_, &atom, &id, name, points.data(), static_cast<qint16>(points.size()));
    return id;
}

References Fluke74xBench::saveState(const char* errorWord) {
    EXPECT_EQ(library_.STA3beginOps(), Done);
    EXPECT_EQ(library_.STA3initOp(), Done);
    EXPECT_EQ(library_.STA3setMappedOp("root", "mcMode", "Current"), Done);
    EXPECT_EQ(library_.STA3setFloatOp("root", "mUutZero", 0.004F), Done);
    EXPECT_EQ(library_.STA3setFloatOp("root", "mUutFS", 0.02F), Done);
    EXPECT_EQ(library_.STA3setFloatOp("root", "sUutFS", 10), Done);
    EXPECT_EQ(library_.STA3setMappedOp("root", "cError", errorWord), Done);
    EXPECT_EQ(library_.STA3evalOp(), Done);
    References state;
    EXPECT_EQ(library_.STA3saveOps(&state.first, &state.second, &state.third), Done);
    EXPECT_EQ(library_.STA3freeOps(), Done);
    return state;
}

Status Fluke74xBench::placeTemplate(qint32 strategyId, const References& state, const char* tag,
                                    const char* serial) {
    qint32 place = 0;
    return library_.MEM3instrCalTemplate(task_, atom_, &place, 0, 0, strategyId, state.first, state.second,
                                         state.third, 0, 0, 2, tag, serial);
}

void Fluke74xBench::defineTask(const char* tag, const char* serial) {
    startTask(tag);
    EXPECT_EQ(placeTemplate(defineStrategy(), saveState(), tag, serial), Done);
    EXPECT_EQ(library_.MEM3endTask(), Done);
}

State pressureToCurrent() {
    State state;
    EXPECT_EQ(state.set(u"scMode"_s, Word{u"Pressure"_s}), Done);
    EXPECT_EQ(state.set(u"defaultPres"_s, Unit{u"in_h2o"_s}), Done);
    EXPECT_EQ(state.set(u"mcMode"_s, Word{u"Current"_s}), Done);
    EXPECT_EQ(state.set(u"loop"_s, Word{u"Enabled 24V"_s}), Done);
    EXPECT_EQ(state.set(u"sUutFS"_s, 150.0F), Done);
    EXPECT_EQ(state.set(u"mUutZero"_s, 0.004F), Done);
    EXPECT_EQ(state.set(u"mUutFS"_s, 0.02F), Done);
    EXPECT_EQ(state.set(u"tol"_s, 0.25F), Done);
    return state;
}

void Fluke74xBench::fillCalibrator() const {
    keep([](Memory& memory) {
        State byHand = pressureToCurrent();
        EXPECT_EQ(byHand.set(u"mcMode"_s, Word{u"DCV"_s}), Done);
        EXPECT_EQ(byHand.set(u"mCustomFS"_s, 300.0F), Done);
        EXPECT_EQ(byHand.set(u"mCustomUnit"_s, Unit{u"gal/min"_s}), Done);
        EXPECT_EQ(byHand.set(u"mcRangeLocked"_s, 1), Done);
        EXPECT_EQ(byHand.set(u"cError"_s, Word{u"UEV Measure"_s}), Done);
        memory.contents.strategies = {{u"9 POINT UP/DOWN"_s, {0, 0.5F, 1}}, {u"LINEARITY"_s, {0.1F}}};
        memory.contents.prompts = {{u"ABCDEFGHIJ"_s, u"Close the manifold – vent it."_s},
                                   {u"KLMNOPQRST"_s, u"Open it."_s}};
        memory.contents.states = {pressureToCurrent(), byHand};
        memory.contents.tasks = {
            {u"PT-103"_s, {u"ABCDEFGHIJ"_s}, {u"KLMNOPQRST"_s}, 1, 1, {}, u"PT-103"_s, u"V88103"_s},
            {u"LI-401"_s, {}, {}, 2, 2, {true, false}, u"LI-401"_s, u"None"_s}};
        memory.contents.runs = {{{2026, 11, 20, 9, 15, 30},
                                 u"PT-103"_s,
                                 u"V88103"_s,
                                 u"J. Öz"_s,
                                 {},
                                 u"71204"_s,
                                 1,
                                 {},
                                 {{0.0041F, 0, 0.625F}, {0.012F, 75, 0}, {0.02F, 150, -1e38F}}},
                                {{2026, 11, 20, 9, 45, 0},
                                 u"PT-103"_s,
                                 u"V88103"_s,
                                 u"J. Öz"_s,
                                 {},
                                 {},
                                 1,
                                 {},
                                 {{0.004F, 0, 0}}}};
    });
}

qint16 Fluke74xBench::typeOfBucket(const char* name) {
    qint16 type = -1;
    library_.STA3getType("root", name, &type);
    return type;
}

float Fluke74xBench::floatBucket(const char* name) {
    float value = -7;
    EXPECT_EQ(library_.STA3getFloat("root", name, &value), Done) << name;
    return value;
}

QString Fluke74xBench::textBucket(const char* name) {
    char text[33]{};
    EXPECT_EQ(library_.STA3getStr("root", name, text, 33), Done) << name;
    return QString::fromLatin1(text);
}

} // namespace kelvane::simulators::fluke74x
