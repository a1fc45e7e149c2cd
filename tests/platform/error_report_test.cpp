#include "platform/error_report.h"
#include "testkit/fixtures.h"
#include "tests/platform/errors.h"
#include "tests/platform/full_disk.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::errorOf;

namespace {

/// What every report says between the error and the routine.
const auto advice =
    u"This warning is being provided to allow for troubleshooting. Please contact the "
    u"administrator so that this error may be reported to HALVORN METRICS. Please write down the "
    u"values listed for FUNCTION/SUB:, and SQL:. These values are used to help determine the "
    u"problem cause."_s;

QString boxText(const QString& what, const QString& routine, const QString& sql) {
    return u"The following internal error has occurred: "_s + what + u"\r\n\r\n"_s + advice +
           u"\r\n\r\nFUNCTION/SUB:"_s + routine + u"\r\nSQL:"_s + sql;
}

class Report : public ::testing::Test {
  protected:
    Report() { clock.set(2026, 3, 8, 9, 5, 7); }
    void report(double number, const QString& description, const QString& sql = {}) {
        ModuleGlobals::ReportInternalError({ui, clock, settings}, number, description,
                                           u"ModuleGlobals,calcDueDate"_s, sql);
    }
    QString log() const { return folder.read(u"errors.log"_s); }

    testing::OwnFolder folder;
    testing::SetClock clock;
    testing::MemorySettings settings;
    testing::ScriptedUserInterface ui;
};

class BrokenSettings final : public SettingsStore {
  public:
    QString value(const QString&, const QString&) const override {
        throw makeError(ErrorNumber::pathFileAccess);
    }
    void setValue(const QString&, const QString&, const QString&) override {
        throw makeError(ErrorNumber::pathFileAccess);
    }
};

} // namespace

TEST_F(Report, WritesFourLinesAndShowsOneStopBox) {
    ui.expectBox(boxText(u"9 Subscript out of range"_s, u"ModuleGlobals,calcDueDate"_s,
                         u"select 1 from mt.dbconfig"_s),
                 u"Kelvane"_s, box::stop);
    report(9, u"Subscript out of range"_s, u"select 1 from mt.dbconfig"_s);
    EXPECT_EQ(log(), u"[2026-03-08 09:05:07]  **** KELVANE ****\r\n"
                     u"[2026-03-08 09:05:07] 9 Subscript out of range\r\n"
                     u"[2026-03-08 09:05:07] ModuleGlobals,calcDueDate\r\n"
                     u"[2026-03-08 09:05:07] select 1 from mt.dbconfig\r\n"_s);
}

TEST_F(Report, WithoutAStatementLeavesItEmpty) {
    ui.expectBox(boxText(u"5 Invalid procedure call or argument"_s, u"ModuleGlobals,calcDueDate"_s, {}),
                 u"Kelvane"_s, box::stop);
    report(5, u"Invalid procedure call or argument"_s);
    EXPECT_TRUE(log().endsWith(u"[2026-03-08 09:05:07] \r\n"_s));
}

TEST_F(Report, GoesBehindTheEarlierOnes) {
    folder.write(u"errors.log"_s, "what was there\r\n");
    ui.expectReport(6, u"ModuleGlobals,calcDueDate"_s);
    ui.expectReport(11, u"ModuleGlobals,calcDueDate"_s);
    report(6, u"Overflow"_s);
    clock.set(2026, 3, 9);
    report(11, u"Division by zero"_s);
    const auto lines = log().split(u"\r\n"_s);
    ASSERT_EQ(lines.size(), 10);
    EXPECT_EQ(lines[0], u"what was there"_s);
    EXPECT_EQ(lines[2], u"[2026-03-08 09:05:07] 6 Overflow"_s);
    EXPECT_EQ(lines[6], u"[2026-03-09 00:00:00] 11 Division by zero"_s);
}

TEST_F(Report, CarriesOneTimeStampOnAllFourLines) {
    clock.tick = 1;
    ui.expectReport(6, u"ModuleGlobals,calcDueDate"_s);
    report(6, u"Overflow"_s);
    EXPECT_EQ(log().count(u"[2026-03-08 09:05:07] "_s), 4);
}

TEST_F(Report, WritesTheNumberPlain) {
    static const struct {
        double number;
        QString text;
    } rows[] = {
        {-2147217900, u"-2147217900"_s},
        {-210.5, u"-210.5"_s},
        {0, u"0"_s},
        {3021, u"3021"_s},
    };
    for (const auto& row : rows) {
        QFile::remove(u"errors.log"_s);
        ui.expectBox(boxText(row.text + u" text"_s, u"ModuleGlobals,calcDueDate"_s, {}), u"Kelvane"_s,
                     box::stop);
        report(row.number, u"text"_s);
        EXPECT_TRUE(log().contains(u"] "_s + row.text + u" text\r\n"_s)) << row.text.toStdString();
    }
}

