#include "platform/settings_store.h"
#include "testkit/fixtures.h"
#include "tests/platform/errors.h"
#include "tests/platform/full_disk.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kelvane {

using testing::errorOf;

namespace {

class IniSettings : public ::testing::Test {
  protected:
    QString path() const { return folder.path() + u"/KELVANE.ini"_s; }
    QString content() const { return folder.read(u"KELVANE.ini"_s); }
    void putContent(const QByteArray& content) const { folder.write(u"KELVANE.ini"_s, content); }

    testing::OwnFolder folder;
    IniSettingsStore store{path()};
};

} // namespace

TEST_F(IniSettings, OfNoFileAreEmptyTextsAndMakeNoFile) {
    EXPECT_EQ(store.value(u"Workstation"_s, u"ODBC"_s), u""_s);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(IniSettings, GiveBackWhatWasStored) {
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s);
    store.setValue(u"Defaults"_s, u"Username"_s, u"smith"_s);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"smith"_s);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Other"_s), u""_s);
    EXPECT_EQ(store.value(u"Other"_s, u"Username"_s), u""_s);
}

TEST_F(IniSettings, AreOnTheDiskAtOnceAndReadableAsText) {
    store.setValue(u"Ports"_s, u"COM1"_s, u"/dev/ttyUSB0"_s);
    EXPECT_EQ(content().trimmed(), u"[Ports]\nCOM1=/dev/ttyUSB0"_s);
}

TEST_F(IniSettings, KeepValuesExactly) {
    static const QString values[] = {
        u""_s,
        u" "_s,
        u"  jdoe  "_s,
        u"O'Brien"_s,
        u"say \"no\""_s,
        u"\""_s,
        u"line\r\nline\nline\r"_s,
        u"tab\there"_s,
        u"a,b, c"_s,
        u","_s,
        u"a;b#c=d"_s,
        u"[Section]"_s,
        u"C:\\Program Files\\x"_s,
        u"ends in \\"_s,
        u"%20%41%"_s,
        u"@Invalid()"_s,
        u"@ByteArray(x)"_s,
        u"@@"_s,
        u"Ω äöü ж 漢字 😀"_s,
        u"\ufeffmark"_s,
        QString(QChar(0)) + u"after a null"_s,
        u"1e3"_s,
        u"-0105"_s,
        u"true"_s,
        QString(100'000, u'x'),
    };
    for (const auto& value : values) {
        store.setValue(u"Defaults"_s, u"Username"_s, value);
        EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), value);
    }
}

TEST_F(IniSettings, KeepNamesApartAndExact) {
    static const struct {
        QString section;
        QString key;
    } names[] = {
        {u"Fluke 743/744"_s, u"BaudRate"_s},
        {u"Fluke 743"_s, u"744/BaudRate"_s},
        {u"Fluke 743"_s, u"744\\BaudRate"_s},
        {u"Fluke 743\\744"_s, u"BaudRate"_s},
        {u"Fluke 743%2F744"_s, u"BaudRate"_s},
        {u"Fluke 702"_s, u"BaudRate"_s},
        {u"Crane TorqueStar IVc"_s, u"Port"_s},
        {u"Left"_s, u"FormConnect"_s},
        {u"FormConnect"_s, u"Left"_s},
        {u"left"_s, u"formconnect"_s},
        {u"General"_s, u"Left"_s},
        {u"%General"_s, u"Left"_s},
        {u"general"_s, u"Left"_s},
        {u""_s, u"Left"_s},
        {u"Left"_s, u""_s},
        {u""_s, u""_s},
        {u"%"_s, u"%"_s},
        {u"/"_s, u"//"_s},
        {u" Left "_s, u" a b "_s},
        {u"[x]"_s, u"a=b"_s},
        {u"x;y"_s, u"#k"_s},
        {u"Ω"_s, u"漢😀"_s},
        {u"two\r\nlines"_s, u"two\nlines"_s},
        {u"size"_s, u"1"_s},
    };
    int number = 0;
    for (const auto& name : names)
        store.setValue(name.section, name.key, QString::number(++number));
    const auto check = [&](const SettingsStore& read) {
        int expected = 0;
        for (const auto& name : names)
            EXPECT_EQ(read.value(name.section, name.key), QString::number(++expected))
                << name.section.toStdString() << " | " << name.key.toStdString();
    };
    check(store);
    check(IniSettingsStore(path()));
    EXPECT_TRUE(content().contains(u"[Fluke 743/744]\nBaudRate=1\n"_s));
}

TEST_F(IniSettings, OfOneFileAreTheSameThroughTwoStores) {
    IniSettingsStore other(path());
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(other.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s);
    other.setValue(u"Workstation"_s, u"ODBC"_s, u"Lab"_s);
    store.setValue(u"Left"_s, u"FormODBC"_s, u"105"_s);
    EXPECT_EQ(store.value(u"Workstation"_s, u"ODBC"_s), u"Lab"_s);
    EXPECT_EQ(other.value(u"Left"_s, u"FormODBC"_s), u"105"_s);
    EXPECT_EQ(other.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s);
}

