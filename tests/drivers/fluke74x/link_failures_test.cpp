#include "drivers/fluke74x/dpclnk3_library.h"
#include "tests/drivers/fluke74x/link_fixture.h"
#include "tests/drivers/fluke74x/status_words.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A call and what has been called when a status of it ends the contact.
struct LinkCall {
    QString operation;
    /// Its n-th call.
    int occasion;
    QStringList called;
};

/// The calls of a contact in their order, each as the last of those called.
QList<LinkCall> each(const QStringList& calls) {
    QList<LinkCall> list;
    QHash<QString, int> occasions;
    for (const auto& call : calls) {
        const auto operation = call.section(u'(', 0, 0);
        list << LinkCall{operation, ++occasions[operation], calls.first(list.size() + 1)};
        // A failed attempt to open is followed by another close.
        if (operation == u"DPC3open")
            list.last().called << u"DPC3close()"_s;
    }
    return list;
}

/// A step of a transfer goes on after a warning.
bool goesOn(const QString& operation, qint16 status) {
    return (operation == u"DPC3dnlStep" || operation == u"DPC3uplStep") && status < 2000;
}

} // namespace

class FailingContact74x : public Contact74x {
  protected:
    /// The calls of a contact of two steps that goes well.
    QStringList callsIn(qint16 mode) {
        EXPECT_EQ(contactIn(mode), QString());
        return link.calls;
    }
    /// A contact in which the call gives that status.
    QString contactWith(qint16 mode, const LinkCall& call, qint16 status) {
        begin(mode);
        link.answer(call.operation, status, call.occasion);
        return contact(mode);
    }
    const QStringList hidden{u"hide"_s, u"normal"_s};
};

TEST_F(FailingContact74x, EndsAtEachCallByEachStatusThatIsNotZeroButForWarningsOfTransferSteps) {
    for (const auto mode : {firstHalf, upload, lastHalf}) {
        const auto whole = callsIn(mode);
        for (const auto& call : each(whole)) {
            for (const auto& row : statusesOfTrouble3()) {
                const auto where =
                    (call.operation + u" #%1: %2"_s.arg(call.occasion).arg(row.code)).toStdString();
                if (isShown3(row.code))
                    ui.expectBox(u": "_s, boxTitle, box::information);
                EXPECT_EQ(contactWith(mode, call, row.code), row.words) << where;
                EXPECT_TRUE(ui.hasMetAll()) << where;
                EXPECT_EQ(ui.events.count(u"box"_s), isShown3(row.code) ? 1 : 0) << where;
                EXPECT_FALSE(ui.progressShown) << where;
                EXPECT_FALSE(ui.busy) << where;
                if (goesOn(call.operation, row.code)) {
                    EXPECT_EQ(link.calls, whole) << where;
                } else {
                    EXPECT_EQ(link.calls, call.called) << where;
                    EXPECT_EQ(ui.events.last(2), hidden) << where;
                }
            }
        }
    }
}

TEST_F(FailingContact74x, HasTheseCallsThatCanFail) {
    EXPECT_EQ(callsIn(firstHalf).size(), 6);
    EXPECT_EQ(callsIn(upload).size(), 13);
    EXPECT_EQ(callsIn(lastHalf).size(), 4);
}

TEST_F(FailingContact74x, IsFollowedByAGoodOneThatBeginsWithAClose) {
    for (const auto& call : each(callsIn(upload))) {
        EXPECT_EQ(contactWith(upload, call, 2011), u"Communication Write Error (DPC3ERR_SEND_FAILED)"_s);
        EXPECT_EQ(contact(upload), QString()) << call.operation.toStdString();
        EXPECT_EQ(link.calls.size(), 13);
        EXPECT_EQ(link.calls.first(), u"DPC3close()"_s);
    }
}

TEST_F(FailingContact74x, AWarningOfATransferStepStopsNothing) {
    link.steps = 40;
    link.answer(u"DPC3dnlStep"_s, 100, 3);
    link.answer(u"DPC3dnlStep"_s, 1999, 4);
    link.answer(u"DPC3dnlStep"_s, -1, 5);
    EXPECT_EQ(contact(firstHalf), QString());
    ui.expectBox(u": "_s, boxTitle, box::information);
    ui.expectBox(u": "_s, boxTitle, box::information);
    EXPECT_EQ(contact(lastHalf), QString());
    EXPECT_EQ(link.callsOf(u"DPC3dnlStep"_s).size(), 40);
    EXPECT_EQ(link.calls.last(), u"DPC3close()"_s);
    EXPECT_EQ(ui.events.last(), u"events"_s);
}

