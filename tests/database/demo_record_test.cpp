#include "data/records/cal_record.h"
#include "data/records/due_date.h"
#include "data/records/field_dictionary.h"
#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

/// Makes calibration records as an upload does, on the demonstration database.
class DemoRecord : public DatabaseSession {
  protected:
    CalRecord record;
    void set(const QString& column, const QString& text) {
        for (int row = 0; !std::as_const(record).CalFieldTable[row].column.isEmpty(); ++row) {
            if (std::as_const(record).CalFieldTable[row].column == column)
                record.CalFieldTable[row].value = text;
        }
    }

    QString makeRecord(const QString& asset, const QString& passed, const QString& time) {
        SetCalDataFields(session, record, asset);
        set(u"C2301"_s, u"03/18/2026"_s);
        set(u"C2333"_s, time);
        set(u"C2323"_s, passed);
        record.RecordStandards.erase();
        record.RecordStandards[0] = u"TT-0300F"_s;
        record.RecordStandards[1] = u"TS-0001"_s;
        record.RecordResults.erase();
        record.RecordResults[0] = u"  1  50.0ft/lb"_s;
        record.RecordResults[1] = u"  2  150.0ft/lb"_s;
        const QString caption = u"Calibration Record Data ("_s + asset + u')';
        ui.expectDialog(caption, u"Please enter information for: Place of Calibration"_s, u"IN PLACE"_s,
                        [](const DialogQuestion& question) {
                            EXPECT_EQ(question.choices, (QStringList{u"IN PLACE"_s, u"LAB"_s, u"VENDOR"_s}));
                            EXPECT_EQ(question.defaultText, u"LAB"_s);
                            EXPECT_FALSE(question.required);
                        });
        ui.expectDialog(caption, u"Please enter information for: Ambient Temperature (C)"_s, u"21.5"_s,
                        [](const DialogQuestion& question) {
                            EXPECT_TRUE(question.required);
                            EXPECT_EQ(question.fieldType, 2);
                        });
        return CreateCalRecord(session, record, asset);
    }
};

} // namespace

TEST_F(DemoRecord, IsWrittenWithStandardsAndResultsAndBecomesTheCurrentOne) {
    EXPECT_EQ(makeRecord(u"TW-101"_s, u"Y"_s, u"09:30:00"_s), QString());
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(
        rows(
            u"select "
            u"c2301,c2333,c2303,c2302,c2331,c2307,c2308,c2309,c2312,c2315,c2317,c2323,c2336,c2338,cdsrc from "
            "mt.calibration where mtag = '1301' and c2339 = 1"_s,
            15),
        QStringList{
            u"2026-03-18|09:30:00|2027-03-18|12|M|jdoe|FOUND-LEFT|KP-TORQUE-02|21.5|IN PLACE|MT|Y|jdoe|jdoe|KVN"_s});
    const auto ctag = value(u"select ctag from mt.calibration where mtag = '1301' and c2339 = '1'"_s);
    EXPECT_EQ(rows(u"select c2430 from mt.standards where ctag = "_s + ctag + u" order by c2430"_s),
              (QStringList{u"1001"_s, u"1101"_s}));
    EXPECT_EQ(rows(u"select c2502,c2501 from mt.calresults where ctag = "_s + ctag + u" order by c2502"_s, 2),
              (QStringList{u"0|  1  50.0ft/lb"_s, u"1|  2  150.0ft/lb"_s}));
}

TEST_F(DemoRecord, OfAPassEndsTheRecallAndCopiesItsDatesBack) {
    ASSERT_EQ(value(u"select i4224 from mt.inventory where i4201 = 'TW-101'"_s),
              u"RECALLED FOR CALIBRATION"_s);
    EXPECT_EQ(makeRecord(u"TW-101"_s, u"Y"_s, u"09:30:00"_s), QString());
    EXPECT_EQ(rows(u"select i4224,i4225,i4230,i4231 from mt.inventory where i4201 = 'TW-101'"_s, 4),
              QStringList{u"(null)|(null)|2026-03-18|2027-03-18"_s});
}

TEST_F(DemoRecord, OfAFailureKeepsTheRecallAndIsDueAtOnce) {
    const auto recall = value(u"select i4225 from mt.inventory where i4201 = 'TW-104'"_s);
    EXPECT_EQ(makeRecord(u"TW-104"_s, u"N"_s, u"09:30:00"_s), QString());
    EXPECT_EQ(rows(u"select i4224,i4225,i4230,i4231 from mt.inventory where i4201 = 'TW-104'"_s, 4),
              QStringList{u"RECALLED FOR CALIBRATION|"_s + recall + u"|2026-03-18|2026-03-18"_s});
}

TEST_F(DemoRecord, OfOneMomentIsWrittenOnce) {
    EXPECT_EQ(makeRecord(u"TW-103"_s, u"Y"_s, u"09:30:00"_s), QString());
    EXPECT_TRUE(
        makeRecord(u"TW-103"_s, u"Y"_s, u"09:30:00"_s).startsWith(u"A calibration record for this UUT"_s));
    EXPECT_EQ(value(u"select count(*) from mt.calibration where mtag = '1303'"_s), u"1"_s);
}

TEST_F(DemoRecord, IsDueOnAWorkingDay) {
    Moment date{QDate(2026, 3, 20), QTime(0, 0)};
    float interval = 12;
    QString unit = u"M"_s;
    EXPECT_EQ(calcDueDate(session, {}, date, interval, unit).date, QDate(2027, 3, 19))
        << "not on the Saturday";
    const auto year = QDate::currentDate().year() + 1;
    date = {QDate(year - 1, 12, 26), QTime(0, 0)};
    const auto due = calcDueDate(session, {}, date, interval, unit).date;
    EXPECT_LT(due, QDate(year, 12, 25)) << "not on a holiday";
    EXPECT_GE(due, QDate(year, 12, 22));
}

} // namespace kelvane::testing