TEST_F(Report, KeepsOtherAlphabetsQuotesAndLongStatements) {
    const auto sql = u"select 'Ω漢😀' \"x\" "_s + QString(200'000, u'x');
    ui.expectBox(boxText(u"1 Ж"_s, u"ModuleGlobals,calcDueDate"_s, sql), u"Kelvane"_s, box::stop);
    report(1, u"Ж"_s, sql);
    EXPECT_TRUE(log().endsWith(u"] "_s + sql + u"\r\n"_s));
}

TEST_F(Report, SetsTheNormalPointerFirst) {
    ui.setBusyPointer();
    ui.expectReport(6, u"ModuleGlobals,calcDueDate"_s);
    report(6, u"Overflow"_s);
    EXPECT_FALSE(ui.busy);
}

TEST_F(Report, GoesIntoTheFolderThatIsCurrentThen) {
    QDir().mkdir(u"elsewhere"_s);
    ui.expectReport(6, u"ModuleGlobals,calcDueDate"_s);
    QDir::setCurrent(folder.path() + u"/elsewhere"_s);
    report(6, u"Overflow"_s);
    EXPECT_FALSE(folder.read(u"elsewhere/errors.log"_s).isEmpty());
    EXPECT_TRUE(log().isEmpty());
}

TEST_F(Report, ThatCanNotBeWrittenIsError75AndShowsNoBox) {
    QDir().mkdir(u"errors.log"_s);
    ui.setBusyPointer();
    EXPECT_EQ(errorOf([&] { report(6, u"Overflow"_s); }), 75);
    EXPECT_FALSE(ui.busy) << "the pointer is set back all the same";
}

TEST_F(Report, OnAFullDiskIsError75AndShowsNoBox) {
    if (!QFile::exists(u"/dev/full"_s))
        GTEST_SKIP() << "no device that is always full here";
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, u"errors.log"_s));
    EXPECT_EQ(errorOf([&] { report(6, u"Overflow"_s); }), 75);
    // larger than any buffer involved
    EXPECT_EQ(errorOf([&] { report(6, u"Overflow"_s, QString(1'000'000, u'x')); }), 75);
}

TEST_F(Report, ThatFitsOnTheDiskInPartIsError75AndShowsNoBox) {
    if (!testing::FullDisk::isPossible)
        GTEST_SKIP() << "a full disk can't be had here";
    const testing::FullDisk full(100);
    EXPECT_EQ(errorOf([&] { report(6, u"Overflow"_s); }), 75);
}

TEST_F(Report, SettingsComeAndGoWithoutOne) {
    const Workstation workstation{ui, clock, settings};
    EXPECT_EQ(ModuleGlobals::GetRegSetting(workstation, u"Workstation"_s, u"ODBC"_s), u""_s);
    ModuleGlobals::SaveRegSetting(workstation, u"Workstation"_s, u"ODBC"_s, u"Lab"_s);
    EXPECT_EQ(ModuleGlobals::GetRegSetting(workstation, u"Workstation"_s, u"ODBC"_s), u"Lab"_s);
    EXPECT_EQ(settings.writes, QStringList{u"Workstation/ODBC=Lab"_s});
    EXPECT_FALSE(QFile::exists(u"errors.log"_s));
}

TEST_F(Report, ComesFromSettingsThatCanNotBeReadOrStored) {
    BrokenSettings broken;
    const Workstation workstation{ui, clock, broken};
    ui.expectBox(boxText(u"75 Path/File access error"_s, u"ModuleGlobals,GetRegSetting"_s, {}), u"Kelvane"_s,
                 box::stop);
    EXPECT_EQ(ModuleGlobals::GetRegSetting(workstation, u"Left"_s, u"FormConnect"_s), u""_s);
    ui.expectBox(boxText(u"75 Path/File access error"_s, u"ModuleGlobals,SaveRegSetting"_s, {}), u"Kelvane"_s,
                 box::stop);
    ModuleGlobals::SaveRegSetting(workstation, u"Left"_s, u"FormConnect"_s, u"105"_s);
    EXPECT_EQ(log().count(u" **** KELVANE ****\r\n"_s), 2);
    EXPECT_TRUE(ui.hasMetAll());
}

TEST_F(Report, OfSettingsThatCanNotBeWrittenEitherIsError75) {
    BrokenSettings broken;
    const Workstation workstation{ui, clock, broken};
    QDir().mkdir(u"errors.log"_s);
    EXPECT_EQ(errorOf([&] { ModuleGlobals::GetRegSetting(workstation, u"Left"_s, u"x"_s); }), 75);
    EXPECT_EQ(errorOf([&] { ModuleGlobals::SaveRegSetting(workstation, u"Left"_s, u"x"_s, {}); }), 75);
}

} // namespace kelvane