TEST_F(FailingContact74x, AWarningOfAMapStepEndsIt) {
    link.mapSteps = 40;
    link.answer(u"DPC3mapStep"_s, 100, 3);
    ui.expectBox(u": "_s, boxTitle, box::information);
    EXPECT_EQ(contact(firstHalf), QString()) << "which the caller takes for success";
    EXPECT_EQ(link.calls.last(), u"DPC3mapStep(38)"_s);
    EXPECT_FALSE(ui.progressShown);
}

TEST_F(FailingContact74x, TakesNoNoticeOfTheStatusOfTheCloseBehindAFailedOpen) {
    link.answer(u"DPC3open"_s, 2010, 1);
    link.answer(u"DPC3close"_s, 2011, 2);
    EXPECT_EQ(contact(firstHalf), u"Communications with calibrator failed! (DPC3ERR_COMM_NOT_CONNECTED)"_s);
    EXPECT_EQ(ui.events.sliced(6), (QStringList{u"DPC3open(9600, \"COM1\", 1000, 5)"_s, u"DPC3close()"_s,
                                                u"hide"_s, u"normal"_s}));
}

TEST_F(FailingContact74x, AnUnknownErrorEndsItWithoutAText) {
    link.answer(u"DPC3uplStep"_s, 2017, 1);
    EXPECT_EQ(contact(upload), QString());
    EXPECT_EQ(link.calls.last(), u"DPC3uplStep(2)"_s);
}

TEST_F(FailingContact74x, SaysNothingOfACalibratorThatTheDatabaseDoesNotKnow) {
    script.answers.clear();
    link.answer(u"DPC3uplStep"_s, 2012, 1);
    EXPECT_EQ(contact(upload), u"Communication Read Error (DPC3ERR_RECV_FAILED)"_s);
    EXPECT_EQ(driver.Calibrator74xAsset, QString());
}

// A calibrator that the database doesn't know.

TEST_F(Contact74x, AnUnknownCalibratorIsNoFailureOfTheFirstHalf) {
    script.answers.clear();
    driver.Calibrator74xAsset = u"of an earlier one"_s;
    EXPECT_EQ(contact(firstHalf), QString());
    EXPECT_EQ(driver.Calibrator74xAsset, QString());
}

TEST_F(Contact74x, AnUnknownCalibratorMakesLastHalfAndUploadFailAfterTheTransfer) {
    script.answers.clear();
    for (const auto mode : {lastHalf, upload}) {
        EXPECT_EQ(contactIn(mode), notInDatabase);
        EXPECT_EQ(link.calls.last(), u"DPC3close()"_s);
        EXPECT_EQ(ui.events.last(4), (QStringList{u"DPC3close()"_s, u"normal"_s, u"hide"_s, u"events"_s}));
        EXPECT_EQ(progressValues().last(), u"value 100"_s);
    }
}

// Unexpected errors.

TEST_F(FailingContact74x, AnUnexpectedErrorIsReportedWithTheProgressWindowClosed) {
    for (const auto mode : {firstHalf, upload, lastHalf}) {
        const auto whole = callsIn(mode);
        for (int call = 1; call <= whole.size(); ++call) {
            link.onCall = {};
            begin(mode);
            link.onCall = [&](const QString&) {
                if (link.calls.size() == call)
                    throw makeError(ErrorNumber::fileNotFound);
            };
            ui.onBox = [this] { EXPECT_FALSE(ui.progressShown); };
            ui.expectReport(53, routineName);
            EXPECT_EQ(contact(mode), QString()) << "what the result held";
            EXPECT_EQ(link.calls, whole.first(call));
            EXPECT_FALSE(ui.progressShown);
            EXPECT_FALSE(ui.busy);
            EXPECT_TRUE(ui.hasMetAll());
        }
        link.onCall = {};
    }
}

TEST_F(Contact74x, WithoutALibraryIsReportedAndCrashesNothing) {
    Dpclnk3Library none(folder.path());
    Fluke74x alone{session, none};
    for (const auto mode : {firstHalf, upload, lastHalf}) {
        ui.expectReport(53, routineName);
        EXPECT_EQ(Module74xInterface::Communicate74x(alone, mode), QString());
        EXPECT_FALSE(ui.progressShown);
    }
}

} // namespace kelvane::testing
