#include "tests/drivers/fluke74x/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xPrompts : public Fluke74xDownload {
  protected:
    /// The calls that concern messages, and those around which they stand.
    QStringList placedPrompts() const {
        return calls().filter(
            QRegularExpression(u"^(MEM3(prompt|instrCal|startTask|endTask)|STA3(beginOps|evalOp))"_s));
    }
    static QList<Row> messages(int count) {
        QList<Row> rows;
        for (int i = 1; i <= count; ++i)
            rows << message(u"M%1"_s.arg(i), u"Text %1"_s.arg(i), u"PRE"_s);
        return rows;
    }
    static QString defined(int key, const QString& text) {
        return u"MEM3promptDefn(\"KEY%1\", \"%2\", \"ordinary\", \"helvr12\")"_s.arg(key).arg(text);
    }
    /// A reference to the n-th message in the first task.
    static QString placed(int n) {
        return u"MEM3promptTemplate(1, 1, %1, %2, %3)"_s.arg(n).arg(n + 100).arg(n + 200);
    }

    const QString startTask = u"MEM3startTask(0, 0, \"I-1\", \"\")"_s;
    const QString begun = u"STA3beginOps()"_s;
    const QString evaluated = u"STA3evalOp()"_s;
    const QString test = u"MEM3instrCalTemplate(1, 1, 0, 2, 1, 1, 101, 201, 0, 0, 2, \"I-1\", \"\")"_s;
    const QString endTask = u"MEM3endTask()"_s;
};

TEST_F(Fluke74xPrompts, StandBeforeTheStateIsEvaluatedOrBehindTheTemplate) {
    addPrompts(u"I-1"_s, {message(u"A"_s, u"First"_s, u"PST"_s), message(u"B"_s, u"Second"_s, u"PRE"_s),
                          message(u"C"_s, u"Third"_s, u"PRE"_s), message(u"D"_s, u"Fourth"_s, u"PST"_s)});
    load({transmitter()});
    EXPECT_EQ(placedPrompts(), (QStringList{startTask, defined(1, u"First"_s), defined(2, u"Second"_s),
                                            defined(3, u"Third"_s), defined(4, u"Fourth"_s), begun, placed(2),
                                            placed(3), evaluated, test, placed(1), placed(4), endTask}));
}

TEST_F(Fluke74xPrompts, WithoutATextAreDefinedAndNeverPlaced) {
    addPrompts(u"I-1"_s, {message(u"A"_s, u""_s, u"PRE"_s),
                          {u"B"_s, std::nullopt, u"PST"_s},
                          message(u"C"_s, u"Text"_s, u"PRE"_s)});
    load({transmitter()});
    EXPECT_EQ(placedPrompts(), (QStringList{startTask, defined(1, {}), defined(2, {}), defined(3, u"Text"_s),
                                            begun, placed(3), evaluated, test, endTask}));
}

TEST_F(Fluke74xPrompts, OfAnotherTypeAreDefinedAndNeverPlaced) {
    addPrompts(u"I-1"_s, {message(u"A"_s, u"a"_s, u"pre"_s), message(u"B"_s, u"b"_s, u""_s),
                          message(u"C"_s, u"c"_s, u"PST "_s)});
    load({transmitter()});
    EXPECT_EQ(argumentsOf(u"MEM3promptDefn"_s).size(), 3);
    EXPECT_EQ(argumentsOf(u"MEM3promptTemplate"_s), QStringList());
}

TEST_F(Fluke74xPrompts, HaveTheirMacrosExpandedForTheirInstrument) {
    const auto text = u"$U_NAM$: $OUTPUTLOW$ to $OUTPUTHIGH$ $OUTPUTUNITS$ for 5$, größer als Ω"_s;
    for (const auto& asset : {u"I-1"_s, u"I-2"_s})
        addPrompts(asset, {message(u"A"_s, text, u"PRE"_s)});
    load({transmitter(), instrument(u"mA"_s, 4, 20, u"V"_s, 1, 5)});
    const auto definitions = argumentsOf(u"MEM3promptDefn"_s);
    ASSERT_EQ(definitions.size(), 2);
    EXPECT_EQ(definitions[0].section(u'"', 3, 3), u"jdoe: 4 to 20 mA for 5, größer als Ω"_s);
    EXPECT_EQ(definitions[1].section(u'"', 3, 3), u"jdoe: 1 to 5 V for 5, größer als Ω"_s);
}

TEST_F(Fluke74xPrompts, OfOneInstrumentAreForgottenForTheNext) {
    addPrompts(u"I-1"_s, messages(3));
    addPrompts(u"I-3"_s, messages(1));
    load({transmitter(), transmitter(), transmitter()});
    EXPECT_EQ(argumentsOf(u"MEM3promptDefn"_s).size(), 4);
    EXPECT_EQ(argumentsOf(u"MEM3promptTemplate"_s),
              (QStringList{u"1, 1, 1, 101, 201"_s, u"1, 1, 2, 102, 202"_s, u"1, 1, 3, 103, 203"_s,
                           u"3, 26, 4, 104, 204"_s}));
}

TEST_F(Fluke74xPrompts, AreFiftyOneOfAnInstrumentAndOfTheNextOneAgain) {
    addPrompts(u"I-1"_s, messages(51));
    addPrompts(u"I-2"_s, messages(51));
    load({transmitter(), transmitter()});
    EXPECT_EQ(argumentsOf(u"MEM3promptDefn"_s).size(), 102);
    EXPECT_EQ(argumentsOf(u"MEM3promptTemplate"_s).size(), 102);
}

TEST_F(Fluke74xPrompts, AFiftySecondIsReportedAndNothingIsTransferred) {
    addList({transmitter(), transmitter(), transmitter()});
    addPrompts(u"I-2"_s, messages(52));
    ui.expectReport(9, u"Module74xInterface,Fluke74x_download"_s);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(argumentsOf(u"MEM3endTask"_s).size(), 1);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(Fluke74xPrompts, MoreThanTheirListHoldsAreReportedAndNothingIsTransferred) {
    addList({transmitter()});
    addPrompts(u"I-1"_s, messages(252));
    ui.expectReport(9, u"ModuleGlobals,GetPrompts"_s);
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_FALSE(ui.progressShown);
}

} // namespace kelvane::testing
