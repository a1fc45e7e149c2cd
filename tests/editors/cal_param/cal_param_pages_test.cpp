#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The label that stands for a control; empty without one.
QString labelOf(const QWidget& screen, const QString& name) {
    for (const auto* label : screen.findChildren<QLabel*>()) {
        if (label->buddy() && label->buddy()->objectName() == name)
            return label->text();
    }
    return {};
}

QStringList pagesOf(const QTabWidget& tabs) {
    QStringList captions;
    for (int page = 0; page < tabs.count(); ++page)
        captions << tabs.tabText(page);
    return captions;
}

/// The page on which a control stands: the captions of the tabs and panels around it, from the outside.
QString wayTo(const QWidget& screen, const QString& name) {
    QStringList way;
    for (const auto* one = &control<QWidget>(screen, name); one; one = one->parentWidget()) {
        if (const auto* panel = qobject_cast<const QGroupBox*>(one))
            way.prepend(panel->title());
        const auto* tabs = one->parentWidget()
                               ? qobject_cast<const QTabWidget*>(one->parentWidget()->parentWidget())
                               : nullptr;
        if (tabs && tabs->indexOf(one) >= 0)
            way.prepend(tabs->tabText(tabs->indexOf(one)));
    }
    return way.join(u" > "_s);
}

const QStringList units{u"C"_s,     u"F"_s,      u"V"_s,     u"mV"_s,    u"mA"_s,   u"Hz"_s,   u"KHz"_s,
                        u"MHz"_s,   u"Ohms"_s,   u"KOhms"_s, u"psi"_s,   u"psig"_s, u"inHg"_s, u"inH2O"_s,
                        u"mmHg"_s,  u"kPa"_s,    u"bar"_s,   u"mbar"_s,  u"uV"_s,   u"uA"_s,   u"A"_s,
                        u"Mohms"_s, u"in/oz"_s,  u"in/lb"_s, u"ft/lb"_s, u"N/cm"_s, u"N/m"_s,  u"Kg/cm"_s,
                        u"Kg/m"_s,  u"Klb/ft"_s, u"KN/m"_s,  u"VAC"_s,   u"mVAC"_s, u"%"_s};
const QStringList sensors{u"RTD PT100 385"_s,  u"RTD PT200 385"_s,  u"RTD PT500 385"_s, u"RTD PT1000 385"_s,
                          u"RTD PT100 3916"_s, u"RTD PT100 3926"_s, u"RTD NI120 672"_s, u"RTD CU10 427"_s,
                          u"TC E"_s,           u"TC N"_s,           u"TC J"_s,          u"TC K"_s,
                          u"TC T"_s,           u"TC B"_s,           u"TC R"_s,          u"TC S"_s,
                          u"TC C"_s,           u"TC L"_s,           u"TC U"_s};
const QString wires = u"Number of wires connected to the RTD"_s;
const QString amplitude = u"Peak-To-Peak amplitude of the waveform in millivolts"_s;
const QString reference = u"Reference Temperature (In units specified above)"_s;
const QString presetReference =
    u"If the calibrator supports preset reference temperature, then use this value"_s;
const QString sensor = u"Type of temperature sensor and output \"curve\""_s;

} // namespace

