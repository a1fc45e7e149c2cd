#include "data/assets.h"
#include "data/cal_record.h"
#include "data/field_dictionary.h"
#include "resources/strings.h"
#include "tests/support/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto daysOffQuery = u"select dayofweek from mt.nonworkdays"_s;
const auto holidaysQuery = u"select holiday from mt.holidays"_s;
const auto worksheetQuery = u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc"_s;
const auto copiesWithinQuery =
    u"select scopy,fldnum from mt.customiz where scopy like '23%' and scopy <> '2340'"_s;
const auto copiesBackQuery =
    u"select fldnum,dcopy from mt.customiz where dcopy is not null and dcopy <> 'OFF' "
    "and fldnum like '23%' and fldnum <> '2340'"_s;
const auto emptied4224 = u"update MT.inventory set I4224 = NULL where i4201 = 'A-1';commit"_s;
const auto emptied4225 = u"update MT.inventory set I4225 = NULL where i4201 = 'A-1';commit"_s;

QString typeQuery(const QString& column) {
    return u"select domain_name from sys.sysdomain where domain_id = (select max(domain_id) from "
           "sys.syscolumn where column_name = '"_s +
           column + u"')"_s;
}

QString duplicateQuery(const QString& date, const QString& time) {
    return u"select c2301 from MT.calibration where c2301 = '"_s + date + u"' and c2333 = '"_s + time +
           u"' and mtag = '1301'"_s;
}

QString standardInsert(const QString& name) {
    return u"insert into mt.standards (c2430,mtag,ctag) values ((select mtag from MT.inventory where i4201 = '"_s +
           name + u"'),'1301',(select ctag from MT.calibration where mtag = '1301' and c2339 = 1));commit"_s;
}

QString resultInsert(const QString& line, int number) {
    return u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('"_s + line + u"','"_s +
           QString::number(number) +
           u"','1301',(select ctag from MT.calibration where mtag = '1301' and c2339 = 1));commit"_s;
}

} // namespace

/// The instrument A-1 with the key 1301, and a field table as the dictionary would have left it.
class CalRecord : public RecordedSession {
  protected:
    CalRecord() {
        ModuleGlobals::CheckAsset(session, u"A-1"_s);
        keyQuery = script.statements.value(0);
        script.statements.clear();
        ui.events.clear();
        script.answers[keyQuery] = {{u"1301"_s}};
        put(u"C2301"_s, u"03/16/2026"_s, 1);
        put(u"C2333"_s, u"08:05"_s, 3);
        put(u"C2302"_s, u"12"_s, 2);
        put(u"C2331"_s, u"M"_s);
        put(u"C2323"_s, u"Y"_s);
        put(u"C2303"_s, {}, 1);
    }
    CalField& put(const QString& column, const QString& value, qint16 type = 0) {
        auto& field = session.CalFieldTable[ModuleGlobals::calFieldCount(session)];
        field.column = column;
        field.value = value;
        field.field_type = type;
        field.title = column;
        return field;
    }
    /// A value that a caller puts into a field that is there already.
    void set(const QString& column, const QString& value) {
        for (int row = 0; row < ModuleGlobals::calFieldCount(session); ++row) {
            if (session.CalFieldTable[row].column == column)
                session.CalFieldTable[row].value = value;
        }
    }
    QString valueOf(const QString& column) const {
        for (int row = 0; row < ModuleGlobals::calFieldCount(session); ++row) {
            if (session.CalFieldTable[row].column == column)
                return session.CalFieldTable[row].value;
        }
        return u"no such field"_s;
    }
    QString create() {
        const auto reason = ModuleGlobals::CreateCalRecord(session, u"A-1"_s);
        EXPECT_TRUE(ui.allCame());
        EXPECT_FALSE(ui.progressShown) << "the progress window is gone on every way out";
        EXPECT_FALSE(ui.busy);
        return reason;
    }
    QString insert() const {
        for (const auto& statement : script.statements) {
            if (statement.startsWith(u"insert into MT.calibration"_s))
                return statement;
        }
        return {};
    }
    QStringList progress() const {
        QStringList values;
        for (const auto& event : ui.events) {
            if (event.startsWith(u"value "_s) || event == u"hide"_s || event.startsWith(u"progress "_s))
                values << event;
        }
        return values;
    }
    void dialog(const QString& title, const QString& answer) {
        ui.expectDialog(u"Calibration Record Data (A-1)"_s, u"Please enter information for: "_s + title,
                        answer);
    }
    void cancelDialog(const QString& title) {
        dialog(title, cancelled);
        ui.expectBox(text(294), u"Calibration Record Data"_s, box::warningOkCancel, BoxAnswer::cancel);
    }
    QString keyQuery;
};

