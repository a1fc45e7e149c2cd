#include "tests/drivers/fluke702/link_fixture.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(Contact702, GoesThroughItsStepsInOrder) {
    const struct {
        qint16 mode;
        QString title, operation, label;
    } rows[] = {
        {download, downloadTitle, u"DPCdnl"_s, u"Downloading..."_s},
        {upload, u"Upload Task Package from Fluke 702"_s, u"DPCupl"_s, u"Uploading..."_s},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(contact(row.mode), QString());
        EXPECT_EQ(ui.events, (QStringList{
                                 u"progress "_s + row.title,
                                 u"events"_s,
                                 u"busy"_s,
                                 u"text Opening Communications to 702..."_s,
                                 u"events"_s,
                                 u"DPCclose()"_s,
                                 u"DPCopen(9600, \"COM1\", 1000, 5)"_s,
                                 u"DPCget70x()"_s,
                                 u"normal"_s,
                                 u"busy"_s,
                                 row.operation + u"Start()"_s,
                                 u"normal"_s,
                                 u"text "_s + row.label,
                                 u"events"_s,
                                 u"value 25"_s,
                                 u"busy"_s,
                                 row.operation + u"Step(2)"_s,
                                 u"value 50"_s,
                                 u"events"_s,
                                 row.operation + u"Step(1)"_s,
                                 u"value 75"_s,
                                 u"events"_s,
                                 u"value 100"_s,
                                 u"text Closing Communications to 702..."_s,
                                 u"DPCclose()"_s,
                                 u"value 100"_s,
                                 u"normal"_s,
                                 u"hide"_s,
                                 u"events"_s,
                             }));
    }
}

TEST_F(Contact702, OnlyReadsTheCalibratorsAsset) {
    for (const auto mode : {download, upload}) {
        script.statements.clear();
        contact(mode);
        EXPECT_EQ(script.statements, QStringList{selectAsset(link.serial)});
    }
    EXPECT_EQ(settings.writes, QStringList());
}

// What the calibrator says of itself.

TEST_F(Contact702, KeepsWhatTheCalibratorSaysWithItsTextsCleaned) {
    link.model = u" 702 "_s;
    link.text = QString();
    contact(upload);
    EXPECT_EQ(driver.Calibrator702Model, u"702"_s);
    EXPECT_EQ(driver.Calibrator702Serial, u"6841207"_s);
    EXPECT_EQ(driver.Calibrator702Text, QString());
    EXPECT_EQ(driver.Calibrator702Number, 702);
    EXPECT_EQ(driver.Calibrator702Asset, u"F-702"_s);
}

TEST_F(Contact702, CleansTheTextsThatComeWithAWarningToo) {
    link.answer(u"DPCget70x"_s, 105, 1);
    ui.expectBox(u": Turning off source and loop power (DPCWARN_BAD_OUTPUT_LOOP)"_s, boxTitle,
                 box::information);
    EXPECT_EQ(contact(download), QString());
    EXPECT_EQ(driver.Calibrator702Model, u"702"_s);
    EXPECT_EQ(driver.Calibrator702Serial, u"6841207"_s);
    EXPECT_EQ(driver.Calibrator702Text, u"V1.0"_s);
    EXPECT_EQ(script.statements, QStringList()) << "its asset is not looked up";
}

TEST_F(Contact702, CleansTheTextsThatComeWithAnErrorToo) {
    link.answer(u"DPCget70x"_s, 2021, 1);
    EXPECT_EQ(contact(upload), u"Communication Read Error (DPCERR_RECV_FAILED)"_s);
    EXPECT_EQ(driver.Calibrator702Model, u"702"_s);
    EXPECT_EQ(driver.Calibrator702Serial, u"6841207"_s);
    EXPECT_EQ(driver.Calibrator702Text, u"V1.0"_s);
}

TEST_F(Contact702, TakesABufferThatIsLeftAloneForAnEmptyText) {
    link.writeText = [](const QString&, const QString& buffer) { return buffer; };
    EXPECT_EQ(contact(upload), notInDatabase);
    EXPECT_EQ(driver.Calibrator702Model, QString());
    EXPECT_EQ(driver.Calibrator702Serial, QString());
    EXPECT_EQ(script.statements, QStringList{selectAsset({})});
}

TEST_F(Contact702, KeepsItsValuesUntilTheNextOne) {
    contact(download);
    link.serial = u"77"_s;
    script.answers.insert(selectAsset(u"77"_s), {{u"F-77"_s}});
    link.answer(u"DPCget70x"_s, 2021, 1);
    EXPECT_NE(contact(download), QString());
    EXPECT_EQ(driver.Calibrator702Asset, u"F-702"_s) << "not looked up again";
    EXPECT_EQ(contact(download), QString());
    EXPECT_EQ(driver.Calibrator702Serial, u"77"_s);
    EXPECT_EQ(driver.Calibrator702Asset, u"F-77"_s);
}

