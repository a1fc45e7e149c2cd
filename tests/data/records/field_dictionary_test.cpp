#include "data/records/field_dictionary.h"
#include "testkit/fixtures.h"
#include "tests/data/records/record_statements.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto firstCalQuery =
    u"select count(ctag) from MT.calibration where mtag = (select mtag from MT.inventory where i4201 = 'A-1')"_s;

const auto extendedQuery =
    u"select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip from "
    u"mt.customiz "
    "where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' or fldnum = '2308' "
    "or "
    "fldnum = '2303' or fldnum = '2301' or fldnum = '2307') order by row,nextfld asc"_s;

const auto olderQuery =
    u"select fldnum,title,idefault,ireq,sreq,sdefault,scopy,scopy blank,validation,datalen from mt.customiz "
    "where fldnum like '23%' and (suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' or fldnum = '2308' "
    "or "
    "fldnum = '2303' or fldnum = '2301' or fldnum = '2307') and fldnum not like '239%' order by row,nextfld "
    "asc"_s;

/// A row of the dictionary; what is not set is null.
struct Entry {
    std::optional<QString> name = u"C2320"_s;
    std::optional<QString> title = {};
    std::optional<QString> idefault = {};
    std::optional<QString> ireq = {};
    std::optional<QString> sreq = {};
    std::optional<QString> sdefault = {};
    std::optional<QString> scopy = {};
    std::optional<QString> dcopy = {};
    std::optional<QString> validation = {};
    std::optional<QString> datalen = {};
    std::optional<QString> tooltip = {};
};

Row rowOf(const Entry& entry) {
    return {entry.name,  entry.title, entry.idefault,   entry.ireq,    entry.sreq,   entry.sdefault,
            entry.scopy, entry.dcopy, entry.validation, entry.datalen, entry.tooltip};
}

} // namespace

class FieldDictionary : public RecordedSession {
  protected:
    CalRecord record;
    FieldDictionary() { calibrations(1); }
    void calibrations(int count) { script.answers[firstCalQuery] = {{QString::number(count)}}; }
    /// The rows of the table that come out of these dictionary rows.
    QList<CalField> fields(const QList<Entry>& entries) {
        const bool older = session.SessionDbVersion < 6;
        auto& rows = script.answers[older ? olderQuery : extendedQuery];
        rows.clear();
        for (const auto& entry : entries)
            rows << (older ? rowOf(entry).mid(0, 10) : rowOf(entry));
        SetCalDataFields(session, record, u"A-1"_s);
        QList<CalField> result;
        for (int row = 0; row < calFieldCount(record); ++row)
            result << record.CalFieldTable[row];
        return result;
    }
    CalField field(const Entry& entry) { return fields({entry}).value(0); }
};

TEST_F(FieldDictionary, FirstCalibrationIsOneWithoutAnEarlierRecord) {
    calibrations(0);
    EXPECT_TRUE(FirstCal(session, u"A-1"_s));
    calibrations(1);
    EXPECT_FALSE(FirstCal(session, u"A-1"_s));
    EXPECT_EQ(script.statements, (QStringList{firstCalQuery, firstCalQuery}));
}

TEST_F(FieldDictionary, FirstCalibrationReportsWhatFails) {
    script.answers.clear();
    ui.expectReport(3021, u"ModuleGlobals,FirstCal"_s);
    EXPECT_FALSE(FirstCal(session, u"A-1"_s));
    script.answers[firstCalQuery] = {{std::nullopt}};
    ui.expectReport(94, u"ModuleGlobals,FirstCal"_s);
    EXPECT_FALSE(FirstCal(session, u"A-1"_s));
    script.failures[firstCalQuery] = Error{-131, u"Syntax error"_s};
    ui.expectReport(-131, u"ModuleGlobals,FirstCal"_s);
    EXPECT_FALSE(FirstCal(session, u"A-1"_s));
}