TEST_F(CalParamPages, TextBoxesHaveTheirLabelsStartingTextsAndToolTips) {
    const struct {
        QString name;
        QString label;
        QString starts;
        QString toolTip;
    } boxes[] = {
        {u"TextInputLow"_s, u"Input Low"_s, u"0.0"_s, u"Lowest value measured by the instrument"_s},
        {u"TextInputHigh"_s, u"Input High"_s, u"100.0"_s, u"Highest value measured by the instrument"_s},
        {u"TextRepetitions"_s, u"Test Point Repetitions"_s, u"1"_s,
         u"Number of times to repeat each test point for averaging/statistics/etc."_s},
        {u"TextOutputLow"_s, u"Output Low"_s, u"0.0"_s, u"Lowest value output by the instrument"_s},
        {u"TextOutputHigh"_s, u"Output High"_s, u"100.0"_s, u"Highest value output by the instrument"_s},
        {u"TextFSPos"_s, u"Positive"_s, u"0.0"_s, u"Percent of Full Scale tolerance"_s},
        {u"TextFSNeg"_s, u"Negative"_s, u"0.0"_s, u"Percent of Full Scale tolerance"_s},
        {u"TextSpanPos"_s, u"Positive"_s, u"0.0"_s, u"Percent of measurement span"_s},
        {u"TextSpanNeg"_s, u"Negative"_s, u"0.0"_s, u"Percent of measurement span"_s},
        {u"TextReadPos"_s, u"Positive"_s, u"0.0"_s, u"Percent of measurement (reading)"_s},
        {u"TextReadNeg"_s, u"Negative"_s, u"0.0"_s, u"Percent of measurement (reading)"_s},
        {u"TextLSDPos"_s, u"Positive"_s, u"0.0"_s, u"Units of least significant digits (resolution)"_s},
        {u"TextLSDNeg"_s, u"Negative"_s, u"0.0"_s, u"Units of least significant digits (resolution)"_s},
        {u"TextUnitsPos"_s, u"Positive"_s, u"0.0"_s, u"Units of measure (input units)"_s},
        {u"TextUnitsNeg"_s, u"Negative"_s, u"0.0"_s, u"Units of measure (input units)"_s},
        {u"TextCJRefTempIn"_s, reference, u"0.0"_s, presetReference},
        {u"TextCJRefTempOut"_s, reference, u"0.0"_s, presetReference},
        {u"TextThresholdOut"_s, u"Threshold Torque"_s, u"0.0"_s, u"Point above which readings are taken"_s},
        {u"TextDipOut"_s, u"Click Dip Torque"_s, u"0.0"_s,
         u"Point at which reading must drop before measurement is taken"_s},
        {u"TextPTPAmplitudeIn"_s, {}, u"100.0"_s, amplitude},
        {u"TextPTPAmplitudeOut"_s, {}, u"100.0"_s, amplitude},
    };
    for (const auto& one : boxes) {
        SCOPED_TRACE(one.name.toStdString());
        EXPECT_EQ(labelOf(*body, one.name), one.label);
        EXPECT_EQ(control<QLineEdit>(*body, one.name).text(), one.starts);
        EXPECT_EQ(control<QLineEdit>(*body, one.name).toolTip(), one.toolTip);
    }
    EXPECT_EQ(std::size(boxes), static_cast<std::size_t>(body->findChildren<QLineEdit*>().size()));
}

