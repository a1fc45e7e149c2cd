#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"
#include "data/records/cal_record.h"
#include "data/records/field_dictionary.h"
#include "data/records/record_columns.h"
#include "data/records/standards.h"
#include "testkit/engines.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class ConfinedValues : public EngineSession, public ::testing::WithParamInterface<Engine> {
  protected:
    CalRecord record;
    ConfinedValues() { useEngine(GetParam()); }
    /// Changes the demonstration data, where the session stands on them; "%1" is the value for between
    /// quotes.
    void prepare(const QString& statement, const QString& value) {
        if (hasDatabase())
            execute(statement.arg(QString(value).replace(u"'"_s, u"''"_s)) + u";commit"_s);
    }
    CalField& put(int row, const QString& column, const QString& value = {}, qint16 type = 0) {
        auto& field = record.CalFieldTable[row];
        field = {};
        field.column = column;
        field.value = value;
        field.field_type = type;
        return field;
    }
    /// A record of PT-101 that only waits to be written.
    void fillRecord() {
        record.CalFieldTable.erase();
        record.RecordStandards.erase();
        record.RecordResults.erase();
        put(0, u"C2301"_s, u"03/18/2026"_s, 1);
        put(1, u"C2333"_s, u"09:30"_s, 3);
    }
};

/// A value that a routine puts into its statement as it stands.
struct Field {
    const char* name;
    /// The routines that report, in order.
    QStringList routines;
    void (*use)(Session& session, const QString& value);
};

QString name(const char* routine) {
    return u"ModuleGlobals,"_s + QString::fromLatin1(routine);
}

const Field textFields[] = {
    {"serial number", {name("AssetfromSerial")}, [](Session& s, const QString& v) { AssetfromSerial(s, v); }},
    {"start of a serial number",
     {name("AssetfromSerial")},
     [](Session& s, const QString& v) { AssetfromSerial(s, v, u"PT"_s); }},
    {"start of an asset number",
     {name("AssetfromSerial")},
     [](Session& s, const QString& v) { AssetfromSerial(s, u"48"_s, v); }},
    {"asset number", {name("CheckAsset")}, [](Session& s, const QString& v) { CheckAsset(s, v); }},
    {"serial number of a standard",
     {name("GetAssetsInTaskPackage")},
     [](Session& s, const QString& v) { GetAssetsInUseWithStandard(s, v); }},
    {"asset number of parameters",
     {name("GetCalParams")},
     [](Session& s, const QString& v) { GetCalParams(s, v); }},
    {"asset number of points",
     {name("GetTestPointList")},
     [](Session& s, const QString& v) { GetTestPointList(s, v); }},
    {"asset number of messages",
     {name("GetPrompts")},
     [](Session& s, const QString& v) { GetPrompts(s, v, 0, {}); }},
    {"tag of a package's messages",
     {name("GetPrompts")},
     [](Session& s, const QString& v) { GetPrompts(s, {}, 2, v); }},
    {"asset number of a first calibration",
     {name("FirstCal")},
     [](Session& s, const QString& v) { FirstCal(s, v); }},
    {"column of a type", {name("FieldType")}, [](Session& s, const QString& v) { FieldType(s, v); }},
    {"asset number of a column",
     {name("SourceColumn")},
     [](Session& s, const QString& v) { SourceColumn(s, u"I4229"_s, v); }},
    {"asset number of a record's column",
     {name("SourceColumn")},
     [](Session& s, const QString& v) { SourceColumn(s, u"C2302"_s, v); }},
    {"column that is read",
     {name("SourceColumn")},
     [](Session& s, const QString& v) { SourceColumn(s, u"C2302"_s + v, u"PT-101"_s); }},
    {"column that is written",
     {name("FieldType"), name("DestColumn")},
     [](Session& s, const QString& v) { DestColumn(s, u"I4224"_s + v, u"PT-101"_s, u"1"_s); }},
    {"asset number of a column that is written",
     {name("DestColumn")},
     [](Session& s, const QString& v) { DestColumn(s, u"I4224"_s, v, u"1"_s); }},
    {"asset number of a copy into a record",
     {name("DestColumn")},
     [](Session& s, const QString& v) { DestColumn(s, u"C2326"_s, v, u"1"_s); }},
    {"value that is written",
     {name("DestColumn")},
     [](Session& s, const QString& v) { DestColumn(s, u"I4224"_s, u"PT-101"_s, v); }},
    {"serial number of a calibrator that goes out",
     {name("AssetfromSerial"), name("AddInUse")},
     [](Session& s, const QString& v) { AddInUse(s, v, u"1301"_s, u"jdoe"_s); }},
    {"key of an instrument that goes out",
     {name("AddInUse")},
     [](Session& s, const QString& v) { AddInUse(s, u"48213"_s, v, u"jdoe"_s); }},
    {"name of a technician",
     {name("AddInUse")},
     [](Session& s, const QString& v) { AddInUse(s, u"48213"_s, u"1301"_s, v); }},
    {"serial number of a calibrator that comes back",
     {name("AssetfromSerial"), name("ClearInUse")},
     [](Session& s, const QString& v) { ClearInUse(s, v); }},
    {"serial number of what is in use",
     {name("GetInUseData")},
     [](Session& s, const QString& v) { GetInUseData(s, v, u"1301"_s); }},
    {"key of what is in use",
     {name("GetInUseData")},
     [](Session& s, const QString& v) { GetInUseData(s, u"48213"_s, v); }},
    {"asset number of standards in use",
     {name("GetInUseData")},
     [](Session& s, const QString& v) { GetStandardsInUse(s, v); }},
    {"instrument of a standard",
     {name("CheckStandard")},
     [](Session& s, const QString& v) { CheckStandard(s, u"STD-REF-1"_s, v); }},
};

