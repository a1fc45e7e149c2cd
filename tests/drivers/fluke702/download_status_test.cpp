#include "tests/drivers/fluke702/download_fixture.h"
#include "tests/drivers/fluke702/status_words.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using Status = Dpclnk::Status;

const QList<StatusWords> statuses = statusWords() + unknownStatuses();

/// Two instruments with messages before and after: each is written by every call that the status rule is for.
class FlukeDownloadStatus : public FlukeDownload {
  protected:
    FlukeDownloadStatus() {
        addList({transmitter(), transmitter()});
        for (const auto& asset : {u"I-1"_s, u"I-2"_s})
            addPrompts(asset, {message(u"A"_s, u"Isolate it."_s, u"PRE"_s),
                               message(u"B"_s, u"Open it."_s, u"PST"_s)});
    }

    /// The download when one call gives a status; its calls are then in `link.calls`.
    QString downloadWith(const CallAt& call, Status status) {
        link.calls.clear();
        script.statements.clear();
        ui.events.clear();
        link.answer(call.operation, status, call.occasion);
        return download();
    }
    /// Names only: ids and keys differ from one download to the next.
    QStringList operations() const { return link.operations(); }
    void expectNotice(const QString& name, const QString& words) {
        ui.expectBox(name + u": "_s + words, downloadTitle, box::information);
    }

    const QStringList bothRegistered{u"KI-1"_s, u"KI-2"_s};
};

/// Every call of an instrument that the rule is for; the second occasion is the other instrument's, or for
/// messages the other message's.
const QList<CallAt> ruledCalls{
    {u"MEMpromptDefn"_s, 1}, {u"MEMpromptDefn"_s, 2},    {u"MEMstrategyDefn"_s}, {u"STAsetTempUnits"_s},
    {u"STAsetTref"_s},       {u"STAsetTempStd"_s},       {u"STAsetPresUnits"_s}, {u"STAsetOutput"_s},
    {u"STAsetInput"_s},      {u"STAsetInputRange"_s},    {u"STAsetLoopPower"_s}, {u"STAsetOutputScale"_s},
    {u"STAsetInputScale"_s}, {u"STAsetTestTolerance"_s}, {u"STAsave"_s},         {u"MEMstartTask"_s},
    {u"MEMprompt"_s, 1},     {u"MEMtemplate"_s},         {u"MEMprompt"_s, 2},    {u"MEMendTask"_s},
};

} // namespace

TEST_F(FlukeDownloadStatus, BelowTwoThousandIsShownAtEveryCallAndTheDownloadGoesOn) {
    ASSERT_EQ(download(), QString());
    const auto whole = operations();
    for (const auto& call : ruledCalls) {
        for (const auto& status : statuses) {
            if (status.code == 0 || status.code >= 2000)
                continue;
            expectNotice(u"I-1"_s, status.words);
            EXPECT_EQ(downloadWith(call, status.code), QString());
            EXPECT_TRUE(ui.hasMetAll()) << call.operation.toStdString() << ' ' << status.code;
            EXPECT_EQ(operations(), whole) << call.operation.toStdString() << ' ' << status.code;
            EXPECT_EQ(registeredInstruments(), bothRegistered);
        }
    }
}

TEST_F(FlukeDownloadStatus, FromTwoThousandOnEndsTheDownloadAtEveryCall) {
    ASSERT_EQ(download(), QString());
    const auto whole = operations();
    for (const auto& call : ruledCalls) {
        for (const auto& status : statuses) {
            if (status.code < 2001)
                continue;
            EXPECT_EQ(downloadWith(call, status.code), status.words);
            EXPECT_EQ(operations(), upTo(whole, call)) << call.operation.toStdString() << ' ' << status.code;
            EXPECT_EQ(writes(), QStringList()) << call.operation.toStdString();
            EXPECT_FALSE(ui.busy);
        }
    }
}

TEST_F(FlukeDownloadStatus, TwoThousandItselfIsShownAndEndsTheDownloadInWhatTheCallerTakesForSuccess) {
    ASSERT_EQ(download(), QString());
    const auto whole = operations();
    for (const auto& call : ruledCalls) {
        expectNotice(u"I-1"_s, u"Open Thermocouple (DPCERR_OPEN_TC)"_s);
        EXPECT_EQ(downloadWith(call, 2000), QString());
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_EQ(operations(), upTo(whole, call)) << call.operation.toStdString();
        EXPECT_EQ(writes(), QStringList()) << call.operation.toStdString();
    }
}

