#include "procedures/cal_param_checks.h"
#include "procedures/cal_param_reading.h"
#include "procedures/cal_param_saving.h"
#include "resources/text_id.h"

#include "testkit/fixtures.h"
#include "testkit/scripted_params.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using R = CalParamRecord;

QString namesOf(std::span<const CalParamColumn* const> columns) {
    QStringList names;
    for (const auto* column : columns)
        names << column->name;
    return names.join(u',');
}

const auto key = u"(select mtag from MT.inventory where i4201 = 'PT-1')"_s;

class CalParamProcedures : public RecordedSession {
  protected:
    CalParamProcedures() {
        script.answers.insert(calParamsStatement(u"MT"_s, u"PT-1"_s), {calParamsRow()});
        script.answers.insert(u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
                              {Row{u"FIVE"_s}, Row{u"THREE"_s}});
    }
    std::optional<StoredCalParams> read() {
        std::optional<StoredCalParams> stored;
        loadCalParams(session, u"PT-1"_s, [&](const StoredCalParams& read) { stored = read; });
        return stored;
    }
    CalParamEntries entries{givenRecord(&GivenParam::shown)};
};

} // namespace

TEST_F(CalParamProcedures, ParametersStandInTheGivenOrders) {
    EXPECT_EQ(namesOf(savedCalParams()), givenSavedColumns);
    EXPECT_EQ(namesOf(summedCalParams()), givenSummedColumns);
    QStringList selected;
    for (const auto& param : givenParams)
        selected << param.column.toString();
    EXPECT_EQ(namesOf(selectedCalParams()), selected.join(u','));
}

TEST_F(CalParamProcedures, EntriesOfARecordAreItsValuesAsTheyAreStored) {
    for (const auto& param : givenParams) {
        if (!param.shown.isEmpty()) {
            EXPECT_EQ(entries[param.member], param.shown) << param.column.toString().toStdString();
        }
    }
}

TEST_F(CalParamProcedures, ReadGivesStrategiesRecordAndMessages) {
    const auto stored = read();
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->strategies, (QStringList{u"FIVE"_s, u"THREE"_s}));
    EXPECT_EQ(stored->record.mtag, u"4711"_s);
    EXPECT_EQ(script.statements.size(), 6);
}

TEST_F(CalParamProcedures, ReadThatIsReportedGivesNothingThoughTheRestIsRead) {
    script.failures.insert(calParamsStatement(u"MT"_s, u"PT-1"_s), {208, u"no such table"_s});
    ui.expectReport(208, u"ModuleGlobals,GetCalParams"_s);
    EXPECT_FALSE(read());
    EXPECT_EQ(script.statements.size(), 6);
}

TEST_F(CalParamProcedures, FaultNamesPageTextAndParameter) {
    EXPECT_FALSE(firstFault(entries));
    entries[&R::click_dip_torque_out] = u"x"_s;
    auto fault = firstFault(entries);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->page, CalParamFault::output);
    EXPECT_EQ(fault->message, TextId::clickDipTorqueNotNumeric);
    EXPECT_EQ(fault->parameter, CalParamMember(&R::click_dip_torque_out));
    // An earlier check comes first.
    entries[&R::tp_name].clear();
    fault = firstFault(entries);
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->page, CalParamFault::general);
    EXPECT_EQ(fault->parameter, CalParamMember(&R::tp_name));
}

TEST_F(CalParamProcedures, AlternatingVoltageLosesTheSignsOfItsSideOnly) {
    entries[&R::input_type] = u"mVAC"_s;
    entries[&R::output_low] = u"-4"_s;
    const auto changed = makeAlternatingScalesPositive(entries);
    EXPECT_EQ(changed, (QList<CalParamMember>{&R::input_low, &R::input_high}));
    EXPECT_EQ(entries[&R::input_low], u"15.5"_s);
    EXPECT_EQ(entries[&R::output_low], u"-4"_s);
}

TEST_F(CalParamProcedures, StoreReplacesAllOrNothing) {
    const auto store = [&](const QString& message) {
        return storeCalParams(session, u"PT-1"_s, entries, {{message}, {u"VENT"_s}});
    };
    EXPECT_FALSE(store(u"WAIT"_s));
    ASSERT_EQ(script.statements.size(), 4);
    EXPECT_EQ(script.statements[0], u"delete from mt.hvm_kv_tag_config where mtag = "_s + key +
                                        u";delete from mt.hvm_kv_proc_prompts where mtag = "_s + key +
                                        u";commit"_s);
    EXPECT_TRUE(script.statements[2].endsWith(u",'PRE','0','WAIT');commit"_s));
    EXPECT_TRUE(script.statements[3].endsWith(u",'PST','0','VENT');commit"_s));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s}));
    script.transactions.clear();
    ui.expectReport(1, u"FormCalParam,SaveData"_s);
    EXPECT_TRUE(store(u"O'BRIEN"_s));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

TEST_F(CalParamProcedures, RefusedParameterIsTheOneThatLeavesItsQuotesOrThatTheErrorNames) {
    const Error named{19, u"cannot store TEXT value in REAL column hvm_kv_tag_config.neg_units"_s};
    EXPECT_EQ(refusedParameter(u"PT-1"_s, entries, named), CalParamMember(&R::neg_units));
    EXPECT_EQ(refusedParameter(u"PT-1"_s, entries, Error{7, u"no space left"_s}), std::nullopt);
    entries[&R::cj_ref_temp_in] = u"20'"_s;
    EXPECT_EQ(refusedParameter(u"PT-1"_s, entries, named), CalParamMember(&R::cj_ref_temp_in));
    EXPECT_EQ(refusedParameter(u"O'B"_s, entries, named), CalParamMember(&R::mtag));
    EXPECT_EQ(refusedMessage({u"WAIT"_s, u"O'BRIEN"_s}), 1);
    EXPECT_EQ(refusedMessage({u"WAIT"_s}), -1);
}

} // namespace kelvane::testing
