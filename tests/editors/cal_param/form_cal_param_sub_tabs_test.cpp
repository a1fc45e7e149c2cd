#include "tests/editors/cal_param/form_cal_param_fixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FormCalParamTest, EachUnitShowsItsSubTabsOnItsOwnSide) {
    const struct {
        QStringList units;
        QString input;
        QString output;
    } classes[] = {
        {{u"C"_s, u"F"_s}, u"SSTabInTemp"_s, u"SSTabOutTemp"_s},
        {{u"mA"_s, u"uA"_s, u"A"_s}, {}, u"SSTabCurrentOut"_s},
        {{u"Hz"_s, u"KHz"_s, u"MHz"_s}, u"SSTabInAmplitude"_s, u"SSTabOutAmplitude"_s},
        {{u"in/oz"_s, u"in/lb"_s, u"ft/lb"_s, u"N/cm"_s, u"N/m"_s, u"Kg/cm"_s, u"Kg/m"_s, u"Klb/ft"_s,
          u"KN/m"_s},
         {},
         u"SSTabTorqueOut"_s},
        {{u"psi"_s, u"psig"_s, u"inHg"_s, u"inH2O"_s, u"mmHg"_s, u"kPa"_s, u"bar"_s, u"mbar"_s}, {}, {}},
        {{u"V"_s, u"mV"_s, u"uV"_s}, {}, {}},
        {{u"Ohms"_s, u"KOhms"_s, u"Mohms"_s}, {}, {}},
        {{u"VAC"_s, u"mVAC"_s, u"%"_s}, {}, {}},
    };
    open(u"PT-2"_s);
    auto& input = control<QComboBox>(form(), u"ComboInputUnits"_s);
    auto& output = control<QComboBox>(form(), u"ComboOutputUnits"_s);
    int units = 0;
    for (const auto& unitClass : classes) {
        for (const auto& unit : unitClass.units) {
            SCOPED_TRACE(unit.toStdString());
            pick(output, u"V"_s);
            pick(input, unit);
            EXPECT_EQ(shownSubTabs(),
                      unitClass.input.isEmpty() ? QStringList() : QStringList{unitClass.input});
            pick(input, u"V"_s);
            pick(output, unit);
            EXPECT_EQ(shownSubTabs(),
                      unitClass.output.isEmpty() ? QStringList() : QStringList{unitClass.output});
            ++units;
        }
    }
    EXPECT_EQ(units, input.count());
}

TEST_F(FormCalParamTest, BothSidesShowTheirSubTabsTogether) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"KHz"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"F"_s);
    EXPECT_EQ(shownSubTabs(), (QStringList{u"SSTabInAmplitude"_s, u"SSTabOutTemp"_s}));
}

TEST_F(FormCalParamTest, SubTabsOfStoredUnitsAreShownAtOnce) {
    store(storedRow({{3, u"C"_s}, {4, u"N/m"_s}}));
    open(u"PT-1"_s);
    EXPECT_EQ(shownSubTabs(), (QStringList{u"SSTabInTemp"_s, u"SSTabTorqueOut"_s}));
    // Stored as a serial transducer.
    const auto& torque = control<QTabWidget>(form(), u"SSTabTorqueOut"_s);
    EXPECT_FALSE(torque.isTabEnabled(1));
    EXPECT_TRUE(torque.isTabEnabled(2));
}

TEST_F(FormCalParamTest, HiddenControlsKeepTheirValues) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"C"_s);
    pick(control<QComboBox>(form(), u"ComboSensTypeIn"_s), u"TC J"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"psi"_s);
    EXPECT_EQ(displayText(u"ComboSensTypeIn"_s), u"TC J"_s);
}

TEST_F(FormCalParamTest, ASerialTransducerHasTheDigitalPageAndTheOthersTheAnalogOne) {
    open(u"PT-2"_s);
    const auto& torque = control<QTabWidget>(form(), u"SSTabTorqueOut"_s);
    auto& transducers = control<QComboBox>(form(), u"ComboTransTypeOut"_s);
    for (const auto& unit : {u"ft/lb"_s, u"psi"_s}) {
        // Whether the sub-tabs are shown or not.
        pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), unit);
        for (const auto& transducer : {u"Serial"_s, u"High Output"_s, u"Industry Standard"_s, u"UTA"_s}) {
            pick(transducers, transducer);
            const bool serial = transducer == u"Serial"_s;
            EXPECT_TRUE(torque.isTabEnabled(0));
            EXPECT_EQ(torque.isTabEnabled(1), !serial) << transducer.toStdString();
            EXPECT_EQ(torque.isTabEnabled(2), serial) << transducer.toStdString();
        }
    }
}

TEST_F(FormCalParamTest, TheClickDipTorqueIsEnabledInItsModeOnly) {
    open(u"PT-2"_s);
    for (const auto& mode : {u"Click Dip"_s, u"Impulse"_s, u"Click Dip"_s, u"Peak"_s}) {
        pick(control<QComboBox>(form(), u"ComboMeasurementModeOut"_s), mode);
        const bool enabled = mode == u"Click Dip"_s;
        EXPECT_EQ(control<QLineEdit>(form(), u"TextDipOut"_s).isEnabled(), enabled) << mode.toStdString();
        EXPECT_EQ(control<QLabel>(form(), u"LabelDipOut"_s).isEnabled(), enabled) << mode.toStdString();
        EXPECT_TRUE(control<QLineEdit>(form(), u"TextThresholdOut"_s).isEnabled());
    }
}

TEST_F(FormCalParamTest, ChoosingTheTransducerLeavesTheFocusInItsSubTab) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"ft/lb"_s);
    auto& transducers = control<QComboBox>(form(), u"ComboTransTypeOut"_s);
    bringToFront(transducers);
    transducers.setFocus();
    QTest::keyClick(&transducers, Qt::Key_Up);
    EXPECT_EQ(transducers.currentText(), u"Serial"_s);
    EXPECT_TRUE(transducers.hasFocus());
}

TEST_F(FormCalParamTest, EverySubTabFitsWithoutTheWindowGrowing) {
    open(u"PT-2"_s);
    const auto size = form().size();
    for (const auto& unit : {u"C"_s, u"Hz"_s, u"ft/lb"_s, u"mA"_s}) {
        pick(control<QComboBox>(form(), u"ComboInputUnits"_s), unit);
        pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), unit);
        QCoreApplication::processEvents();
        EXPECT_EQ(form().size(), size);
    }
}

} // namespace kelvane::testing
