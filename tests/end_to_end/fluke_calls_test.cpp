#include "tests/end_to_end/fluke_calls.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QString Call::fault(int status) const {
    return operation + (before > 0 ? u"+%1"_s.arg(before) : QString()) + u"*1=%1"_s.arg(status);
}

QList<Call> numberCalls(const QStringList& operations) {
    QList<Call> calls;
    QHash<QString, int> count;
    for (const auto& operation : operations)
        calls << Call{operation, count[operation]++};
    return calls;
}

void EachFlukeCall::clearFault() {
    fault({});
    calibrator.closeLink({port, link, link3});
    takeHeard();
}

void EachFlukeCall::forgetRecords() {
    execute(u"delete from mt.calibration where c2301 = '%1';delete from mt.calresults where ctag not in "
            "(select ctag from mt.calibration);delete from mt.standards where ctag not in (select ctag "
            "from mt.calibration);commit"_s.arg(workDay()));
}

void EachFlukeCall::loadBefore() {
    screen.list = before;
    download();
    ASSERT_EQ(registered(), before);
    memoryBefore = held().text;
    execute(u"create temp table kept as select * from mt.hvm_kv_task_inuse"_s);
}

void EachFlukeCall::restore() {
    execute(u"delete from mt.hvm_kv_task_inuse"_s);
    execute(u"insert into mt.hvm_kv_task_inuse select * from kept"_s);
    simulatorFolder.put(u"memory.json"_s, memoryBefore);
}

QList<Call> EachFlukeCall::callsOfADownload() {
    takeHeard();
    screen.list = singleInstrument();
    download();
    return numberCalls(takeHeard());
}

QList<Call> EachFlukeCall::callsOfAnUpload() {
    list(singleInstrument());
    download();
    carryOut(singleRun());
    takeHeard();
    upload(singleRun());
    return numberCalls(takeHeard());
}

TEST_F(EachFlukeCall, ThatFailsEndsTheDownloadInItsWordsAndLeavesTheRegistry) {
    loadBefore();
    const auto calls = callsOfADownload();
    ASSERT_GT(calls.size(), 30);

    bool imageGoes = false;
    for (qsizetype i = 0; i < calls.size(); ++i) {
        const auto& error = calibrator.errors[i % calibrator.errors.size()];
        SCOPED_TRACE(calls[i].fault(error.status).toStdString());
        const bool isIgnored = calibrator.ignoredCalls.contains(calls[i].fault(0));
        restore();
        clearFault();
        screen.list = singleInstrument();
        fault(calls[i].fault(error.status));
        download(isIgnored ? messages::downloaded() : error.words());
        EXPECT_EQ(registered(), isIgnored ? singleInstrument() : before);
        imageGoes = imageGoes || calls[i].operation == calibrator.imageStep;
        if (!isIgnored && !imageGoes) {
            EXPECT_EQ(held().text, memoryBefore);
        }
    }
    EXPECT_TRUE(imageGoes);
    clearFault();
    download();
    EXPECT_EQ(registered(), singleInstrument());
    EXPECT_EQ(storedTags(), singleInstrument());
    carryOut(singleRun());
    upload(singleRun());
    EXPECT_EQ(records(u"PT-101"_s), QStringList{u"N|2|5"_s});
}

} // namespace kelvane::testing
