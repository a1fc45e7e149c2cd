#include "tests/data/records/cal_record_fixture.h"
#include "tests/data/records/record_statements.h"

#include "data/records/cal_record.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Each ends in one report and an empty result, which the caller can't distinguish from success.
class CalRecordErrors : public RecordCreation {
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
    record.RecordResults[0] = u"line"_s;
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
    record.RecordResults[0] = u"first"_s;
    record.RecordResults[1] = u"5' tape"_s;
    record.RecordResults[2] = u"third"_s;
    failing(1);
    EXPECT_NE(insert(), QString());
    EXPECT_EQ(script.statements.last(), resultInsert(u"first"_s, 0));
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(resultInsert(u"5' tape"_s, 1)));
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

TEST_F(CalRecordErrors, CallerIsAskedBeforeTheOperatorIsAndBeforeTheFirstStatementThatWrites) {
    QStringList asked;
    const auto answer = [&](const QString& question, bool yes) {
        return [this, &asked, question, yes] {
            EXPECT_EQ(insert(), QString());
            EXPECT_EQ(script.statements.contains(worksheetQuery), question == u"write"_s);
            asked << question + u' ' + valueOf(u"C2301"_s);
            return yes;
        };
    };
    const auto create = [&](bool mayAsk, bool mayWrite) {
        script.statements.clear();
        set(u"C2301"_s, u"03/16/2026"_s);
        set(u"C2303"_s, {});
        return ModuleGlobals::CreateCalRecord(
            session, record, u"A-1"_s,
            {.mayAsk = answer(u"ask"_s, mayAsk), .mayWrite = answer(u"write"_s, mayWrite)});
    };
    EXPECT_EQ(create(false, true), QString());
    EXPECT_EQ(asked, QStringList{u"ask 03/16/2026"_s});
    EXPECT_EQ(insert(), QString());
    EXPECT_EQ(create(true, false), QString());
    EXPECT_EQ(asked.last(), u"write 2026-03-16"_s) << "as it is written";
    EXPECT_EQ(insert(), QString());
    EXPECT_EQ(create(true, true), QString());
    EXPECT_NE(insert(), QString());
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(CalRecordErrors, WhatTheCallersConsentThrowsIsReportedAndNothingIsWritten) {
    ui.expectReport(75, u"ModuleGlobals,CreateCalRecord"_s);
    ModuleGlobals::CreateCalRecord(session, record, u"A-1"_s, {.mayWrite = []() -> bool {
                                       throw makeError(ErrorNumber::pathFileAccess);
                                   }});
    EXPECT_EQ(insert(), QString());
}

TEST_F(CalRecordErrors, ConnectionLostInTheMiddle) {
    script.failures[duplicateQuery(u"2026-03-16"_s, u"08:05:00"_s)] =
        Error{10054, u"Connection lost"_s, u"08S01"_s, true};
    failing(10054);
    EXPECT_EQ(insert(), QString());
    EXPECT_FALSE(session.SessionConnected);
}

} // namespace kelvane::testing
