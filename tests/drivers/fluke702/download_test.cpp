#include "testkit/shown_in.h"
#include "tests/drivers/fluke702/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(FlukeDownload, OneInstrumentIsWrittenByExactlyTheseCalls) {
    addList({transmitter()});
    addPrompts(u"I-1"_s,
               {message(u"A"_s, u"Isolate it."_s, u"PRE"_s), message(u"B"_s, u"Open it."_s, u"PST"_s),
                message(u"C"_s, u"Vent it."_s, u"PRE"_s)});
    EXPECT_EQ(download(), QString());
    const QStringList expected{u"MEMclear()"_s,
                               u"DPCclose()"_s,
                               u"MEMpromptDefn(\"KEY1\", \"Isolate it.\")"_s,
                               u"MEMpromptDefn(\"KEY2\", \"Open it.\")"_s,
                               u"MEMpromptDefn(\"KEY3\", \"Vent it.\")"_s,
                               u"MEMstrategyDefn(\"LINEARITY\", 3, \"0 0.5 1\")"_s,
                               u"STAinit()"_s,
                               u"STAsetTempUnits(\"celsius\")"_s,
                               u"STAsetTref(\"measure\", 0)"_s,
                               u"STAsetTempStd(\"its90\")"_s,
                               u"STAsetPresUnits(\"psi\")"_s,
                               u"STAsetOutput(\"pressure\", \"\", 0, 0)"_s,
                               u"STAsetInput(\"current\", \"\")"_s,
                               u"STAsetInputRange(0, 0.022)"_s,
                               u"STAsetLoopPower(\"24v\")"_s,
                               u"STAsetOutputScale(100, 0)"_s,
                               u"STAsetInputScale(0.02, 0.004)"_s,
                               u"STAsetTestTolerance(0.5)"_s,
                               u"STAsave()"_s,
                               u"MEMstartTask(\"I-1\")"_s,
                               u"MEMprompt(\"KEY1\")"_s,
                               u"MEMprompt(\"KEY3\")"_s,
                               u"MEMtemplate(1, 0, \"I-1\", \"None\", 1)"_s,
                               u"MEMprompt(\"KEY2\")"_s,
                               u"MEMendTask()"_s};
    EXPECT_EQ(calls(), expected + transfer);
}

