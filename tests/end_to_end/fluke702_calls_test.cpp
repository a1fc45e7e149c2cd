#include "tests/end_to_end/fluke702_end_to_end.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

constexpr int fatal = 2012;
const QString fatalWords = u"Insufficient Memory (DPCERR_MEMORY_SIZE)"_s;
constexpr int warning = 100;
const QString warningWords = u": Turning off loop power (DPCWARN_BAD_LOOP)"_s;

/// A call of a run that went well.
struct Call {
    QString operation;
    /// How many calls of the same operation came before it.
    int before = 0;

    /// The fault of this call alone.
    QString fault(int status) const {
        return operation + (before > 0 ? u"+%1"_s.arg(before) : QString()) + u"*1=%1"_s.arg(status);
    }
};

QList<Call> numberCalls(const QStringList& operations) {
    QList<Call> calls;
    QHash<QString, int> count;
    for (const auto& operation : operations)
        calls << Call{operation, count[operation]++};
    return calls;
}

} // namespace

/// Each call of a download and of an upload fails in turn; PT-103 and PT-104 lie in the registry before.
class EachCallOfAFluke702 : public Fluke702EndToEnd {
  protected:
    /// Makes the library forget what faults it has counted.
    void clearFault() {
        fault({});
        link.DPCclose();
        takeHeard();
    }
    void expectInformation(const QString& words) { ui.expectBox(words, downloadTitle, box::information); }

    /// Loads the calibrator and gives the calls of it.
    QList<Call> callsOfADownload() {
        screen.list = singleInstrument();
        download();
        return numberCalls(takeHeard());
    }
    const QStringList before{u"PT-103"_s, u"PT-104"_s};
};

TEST_F(EachCallOfAFluke702, ThatFailsEndsTheDownloadInItsWordsAndLeavesTheRegistry) {
    screen.list = singleInstrument();
    takeHeard();
    const auto registeredBefore = registered();
    ASSERT_EQ(registeredBefore, before);

    // Record the calls in a database that is then restored.
    execute(u"create temp table kept as select * from mt.hvm_kv_task_inuse"_s);
    const auto calls = callsOfADownload();
    execute(u"delete from mt.hvm_kv_task_inuse"_s);
    execute(u"insert into mt.hvm_kv_task_inuse select * from kept"_s);
    ASSERT_GT(calls.size(), 30);

    for (const auto& call : calls) {
        SCOPED_TRACE(call.fault(fatal).toStdString());
        // What is called to tidy up beforehand, and the start of a state, are ignored.
        const bool passedOver =
            call.operation == u"MEMclear" || call.operation == u"STAinit" || call.fault(0) == u"DPCclose*1=0";
        clearFault();
        screen.list = singleInstrument();
        fault(call.fault(fatal));
        download(passedOver ? messages::downloaded : fatalWords);
        if (!passedOver) {
            EXPECT_EQ(registered(), before);
            continue;
        }
        EXPECT_EQ(registered(), singleInstrument());
        execute(u"delete from mt.hvm_kv_task_inuse"_s);
        execute(u"insert into mt.hvm_kv_task_inuse select * from kept"_s);
    }
    clearFault();
    download();
    EXPECT_EQ(registered(), singleInstrument());
    EXPECT_EQ(storedTags(), singleInstrument());
    carryOut(singleRun());
    upload(singleRun());
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"N|2|5"_s});
}

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
            expectInformation(u"PT-101"_s + warningWords);
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
        expectInformation(warningWords);
        download();
    }
    EXPECT_EQ(tried, interrupting.size());
    // A transfer that was broken off after its first step has left an empty calibrator.
    clearFault();
    fault(u"DPCdnlStep*1=100"_s);
    expectInformation(warningWords);
    download();
    EXPECT_EQ(storedTags(), QStringList());
    EXPECT_EQ(registered(), singleInstrument());
    upload({});
}

TEST_F(EachCallOfAFluke702, ThatFailsEndsTheUploadAndTheNextOneLosesAndDoublesNothing) {
    list(singleInstrument());
    download();
    carryOut(singleRun());
    takeHeard();
    upload(singleRun());
    const auto calls = numberCalls(takeHeard());
    ASSERT_GT(calls.size(), 45);
    const auto forget = [&] {
        execute(u"delete from mt.calibration where c2301 = '%1';delete from mt.calresults where ctag not in "
                "(select ctag from mt.calibration);delete from mt.standards where ctag not in (select ctag "
                "from mt.calibration);commit"_s.arg(workDay()));
    };
    int entries = 0;
    for (const auto& call : calls) {
        SCOPED_TRACE(call.fault(fatal).toStdString());
        forget();
        clearFault();
        fault(call.fault(fatal));
        expectChoice();
        QString message = messages::uploaded;
        if (call.operation.startsWith(u"DPC"_s)) {
            message = fatalWords;
        } else if (call.operation == u"MEMclear") {
            expectRuns(singleRun());
        } else if (call.operation == u"STAgetPressure") {
            // The operator sees a counter instead of a status; it stands behind the last field now.
            expectInformation(u"PT-101: Setting measure function to VDC (DPCWARN_BAD_INPUT)"_s);
        } else if (call.operation == u"MEMcalResultEntry") {
            // Here it is the point, and there are seven calls for each.
            expectInformation(entries++ < 7 ? u"PT-101: No Error (DPCERR_NONE)"_s
                                            : u"PT-101: Unknown Error"_s);
        } else if (call.operation != u"MEMstats") {
            expectInformation(call.operation == u"MEMcalResult" ? u"PT-101: No Error (DPCERR_NONE)"_s
                                                                : u": No Error (DPCERR_NONE)"_s);
        }
        pressUpload(message);
        EXPECT_EQ(records(u"PT-101"_s),
                  call.operation == u"MEMclear" ? QStringList{u"N|2|5"_s} : QStringList());
        EXPECT_EQ(registered(), singleInstrument());
    }
    EXPECT_EQ(entries, 35);
    forget();
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
    expectInformation(u"PT-101: Unknown Error"_s);
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
