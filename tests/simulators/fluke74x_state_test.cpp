#include "tests/simulators/fluke74x_bench.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

class Fluke74xState : public Fluke74xBench {
  protected:
    Fluke74xState() {
        EXPECT_EQ(fetchMaps(), Done);
        EXPECT_EQ(library_.STA3beginOps(), Done);
        EXPECT_EQ(library_.STA3initOp(), Done);
    }
    Library::Status setMapped(const char* item, const char* word) {
        return library_.STA3setMappedOp("root", item, word);
    }
    Library::Status setUnit(const char* item, const char* unit) {
        return library_.STA3setUnitOp("root", item, unit);
    }
    Library::Status setFloat(const char* item, float value) {
        return library_.STA3setFloatOp("root", item, value);
    }
    Library::Status setInt(const char* item, qint32 value) {
        return library_.STA3setIntOp("root", item, value);
    }
    Library::Status save(References& state) {
        return library_.STA3saveOps(&state.first, &state.second, &state.third);
    }
};

TEST_F(Fluke74xState, AMappedItemTakesTheWordsOfTheMapsExactly) {
    const struct {
        const char* item;
        std::vector<const char*> known;
        std::vector<const char*> unknown;
    } cases[] = {
        {"mcMode",
         {"DCV", "ACV", "Current", "Freq", "2 Wire Ohms", "2 Wire RTD", "3 Wire RTD", "4 Wire RTD", "TC",
          "Pressure"},
         {"", "dcv", "5 Wire RTD", "3 Wire Ohms", "DCV ", "mA"}},
        {"scMode",
         {"DCV", "Current", "Freq", "2 Wire Ohms", "2 Wire RTD", "3 Wire RTD", "4 Wire RTD", "TC",
          "Pressure"},
         {"", "ACV", "1 Wire RTD"}},
        {"loop", {"Disabled", "Enabled 24V", "Enabled 28V"}, {"", "24V", "OFF"}},
        {"tempstd", {"ITS-90", "IPTS-68"}, {"", "its-90"}},
        {"mTcType", {"E", "N", "J", "K", "T", "B", "R", "S", "C", "L", "U"}, {"", "k", "TC K"}},
        {"sTcType", {"E", "N", "J", "K", "T", "B", "R", "S", "C", "L", "U"}, {"", "X"}},
        {"mRtdType",
         {"Pt100 (385)", "Ni120 (672)", "Pt200 (385)", "Pt500 (385)", "Pt1000 (385)", "Cu10 (427)",
          "Pt100 (3916)", "Pt100 (3926)"},
         {"", "Pt100"}},
        {"sRtdType", {"Pt100 (385)", "Cu10 (427)"}, {"", "RTD PT100 385"}},
        {"mcTref", {"Internal", "External"}, {"", "EXT"}},
        {"scTref", {"Internal", "External"}, {"", "internal"}},
        {"mcDamping", {"On", "Off"}, {"", "1"}},
        {"scDamping", {"On", "Off"}, {"", "on"}},
        {"mcScale", {"Linear"}, {"", "linear"}},
        {"scScale", {"Linear"}, {"", "Lin"}},
        {"cError", {"Normal", "UEV Measure", "UEV Source", "UEV Measure Source"}, {"", "UEV"}},
    };
    for (const auto& entry : cases) {
        for (const char* const word : entry.known)
            EXPECT_EQ(setMapped(entry.item, word), Done) << entry.item << ' ' << word;
        for (const char* const word : entry.unknown)
            EXPECT_EQ(setMapped(entry.item, word), BadArgument) << entry.item << ' ' << word;
        EXPECT_EQ(setMapped(entry.item, QByteArray(1'000'000, 'x').constData()), BadArgument);
    }
}

TEST_F(Fluke74xState, AUnitItemTakesItsUnits) {
    for (const char* const unit : {"psi", "in_hg", "in_h2o", "m_hg", "kpa", "bar"})
        EXPECT_EQ(setUnit("defaultPres", unit), Done) << unit;
    for (const char* const unit : {"", "psig", "mm_hg", "mbar", "PSI"})
        EXPECT_EQ(setUnit("defaultPres", unit), BadArgument) << unit;
    EXPECT_EQ(setUnit("defaultTemp", "Celsius"), Done);
    EXPECT_EQ(setUnit("defaultTemp", "Fahrenheit"), Done);
    EXPECT_EQ(setUnit("defaultTemp", "celsius"), BadArgument);
    EXPECT_EQ(setUnit("defaultTemp", ""), BadArgument);
}