/// What does not end in the database at all where the session's owner is more than a name.
const Field ownedRoutines[] = {
    {"", {name("AssetfromSerial")}, [](Session& s, const QString&) { AssetfromSerial(s, u"1"_s); }},
    {"", {name("AssetfromSerial")}, [](Session& s, const QString&) { AssetfromSerial(s, u"1"_s, u"1"_s); }},
    {"", {name("CheckAsset")}, [](Session& s, const QString&) { CheckAsset(s, u"1"_s); }},
    {"",
     {name("GetAssetsInTaskPackage")},
     [](Session& s, const QString&) { GetAssetsInUseWithStandard(s, u"1"_s); }},
    {"", {name("GetCalParams")}, [](Session& s, const QString&) { GetCalParams(s, u"1"_s); }},
    {"", {name("HasConfigData")}, [](Session& s, const QString&) { HasConfigData(s, u"1"_s); }},
    {"", {name("GetTestPointList")}, [](Session& s, const QString&) { GetTestPointList(s, u"1"_s); }},
    {"", {name("GetPrompts")}, [](Session& s, const QString&) { GetPrompts(s, u"1"_s, 0, {}); }},
    {"", {name("FirstCal")}, [](Session& s, const QString&) { FirstCal(s, u"1"_s); }},
    {"", {name("SourceColumn")}, [](Session& s, const QString&) { SourceColumn(s, u"I4229"_s, u"1"_s); }},
    {"", {name("DestColumn")}, [](Session& s, const QString&) { DestColumn(s, u"I4224"_s, u"1"_s, {}); }},
    {"", {name("DestColumn")}, [](Session& s, const QString&) { DestColumn(s, u"C2326"_s, u"1"_s, {}); }},
    {"", {name("GetInUseData")}, [](Session& s, const QString&) { GetStandardsInUse(s, u"1"_s); }},
    {"", {name("CheckStandard")}, [](Session& s, const QString&) { CheckStandard(s, u"1"_s, u"2"_s); }},
};

/// Conditions of a package that would leave their parentheses.
const QStringList breakingConditions{u"'x'); delete from mt.hvm_kv_task_packages; select ('1'"_s,
                                     u"'x') or (1=1"_s,
                                     u"'x') union select name,hash,name from accounts where ('1'='1'"_s,
                                     u"'x') --"_s,
                                     u"'x' /*"_s,
                                     u"'x"_s,
                                     u"select i4201 from MT.inventory;delete from mt.hvm_kv_task_packages"_s};

} // namespace

TEST_P(ConfinedValues, ATextThatEndsItsQuotesIsTheSyntaxErrorOfItsRoutine) {
    for (const auto& field : textFields) {
        SCOPED_TRACE(field.name);
        for (const auto& value : breakingTexts())
            expectRefusal(value, field.routines, [&] { field.use(session, value); });
    }
}

