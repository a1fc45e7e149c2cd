#include "app/command_line.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What a command line is refused with; empty when it is taken.
QString refusalOf(const QStringList& words) {
    try {
        workstationOptions(words);
        return {};
    } catch (const ProgramAnswer& answer) {
        return QString::number(answer.status) + u' ' + answer.text;
    }
}

} // namespace

TEST(CommandLine, NamesTheDevicesOfPorts) {
    using Ports = QHash<QString, QString>;
    const struct {
        QStringList words;
        Ports expected;
    } rows[] = {
        {{}, {}},
        {{u"--port"_s, u"COM1=/dev/ttyUSB0"_s}, {{u"COM1"_s, u"/dev/ttyUSB0"_s}}},
        {{u"--port=com2=/dev/a=b"_s}, {{u"COM2"_s, u"/dev/a=b"_s}}},
        {{u"--port"_s, u"COM1=/a"_s, u"KFDJ"_s, u"--port"_s, u"COM4=/b"_s},
         {{u"COM1"_s, u"/a"_s}, {u"COM4"_s, u"/b"_s}}},
        {{u"--texts"_s, u"--port=COM1=/a"_s, u"--port"_s, u"COM2=/b"_s}, {{u"COM2"_s, u"/b"_s}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(portsOf(workstationOptions(row.words)), row.expected) << row.words.join(u' ').toStdString();
}

TEST(CommandLine, RefusesWhatItDoesNotKnowAndValuesThatAreMissing) {
    const auto noDevice =
        u"2 --port needs one of the ports COM1 to COM4 and its device, such as COM1=/dev/ttyUSB0; see kelvane --help"_s;
    const struct {
        QStringList words;
        QString refusal;
    } rows[] = {
        {{u"--ports=COM1=/a"_s}, u"2 unknown option --ports; see kelvane --help"_s},
        {{u"--worksheet"_s}, u"2 unknown option --worksheet; see kelvane --help"_s},
        {{u"-worksheets"_s}, u"2 unknown option -worksheets; see kelvane --help"_s},
        {{u"--worksheets=no"_s}, u"2 --worksheets takes no value; see kelvane --help"_s},
        {{u"worksheets"_s}, u"2 worksheets is not understood; see kelvane --help"_s},
        {{u"--port"_s}, u"2 --port needs a value; see kelvane --help"_s},
        {{u"--texts"_s}, u"2 --texts needs a value; see kelvane --help"_s},
        {{u"--port"_s, u"COM1"_s}, noDevice},
        {{u"--port"_s, u"=x"_s}, noDevice},
        {{u"--port="_s}, noDevice},
        {{u"--port=COM1="_s}, noDevice},
        {{u"--port=COM5=/a"_s}, noDevice},
        {{u"--port=COM0=/a"_s}, noDevice},
        {{u"--port=COM11=/a"_s}, noDevice},
        {{u"--port=CMO1=/a"_s}, noDevice},
        {{u"--port=1=/a"_s}, noDevice},
        {{u"--port=COM1=/a"_s, u"--port=/dev/ttyUSB0=COM1"_s}, noDevice},
    };
    for (const auto& row : rows)
        EXPECT_EQ(refusalOf(row.words), row.refusal) << row.words.join(u' ').toStdString();
}

TEST(CommandLine, TakesItsMarkAsAWordOfItsOwnAndInOthers) {
    for (const auto* word :
         {"KFDJ", "kfdj", "/KFDJ", "-kfdj", "--KFDJ=1", "xKfDjy", "--texts=KFDJ", "-title=KFDJ"})
        EXPECT_EQ(refusalOf({QString::fromLatin1(word)}), QString()) << word;
}

TEST(CommandLine, LeavesTheToolkitItsOptions) {
    const auto options = workstationOptions({u"-platform"_s, u"offscreen"_s, u"-style=fusion"_s, u"--title"_s,
                                             u"Bench 4"_s, u"-reverse"_s, u"--worksheets"_s});
    EXPECT_TRUE(wantsWorksheets(options));
    EXPECT_EQ(refusalOf({u"-platform"_s}), u"2 -platform needs a value; see kelvane --help"_s);
    try {
        workstationOptions({u"--help"_s});
        FAIL() << "the help was not answered";
    } catch (const ProgramAnswer& answer) {
        EXPECT_FALSE(answer.text.contains(u"--platform"_s));
        for (const auto* option :
             {"--log", "--port=", "--texts=", "--worksheets", "--user-folders", "--help", "--version"})
            EXPECT_TRUE(answer.text.contains(u"\n  "_s + QString::fromLatin1(option))) << option;
    }
}

TEST(CommandLine, HasSwitchesForWorksheetsAndForTheFolder) {
    EXPECT_TRUE(wantsWorksheets(workstationOptions({u"--worksheets"_s, u"--port"_s, u"COM1=/a"_s})));
    EXPECT_FALSE(wantsWorksheets(workstationOptions({})));
    EXPECT_FALSE(wantsWorksheets(workstationOptions({u"--texts"_s, u"--worksheets"_s})));
    EXPECT_TRUE(wantsUserFolder(workstationOptions({u"--user-folders"_s})));
    EXPECT_FALSE(wantsUserFolder(workstationOptions({u"--worksheets"_s})));
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
    for (const auto& words : {QStringList{}, QStringList{u"--port"_s, u"COM1=--texts=strings.txt"_s}}) {
        EXPECT_EQ(overlayTextsOf(workstationOptions(words)), QString());
        EXPECT_EQ(text(TextId::fileMenu), u"File"_s);
    }
}

TEST_F(TextsOfTheCommandLine, NamedFilesLieOverTheProgramsTexts) {
    EXPECT_EQ(overlayTextsOf(workstationOptions({u"--texts"_s, u"strings.txt"_s, u"--texts=german.txt"_s})),
              QString());
    EXPECT_EQ(text(TextId::fileMenu), u"Datei"_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
    EXPECT_EQ(text(TextId::calibrationMenu), u"Calibration"_s);
}

TEST_F(TextsOfTheCommandLine, AFileThatCanNotBeReadIsNamedAndTheOthersCount) {
    EXPECT_EQ(overlayTextsOf(workstationOptions({u"--texts=missing.txt"_s, u"--texts=german.txt"_s})),
              u"The file of texts \"missing.txt\" could not be read."_s);
    EXPECT_EQ(text(TextId::exitCommand), u"Beenden"_s);
}

TEST(CommandLine, PortsOfTheCommandLineComeFirstAndAreNotStored) {
    MemorySettings stored;
    stored.values.insert(u"Ports/COM1"_s, u"/dev/stored1"_s);
    stored.values.insert(u"Ports/COM2"_s, u"/dev/stored2"_s);
    stored.values.insert(u"Defaults/COM1"_s, u"other"_s);
    SettingsWithOptions settings(stored, workstationOptions({u"--port=COM1=/dev/named"_s}));
    EXPECT_EQ(settings.value(u"Ports"_s, u"COM1"_s), u"/dev/named"_s);
    EXPECT_EQ(settings.value(u"Ports"_s, u"COM2"_s), u"/dev/stored2"_s);
    EXPECT_EQ(settings.value(u"Defaults"_s, u"COM1"_s), u"other"_s);
    EXPECT_TRUE(stored.writes.isEmpty());
    settings.setValue(u"Defaults"_s, u"Username"_s, u"jdoe"_s);
    EXPECT_EQ(stored.values.value(u"Defaults/Username"_s), u"jdoe"_s);
}

TEST(CommandLine, SwitchesEveryCommunicationLogOnForItsStartAlone) {
    MemorySettings stored;
    stored.values.insert(u"Log/Fluke 702"_s, u"0"_s);
    SettingsWithOptions without(stored, workstationOptions({}));
    EXPECT_EQ(without.value(u"Log"_s, u"Fluke 702"_s), u"0"_s);
    SettingsWithOptions with(stored, workstationOptions({u"--log"_s}));
    for (const auto& calibrator : {u"Fluke 702"_s, u"Fluke 743/744"_s, u"Crane TorqueStar IVc"_s})
        EXPECT_EQ(with.value(u"Log"_s, calibrator), u"1"_s);
    EXPECT_EQ(with.value(u"Defaults"_s, u"Fluke 702"_s), QString());
    EXPECT_TRUE(stored.writes.isEmpty());
    EXPECT_EQ(refusalOf({u"--log=1"_s}), u"2 --log takes no value; see kelvane --help"_s);
}

} // namespace kelvane::testing
