#include "tests/editors/cal_param/cal_param_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString columnNames =
    u"mtag,resolution,input_type,output_type,input_low,input_high,output_low,output_high,temp_scale_in,"
    u"temp_scale_out,cj_ref_type_in,cj_ref_type_out,cj_ref_temp_in,cj_ref_temp_out,temp_sens_type_in,"
    u"temp_sens_type_out,temp_sens_wires_in,temp_sens_wires_out,neg_fs_range_pct,pos_fs_range_pct,"
    u"neg_span_pct,pos_span_pct,neg_reading_pct,pos_reading_pct,neg_lsd_counts,pos_lsd_counts,neg_units,"
    u"pos_units,baud_rate_out,data_bits_out,cycle_end_time_out,stop_bits_out,measurement_mode_out,"
    u"data_parity_out,frequency_response_out,measurement_direction_out,transducer_type_out,"
    u"threshold_torque_out,click_dip_torque_out,repetitions,loop_pwr,tp_name,freq_ptpamp_in,"
    u"freq_ptpamp_out,input_indicated,output_indicated"_s;

QString insertOf(const QString& asset, const QString& values) {
    return u"insert into mt.hvm_kv_tag_config ("_s + columnNames +
           u") values ((select mtag from mt.inventory where i4201 = '"_s + asset + u"'),"_s + values +
           u");commit"_s;
}

/// What a screen that is only made ready stores.
const QString readyValues =
    u"'0.1','psi','mA','0.0','100.0','4','20','ITS-90','ITS-90','INT','INT','0.0','0.0','RTD PT100 3926',"
    u"'RTD PT100 3926','4','4','0.0','0.0','0.0','0.0','0.0','0.0','0.0','0.0','0.0','0.0','9600','8','1.0',"
    u"'1','Peak','None','1676','Right','UTA','0.0','0.0','1','OFF','FIVE','100.0','100.0','N','N'"_s;

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
        const auto names = columnNames.split(u',');
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
                           insertOf(u"PT-1"_s, readyValues)}));
    EXPECT_EQ(screen.form().windowTitle(), u"Calibration Parameters (PT-1)"_s);
}

TEST_F(CalParamSave, WritesEveryControlWhetherItsPageIsShownOrNot) {
    const struct {
        const char* control;
        QString value;
        QString column;
        QString written;
    } cases[] = {
        {"ComboMeasRes", u"0.001"_s, u"resolution"_s, u"'0.001'"_s},
        {"ComboInputUnits", u"bar"_s, u"input_type"_s, u"'bar'"_s},
        {"ComboOutputUnits", u"%"_s, u"output_type"_s, u"'%'"_s},
        {"TextInputLow", u"-7"_s, u"input_low"_s, u"'-7'"_s},
        {"TextInputLow", {}, u"input_low"_s, u"NULL"_s},
        {"TextInputHigh", u"77"_s, u"input_high"_s, u"'77'"_s},
        {"TextOutputLow", u"5"_s, u"output_low"_s, u"'5'"_s},
        {"TextOutputLow", {}, u"output_low"_s, u"NULL"_s},
        {"TextOutputHigh", u"55"_s, u"output_high"_s, u"'55'"_s},
        {"ComboTempScaleIn", u"IPTS-68"_s, u"temp_scale_in"_s, u"'IPTS-68'"_s},
        {"ComboTempScaleOut", u"IPTS-68"_s, u"temp_scale_out"_s, u"'IPTS-68'"_s},
        {"OptionCJRefExtIn", u"on"_s, u"cj_ref_type_in"_s, u"'EXT'"_s},
        {"OptionCJRefExtOut", u"on"_s, u"cj_ref_type_out"_s, u"'EXT'"_s},
        {"TextCJRefTempIn", u"abc"_s, u"cj_ref_temp_in"_s, u"'abc'"_s},
        {"TextCJRefTempIn", {}, u"cj_ref_temp_in"_s, u"NULL"_s},
        {"TextCJRefTempOut", u"23"_s, u"cj_ref_temp_out"_s, u"'23'"_s},
        {"TextCJRefTempOut", {}, u"cj_ref_temp_out"_s, u"NULL"_s},
        {"ComboSensTypeIn", u"TC K"_s, u"temp_sens_type_in"_s, u"'TC K'"_s},
        {"ComboSensTypeOut", u"TC J"_s, u"temp_sens_type_out"_s, u"'TC J'"_s},
        {"OptionSensWires2In", u"on"_s, u"temp_sens_wires_in"_s, u"'2'"_s},
        {"OptionSensWires3In", u"on"_s, u"temp_sens_wires_in"_s, u"'3'"_s},
        {"OptionSensWires2Out", u"on"_s, u"temp_sens_wires_out"_s, u"'2'"_s},
        {"OptionSensWires3Out", u"on"_s, u"temp_sens_wires_out"_s, u"'3'"_s},
        {"TextFSNeg", u"1"_s, u"neg_fs_range_pct"_s, u"'1'"_s},
        {"TextFSPos", u"2"_s, u"pos_fs_range_pct"_s, u"'2'"_s},
        {"TextSpanNeg", u"3"_s, u"neg_span_pct"_s, u"'3'"_s},
        {"TextSpanPos", u"4"_s, u"pos_span_pct"_s, u"'4'"_s},
        {"TextReadNeg", u"5"_s, u"neg_reading_pct"_s, u"'5'"_s},
        {"TextReadPos", u"6"_s, u"pos_reading_pct"_s, u"'6'"_s},
        {"TextLSDNeg", u"7"_s, u"neg_lsd_counts"_s, u"'7'"_s},
        {"TextLSDPos", u"8"_s, u"pos_lsd_counts"_s, u"'8'"_s},
        {"TextUnitsNeg", u"9"_s, u"neg_units"_s, u"'9'"_s},
        {"TextUnitsPos", u"10"_s, u"pos_units"_s, u"'10'"_s},
        {"ComboBaudRateOut", u"300"_s, u"baud_rate_out"_s, u"'300'"_s},
        {"ComboDataBitsOut", u"7"_s, u"data_bits_out"_s, u"'7'"_s},
        {"ComboCycleEndTimeOut", u"5.0"_s, u"cycle_end_time_out"_s, u"'5.0'"_s},
        {"ComboStopBitsOut", u"2"_s, u"stop_bits_out"_s, u"'2'"_s},
        {"ComboMeasurementModeOut", u"Impulse"_s, u"measurement_mode_out"_s, u"'Impulse'"_s},
        {"ComboParityOut", u"Odd"_s, u"data_parity_out"_s, u"'Odd'"_s},
        {"ComboFreqRespOut", u"72"_s, u"frequency_response_out"_s, u"'72'"_s},
        {"ComboMeasDirOut", u"Left"_s, u"measurement_direction_out"_s, u"'Left'"_s},
        {"ComboTransTypeOut", u"Serial"_s, u"transducer_type_out"_s, u"'Serial'"_s},
        {"TextThresholdOut", u"11"_s, u"threshold_torque_out"_s, u"'11'"_s},
        {"TextThresholdOut", {}, u"threshold_torque_out"_s, u"''"_s},
        {"TextDipOut", u"12"_s, u"click_dip_torque_out"_s, u"'12'"_s},
        {"TextRepetitions", u"1.5"_s, u"repetitions"_s, u"'1.5'"_s},
        {"OptionCalLoopPWROut24VDC", u"on"_s, u"loop_pwr"_s, u"'24V'"_s},
        {"OptionCalLoopPWROut28VDC", u"on"_s, u"loop_pwr"_s, u"'28V'"_s},
        {"ComboTSName", u"THREE"_s, u"tp_name"_s, u"'THREE'"_s},
        {"TextPTPAmplitudeIn", {}, u"freq_ptpamp_in"_s, u"''"_s},
        {"TextPTPAmplitudeOut", u"50"_s, u"freq_ptpamp_out"_s, u"'50'"_s},
        {"CheckIndicatedInput", u"on"_s, u"input_indicated"_s, u"'Y'"_s},
        {"CheckIndicatedOutput", u"on"_s, u"output_indicated"_s, u"'Y'"_s},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.control);
        script.statements.clear();
        screen.set(QString::fromLatin1(one.control), one.value);
        save();
        EXPECT_EQ(stored(one.column), one.written);
    }
}