TEST_F(CalParamPages, ListsHaveTheirLabelsRowsStartingRowsAndToolTips) {
    const struct {
        QString name;
        QString label;
        QString starts;
        QString toolTip;
        QStringList rows;
    } lists[] = {
        {u"ComboTSName"_s,
         u"Test strategy name"_s,
         {},
         u"Select a test strategy to calibrate this instrument"_s,
         {}},
        {u"ComboInputUnits"_s,
         u"Input Units of Measure"_s,
         {},
         u"Units of measure for the input section of the instrument"_s,
         units},
        {u"ComboOutputUnits"_s,
         u"Output Units of Measure"_s,
         {},
         u"Units of measure for the output section of the instrument"_s,
         units},
        {u"ComboMeasRes"_s,
         u"Measurement Resolution"_s,
         u"0.1"_s,
         u"Measurement resolution of the input section of the instrument"_s,
         {u"100000"_s, u"10000"_s, u"1000"_s, u"100"_s, u"10"_s, u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s,
          u"0.0001"_s, u"0.00001"_s, u"0.000001"_s, u"0.0000001"_s, u"0.00000001"_s, u"0.000000001"_s}},
        {u"ComboTempScaleIn"_s,
         {},
         u"ITS-90"_s,
         u"Temperature scale used by the instrument"_s,
         {u"ITS-90"_s, u"IPTS-68"_s}},
        {u"ComboTempScaleOut"_s,
         {},
         u"ITS-90"_s,
         u"Temperature scale used by the instrument"_s,
         {u"ITS-90"_s, u"IPTS-68"_s}},
        {u"ComboSensTypeIn"_s, u"Sensor Type/Curve"_s, u"RTD PT100 3926"_s, sensor, sensors},
        {u"ComboSensTypeOut"_s, u"Sensor Type/Curve"_s, u"RTD PT100 3926"_s, sensor, sensors},
        {u"ComboTransTypeOut"_s,
         u"Transducer Type"_s,
         u"UTA"_s,
         u"The general type of transducer"_s,
         {u"High Output"_s, u"Industry Standard"_s, u"Serial"_s, u"UTA"_s}},
        {u"ComboMeasurementModeOut"_s,
         u"Measurement Mode"_s,
         u"Peak"_s,
         u"Which mode measurements are taken"_s,
         {u"Click Dip"_s, u"Peak"_s, u"Impulse"_s}},
        {u"ComboCycleEndTimeOut"_s,
         u"Cycle End Time"_s,
         u"1.0"_s,
         u"Measurement stabilisation period"_s,
         {u"0.1"_s, u"0.2"_s, u"0.5"_s, u"1.0"_s, u"2.0"_s, u"5.0"_s, u"10.0"_s}},
        {u"ComboFreqRespOut"_s,
         u"Frequency Response"_s,
         u"1676"_s,
         u"Frequency response of instrument"_s,
         {u"6144"_s, u"3686"_s, u"2304"_s, u"1676"_s, u"1317"_s, u"1024"_s, u"996"_s, u"737"_s, u"527"_s,
          u"376"_s, u"302"_s, u"252"_s, u"200"_s, u"150"_s, u"100"_s, u"75"_s, u"72"_s}},
        {u"ComboMeasDirOut"_s,
         u"Measurement Direction"_s,
         u"Right"_s,
         u"Direction of applied stimulus"_s,
         {u"Right"_s, u"Left"_s}},
        {u"ComboBaudRateOut"_s,
         u"Baud Rate"_s,
         u"9600"_s,
         u"Baud rate used in communications"_s,
         {u"300"_s, u"600"_s, u"1200"_s, u"2400"_s, u"4800"_s, u"9600"_s, u"19200"_s}},
        {u"ComboDataBitsOut"_s,
         u"Data Bits"_s,
         u"8"_s,
         u"Number of data bits used in communications"_s,
         {u"8"_s, u"7"_s}},
        {u"ComboStopBitsOut"_s,
         u"Stop Bits"_s,
         u"1"_s,
         u"Number of stop bits used in communications"_s,
         {u"1"_s, u"2"_s}},
        {u"ComboParityOut"_s,
         u"Parity"_s,
         u"None"_s,
         u"Parity used in communications"_s,
         {u"Even"_s, u"Odd"_s, u"None"_s}},
    };
    for (const auto& one : lists) {
        SCOPED_TRACE(one.name.toStdString());
        const auto& list = control<QComboBox>(*body, one.name);
        EXPECT_EQ(labelOf(*body, one.name), one.label);
        EXPECT_EQ(list.currentText(), one.starts);
        EXPECT_EQ(list.toolTip(), one.toolTip);
        QStringList rows;
        for (int row = 0; row < list.count(); ++row)
            rows << list.itemText(row);
        EXPECT_EQ(rows, one.rows);
        EXPECT_FALSE(list.isEditable());
    }
    EXPECT_EQ(std::size(lists), static_cast<std::size_t>(body->findChildren<QComboBox*>().size()));
}

