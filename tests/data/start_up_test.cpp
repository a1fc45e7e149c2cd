#include "data/start_up.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto routineName = u"ModuleGlobals,StartupFunctions"_s;

/// A template as it comes with the neighbouring program, with one row and a body line.
const QByteArray fullTemplate = "# result template\r\n"
                                "rslt_format 1\r\n"
                                "subst$(fn,\" psi\",\" PSIG\")\r\n"
                                "\r\n"
                                "tn$ fn$ tr$\r\n"
                                "behind the body line\r\n";

/// An empty current directory, and a folder of metcal.ini beside it.
class StartUp : public RecordedSession {
  protected:
    StartUp() {
        QDir().mkdir(u"met"_s);
        qputenv("windir", QFile::encodeName(folder.path() + u"/met"_s));
    }
    ~StartUp() override { qunsetenv("windir"); }

    void start(const QString& commandLine = {}) {
        StartupFunctions(session, commandLine);
        EXPECT_FALSE(ui.busy);
        EXPECT_TRUE(ui.hasMetAll());
    }
    /// Starts with this template in the current directory.
    void startWith(const QByteArray& content) {
        folder.write(u"rslt_db.frm"_s, content);
        start();
    }
    void expectWarning() { ui.expectBox(text(TextId::resultTemplateMissing), u"Kelvane"_s, box::warning); }
    SubstRow row(int index) const { return std::as_const(session).SubstTable[index]; }
};

void expectRow(const SubstRow& row, const QString& code, const QString& from, const QString& to) {
    EXPECT_EQ(row.code, code);
    EXPECT_EQ(row.from, from);
    EXPECT_EQ(row.to, to);
}

} // namespace

TEST_F(StartUp, TheCommandLineFlagIsSetByItsWordAnywhereInAnyCase) {
    folder.write(u"rslt_db.frm"_s, fullTemplate);
    const struct {
        QString commandLine;
        bool flag;
    } cases[] = {{u"KFDJ"_s, true},
                 {u"kelvane -style fusion xkfDjx"_s, true},
                 {u"K F D J"_s, false},
                 {QString(), false}};
    for (const auto& testCase : cases) {
        start(testCase.commandLine);
        EXPECT_EQ(session.CommandLineFlag, testCase.flag) << testCase.commandLine.toStdString();
    }
}

TEST_F(StartUp, TheWindowsFolderIsTakenFromTheEnvironment) {
    startWith(fullTemplate);
    EXPECT_EQ(session.WinDir, folder.path() + u"/met"_s);
}

