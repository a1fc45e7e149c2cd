#include "drivers/fluke702/dpclnk_library.h"
#include "tests/drivers/fluke702/link_fixture.h"
#include "tests/drivers/fluke702/status_words.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A call that gives a status other than 0.
struct Failure {
    const char* operation;
    /// At its n-th call.
    int occasion;
    /// What has been called in the end, with %1 for the direction.
    QStringList called;
    /// The pointer that the caller finds.
    bool busy;
};

QList<Failure> failures() {
    const QStringList opened{u"DPCclose()"_s, u"DPCopen(9600, \"COM1\", 1000, 5)"_s};
    const auto identified = opened + QStringList{u"DPCget70x()"_s};
    const auto started = identified + QStringList{u"DPC%1Start()"_s};
    const auto halfWay = started + QStringList{u"DPC%1Step(2)"_s};
    const auto moved = halfWay + QStringList{u"DPC%1Step(1)"_s};
    return {
        {"DPCclose", 1, {u"DPCclose()"_s}, false},
        {"DPCopen", 1, opened + QStringList{u"DPCclose()"_s}, false},
        {"DPCget70x", 1, identified, true},
        {"DPC%1Start", 1, started, true},
        {"DPC%1Step", 1, halfWay, true},
        {"DPC%1Step", 2, moved, true},
        {"DPCclose", 2, moved + QStringList{u"DPCclose()"_s}, true},
    };
}

} // namespace

TEST_F(Contact702, EndsAtEachCallByEachStatusThatIsNotZero) {
    for (const auto mode : {download, upload}) {
        const auto direction = mode == download ? u"dnl"_s : u"upl"_s;
        for (const auto& failure : failures()) {
            const auto operation = QString::fromLatin1(failure.operation).replace(u"%1"_s, direction);
            for (const auto& row : statusWords() + unknownStatuses()) {
                if (row.code == 0)
                    continue;
                const auto where =
                    (operation + u" #%1: %2"_s.arg(failure.occasion).arg(row.code)).toStdString();
                const bool shown = row.code < 2001;
                if (shown)
                    ui.expectBox(u": "_s + row.words, boxTitle, box::information);
                link.answer(operation, row.code, failure.occasion);
                EXPECT_EQ(contact(mode), shown ? QString() : row.words) << where;
                auto called = failure.called;
                EXPECT_EQ(link.calls, called.replaceInStrings(u"%1"_s, direction)) << where;
                EXPECT_TRUE(ui.hasMetAll()) << where;
                EXPECT_EQ(ui.events.count(u"box"_s), shown ? 1 : 0) << where;
                EXPECT_EQ(ui.events.last(), u"hide"_s) << where;
                EXPECT_EQ(ui.busy, failure.busy) << where;
            }
        }
    }
}

TEST_F(Contact702, ThatEndedByAFailureIsFollowedByAGoodOne) {
    for (const auto& failure : failures()) {
        const auto operation = QString::fromLatin1(failure.operation).replace(u"%1"_s, u"upl"_s);
        link.answer(operation, 2020, failure.occasion);
        EXPECT_EQ(contact(upload), u"Communication Write Error (DPCERR_SEND_FAILED)"_s);
        EXPECT_EQ(contact(upload), QString()) << failure.operation;
        EXPECT_EQ(link.calls.size(), 7);
        EXPECT_FALSE(ui.busy);
    }
}

TEST_F(Contact702, TakesNoNoticeOfTheStatusOfTheCloseBehindAFailedOpen) {
    link.answer(u"DPCopen"_s, 2019, 1);
    link.answer(u"DPCclose"_s, 2020, 2);
    EXPECT_EQ(contact(download), u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s);
    EXPECT_EQ(ui.events.mid(6),
              (QStringList{u"DPCopen(9600, \"COM1\", 1000, 5)"_s, u"DPCclose()"_s, u"normal"_s, u"hide"_s}));
}