TEST_F(IniSettings, SeeWhatAnotherProgramWroteAndKeepIt) {
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    putContent("[Ports]\nCOM1=/dev/ttyS4\n\n[Defaults]\nUsername=smith\n");
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"smith"_s);
    EXPECT_EQ(store.value(u"Ports"_s, u"COM1"_s), u"/dev/ttyS4"_s);
    store.setValue(u"Workstation"_s, u"ODBC"_s, u"Lab"_s);
    EXPECT_EQ(store.value(u"Ports"_s, u"COM1"_s), u"/dev/ttyS4"_s);
}

TEST_F(IniSettings, ReadAnEditedFile) {
    putContent(
        "\xEF\xBB\xBF; written by hand\r\n# and this\r\nLoose=1\r\n\r\n[ Ports ]\r\n"
        "  COM1 = /dev/ttyS0  \r\n\tCOM2\t=\t/dev/ttyS1\r\n[Workstation]\r\nODBC=Main, lab=1 50% \"x\"\r\n"
        "Empty=\r\nMethod=L %1 x +%+1 %41%4\r\nPath=C:\\new\\x\r\nODBC=second\r\n[Ports]\r\nCOM3=/dev/ttyS2");
    static const struct {
        QString section;
        QString key;
        QString value;
    } rows[] = {
        {u"Ports"_s, u"COM1"_s, u"/dev/ttyS0"_s},
        {u"Ports"_s, u"COM2"_s, u"/dev/ttyS1"_s},
        {u"Ports"_s, u"COM3"_s, u"/dev/ttyS2"_s},
        {u"Workstation"_s, u"ODBC"_s, u"Main, lab=1 50% \"x\""_s},
        {u"Workstation"_s, u"Empty"_s, u""_s},
        {u"Workstation"_s, u"Method"_s, u"L %1 x +%+1 A%4"_s},
        {u"Workstation"_s, u"Path"_s, u"C:\\new\\x"_s},
        {u""_s, u"Loose"_s, u"1"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(store.value(row.section, row.key), row.value) << row.key.toStdString();
}

TEST_F(IniSettings, KeepTheCommentsAndTheOrderOfAnEditedFile) {
    putContent(
        "# ports of the bench\n[Ports]\n; the torque calibrator\nCOM1=/dev/ttyS0\n\n[Left]\n\n[Top]\nx=1\n");
    store.setValue(u"Ports"_s, u"COM1"_s, u"/dev/ttyS4"_s);
    store.setValue(u"Ports"_s, u"COM2"_s, u"/dev/ttyS5"_s);
    store.setValue(u"Left"_s, u"FormODBC"_s, u"105"_s);
    store.setValue(u"Workstation"_s, u"ODBC"_s, u"Lab"_s);
    EXPECT_EQ(content(),
              u"# ports of the bench\n[Ports]\n; the torque calibrator\nCOM1=/dev/ttyS4\n"
              u"COM2=/dev/ttyS5\n\n[Left]\nFormODBC=105\n\n[Top]\nx=1\n\n[Workstation]\nODBC=Lab\n"_s);
}

TEST_F(IniSettings, OfADamagedFileAreEmptyAndTheFileIsKeptBeside) {
    static const QByteArray damaged[] = {
        "[Defaults]\nUsername=jdoe\n[Workst",
        "[Defaults]\nUsername=jdoe\nLastDownl",
        QByteArray(4096, '\0'),
        "[Defaults]\nUsername=jdoe\n" + QByteArray(512, '\0'),
        "[Defaults]\nUsername=jd\0oe\n"_ba,
        "\x7f\x45LF\x01\x02 no settings at all",
        "[Defaults]\nUsername=jd\xF6\n",
        "<html><body>not found</body></html>\n<p>\n",
    };
    for (const auto& bytes : damaged) {
        putContent(bytes);
        EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u""_s) << bytes.toStdString();
        EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u""_s) << "and again";
        EXPECT_FALSE(QFile::exists(path() + u".damaged"_s)) << "reading changes nothing";

        store.setValue(u"Workstation"_s, u"ODBC"_s, u"Lab"_s);
        EXPECT_EQ(store.value(u"Workstation"_s, u"ODBC"_s), u"Lab"_s);
        EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u""_s) << bytes.toStdString();
        QFile kept(path() + u".damaged"_s);
        ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), bytes);
        kept.close();
        kept.remove();
    }
}

TEST_F(IniSettings, DamagedASecondTimeKeepTheLaterFileBeside) {
    putContent("first damage");
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    putContent("second damage");
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(folder.read(u"KELVANE.ini.damaged"_s), u"second damage"_s);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s);
}

TEST_F(IniSettings, AnEmptyFileIsNoDamage) {
    putContent("");
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s);
    EXPECT_FALSE(QFile::exists(path() + u".damaged"_s));
}

