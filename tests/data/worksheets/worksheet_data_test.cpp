#include "data/worksheets/worksheet_data.h"

#include "testkit/fixtures.h"
#include "testkit/scripted_params.h"
#include "tests/data/records/record_statements.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto packageQuery = u"select mtag from mt.hvm_kv_task_assets where tptag = 'TAG1'"_s;
const auto inventoryQuery =
    u"select i4201,i4202,i4203,i4204,i4206,i4230,i4231 from MT.inventory where mtag = '4711'"_s;
const auto mtagQuery = u"(select mtag from MT.inventory where i4201 = 'PT-1')"_s;
const auto locationQuery =
    u"select L2801 from MT.location where mtag = "_s + mtagQuery + u" and L2815 = '1'"_s;
const auto paramsQuery = calParamsStatement(u"MT"_s, u"PT-1"_s);
const auto repetitionsQuery = u"select repetitions from mt.hvm_kv_tag_config where mtag = "_s + mtagQuery;
const auto pointsQuery = u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name "
                         "from mt.hvm_kv_tag_config where mtag = "_s +
                         mtagQuery + u") order by test_point_seq asc"_s;

QString messagesQuery(const QString& type) {
    return u"select pname,(select prompt from mt.hvm_kv_prompts where mt.hvm_kv_prompts.pname = "
           "mt.hvm_kv_proc_prompts.pname),prompt_type from mt.hvm_kv_proc_prompts where mtag = "_s +
           mtagQuery + u" and prompt_type = '"_s + type + u"' order by prompt_seq asc"_s;
}

const auto countQuery = u"select count(ctag) from MT.calibration where mtag = "_s + mtagQuery;
const auto dictionaryQuery =
    u"select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip from "
    "mt.customiz where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' or "
    "fldnum = '2308' or fldnum = '2303' or fldnum = '2301' or fldnum = '2307') order by row,nextfld asc"_s;
const auto standardsQuery =
    u"select i4201,i4204,i4206,i4231 from MT.inventory where mtag in (select standard_mtag from "
    "mt.hvm_kv_last_standards_used where mtag = '4711') order by i4201 asc"_s;

Row field(const QString& column, const QString& title, const QString& preset, const QString& required) {
    const std::optional<QString> none;
    return {column, title, preset, required, required, preset, none, none, none, none, none};
}

QJsonObject member(const QJsonObject& sheet, QLatin1StringView list, int row) {
    return sheet[list].toArray().at(row).toObject();
}

/// The sheet of PT-1, for which every statement has an answer.
class WorksheetData : public RecordedSession {
  protected:
    WorksheetData() {
        script.answers[inventoryQuery] = {{u"PT-1"_s, u"VALTEC"_s, u"P100"_s, u"PRESSURE TRANSMITTER"_s,
                                           u"V88101"_s, u"2026-01-31"_s, u"2027-01-31"_s}};
        script.answers[locationQuery] = {{u"UNIT 1 HEADER"_s}};
        script.answers[paramsQuery] = {calParamsRow()};
        script.answers[repetitionsQuery] = {{u"2"_s}};
        script.answers[pointsQuery] = {{u"0"_s}, {u"50"_s}};
        script.answers[messagesQuery(u"PRE"_s)] = {
            {u"ISOLATE"_s, u"Vent it: $INPUTHIGH$ $INPUTUNITS$"_s, u"PRE"_s},
            {u"EMPTY"_s, std::nullopt, u"PRE"_s}};
        script.answers[messagesQuery(u"PST"_s)] = {{u"LABEL"_s, u"By $U_NAM$ on $TODAY$"_s, u"PST"_s}};
        script.answers[countQuery] = {{u"1"_s}};
        script.answers[dictionaryQuery] = {field(u"C2307"_s, u"Technician"_s, u"U_NAM"_s, u"Y"_s),
                                           field(u"C2312"_s, u"Ambient <C>"_s, u""_s, u"Y"_s),
                                           field(u"C2315"_s, u"Place"_s, u"LAB"_s, u"N"_s)};
        script.answers[worksheetQuery] = {{u"2315"_s}, {u"9999"_s}, {u"2312"_s}};
        script.answers[standardsQuery] = {{u"F702-01"_s, u"CALIBRATOR"_s, u"6841207"_s, u"2026-12-24"_s},
                                          {u"G-1"_s, std::nullopt, std::nullopt, std::nullopt}};
    }