TEST_P(ConfinedValues, ATextWithQuotesInPairsStaysATextAndGoesOut) {
    sent.clear();
    CheckAsset(session, u"x'' or ''1''=''1"_s);
    EXPECT_EQ(sent, QStringList{u"select mtag from MT.inventory where i4201 = 'x'' or ''1''=''1'"_s});
}

TEST_P(ConfinedValues, AnOwnerThatIsMoreThanANameIsTheSyntaxErrorOfEachRoutine) {
    for (const auto& owner :
         {u"MT.inventory; delete from mt.hvm_kv_task_packages; select * from MT"_s, u"MT.inventory --"_s,
          u"MT.inventory union select hash from main"_s, u"\"MT\""_s}) {
        session.SessionOwner = owner;
        for (const auto& field : ownedRoutines)
            expectRefusal(owner, field.routines, [&] { field.use(session, owner); });
    }
}

TEST_P(ConfinedValues, AColumnThatIsMoreThanANameIsTheSyntaxErrorOfItsRoutine) {
    for (const auto& more :
         {u" from mt.dbconfig --"_s, u",(select hash from accounts)"_s, u"; delete from mt.standards"_s,
          u" = 1 --"_s, u"=(select hash from accounts)"_s}) {
        expectRefusal(u"I4229"_s + more, {name("SourceColumn")},
                      [&] { SourceColumn(session, u"I4229"_s + more, u"PT-101"_s); });
        expectRefusal(u"I4224"_s + more, {name("DestColumn")},
                      [&] { DestColumn(session, u"I4224"_s + more, u"PT-101"_s, {}); });
    }
}

TEST_P(ConfinedValues, AnUnquotedAssetIsSentOnlyWhereItChangesNothing) {
    // The statement's own stray quote leaves the asset number unquoted.
    for (const auto& asset : {u"or 1=1 --"_s, u"or 1=1; delete from mt.standards --"_s, u"or 1=1 //"_s,
                              u"a/*"_s, u"x) or (1"_s, u"a--b"_s})
        expectRefusal(asset, {name("DestColumn")}, [&] { DestColumn(session, u"C2326"_s, asset, {}); });
    sent.clear();
    if (hasDatabase())
        ui.expectReport(1, name("DestColumn"));
    DestColumn(session, u"C2326"_s, u"PT-101"_s, {});
    EXPECT_EQ(
        sent,
        QStringList{u"update MT.calibration set C2326 = NULL where mtag = '(select mtag from MT.inventory "
                    "where i4201 = 'PT-101') and C2339 = '1';commit"_s});
}

TEST_P(ConfinedValues, ANameOfAPackageIsTheSyntaxErrorOfItsExpansion) {
    for (const auto& value : breakingTexts()) {
        for (const auto& kind : {u"WSHT"_s, u"PDEF"_s}) {
            prepare(
                u"insert into mt.hvm_kv_task_packages (taskname,tptag,tptype,tp_definition) values ('%1','"_s +
                    kind + QString::number(sent.size()) + u"','"_s + kind + u"','A')"_s,
                value);
            answer = {kind, u"A"_s, {}, {}, {}, {}};
            expectRefusal(value, {name("GetAssetsInTaskPackage")},
                          [&] { GetAssetsInTaskPackage(session, value); });
            prepare(u"delete from mt.hvm_kv_task_packages where taskname = '%1'"_s, value);
        }
    }
}

TEST_P(ConfinedValues, AStoredConditionThatLeavesItsParenthesesIsASyntaxError) {
    for (const auto& condition : breakingConditions) {
        prepare(u"update mt.hvm_kv_task_packages set task_sql = '%1' where taskname = 'TEMPERATURE LOOPS'"_s,
                condition);
        answer = {u"PDEF"_s, u"S"_s, condition, {}, {}, {}};
        expectRefusal(condition, {name("GetAssetsInTaskPackage")}, [&] {
            EXPECT_TRUE(GetAssetsInTaskPackage(session, u"TEMPERATURE LOOPS"_s).isEmpty());
        });
    }
}

TEST_P(ConfinedValues, AStandardsNameIsTheSyntaxErrorOfItsQualification) {
    for (const auto& value : breakingTexts()) {
        prepare(u"insert into mt.inventory (mtag,i4201,i4209) values ('confined','%1','A')"_s, value);
        answer = {u"A"_s, {}, {}, u"B"_s, u"N"_s, u"N"_s};
        expectRefusal(value, {name("CheckStandard")}, [&] { CheckStandard(session, value, u"PT-101"_s); });
        prepare(u"delete from mt.inventory where mtag = 'confined' and '%1' <> ''"_s, value);
    }
}

