#include "tests/drivers/fluke74x/download_fixture.h"
#include "tests/drivers/fluke74x/status_words.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// Two instruments with messages before and after, the first measured by the calibrator, the second by hand.
class Fluke74xDownloadStatus : public Fluke74xDownload {
  protected:
    Fluke74xDownloadStatus() {
        auto byHand = transmitter();
        byHand.input_indicated = byHand.output_indicated = true;
        addList({transmitter(), byHand});
        for (const auto& asset : {u"I-1"_s, u"I-2"_s})
            addPrompts(asset, {message(u"A"_s, u"Isolate it."_s, u"PRE"_s),
                               message(u"B"_s, u"Open it."_s, u"PST"_s)});
        EXPECT_EQ(download(), QString());
        whole = link.operations();
    }

    /// A call of an image and the asset that its status concerns.
    struct ImageCall {
        CallAt at;
        QString asset;
    };
    /// Every call that writes the image of a good download.
    QList<ImageCall> imageCalls() const {
        QList<ImageCall> list;
        QHash<QString, int> occasions;
        int task = 0;
        for (const auto& operation : whole) {
            // A task begins with its first call.
            if (operation == u"MEM3startTask")
                ++task;
            if (!operation.startsWith(u"DPC3"_s))
                list << ImageCall{{operation, ++occasions[operation]},
                                  task == 0 ? QString() : u"I-%1"_s.arg(task)};
        }
        return list;
    }
    QString downloadWith(const CallAt& call, qint16 status) {
        link.calls.clear();
        script.statements.clear();
        ui.events.clear();
        link.answer(call.operation, status, call.occasion);
        return download();
    }
    void expectNotice(const QString& name) {
        ui.expectBox(name + u": "_s, u"Download Procedures To Calibrator"_s, box::information);
    }
    void expectEnded() const {
        EXPECT_FALSE(ui.busy);
        EXPECT_FALSE(ui.progressShown);
    }
    /// The first search of the image says by its status that there is nothing.
    static bool isFirstSearch(const CallAt& call) {
        return call.operation == u"MEM3findStrategyDefn" && call.occasion == 1;
    }

    QStringList whole;
    const QStringList bothRegistered{u"KI-1"_s, u"KI-2"_s};
};

TEST_F(Fluke74xDownloadStatus, BelowTwoThousandGoesOnAtEveryCallWithItsBoxFrom100On) {
    int calls = 0;
    for (const auto& call : imageCalls()) {
        if (isFirstSearch(call.at))
            continue;
        for (const qint16 status : {qint16{-1}, qint16{99}, qint16{100}, qint16{1999}}) {
            if (isShown3(status))
                expectNotice(call.asset);
            EXPECT_EQ(downloadWith(call.at, status), QString());
            EXPECT_TRUE(ui.hasMetAll()) << call.at.operation.toStdString() << ' ' << status;
            EXPECT_EQ(link.operations(), whole) << call.at.operation.toStdString() << ' ' << status;
            EXPECT_EQ(registeredInstruments(), bothRegistered);
            expectEnded();
        }
        ++calls;
    }
    EXPECT_EQ(calls, 91);
}

TEST_F(Fluke74xDownloadStatus, FromTwoThousandOnEndsTheDownloadAtEveryCallWithItsTextAndTheLinkOpen) {
    for (const auto& call : imageCalls()) {
        for (const auto& status : statusesOfTrouble3()) {
            if (status.code < 2000 || (status.code == 2001 && call.at.operation == u"MEM3findStrategyDefn"))
                continue;
            EXPECT_EQ(downloadWith(call.at, status.code), status.words)
                << call.at.operation.toStdString() << ' ' << status.code;
            EXPECT_EQ(link.operations(), upTo(whole, call.at)) << call.at.operation.toStdString();
            EXPECT_EQ(writes(), QStringList()) << call.at.operation.toStdString();
            expectEnded();
        }
    }
}

TEST_F(Fluke74xDownloadStatus, AnEndedDownloadIsFollowedByAWholeOneThatClosesTheLinkFirst) {
    EXPECT_EQ(downloadWith({u"STA3evalOp"_s}, 2002), u"Insufficient Memory (DPC3ERR_MEMORY_SIZE)"_s);
    EXPECT_EQ(link.operations().count(u"DPC3close"_s), 1) << "before it was opened";
    link.calls.clear();
    script.statements.clear();
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(link.operations(), whole);
    EXPECT_EQ(registeredInstruments(), bothRegistered);
}

TEST_F(Fluke74xDownloadStatus, SeveralWarningsAreSeveralBoxesInTheOrderOfTheCalls) {
    for (const auto& asset : {u"I-1"_s, u"I-1"_s, u"I-2"_s, u"I-2"_s})
        expectNotice(asset);
    link.answer(u"STA3evalOp"_s, 100);
    link.answer(u"MEM3endTask"_s, 102);
    link.calls.clear();
    script.statements.clear();
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(registeredInstruments(), bothRegistered);
}

// The link.

TEST_F(Fluke74xDownloadStatus, AFailureOfTheFirstHalfIsTheResultAndNothingIsRead) {
    link.mapSteps = 2;
    for (const auto& call : QList<CallAt>{{u"DPC3close"_s},
                                          {u"DPC3open"_s},
                                          {u"DPC3get74X"_s},
                                          {u"DPC3mapStart"_s},
                                          {u"DPC3mapStep"_s, 1},
                                          {u"DPC3mapStep"_s, 2}}) {
        EXPECT_EQ(downloadWith(call, 2010),
                  u"Communications with calibrator failed! (DPC3ERR_COMM_NOT_CONNECTED)"_s)
            << call.operation.toStdString();
        EXPECT_FALSE(script.statements.contains(selectPackage(u"TAG"_s)));
        EXPECT_EQ(argumentsOf(u"MEM3startTask"_s), QStringList());
        EXPECT_EQ(writes(), QStringList());
        expectEnded();
    }
}

TEST_F(Fluke74xDownloadStatus, AFailureOfTheLastHalfKeepsTheRegistry) {
    link.steps = 2;
    for (const auto& call : QList<CallAt>{
             {u"DPC3dnlStart"_s}, {u"DPC3dnlStep"_s, 1}, {u"DPC3dnlStep"_s, 2}, {u"DPC3close"_s, 2}}) {
        EXPECT_EQ(downloadWith(call, 2011), u"Communication Write Error (DPC3ERR_SEND_FAILED)"_s)
            << call.operation.toStdString();
        EXPECT_EQ(argumentsOf(u"MEM3endTask"_s).size(), 2);
        EXPECT_EQ(writes(), QStringList()) << call.operation.toStdString();
        expectEnded();
    }
}

TEST_F(Fluke74xDownloadStatus, AWarningDuringTheTransferStopsNothing) {
    link.steps = 3;
    expectNotice({});
    EXPECT_EQ(downloadWith({u"DPC3dnlStep"_s, 2}, 100), QString());
    EXPECT_EQ(argumentsOf(u"DPC3dnlStep"_s).size(), 3);
    EXPECT_EQ(registeredInstruments(), bothRegistered);
    expectEnded();
}

TEST_F(Fluke74xDownloadStatus, AWarningOfTheFirstHalfEndsThatAndTheImageIsBuiltAllTheSame) {
    expectNotice({});
    EXPECT_EQ(downloadWith({u"DPC3mapStart"_s}, 100), QString());
    EXPECT_EQ(argumentsOf(u"MEM3endTask"_s).size(), 2);
    EXPECT_EQ(registeredInstruments(), bothRegistered);
    expectEnded();
}

} // namespace kelvane::testing
