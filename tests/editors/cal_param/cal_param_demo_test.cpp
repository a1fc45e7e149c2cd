#include "data/parameters/cal_params.h"
#include "editors/cal_param/form_cal_param.h"
#include "platform/values/numbers.h"
#include "testkit/database_session.h"
#include "testkit/screen_operator.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QMdiArea>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Calibration Parameters"_s;
const QString enterInstrument = u"Enter instrument number:"_s;

/// What the screen has to show of a record, by the values that the drivers read.
QHash<QString, QString> expectedOf(const CalParamRecord& record) {
    const auto number = [](float value) { return plainText(value); };
    const auto onIf = [](bool on) { return on ? u"on"_s : u"off"_s; };
    return {
        {u"ComboInputUnits"_s, record.input_type},
        {u"ComboOutputUnits"_s, record.output_type},
        {u"TextInputLow"_s, number(record.input_low)},
        {u"TextInputHigh"_s, number(record.input_high)},
        {u"TextOutputLow"_s, number(record.output_low)},
        {u"TextOutputHigh"_s, number(record.output_high)},
        {u"ComboMeasRes"_s, number(record.resolution)},
        {u"ComboTempScaleIn"_s, record.temp_scale_in},
        {u"ComboTempScaleOut"_s, record.temp_scale_out},
        {u"OptionCJRefIntIn"_s, onIf(record.cj_ref_type_in == u"INT"_s)},
        {u"OptionCJRefExtIn"_s, onIf(record.cj_ref_type_in == u"EXT"_s)},
        {u"OptionCJRefIntOut"_s, onIf(record.cj_ref_type_out == u"INT"_s)},
        {u"TextCJRefTempIn"_s, number(record.cj_ref_temp_in)},
        {u"ComboSensTypeIn"_s, record.temp_sens_type_in},
        {u"ComboSensTypeOut"_s, record.temp_sens_type_out},
        {u"OptionSensWires2In"_s, onIf(record.temp_sens_wires_in == 2)},
        {u"OptionSensWires3In"_s, onIf(record.temp_sens_wires_in == 3)},
        {u"OptionSensWires4In"_s, onIf(record.temp_sens_wires_in == 4)},
        {u"TextFSPos"_s, number(record.pos_fs_range_pct)},
        {u"TextSpanNeg"_s, number(record.neg_span_pct)},
        {u"TextReadPos"_s, number(record.pos_reading_pct)},
        {u"TextLSDPos"_s, number(record.pos_lsd_counts)},
        {u"TextUnitsPos"_s, number(record.pos_units)},
        {u"TextUnitsNeg"_s, number(record.neg_units)},
        {u"ComboTSName"_s, record.tp_name},
        {u"ComboTransTypeOut"_s, record.transducer_type_out},
        {u"ComboMeasurementModeOut"_s, record.measurement_mode_out},
        {u"ComboMeasDirOut"_s, record.measurement_direction_out},
        {u"ComboCycleEndTimeOut"_s, record.cycle_end_time_out},
        {u"ComboFreqRespOut"_s, record.frequency_response_out},
        {u"TextThresholdOut"_s, number(record.threshold_torque_out)},
        {u"TextDipOut"_s, number(record.click_dip_torque_out)},
        {u"TextRepetitions"_s, QString::number(record.repetitions)},
        {u"OptionCalLoopPWROutOff"_s, onIf(record.loop_pwr == u"OFF"_s)},
        {u"OptionCalLoopPWROut24VDC"_s, onIf(record.loop_pwr == u"24V"_s)},
        {u"OptionCalLoopPWROut28VDC"_s, onIf(record.loop_pwr == u"28V"_s)},
        {u"TextPTPAmplitudeIn"_s, number(record.freq_ptpamp_in)},
        {u"CheckIndicatedInput"_s, onIf(record.input_indicated)},
        {u"CheckIndicatedOutput"_s, onIf(record.output_indicated)},
    };
}

} // namespace

/// The parameter editor on a copy of the demonstration database.
class CalParamDemo : public DatabaseSession {
  protected:
    CalParamDemo() {
        area.resize(1000, 800);
        area.show();
    }
    void open(const QString& asset) {
        form = new FormCalParam(session);
        form->showIn(area);
        ui.expectDialog(title, enterInstrument, asset);
        form->chooseFirst();
        ASSERT_TRUE(form && form->isOpen());
    }
    void select(const QString& asset) {
        ui.expectDialog(title, enterInstrument, asset);
        control<QPushButton>(*form, u"CommandSelect"_s).click();
    }
    void expectShown(const CalParamRecord& record) {
        const auto expected = expectedOf(record);
        for (auto one = expected.cbegin(); one != expected.cend(); ++one)
            EXPECT_EQ(shownBy(*form, one.key()), one.value()) << one.key().toStdString();
    }
    static QString ofAsset(const QString& asset) {
        return u" where mtag = (select mtag from MT.inventory where i4201 = '"_s + asset + u"')"_s;
    }

    QMdiArea area;
    QPointer<FormCalParam> form;
};

