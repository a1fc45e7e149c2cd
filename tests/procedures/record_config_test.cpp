#include "procedures/record_config.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto countFields = u"select count(fldnum) from mt.hvm_kv_worksheetfields"_s;
const auto dictionary =
    u"select fldnum,title from mt.customiz where fldnum not like '%90' and fldnum not like '%91' and fldnum "
    "not like '%92' and fldnum not like '%93' and fldnum <> '2340' and fldnum not like '%94' and fldnum not "
    "like '%95' and fldnum like '23%' and suppressed <> 'Y'"_s;
const auto others =
    dictionary + u" and fldnum not in (select fldnum from mt.hvm_kv_worksheetfields) order by fldnum asc"_s;
const auto configured = u"select fldnum,(select title from mt.customiz where mt.customiz.fldnum = "
                        "mt.hvm_kv_worksheetfields.fldnum) from mt.hvm_kv_worksheetfields order by "
                        "sequence asc"_s;
const auto required = dictionary + u" and (ireq <> 'N' or sreq <> 'N') order by fldnum asc"_s;
const auto optional = dictionary + u" and (ireq = 'N' and sreq = 'N') order by fldnum asc"_s;
const auto permissions = u"select allow_ooc_stds,allow_poor_trace_stds from mt.hvm_kv_sysconfig"_s;
const auto selectRow = u"select allow_ooc_stds from mt.hvm_kv_sysconfig"_s;
const auto deleteFields = u"delete from mt.hvm_kv_worksheetfields;commit"_s;

QString insertField(const QString& number, int sequence) {
    return u"insert into mt.hvm_kv_worksheetfields (fldnum,sequence) values ('%1','%2');commit"_s.arg(number)
        .arg(sequence);
}

QString update(const QString& column, QChar value) {
    return u"update mt.hvm_kv_sysconfig set %1 = '%2';commit"_s.arg(column, value);
}

} // namespace

class RecordConfiguration : public RecordedSession {};

TEST_F(RecordConfiguration, LoadingReadsTheFieldsInTheirOrderAndThePermissions) {
    script.answers[countFields] = {{u"2"_s}};
    script.answers[others] = {{u"2302"_s, u"Date"_s}};
    script.answers[configured] = {{u"2333"_s, u"Order"_s}, {u"2301"_s, std::nullopt}};
    script.answers[permissions] = {{u"y"_s, std::nullopt}};
    const auto config = loadRecordConfig(session);
    ASSERT_TRUE(config);
    EXPECT_EQ(config->available, QStringList{u"C2302 : Date"_s});
    EXPECT_EQ(config->requested, (QStringList{u"C2333 : Order"_s, u"C2301 : "_s}));
    EXPECT_TRUE(config->allowsOverdueStandards);
    EXPECT_FALSE(config->allowsPoorTrace);
    EXPECT_EQ(script.statements, (QStringList{countFields, others, configured, permissions}));
}

TEST_F(RecordConfiguration, LoadingProposesTheRequiredFieldsWhileNoneIsStoredAndAllowsNothing) {
    script.answers[countFields] = {{u"0"_s}};
    script.answers[required] = {{u"2301"_s, u"Certificate"_s}};
    const auto config = loadRecordConfig(session);
    ASSERT_TRUE(config);
    EXPECT_EQ(config->requested, QStringList{u"C2301 : Certificate"_s});
    EXPECT_FALSE(config->allowsOverdueStandards);
    EXPECT_FALSE(config->allowsPoorTrace);
    EXPECT_EQ(script.statements, (QStringList{countFields, required, optional, permissions}));
}

TEST_F(RecordConfiguration, LoadingThatFailsGivesNothingAndIsReported) {
    script.answers[countFields] = {{u"2"_s}};
    for (const auto& statement : {countFields, others, configured, permissions}) {
        script.failures = {{statement, Error{-210, u"Locked"_s}}};
        ui.expectReport(-210, u"FormWorkConfig,LoadLists"_s);
        EXPECT_FALSE(loadRecordConfig(session)) << statement.toStdString();
    }
}

TEST_F(RecordConfiguration, SavingReplacesTheFieldsAndSetsBothPermissions) {
    const RecordConfig config{.requested = {u"C2333 : Order"_s, u"C2301 : "_s}, .allowsPoorTrace = true};
    script.answers[selectRow] = {{u"N"_s}};
    EXPECT_FALSE(saveRecordConfig(session, config));
    EXPECT_EQ(script.statements,
              (QStringList{deleteFields, insertField(u"2333"_s, 0), insertField(u"2301"_s, 1), selectRow,
                           update(u"allow_ooc_stds"_s, u'N'), update(u"allow_poor_trace_stds"_s, u'Y')}));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s}));
}

TEST_F(RecordConfiguration, TheFirstSaveMakesTheRowOfThePermissions) {
    EXPECT_FALSE(saveRecordConfig(session, {}));
    EXPECT_TRUE(script.statements.contains(
        u"insert into mt.hvm_kv_sysconfig (allow_ooc_stds,allow_poor_trace_stds) values ('N','N');commit"_s));
}

TEST_F(RecordConfiguration, ASaveThatFailsTellsTheFieldAndStoresNothing) {
    script.failures[insertField(u"2301"_s, 1)] = Error{19, u"fldnum"_s};
    ui.expectReport(19, u"FormWorkConfig,CommandSave"_s);
    const auto failure = saveRecordConfig(session, {.requested = {u"C2333 : "_s, u"C2301 : "_s}});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->row, 1);
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
}

} // namespace kelvane::testing