TEST_F(CalParamPages, OptionsAndCheckBoxesHaveTheirCaptionsStatesAndToolTips) {
    const auto internal = u"Cold-junction reference is automatically determined by the calibrator"_s;
    const auto external = u"Cold-junction reference is manually set by the operator"_s;
    const struct {
        QString name;
        QString caption;
        QString starts;
        QString toolTip;
    } options[] = {
        {u"OptionCJRefIntIn"_s, u"Internal (Automatic)"_s, u"on"_s, internal},
        {u"OptionCJRefExtIn"_s, u"External (Manually Specified)"_s, u"off"_s, external},
        {u"OptionCJRefIntOut"_s, u"Internal (Automatic)"_s, u"on"_s, internal},
        {u"OptionCJRefExtOut"_s, u"External (Manually Specified)"_s, u"off"_s, external},
        {u"OptionSensWires2In"_s, u"2"_s, u"off"_s, wires},
        {u"OptionSensWires3In"_s, u"3"_s, u"off"_s, wires},
        {u"OptionSensWires4In"_s, u"4"_s, u"on"_s, wires},
        {u"OptionSensWires2Out"_s, u"2"_s, u"off"_s, wires},
        {u"OptionSensWires3Out"_s, u"3"_s, u"off"_s, wires},
        {u"OptionSensWires4Out"_s, u"4"_s, u"on"_s, wires},
        {u"OptionCalLoopPWROutOff"_s, u"OFF"_s, u"on"_s,
         u"Disables device under test power from calibrator"_s},
        {u"OptionCalLoopPWROut24VDC"_s, u"24VDC"_s, u"off"_s,
         u"Power device under test with 24VDC from calibrator"_s},
        {u"OptionCalLoopPWROut28VDC"_s, u"28VDC"_s, u"off"_s,
         u"Power device under test with 28VDC from calibrator"_s},
        {u"CheckIndicatedInput"_s, u"Indicated Input"_s, u"off"_s,
         u"Instrument is supplied a value, rather than measuring a quantity from the calibrator."_s},
        {u"CheckIndicatedOutput"_s, u"Indicated Output"_s, u"off"_s,
         u"Instrument \"displays\" it's output, rather than supplying a quantity measured by a calibrator."_s},
    };
    for (const auto& one : options) {
        SCOPED_TRACE(one.name.toStdString());
        EXPECT_EQ(control<QAbstractButton>(*body, one.name).text(), one.caption);
        EXPECT_EQ(shownBy(*body, one.name), one.starts);
        EXPECT_EQ(control<QAbstractButton>(*body, one.name).toolTip(), one.toolTip);
    }
    EXPECT_EQ(std::size(options), static_cast<std::size_t>(body->findChildren<QRadioButton*>().size() +
                                                           body->findChildren<QCheckBox*>().size()));
}

TEST_F(CalParamPages, OneOptionOfAGroupGoesOffWhenAnotherGoesOnAndNoOtherGroupFollows) {
    const QStringList groups[] = {
        {u"OptionCJRefIntIn"_s, u"OptionCJRefExtIn"_s},
        {u"OptionCJRefIntOut"_s, u"OptionCJRefExtOut"_s},
        {u"OptionSensWires2In"_s, u"OptionSensWires3In"_s, u"OptionSensWires4In"_s},
        {u"OptionSensWires2Out"_s, u"OptionSensWires3Out"_s, u"OptionSensWires4Out"_s},
        {u"OptionCalLoopPWROutOff"_s, u"OptionCalLoopPWROut24VDC"_s, u"OptionCalLoopPWROut28VDC"_s},
    };
    for (const auto& group : groups) {
        for (const auto& name : group) {
            const auto before = allShown(*body);
            control<QRadioButton>(*body, name).click();
            for (const auto& one : group)
                EXPECT_EQ(shownBy(*body, one), one == name ? u"on"_s : u"off"_s) << one.toStdString();
            for (const auto& one : allShown(*body)) {
                if (!group.contains(one.section(u':', 0, 0))) {
                    EXPECT_TRUE(before.contains(one)) << one.toStdString();
                }
            }
        }
    }
}

TEST_F(CalParamPages, PagesAndSubTabsHaveTheirCaptions) {
    const QStringList temperature{u"Temperature Scale"_s, u"Cold-Junction Reference"_s, u"Sensor Type"_s};
    const struct {
        QString name;
        QStringList pages;
    } tabs[] = {
        {u"SSTab1"_s,
         {u"General Test Parameters"_s, u"Input Configuration"_s, u"Output Configuration"_s,
          u"Test Tolerances/Error Calculation"_s}},
        {u"SSTabInTemp"_s, temperature},
        {u"SSTabOutTemp"_s, temperature},
        {u"SSTabTorqueOut"_s,
         {u"General Configuration"_s, u"Analog Transducer Configuration"_s,
          u"Digital (Serial) Transducer Configuration"_s}},
        {u"SSTabCurrentOut"_s, {u"Loop Power"_s}},
        {u"SSTabInAmplitude"_s, {u"Waveform"_s}},
        {u"SSTabOutAmplitude"_s, {u"Waveform"_s}},
    };
    for (const auto& one : tabs) {
        EXPECT_EQ(pagesOf(control<QTabWidget>(*body, one.name)), one.pages) << one.name.toStdString();
        EXPECT_EQ(control<QTabWidget>(*body, one.name).isHidden(), one.name != u"SSTab1"_s)
            << one.name.toStdString();
    }
    EXPECT_EQ(std::size(tabs), static_cast<std::size_t>(body->findChildren<QTabWidget*>().size()));
}

