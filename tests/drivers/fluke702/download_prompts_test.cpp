#include "tests/drivers/fluke702/download_fixture.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class FlukeDownloadPrompts : public FlukeDownload {
  protected:
    /// The calls that concern messages and the task they stand in.
    QStringList placedPrompts() const {
        return calls().filter(QRegularExpression(u"^MEM(prompt|template|startTask|endTask)"_s));
    }
    static QList<Row> messages(int count) {
        QList<Row> rows;
        for (int i = 1; i <= count; ++i)
            rows << message(u"M%1"_s.arg(i), u"Text %1"_s.arg(i), u"PRE"_s);
        return rows;
    }
};

const QString startTask = u"MEMstartTask(\"I-1\")"_s;
const QString endTask = u"MEMendTask()"_s;

} // namespace

TEST_F(FlukeDownloadPrompts, OfBothKindsStandAroundTheTemplate) {
    const auto pre = message(u"A"_s, u"Before"_s, u"PRE"_s);
    const auto pst = message(u"B"_s, u"After"_s, u"PST"_s);
    const auto defined = [](int key, const QString& text) {
        return u"MEMpromptDefn(\"KEY%1\", \"%2\")"_s.arg(key).arg(text);
    };
    const auto put = [](int key) { return u"MEMprompt(\"KEY%1\")"_s.arg(key); };
    int task = 0;
    const auto run = [&] { return u"MEMtemplate(%1, 0, \"I-1\", \"None\", %1)"_s.arg(task); };
    const struct {
        QList<Row> messages;
        QStringList definitions;
        QList<int> before;
        QList<int> after;
    } cases[] = {
        {{}, {}, {}, {}},
        {{pre}, {u"Before"_s}, {1}, {}},
        {{pst}, {u"After"_s}, {}, {1}},
        {{pre, pst}, {u"Before"_s, u"After"_s}, {1}, {2}},
        {{pst, pre}, {u"After"_s, u"Before"_s}, {2}, {1}},
        {{pre, pre}, {u"Before"_s, u"Before"_s}, {1, 2}, {}},
        {{pre, pst, pre, pst}, {u"Before"_s, u"After"_s, u"Before"_s, u"After"_s}, {1, 3}, {2}},
    };
    for (const auto& testCase : cases) {
        addPrompts(u"I-1"_s, testCase.messages);
        load({transmitter()});
        ++task;
        QStringList expected;
        for (const auto& text : testCase.definitions)
            expected << defined(static_cast<int>(expected.size()) + 1, text);
        expected << startTask;
        for (const int key : testCase.before)
            expected << put(key);
        expected << run();
        for (const int key : testCase.after)
            expected << put(key);
        expected << endTask;
        EXPECT_EQ(placedPrompts(), expected) << "case " << task;
    }
}

TEST_F(FlukeDownloadPrompts, ASecondOneForAfterTheTestIsDefinedAndNoTaskRefersToIt) {
    addPrompts(u"I-1"_s, {message(u"A"_s, u"First"_s, u"PST"_s), message(u"B"_s, u"Second"_s, u"PST"_s)});
    load({transmitter()});
    EXPECT_EQ(placedPrompts(),
              (QStringList{u"MEMpromptDefn(\"KEY1\", \"First\")"_s, u"MEMpromptDefn(\"KEY2\", \"Second\")"_s,
                           startTask, u"MEMtemplate(1, 0, \"I-1\", \"None\", 1)"_s, u"MEMprompt(\"KEY1\")"_s,
                           endTask}));
}

TEST_F(FlukeDownloadPrompts, OfAnotherTypeAreDefinedAndNeverPlaced) {
    addPrompts(u"I-1"_s, {message(u"A"_s, u"a"_s, u"pre"_s), message(u"B"_s, u"b"_s, u""_s),
                          message(u"C"_s, u"c"_s, u"PST "_s)});
    load({transmitter()});
    EXPECT_EQ(argumentsOf(u"MEMpromptDefn"_s).size(), 3);
    EXPECT_EQ(argumentsOf(u"MEMprompt"_s), QStringList());
}

