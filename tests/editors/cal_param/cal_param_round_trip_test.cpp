#include "data/parameters/cal_params.h"
#include "testkit/database_session.h"
#include "tests/editors/cal_param/cal_param_screen.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The parameter editor on a copy of the demonstration database.
class CalParamRoundTrip : public DatabaseSession {
  protected:
    CalParamRoundTrip() : DatabaseSession(users::editor) {}
    void set(std::initializer_list<QPair<const char*, QString>> fields) {
        for (const auto& [name, value] : fields)
            screen.set(QString::fromLatin1(name), value);
    }
    QStringList stored(const QString& columns, const QString& asset) {
        return values(
            u"select "_s + columns +
            u" from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = '"_s +
            asset + u"')"_s);
    }
    void prepare() {
        execute(u"delete from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 = "
                u"'PT-101');commit"_s);
        execute(u"delete from mt.hvm_kv_proc_prompts where mtag = (select mtag from MT.inventory where i4201 "
                u"= 'PT-101');commit"_s);
    }
    QString strategy() { return values(u"select distinct(tp_name) from mt.hvm_kv_proc_points"_s).value(0); }
    QStringList messages() { return values(u"select pname from mt.hvm_kv_prompts"_s); }

    CalParamScreen screen{session, ui};
};

TEST_F(CalParamRoundTrip, WhatIsSavedIsWhatTheDriversRead) {
    prepare();
    screen.open(u"PT-101"_s);
    set({{"ComboTSName", strategy()},
         {"ComboMeasRes", u"0.001"_s},
         {"ComboInputUnits", u"C"_s},
         {"ComboOutputUnits", u"ft/lb"_s},
         {"TextInputLow", u"-20.5"_s},
         {"TextInputHigh", u"850"_s},
         {"TextOutputLow", {}},
         {"TextOutputHigh", u"1e2"_s},
         {"ComboTempScaleIn", u"IPTS-68"_s},
         {"OptionCJRefExtIn", u"on"_s},
         {"TextCJRefTempIn", u"21.5"_s},
         {"ComboSensTypeIn", u"TC K"_s},
         {"OptionSensWires3Out", u"on"_s},
         {"TextFSPos", u"0.25"_s},
         {"TextFSNeg", u"-0.25"_s},
         {"TextUnitsPos", {}},
         {"ComboTransTypeOut", u"Serial"_s},
         {"ComboMeasurementModeOut", u"Click Dip"_s},
         {"TextThresholdOut", u"12.5"_s},
         {"TextDipOut", u"1.25"_s},
         {"ComboBaudRateOut", u"1200"_s},
         {"ComboParityOut", u"Even"_s},
         {"TextRepetitions", u"3"_s},
         {"OptionCalLoopPWROut24VDC", u"on"_s},
         {"CheckIndicatedInput", u"on"_s}});
    screen.press(u"CommandSave"_s);

    const auto record = ModuleGlobals::GetCalParams(session, u"PT-101"_s);
    EXPECT_EQ(record.tp_name, strategy());
    EXPECT_EQ(record.resolution, 0.001F);
    EXPECT_EQ(record.input_type, u"C"_s);
    EXPECT_EQ(record.output_type, u"ft/lb"_s);
    EXPECT_EQ(record.input_low, -20.5F);
    EXPECT_EQ(record.input_high, 850);
    EXPECT_EQ(record.output_low, 0);
    EXPECT_EQ(record.output_high, 100);
    EXPECT_EQ(record.temp_scale_in, u"IPTS-68"_s);
    EXPECT_EQ(record.temp_scale_out, u"ITS-90"_s);
    EXPECT_EQ(record.cj_ref_type_in, u"EXT"_s);
    EXPECT_EQ(record.cj_ref_type_out, u"INT"_s);
    EXPECT_EQ(record.cj_ref_temp_in, 21.5F);
    EXPECT_EQ(record.temp_sens_type_in, u"TC K"_s);
    EXPECT_EQ(record.temp_sens_wires_in, 4);
    EXPECT_EQ(record.temp_sens_wires_out, 3);
    EXPECT_EQ(record.pos_fs_range_pct, 0.25F);
    EXPECT_EQ(record.neg_fs_range_pct, -0.25F);
    EXPECT_EQ(record.pos_units, 0);
    EXPECT_EQ(record.transducer_type_out, u"Serial"_s);
    EXPECT_EQ(record.measurement_mode_out, u"Click Dip"_s);
    EXPECT_EQ(record.threshold_torque_out, 12.5F);
    EXPECT_EQ(record.click_dip_torque_out, 1.25F);
    EXPECT_EQ(record.baud_rate_out, u"1200"_s);
    EXPECT_EQ(record.data_parity_out, u"Even"_s);
    EXPECT_EQ(record.repetitions, 3);
    EXPECT_EQ(record.loop_pwr, u"24V"_s);
    EXPECT_EQ(record.freq_ptpamp_in, 100);
    EXPECT_TRUE(record.input_indicated);
    EXPECT_FALSE(record.output_indicated);
    EXPECT_TRUE(ModuleGlobals::HasConfigData(session, u"PT-101"_s));
    EXPECT_FALSE(ModuleGlobals::GetTestPointList(session, u"PT-101"_s).isEmpty());
}

