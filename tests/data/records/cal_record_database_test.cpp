#include "data/records/cal_record.h"
#include "data/records/field_dictionary.h"
#include "data/records/record_columns.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

/// Records made in the demonstration database, where a pass empties two inventory fields and a failure keeps
/// them.
class RecordOnDatabase : public DatabaseSession {
  protected:
    CalRecord record;
    QString firstRow(const QString& query, int columns = 1) { return rows(query, columns).value(0); }
    int count(const QString& table) { return firstRow(u"select count(*) from "_s + table).toInt(); }

    void set(const QString& column, const QString& value) {
        for (int row = 0; row < calFieldCount(record); ++row) {
            if (record.CalFieldTable[row].column == column) {
                record.CalFieldTable[row].value = value;
                return;
            }
        }
        ADD_FAILURE() << "no field " << column.toStdString();
    }
    /// What an upload leaves before it has the record made.
    void prepare(const QString& asset, const QString& passed = u"Y"_s) {
        SetCalDataFields(session, record, asset);
        record.RecordStandards.erase();
        record.RecordResults.erase();
        set(u"C2301"_s, u"2026-03-18"_s);
        set(u"C2333"_s, u"08:05:30"_s);
        set(u"C2323"_s, passed);
    }
    /// The two fields that the site's worksheets ask for.
    void answerFields(const QString& asset, const QString& temperature = u"21.5"_s) {
        const QString caption = u"Calibration Record Data ("_s + asset + u')';
        ui.expectDialog(caption, u"Please enter information for: Place of Calibration"_s, u"IN PLACE"_s,
                        [](const DialogQuestion& question) {
                            EXPECT_TRUE(question.fromList);
                            EXPECT_EQ(question.choices, (QStringList{u"IN PLACE"_s, u"LAB"_s, u"VENDOR"_s}));
                            EXPECT_EQ(question.defaultText, u"LAB"_s);
                        });
        ui.expectDialog(caption, u"Please enter information for: Ambient Temperature (C)"_s, temperature,
                        [](const DialogQuestion& question) {
                            EXPECT_TRUE(question.required);
                            EXPECT_EQ(question.fieldType, 2);
                        });
    }
    QString create(const QString& asset) {
        const auto reason = CreateCalRecord(session, record, asset);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_FALSE(ui.progressShown);
        return reason;
    }
};

TEST_F(RecordOnDatabase, WholeRecordWithItsStandardsAndResults) {
    const auto earlier = firstRow(u"select ctag from mt.calibration where mtag = '1301' and c2339 = '1'"_s);
    const auto before = count(u"mt.calibration"_s);
    prepare(u"TW-101"_s);
    record.RecordStandards[0] = u"TT-0300F"_s;
    record.RecordStandards[1] = u"TS-0001"_s;
    record.RecordStandards[2] = u"tt-0300f"_s;
    record.RecordResults[0] = u"  1  50.0 ft/lb"_s;
    record.RecordResults[1] = u"  2 150.0 ft/lb"_s;
    answerFields(u"TW-101"_s);

    EXPECT_EQ(create(u"TW-101"_s), QString());

    EXPECT_EQ(count(u"mt.calibration"_s), before + 1);
    const auto current = firstRow(u"select ctag from mt.calibration where mtag = '1301' and c2339 = '1'"_s);
    EXPECT_GT(current.toInt(), earlier.toInt()) << "the mark has moved to the new record";
    EXPECT_EQ(firstRow(u"select c2339 from mt.calibration where ctag = "_s + earlier), u"(null)"_s);
    EXPECT_EQ(
        firstRow(
            u"select cdsrc,c2301,c2333,c2302,c2331,c2323,c2307,c2336,c2338,c2315,c2312,c2317,c2309,c2308,"
            "c2319,c2355 from mt.calibration where ctag = "_s +
                current,
            16),
        u"KVN|2026-03-18|08:05:30|12|M|Y|jdoe|jdoe|jdoe|IN PLACE|21.5|MT|KP-TORQUE-02|FOUND-LEFT|(null)|"
        "(null)"_s);
    EXPECT_EQ(firstRow(u"select c2303,c2334 from mt.calibration where ctag = "_s + current, 2),
              u"2027-03-18|08:05:30"_s);
    EXPECT_EQ(rows(u"select c2430,mtag from mt.standards where ctag = "_s + current + u" order by "_s +
                       database.rowOrder(),
                   2),
              (QStringList{u"1001|1301"_s, u"1101|1301"_s}))
        << "each standard once";
    EXPECT_EQ(
        rows(u"select c2502,c2501,mtag from mt.calresults where ctag = "_s + current + u" order by c2502"_s,
             3),
        (QStringList{u"0|  1  50.0 ft/lb|1301"_s, u"1|  2 150.0 ft/lb|1301"_s}));
    EXPECT_EQ(firstRow(u"select i4224,i4225,i4230,i4231 from mt.inventory where mtag = '1301'"_s, 4),
              u"(null)|(null)|2026-03-18|2027-03-18"_s);
}

