#include "records/lists.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr CsvForm commas{u',', u'.'};
constexpr CsvForm semicolons{u';', u','};

StoredMoment moment(const QString& text) {
    return storedMomentOf(text);
}

UsedStandard standard(const QString& asset, StandardState state, const QString& due = {}) {
    UsedStandard used;
    used.mtag = u"1203"_s;
    used.asset = asset;
    used.state = state;
    used.due = moment(due);
    return used;
}

} // namespace

TEST(Lists, OfInstrumentsShowWhatIsKnown) {
    InstrumentSummary instrument;
    instrument.asset = u"LT-10'COL"_s;
    instrument.description = u"=LEVEL, \"A\""_s;
    instrument.manufacturer = u"VALTEC"_s;
    instrument.model = u"-D120"_s;
    instrument.serial = u"007"_s;
    instrument.group = u"PROD"_s;
    instrument.location = u"TANK"_s;
    instrument.lastCalibration = moment(u"2025-03-01"_s);
    instrument.state = u"AS-FOUND"_s;
    instrument.passed = u"N"_s;
    instrument.due = moment(u"2026-03-01"_s);
    instrument.daysLeft = -17;
    instrument.out = {{u"6841207"_s, u"jdoe"_s, moment(u"2026-03-10 08:00:00"_s)}, {u"1"_s, {}, {}}};
    EXPECT_EQ(csvTitles(instrumentColumns(), commas),
              u"Asset,Description,Manufacturer,Model,Serial Number,Group,Location,Last "
              u"Calibration,State,Result,Due,"
              "Days Left,Out With,Technician,Out Since\r\n"_s);
    EXPECT_EQ(
        csvRow(instrumentColumns(), instrument, commas),
        u"LT-10'COL,\"'=LEVEL, \"\"A\"\"\",VALTEC,'-D120,007,PROD,TANK,2025-03-01,AS-FOUND,failed,2026-03-01,"
        "-17,6841207,jdoe,2026-03-10\r\n"_s);
    EXPECT_EQ(csvRow(instrumentColumns(), InstrumentSummary(), semicolons), QString(14, u';') + u"\r\n"_s);
}

TEST(Lists, OfRecordsShowTheStandardsAsTheyWereThen) {
    CalibrationRecord record;
    record.ctag = u"12"_s;
    record.date = moment(u"2025-03-01"_s);
    record.time = moment(u"08:30:00.000"_s);
    record.passed = u"Y"_s;
    record.due = moment(u"some day"_s);
    record.ambientTemperature = u"21.5"_s;
    record.failedPoints = u"0"_s;
    record.lines = {u"a"_s, u"b"_s};
    record.standards = {standard(u"A"_s, StandardState::inCalibration, u"2026-01-01"_s),
                        standard(u"B"_s, StandardState::overdue, u"2025-01-01"_s),
                        standard(u"C"_s, StandardState::notPassed),
                        standard(u"D"_s, StandardState::withoutDueDate),
                        standard(u"E"_s, StandardState::withoutRecord),
                        standard({}, StandardState::withoutRecord)};
    EXPECT_EQ(csvTitles(calibrationColumns(), commas),
              u"Record,Date,Time,State,Result,Due,Technician,Laboratory,Procedure,Test Strategy,Place,Work "
              "Order,External Temperature,Ambient Temperature,Relative Humidity,Marginal Points,Failed "
              "Points,Standards Used,Result Lines,Remarks,Further Remarks,Source\r\n"_s);
    EXPECT_EQ(
        csvRow(calibrationColumns(), record, semicolons),
        u"12;2025-03-01;08:30:00;;passed;some day;;;;;;;;21,5;;;0;\"A (in calibration, due 2026-01-01); B "
        "(overdue since 2025-01-01); C (had failed its own calibration); D (without a due date); E (no "
        "record by that day); 1203 (not in the inventory any more)\";2;;;\r\n"_s);
}

TEST(Lists, OfUsesShowOtherMarksThanTheTwoAsTheyAreStored) {
    StandardUse use;
    use.asset = u"PT-101"_s;
    use.passed = u"?"_s;
    use.ctag = u"7"_s;
    EXPECT_EQ(csvTitles(standardUseColumns(), commas),
              u"Asset,Description,Date,Time,State,Result,Record\r\n"_s);
    const auto row = u"PT-101,,,,,?,7\r\n"_s;
    EXPECT_EQ(csvRow(standardUseColumns(), use, commas), row);
    EXPECT_EQ(csvOf(standardUseColumns(), {use, use}, commas),
              csvTitles(standardUseColumns(), commas) + row + row);
}

TEST(Lists, CaptionARecordByWhatItHas) {
    CalibrationRecord record;
    EXPECT_EQ(recordCaption(record), QString());
    record.state = u"AS-LEFT"_s;
    record.passed = u"Y"_s;
    EXPECT_EQ(recordCaption(record), u"AS-LEFT passed"_s);
}

} // namespace kelvane::testing
