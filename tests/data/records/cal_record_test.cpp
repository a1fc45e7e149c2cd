#include "tests/data/records/cal_record_fixture.h"
#include "tests/data/records/record_statements.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(RecordCreation, WholeRunInItsOrder) {
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
    record.RecordStandards[0] = u"TT-1"_s;
    record.RecordStandards[1] = u"TT-2"_s;
    record.RecordResults[0] = u"  1 first"_s;
    record.RecordResults[1] = u"  2 second"_s;
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

TEST_F(RecordCreation, BeforeVersionSixOnlyTheCopiesWithinTheRecordAreRead) {
    session.SessionDbVersion = 5;
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(copiesWithinQuery));
    EXPECT_FALSE(script.statements.contains(copiesBackQuery));
    EXPECT_FALSE(script.statements.contains(daysOffQuery));
}

TEST_F(RecordCreation, LaterCopiesOfAStandardAreDroppedInAnyCase) {
    for (int index = 0;
         const auto& name : {u"TT-1"_s, u"tt-1"_s, u"TT-2"_s, u"TT-1"_s, u"Tt-2"_s, QString(), u"TT-3"_s})
        record.RecordStandards[index++] = name;
    create();
    QStringList inserted;
    for (const auto& statement : std::as_const(script.statements)) {
        if (statement.startsWith(u"insert into mt.standards"_s))
            inserted << statement;
    }
    EXPECT_EQ(inserted, (QStringList{standardInsert(u"TT-1"_s), standardInsert(u"TT-2"_s)}))
        << "and the first empty entry ends the list";
}

TEST_F(RecordCreation, FullListsAreWrittenToTheirLastEntry) {
    for (int index = 0; index <= 100; ++index)
        record.RecordStandards[index] = u"S-%1"_s.arg(index);
    for (int index = 0; index <= 2000; ++index)
        record.RecordResults[index] = u"L-%1"_s.arg(index);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(standardInsert(u"S-100"_s)));
    EXPECT_TRUE(script.statements.contains(resultInsert(u"L-2000"_s, 2000)));
}

TEST_F(RecordCreation, BlankLinesOfASessionWithoutTemplateAreStillWritten) {
    const QString blank(120, u' ');
    record.RecordResults[0] = blank;
    record.RecordResults[1] = blank;
    create();
    EXPECT_TRUE(script.statements.contains(resultInsert(blank, 0)));
    EXPECT_TRUE(script.statements.contains(resultInsert(blank, 1)));
}

TEST_F(RecordCreation, WithoutStandardsAndResultsNoneAreWritten) {
    create();
    for (const auto& statement : std::as_const(script.statements))
        EXPECT_FALSE(statement.startsWith(u"insert into mt."_s)) << statement.toStdString();
}

TEST_F(RecordCreation, ResultLineAndStandardAreNotMadeSafe) {
    record.RecordStandards[0] = u"O''Neill"_s;
    record.RecordResults[0] = u"5'' tape"_s;
    create();
    EXPECT_TRUE(script.statements.contains(standardInsert(u"O''Neill"_s)));
    EXPECT_TRUE(script.statements.contains(resultInsert(u"5'' tape"_s, 0)));
}

TEST_F(RecordCreation, InventoryFieldsAreEmptiedByTheFlags) {
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

TEST_F(RecordCreation, FailedCopyWithinTheRecordIsReportedForEachRowAndTheRecordGoesOn) {
    script.answers[copiesWithinQuery] = {{u"2329"_s, u"2326"_s}, {u"2306"_s, u"4206"_s}};
    const auto refused = [](const QString& column) {
        return u"update MT.calibration set "_s + column +
               u" = NULL where mtag = '(select mtag from MT.inventory where i4201 = 'A-1') and C2339 = "
               "'1';commit"_s;
    };
    script.failures[refused(u"C2329"_s)] = Error{-131, u"Syntax error"_s};
    script.failures[refused(u"C2306"_s)] = Error{-131, u"Syntax error"_s};
    record.RecordResults[0] = u"line"_s;
    ui.expectReport(-131, u"ModuleGlobals,DestColumn"_s);
    ui.expectReport(-131, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(create(), QString());
    EXPECT_TRUE(script.statements.contains(resultInsert(u"line"_s, 0)));
    EXPECT_EQ(progress().last(), u"hide"_s);
    EXPECT_TRUE(progress().contains(u"value 100"_s));
}

} // namespace kelvane::testing