TEST_F(FlukeDownloadStatus, OfALaterInstrumentNamesItAndRegistersNoneOfThoseBefore) {
    ASSERT_EQ(download(), QString());
    const auto whole = operations();
    for (auto call : ruledCalls) {
        call.occasion += static_cast<int>(whole.count(call.operation) / 2);
        expectNotice(u"I-2"_s, u"Open Thermocouple (DPCERR_OPEN_TC)"_s);
        EXPECT_EQ(downloadWith(call, 2000), QString());
        EXPECT_EQ(operations(), upTo(whole, call));
        EXPECT_EQ(downloadWith(call, 2026), u"No tag id saved (returned by MEMtagidInfo) (DPCERR_NOTAG)"_s);
        EXPECT_EQ(operations(), upTo(whole, call));
        EXPECT_EQ(writes(), QStringList());
    }
}

TEST_F(FlukeDownloadStatus, OfIgnoredCallsChangesNothing) {
    ASSERT_EQ(download(), QString());
    const auto whole = operations();
    for (const auto& call : QList<CallAt>{{u"MEMclear"_s}, {u"DPCclose"_s}, {u"STAinit"_s}}) {
        for (const auto& status : statuses) {
            EXPECT_EQ(downloadWith(call, status.code), QString()) << call.operation.toStdString();
            EXPECT_EQ(operations(), whole);
            EXPECT_EQ(registeredInstruments(), bothRegistered);
        }
    }
}

TEST_F(FlukeDownloadStatus, OfTheAutomaticRangeOfAPressureIsIgnored) {
    addList({instrument(u"V"_s, 0, 5, u"psi"_s, 0, 100)});
    for (const auto& status : statuses) {
        EXPECT_EQ(downloadWith({u"STAsetInputRange"_s}, status.code), QString()) << status.code;
        EXPECT_EQ(registeredInstruments(), QStringList{u"KI-1"_s});
    }
}

TEST_F(FlukeDownloadStatus, SeveralWarningsAreSeveralBoxesInTheOrderOfTheCalls) {
    expectNotice(u"I-1"_s, u"Turning off the source (DPCWARN_BAD_OUTPUT)"_s);
    expectNotice(u"I-1"_s, u"Turning off loop power (DPCWARN_BAD_LOOP)"_s);
    expectNotice(u"I-2"_s, u"Turning off the source (DPCWARN_BAD_OUTPUT)"_s);
    expectNotice(u"I-2"_s, u"Turning off loop power (DPCWARN_BAD_LOOP)"_s);
    link.answer(u"STAsetLoopPower"_s, 100);
    link.answer(u"STAsetOutput"_s, 102);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(registeredInstruments(), bothRegistered);
}

TEST_F(FlukeDownloadStatus, ALinkThatFailsKeepsTheRegistryAndGivesThePointerBack) {
    link.steps = 2;
    const QString lost = u"Communications with calibrator failed! (DPCERR_COMM_NOT_CONNECTED)"_s;
    for (const auto& call : QList<CallAt>{{u"DPCclose"_s, 2},
                                          {u"DPCopen"_s},
                                          {u"DPCget70x"_s},
                                          {u"DPCdnlStart"_s},
                                          {u"DPCdnlStep"_s, 1},
                                          {u"DPCdnlStep"_s, 2},
                                          {u"DPCclose"_s, 3}}) {
        EXPECT_EQ(downloadWith(call, 2019), lost) << call.operation.toStdString();
        EXPECT_EQ(argumentsOf(u"MEMendTask"_s).size(), 2);
        EXPECT_EQ(writes(), QStringList()) << call.operation.toStdString();
        EXPECT_FALSE(ui.busy) << call.operation.toStdString();
        EXPECT_FALSE(ui.progressShown);
    }
}

TEST_F(FlukeDownloadStatus, AWarningDuringATransferEndsItAndTheInstrumentsAreStillRegistered) {
    link.steps = 2;
    for (const Status code : {Status{100}, Status{2000}}) {
        expectNotice({}, code == 100 ? u"Turning off loop power (DPCWARN_BAD_LOOP)"_s
                                     : u"Open Thermocouple (DPCERR_OPEN_TC)"_s);
        EXPECT_EQ(downloadWith({u"DPCdnlStep"_s}, code), QString());
        EXPECT_EQ(operations().last(), u"DPCdnlStep"_s);
        EXPECT_EQ(registeredInstruments(), bothRegistered);
        EXPECT_FALSE(ui.busy);
    }
}

TEST_F(FlukeDownloadStatus, AWarningBeforeTheCalibratorIsKnownRegistersTheInstrumentsUnderBlanks) {
    expectNotice({}, u"Turning off loop power (DPCWARN_BAD_LOOP)"_s);
    EXPECT_EQ(downloadWith({u"DPCopen"_s}, 100), QString());
    EXPECT_EQ(registeredInstruments(QString(10, u' ')), bothRegistered);
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(FlukeDownloadStatus, AWarningWithTheSerialNumberRegistersTheInstrumentsUnderIt) {
    expectNotice({}, u"Turning off loop power (DPCWARN_BAD_LOOP)"_s);
    EXPECT_EQ(downloadWith({u"DPCget70x"_s}, 100), QString());
    EXPECT_EQ(registeredInstruments(), bothRegistered);
}

} // namespace kelvane::testing
