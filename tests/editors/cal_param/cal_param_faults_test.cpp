#include "tests/editors/cal_param/cal_param_fixture.h"
#include "tests/editors/cal_param/cal_param_screen.h"

#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

struct Setting {
    QString control;
    QString value;
};

/// A fault: how the screen gets it, and where it leads.
struct Fault {
    const char* name;
    QList<Setting> settings;
    QString message;
    int page;
    QString focus;
    QString subTabs = {};
    int subPage = 0;
};

const QString sameScale = u"High and Low Settings Cannot Be The Same!"_s;
const QString noUnits = u"Must enter units of measure!"_s;
const QString noAmplitude = u"Peak-To-Peak Amplitude Not Valid!"_s;
const QString badTolerance = u"Tolerance value must be numeric!"_s;
const QString noReference = u"Reference temperature must be specified!"_s;

QList<Setting> emptyTolerances() {
    QList<Setting> settings;
    for (const auto& box : toleranceBoxes())
        settings << Setting{box, {}};
    return settings;
}

/// In the order of the checks.
QList<Fault> faults() {
    QList<Fault> all{
        {"no strategy", {{u"ComboTSName"_s, {}}}, u"Must specify a test strategy!"_s, 0, u"ComboTSName"_s},
        {"input high empty",
         {{u"TextInputHigh"_s, {}}},
         u"Must enter a valid high input value!"_s,
         1,
         u"TextInputHigh"_s},
        {"input high no number",
         {{u"TextInputHigh"_s, u"12 psi"_s}},
         u"Must enter a valid high input value!"_s,
         1,
         u"TextInputHigh"_s},
        {"output high empty",
         {{u"TextOutputHigh"_s, {}}},
         u"Must enter a valid high output value!"_s,
         2,
         u"TextOutputHigh"_s},
        {"output high too large for a number",
         {{u"TextOutputHigh"_s, u"1e400"_s}},
         u"Must enter a valid high output value!"_s,
         2,
         u"TextOutputHigh"_s},
        {"input low no number",
         {{u"TextInputLow"_s, u"NaN"_s}},
         u"Must enter a valid low input value!"_s,
         1,
         u"TextInputLow"_s},
        {"output low no number",
         {{u"TextOutputLow"_s, u"-"_s}},
         u"Must enter a valid low output value!"_s,
         2,
         u"TextOutputLow"_s},
        {"input scale without a span",
         {{u"TextInputLow"_s, u"1.0"_s}, {u"TextInputHigh"_s, u"1"_s}},
         sameScale,
         1,
         u"TextInputLow"_s},
        {"input low empty counts as zero",
         {{u"TextInputLow"_s, {}}, {u"TextInputHigh"_s, u"0.00"_s}},
         sameScale,
         1,
         u"TextInputLow"_s},
        {"output scale without a span",
         {{u"TextOutputLow"_s, u"1,000"_s}, {u"TextOutputHigh"_s, u"1e3"_s}},
         sameScale,
         2,
         u"TextOutputLow"_s},
        {"repetitions empty",
         {{u"TextRepetitions"_s, {}}},
         u"Test Point Repetitions value must be numeric!"_s,
         1,
         u"TextRepetitions"_s},
        {"repetitions no number",
         {{u"TextRepetitions"_s, u"two"_s}},
         u"Test Point Repetitions value must be numeric!"_s,
         1,
         u"TextRepetitions"_s},
        {"repetitions below one, though greater than zero",
         {{u"TextRepetitions"_s, u"0.5"_s}},
         u"Test Point Repetitions must be greater than zero!"_s,
         1,
         u"TextRepetitions"_s},
        {"no input units", {{u"ComboInputUnits"_s, {}}}, noUnits, 1, u"ComboInputUnits"_s},
        {"no output units", {{u"ComboOutputUnits"_s, {}}}, noUnits, 2, u"ComboOutputUnits"_s},
        {"no tolerance", emptyTolerances(), u"Must enter a tolerance!"_s, 3, {}},
    };
    for (const auto& box : toleranceBoxes())
        all << Fault{"a tolerance is no number", {{box, u"1 %"_s}}, badTolerance, 3, box};
    const Setting tempIn{u"ComboInputUnits"_s, u"F"_s};
    const Setting tempOut{u"ComboOutputUnits"_s, u"C"_s};
    const Setting torque{u"ComboOutputUnits"_s, u"ft/lb"_s};
    const Setting clickDip{u"ComboMeasurementModeOut"_s, u"Click Dip"_s};
    all << QList<Fault>{
        {"no input temperature scale",
         {tempIn, {u"ComboTempScaleIn"_s, {}}},
         u"Temperature scale must be set!"_s,
         1,
         u"ComboTempScaleIn"_s,
         u"SSTabInTemp"_s,
         0},
        {"no input sensor",
         {tempIn, {u"ComboSensTypeIn"_s, {}}},
         u"Sensor type must be set!"_s,
         1,
         u"ComboSensTypeIn"_s,
         u"SSTabInTemp"_s,
         2},
        {"no input reference",
         {tempIn, {u"OptionCJRefExtIn"_s, u"on"_s}, {u"TextCJRefTempIn"_s, {}}},
         noReference,
         1,
         u"TextCJRefTempIn"_s,
         u"SSTabInTemp"_s,
         1},
        // What is wrong with the output's sensor leads to the input page.
        {"no output temperature scale",
         {tempOut, {u"ComboTempScaleOut"_s, {}}},
         u"Temperature scale must be set!"_s,
         1,
         u"ComboTempScaleOut"_s,
         u"SSTabOutTemp"_s,
         0},
        {"no output sensor",
         {tempOut, {u"ComboSensTypeOut"_s, {}}},
         u"Sensor type must be set!"_s,
         1,
         u"ComboSensTypeOut"_s,
         u"SSTabOutTemp"_s,
         2},
        {"no output reference",
         {tempOut, {u"OptionCJRefExtOut"_s, u"on"_s}, {u"TextCJRefTempOut"_s, {}}},
         noReference,
         1,
         u"TextCJRefTempOut"_s,
         u"SSTabOutTemp"_s,
         1},
        {"no threshold torque",
         {torque, {u"TextThresholdOut"_s, {}}},
         u"Threshold Torque Not Set!"_s,
         2,
         u"TextThresholdOut"_s,
         u"SSTabTorqueOut"_s,
         0},
        {"no click dip torque",
         {torque, clickDip, {u"TextDipOut"_s, {}}},
         u"Click Dip Torque Not Set!"_s,
         2,
         u"TextDipOut"_s,
         u"SSTabTorqueOut"_s,
         0},
        {"threshold torque no number",
         {torque, {u"TextThresholdOut"_s, u"1.2.3"_s}},
         u"Threshold Torque Must Be Numeric!"_s,
         2,
         u"TextThresholdOut"_s,
         u"SSTabTorqueOut"_s,
         0},
        {"click dip torque no number",
         {torque, clickDip, {u"TextDipOut"_s, u"x"_s}},
         u"Click Dip Torque Must Be Numeric!"_s,
         2,
         u"TextDipOut"_s,
         u"SSTabTorqueOut"_s,
         0},
        {"input amplitude empty",
         {{u"ComboInputUnits"_s, u"KHz"_s}, {u"TextPTPAmplitudeIn"_s, {}}},
         noAmplitude,
         1,
         u"TextPTPAmplitudeIn"_s},
        {"output amplitude no number",
         {{u"ComboOutputUnits"_s, u"Hz"_s}, {u"TextPTPAmplitudeOut"_s, u"ten"_s}},
         noAmplitude,
         2,
         u"TextPTPAmplitudeOut"_s},
    };
    return all;
}