TEST_F(IniSettings, AreStoredInAFolderThatIsNotThereYet) {
    IniSettingsStore deep(folder.path() + u"/not/yet/KELVANE.ini"_s);
    deep.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(deep.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s);
}

TEST_F(IniSettings, ThatCanNotBeReadAreError75) {
    ASSERT_TRUE(QDir().mkpath(path()));
    EXPECT_EQ(errorOf([&] { store.value(u"Defaults"_s, u"Username"_s); }), 75);
    EXPECT_EQ(errorOf([&] { store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s); }), 75);
}

TEST_F(IniSettings, InAFolderThatIsNoneAreError75) {
    folder.write(u"file"_s, "x");
    IniSettingsStore nowhere(folder.path() + u"/file/KELVANE.ini"_s);
    EXPECT_EQ(errorOf([&] { nowhere.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s); }), 75);
    EXPECT_EQ(nowhere.value(u"Defaults"_s, u"Username"_s), u""_s);
}

TEST_F(IniSettings, InAFolderThatTakesNoFileAreError75) {
    const QFile::Permissions readOnly = QFile::ReadOwner | QFile::ExeOwner;
    ASSERT_TRUE(QFile::setPermissions(folder.path(), readOnly));
    const bool everythingIsAllowed = QFile(folder.path() + u"/x"_s).open(QIODevice::WriteOnly);
    // The system's own folder takes none from the superuser either.
    IniSettingsStore elsewhere(u"/proc/KELVANE.ini"_s);
    auto& nowhere = everythingIsAllowed ? elsewhere : store;
    const auto number = errorOf([&] { nowhere.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s); });
    QFile::setPermissions(folder.path(), readOnly | QFile::WriteOwner);
    EXPECT_EQ(number, 75);
}

TEST_F(IniSettings, LockedPermanentlyByAnotherProgramAreError75) {
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    QLockFile other(path() + u".lock"_s);
    ASSERT_TRUE(other.lock());
    EXPECT_EQ(errorOf([&] { store.setValue(u"Defaults"_s, u"Username"_s, u"smith"_s); }), 75);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"jdoe"_s) << "reading needs no lock";
    other.unlock();
    store.setValue(u"Defaults"_s, u"Username"_s, u"smith"_s);
    EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s), u"smith"_s);
}

TEST_F(IniSettings, OnAFullDiskAreError75AndStayAsTheyWere) {
    if (!testing::FullDisk::isPossible)
        GTEST_SKIP() << "a full disk can't be had here";
    store.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    const struct {
        qsizetype size;
        unsigned space;
    } writings[] = {{100'000, 0}, {100'000, 4096}, {10'000, 4096}, {100, 50}};
    for (const auto& [size, space] : writings) {
        SCOPED_TRACE(size);
        const QString large(size, u'x');
        const testing::FullDisk full(space);
        EXPECT_EQ(errorOf([&] { store.setValue(u"Defaults"_s, u"Username"_s, large); }), 75) << space;
        EXPECT_EQ(errorOf([&] { store.setValue(u"Defaults"_s, u"Other"_s, large); }), 75) << space;
        EXPECT_EQ(store.value(u"Defaults"_s, u"Username"_s).left(10), u"jdoe"_s) << space;
        EXPECT_EQ(store.value(u"Defaults"_s, u"Other"_s).left(10), u""_s) << space;
    }
    EXPECT_EQ(content().left(100), u"[Defaults]\nUsername=jdoe\n"_s);

    store.setValue(u"Defaults"_s, u"Username"_s, u"smith"_s);
    EXPECT_EQ(content(), u"[Defaults]\nUsername=smith\n"_s);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"KELVANE.ini"_s});
}

TEST_F(IniSettings, DamagedOnAFullDiskKeepTheFile) {
    if (!testing::FullDisk::isPossible)
        GTEST_SKIP() << "a full disk can't be had here";
    for (const unsigned space : {0U, 4096U}) {
        putContent("damage");
        {
            const testing::FullDisk full(space);
            EXPECT_EQ(errorOf([&] { store.setValue(u"Left"_s, u"x"_s, QString(100'000, u'x')); }), 75);
        }
        EXPECT_EQ(content() + folder.read(u"KELVANE.ini.damaged"_s), u"damage"_s);
        store.setValue(u"Left"_s, u"x"_s, u"105"_s);
        EXPECT_EQ(folder.read(u"KELVANE.ini.damaged"_s), u"damage"_s);
        EXPECT_EQ(store.value(u"Left"_s, u"x"_s), u"105"_s);
        QFile::remove(path() + u".damaged"_s);
    }
}

TEST(DefaultSettings, StandInTheUsersOwnFolderUnderTheApplicationsName) {
    const auto path = IniSettingsStore::defaultPath();
    EXPECT_TRUE(path.startsWith(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)));
    EXPECT_TRUE(path.endsWith(u"/KELVANE.ini"_s));
}

} // namespace kelvane