TEST_F(FieldDictionary, VersionSixReadsTheExtendedDictionary) {
    script.answers[typeQuery(u"C2301"_s)] = {{u"DATE"_s}};
    script.answers[worksheetQuery] = {{u"2301"_s}};
    const auto all = fields({{.name = u"C2301"_s,
                              .title = u"Calibration Date"_s,
                              .idefault = u"99/99/99"_s,
                              .ireq = u"Y"_s,
                              .sreq = u"N"_s,
                              .sdefault = u"01/02/2026"_s,
                              .scopy = u"OFF"_s,
                              .dcopy = u"I4230"_s,
                              .validation = u"SIMPLE"_s,
                              .datalen = u"8"_s,
                              .tooltip = u"When it was done"_s},
                             {.name = u"C2320"_s}});
    ASSERT_EQ(all.size(), 2);
    const auto& first = all[0];
    EXPECT_EQ(first.column, u"C2301"_s);
    EXPECT_EQ(first.title, u"Calibration Date"_s);
    EXPECT_EQ(first.required, u"N"_s);
    EXPECT_TRUE(first.has_list);
    EXPECT_EQ(first.default_text, u"01/02/2026"_s);
    EXPECT_EQ(first.field_type, 1);
    EXPECT_EQ(first.copy_from, QString());
    EXPECT_EQ(first.copy_to, u"I4230"_s);
    EXPECT_EQ(first.max_length, 10) << "a date has room for ten";
    EXPECT_EQ(first.tooltip, u"When it was done"_s);
    EXPECT_TRUE(first.on_worksheet);
    EXPECT_EQ(first.value, u"01/02/2026"_s);
    EXPECT_EQ(all[1].column, u"C2320"_s);
    EXPECT_FALSE(all[1].on_worksheet);
    EXPECT_EQ(script.statements, (QStringList{firstCalQuery, extendedQuery, typeQuery(u"C2301"_s),
                                              typeQuery(u"C2320"_s), worksheetQuery}));
}

TEST_F(FieldDictionary, OlderVersionHasNeitherCopyBackNorToolTip) {
    session.SessionDbVersion = 5;
    const auto read = field({.name = u"2320"_s, .scopy = u"4206"_s, .dcopy = u"4206"_s, .datalen = u"30"_s});
    EXPECT_EQ(read.column, u"C2320"_s);
    EXPECT_EQ(read.copy_from, u"4206"_s);
    EXPECT_EQ(read.copy_to, QString()) << "the column holds scopy once more";
    EXPECT_EQ(read.max_length, 30);
    EXPECT_EQ(read.tooltip, QString());
    EXPECT_EQ(script.statements.value(1), olderQuery);
}

TEST_F(FieldDictionary, NullsLeaveAFieldEmpty) {
    const auto read = field({});
    EXPECT_EQ(read.title, QString());
    EXPECT_EQ(read.required, QString());
    EXPECT_FALSE(read.has_list);
    EXPECT_EQ(read.default_text, QString());
    EXPECT_EQ(read.field_type, 0);
    EXPECT_EQ(read.copy_from, QString());
    EXPECT_EQ(read.copy_to, QString());
    EXPECT_EQ(read.max_length, 0);
    EXPECT_EQ(read.value, QString());
}

