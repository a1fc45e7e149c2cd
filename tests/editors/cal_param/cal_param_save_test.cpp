#include "tests/editors/cal_param/cal_param_entry.h"
#include "tests/editors/cal_param/cal_param_fixture.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString insertOf(const QStringList& values) {
    return u"insert into mt.hvm_kv_tag_config ("_s + givenSavedColumns.toString() + u") values ("_s +
           values.join(u',') + u");commit"_s;
}

} // namespace

class CalParamSave : public CalParamFixture {
  protected:
    CalParamSave() { makeReady(); }

    static QString deleteOf(const QString& asset) {
        return u"delete from mt.hvm_kv_tag_config where mtag = "_s + key(asset) +
               u";delete from mt.hvm_kv_proc_prompts where mtag = "_s + key(asset) + u";commit"_s;
    }
    static QString insertPrompt(const QString& asset, const QString& type, int place, const QString& name) {
        return u"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values ("_s +
               key(asset) + u",'"_s + type + u"','"_s + QString::number(place) + u"','"_s + name +
               u"');commit"_s;
    }
    void save() { screen.press(u"CommandSave"_s); }
    /// The value that is stored in a column.
    QString stored(const QString& column) {
        const auto names = givenSavedColumns.toString().split(u',');
        // The key holds a comma-free statement; no value of these tests holds a comma.
        const auto values = writes().at(1).section(u") values ("_s, 1).chopped(8).split(u',');
        EXPECT_EQ(values.size(), names.size());
        return values.value(names.indexOf(column));
    }
};

