#include "tests/end_to_end/fluke_calls.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int fatal = 2012;
QString fatalWords() {
    return text(TextId::statusMemoryInsufficient) + u" (DPCERR_MEMORY_SIZE)"_s;
}
constexpr int warning = 100;
QString warningWords() {
    return u": "_s + text(TextId::statusLoopPowerOff) + u" (DPCWARN_BAD_LOOP)"_s;
}

} // namespace

class EachCallOfAFluke702 : public EachFlukeCall {};

TEST_F(EachCallOfAFluke702, ThatWarnsWhileTheImageIsMadeIsShownAndTheDownloadGoesOn) {
    const auto calls = callsOfADownload();
    for (const auto& call : calls) {
        SCOPED_TRACE(call.fault(warning).toStdString());
        const bool image = !call.operation.startsWith(u"DPC");
        if (!image)
            continue;
        clearFault();
        fault(call.fault(warning));
        if (call.operation != u"MEMclear" && call.operation != u"STAinit")
            expectInformation(u"PT-101"_s + warningWords());
        download();
        EXPECT_EQ(storedTags(), singleInstrument());
    }
}

// The words of a warning are shown and are no failure: the work counts as downloaded, whatever came over.
TEST_F(EachCallOfAFluke702, ThatWarnsDuringTheTransferEndsItAndTheDownloadCountsAsSuccessful) {
    screen.list = {u"FT-501"_s};
    download();
    const auto calls = callsOfADownload();
    const QStringList interrupting{u"DPCget70x*1=0"_s,    u"DPCdnlStart*1=0"_s, u"DPCdnlStep*1=0"_s,
                                   u"DPCdnlStep+1*1=0"_s, u"DPCclose+2*1=0"_s,  u"DPCopen*1=0"_s,
                                   u"DPCclose+1*1=0"_s};
    int tried = 0;
    for (const auto& call : calls) {
        if (!interrupting.contains(call.fault(0)))
            continue;
        ++tried;
        SCOPED_TRACE(call.fault(warning).toStdString());
        clearFault();
        fault(call.fault(warning));
        expectInformation(warningWords());
        download();
    }
    EXPECT_EQ(tried, interrupting.size());
    // A transfer that was broken off after its first step has left an empty calibrator.
    clearFault();
    fault(u"DPCdnlStep*1=100"_s);
    expectInformation(warningWords());
    download();
    EXPECT_EQ(storedTags(), QStringList());
    EXPECT_EQ(registered(), singleInstrument());
    upload({});
}

TEST_F(EachCallOfAFluke702, ThatFailsEndsTheUploadAndTheNextOneLosesAndDoublesNothing) {
    const auto calls = callsOfAnUpload();
    ASSERT_GT(calls.size(), 45);
    int entries = 0;
    for (const auto& call : calls) {
        SCOPED_TRACE(call.fault(fatal).toStdString());
        forgetRecords();
        clearFault();
        fault(call.fault(fatal));
        expectChoice();
        QString message = messages::uploaded();
        if (call.operation.startsWith(u"DPC"_s)) {
            message = fatalWords();
        } else if (call.operation == u"MEMclear") {
            expectRuns(singleRun());
        } else if (call.operation == u"STAgetPressure") {
            // The operator sees a counter instead of a status; it stands behind the last field now.
            expectInformation(u"PT-101: "_s + text(TextId::statusMeasuringVdc) + u" (DPCWARN_BAD_INPUT)"_s);
        } else if (call.operation == u"MEMcalResultEntry") {
            // Here it is the point, and there are seven calls for each.
            expectInformation(entries++ < 7
                                  ? u"PT-101: "_s + text(TextId::statusNoError) + u" (DPCERR_NONE)"_s
                                  : u"PT-101: "_s + text(TextId::statusUnknownError));
        } else if (call.operation != u"MEMstats") {
            expectInformation(call.operation == u"MEMcalResult"
                                  ? u"PT-101: "_s + text(TextId::statusNoError) + u" (DPCERR_NONE)"_s
                                  : u": "_s + text(TextId::statusNoError) + u" (DPCERR_NONE)"_s);
        }
        pressUpload(message);
        EXPECT_EQ(records(u"PT-101"_s),
                  call.operation == u"MEMclear" ? QStringList{u"N|2|5"_s} : QStringList());
        EXPECT_EQ(registered(), singleInstrument());
    }
    EXPECT_EQ(entries, 35);
    forgetRecords();
    clearFault();
    upload(singleRun());
    expectRecords(singleRun());
}

// Records that were made before the failure stay; the next upload makes the rest.
TEST_F(EachCallOfAFluke702, ThatFailsInTheSecondRunLeavesTheRecordOfTheFirst) {
    list(singleInstrument());
    download();
    carryOut(twoRuns());
    fault(u"MEMbaseState+1*1=2012"_s);
    expectChoice();
    expectRuns(singleRun());
    // The counter is that of the standards in use, behind which the last loop ended.
    expectInformation(u"PT-101: "_s + text(TextId::statusUnknownError));
    pressUpload();
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"N|2|5"_s});
    clearFault();
    expectChoice();
    expectRefusedRuns(singleRun());
    expectRuns(twoRuns().last(1));
    pressUpload();
    expectRecords(twoRuns());
}

} // namespace kelvane::testing
