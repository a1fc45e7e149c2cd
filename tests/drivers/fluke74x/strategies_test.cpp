#include "drivers/link_library.h"
#include "tests/drivers/fluke74x/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class Fluke74xStrategies : public Fluke74xDownload {
  protected:
    /// The calls for an instrument's own strategy: those between its state and its template.
    QStringList ownStrategy(int n = 1) const {
        QStringList own;
        int state = 0;
        bool within = false;
        for (const auto& call : link.calls) {
            if (call == u"STA3freeOps()")
                within = ++state == n;
            else if (call.startsWith(u"MEM3instrCalTemplate("_s))
                within = false;
            else if (within)
                own << call;
        }
        return own;
    }
    static CalParamRecord named(const QString& strategy) {
        auto record = transmitter();
        record.tp_name = strategy;
        return record;
    }
    /// The two strategy references and the id that the n-th template is given.
    QString referencesAndId(int n = 1) const { return templateOf(n).sliced(2, 3).join(u' '); }
};

TEST_F(Fluke74xStrategies, AnOwnOneIsNamedByTheFirstFifteenCharactersUpperCased) {
    const struct {
        QString stored;
        QString name;
    } rows[] = {
        {u""_s, u""_s},
        {u"5 point up"_s, u"5 POINT UP"_s},
        {u"linearity five "_s, u"LINEARITY FIVE "_s},
        {u"linearity five point"_s, u"LINEARITY FIVE "_s},
        {u"linearity-five-point"_s, u"LINEARITY-FIVE-"_s},
        {u"prüfung größe 12 x"_s, u"PRÜFUNG GRÖßE 1"_s},
        {u"o'clock \"x\""_s, u"O'CLOCK \"X\""_s},
    };
    for (const auto& row : rows) {
        load({named(row.stored)});
        EXPECT_EQ(ownStrategy().size(), 2);
        EXPECT_EQ(ownStrategy().value(0), u"MEM3findStrategyDefn(1, \"%1\")"_s.arg(row.name));
        EXPECT_TRUE(ownStrategy().value(1).endsWith(u", \"%1\", \"0 0.5 1\", 3)"_s.arg(row.name)));
    }
}

TEST_F(Fluke74xStrategies, IsDefinedFor1To50PointsOnly) {
    const struct {
        int points;
        int repetitions;
        int defined;
    } rows[] = {{1, 1, 1},  {50, 1, 50}, {25, 2, 50}, {51, 1, 0},
                {17, 3, 0}, {20, 3, 0},  {0, 1, 0},   {5, 0, 0}};
    for (const auto& row : rows) {
        addList({transmitter()});
        QStringList percentages;
        QStringList fractions;
        for (int i = 0; i < row.points; ++i) {
            percentages << QString::number(i * 100 / 64.0);
            for (int take = 0; take < row.repetitions; ++take)
                fractions << QString::number(i / 64.0);
        }
        addPoints(u"I-1"_s, percentages, row.repetitions);
        link.calls.clear();
        EXPECT_EQ(download(), QString());
        const auto own = ownStrategy();
        if (row.defined > 0) {
            EXPECT_EQ(own.size(), 2);
            EXPECT_TRUE(own.value(1).endsWith(
                u"\"LINEARITY\", \"%1\", %2)"_s.arg(fractions.join(u' ')).arg(row.defined)))
                << own.value(1).toStdString();
            EXPECT_NE(templateOf().value(4), u"0"_s) << row.points;
        } else {
            EXPECT_EQ(own, QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY\")"_s});
            EXPECT_EQ(templateOf().value(4), u"0"_s) << row.points;
        }
    }
}

TEST_F(Fluke74xStrategies, Of51PointsTheTemplateHasNoIdAndTheReferencesThatWereFilledLast) {
    addList({transmitter(), named(u"LONG"_s), named(u"LONG"_s)});
    for (const auto& asset : {u"I-2"_s, u"I-3"_s})
        addPoints(asset, QStringList(51, u"50"_s), 1);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(referencesAndId(1), u"0 2 1"_s) << "none found yet, the first one defined";
    EXPECT_EQ(referencesAndId(2), u"0 13 0"_s) << "the last standard strategy of the first task";
    EXPECT_EQ(referencesAndId(3), u"0 25 0"_s) << "and that of the second";
}

TEST_F(Fluke74xStrategies, ASecondOneOfTheSameFirst15CharactersTakesThePointsOfTheFirst) {
    addList({named(u"Linearity-Check-up"_s), named(u"LINEARITY-CHECK-DOWN"_s), named(u"other"_s)});
    addPoints(u"I-2"_s, {u"100"_s, u"0"_s}, 1);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(ownStrategy(1),
              (QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY-CHECK\")"_s,
                           u"MEM3strategyDefn(1, 1, \"LINEARITY-CHECK\", \"0 0.5 1\", 3)"_s}));
    EXPECT_EQ(ownStrategy(2), QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY-CHECK\")"_s});
    EXPECT_EQ(referencesAndId(2), u"101 13 1"_s);
    // The third task's atom is 26: eleven strategies and its own atom have been given out since the second.
    EXPECT_EQ(ownStrategy(3), (QStringList{u"MEM3findStrategyDefn(1, \"OTHER\")"_s,
                                           u"MEM3strategyDefn(3, 26, \"OTHER\", \"0 0.5 1\", 3)"_s}));
    EXPECT_EQ(referencesAndId(3), u"101 27 24"_s) << "found last, defined last";
}

