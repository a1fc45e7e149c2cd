// The record that comes out, on a copy of the demonstration database.
#include "data/journal/journal.h"
#include "testkit/database_session.h"
#include "tests/worksheets/scripted_entry_screen.h"
#include "tests/worksheets/worksheet_questions.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class WorksheetInTheDatabase : public DatabaseSession {
  protected:
    WorksheetInTheDatabase() {
        clock.set(QDateTime(QDate(2026, 3, 18), QTime(9, 30)));
        firstRecord = value(u"select max(ctag) from mt.calibration"_s).toInt() + 1;
    }

    /// The operator enters PT-101 at 21.5 degrees with these standards.
    void enter(const QStringList& standards, const QString& asset = u"PT-101"_s) {
        ask.instrument(asset);
        ask.field(asset, u"Place of Calibration"_s, u"IN PLACE"_s);
        ask.field(asset, u"Ambient Temperature (C)"_s, u"21"_s);
        ask.field(asset, u"Ambient Temperature (C)"_s, u"21.5"_s);
        for (const auto& standard : standards)
            ask.standard(standard);
        if (screen.listed.isEmpty())
            ask.noMoreStandards();
        entry.startDataEntry();
        EXPECT_TRUE(ui.hasMetAll());
    }
    void save(const QString& asset = u"PT-101"_s) {
        ask.field(asset, u"Place of Calibration"_s, u"IN PLACE"_s);
        ask.field(asset, u"Ambient Temperature (C)"_s, u"21.5"_s);
        entry.save();
        EXPECT_TRUE(ui.hasMetAll());
    }
    QStringList records(const QString& expression) {
        return rows(u"select %1 from mt.calibration where ctag >= %2 order by ctag"_s.arg(expression)
                        .arg(firstRecord));
    }
    QStringList standards() {
        return rows(u"select c2430 from mt.standards where ctag >= %1 order by %2"_s.arg(firstRecord)
                        .arg(database.rowOrder()));
    }

    int firstRecord = 0;
    WorksheetQuestions ask{ui};
    ScriptedEntryScreen screen;
    WorksheetEntry entry{session, screen};
};

TEST_F(WorksheetInTheDatabase, BecomesAWholeRecordWithoutResultLines) {
    enter({u"PM-100"_s, u"DMM-01"_s});
    EXPECT_EQ(screen.rows().first(2),
              (QStringList{u"Place of Calibration=IN PLACE"_s, u"Ambient Temperature (C)=21"_s}));
    EXPECT_EQ(screen.fields[2], std::pair(u"Calibration Date"_s, u"03/18/2026"_s));
    EXPECT_EQ(screen.rows().count(u"Ambient Temperature (C)=21.5"_s), 1);
    save();
    EXPECT_EQ(
        records(u"mtag || '|' || c2301 || '|' || c2333 || '|' || c2307 || '|' || c2315 || '|' || c2312 || "
                "'|' || c2336 || '|' || cdsrc || '|' || c2339"_s),
        QStringList{u"1401|2026-03-18|09:30:00|jdoe|IN PLACE|21.5|jdoe|KVN|1"_s});
    EXPECT_EQ(records(u"c2303 || '|' || c2302 || c2331"_s), QStringList{u"2027-03-18|12M"_s});
    EXPECT_EQ(standards(), (QStringList{u"1205"_s, u"1203"_s}));
    EXPECT_EQ(value(u"select count(*) from mt.calresults where ctag >= %1"_s.arg(firstRecord)), u"0"_s);
    EXPECT_EQ(rows(u"select i4230,i4231 from mt.inventory where mtag = '1401'"_s, 2),
              QStringList{u"2026-03-18|2027-03-18"_s});
    EXPECT_TRUE(Journal(session).unfinished().isEmpty());
    EXPECT_EQ(screen.offered, 0);
}

TEST_F(WorksheetInTheDatabase, OfTheNextInstrumentHasTheSameStandards) {
    enter({u"PM-100"_s});
    save();
    enter({}, u"PT-102"_s);
    save(u"PT-102"_s);
    EXPECT_EQ(records(u"mtag"_s), (QStringList{u"1401"_s, u"1402"_s}));
    EXPECT_EQ(standards(), (QStringList{u"1205"_s, u"1205"_s}));
}

TEST_F(WorksheetInTheDatabase, EnteredTwiceIsRefused) {
    enter({u"PM-100"_s});
    save();
    enter({});
    ui.expectDialog(u"Calibration Record Data (PT-101)"_s,
                    u"Please enter information for: Place of Calibration"_s, u"LAB"_s);
    ui.expectDialog(u"Calibration Record Data (PT-101)"_s,
                    u"Please enter information for: Ambient Temperature (C)"_s, u"30"_s);
    ui.expectBox(u"A calibration record for this UUT with the same calibration date and time already exists! "
                 "Aborting calibration record creation for this UUT."_s,
                 u"Calibration Record Creation"_s, box::stop);
    entry.save();
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(records(u"c2312"_s), QStringList{u"21.5"_s});
    EXPECT_EQ(standards().size(), 1);
    EXPECT_TRUE(Journal(session).unfinished().isEmpty());
}

TEST_F(WorksheetInTheDatabase, TakesStandardsOfEveryKindAndWarnsOfThem) {
    clock.set({}); // the demonstration's due dates lie around today
    ask.instrument(u"PT-101"_s);
    ask.field(u"PT-101"_s, u"Place of Calibration"_s, u"LAB"_s);
    ask.field(u"PT-101"_s, u"Ambient Temperature (C)"_s, u"21"_s);
    ask.field(u"PT-101"_s, u"Ambient Temperature (C)"_s, u"21.5"_s);
    ask.standard(u"PM-030"_s);
    ask.warning(u"Standard is overdue for calibration!"_s, standardsTitle);
    ask.standard(u"TT-TRAIN"_s);
    ask.warning(u"Standard is not of a high enough trace level to calibrate: PT-101"_s, standardsTitle);
    ask.standard(u"STD-LOW-1"_s); // of another owner
    ask.warning(u"Standard does not exist!"_s, standardsTitle);
    ask.standard(u"NONE"_s);
    ask.warning(u"Standard does not exist!"_s, standardsTitle);
    ask.noMoreStandards();
    entry.startDataEntry();
    save();
    EXPECT_EQ(standards(), (QStringList{u"1206"_s, u"1010"_s, u"(null)"_s, u"(null)"_s}));
}

TEST_F(WorksheetInTheDatabase, OfAnInstrumentWithAQuoteInItsNumberIsFoundByItsDoubledQuote) {
    const auto asset = u"LT-10''COL"_s;
    enter({u"PM-100"_s}, asset);
    save(asset);
    EXPECT_EQ(records(u"mtag"_s), QStringList{u"1409"_s});
}

TEST_F(WorksheetInTheDatabase, TakesTextsOfAnyAlphabetAndLengthAsTheyAre) {
    enter({u"PM-100"_s});
    int remarks = 0;
    while (screen.fields.value(remarks).first != u"Remarks"_s)
        ASSERT_LT(++remarks, screen.fields.size());
    const auto typed = u"O'Neil \"測定\" <b> Ж %1 "_s + u"x"_s.repeated(10000);
    ask.field(u"PT-101"_s, u"Remarks"_s, typed);
    entry.changeField(remarks);
    save();
    EXPECT_EQ(records(u"c2326"_s), QStringList{typed});
}

} // namespace kelvane::testing