TEST_F(CalParamPages, EachControlStandsOnItsPageAndPanel) {
    const auto general = u"General Test Parameters > "_s;
    const auto input = u"Input Configuration > "_s;
    const auto output = u"Output Configuration > "_s;
    const auto tolerance = u"Test Tolerances/Error Calculation > Test Tolerance Specification > "_s;
    const auto torque = output + output;
    const struct {
        QString way;
        QStringList names;
    } places[] = {
        {general + u"Test Parameters"_s, {u"ComboTSName"_s}},
        {general + u"Pre-Test Prompts"_s,
         {u"ListPreDisplay"_s, u"ListPreAvail"_s, u"CommandPreUp"_s, u"CommandPreDown"_s}},
        {general + u"Post-Test Prompts"_s,
         {u"ListPostDisplay"_s, u"ListPostAvail"_s, u"CommandPostUp"_s, u"CommandPostDown"_s}},
        {input + u"Input Scale/Units"_s,
         {u"TextInputLow"_s, u"TextInputHigh"_s, u"ComboInputUnits"_s, u"ComboMeasRes"_s,
          u"TextRepetitions"_s, u"CheckIndicatedInput"_s}},
        {input + input + u"Temperature Scale"_s, {u"ComboTempScaleIn"_s}},
        {input + input + u"Cold-Junction Reference"_s,
         {u"OptionCJRefIntIn"_s, u"OptionCJRefExtIn"_s, u"TextCJRefTempIn"_s}},
        {input + input + u"Sensor Type"_s,
         {u"ComboSensTypeIn"_s, u"OptionSensWires2In"_s, u"OptionSensWires3In"_s, u"OptionSensWires4In"_s}},
        {input + input + u"Waveform > Peak-To-Peak Amplitude"_s, {u"TextPTPAmplitudeIn"_s}},
        {output + u"Output Scale/Units"_s,
         {u"TextOutputLow"_s, u"TextOutputHigh"_s, u"ComboOutputUnits"_s, u"CheckIndicatedOutput"_s}},
        {output + output + u"Temperature Scale"_s, {u"ComboTempScaleOut"_s}},
        {output + output + u"Cold-Junction Reference"_s,
         {u"OptionCJRefIntOut"_s, u"OptionCJRefExtOut"_s, u"TextCJRefTempOut"_s}},
        {output + output + u"Sensor Type"_s,
         {u"ComboSensTypeOut"_s, u"OptionSensWires2Out"_s, u"OptionSensWires3Out"_s,
          u"OptionSensWires4Out"_s}},
        {output + output + u"Waveform > Peak-To-Peak Amplitude"_s, {u"TextPTPAmplitudeOut"_s}},
        {torque + u"General Configuration"_s,
         {u"ComboTransTypeOut"_s, u"ComboMeasurementModeOut"_s, u"TextThresholdOut"_s, u"TextDipOut"_s}},
        {torque + u"Analog Transducer Configuration"_s,
         {u"ComboCycleEndTimeOut"_s, u"ComboFreqRespOut"_s, u"ComboMeasDirOut"_s}},
        {torque + u"Digital (Serial) Transducer Configuration"_s,
         {u"ComboBaudRateOut"_s, u"ComboDataBitsOut"_s, u"ComboStopBitsOut"_s, u"ComboParityOut"_s}},
        {output + output + u"Loop Power > Calibrator As Power Source"_s,
         {u"OptionCalLoopPWROutOff"_s, u"OptionCalLoopPWROut24VDC"_s, u"OptionCalLoopPWROut28VDC"_s}},
        {tolerance + u"Percent of Full Scale/Range"_s, {u"TextFSPos"_s, u"TextFSNeg"_s}},
        {tolerance + u"Percent of Span"_s, {u"TextSpanPos"_s, u"TextSpanNeg"_s}},
        {tolerance + u"Percent of Reading"_s, {u"TextReadPos"_s, u"TextReadNeg"_s}},
        {tolerance + u"LSD Tolerance"_s, {u"TextLSDPos"_s, u"TextLSDNeg"_s}},
        {tolerance + u"Units of Measure"_s, {u"TextUnitsPos"_s, u"TextUnitsNeg"_s}},
    };
    QStringList placed;
    for (const auto& place : places) {
        for (const auto& name : place.names)
            EXPECT_EQ(wayTo(*body, name), place.way) << name.toStdString();
        placed << place.names;
    }
    for (const auto& name : valueControls(*body))
        EXPECT_TRUE(placed.contains(name)) << name.toStdString();
}

