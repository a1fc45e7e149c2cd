#include "platform/communication_log.h"

#include "platform/error.h"
#include "testkit/fixtures.h"
#include "tests/platform/full_disk.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const QString fluke = u"Fluke 743/744"_s;

class CommunicationLogFile : public ::testing::Test {
  protected:
    CommunicationLogFile() { switchOn(log); }

    void switchOn(CommunicationLog& other) {
        settings.setValue(logSection, other.calibrator(), u"1"_s);
        other.readSwitch();
    }
    /// The words of each line, without date, time and calibrator.
    QStringList words(const QString& name = u"logs/fluke-743-744.log"_s) const {
        QStringList lines;
        for (const auto& line : folder.read(name).split(u'\n', Qt::SkipEmptyParts))
            lines << line.section(u"] "_s, 1);
        return lines;
    }
    QString complaints() const { return folder.read(u"errors.log"_s); }

    testing::OwnFolder folder;
    testing::SetClock clock;
    testing::MemorySettings settings;
    testing::ScriptedUserInterface ui;
    Workstation workstation{ui, clock, settings};
    CommunicationLog log{workstation, fluke, folder.path() + u"/logs"_s};
};

/// Settings that can't be read.
class UnreadableSettings final : public SettingsStore {
  public:
    QString value(const QString&, const QString&) const override {
        throw makeError(ErrorNumber::pathFileAccess);
    }
    void setValue(const QString&, const QString&, const QString&) override {}
};

} // namespace

TEST_F(CommunicationLogFile, GetsALineWithMillisecondsCalibratorAndWords) {
    const auto before = QDateTime::currentDateTime();
    log.write(u"sent 02\r\nin\ntwo Ω"_s);
    const auto after = QDateTime::currentDateTime();
    const auto line = folder.read(u"logs/fluke-743-744.log"_s);
    static const QRegularExpression form(
        u"^(\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}) \\[Fluke 743/744\\] sent 02 in two Ω\n$"_s);
    const auto match = form.match(line);
    ASSERT_TRUE(match.hasMatch()) << line.toStdString();
    const auto stamp = QDateTime::fromString(match.captured(1), u"yyyy-MM-dd HH:mm:ss.zzz"_s);
    EXPECT_GE(stamp, before);
    EXPECT_LE(stamp, after);
}

TEST_F(CommunicationLogFile, IsReadByItsUserOnlyAsIsItsFolder) {
    log.write(u"x"_s);
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFileInfo(log.path()).permissions() & others);
    EXPECT_FALSE(QFileInfo(folder.path() + u"/logs"_s).permissions() & (others | QFile::ExeOther));
}

TEST_F(CommunicationLogFile, IsWrittenOnlyWhileTheSettingIsOne) {
    for (const auto& value : {u""_s, u"0"_s, u"yes"_s}) {
        settings.setValue(logSection, fluke, value);
        log.readSwitch();
        EXPECT_FALSE(log.isOn()) << value.toStdString();
        log.write(u"x"_s);
    }
    EXPECT_FALSE(QFileInfo::exists(folder.path() + u"/logs"_s));
    settings.setValue(logSection, fluke, u"1"_s);
    log.write(u"not yet"_s);
    log.readSwitch();
    log.write(u"now"_s);
    EXPECT_EQ(words(), QStringList{u"now"_s});
}

TEST_F(CommunicationLogFile, OfAnotherCalibratorHasAnotherNameAndSwitch) {
    CommunicationLog other(workstation, u"Crane TorqueStar IVc"_s, folder.path() + u"/logs"_s);
    other.readSwitch();
    EXPECT_FALSE(other.isOn());
    switchOn(other);
    other.write(u"a"_s);
    log.write(u"b"_s);
    EXPECT_EQ(words(u"logs/crane-torquestar-ivc.log"_s), QStringList{u"a"_s});
    EXPECT_EQ(words(), QStringList{u"b"_s});
}

TEST_F(CommunicationLogFile, IsOffWithSettingsThatCanNotBeRead) {
    UnreadableSettings unreadable;
    const Workstation other{ui, clock, unreadable};
    CommunicationLog unknown(other, fluke, folder.path());
    unknown.readSwitch();
    EXPECT_FALSE(unknown.isOn());
}

