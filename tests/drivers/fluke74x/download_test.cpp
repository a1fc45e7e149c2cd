#include "tests/drivers/fluke74x/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The calls that write the standard strategies into a task.
QStringList standardStrategies(int task, int atom) {
    const struct {
        QString name;
        QString points;
        int count;
    } rows[] = {
        {u"\u01522"_s, u"0 1"_s, 2},
        {u"\u008D2"_s, u"1 0"_s, 2},
        {u"\u01523"_s, u"0 0.5 1"_s, 3},
        {u"\u008D3"_s, u"1 0.5 0"_s, 3},
        {u"\u0152\u008D3"_s, u"0 0.5 1 0.5 0"_s, 5},
        {u"\u01525"_s, u"0 0.25 0.5 0.75 1"_s, 5},
        {u"\u008D5"_s, u"1 0.75 0.5 0.25 0"_s, 5},
        {u"\u0152\u008D5"_s, u"0 0.25 0.5 0.75 1 0.75 0.5 0.25 0"_s, 9},
        {u"\u015211"_s, u"0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1"_s, 11},
        {u"\u008D11"_s, u"1 0.9 0.8 0.7 0.6 0.5 0.4 0.3 0.2 0.1 0"_s, 11},
        {u"\u0152\u008D11"_s,
         u"0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1 0.9 0.8 0.7 0.6 0.5 0.4 0.3 0.2 0.1 0"_s, 21},
    };
    QStringList calls;
    for (const auto& row : rows)
        calls << u"MEM3strategyDefn(%1, %2, \"%3\", \"%4\", %5)"_s.arg(task).arg(atom).arg(
            row.name, row.points, QString::number(row.count));
    return calls;
}

/// The state of the transmitter.
const QStringList transmitterState{
    u"STA3beginOps()"_s,
    u"STA3initOp()"_s,
    u"STA3setMappedOp(\"root\", \"mcMode\", \"Current\")"_s,
    u"STA3setMappedOp(\"root\", \"scMode\", \"Pressure\")"_s,
    u"STA3setMappedOp(\"root\", \"loop\", \"Enabled 24V\")"_s,
    u"STA3setMappedOp(\"root\", \"tempstd\", \"ITS-90\")"_s,
    u"STA3setUnitOp(\"root\", \"defaultPres\", \"psi\")"_s,
    u"STA3setUnitOp(\"root\", \"defaultTemp\", \"Celsius\")"_s,
    u"STA3setMappedOp(\"root\", \"mcDamping\", \"On\")"_s,
    u"STA3setMappedOp(\"root\", \"scDamping\", \"On\")"_s,
    u"STA3setFloatOp(\"root\", \"mUutZero\", 0.004)"_s,
    u"STA3setFloatOp(\"root\", \"mUutFS\", 0.02)"_s,
    u"STA3setFloatOp(\"root\", \"sUutZero\", 0)"_s,
    u"STA3setFloatOp(\"root\", \"sUutFS\", 100)"_s,
    u"STA3setFloatOp(\"root\", \"tol\", 0.5)"_s,
    u"STA3setMappedOp(\"root\", \"cError\", \"Normal\")"_s,
};
const QStringList stateSaved{u"STA3evalOp()"_s, u"STA3saveOps()"_s, u"STA3freeOps()"_s};

} // namespace

