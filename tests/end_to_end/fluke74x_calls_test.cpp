#include "tests/end_to_end/fluke_calls.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int warning = 100;
/// A warning has no words, and on the link no instrument.
const QString warningOfTheLink = u": "_s;
const QString warningOfPt101 = u"PT-101: "_s;
QString notOpen() {
    return text(TextId::statusLinkNotOpen) + u" (DPC3ERR_NOT_OPEN)"_s;
}

/// The buckets of which the upload takes a value.
const QStringList takenBuckets{u"suev"_s,  u"sprimary"_s, u"muev"_s,    u"mprimary"_s,
                               u"error"_s, u"mpserial"_s, u"spserial"_s};

bool isOnLink(const Call& call) {
    return call.operation.startsWith(u"DPC3"_s);
}

} // namespace

class EachCallOfAFluke74x : public EachFlukeCall {
  protected:
    const StatusWords& errorOf(qsizetype place) const {
        return calibrator.errors[place % calibrator.errors.size()];
    }
    /// The buckets of an upload's calls, in the order in which their names are asked for.
    static QStringList bucketsOf(const QStringList& lines) {
        QStringList names;
        for (const auto& line : lines.filter(u"STA3getType("_s))
            names << line.section(u'"', 3, 3);
        return names;
    }
    void expectNothing() {
        EXPECT_EQ(records(u"PT-101"_s), QStringList());
        EXPECT_EQ(registered(), singleInstrument());
        EXPECT_EQ(withoutRecord(), QStringList());
    }
};

TEST_F(EachCallOfAFluke74x, ThatWarnsWhileTheImageIsMadeIsShownAndTheDownloadGoesOn) {
    const auto calls = callsOfADownload();
    const auto whole = held().tags;
    int tried = 0;
    for (const auto& call : calls) {
        if (isOnLink(call))
            continue;
        // That a strategy is not there is no warning, and one that a warning hides is not defined.
        if (call.operation == u"MEM3findStrategyDefn")
            continue;
        ++tried;
        SCOPED_TRACE(call.fault(warning).toStdString());
        clearFault();
        fault(call.fault(warning));
        expectInformation(call.operation == u"MEM3clear" ? warningOfTheLink : warningOfPt101);
        download();
        EXPECT_EQ(storedTags(), whole);
    }
    EXPECT_GT(tried, 40);
}

// A warning of a contact ends it without words, and what has no words is no failure; in the steps of the
// transfer itself it ends nothing.
TEST_F(EachCallOfAFluke74x, ThatWarnsOnTheLinkEndsTheContactAndTheDownloadGoesOnAsIfItWereWhole) {
    loadBefore();
    const auto calls = callsOfADownload();
    for (const auto& call : calls) {
        if (!isOnLink(call))
            continue;
        SCOPED_TRACE(call.fault(warning).toStdString());
        restore();
        clearFault();
        const bool isNotOpened = call.fault(0) == u"DPC3close*1=0" || call.fault(0) == u"DPC3open*1=0";
        const bool isNotSent = isNotOpened || call.operation == u"DPC3dnlStart";
        fault(call.fault(warning));
        expectInformation(warningOfTheLink);
        download(isNotOpened ? notOpen() : messages::downloaded());
        EXPECT_EQ(storedTags(), isNotSent ? before : singleInstrument());
        EXPECT_EQ(registered(), isNotOpened ? before : singleInstrument());
    }
}

TEST_F(EachCallOfAFluke74x, WithAStatusThatHasNoWordsEndsTheDownloadUnsentAndWithoutAFailure) {
    loadBefore();
    for (const auto* status : {"2000", "2017", "32767"}) {
        fault(u"MEM3startTask*1="_s + QLatin1StringView(status));
        screen.list = singleInstrument();
        download();
        EXPECT_EQ(storedTags(), before) << status;
        EXPECT_EQ(registered(), before) << status;
    }
}

TEST_F(EachCallOfAFluke74x, ThatFailsEndsTheUploadAndTheNextOneLosesAndDoublesNothing) {
    const auto calls = callsOfAnUpload();
    ASSERT_GT(calls.size(), 600);
    forgetRecords();
    for (qsizetype i = 0; i < calls.size(); ++i) {
        if (calls[i].operation == u"STA3getBktName")
            continue;
        const auto& error = errorOf(i);
        SCOPED_TRACE(calls[i].fault(error.status).toStdString());
        clearFault();
        fault(calls[i].fault(error.status));
        upload({}, error.words());
        expectNothing();
    }
    clearFault();
    upload(singleRun());
    expectRecords(singleRun());
}

// The status of the one call is not looked at: the bucket has no name and is none of those that are taken.
TEST_F(EachCallOfAFluke74x, ThatGivesNoNameOfABucketWithoutAValueChangesNothing) {
    list(singleInstrument());
    download();
    carryOut(singleRun());
    takeCalls();
    upload(singleRun());
    const auto buckets = bucketsOf(takeCalls());
    ASSERT_GT(buckets.size(), 200);
    for (int i = 0; i < buckets.size() / 5; ++i) {
        if (takenBuckets.contains(buckets[i]))
            continue;
        SCOPED_TRACE(buckets[i].toStdString());
        forgetRecords();
        clearFault();
        fault(Call{u"STA3getBktName"_s, i}.fault(2002));
        upload(singleRun());
        EXPECT_EQ(takeHeard().count(u"STA3getType"_s), buckets.size() - 1);
        expectRecords(singleRun());
    }
}

TEST_F(EachCallOfAFluke74x, ThatWarnsInAnUploadIsShownAndWhatTheImageHoldsIsRecorded) {
    const auto calls = callsOfAnUpload();
    QSet<QString> tried;
    for (qsizetype i = 0; i < calls.size(); ++i) {
        const auto& call = calls[i];
        // Each operation in the first step of the run, and on the link each call.
        if (call.operation == u"STA3getBktName" || (!isOnLink(call) && tried.contains(call.operation)))
            continue;
        tried.insert(call.operation);
        SCOPED_TRACE(call.fault(warning).toStdString());
        forgetRecords();
        clearFault();
        fault(call.fault(warning));
        expectChoice();
        expectInformation(warningOfTheLink);
        // The image is empty until the memory was read; a warning of a step does not stop the reading.
        const bool isEmpty = isOnLink(call) && call.operation != u"DPC3uplStep" &&
                             call.fault(0) != u"DPC3uplStart+1*1=0" && call.fault(0) != u"DPC3close+1*1=0";
        if (!isEmpty)
            expectRuns(singleRun());
        pressUpload();
        EXPECT_EQ(records(u"PT-101"_s), isEmpty ? QStringList() : QStringList{u"N|2|5"_s});
    }
    EXPECT_GT(tried.size(), 20);
}

// Records that were made before the failure stay; the next upload makes the rest.
TEST_F(EachCallOfAFluke74x, ThatFailsInTheSecondRunLeavesTheRecordOfTheFirst) {
    list(singleInstrument());
    download();
    carryOut(twoRuns());
    fault(u"MEM3instrCalResultInfo+1*1=2014"_s);
    expectChoice();
    expectRuns(singleRun());
    pressUpload(text(TextId::statusNoData) + u" (DPC3ERR_NO_DATA)"_s);
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"N|2|5"_s});
    clearFault();
    expectChoice();
    expectRefusedRuns(singleRun());
    expectRuns(twoRuns().last(1));
    pressUpload();
    expectRecords(twoRuns());
}

} // namespace kelvane::testing