TEST_F(CommunicationLogFile, IsPutAsideWhenItIsFullAndTheOldestGoes) {
    CommunicationLog small(workstation, u"Small"_s, folder.path(), {.size = 300, .files = 3});
    switchOn(small);
    QStringList written;
    for (int i = 100; i < 160; ++i) {
        written << u"line %1"_s.arg(i);
        small.write(written.last());
    }
    const auto kept = words(u"small.log.2"_s) + words(u"small.log.1"_s) + words(u"small.log"_s);
    ASSERT_GT(kept.size(), 12);
    EXPECT_LT(kept.size(), 30);
    EXPECT_EQ(kept, written.last(kept.size())) << "without a gap";
    EXPECT_FALSE(QFileInfo::exists(folder.path() + u"/small.log.3"_s));
    for (const auto& name : {u"/small.log"_s, u"/small.log.1"_s, u"/small.log.2"_s})
        EXPECT_LT(QFileInfo(folder.path() + name).size(), 400) << name.toStdString();
}

TEST_F(CommunicationLogFile, ThatCanNotBeWrittenIsToldOnceAndDisturbsNothing) {
    folder.write(u"logs"_s, "a file where the folder has to be");
    for (int i = 0; i < 3; ++i)
        EXPECT_NO_THROW(log.write(u"x"_s));
    EXPECT_EQ(complaints().count(u"The communication log "_s + log.path() + u" could not be written: "_s), 1);
    EXPECT_EQ(complaints().count(u"\r\n"_s), 1);

    ASSERT_TRUE(QFile::remove(folder.path() + u"/logs"_s));
    log.write(u"again"_s);
    EXPECT_EQ(words(), QStringList{u"again"_s});
    ASSERT_TRUE(QDir(folder.path() + u"/logs"_s).removeRecursively());
    folder.write(u"logs"_s, "x");
    log.write(u"x"_s);
    EXPECT_EQ(complaints().count(u"\r\n"_s), 2) << "and once more when it had worked meanwhile";
}

TEST_F(CommunicationLogFile, OnAFullDeviceIsToldOnce) {
    if (!QFileInfo::exists(u"/dev/full"_s))
        GTEST_SKIP() << "there is no device that is always full";
    ASSERT_TRUE(QDir().mkpath(folder.path() + u"/logs"_s));
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, log.path()));
    for (int i = 0; i < 3; ++i)
        EXPECT_NO_THROW(log.write(u"x"_s));
    EXPECT_EQ(complaints().count(u"No space left on device"_s), 1);
}

TEST_F(CommunicationLogFile, OnAFullDiskKeepsWholeLinesOnly) {
    if (!testing::FullDisk::isPossible)
        GTEST_SKIP() << "a full disk can't be had here";
    log.write(u"first"_s);
    {
        const testing::FullDisk full(200);
        for (int i = 0; i < 10; ++i)
            EXPECT_NO_THROW(log.write(u"during the outage %1"_s.arg(i)));
    }
    log.write(u"last"_s);
    const auto lines = words();
    EXPECT_EQ(lines.first(), u"first"_s);
    EXPECT_EQ(lines.last(), u"last"_s);
    EXPECT_LT(lines.size(), 6);
    for (const auto& line : lines.sliced(1, lines.size() - 2))
        EXPECT_TRUE(line.startsWith(u"during the outage "_s)) << line.toStdString();
    EXPECT_EQ(complaints().count(u"could not be written"_s), 1);
}

TEST_F(CommunicationLogFile, TellsOfEachLineAndOfHowTheLineWasOpened) {
    int changes = 0;
    log.onChange = [&] { ++changes; };
    EXPECT_FALSE(log.opening().has_value());
    log.write(u"x"_s);
    EXPECT_EQ(changes, 1);
    settings.setValue(logSection, fluke, u"0"_s);
    log.readSwitch();
    log.write(u"x"_s);
    EXPECT_EQ(changes, 1);
    log.setOpening({u"It is busy."_s});
    EXPECT_EQ(changes, 2);
    ASSERT_TRUE(log.opening().has_value());
    EXPECT_EQ(log.opening()->refusal, u"It is busy."_s);
}

TEST(CommunicationLogFolder, FollowsTheConventionForTheStateOfPrograms) {
    const auto before = qgetenv("XDG_STATE_HOME");
    qputenv("XDG_STATE_HOME", "/var/tmp/state");
    EXPECT_EQ(communicationLogFolder(), u"/var/tmp/state/kelvane"_s);
    for (const char* none : {"", "relative/path"}) {
        qputenv("XDG_STATE_HOME", none);
        EXPECT_EQ(communicationLogFolder(), QDir::homePath() + u"/.local/state/kelvane"_s);
    }
    qputenv("XDG_STATE_HOME", before);
}

} // namespace kelvane