    QJsonObject sheet() {
        QJsonObject made;
        EXPECT_TRUE(readWorksheet(session, u"4711"_s, made));
        return made;
    }
    bool hasSheet(const QString& mtag) {
        QJsonObject made;
        return readWorksheet(session, mtag, made);
    }
    QString value(QLatin1StringView name) { return sheet()[name].toString(); }
};

} // namespace

TEST_F(WorksheetData, IsReadByTheseStatementsInThisOrder) {
    sheet();
    EXPECT_EQ(
        script.statements,
        (QStringList{inventoryQuery, locationQuery, typeQuery(u"L2801"_s), paramsQuery, repetitionsQuery,
                     pointsQuery, messagesQuery(u"PRE"_s), paramsQuery, messagesQuery(u"PST"_s), paramsQuery,
                     countQuery, dictionaryQuery, typeQuery(u"C2307"_s), typeQuery(u"C2312"_s),
                     typeQuery(u"C2315"_s), worksheetQuery, worksheetQuery, standardsQuery}));
}

TEST_F(WorksheetData, AnotherOwnerReadsItsOwnInventory) {
    session.SessionOwner = u"ABC"_s;
    ui.expectBox(u"An instrument of the task package is not in the inventory (its key: \"4711\")."_s,
                 u"Calibration Worksheet"_s, box::stop);
    EXPECT_FALSE(hasSheet(u"4711"_s));
    EXPECT_EQ(script.statements, QStringList{QString(inventoryQuery).replace(u"MT."_s, u"ABC."_s)});
}