TEST_F(CalRecord, WholeRunInItsOrder) {
    put(u"C2334"_s, {}, 3);
    put(u"C2336"_s, u"somebody"_s);
    put(u"C2338"_s, {});
    put(u"C2340"_s, u"never written"_s);
    put(u"C2326"_s, u"it's fine"_s);
    put(u"C2312"_s, {}, 2);
    script.answers[worksheetQuery] = {{u"2312"_s}, {u"2399"_s}, {u"2326"_s}};
    script.answers[copiesWithinQuery] = {{u"2329"_s, u"2326"_s}};
    script.answers[copiesBackQuery] = {{u"2301"_s, u"I4230"_s}, {u"2303"_s, u"4231"_s}};
    const auto current = [](const QString& column) {
        return u"select "_s + column +
               u" from MT.calibration where mtag = (select mtag from MT.inventory where i4201 = 'A-1') and "
               u"C2339 "
               "= '1'"_s;
    };
    for (const auto& column : {u"C2301"_s, u"C2303"_s, u"I4230"_s, u"I4231"_s})
        script.answers[typeQuery(column)] = {{u"DATE"_s}};
    script.answers[current(u"C2326"_s)] = {{u"fine"_s}};
    script.answers[current(u"C2301"_s)] = {{u"2026-03-16"_s}};
    script.answers[current(u"C2303"_s)] = {{u"2027-03-16"_s}};
    session.RecordStandards[0] = u"TT-1"_s;
    session.RecordStandards[1] = u"TT-2"_s;
    session.RecordResults[0] = u"  1 first"_s;
    session.RecordResults[1] = u"  2 second"_s;
    dialog(u"C2312"_s, u"21.5"_s);
    dialog(u"C2326"_s, u"it's good"_s);

    EXPECT_EQ(create(), QString());

    EXPECT_EQ(
        script.statements,
        (QStringList{
            keyQuery,
            daysOffQuery,
            holidaysQuery,
            worksheetQuery,
            duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s),
            u"insert into MT.calibration "
            "(C2301,C2333,C2302,C2331,C2323,C2303,C2334,C2336,C2338,C2326,C2312,mtag,cdsrc) values "
            "('2026-03-16','08:05:00','12','M','Y','2027-03-16','08:05:00','jdoe','jdoe','it''s "
            "good','21.5','1301','KVN');commit"_s,
            copiesWithinQuery,
            current(u"C2326"_s),
            typeQuery(u"C2326"_s),
            typeQuery(u"C2329"_s),
            u"update MT.calibration set C2329 = 'fine' where mtag = '(select mtag from MT.inventory where "
            "i4201 = 'A-1') and C2339 = '1';commit"_s,
            copiesBackQuery,
            current(u"C2301"_s),
            typeQuery(u"C2301"_s),
            typeQuery(u"I4230"_s),
            u"update MT.inventory set I4230 = '2026-03-16' where i4201 = 'A-1';commit"_s,
            current(u"C2303"_s),
            typeQuery(u"C2303"_s),
            typeQuery(u"I4231"_s),
            u"update MT.inventory set I4231 = '2027-03-16' where i4201 = 'A-1';commit"_s,
            standardInsert(u"TT-1"_s),
            standardInsert(u"TT-2"_s),
            resultInsert(u"  1 first"_s, 0),
            resultInsert(u"  2 second"_s, 1),
            typeQuery(u"I4224"_s),
            emptied4224,
            typeQuery(u"I4225"_s),
            emptied4225,
        }));
    EXPECT_EQ(progress(), (QStringList{u"progress Calibration Record Creation"_s, u"value 14"_s,
                                       u"value 28"_s, u"value 42"_s, u"value 56"_s, u"value 70"_s,
                                       u"value 88"_s, u"value 100"_s, u"hide"_s}));
}

TEST_F(CalRecord, BeforeVersionSixOnlyTheCopiesWithinTheRecordAreRead) {
    session.SessionDbVersion = 5;
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(copiesWithinQuery));
    EXPECT_FALSE(script.statements.contains(copiesBackQuery));
    EXPECT_FALSE(script.statements.contains(daysOffQuery));
}

