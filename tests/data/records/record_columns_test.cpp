#include "data/records/record_columns.h"
#include "testkit/fixtures.h"
#include "tests/data/records/record_statements.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

class RecordColumns : public RecordedSession {
  protected:
    RecordColumns() { session.SessionOwner = u"ABC"_s; }
    void typeOf(const QString& column, const QString& domain) {
        script.answers[typeQuery(column)] = {{domain}};
    }
};

class FieldTypeTest : public RecordColumns {};

TEST_F(FieldTypeTest, ComesFromTheServersCatalogue) {
    const struct {
        QString domain;
        qint16 type;
    } rows[] = {
        {u"DATE"_s, 1},        {u"TIMESTAMP"_s, 1},    {u"TIME"_s, 3},     {u"CHAR"_s, 0},
        {u"VARCHAR"_s, 0},     {u"LONG VARCHAR"_s, 0}, {u"SMALLINT"_s, 2}, {u"INTEGER"_s, 2},
        {u"NUMERIC"_s, 2},     {u"FLOAT"_s, 2},        {u"DOUBLE"_s, 2},   {u"BINARY"_s, 2},
        {u"LONG BINARY"_s, 2}, {u"TINYINT"_s, 2},      {u"date"_s, 1},     {u"Time"_s, 3},
        {u"integer"_s, 2},     {u"BIGINT"_s, 0},       {u"DECIMAL"_s, 0},  {u"DATE "_s, 0},
        {QString(), 0},
    };
    for (const auto& row : rows) {
        typeOf(u"C2301"_s, row.domain);
        EXPECT_EQ(FieldType(session, u"C2301"_s), row.type) << row.domain.toStdString();
    }
}

TEST_F(FieldTypeTest, NullAndNoRowAreText) {
    script.answers[typeQuery(u"C2301"_s)] = {{std::nullopt}};
    EXPECT_EQ(FieldType(session, u"C2301"_s), 0);
    script.answers.clear();
    EXPECT_EQ(FieldType(session, u"C2301"_s), 0);
}