TEST_F(CalParamSave, StoresEachToleranceThatIsEmptyAsNull) {
    const QString columns[] = {u"pos_fs_range_pct"_s, u"neg_fs_range_pct"_s, u"pos_span_pct"_s,
                               u"neg_span_pct"_s,     u"pos_reading_pct"_s,  u"neg_reading_pct"_s,
                               u"pos_lsd_counts"_s,   u"neg_lsd_counts"_s,   u"pos_units"_s,
                               u"neg_units"_s};
    const auto boxes = toleranceBoxes();
    for (qsizetype i = 0; i < boxes.size(); ++i) {
        script.statements.clear();
        makeReady();
        screen.set(boxes[i], {});
        save();
        EXPECT_EQ(stored(columns[i]), u"NULL"_s) << boxes[i].toStdString();
        EXPECT_EQ(writes().at(1).count(u"NULL"_s), 1);
    }
}

TEST_F(CalParamSave, WritesTheMessagesInTheOrderOfTheirLists) {
    screen.fill(u"ListPreDisplay"_s, {u"ISOLATE"_s, u"VENT"_s});
    screen.fill(u"ListPostDisplay"_s, {u"VENT"_s});
    save();
    EXPECT_EQ(script.statements, (QStringList{deleteOf(u"PT-1"_s), insertOf(u"PT-1"_s, readyValues),
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
    for (const auto& one : cases) {
        script.statements.clear();
        screen.set(u"ComboInputUnits"_s, one.input);
        screen.set(u"ComboOutputUnits"_s, one.output);
        const QStringList before{u"-5"_s, u"-10"_s, u"-4"_s, u"-20"_s};
        for (qsizetype i = 0; i < boxes.size(); ++i)
            screen.set(boxes[i], before[i]);
        save();
        for (qsizetype i = 0; i < boxes.size(); ++i)
            EXPECT_EQ(screen.text(boxes[i]), one.scales[i]) << one.input.toStdString();
        EXPECT_EQ(stored(u"input_low"_s), u'\'' + one.scales[0] + u'\'');
        EXPECT_EQ(stored(u"output_high"_s), u'\'' + one.scales[3] + u'\'');
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
    script.failures.insert(insertOf(u"PT-1"_s, readyValues), {7, u"no space left"_s});
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