TEST_F(Fluke74xState, ACustomUnitIsAnyTextOf32Characters) {
    for (const char* const item : {"mCustomUnit", "sCustomUnit"}) {
        EXPECT_EQ(setUnit(item, ""), Done);
        EXPECT_EQ(setUnit(item, "\xB5S/cm"), Done);
        EXPECT_EQ(setUnit(item, QByteArray(32, 'x').constData()), Done);
        EXPECT_EQ(setUnit(item, QByteArray(33, 'x').constData()), TooLong);
    }
}

TEST_F(Fluke74xState, AFloatItemTakesNumbersOnly) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const char* const item :
         {"mUutZero", "mUutFS", "mCustomZero", "mZero", "mCustomFS", "mFS", "mcRange", "sUutZero", "sUutFS",
          "sCustomZero", "sZero", "sCustomFS", "sFS", "tol"}) {
        EXPECT_EQ(setFloat(item, -1e30F), Done) << item;
        for (const float number : {infinity, -infinity, std::numeric_limits<float>::quiet_NaN()})
            EXPECT_EQ(setFloat(item, number), BadArgument) << item;
    }
}

TEST_F(Fluke74xState, TheRangeIsLockedOrNot) {
    EXPECT_EQ(setInt("mcRangeLocked", 0), Done);
    EXPECT_EQ(setInt("mcRangeLocked", 1), Done);
    for (const qint32 number : {-1, 2, std::numeric_limits<qint32>::max()})
        EXPECT_EQ(setInt("mcRangeLocked", number), BadArgument) << number;
}

TEST_F(Fluke74xState, AnUnknownItemIsNotFound) {
    EXPECT_EQ(setMapped("mcmode", "DCV"), NotFound);
    EXPECT_EQ(setMapped("", "DCV"), NotFound);
    EXPECT_EQ(setUnit("defaultFlow", "gpm"), NotFound);
    EXPECT_EQ(setFloat("xUutZero", 0), NotFound);
    EXPECT_EQ(setInt("scRangeLocked", 0), NotFound);
    EXPECT_EQ(library_.STA3setMappedOp("branch", "mcMode", "DCV"), NotFound);
    EXPECT_EQ(library_.STA3setFloatOp("", "mUutZero", 0), NotFound);
}

TEST_F(Fluke74xState, AnItemOfAnotherKindIsRefused) {
    EXPECT_EQ(setUnit("mcMode", "DCV"), BadArgument);
    EXPECT_EQ(setFloat("mcMode", 0), BadArgument);
    EXPECT_EQ(setMapped("defaultPres", "psi"), BadArgument);
    EXPECT_EQ(setMapped("mUutZero", "0"), BadArgument);
    EXPECT_EQ(setInt("mUutZero", 0), BadArgument);
    EXPECT_EQ(setFloat("mcRangeLocked", 1), BadArgument);
    EXPECT_EQ(setInt("tol", 1), BadArgument);
}

TEST_F(Fluke74xState, AListIsMadeInItsOrder) {
    References state;
    EXPECT_EQ(library_.STA3beginOps(), OutOfStep) << "it is open";
    EXPECT_EQ(save(state), OutOfStep) << "before it is evaluated";
    EXPECT_EQ(library_.STA3evalOp(), Done);
    EXPECT_EQ(save(state), Done);
    EXPECT_EQ(setFloat("tol", 1), Done);
    EXPECT_EQ(save(state), OutOfStep) << "something changed since";
    EXPECT_EQ(library_.STA3freeOps(), Done);
    EXPECT_EQ(library_.STA3freeOps(), OutOfStep);
    EXPECT_EQ(library_.STA3initOp(), OutOfStep);
    EXPECT_EQ(library_.STA3evalOp(), OutOfStep);
    EXPECT_EQ(setFloat("tol", 1), OutOfStep);
    EXPECT_EQ(library_.STA3beginOps(), Done);
    EXPECT_EQ(setFloat("tol", 1), OutOfStep) << "before the defaults";
    EXPECT_EQ(library_.STA3evalOp(), OutOfStep);
}

TEST_F(Fluke74xState, ClearingTheImageGivesAnOpenListUp) {
    EXPECT_EQ(library_.MEM3clear(), Done);
    EXPECT_EQ(library_.STA3beginOps(), Done);
}

TEST_F(Fluke74xState, IsSavedUnderThreeReferences) {
    References first;
    References second;
    EXPECT_EQ(library_.STA3evalOp(), Done);
    EXPECT_EQ(save(first), Done);
    EXPECT_EQ(save(second), Done);
    EXPECT_NE(first, second);
    for (const qint32 number : {first.first, first.second, first.third})
        EXPECT_NE(number, 0) << "so that a reference that is not passed on is none";
    EXPECT_EQ(library_.STA3restore(second.first, second.second, second.third), Done);
    EXPECT_EQ(library_.STA3restore(second.first, 0, 0), NotFound);
    EXPECT_EQ(library_.STA3restore(0, 0, 0), NotFound);
    EXPECT_EQ(library_.STA3restore(3, second.second, second.third), NotFound);
}