// The transfer.

TEST_F(Contact702, ShowsTheProgressInWholeStepsOfAHundredth) {
    const struct {
        qint32 count;
        QStringList values;
    } rows[] = {
        {-200, {u"value 0"_s, u"value 0"_s, u"value 100"_s}},
        {-103, {u"value 0"_s, u"value 0"_s, u"value 100"_s}},
        {-1, {u"value 100"_s, u"value 100"_s, u"value 100"_s}},
        {0, {u"value 50"_s, u"value 100"_s, u"value 100"_s}},
        {1, {u"value 33"_s, u"value 66"_s, u"value 99"_s, u"value 100"_s}},
    };
    for (const auto mode : {download, upload}) {
        for (const auto& row : rows) {
            link.steps = row.count;
            EXPECT_EQ(contact(mode), QString());
            EXPECT_EQ(progressValues(), row.values) << row.count;
        }
    }
}

TEST_F(Contact702, CallsNoStepForACountOfZeroOrBelow) {
    for (const qint32 count : {0, -1, -103}) {
        link.steps = count;
        EXPECT_EQ(contact(download), QString());
        EXPECT_EQ(link.callsOf(u"DPCdnlStep"_s), QStringList());
        EXPECT_EQ(link.calls.size(), 5) << "opened, started and closed";
    }
}

TEST_F(Contact702, ReachesAHundredByOnesForACountOf98) {
    link.steps = 98;
    EXPECT_EQ(contact(download), QString());
    QStringList expected;
    for (int value = 1; value <= 100; ++value)
        expected << u"value %1"_s.arg(value);
    EXPECT_EQ(progressValues(), expected << u"value 100"_s);
    EXPECT_EQ(link.callsOf(u"DPCdnlStep"_s).size(), 98);
}

TEST_F(Contact702, StaysAtZeroForACountAbove98AndJumpsToAHundred) {
    link.steps = 99;
    EXPECT_EQ(contact(upload), QString());
    QStringList expected;
    for (int i = 0; i < 101; ++i)
        expected << u"value 0"_s;
    EXPECT_EQ(progressValues(), expected << u"value 100"_s);
}

TEST_F(Contact702, TakesTheMaximumCount) {
    link.steps = std::numeric_limits<qint32>::max();
    link.nextCount = [](qint32) { return 0; };
    EXPECT_EQ(contact(download), QString());
    EXPECT_EQ(link.callsOf(u"DPCdnlStep"_s), QStringList{u"DPCdnlStep(2147483647)"_s});
}

TEST_F(Contact702, GoesOnAsLongAsTheLibraryCounts) {
    int calls = 0;
    link.steps = 3;
    link.nextCount = [&](qint32 count) { return ++calls < 500 ? count : 0; };
    EXPECT_EQ(contact(download), QString());
    EXPECT_EQ(link.callsOf(u"DPCdnlStep"_s).size(), 500);
    EXPECT_EQ(ui.events.count(u"events"_s), 504) << "each step lets the window move";
    EXPECT_EQ(progressValues().value(3), u"value 80"_s);
    EXPECT_EQ(progressValues().value(400), u"value 100"_s) << "a full bar stays full";
}

TEST_F(Contact702, FollowsACountThatGoesUpOrBelowZero) {
    link.steps = 1;
    link.nextCount = [](qint32 count) { return count < 4 ? count + 1 : -7; };
    EXPECT_EQ(contact(upload), QString());
    EXPECT_EQ(link.callsOf(u"DPCuplStep"_s),
              (QStringList{u"DPCuplStep(1)"_s, u"DPCuplStep(2)"_s, u"DPCuplStep(3)"_s, u"DPCuplStep(4)"_s}));
    EXPECT_EQ(link.calls.last(), u"DPCclose()"_s);
}

TEST_F(Contact702, ReportsACountForWhichThereIsNoProgressStep) {
    for (const auto& [count, number] : {std::pair{-2, 11}, {-3, 6}, {-50, 6}, {-102, 6}}) {
        link.steps = count;
        ui.expectReport(number, routineName);
        EXPECT_EQ(contact(download), QString()) << count;
        EXPECT_EQ(link.calls.last(), u"DPCdnlStart()"_s);
        EXPECT_FALSE(ui.progressShown);
    }
}

} // namespace kelvane::testing