TEST_F(WorksheetData, InventoryStandsOnTheSheetWithDatesInTheSessionsForm) {
    session.SessionDateFormat = u"DD/MM/YYYY"_s;
    const auto made = sheet();
    const std::pair<QLatin1StringView, QString> expected[] = {
        {"asset"_L1, u"PT-1"_s},
        {"manufacturer"_L1, u"VALTEC"_s},
        {"model"_L1, u"P100"_s},
        {"description"_L1, u"PRESSURE TRANSMITTER"_s},
        {"serial"_L1, u"V88101"_s},
        {"lastCalibration"_L1, u"31/01/2026"_s},
        {"due"_L1, u"31/01/2027"_s},
        {"location"_L1, u"UNIT 1 HEADER"_s},
        {"input"_L1, u"-15.5 to 100 psi"_s},
        {"output"_L1, u"4 to 20 mA"_s},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(made[name].toString(), text) << name.data();
}

TEST_F(WorksheetData, ADateWithoutAFormOfTheSessionIsWrittenInTheShortForm) {
    session.SessionDateFormat.clear();
    EXPECT_EQ(value("due"_L1), u"01/31/2027"_s);
}

TEST_F(WorksheetData, NullsOfTheInventoryAreEmptyTexts) {
    const std::optional<QString> none;
    script.answers[inventoryQuery] = {{u"PT-1"_s, none, none, none, none, none, none}};
    script.answers.remove(locationQuery);
    const auto made = sheet();
    for (const auto name : {"manufacturer"_L1, "model"_L1, "description"_L1, "serial"_L1,
                            "lastCalibration"_L1, "due"_L1, "location"_L1}) {
        EXPECT_TRUE(made[name].isString()) << name.data();
        EXPECT_EQ(made[name].toString(), QString()) << name.data();
    }
}

TEST_F(WorksheetData, EachCalibrationParameterStandsUnderItsColumn) {
    const auto made = sheet();
    for (const auto& param : givenParams)
        EXPECT_EQ(made[param.column].toString(), param.stored.toString())
            << param.column.toString().toStdString();
}

TEST_F(WorksheetData, ToleranceIsTheSumOfItsTermsInWords) {
    EXPECT_EQ(value("tolerance"_L1), u"+0.2/-0.1% of full scale plus +0.4/-0.3% of span plus +0.6/-0.5% of "
                                     "reading plus +8/-7 LSD plus +1.1/-0.9 mA"_s);
}

TEST_F(WorksheetData, ToleranceLeavesOutTermsOfZeroAndJoinsEqualSides) {
    auto row = calParamsRow();
    for (int term = 9; term <= 18; ++term)
        row[term] = u"0"_s;
    row[11] = row[12] = u"0.25"_s;
    row[18] = u"0.1"_s;
    script.answers[paramsQuery] = {row};
    EXPECT_EQ(value("tolerance"_L1), u"±0.25% of span plus +0.1/-0 mA"_s);
}

TEST_F(WorksheetData, PointsHaveInputNominalLimitsAndToleranceAsOftenAsTheyAreRepeated) {
    const auto made = sheet();
    const QJsonObject lowest{{"number"_L1, u"1"_s},        {"percent"_L1, u"0"_s},
                             {"input"_L1, u"-15.50psi"_s}, {"output"_L1, u"4.00mA"_s},
                             {"lower"_L1, u"2.94"_s},      {"upper"_L1, u"5.31"_s},
                             {"tolerance"_L1, u"1.06mA"_s}};
    const QJsonObject middle{{"number"_L1, u"2"_s},        {"percent"_L1, u"50"_s},
                             {"input"_L1, u"42.25psi"_s},  {"output"_L1, u"12.00mA"_s},
                             {"lower"_L1, u"10.90"_s},     {"upper"_L1, u"13.36"_s},
                             {"tolerance"_L1, u"1.10mA"_s}};
    EXPECT_EQ(made["points"_L1].toArray(), (QJsonArray{lowest, lowest, middle, middle}));
}

TEST_F(WorksheetData, APercentageKeepsTheDigitsThatWereStored) {
    script.answers[pointsQuery] = {{u"33.3"_s}, {u"0.1"_s}, {u"110"_s}};
    script.answers[repetitionsQuery] = {{u"1"_s}};
    const auto made = sheet();
    EXPECT_EQ(member(made, "points"_L1, 0)["percent"_L1].toString(), u"33.3"_s);
    EXPECT_EQ(member(made, "points"_L1, 1)["percent"_L1].toString(), u"0.1"_s);
    EXPECT_EQ(member(made, "points"_L1, 2)["percent"_L1].toString(), u"110"_s);
}

TEST_F(WorksheetData, MessagesComeBeforeAndAfterTheTestWithTheirMacrosExpanded) {
    const auto made = sheet();
    EXPECT_EQ(made["messagesBefore"_L1].toArray(),
              (QJsonArray{QJsonObject{{"name"_L1, u"ISOLATE"_s}, {"text"_L1, u"Vent it: 100 psi"_s}},
                          QJsonObject{{"name"_L1, u"EMPTY"_s}, {"text"_L1, QString()}}}));
    EXPECT_EQ(made["messagesAfter"_L1].toArray(),
              (QJsonArray{QJsonObject{{"name"_L1, u"LABEL"_s}, {"text"_L1, u"By jdoe on 03/18/2026"_s}}}));
}

TEST_F(WorksheetData, FieldsAreThoseOfTheWorksheetInItsOrder) {
    EXPECT_EQ(
        sheet()["fields"_L1].toArray(),
        (QJsonArray{
            QJsonObject{{"title"_L1, u"Place"_s}, {"value"_L1, u"LAB"_s}, {"required"_L1, QString()}},
            QJsonObject{{"title"_L1, u"Ambient <C>"_s}, {"value"_L1, QString()}, {"required"_L1, u"Y"_s}}}));
}

TEST_F(WorksheetData, StandardsAreThoseLastUsedWithWhatTheInventorySaysOfThem) {
    EXPECT_EQ(sheet()["standards"_L1].toArray(), (QJsonArray{QJsonObject{{"asset"_L1, u"F702-01"_s},
                                                                         {"description"_L1, u"CALIBRATOR"_s},
                                                                         {"serial"_L1, u"6841207"_s},
                                                                         {"due"_L1, u"12/24/2026"_s}},
                                                             QJsonObject{{"asset"_L1, u"G-1"_s},
                                                                         {"description"_L1, QString()},
                                                                         {"serial"_L1, QString()},
                                                                         {"due"_L1, QString()}}}));
}

TEST_F(WorksheetData, WithoutParametersHasNoneAndNoPoints) {
    for (const auto& query : {paramsQuery, repetitionsQuery, pointsQuery})
        script.answers.remove(query);
    const auto made = sheet();
    EXPECT_EQ(made["asset"_L1].toString(), u"PT-1"_s);
    for (const auto name : {"input"_L1, "output"_L1, "tolerance"_L1, "strategy"_L1, "input_low"_L1})
        EXPECT_FALSE(made.contains(name)) << name.data();
    EXPECT_TRUE(made["points"_L1].toArray().isEmpty());
    EXPECT_EQ(made["messagesBefore"_L1].toArray().size(), 2);
}

TEST_F(WorksheetData, EachFailureOfAStatementIsReportedOnceAndGivesNoSheet) {
    const struct {
        QString statement;
        QString routine;
    } cases[] = {
        {inventoryQuery, u"WorksheetReport,readWorksheet"_s},
        {locationQuery, u"ModuleGlobals,SourceColumn"_s},
        {paramsQuery, u"ModuleGlobals,GetCalParams"_s},
        {repetitionsQuery, u"ModuleGlobals,GetTestPointList"_s},
        {pointsQuery, u"ModuleGlobals,GetTestPointList"_s},
        {messagesQuery(u"PRE"_s), u"ModuleGlobals,GetPrompts"_s},
        {messagesQuery(u"PST"_s), u"ModuleGlobals,GetPrompts"_s},
        {countQuery, u"ModuleGlobals,FirstCal"_s},
        {dictionaryQuery, u"ModuleGlobals,SetCalDataFields"_s},
        {standardsQuery, u"WorksheetReport,worksheetStandards"_s},
    };
    for (const auto& testCase : cases) {
        script.failures = {{testCase.statement, Error{-99, u"planned"_s}}};
        script.statements.clear();
        ui.expectReport(-99, testCase.routine);
        EXPECT_FALSE(hasSheet(u"4711"_s)) << testCase.statement.toStdString();
        EXPECT_TRUE(ui.hasMetAll()) << testCase.statement.toStdString();
    }
}

TEST_F(WorksheetData, AnInstrumentWithoutANumberIsReported) {
    script.answers[inventoryQuery].first()[0] = std::nullopt;
    ui.expectReport(94, u"WorksheetReport,readWorksheet"_s);
    EXPECT_FALSE(hasSheet(u"4711"_s));
}

TEST_F(WorksheetData, ADateThatIsNoneIsReported) {
    script.answers[inventoryQuery].first()[6] = u"soon"_s;
    ui.expectReport(13, u"WorksheetReport,readWorksheet"_s);
    EXPECT_FALSE(hasSheet(u"4711"_s));
}

TEST_F(WorksheetData, AKeyThatEndsItsQuotesIsReportedAndNotSent) {
    ui.expectReport(1, u"WorksheetReport,readWorksheet"_s);
    EXPECT_FALSE(hasSheet(u"1' or '1"_s + u"'='1';--"_s));
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetData, InstrumentsComeInTheOrderOfTheRowsEachAsOftenAsItIsListed) {
    script.answers[packageQuery] = {{u"2"_s}, {u"1"_s}, {std::nullopt}, {u"2"_s}};
    const auto instruments = worksheetInstruments(session, u"TAG1"_s);
    ASSERT_TRUE(instruments);
    EXPECT_EQ(*instruments, (QStringList{u"2"_s, u"1"_s, QString(), u"2"_s}));
    EXPECT_EQ(script.statements, QStringList{packageQuery});
}

TEST_F(WorksheetData, MoreThan501InstrumentsAreAllListed) {
    for (int row = 0; row < 600; ++row)
        script.answers[packageQuery] << Row{QString::number(row)};
    EXPECT_EQ(worksheetInstruments(session, u"TAG1"_s)->size(), 600);
}

TEST_F(WorksheetData, APackageThatCannotBeReadIsReportedAndGivesNoList) {
    script.failures = {{packageQuery, Error{-99, u"planned"_s}}};
    ui.expectReport(-99, u"WorksheetReport,worksheetInstruments"_s);
    EXPECT_FALSE(worksheetInstruments(session, u"TAG1"_s));
}

TEST_F(WorksheetData, AReportSaysWhenAndByWhomItIsPrinted) {
    EXPECT_EQ(worksheetValues(session, u"Calibration Worksheet"_s),
              (QJsonObject{{"title"_L1, u"Calibration Worksheet"_s},
                           {"printed"_L1, u"03/18/2026 09:30"_s},
                           {"printedBy"_L1, u"jdoe"_s}}));
}

} // namespace kelvane::testing