TEST_F(Fluke74xStrategies, OneThatIsInTheImageIsFoundEvenFor51Points) {
    addList({transmitter(), transmitter()});
    addPoints(u"I-2"_s, QStringList(51, u"50"_s), 1);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(ownStrategy(2), QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY\")"_s});
    EXPECT_EQ(referencesAndId(2), u"101 13 1"_s);
}

TEST_F(Fluke74xStrategies, TheStatusOfFindingDecides) {
    // The status, whether a box is shown, whether the download goes on, and whether the strategy is defined.
    const struct {
        qint16 status;
        bool shown, goesOn, defines;
    } rows[] = {{0, false, true, false},     {2001, false, true, true},   {100, true, true, false},
                {1999, true, true, false},   {1, false, true, false},     {2000, false, false, false},
                {2002, false, false, false}, {2005, false, false, false}, {2017, false, false, false}};
    for (const auto& row : rows) {
        addList({transmitter(), transmitter()});
        link.calls.clear();
        script.statements.clear();
        link.answer(u"MEM3findStrategyDefn"_s, row.status, 2);
        if (row.shown)
            ui.expectBox(u"I-2: "_s, u"Download Procedures To Calibrator"_s, box::information);
        const auto result = download();
        EXPECT_TRUE(ui.hasMetAll()) << row.status;
        EXPECT_EQ(ownStrategy(2).size(), row.defines ? 2 : 1) << row.status;
        EXPECT_EQ(argumentsOf(u"MEM3instrCalTemplate"_s).size(), row.goesOn ? 2 : 1) << row.status;
        EXPECT_EQ(registeredInstruments().size(), row.goesOn ? 2 : 0) << row.status;
        EXPECT_EQ(result.isEmpty(), row.goesOn || row.status == 2000 || row.status == 2017) << row.status;
    }
}

TEST_F(Fluke74xStrategies, ManyPointsAreLeftToTheLibrary) {
    addList({transmitter()});
    addPoints(u"I-1"_s, QStringList(20, u"50"_s), 3);
    link.answer(u"MEM3instrCalTemplate"_s, 2006);
    EXPECT_EQ(download(), u"Illegal or Invalid Argument (DPC3ERR_BAD_ARG)"_s);
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(Fluke74xStrategies, MorePointsThanTheListHoldsAreReportedAndNothingIsTransferred) {
    addList({transmitter()});
    addPoints(u"I-1"_s, QStringList(101, u"50"_s), 2);
    ui.expectReport(9, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_EQ(download(), instrumentUnread);
    EXPECT_EQ(argumentsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(registeredInstruments(), QStringList());
}

// The eleven standard strategies.

TEST_F(Fluke74xStrategies, TheStandardOnesAreNamedByTheBytes140And141AndTheirNumberOfPoints) {
    load({transmitter()});
    const auto definitions = argumentsOf(u"MEM3strategyDefn"_s).sliced(1);
    QByteArrayList names;
    for (const auto& definition : definitions)
        names << QByteArray(TextIn(definition.section(u'"', 1, 1)));
    EXPECT_EQ(names, (QByteArrayList{"\x8C"
                                     "2",
                                     "\x8D"
                                     "2",
                                     "\x8C"
                                     "3",
                                     "\x8D"
                                     "3",
                                     "\x8C\x8D"
                                     "3",
                                     "\x8C"
                                     "5",
                                     "\x8D"
                                     "5",
                                     "\x8C\x8D"
                                     "5",
                                     "\x8C"
                                     "11",
                                     "\x8D"
                                     "11",
                                     "\x8C\x8D"
                                     "11"}));
}

TEST_F(Fluke74xStrategies, TheStandardOnesAreDefinedForEveryInstrument) {
    load(QList<CalParamRecord>(4, transmitter()));
    EXPECT_EQ(argumentsOf(u"MEM3strategyDefn"_s).size(), 1 + 4 * 11);
    EXPECT_EQ(argumentsOf(u"MEM3findStrategyDefn"_s).size(), 4) << "they are not looked for";
}

TEST_F(Fluke74xStrategies, AnOwnOneOfAStandardNameIsFoundFromTheSecondTaskOn) {
    addList({transmitter(), named(u"\u01522"_s)});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(ownStrategy(2), QStringList{u"MEM3findStrategyDefn(1, \"\u01522\")"_s});
    EXPECT_EQ(referencesAndId(2), u"102 13 2"_s);
}

} // namespace kelvane::testing