TEST_F(Fluke74xDownload, OneInstrumentIsWrittenByExactlyTheseCalls) {
    serials = {{u"I-1"_s, u"V88101"_s}};
    addList({transmitter()});
    addPrompts(u"I-1"_s,
               {message(u"A"_s, u"Isolate it."_s, u"PRE"_s), message(u"B"_s, u"Open it."_s, u"PST"_s),
                message(u"C"_s, u"Vent it."_s, u"PRE"_s), message(u"D"_s, u"Tag it."_s, u"PST"_s)});
    EXPECT_EQ(download(), QString());
    const auto expected =
        QStringList{u"MEM3clear()"_s} + firstHalfCalls +
        QStringList{u"MEM3startTask(0, 0, \"I-1\", \"\")"_s,
                    u"MEM3promptDefn(\"KEY1\", \"Isolate it.\", \"ordinary\", \"helvr12\")"_s,
                    u"MEM3promptDefn(\"KEY2\", \"Open it.\", \"ordinary\", \"helvr12\")"_s,
                    u"MEM3promptDefn(\"KEY3\", \"Vent it.\", \"ordinary\", \"helvr12\")"_s,
                    u"MEM3promptDefn(\"KEY4\", \"Tag it.\", \"ordinary\", \"helvr12\")"_s} +
        transmitterState +
        QStringList{u"MEM3promptTemplate(1, 1, 1, 101, 201)"_s, u"MEM3promptTemplate(1, 1, 3, 103, 203)"_s} +
        stateSaved +
        QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY\")"_s,
                    u"MEM3strategyDefn(1, 1, \"LINEARITY\", \"0 0.5 1\", 3)"_s,
                    u"MEM3instrCalTemplate(1, 1, 0, 2, 1, 1, 101, 201, 0, 0, 2, \"I-1\", \"V88101\")"_s,
                    u"MEM3promptTemplate(1, 1, 2, 102, 202)"_s, u"MEM3promptTemplate(1, 1, 4, 104, 204)"_s} +
        standardStrategies(1, 1) + QStringList{u"MEM3endTask()"_s} + lastHalfCalls;
    EXPECT_EQ(calls(), expected);
}

TEST_F(Fluke74xDownload, ASecondInstrumentFindsItsStrategyAndGetsTheStandardOnesAgain) {
    addList({transmitter(), transmitter()});
    EXPECT_EQ(download(), QString());
    const auto first =
        QStringList{u"MEM3startTask(0, 0, \"I-1\", \"\")"_s} + transmitterState + stateSaved +
        QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY\")"_s,
                    u"MEM3strategyDefn(1, 1, \"LINEARITY\", \"0 0.5 1\", 3)"_s,
                    u"MEM3instrCalTemplate(1, 1, 0, 2, 1, 1, 101, 201, 0, 0, 2, \"I-1\", \"\")"_s} +
        standardStrategies(1, 1) + QStringList{u"MEM3endTask()"_s};
    // The strategy's own atom is the one that the last standard strategy of the first task has got.
    const auto second =
        QStringList{u"MEM3startTask(1, 1, \"I-2\", \"\")"_s} + transmitterState + stateSaved +
        QStringList{u"MEM3findStrategyDefn(1, \"LINEARITY\")"_s,
                    u"MEM3instrCalTemplate(2, 14, 101, 13, 1, 2, 102, 202, 0, 0, 2, \"I-2\", \"\")"_s} +
        standardStrategies(2, 14) + QStringList{u"MEM3endTask()"_s};
    EXPECT_EQ(calls(), QStringList{u"MEM3clear()"_s} + firstHalfCalls + first + second + lastHalfCalls);
}

