#include "tests/data/records/cal_record_fixture.h"
#include "tests/data/records/record_statements.h"

#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(RecordCreation, DueDateDependsOnThePassMarkAndOnWhetherOneWasGiven) {
    const struct {
        const char* name;
        QString passed;
        QString given;
        QString due;
    } rows[] = {
        {"a pass without a due date gets it computed", u"Y"_s, {}, u"2027-03-16"_s},
        {"a failed instrument is due at once", u"N"_s, {}, u"2026-03-16"_s},
        {"a given due date is replaced by the calibration date", u"Y"_s, u"12/31/2026"_s, u"2026-03-16"_s},
        {"on a failure too", u"N"_s, u"12/31/2026"_s, u"2026-03-16"_s},
        {"a given text that is no date does not matter", u"Y"_s, u"soon"_s, u"2026-03-16"_s},
        {"a small y is no pass", u"y"_s, {}, u"2026-03-16"_s},
        {"nor is an empty mark", {}, {}, u"2026-03-16"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        script.statements.clear();
        set(u"C2301"_s, u"03/16/2026"_s);
        set(u"C2333"_s, u"08:05"_s);
        set(u"C2323"_s, row.passed);
        set(u"C2303"_s, row.given);
        EXPECT_EQ(create(), QString());
        EXPECT_EQ(valueOf(u"C2303"_s), row.due);
        EXPECT_EQ(script.statements.contains(daysOffQuery), row.due == u"2027-03-16"_s);
    }
}

TEST_F(RecordCreation, DueDateMovesOffADayOff) {
    set(u"C2301"_s, u"03/21/2026"_s);
    script.answers[daysOffQuery] = {{u"Sunday"_s}, {u"Saturday"_s}};
    create();
    EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-19"_s);
}

TEST_F(RecordCreation, EmptyIntervalAndUnitComeFromTheInventory) {
    const auto interval = u"select I4229 from MT.inventory where i4201 = 'A-1'"_s;
    const auto unit = u"select I4228 from MT.inventory where i4201 = 'A-1'"_s;
    set(u"C2302"_s, {});
    set(u"C2331"_s, {});
    script.answers[interval] = {{u"6"_s}};
    script.answers[unit] = {{u"M"_s}};
    create();
    EXPECT_EQ(script.statements.mid(1, 4),
              (QStringList{interval, typeQuery(u"I4229"_s), unit, typeQuery(u"I4228"_s)}));
    EXPECT_EQ(valueOf(u"C2302"_s), u"6"_s);
    EXPECT_EQ(valueOf(u"C2331"_s), u"M"_s);
    EXPECT_EQ(valueOf(u"C2303"_s), u"2026-09-16"_s);
}

TEST_F(RecordCreation, FailedDueDateIsReportedAndTheRecordIsMadeWithoutOne) {
    set(u"C2331"_s, u"fortnights"_s);
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(insert().contains(u"'fortnights','Y',NULL,'1301'"_s)) << insert().toStdString();
}

TEST_F(RecordCreation, DueDateIsNotComputedAgainAfterTheOperatorHasChangedTheDate) {
    script.answers[worksheetQuery] = {{u"2301"_s}, {u"2333"_s}};
    dialog(u"C2301"_s, u"4/1/2026"_s);
    dialog(u"C2333"_s, u"11:45"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(duplicateQuery(u"2026-04-01"_s, u"11:45:00"_s)));
    EXPECT_EQ(valueOf(u"C2301"_s), u"2026-04-01"_s);
    EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-16"_s);
}

TEST_F(RecordCreation, PassMarkIsThatFromBeforeTheQuestions) {
    session.BCalP = true;
    script.answers[worksheetQuery] = {{u"2323"_s}};
    dialog(u"C2323"_s, u"N"_s);
    create();
    EXPECT_TRUE(insert().contains(u"'M','N','2027-03-16'"_s)) << insert().toStdString();
    EXPECT_TRUE(script.statements.contains(emptied4224)) << "counts as a pass";
}

TEST_F(RecordCreation, DueTimeIsFilledOnlyWhenItIsEmpty) {
    put(u"C2334"_s, u"23:59"_s, 3);
    create();
    EXPECT_EQ(valueOf(u"C2334"_s), u"23:59:00"_s);
}

TEST_F(RecordCreation, DatesAreReadInTheSessionsOrderAndWrittenForTheStatement) {
    session.SessionDateFormat = u"DD/MM/YYYY"_s;
    set(u"C2301"_s, u"02/03/2026"_s);
    put(u"C2355"_s, u"05/06/2026"_s, 1);
    put(u"C2311"_s, u"05/06/2026"_s, 0);
    create();
    EXPECT_TRUE(script.statements.contains(duplicateQuery(u"2026-03-02"_s, u"08:05:00"_s)));
    EXPECT_EQ(valueOf(u"C2355"_s), u"2026-06-05"_s);
    EXPECT_EQ(valueOf(u"C2311"_s), u"05/06/2026"_s) << "a text field stays";
    EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-02"_s);
}