TEST_F(FieldTypeTest, TheTwoTimesNeedNoQuery) {
    for (const auto& column : {u"C2333"_s, u"C2334"_s, u"c2333"_s, u"c2334"_s})
        EXPECT_EQ(FieldType(session, column), 3);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(FieldTypeTest, AsksAtEachCallWithTheNameAsItStands) {
    FieldType(session, u"c2301"_s);
    FieldType(session, u"c2301"_s);
    EXPECT_EQ(script.statements, (QStringList{typeQuery(u"c2301"_s), typeQuery(u"c2301"_s)}));
}

TEST_F(FieldTypeTest, FailureIsReportedAndCountsAsText) {
    script.failures[typeQuery(u"C2301"_s)] = Error{-141, u"Table not found"_s};
    ui.expectReport(-141, u"ModuleGlobals,FieldType"_s);
    EXPECT_EQ(FieldType(session, u"C2301"_s), 0);
}

class SourceColumnTest : public RecordColumns {
  protected:
    void expectSelect(const QString& column, const QString& statement) {
        script.statements.clear();
        script.answers[statement] = {{u"x"_s}, {u"second row"_s}};
        EXPECT_EQ(SourceColumn(session, column, u"A-1"_s), u"x"_s) << column.toStdString();
        ASSERT_EQ(script.statements.size(), 2);
        EXPECT_EQ(script.statements[0], statement);
        EXPECT_TRUE(script.firstRowOnly.contains(statement));
    }
};

TEST_F(SourceColumnTest, EachBeginningFindsItsTable) {
    const struct {
        QString column;
        QString name;
        QString statement;
    } rows[] = {
        {u"4229"_s, u"I4229"_s, u"select I4229 from ABC.inventory where i4201 = 'A-1'"_s},
        {u"2302"_s, u"C2302"_s,
         u"select C2302 from ABC.calibration where mtag = (select mtag from ABC.inventory where i4201 = "
         u"'A-1') "
         "and C2339 = '1'"_s},
        {u"2801"_s, u"L2801"_s,
         u"select L2801 from ABC.location where mtag = (select mtag from ABC.inventory where i4201 = 'A-1') "
         "and L2815 = '1'"_s},
        {u"3202"_s, u"R3202"_s,
         u"select R3202 from ABC.repair where mtag = (select mtag from ABC.inventory where i4201 = 'A-1') "
         u"and "
         "R3246 = '1'"_s},
        {u"4601"_s, u"K4601"_s,
         u"select K4601 from ABC.customers where mtag = (select mtag from ABC.inventory where i4201 = "
         "'A-1')"_s},
        {u"I4229"_s, u"I4229"_s, u"select I4229 from ABC.inventory where i4201 = 'A-1'"_s},
        {u"i4229"_s, u"i4229"_s, u"select i4229 from ABC.inventory where i4201 = 'A-1'"_s},
        {u"C2302"_s, u"C2302"_s,
         u"select C2302 from ABC.calibration where mtag = (select mtag from ABC.inventory where i4201 = "
         u"'A-1') "
         "and C2339 = '1'"_s},
        {u"l2801"_s, u"l2801"_s,
         u"select l2801 from ABC.location where mtag = (select mtag from ABC.inventory where i4201 = 'A-1') "
         "and L2815 = '1'"_s},
        {u"R3202"_s, u"R3202"_s,
         u"select R3202 from ABC.repair where mtag = (select mtag from ABC.inventory where i4201 = 'A-1') "
         u"and "
         "R3246 = '1'"_s},
        {u"K4601"_s, u"K4601"_s,
         u"select K4601 from ABC.customers where mtag = (select mtag from ABC.inventory where i4201 = "
         "'A-1')"_s},
        {u"mtag"_s, u"mtag"_s, u"select mtag from ABC.inventory where i4201 = 'A-1'"_s},
        {u"MTAG"_s, u"MTAG"_s, u"select MTAG from ABC.inventory where i4201 = 'A-1'"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.column.toStdString());
        expectSelect(row.column, row.statement);
        EXPECT_EQ(script.statements[1], typeQuery(row.name)) << "the kind is that of the whole name";
    }
}

TEST_F(SourceColumnTest, AnyOtherBeginningIsEmptyWithoutAStatement) {
    for (const auto& column : {QString(), u"4"_s, u"OFF"_s, u"2401"_s, u"X4229"_s, u" 4229"_s, u"'; drop"_s})
        EXPECT_EQ(SourceColumn(session, column, u"A-1"_s), QString());
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(SourceColumnTest, NullAndNoRowAreEmpty) {
    const auto statement = u"select I4229 from ABC.inventory where i4201 = 'A-1'"_s;
    EXPECT_EQ(SourceColumn(session, u"4229"_s, u"A-1"_s), QString());
    script.answers[statement] = {{std::nullopt}};
    typeOf(u"I4229"_s, u"DATE"_s);
    EXPECT_EQ(SourceColumn(session, u"4229"_s, u"A-1"_s), QString());
}

TEST_F(SourceColumnTest, DatesAndTimesAreWrittenForTheScreen) {
    const auto statement = u"select I4229 from ABC.inventory where i4201 = 'A-1'"_s;
    const struct {
        QString domain;
        QString stored;
        QString format;
        QString shown;
    } rows[] = {
        {u"DATE"_s, u"2026-03-18"_s, u"MM/DD/YYYY"_s, u"03/18/2026"_s},
        {u"DATE"_s, u"2026-03-18"_s, u"DD/MM/YYYY"_s, u"18/03/2026"_s},
        {u"DATE"_s, u"2026-03-18"_s, u"YYYY/MM/DD"_s, u"2026/03/18"_s},
        {u"DATE"_s, u"2026-03-18"_s, QString(), QString()},
        {u"TIMESTAMP"_s, u"2026-03-18 09:30:05"_s, u"MM/DD/YYYY"_s, u"03/18/2026"_s},
        {u"TIMESTAMP"_s, u"2026-03-18 09:30:05.254000"_s, u"DD/MM/YYYY"_s, u"18/03/2026"_s},
        {u"TIME"_s, u"09:30:05"_s, u"MM/DD/YYYY"_s, u"09:30"_s},
        {u"TIME"_s, u"09:30:05.254"_s, u"MM/DD/YYYY"_s, u"09:30"_s},
        {u"TIME"_s, u"09:30:05"_s, QString(), u"09:30"_s},
        {u"INTEGER"_s, u"12"_s, u"MM/DD/YYYY"_s, u"12"_s},
        {u"VARCHAR"_s, u" 2026-03-18 "_s, u"MM/DD/YYYY"_s, u" 2026-03-18 "_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE((row.domain + u' ' + row.stored + u' ' + row.format).toStdString());
        session.SessionDateFormat = row.format;
        typeOf(u"I4229"_s, row.domain);
        script.answers[statement] = {{row.stored}};
        EXPECT_EQ(SourceColumn(session, u"4229"_s, u"A-1"_s), row.shown);
    }
}

TEST_F(SourceColumnTest, FailuresAreReportedAndGiveEmpty) {
    const auto statement = u"select I4229 from ABC.inventory where i4201 = 'O''Neill'"_s;
    script.failures[statement] = Error{-131, u"Syntax error"_s};
    ui.expectReport(-131, u"ModuleGlobals,SourceColumn"_s);
    EXPECT_EQ(SourceColumn(session, u"4229"_s, u"O''Neill"_s), QString());

    typeOf(u"I4225"_s, u"DATE"_s);
    script.answers[u"select I4225 from ABC.inventory where i4201 = 'A-1'"_s] = {{u"soon"_s}};
    ui.expectReport(13, u"ModuleGlobals,SourceColumn"_s);
    EXPECT_EQ(SourceColumn(session, u"I4225"_s, u"A-1"_s), QString());

    script.answers[u"select I4225 from ABC.inventory where i4201 = 'A-1'"_s] = {{u"09:30"_s}};
    ui.expectReport(13, u"ModuleGlobals,SourceColumn"_s);
    EXPECT_EQ(SourceColumn(session, u"I4225"_s, u"A-1"_s), QString()) << "a time alone is no date";
}

class DestColumnTest : public RecordColumns {
  protected:
    /// The writing statement of a store; the questions for the kind of the column come before it.
    QString statementFor(const QString& column, const QString& value) {
        script.statements.clear();
        DestColumn(session, column, u"A-1"_s, value);
        return script.statements.isEmpty() ? QString() : script.statements.last();
    }
};

TEST_F(DestColumnTest, InventoryIsUpdatedByAssetNumber) {
    EXPECT_EQ(statementFor(u"4224"_s, u"x"_s),
              u"update ABC.inventory set I4224 = 'x' where i4201 = 'A-1';commit"_s);
    EXPECT_EQ(script.statements.first(), typeQuery(u"I4224"_s));
    EXPECT_EQ(script.statements.size(), 2);
    EXPECT_EQ(statementFor(u"i4224"_s, u"x"_s),
              u"update ABC.inventory set i4224 = 'x' where i4201 = 'A-1';commit"_s);
}

TEST_F(DestColumnTest, OtherTablesGetTheQuoteInFrontOfTheInnerSelectThatTheServerRefuses) {
    EXPECT_EQ(
        statementFor(u"2303"_s, u"x"_s),
        u"update ABC.calibration set C2303 = 'x' where mtag = '(select mtag from ABC.inventory where i4201 "
        "= 'A-1') and C2339 = '1';commit"_s);
    EXPECT_EQ(
        statementFor(u"L2801"_s, u"x"_s),
        u"update ABC.location set L2801 = 'x' where mtag = '(select mtag from ABC.inventory where i4201 = "
        "'A-1') and L2815 = '1';commit"_s);
    EXPECT_EQ(
        statementFor(u"R3202"_s, u"x"_s),
        u"update ABC.repair set R3202 = 'x' where mtag = '(select mtag from ABC.inventory where i4201 = "
        "'A-1') and R3246 = '1';commit"_s);
}

TEST_F(DestColumnTest, TableWithoutMarkerGetsNeitherConditionNorCommit) {
    EXPECT_EQ(
        statementFor(u"4601"_s, u"x"_s),
        u"update ABC.customers set K4601 = 'x' where mtag = '(select mtag from ABC.inventory where i4201 = "
        "'A-1')"_s);
}

TEST_F(DestColumnTest, EmptyAndTheWordNullAreWrittenAsNull) {
    const auto statement = u"update ABC.inventory set I4224 = NULL where i4201 = 'A-1';commit"_s;
    EXPECT_EQ(statementFor(u"I4224"_s, {}), statement);
    EXPECT_EQ(script.statements, QStringList{statement}) << "the kind of an empty value is not asked for";
    for (const auto& null : {u"NULL"_s, u"null"_s, u"Null"_s}) {
        EXPECT_EQ(statementFor(u"I4224"_s, null), statement);
        EXPECT_EQ(script.statements, (QStringList{typeQuery(u"I4224"_s), statement}));
    }
    typeOf(u"I4224"_s, u"DATE"_s);
    EXPECT_EQ(statementFor(u"I4224"_s, u"NULL"_s), statement) << "in a date column too";
}

TEST_F(DestColumnTest, DatesAndTimesAreWrittenForTheStatement) {
    typeOf(u"I4225"_s, u"DATE"_s);
    EXPECT_EQ(statementFor(u"I4225"_s, u"3/8/2026"_s),
              u"update ABC.inventory set I4225 = '2026-03-08' where i4201 = 'A-1';commit"_s);
    session.SessionDateFormat = u"DD/MM/YYYY"_s;
    EXPECT_EQ(statementFor(u"I4225"_s, u"3/8/2026"_s),
              u"update ABC.inventory set I4225 = '2026-08-03' where i4201 = 'A-1';commit"_s);
    typeOf(u"I4225"_s, u"TIME"_s);
    EXPECT_EQ(statementFor(u"I4225"_s, u"9:05"_s),
              u"update ABC.inventory set I4225 = '09:05:00' where i4201 = 'A-1';commit"_s);
    EXPECT_EQ(statementFor(u"I4225"_s, u"9:05:07 PM"_s),
              u"update ABC.inventory set I4225 = '21:05:07' where i4201 = 'A-1';commit"_s);
}

TEST_F(DestColumnTest, ValueIsNotMadeSafe) {
    EXPECT_EQ(statementFor(u"I4224"_s, u"O''Neill"_s),
              u"update ABC.inventory set I4224 = 'O''Neill' where i4201 = 'A-1';commit"_s);
}

TEST_F(DestColumnTest, UnknownBeginningsAndTheKeyItselfDoNothing) {
    for (const auto& column : {QString(), u"OFF"_s, u"2401"_s, u"mtag"_s, u"MTAG"_s})
        EXPECT_EQ(statementFor(column, u"x"_s), QString()) << column.toStdString();
}

TEST_F(DestColumnTest, WhatIsNoDateIsReportedAndNothingIsWritten) {
    typeOf(u"I4225"_s, u"DATE"_s);
    ui.expectReport(13, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(statementFor(u"I4225"_s, u"soon"_s), typeQuery(u"I4225"_s));
    ui.expectReport(13, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(statementFor(u"I4225"_s, u" "_s), typeQuery(u"I4225"_s)) << "a blank is not empty";
}

TEST_F(DestColumnTest, RefusedStatementIsReported) {
    const auto statement =
        u"update ABC.customers set K4601 = 'x' where mtag = '(select mtag from ABC.inventory where i4201 = 'A-1')"_s;
    script.failures[statement] = Error{-131, u"Syntax error near 'A'"_s};
    ui.expectReport(-131, u"ModuleGlobals,DestColumn"_s);
    EXPECT_EQ(statementFor(u"4601"_s, u"x"_s), statement);
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(statement));
}

} // namespace kelvane::testing