TEST_F(Contact702, AWarningDuringATransferIsShownAndCountsAsSuccessWithTheRestUntransferred) {
    link.steps = 40;
    link.answer(u"DPCdnlStep"_s, 100, 3);
    ui.expectBox(u": Turning off loop power (DPCWARN_BAD_LOOP)"_s, boxTitle, box::information);
    EXPECT_EQ(contact(download), QString());
    EXPECT_EQ(link.callsOf(u"DPCdnlStep"_s).size(), 3);
    EXPECT_EQ(link.callsOf(u"DPCclose"_s).size(), 1) << "the link stays open until the next time";
    EXPECT_EQ(ui.events.mid(ui.events.size() - 3), (QStringList{u"DPCdnlStep(38)"_s, u"box"_s, u"hide"_s}));
}

TEST_F(Contact702, AFailureSaysNothingOfACalibratorThatTheDatabaseDoesNotKnow) {
    script.answers.clear();
    link.answer(u"DPCuplStep"_s, 2021, 1);
    EXPECT_EQ(contact(upload), u"Communication Read Error (DPCERR_RECV_FAILED)"_s);
    EXPECT_EQ(driver.Calibrator702Asset, QString());
}

// A calibrator that the database doesn't know.

TEST_F(Contact702, ACalibratorUnknownToTheDatabaseIsReportedAfterADownloadWhichStillSucceeds) {
    script.answers.clear();
    driver.Calibrator702Asset = u"of an earlier one"_s;
    ui.expectBox(notInDatabase, downloadTitle, box::warning);
    EXPECT_EQ(contact(download), QString());
    EXPECT_EQ(driver.Calibrator702Asset, QString());
    EXPECT_EQ(ui.events.mid(ui.events.size() - 6),
              (QStringList{u"DPCclose()"_s, u"value 100"_s, u"normal"_s, u"box"_s, u"hide"_s, u"events"_s}));
}

TEST_F(Contact702, ACalibratorUnknownToTheDatabaseMakesAnUploadFailAfterTheTransfer) {
    script.answers.clear();
    EXPECT_EQ(contact(upload), notInDatabase);
    EXPECT_EQ(link.calls.size(), 7);
    EXPECT_EQ(ui.events.mid(ui.events.size() - 5),
              (QStringList{u"DPCclose()"_s, u"value 100"_s, u"normal"_s, u"hide"_s, u"events"_s}));
}

// Unexpected errors.

TEST_F(Contact702, ACalibratorWhoseQueryFailsIsReportedAfterADownloadToo) {
    script.failures.insert(selectAsset(link.serial), {-131, u"Syntax error"_s, u"42000"_s});
    ui.expectReport(-131, u"ModuleGlobals,AssetfromSerial"_s);
    ui.expectBox(notInDatabase, downloadTitle, box::warning);
    EXPECT_EQ(contact(download), QString());
    EXPECT_FALSE(ui.busy);
}

TEST_F(Contact702, AnUnexpectedErrorIsReportedOnceTheProgressWindowIsClosed) {
    for (const auto mode : {download, upload}) {
        for (int call = 1; call <= 7; ++call) {
            link.onCall = [&](const QString&) {
                if (link.calls.size() == call)
                    throw makeError(ErrorNumber::fileNotFound);
            };
            ui.onBox = [this] { EXPECT_FALSE(ui.progressShown); };
            ui.expectReport(53, routineName);
            EXPECT_EQ(contact(mode), QString()) << "what the result held";
            EXPECT_EQ(link.calls.size(), call);
            EXPECT_EQ(ui.events.mid(ui.events.size() - 2), (QStringList{u"hide"_s, u"normal"_s}));
            EXPECT_TRUE(ui.hasMetAll());
        }
    }
}

TEST_F(Contact702, AnErrorBehindAFailedOpenKeepsTheFailure) {
    link.answer(u"DPCopen"_s, 2019, 1);
    link.onCall = [&](const QString&) {
        if (link.calls.size() == 3)
            throw makeError(ErrorNumber::fileNotFound);
    };
    ui.expectReport(53, routineName);
    EXPECT_EQ(contact(download), u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s);
}

TEST_F(Contact702, WithoutALibraryIsReportedAndCrashesNothing) {
    DpclnkLibrary none(folder.path());
    Fluke702 alone{session, none};
    ui.expectReport(53, routineName);
    EXPECT_EQ(Module702Interface::Communicate702(alone, download), QString());
    EXPECT_FALSE(ui.progressShown);
}

} // namespace kelvane::testing