/// Whether a screen can have both faults.
bool areCompatible(const Fault& first, const Fault& second) {
    for (const auto& setting : first.settings) {
        for (const auto& other : second.settings) {
            if (setting.control == other.control && setting.value != other.value)
                return false;
        }
    }
    return true;
}

} // namespace

class CalParamFaults : public CalParamFixture {
  protected:
    void apply(const Fault& fault) {
        for (const auto& setting : fault.settings)
            screen.set(setting.control, setting.value);
    }
    void expectMessage(const Fault& fault) {
        const auto before = ui.events;
        ui.expectBox(fault.message, u"Calibration Parameters"_s, box::warning);
        screen.press(u"CommandSave"_s);
        EXPECT_TRUE(ui.hasMetAll()) << fault.name;
        EXPECT_EQ(ui.events, before) << "no hourglass while nothing is written";
    }
};

TEST_F(CalParamFaults, LeadToTheirPageAndField) {
    for (const auto& fault : faults()) {
        SCOPED_TRACE(fault.name);
        makeReady();
        apply(fault);
        screen.showPage(fault.page == 3 ? 0 : 3);
        expectMessage(fault);
        EXPECT_EQ(screen.page(), fault.page);
        if (!fault.focus.isEmpty()) {
            EXPECT_EQ(screen.focus(), fault.focus);
        }
        if (!fault.subTabs.isEmpty()) {
            EXPECT_EQ(control<QTabWidget>(screen.form(), fault.subTabs).currentIndex(), fault.subPage);
        }
        EXPECT_EQ(writes(), QStringList());
    }
}