TEST_F(Fluke74xDownload, AllIsPreparedBeforeTheFirstTaskAndRegisteredAfterTheTransfer) {
    addList({transmitter(), transmitter()});
    link.onCall = [this](const QString& operation) {
        if (!operation.startsWith(u"STA3"_s) && operation != u"MEM3strategyDefn")
            script.statements << operation;
    };
    EXPECT_EQ(download(), QString());
    const QStringList calibrator{selectSerial(link.serial), selectMtag(u"F743-01"_s)};
    const auto rows = [](const QString& asset) {
        return QStringList{
            u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('7112044',now(*),'K%1','jdoe');commit"_s
                .arg(asset),
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('910',now(*),'K%1');commit"_s
                .arg(asset)};
    };
    QStringList expected{u"MEM3clear"_s,
                         u"DPC3close"_s,
                         u"DPC3open"_s,
                         u"DPC3get74X"_s,
                         selectSerial(link.serial),
                         u"DPC3mapStart"_s,
                         selectPackage(u"TAG"_s),
                         selectMembers(u"TAG"_s),
                         selectParams(u"I-1"_s),
                         selectParams(u"I-2"_s)};
    for (const auto& asset : {u"I-1"_s, u"I-2"_s})
        expected << selectParams(asset) << selectPoints(asset) << selectRepetitions(asset)
                 << selectPointList(asset) << selectPrompts(asset) << u"MEM3startTask"_s
                 << u"MEM3findStrategyDefn"_s << u"MEM3instrCalTemplate"_s << u"MEM3endTask"_s;
    expected
        << u"DPC3dnlStart"_s << u"DPC3close"_s << calibrator
        << u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '7112044';commit"_s
        << u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '910';commit"_s
        << calibrator << rows(u"I-1"_s) << calibrator << rows(u"I-2"_s);
    EXPECT_EQ(script.statements, expected);
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(Fluke74xDownload, TheRegistryHoldsTheInstrumentsInTheOrderOfTheList) {
    load(QList<CalParamRecord>(4, transmitter()));
    EXPECT_EQ(registeredInstruments(), (QStringList{u"KI-1"_s, u"KI-2"_s, u"KI-3"_s, u"KI-4"_s}));
}

TEST_F(Fluke74xDownload, AnInstrumentTwiceInThePackageIsTwoTasks) {
    addList({transmitter()});
    addPackage(u"TAG"_s, {u"I-1"_s, u"I-1"_s});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(argumentsOf(u"MEM3startTask"_s),
              (QStringList{u"0, 0, \"I-1\", \"\""_s, u"1, 1, \"I-1\", \"\""_s}));
    EXPECT_EQ(templateOf(2).sliced(5, 3), (QStringList{u"2"_s, u"102"_s, u"202"_s}))
        << "with states of its own";
}

TEST_F(Fluke74xDownload, AnEmptyOrUnknownListTransfersAnEmptyImageAndEmptiesTheRegistryOfThatCalibrator) {
    const QStringList cleared{
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '7112044';commit"_s,
        u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '910';commit"_s};
    for (const bool known : {false, true}) {
        if (known)
            addList({});
        script.statements.clear();
        link.calls.clear();
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(link.calls, QStringList{u"MEM3clear()"_s} + firstHalfCalls + lastHalfCalls);
        EXPECT_EQ(writes(), cleared);
    }
}

TEST_F(Fluke74xDownload, TheLinkStaysOpenBetweenTheTwoHalvesAndTheWindowToo) {
    addList({transmitter()});
    link.onCall = [this](const QString& operation) {
        if (operation.startsWith(u"MEM3"_s) && operation != u"MEM3clear") {
            EXPECT_TRUE(ui.progressShown) << operation.toStdString();
        }
    };
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(link.callsOf(u"DPC3close"_s).size(), 2);
    EXPECT_EQ(link.callsOf(u"DPC3open"_s).size(), 1);
    EXPECT_EQ(ui.events.filter(u"progress "_s),
              (QStringList{u"progress Download Task Package to Fluke 74x"_s,
                           u"progress Upload Task Package from Fluke 74x"_s}));
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(Fluke74xDownload, WithoutItsLibraryNothingHappensAtAll) {
    addList({transmitter()});
    link.reasonMissing = u"The library is not there."_s;
    EXPECT_EQ(download(), u"The library is not there."_s);
    EXPECT_EQ(link.calls, QStringList());
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(Fluke74xDownload, ACalibratorWithoutARecordIsLoadedButTheDownloadFailsAndRegistersNothing) {
    addList({transmitter()});
    script.answers.remove(selectSerial(link.serial));
    EXPECT_EQ(download(), unknownCalibrator);
    EXPECT_EQ(link.calls.last(2), lastHalfCalls) << "the image has gone over";
    EXPECT_EQ(writes(), QStringList());
    EXPECT_FALSE(ui.busy);
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(Fluke74xDownload, TheTagIsTheFirstTwentyNineCharactersOfTheAssetNumber) {
    const QString number = u"PLANT-4/UNIT-12/LOOP-0815/PT-101A"_s;
    const struct {
        QString asset;
        QString tag;
    } rows[] = {
        {number.left(28), u"PLANT-4/UNIT-12/LOOP-0815/PT"_s},
        {number.left(29), u"PLANT-4/UNIT-12/LOOP-0815/PT-"_s},
        {number.left(30), u"PLANT-4/UNIT-12/LOOP-0815/PT-"_s},
        {number + u"-2"_s, u"PLANT-4/UNIT-12/LOOP-0815/PT-"_s},
        {u"ΠΙΕΣΗ-Größe-Датчик-№-0815-Ω-17-end"_s, u"ΠΙΕΣΗ-Größe-Датчик-№-0815-Ω-1"_s},
    };
    for (const auto& row : rows) {
        addInstrument(row.asset, transmitter());
        addPackage(u"TAG"_s, {row.asset});
        link.calls.clear();
        script.statements.clear();
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(argumentsOf(u"MEM3startTask"_s).value(0).section(u'"', 1, 1), row.tag);
        EXPECT_EQ(templateOf().value(11), u'"' + row.tag + u'"');
        EXPECT_EQ(registeredInstruments(), QStringList{u'K' + row.asset}) << "the registry has the whole key";
    }
}

TEST_F(Fluke74xDownload, TheSerialNumberGoesAsItIsInTheList) {
    serials = {{u"I-1"_s, u"V88101"_s}, {u"I-2"_s, u""_s}};
    load(QList<CalParamRecord>(3, transmitter()));
    EXPECT_EQ(templateOf(1).value(12), u"\"V88101\""_s);
    EXPECT_EQ(templateOf(2).value(12), u"\"\""_s) << "an empty one";
    EXPECT_EQ(templateOf(3).value(12), u"\"\""_s) << "a null";
}

TEST_F(Fluke74xDownload, FiveHundredAndOneInstrumentsFillTheListToItsEnd) {
    load(QList<CalParamRecord>(501, transmitter()));
    EXPECT_EQ(templateOf(501).value(0), u"501"_s);
    EXPECT_EQ(registeredInstruments().last(), u"KI-501"_s);
}

TEST_F(Fluke74xDownload, AFurtherInstrumentIsReportedByTheAssetListAndNothingIsTransferred) {
    addList(QList<CalParamRecord>(502, transmitter()));
    ui.expectReport(9, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_EQ(download(), listUnread);
    EXPECT_EQ(link.callsOf(u"DPC3dnlStart"_s), QStringList());
    EXPECT_EQ(link.callsOf(u"MEM3startTask"_s), QStringList());
    EXPECT_EQ(writes(), QStringList());
    EXPECT_FALSE(ui.progressShown);
    EXPECT_FALSE(ui.busy);
}

TEST_F(Fluke74xDownload, KeysAreTenRandomCharactersOfTheirOwn) {
    QList<Row> rows;
    for (int i = 0; i < 51; ++i)
        rows << message(u"M%1"_s.arg(i), u"Text"_s, u"PRE"_s);
    addPrompts(u"I-1"_s, rows);
    load({transmitter()});
    const QRegularExpression form(u"^\"[0-9A-Z]{10}\"$"_s);
    QSet<QString> keys;
    for (const auto& arguments : argumentsOf(u"MEM3promptDefn"_s)) {
        const auto key = arguments.section(u", "_s, 0, 0);
        EXPECT_TRUE(form.match(key).hasMatch()) << key.toStdString();
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), 51);
}

} // namespace kelvane::testing