TEST_F(CalParamSave, ReplacesWhatIsStoredAndNamesTheSchemaInOneStatementAlone) {
    session.SessionOwner = u"ABC"_s;
    save();
    const auto own = u"(select mtag from ABC.inventory where i4201 = 'PT-1')"_s;
    EXPECT_EQ(script.statements,
              (QStringList{u"delete from mt.hvm_kv_tag_config where mtag = "_s + own +
                               u";delete from mt.hvm_kv_proc_prompts where mtag = "_s + own + u";commit"_s,
                           insertOf(readyValues(u"PT-1"_s))}));
    EXPECT_EQ(screen.form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(CalParamSave, WritesEveryControlWhetherItsPageIsShownOrNot) {
    for (const auto& control : givenControls()) {
        SCOPED_TRACE(control.name.toString().toStdString());
        const auto name = control.name.toString();
        const auto& param = *std::ranges::find(givenParams, control.column, &GivenParam::column);
        const auto value = name.startsWith(u"Check")  ? QStringView(u"Y")
                           : control.stored.isEmpty() ? param.shown
                                                      : control.stored;
        script.statements.clear();
        screen.set(name, shownFor(control, value));
        save();
        EXPECT_EQ(stored(param.column.toString()), u'\'' + value.toString() + u'\'');
        if (param.isNullWhenEmpty) {
            script.statements.clear();
            screen.set(name, {});
            save();
            EXPECT_EQ(stored(param.column.toString()), u"NULL"_s);
            screen.set(name, value.toString());
        }
    }
}

TEST_F(CalParamSave, PassesOnAsTheyStandWhatIsNeitherExaminedNorEverNull) {
    for (const auto& [name, value, column] : {std::tuple{u"TextRepetitions"_s, u"1.5"_s, u"repetitions"_s},
                                              {u"TextThresholdOut"_s, QString(), u"threshold_torque_out"_s},
                                              {u"TextPTPAmplitudeIn"_s, QString(), u"freq_ptpamp_in"_s},
                                              {u"TextCJRefTempIn"_s, u"abc"_s, u"cj_ref_temp_in"_s},
                                              {u"ComboOutputUnits"_s, u"%"_s, u"output_type"_s}}) {
        script.statements.clear();
        screen.set(name, value);
        save();
        EXPECT_EQ(stored(column), u'\'' + value + u'\'');
    }
}

TEST_F(CalParamSave, StoresEachToleranceThatIsEmptyAsNull) {
    const auto controls = givenControls();
    for (const auto& box : toleranceBoxes()) {
        const auto& given = *std::ranges::find(controls, box, &GivenControl::name);
        script.statements.clear();
        makeReady();
        screen.set(box, {});
        save();
        EXPECT_EQ(stored(given.column.toString()), u"NULL"_s) << box.toStdString();
        EXPECT_EQ(writes().at(1).count(u"NULL"_s), 1);
    }
}

TEST_F(CalParamSave, WritesTheMessagesInTheOrderOfTheirLists) {
    screen.fill(u"ListPreDisplay"_s, {u"ISOLATE"_s, u"VENT"_s});
    screen.fill(u"ListPostDisplay"_s, {u"VENT"_s});
    save();
    EXPECT_EQ(script.statements, (QStringList{deleteOf(u"PT-1"_s), insertOf(readyValues(u"PT-1"_s)),
                                              insertPrompt(u"PT-1"_s, u"PRE"_s, 0, u"ISOLATE"_s),
                                              insertPrompt(u"PT-1"_s, u"PRE"_s, 1, u"VENT"_s),
                                              insertPrompt(u"PT-1"_s, u"PST"_s, 0, u"VENT"_s)}));
}

TEST_F(CalParamSave, TakesTheSignFromTheScalesOfAnAlternatingVoltage) {
    const struct {
        QString input;
        QString output;
        QStringList scales; // input low and high, output low and high
    } cases[] = {
        {u"VAC"_s, u"mA"_s, {u"5"_s, u"10"_s, u"-4"_s, u"-20"_s}},
        {u"mVAC"_s, u"mA"_s, {u"5"_s, u"10"_s, u"-4"_s, u"-20"_s}},
        {u"psi"_s, u"VAC"_s, {u"-5"_s, u"-10"_s, u"4"_s, u"20"_s}},
        {u"VAC"_s, u"mVAC"_s, {u"5"_s, u"10"_s, u"4"_s, u"20"_s}},
        {u"V"_s, u"mV"_s, {u"-5"_s, u"-10"_s, u"-4"_s, u"-20"_s}},
    };
    const QStringList boxes{u"TextInputLow"_s, u"TextInputHigh"_s, u"TextOutputLow"_s, u"TextOutputHigh"_s};
    for (const auto& testCase : cases) {
        script.statements.clear();
        screen.set(u"ComboInputUnits"_s, testCase.input);
        screen.set(u"ComboOutputUnits"_s, testCase.output);
        const QStringList before{u"-5"_s, u"-10"_s, u"-4"_s, u"-20"_s};
        for (qsizetype i = 0; i < boxes.size(); ++i)
            screen.set(boxes[i], before[i]);
        save();
        for (qsizetype i = 0; i < boxes.size(); ++i)
            EXPECT_EQ(screen.text(boxes[i]), testCase.scales[i]) << testCase.input.toStdString();
        EXPECT_EQ(stored(u"input_low"_s), u'\'' + testCase.scales[0] + u'\'');
        EXPECT_EQ(stored(u"output_high"_s), u'\'' + testCase.scales[3] + u'\'');
    }
}

TEST_F(CalParamSave, MakesAnEmptyLowEndOfAnAlternatingVoltageAZero) {
    screen.set(u"ComboInputUnits"_s, u"VAC"_s);
    screen.set(u"TextInputLow"_s, {});
    screen.set(u"TextInputHigh"_s, u"-1,000.50"_s);
    save();
    EXPECT_EQ(screen.text(u"TextInputLow"_s), u"0"_s);
    EXPECT_EQ(screen.text(u"TextInputHigh"_s), u"1000.5"_s);
    EXPECT_EQ(stored(u"input_low"_s), u"'0'"_s);
}

TEST_F(CalParamSave, ThatIsRefusedLeavesTheSignsAsTheyAre) {
    screen.set(u"ComboInputUnits"_s, u"VAC"_s);
    screen.set(u"TextInputLow"_s, u"-5"_s);
    screen.set(u"TextRepetitions"_s, u"0"_s);
    ui.expectBox(u"Test Point Repetitions must be greater than zero!"_s, u"Calibration Parameters"_s,
                 box::warning);
    save();
    EXPECT_EQ(screen.text(u"TextInputLow"_s), u"-5"_s);
}

TEST_F(CalParamSave, FindsTheEndsTheSameBeforeItTakesTheirSigns) {
    // -5 to 5 is a span; what is stored of it has none.
    screen.set(u"ComboInputUnits"_s, u"VAC"_s);
    screen.set(u"TextInputLow"_s, u"-5"_s);
    screen.set(u"TextInputHigh"_s, u"5"_s);
    save();
    EXPECT_EQ(stored(u"input_low"_s), u"'5'"_s);
    EXPECT_EQ(stored(u"input_high"_s), u"'5'"_s);
}

TEST_F(CalParamSave, WithAQuoteInAValueIsNotSentAndLeadsToItsField) {
    screen.set(u"TextCJRefTempIn"_s, u"20'"_s);
    ui.expectReport(1, u"FormCalParam,SaveData"_s);
    save();
    EXPECT_EQ(script.statements, QStringList{deleteOf(u"PT-1"_s)});
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
    EXPECT_EQ(screen.focus(), u"TextCJRefTempIn"_s);
}

TEST_F(CalParamSave, PassesAnyReferenceTemperatureOnAsItStands) {
    const QStringList texts{u"abc"_s,    u"NaN"_s,         u"1e400"_s, u"20\r\n21"_s,
                            u"二十度"_s, u"\"; drop --"_s, u" "_s,     u"0123456789"_s.repeated(100000)};
    for (const auto& box : {u"TextCJRefTempIn"_s, u"TextCJRefTempOut"_s}) {
        for (const auto& text : texts) {
            SCOPED_TRACE(box.toStdString() + ": " + text.left(20).toStdString());
            makeReady();
            script.statements.clear();
            screen.set(box, text);
            save();
            EXPECT_EQ(writes().size(), 2);
            EXPECT_EQ(stored(box == u"TextCJRefTempIn"_s ? u"cj_ref_temp_in"_s : u"cj_ref_temp_out"_s),
                      u'\'' + text + u'\'');
            EXPECT_EQ(screen.text(box), text);
        }
    }
}

TEST_F(CalParamSave, HasTheHourglassWhileItWritesAndTakesItAwayBeforeAReport) {
    script.failures.insert(deleteOf(u"PT-1"_s), {7, u"no space left"_s});
    ui.expectReport(7, u"FormCalParam,SaveData"_s);
    ui.onBox = [this] { EXPECT_FALSE(ui.busy); };
    ui.events.clear();
    save();
    EXPECT_EQ(ui.events.mid(0, 2), (QStringList{u"busy"_s, u"normal"_s}));
    ui.onBox = {};
    script.failures.clear();
    ui.events.clear();
    save();
    // The sum is the last thing done, and has an hourglass of its own.
    EXPECT_EQ(ui.events.first(), u"busy"_s);
    EXPECT_EQ(ui.events.count(u"busy"_s), 3);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(CalParamSave, ThatFailsCountsAsUnsavedEvenWithoutAnyChangeOfTheScreen) {
    save();
    script.failures.insert(insertOf(readyValues(u"PT-1"_s)), {7, u"no space left"_s});
    ui.expectReport(7, u"FormCalParam,SaveData"_s);
    save();
    ui.expectBox(u"Are you sure you want to discard any changes made since last save?"_s, u"Kelvane"_s,
                 box::warningYesNo, BoxAnswer::no);
    screen.form().close();
    EXPECT_TRUE(screen.form().isVisible());
    script.failures.clear();
    save();
    screen.form().close();
    EXPECT_FALSE(screen.form().isVisible());
}

TEST_F(CalParamSave, CountsAsSavedFromThenOn) {
    EXPECT_TRUE(screen.form().isVisible());
    screen.set(u"TextInputHigh"_s, u"300"_s);
    save();
    screen.form().close();
    EXPECT_FALSE(screen.form().isVisible());
}

TEST_F(CalParamSave, ThatFailsLeavesTheScreenAsItWasTypedAndChanged) {
    screen.fill(u"ListPreDisplay"_s, {u"ISOLATE"_s});
    screen.fill(u"ListPostDisplay"_s, {u"VENT"_s});
    screen.set(u"TextInputHigh"_s, u"300"_s);
    save();
    const auto statements = writes();
    ASSERT_EQ(statements.size(), 4);
    screen.set(u"TextInputHigh"_s, u"400"_s);
    for (qsizetype failing = 0; failing < statements.size(); ++failing) {
        script.statements.clear();
        auto statement = statements[failing];
        statement.replace(u"'300'"_s, u"'400'"_s);
        script.failures = {{statement, {7, u"no space left"_s}}};
        ui.expectReport(7, u"FormCalParam,SaveData"_s);
        save();
        EXPECT_EQ(writes().size(), failing + 1);
        EXPECT_EQ(screen.text(u"TextInputHigh"_s), u"400"_s);
        ui.expectBox(u"Are you sure you want to discard any changes made since last save?"_s, u"Kelvane"_s,
                     box::warningYesNo, BoxAnswer::no);
        screen.form().close();
        EXPECT_TRUE(screen.form().isVisible());
        EXPECT_FALSE(ui.busy);
    }
    // Nothing is lost: the next attempt stores it all.
    script.failures.clear();
    script.statements.clear();
    save();
    EXPECT_EQ(stored(u"input_high"_s), u"'400'"_s);
}

TEST_F(CalParamSave, OverALostConnectionIsReportedAndKeepsWhatWasTyped) {
    screen.set(u"TextOutputHigh"_s, u"21"_s);
    script.lost = true;
    ui.expectReport(10054, u"FormCalParam,SaveData"_s);
    save();
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(screen.text(u"TextOutputHigh"_s), u"21"_s);
}

} // namespace kelvane::testing
