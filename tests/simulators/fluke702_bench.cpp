#include "tests/simulators/fluke702_bench.h"

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke702 {

Library::Status Fluke702Bench::tryState(const char* source, const char* sourceSensor, const char* measure,
                                        const char* measureSensor) {
    library_.STAinit();
    Library::Status status = library_.STAsetOutput(source, sourceSensor, 0, 0);
    if (status == Done)
        status = library_.STAsetInput(measure, measureSensor);
    qint32 id = 0;
    return status == Done ? library_.STAsave(&id) : status;
}

qint32 Fluke702Bench::saveState() {
    EXPECT_EQ(library_.STAinit(), Done);
    EXPECT_EQ(library_.STAsetOutput("dcv", "", 0, 0), Done);
    EXPECT_EQ(library_.STAsetInput("current", ""), Done);
    EXPECT_EQ(library_.STAsetOutputScale(10, 0), Done);
    EXPECT_EQ(library_.STAsetInputScale(0.02F, 0.004F), Done);
    EXPECT_EQ(library_.STAsetTestTolerance(0.25F), Done);
    qint32 id = 0;
    EXPECT_EQ(library_.STAsave(&id), Done);
    return id;
}

qint32 Fluke702Bench::defineStrategy(const std::vector<float>& points) {
    qint32 id = 0;
    library_.MEMstrategyDefn(&id, "LINEARITY", static_cast<qint16>(points.size()), points.data());
    return id;
}

void Fluke702Bench::defineTask(const char* tag, const char* serial, qint16 byHand) {
    EXPECT_EQ(library_.MEMstartTask(tag), Done);
    EXPECT_EQ(library_.MEMtemplate(defineStrategy(), byHand, tag, serial, saveState()), Done);
    EXPECT_EQ(library_.MEMendTask(), Done);
}

Library::Status Fluke702Bench::transfer(Library::Status (Library::*start)(qint32*),
                                        Library::Status (Library::*step)(qint32*)) {
    Library::Status status = library_.DPCopen(9600, "COM1", 1000, 5);
    qint32 count = 0;
    if (status == Done)
        status = (library_.*start)(&count);
    while (status == Done && count > 0)
        status = (library_.*step)(&count);
    library_.DPCclose();
    return status;
}

Library::Status Fluke702Bench::download() {
    return transfer(&Library::DPCdnlStart, &Library::DPCdnlStep);
}

Library::Status Fluke702Bench::upload() {
    return transfer(&Library::DPCuplStart, &Library::DPCuplStep);
}

void Fluke702Bench::fillCalibrator() const {
    keep([](Memory& memory) {
        State state;
        state.sourceMode = u"pressure"_s;
        state.pressureUnits = u"in_h2o"_s;
        state.measureMode = u"current"_s;
        state.loopPower = u"24v"_s;
        state.source = {150, 0};
        state.measured = {0.02F, 0.004F};
        state.tolerance = 0.25F;
        memory.contents.strategies = {{u"9 POINT UP/DO"_s, {0, 0.5F, 1}}, {u"LINEARITY"_s, {0.1F}}};
        memory.contents.prompts = {{u"ABCDEFGHIJ"_s, u"Close the manifold – vent it."_s},
                                   {u"KLMNOPQRST"_s, u"Open it."_s}};
        memory.contents.states = {state, state};
        memory.contents.tasks = {
            {u"PT-103"_s, {u"ABCDEFGHIJ"_s}, {u"KLMNOPQRST"_s}, 1, 1, false, u"PT-103"_s, u"V88103"_s},
            {u"LI-401"_s, {}, {}, 2, 2, true, u"LI-401"_s, u"None"_s}};
        memory.contents.runs = {{AsFound,
                                 {2026, 11, 20, 9, 15, 30},
                                 u"PT-103"_s,
                                 u"V88103"_s,
                                 u"J. Öz"_s,
                                 u"71204"_s,
                                 1,
                                 {{0.0041F, 0, 0.00625F}, {0.012F, 75, 0}, {0.02F, 150, -1e38F}}},
                                {AsLeft,
                                 {2026, 11, 20, 9, 45, 0},
                                 u"PT-103"_s,
                                 u"V88103"_s,
                                 u"J. Öz"_s,
                                 {},
                                 1,
                                 {{0.004F, 0, 0}}}};
    });
}

} // namespace kelvane::simulators::fluke702
