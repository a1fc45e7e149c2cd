#include "testkit/torque_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

class TorqueAcceptance : public TorqueFixture {};

TEST_F(TorqueAcceptance, ChecksRunInTheirOrderAndTheFirstThatFailsCounts) {
    const auto inputs = u"Calibrator cannot calibrate instruments that have indicated inputs!"_s;
    const auto outputs = u"Calibrator cannot calibrate instruments that have indicated outputs!"_s;
    const auto inputUnits = u"TorqueStar cannot accept selected input units!"_s;
    const auto outputUnits = u"TorqueStar cannot accept selected output units!"_s;
    const auto good = u"ft/lb"_s;
    const auto bad = u"psi"_s;
    const struct {
        bool input_indicated, output_indicated;
        QString type, input, output, answer;
    } cases[] = {
        {true, true, u"Serial"_s, bad, bad, inputs},
        {false, true, u"Serial"_s, bad, bad, outputs},
        {false, false, u"Serial"_s, bad, bad, {}},
        {false, false, u"serial"_s, bad, bad, inputUnits},
        {false, false, u"UTA"_s, bad, bad, inputUnits},
        {false, false, u"UTA"_s, good, bad, outputUnits},
        {false, false, u""_s, good, good, {}},
        {false, false, u"UTA"_s, u"FT/LB"_s, good, inputUnits},
        {false, false, u"UTA"_s, good, u"Serial Torque Transducer"_s, outputUnits},
    };
    int number = 0;
    for (const auto& testCase : cases) {
        auto record = wrench();
        record.input_indicated = testCase.input_indicated;
        record.output_indicated = testCase.output_indicated;
        record.transducer_type_out = testCase.type;
        record.input_type = testCase.input;
        record.output_type = testCase.output;
        addInstrument(u"W-1"_s, u"1"_s, record);
        EXPECT_EQ(TorqueStar_acceptable(driver, u"W-1"_s), testCase.answer) << "row " << number++;
    }
}

TEST_F(TorqueAcceptance, EachOfTheNineUnitsIsTakenOnBothSides) {
    for (const auto& unit : {u"in/oz"_s, u"in/lb"_s, u"ft/lb"_s, u"N/cm"_s, u"N/m"_s, u"Kg/cm"_s, u"Kg/m"_s,
                             u"Klb/ft"_s, u"KN/m"_s}) {
        auto record = wrench();
        record.input_type = record.output_type = unit;
        addInstrument(u"W-1"_s, u"1"_s, record);
        EXPECT_EQ(TorqueStar_acceptable(driver, u"W-1"_s), QString()) << unit.toStdString();
    }
}

TEST_F(TorqueAcceptance, ReadsTheParametersOnceAndSetsThePointerBack) {
    addInstrument(u"W-1"_s, u"1"_s, wrench());
    TorqueStar_acceptable(driver, u"W-1"_s);
    EXPECT_EQ(script.statements, QStringList{selectParams(u"W-1"_s)});
    // The reading of the parameters has a pointer of its own.
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s}));
    EXPECT_EQ(port.log, QStringList());
}

TEST_F(TorqueAcceptance, AnInstrumentWithoutParametersHasNoUnits) {
    EXPECT_EQ(TorqueStar_acceptable(driver, u"unknown"_s),
              u"TorqueStar cannot accept selected input units!"_s);
}

TEST_F(TorqueAcceptance, AStandardMustAlwaysBeNamed) {
    EXPECT_TRUE(TorqueStar_requires_standard(driver, u"W-1"_s));
    EXPECT_TRUE(TorqueStar_requires_standard(driver, QString()));
    EXPECT_EQ(script.statements, QStringList());
}

} // namespace kelvane::testing
