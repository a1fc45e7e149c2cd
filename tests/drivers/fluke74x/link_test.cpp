#include "tests/drivers/fluke74x/link_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(Contact74x, GoesThroughTheFirstHalfOfADownloadInOrderAndLeavesLinkAndWindowOpen) {
    EXPECT_EQ(contact(firstHalf), QString());
    EXPECT_EQ(ui.events, (QStringList{
                             u"progress Download Task Package to Fluke 74x"_s,
                             u"events"_s,
                             u"busy"_s,
                             u"text Opening Communications to 74x..."_s,
                             u"events"_s,
                             u"DPC3close()"_s,
                             u"DPC3open(9600, \"COM1\", 1000, 5)"_s,
                             u"DPC3get74X()"_s,
                             u"text Downloading..."_s,
                             u"DPC3mapStart()"_s,
                             u"DPC3mapStep(2)"_s,
                             u"value 25"_s,
                             u"events"_s,
                             u"DPC3mapStep(1)"_s,
                             u"value 50"_s,
                             u"events"_s,
                             u"value 50"_s,
                             u"normal"_s,
                         }));
    EXPECT_TRUE(ui.progressShown);
}

TEST_F(Contact74x, GoesThroughTheLastHalfOfADownloadInOrderUnderTheCaptionOfAnUpload) {
    EXPECT_EQ(contactIn(lastHalf), QString());
    EXPECT_EQ(ui.events, (QStringList{
                             u"progress Upload Task Package from Fluke 74x"_s,
                             u"events"_s,
                             u"busy"_s,
                             u"DPC3dnlStart()"_s,
                             u"DPC3dnlStep(2, 0, 0, 0)"_s,
                             u"value 75"_s,
                             u"events"_s,
                             u"DPC3dnlStep(1, 1, 10, 100)"_s,
                             u"value 100"_s,
                             u"events"_s,
                             u"value 100"_s,
                             u"text Closing Communications to 74x..."_s,
                             u"DPC3close()"_s,
                             u"normal"_s,
                             u"hide"_s,
                             u"events"_s,
                         }));
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(Contact74x, GoesThroughAnUploadInOrderWithTwoPassesOverTheMemory) {
    EXPECT_EQ(contact(upload), QString());
    EXPECT_EQ(ui.events, (QStringList{
                             u"progress Upload Task Package from Fluke 74x"_s,
                             u"events"_s,
                             u"busy"_s,
                             u"text Opening Communications to 74x..."_s,
                             u"events"_s,
                             u"DPC3close()"_s,
                             u"DPC3open(9600, \"COM1\", 1000, 5)"_s,
                             u"DPC3get74X()"_s,
                             u"text Uploading..."_s,
                             u"DPC3mapStart()"_s,
                             u"DPC3mapStep(2)"_s,
                             u"value 16"_s,
                             u"events"_s,
                             u"DPC3mapStep(1)"_s,
                             u"value 33"_s,
                             u"events"_s,
                             u"busy"_s,
                             u"DPC3uplStart()"_s,
                             u"DPC3uplStep(2)"_s,
                             u"value 49"_s,
                             u"events"_s,
                             u"DPC3uplStep(1)"_s,
                             u"value 66"_s,
                             u"events"_s,
                             u"DPC3uplStart()"_s,
                             u"DPC3uplStep(2)"_s,
                             u"value 82"_s,
                             u"events"_s,
                             u"DPC3uplStep(1)"_s,
                             u"value 99"_s,
                             u"events"_s,
                             u"value 100"_s,
                             u"text Closing Communications to 74x..."_s,
                             u"DPC3close()"_s,
                             u"normal"_s,
                             u"hide"_s,
                             u"events"_s,
                         }));
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(Contact74x, OnlyReadsTheCalibratorsAssetAndNothingInTheLastHalf) {
    for (const auto mode : {firstHalf, upload}) {
        script.statements.clear();
        contact(mode);
        EXPECT_EQ(script.statements, QStringList{selectAsset(link.serial)});
    }
    contact(firstHalf);
    script.statements.clear();
    contact(lastHalf);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(settings.writes, QStringList());
}

TEST_F(Contact74x, ThatIsOnlyOpenedIsClosedByTheNextOne) {
    for (const auto next : {firstHalf, upload}) {
        EXPECT_EQ(contact(firstHalf), QString());
        EXPECT_EQ(link.callsOf(u"DPC3close"_s).size(), 1) << "none behind the maps";
        EXPECT_EQ(contact(next), QString());
        EXPECT_EQ(link.calls.first(3), opened);
    }
}

TEST_F(Contact74x, KeepsTheNumbersOfATransferFromStepToStepAndBeginsEachTransferWithZeros) {
    link.steps = 3;
    for (int download = 0; download < 2; ++download) {
        EXPECT_EQ(contactIn(lastHalf), QString());
        EXPECT_EQ(link.argumentsOf(u"DPC3dnlStep"_s),
                  (QStringList{u"3, 0, 0, 0"_s, u"2, 1, 10, 100"_s, u"1, 2, 20, 200"_s}));
    }
}

// What the calibrator says of itself.

TEST_F(Contact74x, KeepsWhatTheCalibratorSaysWithItsTextsCleaned) {
    link.model = u" 743 "_s;
    link.text = QString();
    for (const auto mode : {firstHalf, upload}) {
        contact(mode);
        EXPECT_EQ(driver.Calibrator74xModel, u"743"_s);
        EXPECT_EQ(driver.Calibrator74xSerial, u"7112044"_s);
        EXPECT_EQ(driver.Calibrator74xText, QString());
        EXPECT_EQ(driver.Calibrator74xNumber, 743);
        EXPECT_EQ(driver.Calibrator74xAsset, u"F743-01"_s);
    }
}

TEST_F(Contact74x, KeepsItsValuesInTheLastHalf) {
    contact(firstHalf);
    link.serial = u"77"_s;
    contact(lastHalf);
    EXPECT_EQ(driver.Calibrator74xSerial, u"7112044"_s);
    EXPECT_EQ(driver.Calibrator74xAsset, u"F743-01"_s);
}

TEST_F(Contact74x, ThatDoesNotIdentifyTheCalibratorKeepsTheAssetOfTheOneBefore) {
    contact(firstHalf);
    EXPECT_EQ(driver.Calibrator74xAsset, u"F743-01"_s);
    link.answer(u"DPC3get74X"_s, 2012, 1);
    EXPECT_EQ(contact(firstHalf), u"Communication Read Error (DPC3ERR_RECV_FAILED)"_s);
    EXPECT_EQ(driver.Calibrator74xAsset, u"F743-01"_s);
}

// The progress bar.

TEST_F(Contact74x, ShowsTheMapsInFiftiethsOfTheFirstHalf) {
    const struct {
        qint32 total;
        QStringList shown;
    } rows[] = {
        {0, values({50})},
        {1, values({50, 50})},
        {3, values({16, 33, 50, 50})},
        {7, values({7, 14, 21, 28, 35, 42, 50, 50})},
        {11, values({4, 9, 13, 18, 22, 27, 31, 36, 40, 45, 50, 50})},
    };
    for (const auto& row : rows) {
        link.mapSteps = row.total;
        EXPECT_EQ(contact(firstHalf), QString());
        EXPECT_EQ(progressValues(), row.shown) << row.total;
    }
}

TEST_F(Contact74x, ShowsTheTransferInFiftiethsAboveFiftyInTheLastHalf) {
    const struct {
        qint32 total;
        QStringList shown;
    } rows[] = {
        {0, values({100})},
        {1, values({100, 100})},
        {3, values({66, 83, 100, 100})},
        {7, values({57, 64, 71, 78, 85, 92, 100, 100})},
    };
    for (const auto& row : rows) {
        link.steps = row.total;
        EXPECT_EQ(contactIn(lastHalf), QString());
        EXPECT_EQ(progressValues(), row.shown) << row.total;
    }
}

TEST_F(Contact74x, ShowsAnUploadInThreeSharesOf33) {
    const struct {
        qint32 maps;
        qint32 total;
        QStringList shown;
    } rows[] = {
        {0, 0, values({100})},
        {1, 1, values({33, 66, 99, 100})},
        {0, 3, values({44, 55, 66, 77, 88, 99, 100})},
        {4, 5, values({8, 16, 24, 33, 39, 46, 52, 59, 66, 72, 79, 85, 92, 99, 100})},
        {2, 4, values({16, 33, 41, 49, 57, 66, 74, 82, 90, 99, 100})},
    };
    for (const auto& row : rows) {
        link.mapSteps = row.maps;
        link.steps = row.total;
        EXPECT_EQ(contact(upload), QString());
        EXPECT_EQ(progressValues(), row.shown) << row.maps << " and " << row.total;
    }
}

TEST_F(Contact74x, MultipliesBeforeItDividesSoThatALongTransferStillMoves) {
    link.steps = 1000;
    EXPECT_EQ(contactIn(lastHalf), QString());
    const auto shown = progressValues();
    ASSERT_EQ(shown.size(), 1001);
    for (const auto& [step, value] :
         {std::pair{1, 50}, {19, 50}, {20, 51}, {39, 51}, {40, 52}, {999, 99}, {1000, 100}})
        EXPECT_EQ(shown[step - 1], u"value %1"_s.arg(value)) << step;
}

TEST_F(Contact74x, TakesTheMaximumCount) {
    link.mapSteps = link.steps = std::numeric_limits<qint32>::max();
    link.nextCount = [](qint32 count) { return count > 3 ? 3 : 0; };
    EXPECT_EQ(contact(upload), QString());
    EXPECT_EQ(progressValues(), values({32, 33, 65, 66, 98, 99, 100}));
}

TEST_F(Contact74x, CallsNoStepForACountOfZeroOrBelow) {
    for (const qint32 count : {0, -1, -103}) {
        link.mapSteps = link.steps = count;
        EXPECT_EQ(contact(upload), QString());
        EXPECT_EQ(link.calls, (opened + QStringList{u"DPC3mapStart()"_s, u"DPC3uplStart()"_s,
                                                    u"DPC3uplStart()"_s, u"DPC3close()"_s}));
        EXPECT_EQ(contactIn(lastHalf), QString());
        EXPECT_EQ(link.calls, (QStringList{u"DPC3dnlStart()"_s, u"DPC3close()"_s}));
    }
}

TEST_F(Contact74x, GoesOnAsLongAsTheLibraryCounts) {
    int calls = 0;
    link.nextCount = [&](qint32 count) { return ++calls % 500 == 0 ? 0 : count; };
    EXPECT_EQ(contact(upload), QString());
    for (const auto& [operation, count] : {std::pair{u"DPC3mapStep"_s, 500}, {u"DPC3uplStep"_s, 1000}})
        EXPECT_EQ(link.callsOf(operation).size(), count);
    EXPECT_EQ(ui.events.count(u"events"_s), 1503) << "each step lets the window move";
}

TEST_F(Contact74x, ACountThatGoesUpOrBelowZeroKeepsTheBarWithinItsShare) {
    link.nextCount = [](qint32 count) { return count < 4 ? count + 2 : -7; };
    EXPECT_EQ(contact(upload), QString());
    EXPECT_EQ(link.argumentsOf(u"DPC3mapStep"_s), (QStringList{u"2"_s, u"4"_s}));
    EXPECT_EQ(progressValues(), values({0, 33, 33, 66, 66, 99, 100}));
}

} // namespace kelvane::testing