TEST_F(Fluke74xState, ASavedStateHoldsTheDefaultsAndWhatWasSet) {
    EXPECT_EQ(setMapped("mcMode", "3 Wire RTD"), Done);
    EXPECT_EQ(setUnit("mCustomUnit", "%"), Done);
    EXPECT_EQ(setInt("mcRangeLocked", 1), Done);
    EXPECT_EQ(setFloat("mUutFS", 400), Done);
    EXPECT_EQ(setFloat("mUutFS", std::numeric_limits<float>::infinity()), BadArgument);
    EXPECT_EQ(library_.STA3evalOp(), Done);
    References state;
    EXPECT_EQ(save(state), Done);
    EXPECT_EQ(setFloat("mUutFS", 500), Done) << "after the save, and so without effect on it";
    EXPECT_EQ(download(), Done);
    State expected;
    EXPECT_EQ(expected.set(u"mcMode"_s, Word{u"3 Wire RTD"_s}), Done);
    EXPECT_EQ(expected.set(u"mCustomUnit"_s, Unit{u"%"_s}), Done);
    EXPECT_EQ(expected.set(u"mcRangeLocked"_s, 1), Done);
    EXPECT_EQ(expected.set(u"mUutFS"_s, 400.0F), Done);
    EXPECT_EQ(storedMemory().contents.states, std::vector<State>{expected});
}

using Fluke74xStateWithoutMaps = Fluke74xBench;

TEST_F(Fluke74xStateWithoutMaps, EachOperationOnAStateIsRefused) {
    References state;
    qint32 wide = 0;
    qint16 small = 0;
    float real = 0;
    char text[33]{};
    const std::map<const char*, std::function<Library::Status()>> calls{
        {"STA3beginOps", [&] { return library_.STA3beginOps(); }},
        {"STA3initOp", [&] { return library_.STA3initOp(); }},
        {"STA3setMappedOp", [&] { return library_.STA3setMappedOp("root", "mcMode", "DCV"); }},
        {"STA3setUnitOp", [&] { return library_.STA3setUnitOp("root", "defaultPres", "psi"); }},
        {"STA3setFloatOp", [&] { return library_.STA3setFloatOp("root", "tol", 1); }},
        {"STA3setIntOp", [&] { return library_.STA3setIntOp("root", "mcRangeLocked", 1); }},
        {"STA3evalOp", [&] { return library_.STA3evalOp(); }},
        {"STA3saveOps", [&] { return library_.STA3saveOps(&state.first, &state.second, &state.third); }},
        {"STA3freeOps", [&] { return library_.STA3freeOps(); }},
        {"STA3restore", [&] { return library_.STA3restore(1, -1, -1); }},
        {"STA3getBktListInfo", [&] { return library_.STA3getBktListInfo("root", &wide); }},
        {"STA3getBktName", [&] { return library_.STA3getBktName("root", 0, text, 33); }},
        {"STA3getType", [&] { return library_.STA3getType("root", "tol", &small); }},
        {"STA3getFloat", [&] { return library_.STA3getFloat("root", "tol", &real); }},
        {"STA3getStr", [&] { return library_.STA3getStr("root", "mpserial", text, 33); }},
        {"STA3getRange", [&] { return library_.STA3getRange("root", "mrange", &real, &real); }},
        {"STA3getUnit", [&] { return library_.STA3getUnit("root", "defaultPres", text, 33); }},
        {"STA3getInt", [&] { return library_.STA3getInt("root", "mcRangeLocked", &wide); }},
        {"STA3getTime", [&] { return library_.STA3getTime("root", "time", &wide); }},
        {"STA3getMapped", [&] { return library_.STA3getMapped("root", "mcMode", text, 33); }},
    };
    const auto names = operationNames();
    EXPECT_EQ(calls.size(),
              static_cast<std::size_t>(std::count_if(names.begin(), names.end(), [](const char* name) {
                  return QByteArrayView(name).startsWith("STA3");
              })));
    fillCalibrator();
    ASSERT_EQ(open(), Done);
    for (const auto& entry : calls)
        EXPECT_EQ(entry.second(), NoMaps) << entry.first;
    EXPECT_EQ(upload(), Done);
    for (const auto& entry : calls)
        EXPECT_NE(entry.second(), NoMaps) << entry.first;
}

} // namespace kelvane::simulators::fluke74x