TEST_F(CalParamPages, PanelsHaveTheirCaptions) {
    const QPair<QString, QString> panels[] = {
        {u"SSPanel1"_s, u"Test Parameters"_s},
        {u"SSPanel12"_s, u"Pre-Test Prompts"_s},
        {u"SSPanel13"_s, u"Post-Test Prompts"_s},
        {u"SSPanel2"_s, u"Input Scale/Units"_s},
        {u"SSPanel10"_s, u"Input Configuration"_s},
        {u"SSPanel3"_s, u"Output Scale/Units"_s},
        {u"SSPanel11"_s, u"Output Configuration"_s},
        {u"SSPanel4"_s, u"Test Tolerance Specification"_s},
        {u"SSPanel5"_s, u"Percent of Full Scale/Range"_s},
        {u"SSPanel8"_s, u"Percent of Span"_s},
        {u"SSPanel6"_s, u"Percent of Reading"_s},
        {u"SSPanel7"_s, u"LSD Tolerance"_s},
        {u"SSPanel9"_s, u"Units of Measure"_s},
    };
    for (const auto& [name, caption] : panels)
        EXPECT_EQ(control<QGroupBox>(*body, name).title(), caption);
}

TEST_F(CalParamPages, ListsOfMessagesHaveTheirLabelsAndToolTips) {
    for (const auto& kind : {u"Pre"_s, u"Post"_s}) {
        const auto displayed = u"List"_s + kind + u"Display"_s;
        const auto available = u"List"_s + kind + u"Avail"_s;
        EXPECT_EQ(labelOf(*body, displayed), u"Displayed Prompts"_s);
        EXPECT_EQ(labelOf(*body, available), u"Available Prompts"_s);
        EXPECT_EQ(control<QListWidget>(*body, displayed).toolTip(),
                  u"Prompts that will be displayed to the operater"_s);
        EXPECT_EQ(control<QListWidget>(*body, available).toolTip(), u"Prompts that are available for use"_s);
        EXPECT_EQ(shownBy(*body, displayed) + shownBy(*body, available), QString());
        EXPECT_EQ(control<QLabel>(*body, u"Note"_s + kind + u"Display"_s).text(),
                  u"Double-click on a prompt to remove it from the list"_s);
        EXPECT_EQ(control<QLabel>(*body, u"Note"_s + kind + u"Avail"_s).text(),
                  u"Double-click on a prompt to add it to the list"_s);
        const auto& up = control<QPushButton>(*body, u"Command"_s + kind + u"Up"_s);
        const auto& down = control<QPushButton>(*body, u"Command"_s + kind + u"Down"_s);
        EXPECT_EQ(up.toolTip(), u"Make the selected prompt display earlier in sequence"_s);
        EXPECT_EQ(down.toolTip(), u"Make the selected prompt display later in sequence"_s);
        EXPECT_EQ(up.accessibleName(), up.toolTip());
        EXPECT_EQ(down.accessibleName(), down.toolTip());
        EXPECT_EQ(up.text() + down.text(), QString());
    }
}

TEST_F(CalParamPages, ButtonsHaveTheirCaptionsAndToolTips) {
    const struct {
        QString name;
        QString caption;
        QString toolTip;
    } buttons[] = {
        {u"CommandSave"_s, u"Save"_s, u"Save changes made"_s},
        {u"CommandSelect"_s, u"Select"_s, u"Select another instrument to configure"_s},
        {u"CommandClone"_s, u"Clone Configuration"_s, u"Copy these settings to another instrument"_s},
    };
    for (const auto& one : buttons) {
        EXPECT_EQ(control<QPushButton>(*body, one.name).text(), one.caption);
        EXPECT_EQ(control<QPushButton>(*body, one.name).toolTip(), one.toolTip);
    }
}