TEST_F(RecordOnDatabase, FailedInstrumentIsDueAtOnceAndKeepsItsRecall) {
    prepare(u"TW-104"_s, u"N"_s);
    answerFields(u"TW-104"_s);
    EXPECT_EQ(create(u"TW-104"_s), QString());
    EXPECT_EQ(firstRow(u"select c2323,c2303 from mt.calibration where mtag = '1304' and c2339 = '1'"_s, 2),
              u"N|2026-03-18"_s);
    EXPECT_EQ(firstRow(u"select i4224,i4231 from mt.inventory where mtag = '1304'"_s, 2),
              u"RECALLED FOR CALIBRATION|2026-03-18"_s);
    EXPECT_NE(firstRow(u"select i4225 from mt.inventory where mtag = '1304'"_s), u"(null)"_s);
}

TEST_F(RecordOnDatabase, DueDateMovesBackOffTheWeekend) {
    prepare(u"TW-101"_s);
    set(u"C2301"_s, u"2026-03-20"_s); // a year later it is a Saturday
    answerFields(u"TW-101"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(firstRow(u"select c2303 from mt.calibration where mtag = '1301' and c2339 = '1'"_s),
              u"2027-03-19"_s);
}

TEST_F(RecordOnDatabase, FirstCalibrationTakesTheInitialDefaults) {
    prepare(u"TW-103"_s);
    answerFields(u"TW-103"_s);
    EXPECT_EQ(create(u"TW-103"_s), QString());
    EXPECT_EQ(firstRow(u"select c2308,c2309 from mt.calibration where mtag = '1303' and c2339 = '1'"_s, 2),
              u"AS-FOUND|KP-GEN"_s);
}

TEST_F(RecordOnDatabase, SameMomentTwiceIsRefusedAndWritesNothing) {
    prepare(u"TW-101"_s);
    answerFields(u"TW-101"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    const auto before = count(u"mt.calibration"_s);
    prepare(u"TW-101"_s);
    record.RecordStandards[0] = u"TT-0300F"_s;
    record.RecordResults[0] = u"line"_s;
    const auto standards = count(u"mt.standards"_s);
    answerFields(u"TW-101"_s);
    EXPECT_EQ(create(u"TW-101"_s), text(TextId::recordAlreadyExists));
    EXPECT_EQ(count(u"mt.calibration"_s), before);
    EXPECT_EQ(count(u"mt.standards"_s), standards);
}

TEST_F(RecordOnDatabase, WithoutStandardsThereIsNoRowForThem) {
    const auto before = count(u"mt.standards"_s);
    prepare(u"TW-101"_s);
    answerFields(u"TW-101"_s);
    create(u"TW-101"_s);
    EXPECT_EQ(count(u"mt.standards"_s), before);
}

TEST_F(RecordOnDatabase, ValueWithQuotesAndOtherAlphabetsGoesInSafely) {
    prepare(u"TW-101"_s);
    const auto remark = u"Joe's ''note''; -- Ω 扭矩 ключ"_s;
    set(u"C2326"_s, remark);
    answerFields(u"TW-101"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(firstRow(u"select c2326 from mt.calibration where mtag = '1301' and c2339 = '1'"_s), remark);
}

TEST_F(RecordOnDatabase, ResultLineWithAQuoteEndsInTheReportWithTheRecordAlreadyWritten) {
    const auto before = count(u"mt.calibration"_s);
    prepare(u"TW-101"_s);
    record.RecordStandards[0] = u"TT-0300F"_s;
    record.RecordResults[0] = u"first"_s;
    record.RecordResults[1] = u"5' tape"_s;
    record.RecordResults[2] = u"third"_s;
    answerFields(u"TW-101"_s);
    ui.expectReport(1, u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(count(u"mt.calibration"_s), before + 1);
    const auto current = firstRow(u"select ctag from mt.calibration where mtag = '1301' and c2339 = '1'"_s);
    EXPECT_EQ(rows(u"select c2501 from mt.calresults where ctag = "_s + current, 1), QStringList{u"first"_s});
    EXPECT_EQ(firstRow(u"select count(*) from mt.standards where ctag = "_s + current), u"1"_s);
    EXPECT_EQ(firstRow(u"select i4224 from mt.inventory where mtag = '1301'"_s),
              u"RECALLED FOR CALIBRATION"_s);
}

TEST_F(RecordOnDatabase, CopyToAnotherTableEndsInAReportAndChangesNothing) {
    execute(u"update mt.customiz set dcopy = 'L2801' where fldnum = '2315'"_s);
    const auto places = rows(u"select l2801,l2815 from mt.location order by l2801,l2815"_s, 2);
    prepare(u"TW-101"_s);
    record.RecordResults[0] = u"line"_s;
    answerFields(u"TW-101"_s);
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(rows(u"select l2801,l2815 from mt.location order by l2801,l2815"_s, 2), places);
    EXPECT_EQ(firstRow(u"select i4231 from mt.inventory where mtag = '1301'"_s), u"2027-03-18"_s)
        << "the other copies are carried out";
    EXPECT_EQ(firstRow(u"select count(*) from mt.calresults where c2501 = 'line'"_s), u"1"_s);
}

TEST_F(RecordOnDatabase, EachCopyWithinTheRecordEndsInAReportAndTheRecordGoesOn) {
    execute(u"update mt.customiz set scopy = '2329' where fldnum = '2326'"_s);
    execute(u"update mt.customiz set scopy = '2316' where fldnum = '2309'"_s);
    prepare(u"TW-101"_s);
    record.RecordResults[0] = u"line"_s;
    answerFields(u"TW-101"_s);
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(firstRow(u"select c2329,c2316 from mt.calibration where mtag = '1301' and c2339 = '1'"_s, 2),
              u"(null)|(null)"_s);
    EXPECT_EQ(firstRow(u"select count(*) from mt.calresults where c2501 = 'line'"_s), u"1"_s);
}

TEST_F(RecordOnDatabase, QuestionsAreAskedWhileTheirListIsStillBeingRead) {
    execute(u"insert into mt.hvm_kv_worksheetfields (fldnum, sequence) values ('2316', 2)"_s);
    prepare(u"TW-101"_s);
    answerFields(u"TW-101"_s);
    ui.expectDialog(u"Calibration Record Data (TW-101)"_s, u"Please enter information for: Work Order"_s,
                    u"WO-7"_s, [this](const DialogQuestion&) {
                        // Another statement commits on the same connection meanwhile.
                        execute(u"update mt.inventory set i4224 = 'meanwhile' where mtag = '1301';commit"_s);
                    });
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(firstRow(u"select c2316 from mt.calibration where mtag = '1301' and c2339 = '1'"_s), u"WO-7"_s);
}

TEST_F(RecordOnDatabase, TextInANumericColumnIsRefusedAndNothingIsWritten) {
    const auto before = count(u"mt.calibration"_s);
    prepare(u"TW-101"_s);
    record.RecordStandards[0] = u"TT-0300F"_s;
    const auto standards = count(u"mt.standards"_s);
    set(u"C2350"_s, u"many"_s);
    answerFields(u"TW-101"_s);
    ui.expectReport(database.refusedRow(), u"ModuleGlobals,CreateCalRecord"_s);
    EXPECT_EQ(create(u"TW-101"_s), QString());
    EXPECT_EQ(count(u"mt.calibration"_s), before);
    EXPECT_EQ(count(u"mt.standards"_s), standards);
    EXPECT_EQ(firstRow(u"select count(*) from mt.calibration where mtag = '1301' and c2339 = '1'"_s), u"1"_s)
        << "the earlier record stays the current one";
}

TEST_F(RecordOnDatabase, RecordOfAnotherOwnerGoesIntoItsOwnTables) {
    logIn(users::editorOfAbc);
    const auto before = count(u"mt.calibration"_s);
    prepare(u"ABC-TW-1"_s);
    record.RecordStandards[0] = u"STD-TT-0150F"_s;
    answerFields(u"ABC-TW-1"_s);
    EXPECT_EQ(create(u"ABC-TW-1"_s), QString());
    EXPECT_EQ(count(u"mt.calibration"_s), before);
    const auto current =
        firstRow(u"select ctag from abc.calibration where c2301 = '2026-03-18' and c2339 = '1'"_s);
    EXPECT_GT(current.toInt(), 3000000);
    EXPECT_EQ(rows(u"select c2430 from mt.standards where ctag = "_s + current, 1), QStringList{u"3001"_s});
    EXPECT_EQ(firstRow(u"select c2317,c2336 from abc.calibration where ctag = "_s + current, 2),
              u"ABC|gpetrov"_s);
}

TEST_F(RecordOnDatabase, AssetWithAQuoteInItsNumberEndsInReports) {
    // It is safe in the few statements that double quotes; all others are refused.
    const auto before = count(u"mt.calibration"_s);
    ui.expectReport(1, u"ModuleGlobals,FirstCal"_s);
    ui.expectReport(1, u"ModuleGlobals,SourceColumn"_s);
    ui.expectReport(1, u"ModuleGlobals,SourceColumn"_s);
    ui.expectReport(1, u"ModuleGlobals,SourceColumn"_s);
    SetCalDataFields(session, record, u"LT-10'COL"_s);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(count(u"mt.calibration"_s), before);
}

class ColumnsOnDatabase : public RecordOnDatabase {};

TEST_F(ColumnsOnDatabase, KindsComeFromTheCatalogueInAnyCase) {
    const struct {
        QString column;
        qint16 type;
    } rows[] = {
        {u"C2301"_s, 1},        {u"c2301"_s, 1}, {u"I4225"_s, 1},          {u"C2302"_s, 2},
        {u"c2312"_s, 2},        {u"C2333"_s, 3}, {u"C2326"_s, 0},          {u"C2323"_s, 0},
        {u"entered_date"_s, 1}, {u"C2340"_s, 0}, {u"no such column"_s, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FieldType(session, row.column), row.type) << row.column.toStdString();
}

TEST_F(ColumnsOnDatabase, ValuesAreThoseOfTheCurrentRows) {
    const auto since = firstRow(u"select l2802 from mt.location where mtag = '1301' and l2815 = '1'"_s);
    const auto shown = since.mid(5, 2) + u'/' + since.mid(8, 2) + u'/' + since.left(4);
    const struct {
        QString column;
        QString value;
    } rows[] = {
        {u"I4229"_s, u"12"_s},
        {u"4228"_s, u"M"_s},
        {u"mtag"_s, u"1301"_s},
        {u"L2801"_s, u"ASSEMBLY LINE 1"_s},
        {u"2802"_s, shown},
        {u"R3202"_s, u"RATCHET HEAD CLEANED"_s},
        {u"4601"_s, u"ASSEMBLY"_s},
        {u"C2333"_s, u"14:30"_s},
        {u"2320"_s, u"TORQUE 20-60-100"_s},
        {u"C2355"_s, QString()},
        {u"X1"_s, QString()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(SourceColumn(session, row.column, u"TW-101"_s), row.value) << row.column.toStdString();
    EXPECT_EQ(SourceColumn(session, u"I4229"_s, u"NONE"_s), QString());
}

TEST_F(ColumnsOnDatabase, UnknownColumnIsReportedAndGivesEmpty) {
    ui.expectReport(1, u"ModuleGlobals,SourceColumn"_s);
    EXPECT_EQ(SourceColumn(session, u"4299"_s, u"TW-101"_s), QString());
    ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
    DestColumn(session, u"4299"_s, u"TW-101"_s, u"x"_s);
}

TEST_F(ColumnsOnDatabase, InventoryTakesValuesOfItsKinds) {
    const auto value = [this](const QString& column) {
        return firstRow(u"select "_s + column + u" from mt.inventory where mtag = '1301'"_s);
    };
    database.grant(u"update (i4229) on mt.inventory"_s);
    DestColumn(session, u"4225"_s, u"TW-101"_s, u"1/2/2026"_s);
    EXPECT_EQ(value(u"i4225"_s), u"2026-01-02"_s);
    DestColumn(session, u"I4229"_s, u"TW-101"_s, u"6"_s);
    EXPECT_EQ(value(u"i4229"_s), u"6"_s);
    DestColumn(session, u"I4224"_s, u"TW-101"_s, u"NULL"_s);
    EXPECT_EQ(value(u"i4224"_s), u"(null)"_s);
    DestColumn(session, u"I4225"_s, u"TW-101"_s, {});
    EXPECT_EQ(value(u"i4225"_s), u"(null)"_s);

    ui.expectReport(database.refusedRow(), u"ModuleGlobals,DestColumn"_s);
    DestColumn(session, u"I4229"_s, u"TW-101"_s, u"soon"_s);
    EXPECT_EQ(value(u"i4229"_s), u"6"_s);
}

TEST_F(ColumnsOnDatabase, OtherTablesAreNeverWritten) {
    for (const auto& column : {u"C2326"_s, u"L2801"_s, u"R3202"_s, u"K4601"_s}) {
        ui.expectReport(1, u"ModuleGlobals,DestColumn"_s);
        const auto before = SourceColumn(session, column, u"TW-101"_s);
        DestColumn(session, column, u"TW-101"_s, u"changed"_s);
        EXPECT_EQ(SourceColumn(session, column, u"TW-101"_s), before) << column.toStdString();
    }
}

} // namespace kelvane::testing