TEST_F(CalParamDemo, ShowsEachInstrumentAsTheDriversReadIt) {
    const auto assets =
        values(u"select i4201 from MT.inventory,mt.hvm_kv_tag_config where MT.inventory.mtag = "
               "mt.hvm_kv_tag_config.mtag and i4201 not like '%''%' and mt.hvm_kv_tag_config.tp_name in "
               "(select tp_name from mt.hvm_kv_proc_points)"_s);
    ASSERT_GT(assets.size(), 40);
    open(assets.first());
    for (const auto& asset : assets) {
        SCOPED_TRACE(asset.toStdString());
        select(asset);
        const auto record = ModuleGlobals::GetCalParams(session, asset);
        ASSERT_FALSE(record.mtag.isEmpty());
        expectShown(record);
    }
}

TEST_F(CalParamDemo, ShowsTheMessagesOfTheInstrumentInTheirOrder) {
    const auto assets =
        values(u"select distinct(i4201) from MT.inventory,mt.hvm_kv_proc_prompts where MT.inventory.mtag = "
               "mt.hvm_kv_proc_prompts.mtag and i4201 not like '%''%'"_s);
    ASSERT_FALSE(assets.isEmpty());
    open(assets.first());
    const auto all = values(u"select pname from mt.hvm_kv_prompts"_s);
    for (const auto& asset : assets) {
        SCOPED_TRACE(asset.toStdString());
        select(asset);
        for (const auto& [kind, number] : {std::pair{u"Pre"_s, qint16{0}}, {u"Post"_s, qint16{1}}}) {
            QStringList displayed;
            const int count = ModuleGlobals::GetPrompts(session, asset, number, {});
            for (int i = 0; i < count; ++i)
                displayed << session.PromptList[i].pname;
            EXPECT_EQ(shownBy(*form, u"List"_s + kind + u"Display"_s), displayed.join(u','));
            auto together =
                displayed + shownBy(*form, u"List"_s + kind + u"Avail"_s).split(u',', Qt::SkipEmptyParts);
            together.sort();
            EXPECT_EQ(together, all);
        }
    }
}

TEST_F(CalParamDemo, IsPaintedBeforeItAsksForTheInstrument) {
    form = new FormCalParam(session);
    form->showIn(area);
    ui.events.clear();
    ui.expectDialog(title, enterInstrument, u"PT-101"_s, [this](const DialogQuestion&) {
        EXPECT_TRUE(form->isVisible());
        EXPECT_EQ(ui.events.value(0), u"events"_s);
    });
    form->chooseFirst();
}

TEST_F(CalParamDemo, AnInstrumentWithAQuoteInItsNumberIsReportedAndTheScreenGoes) {
    form = new FormCalParam(session);
    form->showIn(area);
    ui.expectDialog(title, enterInstrument, u"LT-10'COL"_s);
    ui.expectReport(1, u"MDIFormMain,GetAsset"_s);
    form->chooseFirst();
    EXPECT_TRUE(!form || !form->isOpen());
}

TEST_F(CalParamDemo, WhatAnotherWorkstationChangedIsShownAtTheNextLoad) {
    open(u"PT-101"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputHigh"_s), u"100"_s);
    const auto other = database.connect(u"jdoe"_s, u"kelvane"_s);
    other->execute(u"update mt.hvm_kv_tag_config set input_high = 160, input_low = null, loop_pwr = '28V'"_s +
                   ofAsset(u"PT-101"_s) + u";commit"_s);
    select(u"PT-101"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputHigh"_s), u"160"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputLow"_s), u"0"_s);
    EXPECT_EQ(shownBy(*form, u"OptionCalLoopPWROut28VDC"_s), u"on"_s);
}

TEST_F(CalParamDemo, ParametersThatAnotherWorkstationDeletedLeaveWhatIsShown) {
    open(u"PT-101"_s);
    const auto other = database.connect(u"jdoe"_s, u"kelvane"_s);
    other->execute(u"delete from mt.hvm_kv_tag_config"_s + ofAsset(u"PT-101"_s) + u";commit"_s);
    select(u"PT-101"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputHigh"_s), u"100"_s);
    EXPECT_EQ(shownBy(*form, u"ComboInputUnits"_s), u"psig"_s);
    EXPECT_EQ(shownBy(*form, u"ComboTSName"_s), QString());
}

TEST_F(CalParamDemo, AnInstrumentThatAnotherWorkstationDeletedIsUnknown) {
    open(u"PT-101"_s);
    const auto other = database.connect(u"jdoe"_s, u"kelvane"_s);
    other->execute(u"delete from mt.inventory where i4201 = 'PT-102';commit"_s);
    ui.expectDialog(title, enterInstrument, u"PT-102"_s);
    ui.expectBox(u"Must enter a valid instrument number!"_s, title, box::warningRetryCancel,
                 BoxAnswer::cancel);
    control<QPushButton>(*form, u"CommandSelect"_s).click();
    EXPECT_EQ(form->windowTitle(), u"Calibration Parameters (PT-101)"_s);
}

} // namespace kelvane::testing