TEST_F(RecordCreation, DateOfACalibratorIsReadInAnyFormat) {
    for (const auto& format : {u"MM/DD/YYYY"_s, u"DD/MM/YYYY"_s, u"YYYY/MM/DD"_s, QString()}) {
        session.SessionDateFormat = format;
        set(u"C2301"_s, u"2026-03-02"_s);
        set(u"C2303"_s, {});
        create();
        EXPECT_EQ(valueOf(u"C2301"_s), u"2026-03-02"_s);
        EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-02"_s) << format.toStdString();
    }
}

TEST_F(RecordCreation, ColumnNamesOfTheDictionaryCountInAnyCase) {
    record.CalFieldTable.erase();
    put(u"c2301"_s, u"03/16/2026"_s, 1);
    put(u"c2333"_s, u"08:05"_s, 3);
    put(u"c2336"_s, {});
    put(u"c2340"_s, u"never"_s);
    create();
    EXPECT_EQ(insert(), u"insert into MT.calibration (c2301,c2333,c2336,mtag,cdsrc) values "
                        "('2026-03-16','08:05:00','jdoe','1301','KVN');commit"_s);
}

TEST_F(RecordCreation, WithoutATimeFieldTheTimeOfTheDuplicateQuestionIsEmpty) {
    record.CalFieldTable.erase();
    put(u"C2301"_s, u"03/16/2026"_s, 1);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(duplicateQuery(u"2026-03-16"_s, {})));
}

TEST_F(RecordCreation, DuplicateIsRefusedAndNothingIsWritten) {
    script.answers[duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s)] = {{u"2026-03-16"_s}};
    EXPECT_EQ(create(), u"A calibration record for this UUT with the same calibration date and time already "
                        "exists! Aborting calibration record creation for this UUT."_s);
    EXPECT_EQ(script.statements.last(), duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s));
    EXPECT_EQ(progress().mid(3), (QStringList{u"value 42"_s, u"value 100"_s, u"hide"_s}));
}

TEST_F(RecordCreation, WorksheetFieldThatIsNotInTheTableIsSkipped) {
    script.answers[worksheetQuery] = {{u"2312"_s}};
    EXPECT_EQ(create(), QString());
    EXPECT_NE(insert(), QString());
}

TEST_F(RecordCreation, OptionalFieldWithoutAnAnswerGoesOn) {
    auto& field = put(u"C2312"_s, u"old"_s);
    script.answers[worksheetQuery] = {{u"2312"_s}};
    for (const auto& mark : {u"N"_s, QString(), u"y"_s}) {
        field.required = mark;
        set(u"C2303"_s, {});
        script.statements.clear();
        cancelDialog(u"C2312"_s);
        EXPECT_EQ(create(), QString()) << mark.toStdString();
        EXPECT_TRUE(insert().contains(u"'old','1301'"_s)) << mark.toStdString();
    }
}

TEST_F(RecordCreation, RequiredFieldWithoutAnAnswerIsAskedAgainOrAbandonsTheRecord) {
    const auto warning =
        u"Warning: Failure to provide required data during calibration record creation will abort the "
        u"creation "
        "process for this calibration record! It is advised that you retry input of required field data, "
        "otherwise, the calibration record WILL NOT be created."_s;
    put(u"C2312"_s, {}).required = u"Y"_s;
    script.answers[worksheetQuery] = {{u"2312"_s}, {u"2323"_s}};
    cancelDialog(u"C2312"_s);
    ui.expectBox(warning, u"Calibration Record Creation"_s, box::warningRetryCancel, BoxAnswer::retry);
    cancelDialog(u"C2312"_s);
    ui.expectBox(warning, u"Calibration Record Creation"_s, box::warningRetryCancel, BoxAnswer::cancel);

    EXPECT_EQ(create(),
              u"Unable to create calibration record because required information was not provided."_s);

    EXPECT_EQ(script.statements.last(), worksheetQuery)
        << "nothing was written, the next field not asked for";
    EXPECT_EQ(progress().mid(3), (QStringList{u"value 42"_s, u"value 100"_s, u"hide"_s}));
}

TEST_F(RecordCreation, RetryOfARequiredFieldTakesTheAnswer) {
    put(u"C2312"_s, {}).required = u"Y"_s;
    script.answers[worksheetQuery] = {{u"2312"_s}};
    cancelDialog(u"C2312"_s);
    ui.expectBox(text(TextId::requiredDataRetryAdvised), u"Calibration Record Creation"_s,
                 box::warningRetryCancel, BoxAnswer::retry);
    dialog(u"C2312"_s, u"21"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_EQ(valueOf(u"C2312"_s), u"21"_s);
}

} // namespace kelvane::testing