TEST_F(StartUp, TheTemplateOfTheCurrentDirectoryIsRead) {
    startWith(fullTemplate);
    EXPECT_EQ(session.ResultTemplateLine, u"TN$ FN$ TR$"_s);
    expectRow(row(0), u"FN"_s, u" psi"_s, u" PSIG"_s);
    expectRow(row(1), {}, {}, {});
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(StartUp, TheTemplateOfTheCurrentDirectoryWinsOverMetcalIni) {
    folder.write(u"met/metcal.ini"_s, "rslt_template = other.frm\n");
    folder.write(u"other.frm"_s, "the other body\n");
    startWith(fullTemplate);
    EXPECT_EQ(session.ResultTemplateLine, u"TN$ FN$ TR$"_s);
}

TEST_F(StartUp, MetcalIniNamesTheTemplateRelativeOrAbsolute) {
    folder.write(u"other.frm"_s, "the other body\n");
    for (const auto& path : {u"other.frm"_s, folder.path() + u"/other.frm"_s}) {
        session.ResultTemplateLine.clear();
        folder.write(u"met/metcal.ini"_s,
                     "[Startup]\r\nverbose=1\r\n RSLT_Template =  " + QFile::encodeName(path) +
                         "  \r\nrslt_template=missing.frm\r\n");
        start();
        EXPECT_EQ(session.ResultTemplateLine, u"THE OTHER BODY"_s) << path.toStdString();
    }
}

TEST_F(StartUp, ThePathBeginsBehindTheFirstEqualsSign) {
    folder.write(u"a=b.frm"_s, "the other body\n");
    folder.write(u"met/metcal.ini"_s, "rslt_template=a=b.frm");
    start();
    EXPECT_EQ(session.ResultTemplateLine, u"THE OTHER BODY"_s);
}

TEST_F(StartUp, AProgramThatOnlyReadsIsNotWarnedOfAMissingTemplate) {
    EXPECT_FALSE(ModuleGlobals::readResultTemplate(session));
    folder.write(u"met/metcal.ini"_s, "rslt_template = missing.frm\n");
    EXPECT_FALSE(ModuleGlobals::readResultTemplate(session));
    EXPECT_TRUE(session.ResultTemplateLine.isEmpty());
    folder.write(u"rslt_db.frm"_s, fullTemplate);
    EXPECT_TRUE(ModuleGlobals::readResultTemplate(session));
    EXPECT_EQ(session.ResultTemplateLine, u"TN$ FN$ TR$"_s);
}

TEST_F(StartUp, AMissingMetcalIniIsReportedAndEndsTheRoutine) {
    ui.expectReport(53, routineName);
    start();
    EXPECT_EQ(session.ResultTemplateLine, QString());
    EXPECT_TRUE(
        folder.read(u"errors.log"_s)
            .startsWith(u"[2026-03-18 09:30:00] The file \""_s + folder.path() + u"/met/metcal.ini\": "_s))
        << "the log names it";
}

TEST_F(StartUp, AMetcalIniThatIsAFolderIsReported) {
    QDir().mkdir(u"met/metcal.ini"_s);
    ui.expectReport(75, routineName);
    start();
}

TEST_F(StartUp, NoWindowsFolderMeansNoMetcalIni) {
    qunsetenv("windir");
    if (QFile::exists(u"/metcal.ini"_s))
        GTEST_SKIP() << "this machine has one at its root";
    ui.expectReport(53, routineName);
    start();
    EXPECT_EQ(session.WinDir, QString());
}

TEST_F(StartUp, AMissingTemplateGivesTheSameWarningTwice) {
    const QByteArray inis[] = {"[Startup]\n",         "",
                               "rslt_template\n",     "rslt_template=\n",
                               "rslt_template=   \n", "rslt_template=missing.frm\n",
                               "rslt_template=met\n"};
    for (const auto& ini : inis) {
        folder.write(u"met/metcal.ini"_s, ini);
        ui.events.clear();
        expectWarning();
        expectWarning();
        start();
        EXPECT_EQ(session.ResultTemplateLine, QString()) << ini.toStdString();
        EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
    }
}

TEST_F(StartUp, TheWarningComesWithTheNormalPointer) {
    EXPECT_EQ(text(TextId::resultTemplateMissing),
              u"Warning - Cal Result template file not found! Calibration results will not be saved to the "
              "database during this session. Please locate the missing template file and copy to the "
              "Kelvane directory or to the MET/CAL directory and restart Kelvane."_s);
    expectWarning();
    startWith("# nothing\n");
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
}

TEST_F(StartUp, AFolderOfTheTemplatesNameIsNoTemplate) {
    QDir().mkdir(u"rslt_db.frm"_s);
    folder.write(u"met/metcal.ini"_s, "rslt_template=other.frm\n");
    folder.write(u"other.frm"_s, "the other body\n");
    start();
    EXPECT_EQ(session.ResultTemplateLine, u"THE OTHER BODY"_s);
}

TEST_F(StartUp, ATemplateWhoseReadingFailsIsReported) {
    // Opens like any file and fails at the first read.
    const auto unreadable = u"/proc/self/mem"_s;
    if (!QFile::exists(unreadable))
        GTEST_SKIP() << "no such file on this platform";
    folder.write(u"met/metcal.ini"_s, "rslt_template=" + QFile::encodeName(unreadable));
    ui.expectReport(75, routineName);
    start();
    EXPECT_EQ(session.ResultTemplateLine, QString());
}

TEST_F(StartUp, ATemplateWithoutBodyLineGivesOneWarningAndKeepsItsRows) {
    expectWarning();
    startWith("# a comment\r\nsubst$(FN,\"a\",\"b\")\r\nsplit$(x)\r\n");
    EXPECT_EQ(session.ResultTemplateLine, QString());
    expectRow(row(0), u"FN"_s, u"a"_s, u"b"_s);
}

TEST_F(StartUp, AnEmptyTemplateGivesOneWarning) {
    expectWarning();
    startWith("");
}

TEST_F(StartUp, CommentsDirectivesAndShortLinesAreNeverTheBodyLine) {
    const QByteArray passedOver[] = {"body line # with a mark\n",
                                     "a SPLIT$ of fields\n",
                                     "any Subst$ not used\n",
                                     "my rslt here\n",
                                     "farm$ 123456\n",
                                     "RSLT tn$ fn$ tr$\n",
                                     "abcd\n",
                                     "   abcd   \n",
                                     "\n",
                                     "     \n"};
    QByteArray content;
    for (const auto& line : passedOver) {
        content += line;
        session.ResultTemplateLine.clear();
        startWith(line + "the body\n");
        EXPECT_EQ(session.ResultTemplateLine, u"THE BODY"_s) << line.toStdString();
    }
    session.ResultTemplateLine.clear();
    startWith(content + "abcde");
    EXPECT_EQ(session.ResultTemplateLine, u"ABCDE"_s);
}

TEST_F(StartUp, TheBodyLineKeepsItsBlanksAndTabs) {
    startWith("  tn$\t fn$  \r\n");
    EXPECT_EQ(session.ResultTemplateLine, u"  TN$\t FN$  "_s);
}

TEST_F(StartUp, OnlyBlanksAreTrimmedFromAShortLine) {
    startWith("\tabcd\nthe body\n");
    EXPECT_EQ(session.ResultTemplateLine, u"\tABCD"_s);
}

TEST_F(StartUp, SubstitutionRowsAreReadInSmallLettersOnlyAndFromCommentsToo) {
    startWith("SUBST$(A1,\"x\",\"y\")\n"
              "Subst$(A2,\"x\",\"y\")\n"
              "#subst$B1,\"in a comment\",\"read\")\n"
              "subst$(b2,\"\",\"to\")\n"
              "subst$(B3,\"from\",\"\")\n"
              "the body\n"
              "subst$(B4,\"behind\",\"the body\")\n");
    expectRow(row(0), u"B1"_s, u"in a comment"_s, u"read"_s);
    expectRow(row(1), u"B2"_s, u""_s, u"to"_s);
    expectRow(row(2), u"B3"_s, u"from"_s, u""_s);
    expectRow(row(3), {}, {}, {});
}

TEST_F(StartUp, TheCodeOfARowIsTheTwoCharactersAtPositionEight) {
    startWith("subst$(fva,\"x\",\"y\")\n subst$(FN,\"p\",\"q\")\nthe body\n");
    expectRow(row(0), u"FV"_s, u"x"_s, u"y"_s);
    expectRow(row(1), u"(F"_s, u"p"_s, u"q"_s);
}

TEST_F(StartUp, TheThirdStringIsWhateverStandsBeforeTheLastTwoCharacters) {
    startWith("subst$(FN,\"x\",\"a\",\"b\")\nsubst$(TN,\"x\",\"y\") \nthe body\n");
    expectRow(row(0), u"FN"_s, u"x"_s, u"a\",\"b"_s);
    expectRow(row(1), u"TN"_s, u"x"_s, u"y\""_s);
}

TEST_F(StartUp, ARowThatLacksItsQuotesIsReportedAndTheRowsBeforeItStay) {
    for (const QByteArray& bad :
         {QByteArray("subst$(FN,x,y)"), QByteArray("subst$"), QByteArray("subst$(FN,\"x)"),
          QByteArray("subst$(FN,\"x\""), QByteArray("subst$(FN,\"x\",\""), QByteArray("\"\"subst$")}) {
        ui.expectReport(5, routineName);
        startWith("subst$(TN,\"a\",\"b\")\n" + bad + "\nsubst$(TT,\"c\",\"d\")\nthe body\n");
        expectRow(row(0), u"TN"_s, u"a"_s, u"b"_s);
        expectRow(row(1), {}, {}, {});
        EXPECT_EQ(session.ResultTemplateLine, QString()) << bad.toStdString();
    }
}

TEST_F(StartUp, FiveHundredAndOneRowsFitAndTheNextIsReported) {
    QByteArray rows;
    for (int i = 0; i < 501; ++i)
        rows += "subst$(FN,\"a" + QByteArray::number(i) + "\",\"b\")\n";
    startWith(rows + "the body\n");
    EXPECT_EQ(row(500).from, u"a500"_s);
    EXPECT_EQ(session.ResultTemplateLine, u"THE BODY"_s);

    session.ResultTemplateLine.clear();
    ui.expectReport(9, routineName);
    startWith(rows + "subst$(FN,\"a501\",\"b\")\nthe body\n");
    EXPECT_EQ(row(0).from, u"a0"_s);
    EXPECT_EQ(row(500).from, u"a500"_s);
    EXPECT_EQ(session.ResultTemplateLine, QString());
}

TEST_F(StartUp, ASecondStartRefillsTheRowsAndKeepsAnEarlierBodyLine) {
    startWith("subst$(TN,\"a\",\"b\")\nsubst$(TT,\"c\",\"d\")\nthe body\n");
    startWith("subst$(DE,\"e\",\"f\")\n");
    expectRow(row(0), u"DE"_s, u"e"_s, u"f"_s);
    expectRow(row(1), {}, {}, {});
    EXPECT_EQ(session.ResultTemplateLine, u"THE BODY"_s);
    startWith("a new body\n");
    EXPECT_EQ(session.ResultTemplateLine, u"A NEW BODY"_s);
}

TEST_F(StartUp, AMissingTemplateAfterAnEarlierOneGivesOneWarning) {
    session.ResultTemplateLine = u"THE BODY"_s;
    folder.write(u"met/metcal.ini"_s, "");
    expectWarning();
    start();
}

TEST_F(StartUp, LinesAreReadAsUtf8OrElseAsWindows1252) {
    startWith("subst$(FN,\"\xB0"
              "C\",\"\xC2\xB0"
              "C\")\nsubst$(TN,\"\xC2\xB0"
              "F\",\"\xE6\xBA\xAB\")\nm\xE9tre\n");
    expectRow(row(0), u"FN"_s, u"°C"_s, u"Â°C"_s);
    expectRow(row(1), u"TN"_s, u"°F"_s, u"溫"_s);
    EXPECT_EQ(session.ResultTemplateLine, u"MÉTRE"_s);
}

TEST_F(StartUp, ABinaryTemplateIsReadWithoutHarm) {
    QByteArray noise;
    for (int i = 0; i < 65536; ++i)
        noise += static_cast<char>((i * 7919) >> 3);
    noise.replace('#', '-').replace('\n', ' ');
    startWith(noise + '\n');
    EXPECT_EQ(QString(session.ResultTemplateLine).size(), 65536);
}

TEST_F(StartUp, ReadingStopsAtTheBodyLineOfAHugeTemplate) {
    folder.write(u"rslt_db.frm"_s, "the body\n");
    if (!QFile::resize(u"rslt_db.frm"_s, qint64{64} << 30))
        GTEST_SKIP() << "this file system has no files with holes";
    start();
    EXPECT_EQ(session.ResultTemplateLine, u"THE BODY"_s);
}

TEST_F(StartUp, ALineOfManyMegabytesIsReadToItsEnd) {
    startWith("# " + QByteArray(6 << 20, 'x') + "\n" + QByteArray(6 << 20, 'y') + "\n");
    EXPECT_EQ(session.ResultTemplateLine, QString(6 << 20, u'Y'));
}

TEST_F(StartUp, LineEndsOfAnyPlatformAreTaken) {
    startWith("subst$(FN,\"a\",\"b\")\r\nsubst$(TN,\"c\",\"d\")\nthe body");
    expectRow(row(0), u"FN"_s, u"a"_s, u"b"_s);
    expectRow(row(1), u"TN"_s, u"c"_s, u"d"_s);
    EXPECT_EQ(session.ResultTemplateLine, u"THE BODY"_s);
}

} // namespace kelvane::testing