TEST_F(CalRecord, DueDateDependsOnThePassMarkAndOnWhetherOneWasGiven) {
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

TEST_F(CalRecord, DueDateMovesOffADayOff) {
    set(u"C2301"_s, u"03/21/2026"_s);
    script.answers[daysOffQuery] = {{u"Sunday"_s}, {u"Saturday"_s}};
    create();
    EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-19"_s);
}

TEST_F(CalRecord, EmptyIntervalAndUnitComeFromTheInventory) {
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

TEST_F(CalRecord, FailedDueDateIsReportedAndTheRecordIsMadeWithoutOne) {
    set(u"C2331"_s, u"fortnights"_s);
    ui.expectReport(5, u"ModuleGlobals,calcDueDate"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(insert().contains(u"'fortnights','Y',NULL,'1301'"_s)) << insert().toStdString();
}

TEST_F(CalRecord, DueDateIsNotComputedAgainAfterTheOperatorHasChangedTheDate) {
    script.answers[worksheetQuery] = {{u"2301"_s}, {u"2333"_s}};
    dialog(u"C2301"_s, u"4/1/2026"_s);
    dialog(u"C2333"_s, u"11:45"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(duplicateQuery(u"2026-04-01"_s, u"11:45:00"_s)));
    EXPECT_EQ(valueOf(u"C2301"_s), u"2026-04-01"_s);
    EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-16"_s);
}

TEST_F(CalRecord, PassMarkIsThatFromBeforeTheQuestions) {
    session.BCalP = true;
    script.answers[worksheetQuery] = {{u"2323"_s}};
    dialog(u"C2323"_s, u"N"_s);
    create();
    EXPECT_TRUE(insert().contains(u"'M','N','2027-03-16'"_s)) << insert().toStdString();
    EXPECT_TRUE(script.statements.contains(emptied4224)) << "counts as a pass";
}

TEST_F(CalRecord, DueTimeIsFilledOnlyWhenItIsEmpty) {
    put(u"C2334"_s, u"23:59"_s, 3);
    create();
    EXPECT_EQ(valueOf(u"C2334"_s), u"23:59:00"_s);
}

TEST_F(CalRecord, DatesAreReadInTheSessionsOrderAndWrittenForTheStatement) {
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

TEST_F(CalRecord, DateOfACalibratorIsReadInAnyFormat) {
    for (const auto& format : {u"MM/DD/YYYY"_s, u"DD/MM/YYYY"_s, u"YYYY/MM/DD"_s, QString()}) {
        session.SessionDateFormat = format;
        set(u"C2301"_s, u"2026-03-02"_s);
        set(u"C2303"_s, {});
        create();
        EXPECT_EQ(valueOf(u"C2301"_s), u"2026-03-02"_s);
        EXPECT_EQ(valueOf(u"C2303"_s), u"2027-03-02"_s) << format.toStdString();
    }
}

TEST_F(CalRecord, ColumnNamesOfTheDictionaryCountInAnyCase) {
    session.CalFieldTable.erase();
    put(u"c2301"_s, u"03/16/2026"_s, 1);
    put(u"c2333"_s, u"08:05"_s, 3);
    put(u"c2336"_s, {});
    put(u"c2340"_s, u"never"_s);
    create();
    EXPECT_EQ(insert(), u"insert into MT.calibration (c2301,c2333,c2336,mtag,cdsrc) values "
                        "('2026-03-16','08:05:00','jdoe','1301','KVN');commit"_s);
}

TEST_F(CalRecord, WithoutATimeFieldTheTimeOfTheDuplicateQuestionIsEmpty) {
    session.CalFieldTable.erase();
    put(u"C2301"_s, u"03/16/2026"_s, 1);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(duplicateQuery(u"2026-03-16"_s, {})));
}

TEST_F(CalRecord, DuplicateIsRefusedAndNothingIsWritten) {
    script.answers[duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s)] = {{u"2026-03-16"_s}};
    EXPECT_EQ(create(), u"A calibration record for this UUT with the same calibration date and time already "
                        "exists! Aborting calibration record creation for this UUT."_s);
    EXPECT_EQ(script.statements.last(), duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s));
    EXPECT_EQ(progress().mid(3), (QStringList{u"value 42"_s, u"value 100"_s, u"hide"_s}));
}

TEST_F(CalRecord, WorksheetFieldThatIsNotInTheTableIsSkipped) {
    script.answers[worksheetQuery] = {{u"2312"_s}};
    EXPECT_EQ(create(), QString());
    EXPECT_NE(insert(), QString());
}

TEST_F(CalRecord, OptionalFieldWithoutAnAnswerGoesOn) {
    put(u"C2312"_s, u"old"_s).required = u"N"_s;
    script.answers[worksheetQuery] = {{u"2312"_s}};
    cancelDialog(u"C2312"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(insert().contains(u"'old','1301'"_s));
}

TEST_F(CalRecord, RequiredFieldWithoutAnAnswerIsAskedAgainOrGivesTheRecordUp) {
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

TEST_F(CalRecord, RetryOfARequiredFieldTakesTheAnswer) {
    put(u"C2312"_s, {}).required = u"Y"_s;
    script.answers[worksheetQuery] = {{u"2312"_s}};
    cancelDialog(u"C2312"_s);
    ui.expectBox(text(606), u"Calibration Record Creation"_s, box::warningRetryCancel, BoxAnswer::retry);
    dialog(u"C2312"_s, u"21"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_EQ(valueOf(u"C2312"_s), u"21"_s);
}

TEST_F(CalRecord, LaterCopiesOfAStandardAreDroppedInAnyCase) {
    for (int index = 0;
         const auto& name : {u"TT-1"_s, u"tt-1"_s, u"TT-2"_s, u"TT-1"_s, u"Tt-2"_s, QString(), u"TT-3"_s})
        session.RecordStandards[index++] = name;
    create();
    QStringList inserted;
    for (const auto& statement : std::as_const(script.statements)) {
        if (statement.startsWith(u"insert into mt.standards"_s))
            inserted << statement;
    }
    EXPECT_EQ(inserted, (QStringList{standardInsert(u"TT-1"_s), standardInsert(u"TT-2"_s)}))
        << "and the first empty entry ends the list";
}

TEST_F(CalRecord, FullListsAreWrittenToTheirLastEntry) {
    for (int index = 0; index <= 100; ++index)
        session.RecordStandards[index] = u"S-%1"_s.arg(index);
    for (int index = 0; index <= 2000; ++index)
        session.RecordResults[index] = u"L-%1"_s.arg(index);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(standardInsert(u"S-100"_s)));
    EXPECT_TRUE(script.statements.contains(resultInsert(u"L-2000"_s, 2000)));
}

TEST_F(CalRecord, WithoutStandardsAndResultsNoneAreWritten) {
    create();
    for (const auto& statement : std::as_const(script.statements))
        EXPECT_FALSE(statement.startsWith(u"insert into mt."_s)) << statement.toStdString();
}

TEST_F(CalRecord, ResultLineAndStandardAreNotMadeSafe) {
    session.RecordStandards[0] = u"O'Neill"_s;
    session.RecordResults[0] = u"5' tape"_s;
    create();
    EXPECT_TRUE(script.statements.contains(standardInsert(u"O'Neill"_s)));
    EXPECT_TRUE(script.statements.contains(resultInsert(u"5' tape"_s, 0)));
}

TEST_F(CalRecord, InventoryFieldsAreEmptiedByTheFlags) {
    const struct {
        bool keep4224;
        bool keep4225;
        bool keepOnFailure;
        QString passed;
        bool emptied4224;
        bool emptied4225;
    } rows[] = {
        {false, false, false, u"Y"_s, true, true}, {false, false, false, u"N"_s, true, true},
        {false, false, true, u"Y"_s, true, true},  {false, false, true, u"N"_s, false, false},
        {true, false, false, u"Y"_s, false, true}, {true, false, false, u"N"_s, false, true},
        {true, false, true, u"Y"_s, false, true},  {true, false, true, u"N"_s, false, false},
        {false, true, false, u"Y"_s, true, false}, {false, true, false, u"N"_s, true, false},
        {false, true, true, u"Y"_s, true, false},  {false, true, true, u"N"_s, false, false},
        {true, true, false, u"Y"_s, false, false}, {true, true, false, u"N"_s, false, false},
        {true, true, true, u"Y"_s, false, false},  {true, true, true, u"N"_s, false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::Message()
                     << row.keep4224 << row.keep4225 << row.keepOnFailure << row.passed.toStdString());
        script.statements.clear();
        session.BCal4224 = row.keep4224;
        session.BCal4225 = row.keep4225;
        session.BCalP = row.keepOnFailure;
        set(u"C2323"_s, row.passed);
        set(u"C2303"_s, {});
        create();
        EXPECT_EQ(script.statements.contains(emptied4224), row.emptied4224);
        EXPECT_EQ(script.statements.contains(emptied4225), row.emptied4225);
    }
}

TEST_F(CalRecord, FailedCopyWithinTheRecordIsReportedForEachRowAndTheRecordGoesOn) {
    script.answers[copiesWithinQuery] = {{u"2329"_s, u"2326"_s}, {u"2306"_s, u"4206"_s}};
    const auto refused = [](const QString& column) {
        return u"update MT.calibration set "_s + column +
               u" = NULL where mtag = '(select mtag from MT.inventory where i4201 = 'A-1') and C2339 = "
               "'1';commit"_s;
    };
    script.failures[refused(u"C2329"_s)] = Error{-131, u"Syntax error"_s};
    script.failures[refused(u"C2306"_s)] = Error{-131, u"Syntax error"_s};
    session.RecordResults[0] = u"line"_s;
    ui.expectReport(-131, u"ModuleGlobals,DestColumn"_s);
    ui.expectReport(-131, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(resultInsert(u"line"_s, 0)));
    EXPECT_EQ(progress().last(), u"hide"_s);
    EXPECT_TRUE(progress().contains(u"value 100"_s));
}

/// Each ends in one report and an empty result, which the caller can't tell from success.
class CalRecordErrors : public CalRecord {
  protected:
    void failing(int number) {
        ui.expectReport(number, u"ModuleGlobals,CreateCalRecord"_s);
        EXPECT_EQ(create(), QString());
        EXPECT_EQ(progress().last(), u"hide"_s);
        EXPECT_FALSE(progress().contains(u"value 100"_s));
    }
};

TEST_F(CalRecordErrors, CalibrationDateThatIsNone) {
    for (const auto& value : {QString(), u"soon"_s, u"02/30/2026"_s, u"12"_s, u"09:30"_s}) {
        script.statements.clear();
        set(u"C2301"_s, value);
        failing(13);
        EXPECT_EQ(script.statements, QStringList{keyQuery}) << value.toStdString();
    }
}

TEST_F(CalRecordErrors, TimeThatIsNone) {
    set(u"C2333"_s, u"noon"_s);
    failing(13);
    EXPECT_EQ(insert(), QString());
}

TEST_F(CalRecordErrors, OtherDateFieldThatIsNone) {
    put(u"C2355"_s, u"soon"_s, 1);
    failing(13);
    EXPECT_EQ(insert(), QString());
}

TEST_F(CalRecordErrors, IntervalTooLargeFor32Bits) {
    set(u"C2302"_s, u"1E39"_s);
    failing(6);
}

TEST_F(CalRecordErrors, RefusedRecordWritesNothingElse) {
    session.RecordResults[0] = u"line"_s;
    create();
    const auto statement = insert();
    script.statements.clear();
    ui.events.clear();
    script.failures[statement] = Error{-158, u"Value out of range"_s};
    set(u"C2303"_s, {});
    failing(-158);
    EXPECT_EQ(script.statements.last(), statement);
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(statement));
}

TEST_F(CalRecordErrors, RefusedResultLineEndsTheRunWithTheRecordAlreadyWritten) {
    session.RecordResults[0] = u"first"_s;
    session.RecordResults[1] = u"5' tape"_s;
    session.RecordResults[2] = u"third"_s;
    script.failures[resultInsert(u"5' tape"_s, 1)] = Error{-131, u"Syntax error"_s};
    failing(-131);
    EXPECT_NE(insert(), QString());
    EXPECT_TRUE(script.statements.contains(resultInsert(u"first"_s, 0)));
    EXPECT_EQ(script.statements.last(), resultInsert(u"5' tape"_s, 1));
    EXPECT_FALSE(script.statements.contains(emptied4224));
}

TEST_F(CalRecordErrors, NullsInTheTablesThatAreRead) {
    script.answers[worksheetQuery] = {{std::nullopt}};
    failing(94);
    script.answers[worksheetQuery] = {};
    script.answers[copiesWithinQuery] = {{u"2329"_s, std::nullopt}};
    set(u"C2303"_s, {});
    failing(94);
    script.answers[copiesWithinQuery] = {};
    script.answers[copiesBackQuery] = {{std::nullopt, u"I4230"_s}};
    set(u"C2303"_s, {});
    failing(94);
}

TEST_F(CalRecordErrors, ConnectionLostInTheMiddle) {
    script.failures[duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s)] =
        Error{10054, u"Connection lost"_s, u"08S01"_s, true};
    failing(10054);
    EXPECT_EQ(insert(), QString());
    EXPECT_FALSE(session.SessionConnected);
}

} // namespace kelvane::testing
