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

/// The value that the drivers read, as the screen has to show it.
QString written(float value) {
    return plainText(value);
}
QString written(qint16 value) {
    return QString::number(value);
}
QString written(const QString& value) {
    return value;
}
QString written(bool value) {
    return value ? u"Y"_s : u"N"_s;
}

} // namespace

/// The parameter editor on a copy of the demonstration database.
class CalParamDemo : public DatabaseSession {
  protected:
    CalParamDemo() : DatabaseSession(users::editor) {
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
        for (const auto& given : givenControls()) {
            const auto& param = *std::ranges::find(givenParams, given.column, &GivenParam::column);
            const auto value = std::visit([&](auto member) { return written(record.*member); }, param.member);
            EXPECT_EQ(shownBy(*form, given.name.toString()), shownFor(given, value))
                << given.name.toString().toStdString();
        }
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
            const auto prompts = ModuleGlobals::GetPrompts(session, asset, number, {});
            for (const auto& entry : prompts)
                displayed << entry.pname;
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
    database.executeElsewhere(
        u"update mt.hvm_kv_tag_config set input_high = 160, input_low = null, loop_pwr = '28V'"_s +
        ofAsset(u"PT-101"_s) + u";commit"_s);
    select(u"PT-101"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputHigh"_s), u"160"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputLow"_s), u"0"_s);
    EXPECT_EQ(shownBy(*form, u"OptionCalLoopPWROut28VDC"_s), u"on"_s);
}

TEST_F(CalParamDemo, ParametersThatAnotherWorkstationDeletedLeaveWhatIsShown) {
    open(u"PT-101"_s);
    database.executeElsewhere(u"delete from mt.hvm_kv_tag_config"_s + ofAsset(u"PT-101"_s) + u";commit"_s);
    select(u"PT-101"_s);
    EXPECT_EQ(shownBy(*form, u"TextInputHigh"_s), u"100"_s);
    EXPECT_EQ(shownBy(*form, u"ComboInputUnits"_s), u"psig"_s);
    EXPECT_EQ(shownBy(*form, u"ComboTSName"_s), QString());
}

TEST_F(CalParamDemo, AnInstrumentThatAnotherWorkstationDeletedIsUnknown) {
    open(u"PT-101"_s);
    database.executeElsewhere(u"delete from mt.inventory where i4201 = 'PT-102';commit"_s);
    ui.expectDialog(title, enterInstrument, u"PT-102"_s);
    ui.expectBox(u"Must enter a valid instrument number!"_s, title, box::warningRetryCancel,
                 BoxAnswer::cancel);
    control<QPushButton>(*form, u"CommandSelect"_s).click();
    EXPECT_EQ(form->windowTitle(), u"Calibration Parameters (PT-101)"_s);
}

} // namespace kelvane::testing