TEST_F(CalParamRoundTrip, ComesBackToTheScreenAsItWasSaved) {
    prepare();
    screen.open(u"PT-101"_s);
    const QPair<const char*, QString> fields[] = {
        {"TextInputLow", u"-0.5"_s}, {"TextInputHigh", u"1234.5"_s},    {"TextOutputLow", u"4"_s},
        {"TextOutputHigh", u"20"_s}, {"TextSpanPos", u"0.1"_s},         {"TextReadNeg", u"-0.3"_s},
        {"TextRepetitions", u"2"_s}, {"TextPTPAmplitudeIn", u"12.5"_s}, {"TextCJRefTempOut", u"0.1"_s},
    };
    set({{"ComboTSName", strategy()}, {"ComboInputUnits", u"psi"_s}, {"ComboOutputUnits", u"mA"_s}});
    for (const auto& [name, value] : fields)
        screen.set(QString::fromLatin1(name), value);
    screen.set(u"TextUnitsNeg"_s, {});
    screen.press(u"CommandSave"_s);

    CalParamScreen again(session, ui);
    again.open(u"PT-101"_s);
    for (const auto& [name, value] : fields)
        EXPECT_EQ(again.text(QString::fromLatin1(name)), value) << name;
    // An empty box is a null, and a null reads as zero.
    EXPECT_EQ(stored(u"neg_units"_s, u"PT-101"_s), QStringList{u"(null)"_s});
    EXPECT_EQ(again.text(u"TextUnitsNeg"_s), u"0"_s);
}

TEST_F(CalParamRoundTrip, KeepsTheMessagesAndTheirOrder) {
    const auto names = messages();
    ASSERT_GE(names.size(), 3);
    prepare();
    screen.open(u"PT-101"_s);
    set({{"ComboTSName", strategy()}, {"ComboInputUnits", u"psi"_s}, {"ComboOutputUnits", u"mA"_s}});
    const QStringList before{names[2], names[0]};
    screen.fill(u"ListPreDisplay"_s, before);
    screen.fill(u"ListPostDisplay"_s, {names[2]});
    screen.press(u"CommandSave"_s);

    const auto saved = ModuleGlobals::GetPrompts(session, u"PT-101"_s, 0, {});
    ASSERT_EQ(saved.size(), 2);
    EXPECT_EQ(saved[0].pname, before[0]);
    EXPECT_EQ(saved[1].pname, before[1]);
    CalParamScreen again(session, ui);
    again.open(u"PT-101"_s);
    EXPECT_EQ(again.rows(u"ListPreDisplay"_s), before);
    EXPECT_EQ(again.rows(u"ListPostDisplay"_s), QStringList{names[2]});

    // Emptied and saved, all of them go.
    again.fill(u"ListPreDisplay"_s, {});
    again.press(u"CommandSave"_s);
    EXPECT_TRUE(ModuleGlobals::GetPrompts(session, u"PT-101"_s, 0, {}).isEmpty());
    EXPECT_EQ(ModuleGlobals::GetPrompts(session, u"PT-101"_s, 1, {}).size(), 1);
}

