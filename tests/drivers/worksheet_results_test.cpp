#include "drivers/worksheet_results.h"

#include "tests/worksheets/entry_fixture.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ResultsOfAWorksheet : public EntryFixture {
  protected:
    ResultsOfAWorksheet() {
        add(u"C2301"_s, u"Date"_s, u"03/18/2026"_s, 1);
        add(u"C2333"_s, u"Time"_s, u"09:30"_s, 3);
        add(u"C2326"_s, u"Remarks"_s, u"O'Neil \"測定\""_s, 0);
        record.RecordStandards[0] = u"S-1"_s;
        record.RecordStandards[1] = u"S-2"_s;
        setDictionary({{.column = u"C2326"_s, .title = u"Remarks"_s, .defaultText = u"none"_s},
                       {.column = u"c2301"_s, .title = u"Date"_s, .defaultText = u"99/99/99"_s},
                       {.column = u"C2333"_s, .title = u"Time"_s, .defaultText = u"99:99"_s},
                       {.column = u"C2399"_s, .title = u"New"_s, .defaultText = u"new"_s}});
    }

    void add(const QString& column, const QString& title, const QString& value, qint16 type) {
        auto& field = record.CalFieldTable[fields_++];
        field.column = column;
        field.title = title;
        field.value = value;
        field.field_type = type;
    }
    JournalEntry entryOf(bool isDictionaryRead = true) {
        JournalEntry noted;
        noted.asset = u"PT-1"_s;
        takeWorksheet(session, record, isDictionaryRead, noted);
        return noted;
    }
    /// The values that the record gets when the entry is judged again.
    QStringList judge(JournalEntry noted) {
        CalRecord judged;
        judged.RecordResults[0] = u"left over"_s;
        judged.RecordStandards[0] = u"left over"_s;
        EXPECT_EQ(judgeWorksheetAgain(session, noted, judged), QString());
        EXPECT_EQ(entriesOf(judged.RecordResults), QStringList());
        EXPECT_EQ(entriesOf(judged.RecordStandards), entriesOf(record.RecordStandards));
        QStringList values;
        for (int row = 0; !std::as_const(judged).CalFieldTable[row].column.isEmpty(); ++row)
            values << std::as_const(judged).CalFieldTable[row].value;
        return values;
    }

    CalRecord record;

  private:
    int fields_ = 0;
};

TEST_F(ResultsOfAWorksheet, StandInTheEntryAsTheyWereEntered) {
    const auto noted = entryOf();
    EXPECT_EQ(noted.driver, u"worksheet"_s);
    EXPECT_EQ(noted.calibrator, u"Paper worksheet"_s);
    EXPECT_EQ(noted.date, u"2026-03-18"_s);
    EXPECT_EQ(noted.time, u"09:30:00"_s);
    EXPECT_EQ(noted.readings,
              (QStringList{u"Date: 03/18/2026"_s, u"Time: 09:30"_s, u"Remarks: O'Neil \"測定\""_s}));
    EXPECT_EQ(noted.raw["standards"_L1].toArray().size(), 2);
    EXPECT_EQ(noted.raw["fields"_L1][2][1].toString(), u"O'Neil \"測定\""_s);
}

TEST_F(ResultsOfAWorksheet, KeepADateOrTimeThatIsNoneAsItIs) {
    record.CalFieldTable[0].value = u"02/30/2026"_s;
    record.CalFieldTable[1].value = u"noon"_s;
    EXPECT_EQ(entryOf().date, u"02/30/2026"_s);
    EXPECT_EQ(entryOf().time, u"noon"_s);
    record.CalFieldTable[0].value = u"09:30"_s; // a time alone
    record.CalFieldTable[1].value.clear();
    EXPECT_EQ(entryOf().date, u"09:30"_s);
    EXPECT_EQ(entryOf().time, QString());
}

TEST_F(ResultsOfAWorksheet, WithoutFieldsForDateAndTimeHaveNeither) {
    record.CalFieldTable.erase();
    const auto noted = entryOf();
    EXPECT_EQ(noted.date, QString());
    EXPECT_EQ(noted.time, QString());
    EXPECT_EQ(noted.readings, QStringList{u"Asset Calibrated: PT-1"_s});
}

TEST_F(ResultsOfAWorksheet, GoIntoTheFieldsOfNowByTheirColumns) {
    EXPECT_EQ(judge(entryOf()),
              (QStringList{u"O'Neil \"測定\""_s, u"2026-03-18"_s, u"09:30:00"_s, u"new"_s}));
}

TEST_F(ResultsOfAWorksheet, AreReadAlikeInASessionWithAnotherDateFormat) {
    record.CalFieldTable[0].value = u"05/06/2026"_s;
    const auto noted = entryOf();
    session.SessionDateFormat = u"DD/MM/YYYY"_s;
    EXPECT_EQ(judge(noted)[1], u"2026-05-06"_s);
}

TEST_F(ResultsOfAWorksheet, HaveTheDateThatTheOperatorSettledSince) {
    auto noted = entryOf();
    noted.date = u"2026-03-20"_s;
    noted.time = u"10:11:12"_s;
    EXPECT_EQ(judge(noted).mid(1, 2), (QStringList{u"2026-03-20"_s, u"10:11:12"_s}));
}

TEST_F(ResultsOfAWorksheet, KeepAnEmptiedFieldEmpty) {
    record.CalFieldTable[2].value.clear();
    EXPECT_EQ(judge(entryOf())[0], QString());
}

TEST_F(ResultsOfAWorksheet, OfAnIncompleteDictionaryKeepOnlyWhatTheOperatorEntered) {
    record.CalFieldTable[0].value = u"99/99/99"_s;
    auto noted = entryOf(false);
    noted.date = u"2026-03-18"_s; // asked for since
    EXPECT_EQ(judge(noted), (QStringList{u"O'Neil \"測定\""_s, u"03/18/2026"_s, u"09:30:00"_s, u"new"_s}));
    record.CalFieldTable[2].value.clear();
    EXPECT_EQ(judge(entryOf(false))[0], u"none"_s);
}

} // namespace kelvane::testing