TEST_F(CalParamFaults, OfAnUnusedClickDipTorqueAreShownToo) {
    makeReady();
    screen.set(u"ComboOutputUnits"_s, u"ft/lb"_s);
    screen.set(u"ComboMeasurementModeOut"_s, u"Peak"_s);
    screen.set(u"TextDipOut"_s, {});
    EXPECT_FALSE(control<QWidget>(screen.form(), u"TextDipOut"_s).isEnabled());
    ui.expectBox(u"Click Dip Torque Not Set!"_s, u"Calibration Parameters"_s, box::warning);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(screen.page(), 2);
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(CalParamFaults, AreShownInTheirOrderOneAtATime) {
    const auto all = faults();
    int pairs = 0;
    for (qsizetype first = 0; first < all.size(); ++first) {
        for (qsizetype second = first + 1; second < all.size(); ++second) {
            if (!areCompatible(all[first], all[second]))
                continue;
            SCOPED_TRACE(std::string(all[first].name) + " and " + all[second].name);
            makeReady();
            apply(all[second]);
            apply(all[first]);
            expectMessage(all[first]);
            // Two fields may have the same fault: the focus shows which was found.
            if (!all[first].focus.isEmpty()) {
                EXPECT_EQ(screen.focus(), all[first].focus);
            }
            ++pairs;
        }
    }
    EXPECT_GT(pairs, 300);
    EXPECT_EQ(writes(), QStringList());
}

TEST_F(CalParamFaults, AreFoundInEveryTextThatIsNoNumberInEachFieldThatNeedsOne) {
    struct Field {
        QString name;
        QString message;
        QList<Setting> context = {};
    };
    const Setting torque{u"ComboOutputUnits"_s, u"ft/lb"_s};
    QList<Field> fields{
        {u"TextInputHigh"_s, u"Must enter a valid high input value!"_s},
        {u"TextOutputHigh"_s, u"Must enter a valid high output value!"_s},
        {u"TextInputLow"_s, u"Must enter a valid low input value!"_s},
        {u"TextOutputLow"_s, u"Must enter a valid low output value!"_s},
        {u"TextRepetitions"_s, u"Test Point Repetitions value must be numeric!"_s},
        {u"TextThresholdOut"_s, u"Threshold Torque Must Be Numeric!"_s, {torque}},
        {u"TextDipOut"_s,
         u"Click Dip Torque Must Be Numeric!"_s,
         {torque, {u"ComboMeasurementModeOut"_s, u"Click Dip"_s}}},
        {u"TextPTPAmplitudeIn"_s, noAmplitude, {{u"ComboInputUnits"_s, u"Hz"_s}}},
        {u"TextPTPAmplitudeOut"_s, noAmplitude, {{u"ComboOutputUnits"_s, u"MHz"_s}}},
    };
    for (const auto& box : toleranceBoxes())
        fields << Field{box, badTolerance};
    const QStringList texts{
        u" "_s,     u"1e400"_s, u"-1e400"_s, u"NaN"_s,   u"inf"_s,     u"0x10"_s,  u"1'"_s,
        u"'; --"_s, u"\""_s,    u"1\n2"_s,   u"1\r\n"_s, u"\t1"_s,     u"1 000"_s, u"1.2.3"_s,
        u"١٢"_s,    u"１２"_s,  u"五"_s,     u"−1"_s,    u"1\u00A0"_s, u"1 psi"_s, u"9"_s.repeated(40000)};
    for (const auto& field : fields) {
        for (const auto& text : texts) {
            SCOPED_TRACE(field.name.toStdString() + ": " + text.left(20).toStdString());
            makeReady();
            for (const auto& setting : field.context)
                screen.set(setting.control, setting.value);
            screen.set(field.name, text);
            ui.expectBox(field.message, u"Calibration Parameters"_s, box::warning);
            screen.press(u"CommandSave"_s);
            EXPECT_TRUE(ui.hasMetAll());
            EXPECT_EQ(screen.focus(), field.name);
            EXPECT_EQ(screen.text(field.name), text) << "what was typed stays";
        }
    }
    EXPECT_EQ(writes(), QStringList());
}

struct Odd {
    const char* name;
    QList<Setting> settings;
};

TEST_F(CalParamFaults, AreNotFoundInUnusualButValidEntries) {
    const Odd odd[] = {
        {"a scale upside down", {{u"TextInputLow"_s, u"100"_s}, {u"TextInputHigh"_s, u"0"_s}}},
        {"an empty low end", {{u"TextInputLow"_s, {}}, {u"TextOutputLow"_s, {}}}},
        {"one tolerance, and that zero", emptyTolerances() << Setting{u"TextUnitsNeg"_s, u"0.0"_s}},
        {"a broken number of repetitions", {{u"TextRepetitions"_s, u"1.5"_s}}},
        {"a reference that is no number",
         {{u"ComboInputUnits"_s, u"C"_s},
          {u"OptionCJRefExtIn"_s, u"on"_s},
          {u"TextCJRefTempIn"_s, u"abc"_s}}},
        {"an empty reference while it is measured",
         {{u"ComboInputUnits"_s, u"C"_s}, {u"TextCJRefTempIn"_s, {}}}},
        {"a sensor that is missing where none is called for",
         {{u"ComboSensTypeIn"_s, {}}, {u"ComboTempScaleOut"_s, {}}}},
        {"torques that are missing without a torque unit",
         {{u"TextThresholdOut"_s, {}}, {u"TextDipOut"_s, u"x"_s}}},
        {"a torque unit at the input", {{u"ComboInputUnits"_s, u"N/m"_s}, {u"TextThresholdOut"_s, {}}}},
        {"amplitudes without a frequency",
         {{u"TextPTPAmplitudeIn"_s, {}}, {u"TextPTPAmplitudeOut"_s, u"x"_s}}},
        {"numbers in other forms",
         {{u"TextInputHigh"_s, u" +1,000.5 "_s}, {u"TextOutputHigh"_s, u"5."_s}, {u"TextFSPos"_s, u".5"_s}}},
    };
    for (const auto& name : odd) {
        SCOPED_TRACE(name.name);
        makeReady();
        for (const auto& setting : name.settings)
            screen.set(setting.control, setting.value);
        screen.press(u"CommandSave"_s);
        EXPECT_EQ(writes().size(), 2);
        script.statements.clear();
    }
}

} // namespace kelvane::testing