TEST_F(FieldDictionary, DefaultAndRequirementFollowTheCalibrationsCount) {
    const struct {
        const char* name;
        int earlier;
        Entry entry;
        QString default_text;
        QString required;
    } rows[] = {
        {"first takes the initial pair",
         0,
         {.idefault = u"i"_s, .ireq = u"N"_s, .sreq = u"Y"_s, .sdefault = u"s"_s},
         u"i"_s,
         u"N"_s},
        {"later takes the subsequent pair",
         1,
         {.idefault = u"i"_s, .ireq = u"N"_s, .sreq = u"Y"_s, .sdefault = u"s"_s},
         u"s"_s,
         u"Y"_s},
        {"first, the gap is filled by the other default", 0, {.sdefault = u"s"_s}, u"s"_s, {}},
        {"later, the gap is filled by the other default", 1, {.idefault = u"i"_s}, u"i"_s, {}},
        {"an empty default is a gap too", 0, {.idefault = QString(), .sdefault = u"s"_s}, u"s"_s, {}},
        {"the requirement is not filled from the other pair", 1, {.ireq = u"Y"_s}, {}, {}},
        {"small n is no", 1, {.sreq = u"n"_s}, {}, u"N"_s},
        {"anything else is yes", 1, {.sreq = u"No"_s}, {}, u"Y"_s},
        {"an empty requirement is yes", 1, {.sreq = QString()}, {}, u"Y"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        calibrations(row.earlier);
        const auto read = field(row.entry);
        EXPECT_EQ(read.default_text, row.default_text);
        EXPECT_EQ(read.required, row.required);
        EXPECT_EQ(read.value, row.default_text);
    }
}

TEST_F(FieldDictionary, CopyRulesAreTakenFromTheirColumns) {
    const struct {
        Entry entry;
        QString from;
        QString to;
    } rows[] = {
        {{.scopy = u"ON"_s}, u"C2320"_s, {}},    {{.scopy = u"on"_s}, u"C2320"_s, {}},
        {{.scopy = u"OFF"_s}, {}, {}},           {{.scopy = u"4206"_s}, u"4206"_s, {}},
        {{.scopy = QString()}, {}, {}},          {{.dcopy = u"OFF"_s}, {}, {}},
        {{.dcopy = u"I4230"_s}, {}, u"I4230"_s}, {{.scopy = u"off"_s}, u"off"_s, {}},
        {{.dcopy = u"off"_s}, {}, u"off"_s},
    };
    for (const auto& row : rows) {
        const auto read = field(row.entry);
        EXPECT_EQ(read.copy_from, row.from);
        EXPECT_EQ(read.copy_to, row.to);
    }
}

TEST_F(FieldDictionary, CopyOnReadsTheFieldFromTheCurrentRecord) {
    const auto current = u"select C2302 from MT.calibration where mtag = (select mtag from MT.inventory "
                         u"where i4201 = 'A-1') and "
                         "C2339 = '1'"_s;
    script.answers[current] = {{u"12"_s}};
    EXPECT_EQ(field({.name = u"C2302"_s, .scopy = u"ON"_s}).value, u"12"_s);

    session.SessionDbVersion = 5;
    const auto older = field({.name = u"2302"_s, .scopy = u"ON"_s});
    EXPECT_EQ(older.copy_from, u"2302"_s) << "its own first column, a bare number there";
    EXPECT_EQ(older.value, u"12"_s);
}

TEST_F(FieldDictionary, CopyWinsOverTheDefaultUnlessItIsEmpty) {
    const auto source = u"select I4206 from MT.inventory where i4201 = 'A-1'"_s;
    script.answers[source] = {{u"SN 12"_s}};
    EXPECT_EQ(field({.sdefault = u"99/99/99"_s, .scopy = u"4206"_s}).value, u"SN 12"_s);
    script.answers[source] = {{std::nullopt}};
    EXPECT_EQ(field({.sdefault = u"99/99/99"_s, .scopy = u"4206"_s}).value, u"03/18/2026"_s);
}

TEST_F(FieldDictionary, AllDefaultsComeBeforeTheFirstCopyAndTheWorksheetFieldsLast) {
    fields({{.name = u"C2320"_s, .scopy = u"4206"_s}, {.name = u"C2326"_s, .scopy = u"mtag"_s}});
    EXPECT_EQ(script.statements,
              (QStringList{firstCalQuery, extendedQuery, typeQuery(u"C2320"_s), typeQuery(u"C2326"_s),
                           u"select I4206 from MT.inventory where i4201 = 'A-1'"_s, typeQuery(u"I4206"_s),
                           u"select mtag from MT.inventory where i4201 = 'A-1'"_s, typeQuery(u"mtag"_s),
                           worksheetQuery}));
}

TEST_F(FieldDictionary, ValueListsAreSimpleOrLinked) {
    for (const auto& word : {u"SIMPLE"_s, u"simple"_s, u"LINKED"_s, u"Linked"_s})
        EXPECT_TRUE(field({.validation = word}).has_list) << word.toStdString();
    for (const auto& word : {u"NONE"_s, u"SIMPLE "_s, QString()})
        EXPECT_FALSE(field({.validation = word}).has_list) << word.toStdString();
}

TEST_F(FieldDictionary, TokensStandForValues) {
    session.SessionUser = u"cnguyen"_s;
    session.SessionOwner = u"MT"_s;
    const struct {
        QString token;
        QString value;
    } rows[] = {
        {u"99/99/99"_s, u"03/18/2026"_s},
        {u"99:99"_s, u"09:30"_s},
        {u"U_SEG"_s, u"MT"_s},
        {u"u_seg"_s, u"MT"_s},
        {u"U_NAM"_s, u"cnguyen"_s},
        {u"u_Nam"_s, u"cnguyen"_s},
        {u"\""_s, QString()},
        {u"U_WRK"_s, QString()},
        {u"u_wrk"_s, QString()},
        {u"LAB"_s, u"LAB"_s},
        {u"\"\""_s, u"\"\""_s},
        {u" U_NAM"_s, u" U_NAM"_s},
    };
    for (const auto& row : rows) {
        const auto read = field({.sdefault = row.token});
        EXPECT_EQ(read.value, row.value) << row.token.toStdString();
        EXPECT_EQ(read.default_text, row.token);
    }
}

TEST_F(FieldDictionary, TodayIsEmptyWithoutADateFormat) {
    session.SessionDateFormat.clear();
    EXPECT_EQ(field({.sdefault = u"99/99/99"_s}).value, QString());
}

TEST_F(FieldDictionary, OnlyDatesAreWidenedToTen) {
    const struct {
        QString domain;
        QString datalen;
        qint16 length;
    } rows[] = {
        {u"DATE"_s, u"8"_s, 10}, {u"DATE"_s, u"0"_s, 10},  {u"DATE"_s, u"12"_s, 12}, {u"TIME"_s, u"5"_s, 5},
        {u"CHAR"_s, u"1"_s, 1},  {u"CHAR"_s, u"2.5"_s, 2}, {u"CHAR"_s, u"abc"_s, 0},
    };
    for (const auto& row : rows) {
        script.answers[typeQuery(u"C2320"_s)] = {{row.domain}};
        EXPECT_EQ(field({.datalen = row.datalen}).max_length, row.length)
            << row.domain.toStdString() << row.datalen.toStdString();
    }
}

TEST_F(FieldDictionary, WorksheetFieldsAreMarkedByTheEndOfTheColumn) {
    script.answers[worksheetQuery] = {{u"2326"_s}, {u"9999"_s}, {u"2320"_s}};
    const auto all =
        fields({{.name = u"C23261"_s}, {.name = u"C2320"_s}, {.name = u"C2326"_s}, {.name = u"C2329"_s}});
    ASSERT_EQ(all.size(), 4);
    EXPECT_FALSE(all[0].on_worksheet) << "the number in the middle of a name";
    EXPECT_TRUE(all[1].on_worksheet);
    EXPECT_TRUE(all[2].on_worksheet);
    EXPECT_FALSE(all[3].on_worksheet);
}

TEST_F(FieldDictionary, EachCallErasesWhatTheLastOneLeft) {
    fields({{.name = u"C2320"_s, .sdefault = u"old"_s}, {.name = u"C2326"_s}});
    const auto all = fields({{.name = u"C2329"_s}});
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0].value, QString());
    EXPECT_EQ(record.CalFieldTable[1].column, QString());
}