TEST_F(CalParamPages, NotesAndUnitsStandThereToTheLetter) {
    const QPair<QString, QString> texts[] = {
        {u"NoteMeasRes"_s,
         u"Measurement resolution does not need to be specified; it is only used in \"Units of Measure\" "
         u"error "
         "calculations. If you do not specify units of measure, then the measurement resolution setting is "
         "not used."_s},
        {u"NoteBestFit"_s,
         u"Some docking calibrators do not support multiple tolerance specifications. When downloading "
         "procedures to the docking calibrator, Kelvane will attempt to make a \"best fit\" representation "
         "of "
         "multiple tolerance specifications. These test results are then \"double-checked\" at upload time "
         "to "
         "make sure that a procedure designated as a PASS or FAIL by the calibrator is not in contradiction "
         "to "
         "tolerances specified on this page."_s},
        {u"NoteReading"_s,
         u"Note: Percent of Reading error calculations are performed using calculated nominal values. "
         u"Nominal "
         "values are based on the output of the UUT scaled to the actual test point value."_s},
        {u"NoteTorqueUnits"_s,
         u"Threshold and Click Dip Torques Are Specified Using the Same Input Units Selected Above"_s},
        {u"NoteAnalog"_s,
         u"If transducer type is set to \"Serial\", then entries made in this configuration tab are ignored"_s},
        {u"NoteDigital"_s,
         u"If transducer type is not set to \"Serial\", then entries made in this configuration tab are ignored"_s},
        {u"LabelSensWiresIn"_s, u"Number of Wires (RTD only)"_s},
        {u"LabelSensWiresOut"_s, u"Number of Wires (RTD only)"_s},
        {u"LabelCalLoopPWROut"_s, u"Calibrator Loop Power"_s},
        {u"UnitCycleEndTimeOut"_s, u"Seconds"_s},
        {u"UnitFreqRespOut"_s, u"Hz"_s},
        {u"UnitPTPAmplitudeIn"_s, u"mV"_s},
        {u"UnitPTPAmplitudeOut"_s, u"mV"_s},
    };
    for (const auto& [name, text] : texts)
        EXPECT_EQ(control<QLabel>(*body, name).text(), text);
}

TEST_F(CalParamPages, AScreenReaderTellsFieldsOfTheSameLabelApart) {
    EXPECT_EQ(c.TextSpanNeg->accessibleName(), u"Percent of Span Negative"_s);
    EXPECT_EQ(c.TextUnitsPos->accessibleName(), u"Units of Measure Positive"_s);
    EXPECT_EQ(c.ComboTempScaleIn->accessibleName(), u"Temperature Scale"_s);
    EXPECT_EQ(c.TextPTPAmplitudeIn->accessibleName(), u"Peak-To-Peak Amplitude"_s);
    EXPECT_EQ(c.OptionSensWires3Out->accessibleName(), u"Number of Wires (RTD only) 3"_s);
    EXPECT_EQ(c.ListPostAvail->accessibleName(), u"Post-Test Prompts Available Prompts"_s);
}

TEST_F(CalParamPages, AllControlsAreHandedOver) {
    // The controls are nothing but pointers to widgets.
    std::array<void*, sizeof(CalParamControls) / sizeof(void*)> handed{};
    std::memcpy(handed.data(), &c, sizeof(c));
    EXPECT_EQ(std::ranges::count(handed, nullptr), 0);
}

TEST_F(CalParamPages, TextBoxesSelectTheirFirst30CharactersWhenTheyGetTheFocus) {
    body->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(body.get()));
    const auto value = u"1234567890123456789012345678901234567890"_s;
    for (auto* box : body->findChildren<QLineEdit*>()) {
        SCOPED_TRACE(box->objectName().toStdString());
        bringUp(*box);
        box->setEnabled(true);
        box->setText(value);
        box->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(box->hasFocus());
        EXPECT_EQ(box->selectedText(), value.left(30));
        EXPECT_EQ(box->selectionStart(), 0);
        c.CommandSave->setFocus();
    }
}

} // namespace kelvane::testing