TEST_P(ConfinedValues, AFieldNumberIsTheSyntaxErrorOfItsQuestion) {
    for (const auto& value : {u"x'--"_s, u"1'or"_s, u"';--"_s}) {
        put(0, u"C"_s + value).has_list = true;
        expectRefusal(value, {name("PromptUser")},
                      [&] { EXPECT_FALSE(PromptUser(session, record, 0, u"PT-101"_s)); });
    }
}

TEST_P(ConfinedValues, AColumnOfTheDictionaryIsTheSyntaxErrorOfTheRecordAndNothingIsWritten) {
    for (const auto& column :
         {u"C2326) values ('x');delete from mt.standards;insert into mt.standards (mtag"_s,
          u"C2326,(select hash from accounts)"_s, u"C23'26"_s}) {
        fillRecord();
        put(2, column);
        expectRefusal(column, {name("CreateCalRecord")},
                      [&] { CreateCalRecord(session, record, u"PT-101"_s); });
    }
}

TEST_P(ConfinedValues, AResultLineAndAStandardAreTheSyntaxErrorOfTheRecordAlreadyWritten) {
    for (const auto& value : breakingTexts()) {
        SCOPED_TRACE(value.toStdString());
        for (auto* list : {"standard", "line"}) {
            fillRecord();
            record.CalFieldTable[0].value = clock.now().addDays(-sent.size()).toString(u"MM/dd/yyyy"_s);
            (list == std::string("line") ? record.RecordResults[0] : record.RecordStandards[0]) = value;
            sent.clear();
            ui.expectReport(1, name("CreateCalRecord"));
            CreateCalRecord(session, record, u"PT-101"_s);
            EXPECT_TRUE(ui.hasMetAll());
            ASSERT_FALSE(sent.isEmpty());
            EXPECT_TRUE(sent.join(u'\n').contains(u"insert into MT.calibration"_s))
                << "the record goes before its children";
            for (const auto& statement : std::as_const(sent))
                EXPECT_FALSE(statement.contains(value)) << statement.toStdString();
            if (hasDatabase())
                execute(
                    u"delete from MT.calibration where mtag = (select mtag from MT.inventory where i4201 = "
                    "'PT-101');commit"_s);
        }
    }
}

TEST_P(ConfinedValues, AResultLineWithQuotesInPairsIsStoredAsOneLine) {
    fillRecord();
    record.RecordResults[0] = u"x'',0,0,0); delete from mt.standards; --''"_s;
    const auto standards = hasDatabase() ? value(u"select count(*) from mt.standards"_s) : QString();
    CreateCalRecord(session, record, u"PT-101"_s);
    EXPECT_TRUE(sent.join(u'\n').contains(u"values ('x'',0,0,0); delete from mt.standards; --'''"_s));
    if (hasDatabase()) {
        EXPECT_EQ(value(u"select count(*) from mt.standards"_s), standards);
        EXPECT_EQ(value(u"select c2501 from mt.calresults where c2501 like 'x%'"_s),
                  u"x',0,0,0); delete from mt.standards; --'"_s);
    }
}

/// Values that only the data of the embedded engine can hold.
class ConfinedStoredValues : public ConfinedValues {};

TEST_P(ConfinedStoredValues, AFieldToCopyIsTheSyntaxErrorOfItsColumn) {
    const auto source = u"2302 from mt.dbconfig; delete from mt.standards --"_s;
    prepare(u"update mt.customiz set scopy = '%1' where fldnum = '2302'"_s, source);
    expectRefusal(source, {name("SourceColumn")}, [&] { SetCalDataFields(session, record, u"PT-101"_s); });
}

INSTANTIATE_TEST_SUITE_P(Engines, ConfinedValues, ::testing::Values(Engine::own, Engine::verbatim),
                         [](const auto& test) { return test.param == Engine::own ? "own" : "verbatim"; });
INSTANTIATE_TEST_SUITE_P(Engines, ConfinedStoredValues, ::testing::Values(Engine::own),
                         [](const auto&) { return "embedded"; });

} // namespace kelvane::testing
