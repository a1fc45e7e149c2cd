#include "platform/reason_log.h"

#include "platform/error_report.h"
#include "platform/file_error.h"
#include "testkit/fixtures.h"
#include "tests/platform/full_disk.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

class ReasonLog : public ::testing::Test {
  protected:
    ReasonLog() { clock.set(2026, 3, 8, 9, 5, 7); }
    QString log() const { return folder.read(u"errors.log"_s); }

    testing::OwnFolder folder;
    testing::SetClock clock;
    testing::MemorySettings settings;
    testing::ScriptedUserInterface ui;
    Workstation workstation{ui, clock, settings};
};

/// The settings store of a file in the test's folder.
class ReasonLogOfSettings : public ReasonLog {
  protected:
    QString path() const { return folder.path() + u"/KELVANE.ini"_s; }
    IniSettingsStore store{folder.path() + u"/KELVANE.ini"_s};
    Workstation stored{ui, clock, store};
};

} // namespace

TEST_F(ReasonLog, GetsOneLineForEachReasonAndShowsNoBox) {
    logReason(workstation, u"first"_s);
    clock.set(2026, 3, 9);
    logReason(workstation, u"second\r\nand\nthird Ω"_s);
    EXPECT_EQ(log(), u"[2026-03-08 09:05:07] first\r\n[2026-03-09 00:00:00] second and third Ω\r\n"_s);
}

TEST_F(ReasonLog, ThatCanNotBeWrittenIsPassedOver) {
    QDir().mkdir(u"errors.log"_s);
    EXPECT_NO_THROW(logReason(workstation, u"first"_s));
}

TEST(FileErrors, AreTheSameForEveryFileButForTheirReason) {
    const FileError error(ErrorNumber::fileNotFound, u"/a/b.txt"_s, u"No such file"_s);
    EXPECT_EQ(error.number, 53);
    EXPECT_EQ(error.description, u"File not found"_s);
    EXPECT_EQ(error.reason, u"The file \"/a/b.txt\": No such file"_s);
}

TEST_F(ReasonLogOfSettings, NamesTheFileThatCanNotBeReadOrStored) {
    ASSERT_TRUE(QDir().mkpath(path()));
    ui.expectReport(75, u"ModuleGlobals,GetRegSetting"_s);
    EXPECT_EQ(ModuleGlobals::GetRegSetting(stored, u"Defaults"_s, u"Username"_s), QString());
    const auto lines = log().split(u"\r\n"_s);
    ASSERT_EQ(lines.size(), 6);
    EXPECT_TRUE(lines[0].startsWith(u"[2026-03-08 09:05:07] The file \""_s + path() + u"\": "_s))
        << lines[0].toStdString();
    EXPECT_EQ(lines[2], u"[2026-03-08 09:05:07] 75 Path/File access error"_s);

    ui.expectReport(75, u"ModuleGlobals,SaveRegSetting"_s);
    ModuleGlobals::SaveRegSetting(stored, u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(log().count(u"The file \""_s + path() + u"\": "_s), 2);
}

TEST_F(ReasonLogOfSettings, SaysThatAnotherProgramHasLockedTheFile) {
    QFile lock(path() + u".lock"_s);
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write(QByteArray::number(QCoreApplication::applicationPid()) + "\ntest\nhost\n");
    lock.close();
    ui.expectReport(75, u"ModuleGlobals,SaveRegSetting"_s);
    ModuleGlobals::SaveRegSetting(stored, u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_TRUE(log().contains(u"The file \""_s + path() + u"\": It is locked by another program.\r\n"_s));
}

TEST_F(ReasonLogOfSettings, SaysThatTheFolderTakesNoFile) {
    folder.write(u"file"_s, "x");
    IniSettingsStore nowhere(folder.path() + u"/file/KELVANE.ini"_s);
    ui.expectReport(75, u"ModuleGlobals,SaveRegSetting"_s);
    ModuleGlobals::SaveRegSetting({ui, clock, nowhere}, u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_TRUE(log().contains(u"/file/KELVANE.ini\": Its folder cannot be written to.\r\n"_s));
}

TEST_F(ReasonLogOfSettings, NamesTheFileThatIsTooLargeForTheDisk) {
    if (!testing::FullDisk::isPossible)
        GTEST_SKIP() << "a full disk can't be had here";
    ui.expectReport(75, u"ModuleGlobals,SaveRegSetting"_s);
    {
        const testing::FullDisk full(4096);
        ModuleGlobals::SaveRegSetting(stored, u"Defaults"_s, u"Username"_s, QString(100'000, u'x'));
    }
    EXPECT_TRUE(log().contains(u"The file \""_s + path() + u"\": "_s));
}

} // namespace kelvane