TEST_F(FieldDictionary, HundredAndOneRowsFillTheTableAndOneMoreIsReported) {
    QList<Entry> entries;
    for (int number = 0; number < 101; ++number)
        entries << Entry{.name = u"C23%1"_s.arg(number), .sdefault = u"x"_s};
    EXPECT_EQ(fields(entries).size(), 101);
    EXPECT_EQ(record.CalFieldTable[100].value, u"x"_s);

    entries << Entry{.name = u"C2399"_s};
    ui.expectReport(9, u"ModuleGlobals,SetCalDataFields"_s);
    const auto all = fields(entries);
    EXPECT_EQ(all.size(), 101);
    EXPECT_EQ(all[100].column, u"C23100"_s);
    EXPECT_EQ(all[0].value, QString()) << "the routine ended before the defaults";
    EXPECT_NE(script.statements.last(), worksheetQuery);
}

TEST_F(FieldDictionary, NullNameIsReportedWithTheTableAsFarAsItWasFilled) {
    ui.expectReport(94, u"ModuleGlobals,SetCalDataFields"_s);
    const auto all = fields({{.name = u"C2320"_s}, {.name = std::nullopt}, {.name = u"C2326"_s}});
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0].column, u"C2320"_s);
}

TEST_F(FieldDictionary, NullNumberOfAWorksheetFieldIsReportedWithTheTableFilled) {
    script.answers[worksheetQuery] = {{std::nullopt}, {u"2320"_s}};
    ui.expectReport(94, u"ModuleGlobals,SetCalDataFields"_s);
    const auto read = field({.name = u"C2320"_s});
    EXPECT_EQ(read.column, u"C2320"_s);
    EXPECT_FALSE(read.on_worksheet);
}

TEST_F(FieldDictionary, LengthOutsideSixteenBitsIsReported) {
    ui.expectReport(6, u"ModuleGlobals,SetCalDataFields"_s);
    field({.datalen = u"40000"_s});
}

TEST_F(FieldDictionary, LostDatabaseIsReportedOnceForEachRoutine) {
    script.lost = true;
    ui.expectReport(10054, u"ModuleGlobals,FirstCal"_s);
    ui.expectReport(10054, u"ModuleGlobals,SetCalDataFields"_s);
    SetCalDataFields(session, record, u"A-1"_s);
    EXPECT_EQ(calFieldCount(record), 0);
    EXPECT_FALSE(session.SessionConnected);
}

} // namespace kelvane::testing