TEST_F(CalParamRoundTrip, ACloneHasTheSameParametersAndMessages) {
    screen.open(u"PT-101"_s);
    ui.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, u"PT-102"_s);
    ui.expectBox(u"This instrument already has configuration data! Do you want to overwrite existing "
                 u"configuration data?"_s,
                 u"Calibration Parameters"_s, box::warningYesNo, BoxAnswer::yes);
    screen.press(u"CommandClone"_s);
    auto original = ModuleGlobals::GetCalParams(session, u"PT-101"_s);
    const auto clone = ModuleGlobals::GetCalParams(session, u"PT-102"_s);
    EXPECT_NE(clone.mtag, original.mtag);
    for (const auto& columns : {u"input_type"_s, u"output_type"_s, u"input_high"_s, u"output_low"_s,
                                u"tp_name"_s, u"resolution"_s, u"pos_span_pct"_s})
        EXPECT_EQ(stored(columns, u"PT-102"_s), stored(columns, u"PT-101"_s)) << columns.toStdString();
    const auto count = ModuleGlobals::GetPrompts(session, u"PT-101"_s, 2, {}).size();
    EXPECT_EQ(ModuleGlobals::GetPrompts(session, u"PT-102"_s, 2, {}).size(), count);
}

TEST_F(CalParamRoundTrip, AStrictEngineRefusesWhatIsNoNumberToItAndTheOldRowStays) {
    const QPair<QString, QString> refused[] = {
        {u"TextPTPAmplitudeIn"_s, {}}, {u"TextInputHigh"_s, u"1,000"_s}, {u"TextCJRefTempIn"_s, u"abc"_s}};
    screen.open(u"PT-101"_s);
    for (const auto& [box, value] : refused) {
        SCOPED_TRACE(box.toStdString());
        const auto before = screen.text(box);
        screen.set(box, value);
        ui.expectReport(database.refusedRow(), u"FormCalParam,SaveData"_s);
        screen.press(u"CommandSave"_s);
        EXPECT_EQ(stored(u"tp_name"_s, u"PT-101"_s).size(), 1);
        EXPECT_TRUE(ModuleGlobals::HasConfigData(session, u"PT-101"_s));
        EXPECT_EQ(screen.focus(), box);
        // The screen still holds everything: put right, it is stored again.
        EXPECT_EQ(screen.text(box), value);
        screen.set(box, before);
        screen.press(u"CommandSave"_s);
        EXPECT_EQ(stored(u"tp_name"_s, u"PT-101"_s).size(), 1);
        EXPECT_TRUE(ModuleGlobals::HasConfigData(session, u"PT-101"_s));
    }
}

TEST_F(CalParamRoundTrip, AValueBeyondTheRecordsRangeIsStoredAndReportedAtTheNextLoad) {
    screen.open(u"PT-101"_s);
    CalParamScreen again(session, ui);
    again.open(u"PT-102"_s);
    for (const auto& [box, value] :
         {std::pair{u"TextInputHigh"_s, u"1e300"_s}, {u"TextRepetitions"_s, u"40000"_s}}) {
        SCOPED_TRACE(box.toStdString());
        const auto before = screen.text(box);
        screen.set(box, value);
        screen.press(u"CommandSave"_s);
        ui.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, u"PT-101"_s);
        ui.expectReport(6, u"ModuleGlobals,GetCalParams"_s);
        again.press(u"CommandSelect"_s);
        EXPECT_TRUE(ui.hasMetAll());
        screen.set(box, before);
        screen.press(u"CommandSave"_s);
    }
}

TEST_F(CalParamRoundTrip, AnotherWorkstationsChangeIsOverwrittenByTheSave) {
    screen.open(u"PT-101"_s);
    database.executeElsewhere(
        u"delete from mt.hvm_kv_tag_config where mtag = (select mtag from MT.inventory where i4201 "
        u"= 'PT-101');commit"_s);
    screen.press(u"CommandSave"_s);
    EXPECT_EQ(stored(u"tp_name"_s, u"PT-101"_s).size(), 1);
}

} // namespace kelvane::testing