TEST_F(FlukeDownload, AllIsGatheredBeforeTheLibraryIsTouchedAndRegisteredAfterTheTransfer) {
    addList({transmitter(), transmitter()});
    addPrompts(u"I-1"_s, {message(u"A"_s, u"Isolate it."_s, u"PRE"_s)});
    link.onCall = [this](const QString& operation) { script.statements << operation; };
    EXPECT_EQ(download(), QString());
    const QStringList state{
        u"STAinit"_s,         u"STAsetTempUnits"_s,   u"STAsetTref"_s,       u"STAsetTempStd"_s,
        u"STAsetPresUnits"_s, u"STAsetOutput"_s,      u"STAsetInput"_s,      u"STAsetInputRange"_s,
        u"STAsetLoopPower"_s, u"STAsetOutputScale"_s, u"STAsetInputScale"_s, u"STAsetTestTolerance"_s,
        u"STAsave"_s};
    const QStringList calibrator{selectSerial(link.serial), selectMtag(u"F-702"_s)};
    const auto values = [this](const QString& asset) {
        return QStringList{selectParams(asset), selectPoints(asset), selectRepetitions(asset),
                           selectPointList(asset)};
    };
    const auto rows = [](const QString& asset) {
        return QStringList{
            u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('6841207',now(*),'K%1','jdoe');commit"_s
                .arg(asset),
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('900',now(*),'K%1');commit"_s
                .arg(asset)};
    };
    QStringList expected{selectPackage(u"TAG"_s), selectMembers(u"TAG"_s), selectParams(u"I-1"_s),
                         selectParams(u"I-2"_s),  u"MEMclear"_s,           u"DPCclose"_s};
    expected << selectPrompts(u"I-1"_s) << u"MEMpromptDefn"_s << values(u"I-1"_s) << u"MEMstrategyDefn"_s
             << state << u"MEMstartTask"_s << u"MEMprompt"_s << u"MEMtemplate"_s << u"MEMendTask"_s;
    expected << selectPrompts(u"I-2"_s) << values(u"I-2"_s) << u"MEMstrategyDefn"_s << state
             << u"MEMstartTask"_s << u"MEMtemplate"_s << u"MEMendTask"_s;
    expected << u"DPCclose"_s << u"DPCopen"_s << u"DPCget70x"_s << selectSerial(link.serial)
             << u"DPCdnlStart"_s << u"DPCclose"_s;
    expected
        << calibrator
        << u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '6841207';commit"_s
        << u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '900';commit"_s
        << calibrator << rows(u"I-1"_s) << calibrator << rows(u"I-2"_s);
    EXPECT_EQ(script.statements, expected);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(FlukeDownload, TheRegistryHoldsTheInstrumentsInTheOrderOfTheList) {
    load(QList<CalParamRecord>(4, transmitter()));
    EXPECT_EQ(registeredInstruments(), (QStringList{u"KI-1"_s, u"KI-2"_s, u"KI-3"_s, u"KI-4"_s}));
    EXPECT_EQ(argumentsOf(u"MEMstartTask"_s),
              (QStringList{u"\"I-1\""_s, u"\"I-2\""_s, u"\"I-3\""_s, u"\"I-4\""_s}));
}

TEST_F(FlukeDownload, AnInstrumentTwiceInThePackageIsTwoTasks) {
    addList({transmitter()});
    addPackage(u"TAG"_s, {u"I-1"_s, u"I-1"_s});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(argumentsOf(u"MEMtemplate"_s),
              (QStringList{u"1, 0, \"I-1\", \"None\", 1"_s, u"2, 0, \"I-1\", \"None\", 2"_s}));
}

TEST_F(FlukeDownload, EachInstrumentHasItsOwnStrategyAndStateAlsoWhenTheyShareATestStrategy) {
    load({transmitter(), transmitter()});
    EXPECT_EQ(argumentsOf(u"MEMstrategyDefn"_s), QStringList(2, u"\"LINEARITY\", 3, \"0 0.5 1\""_s));
    EXPECT_EQ(argumentsOf(u"MEMtemplate"_s),
              (QStringList{u"1, 0, \"I-1\", \"None\", 1"_s, u"2, 0, \"I-2\", \"None\", 2"_s}));
}

TEST_F(FlukeDownload, AnEmptyListTransfersAnEmptyImageAndEmptiesTheRegistryOfThatCalibrator) {
    load({});
    EXPECT_EQ(link.calls, (QStringList{u"MEMclear()"_s, u"DPCclose()"_s} + transfer));
    EXPECT_EQ(
        writes(),
        (QStringList{
            u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '6841207';commit"_s,
            u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '900';commit"_s}));
}

TEST_F(FlukeDownload, AnUnknownPackageIsAnEmptyList) {
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(link.calls, (QStringList{u"MEMclear()"_s, u"DPCclose()"_s} + transfer));
}

TEST_F(FlukeDownload, WithoutItsLibraryNothingHappensAtAll) {
    addList({transmitter()});
    link.reasonMissing = u"The library is not there."_s;
    EXPECT_EQ(download(), u"The library is not there."_s);
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(FlukeDownload, ACalibratorWithoutARecordIsStillLoadedAfterAWarning) {
    addList({transmitter()});
    script.answers.remove(selectSerial(link.serial));
    ui.expectBox(
        u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created before uploading results."_s,
        u"Download Task Package to Fluke 702"_s, box::warning);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(registeredInstruments(), QStringList{u"KI-1"_s});
}

TEST_F(FlukeDownload, TheStrategysNameIsTheFirstThirteenCharactersUpperCased) {
    const struct {
        QString stored;
        QString name;
    } cases[] = {
        {u""_s, u""_s},
        {u"5 point up"_s, u"5 POINT UP"_s},
        {u"linearity fiv"_s, u"LINEARITY FIV"_s},
        {u"linearity five"_s, u"LINEARITY FIV"_s},
        {u"linearity five point"_s, u"LINEARITY FIV"_s},
        {u"prüfung größe 1"_s, u"PRÜFUNG GRÖßE"_s},
        {u"линейность пять точек"_s, u"ЛИНЕЙНОСТЬ ПЯ"_s},
        {u"o'clock \"x\""_s, u"O'CLOCK \"X\""_s},
    };
    for (const auto& testCase : cases) {
        auto record = transmitter();
        record.tp_name = testCase.stored;
        load({record});
        EXPECT_EQ(argumentsOf(u"MEMstrategyDefn"_s),
                  QStringList{u'"' + testCase.name + u"\", 3, \"0 0.5 1\""_s});
    }
}

TEST_F(FlukeDownload, AStrategyIsDefinedForOneToFiftyPointsAndItsIdIsZeroOtherwise) {
    const struct {
        int points;
        int repetitions;
        int defined;
    } cases[] = {{1, 1, 1},  {50, 1, 50}, {25, 2, 50}, {51, 1, 0},
                 {17, 3, 0}, {20, 3, 0},  {0, 1, 0},   {5, 0, 0}};
    for (const auto& testCase : cases) {
        addList({transmitter()});
        QStringList percentages;
        QStringList fractions;
        for (int i = 0; i < testCase.points; ++i) {
            percentages << QString::number(i * 100 / 64.0);
            for (int take = 0; take < testCase.repetitions; ++take)
                fractions << QString::number(i / 64.0);
        }
        addPoints(u"I-1"_s, percentages, testCase.repetitions);
        link.calls.clear();
        EXPECT_EQ(download(), QString());
        const auto strategies = argumentsOf(u"MEMstrategyDefn"_s);
        const auto task = argumentsOf(u"MEMtemplate"_s).value(0);
        if (testCase.defined > 0) {
            EXPECT_EQ(
                strategies,
                QStringList{u"\"LINEARITY\", %1, \"%2\""_s.arg(testCase.defined).arg(fractions.join(u' '))});
            EXPECT_FALSE(task.startsWith(u"0,"_s)) << testCase.points;
        } else {
            EXPECT_EQ(strategies, QStringList());
            EXPECT_TRUE(task.startsWith(u"0, 0, \"I-1\""_s)) << task.toStdString();
        }
    }
}

TEST_F(FlukeDownload, SixtyPointsMakeNoStrategyAndTheLibraryDecidesWhatToSayToThat) {
    addList({transmitter()});
    addPoints(u"I-1"_s, QStringList(20, u"50"_s), 3);
    link.answer(u"MEMtemplate"_s, 2014);
    EXPECT_EQ(download(), u"MEMlist id out of range or invalid (DPCERR_MEMID)"_s);
    EXPECT_EQ(argumentsOf(u"MEMstrategyDefn"_s), QStringList());
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(FlukeDownload, MorePointsThanTheListHoldsAreReportedAndNothingIsTransferred) {
    addList({transmitter()});
    addPoints(u"I-1"_s, QStringList(101, u"50"_s), 2);
    ui.expectReport(9, u"ModuleGlobals,GetTestPointList"_s);
    EXPECT_TRUE(download().startsWith(u"I-1: The calibration parameters"_s));
    EXPECT_EQ(argumentsOf(u"DPCdnlStart"_s), QStringList());
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(FlukeDownload, TheTagIsTheFirstTwentyNineCharactersOfTheAssetNumber) {
    const QString number = u"PLANT-4/UNIT-12/LOOP-0815/PT-101A"_s;
    const struct {
        QString asset;
        QString tag;
    } cases[] = {
        {number.left(28), u"PLANT-4/UNIT-12/LOOP-0815/PT"_s},
        {number.left(29), u"PLANT-4/UNIT-12/LOOP-0815/PT-"_s},
        {number.left(30), u"PLANT-4/UNIT-12/LOOP-0815/PT-"_s},
        {number + u"-2"_s, u"PLANT-4/UNIT-12/LOOP-0815/PT-"_s},
        {u"ΠΙΕΣΗ-Größe-Датчик-№-0815-Ω-17-end"_s, u"ΠΙΕΣΗ-Größe-Датчик-№-0815-Ω-1"_s},
    };
    for (const auto& testCase : cases) {
        addInstrument(testCase.asset, transmitter());
        addPackage(u"TAG"_s, {testCase.asset});
        link.calls.clear();
        script.statements.clear();
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(argumentsOf(u"MEMstartTask"_s), QStringList{u'"' + testCase.tag + u'"'});
        EXPECT_EQ(argumentsOf(u"MEMtemplate"_s).value(0).section(u'"', 1, 1), testCase.tag);
        EXPECT_EQ(registeredInstruments(), QStringList{u'K' + testCase.asset})
            << "the registry has the whole key";
    }
}

TEST_F(FlukeDownload, AnInstrumentWithoutASerialNumberHasTheWordNone) {
    serials = {{u"I-1"_s, u"V88101"_s}, {u"I-2"_s, u""_s}};
    load(QList<CalParamRecord>(3, transmitter()));
    const auto templates = argumentsOf(u"MEMtemplate"_s);
    ASSERT_EQ(templates.size(), 3);
    EXPECT_EQ(templates[0], u"1, 0, \"I-1\", \"V88101\", 1"_s);
    EXPECT_EQ(templates[1], u"2, 0, \"I-2\", \"None\", 2"_s) << "an empty one";
    EXPECT_EQ(templates[2], u"3, 0, \"I-3\", \"None\", 3"_s) << "a null";
}

TEST_F(FlukeDownload, TheWordForAMissingSerialNumberIsReadOnTheCalibratorInTheUsersLanguage) {
    const ShownIn german(u"de"_s);
    load({transmitter()});
    EXPECT_EQ(argumentsOf(u"MEMtemplate"_s), QStringList{u"1, 0, \"I-1\", \"Keine\", 1"_s});
}

TEST_F(FlukeDownload, TheToleranceIsTheTightestOfSpanOverAllPointsIn32Bits) {
    auto record = transmitter();
    record.neg_span_pct = 0.3F;
    record.pos_span_pct = 0.7F;
    load({record});
    EXPECT_EQ(argumentsOf(u"STAsetTestTolerance"_s), QStringList{u"0.3"_s});
    script.answers.remove(selectPoints(u"I-1"_s));
    link.calls.clear();
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(argumentsOf(u"STAsetTestTolerance"_s), QStringList{u"10000000"_s})
        << "a strategy without points";
}

TEST_F(FlukeDownload, FiveHundredAndOneInstrumentsFillTheListToItsEnd) {
    load(QList<CalParamRecord>(501, transmitter()));
    EXPECT_EQ(argumentsOf(u"MEMtemplate"_s).last(), u"501, 0, \"I-501\", \"None\", 501"_s);
    EXPECT_EQ(registeredInstruments().last(), u"KI-501"_s);
}

TEST_F(FlukeDownload, AFurtherInstrumentIsReportedByTheAssetListAndTheCalibratorIsLeftAlone) {
    addList(QList<CalParamRecord>(502, transmitter()));
    ui.expectReport(9, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_TRUE(download().startsWith(u"The instruments of the download could not be read"_s));
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(writes(), QStringList());
}

} // namespace kelvane::testing