TEST_F(FlukeDownloadPrompts, WithoutATextAreDefinedAndPlaced) {
    addPrompts(u"I-1"_s, {message(u"A"_s, u""_s, u"PRE"_s), {u"B"_s, std::nullopt, u"PST"_s}});
    load({transmitter()});
    EXPECT_EQ(placedPrompts(),
              (QStringList{u"MEMpromptDefn(\"KEY1\", \"\")"_s, u"MEMpromptDefn(\"KEY2\", \"\")"_s, startTask,
                           u"MEMprompt(\"KEY1\")"_s, u"MEMtemplate(1, 0, \"I-1\", \"None\", 1)"_s,
                           u"MEMprompt(\"KEY2\")"_s, endTask}));
}

TEST_F(FlukeDownloadPrompts, HaveTheirMacrosExpandedForTheirInstrument) {
    const auto text = u"$U_NAM$: $OUTPUTLOW$ to $OUTPUTHIGH$ $OUTPUTUNITS$ for 5$, größer als Ω"_s;
    for (const auto& asset : {u"I-1"_s, u"I-2"_s})
        addPrompts(asset, {message(u"A"_s, text, u"PRE"_s)});
    load({transmitter(), instrument(u"mA"_s, 4, 20, u"V"_s, 1, 5)});
    const auto definitions = argumentsOf(u"MEMpromptDefn"_s);
    ASSERT_EQ(definitions.size(), 2);
    EXPECT_TRUE(definitions[0].endsWith(u", \"jdoe: 4 to 20 mA for 5, größer als Ω\""_s));
    EXPECT_TRUE(definitions[1].endsWith(u", \"jdoe: 1 to 5 V for 5, größer als Ω\""_s));
}

TEST_F(FlukeDownloadPrompts, HaveKeysOfTenCharactersOfTheirOwn) {
    addPrompts(u"I-1"_s, messages(51));
    load({transmitter()});
    const QRegularExpression form(u"^\"[0-9A-Z]{10}\"$"_s);
    QSet<QString> keys;
    for (const auto& text : argumentsOf(u"MEMpromptDefn"_s)) {
        const auto key = text.section(u", "_s, 0, 0);
        EXPECT_TRUE(form.match(key).hasMatch()) << key.toStdString();
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), 51);
}

TEST_F(FlukeDownloadPrompts, AreFiftyOneOfAnInstrumentAndOfTheNextOneAgain) {
    addPrompts(u"I-1"_s, messages(51));
    addPrompts(u"I-2"_s, messages(51));
    load({transmitter(), transmitter()});
    EXPECT_EQ(argumentsOf(u"MEMpromptDefn"_s).size(), 102);
    EXPECT_EQ(argumentsOf(u"MEMprompt"_s).size(), 102);
}

TEST_F(FlukeDownloadPrompts, OfOneInstrumentAreForgottenForTheNext) {
    addPrompts(u"I-1"_s, messages(3));
    load({transmitter(), transmitter()});
    EXPECT_EQ(placedPrompts().last(3), (QStringList{u"MEMstartTask(\"I-2\")"_s,
                                                    u"MEMtemplate(2, 0, \"I-2\", \"None\", 2)"_s, endTask}));
}

TEST_F(FlukeDownloadPrompts, AFiftySecondIsReportedAndTheDownloadEndsInWhatTheCallerTakesForSuccess) {
    addList({transmitter(), transmitter(), transmitter()});
    addPrompts(u"I-2"_s, messages(52));
    ui.expectReport(9, u"Module702Interface,Fluke702_download"_s);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(argumentsOf(u"MEMstartTask"_s), QStringList{u"\"I-1\""_s});
    EXPECT_EQ(argumentsOf(u"MEMpromptDefn"_s).size(), 51) << "those before it are defined";
    EXPECT_TRUE(link.calls.last().endsWith(u"\"Text 51\")"_s)) << "nothing is transferred";
    EXPECT_EQ(writes(), QStringList());
    EXPECT_FALSE(ui.busy);
}

TEST_F(FlukeDownloadPrompts, MoreThanTheirListHoldsAreReportedAndNothingIsTransferred) {
    addList({transmitter()});
    addPrompts(u"I-1"_s, messages(252));
    ui.expectReport(9, u"ModuleGlobals,GetPrompts"_s);
    EXPECT_TRUE(download().startsWith(u"I-1: The calibration parameters, test messages"_s));
    EXPECT_EQ(argumentsOf(u"MEMpromptDefn"_s), QStringList());
    EXPECT_EQ(argumentsOf(u"DPCdnlStart"_s), QStringList());
}

} // namespace kelvane::testing
