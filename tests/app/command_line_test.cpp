#include "app/command_line.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(CommandLine, NamesTheDevicesOfPorts) {
    using Ports = QHash<QString, QString>;
    const struct {
        QStringList arguments;
        Ports expected;
    } rows[] = {
        {{u"kelvane"_s}, {}},
        {{u"kelvane"_s, u"--port"_s, u"COM1=/dev/ttyUSB0"_s}, {{u"COM1"_s, u"/dev/ttyUSB0"_s}}},
        {{u"kelvane"_s, u"--port=com2=/dev/a=b"_s}, {{u"COM2"_s, u"/dev/a=b"_s}}},
        {{u"kelvane"_s, u"--port"_s, u"COM1=/a"_s, u"KFDJ"_s, u"--port"_s, u"COM4=/b"_s},
         {{u"COM1"_s, u"/a"_s}, {u"COM4"_s, u"/b"_s}}},
        {{u"kelvane"_s, u"--texts"_s, u"--port=COM1=/a"_s, u"--port"_s, u"COM2=/b"_s},
         {{u"COM2"_s, u"/b"_s}}},
        {{u"kelvane"_s, u"--ports=COM1=/a"_s}, {}},
        {{u"kelvane"_s, u"--port"_s}, {}},
        {{u"kelvane"_s, u"--port"_s, u"COM1"_s}, {}},
        {{u"kelvane"_s, u"--port"_s, u"=x"_s}, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(portsOf(row.arguments), row.expected) << row.arguments.join(u' ').toStdString();
}

TEST(CommandLine, ShowsTheWorksheetsByASwitchOfThatNameAlone) {
    EXPECT_TRUE(wantsWorksheets({u"kelvane"_s, u"--worksheets"_s}));
    EXPECT_TRUE(wantsWorksheets({u"kelvane"_s, u"--port"_s, u"COM1=/a"_s, u"--worksheets"_s}));
    EXPECT_TRUE(wantsWorksheets({u"kelvane"_s, u"--worksheets"_s, u"--port"_s, u"COM1=/a"_s}));
    for (const auto& arguments :
         {QStringList{u"kelvane"_s}, QStringList{u"kelvane"_s, u"worksheets"_s},
          QStringList{u"kelvane"_s, u"--worksheet"_s}, QStringList{u"kelvane"_s, u"--worksheets=no"_s},
          QStringList{u"kelvane"_s, u"--texts"_s, u"--worksheets"_s}})
        EXPECT_FALSE(wantsWorksheets(arguments)) << arguments.join(u' ').toStdString();
}

/// A folder with two files of texts; the texts are the program's own again at the end.
class TextsOfTheCommandLine : public ::testing::Test {
  protected:
    TextsOfTheCommandLine() {
        folder.write(u"strings.txt"_s, "102\tDatei\n");
        folder.write(u"german.txt"_s, "103\tBeenden\n");
    }
    ~TextsOfTheCommandLine() override {
        folder.write(u"own.txt"_s, "102\tFile\n103\tExit\n");
        overlayStrings(u"own.txt"_s);
    }
    OwnFolder folder;
};

TEST_F(TextsOfTheCommandLine, WithoutTheOptionNoFileOfTheFolderCounts) {
    for (const auto& arguments : {QStringList{u"kelvane"_s}, QStringList{u"kelvane"_s, u"strings.txt"_s},
                                  QStringList{u"kelvane"_s, u"--texts"_s},
                                  QStringList{u"kelvane"_s, u"--port"_s, u"--texts=strings.txt"_s}}) {
        EXPECT_EQ(overlayTextsOf(arguments), QString());
        EXPECT_EQ(text(TextId::fileMenu), u"File"_s);
    }
}

TEST_F(TextsOfTheCommandLine, NamedFilesLieOverTheProgramsTexts) {
    EXPECT_EQ(overlayTextsOf({u"kelvane"_s, u"--texts"_s, u"strings.txt"_s, u"--texts=german.txt"_s}),
              QString());
    EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
    EXPECT_EQ(text(TextId::calibrationMenu), u"Calibration"_s);
}

TEST_F(TextsOfTheCommandLine, AFileThatCanNotBeReadIsNamedAndTheOthersCount) {
    EXPECT_EQ(overlayTextsOf({u"kelvane"_s, u"--texts=missing.txt"_s, u"--texts=german.txt"_s}),
              u"The file of texts \"missing.txt\" could not be read."_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
}

TEST(CommandLine, PortsOfTheCommandLineComeFirstAndAreNotStored) {
    MemorySettings stored;
    stored.values.insert(u"Ports/COM1"_s, u"/dev/stored1"_s);
    stored.values.insert(u"Ports/COM2"_s, u"/dev/stored2"_s);
    stored.values.insert(u"Defaults/COM1"_s, u"other"_s);
    SettingsWithPorts settings(stored, {{u"COM1"_s, u"/dev/named"_s}});
    EXPECT_EQ(settings.value(u"Ports"_s, u"COM1"_s), u"/dev/named"_s);
    EXPECT_EQ(settings.value(u"Ports"_s, u"COM2"_s), u"/dev/stored2"_s);
    EXPECT_EQ(settings.value(u"Defaults"_s, u"COM1"_s), u"other"_s);
    EXPECT_TRUE(stored.writes.isEmpty());
    settings.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(stored.values.value(u"Defaults/Username"_s), u"jdoe"_s);
}

} // namespace kelvane::testing
