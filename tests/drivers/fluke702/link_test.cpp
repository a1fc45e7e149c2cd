#include "drivers/fluke702/link.h"

#include "drivers/fluke702/dpclnk_library.h"
#include "tests/drivers/fluke702/recorded_link.h"
#include "tests/drivers/fluke702/status_words.h"
#include "tests/support/fixtures.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using Module702Interface::Communicate702;

namespace {

constexpr qint16 download = 1;
constexpr qint16 upload = 2;

const QString downloadTitle = u"Download Task Package to Fluke 702"_s;
const QString boxTitle = u"Download Procedures To Calibrator"_s;
const QString notInDatabase =
    u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created before uploading results."_s;
const QString routineName = u"Module702Interface,Communicate702"_s;

} // namespace

class Contact702 : public RecordedSession {
  protected:
    Contact702() {
        link.steps = 2;
        link.onCall = [this](const QString&) { ui.events << link.calls.last(); };
        ui.onBox = [this] { ui.events << u"box"_s; };
        script.answers.insert(selectAsset(link.serial), {{u"F-702"_s}});
    }

    static QString selectAsset(const QString& serial) {
        return u"select i4201 from MT.inventory where i4206 = '"_s + serial + u'\'';
    }
    /// A contact of its own, with what the last one left forgotten.
    QString contact(qint16 mode) {
        link.calls.clear();
        ui.events.clear();
        ui.busy = false;
        return Communicate702(driver, mode);
    }
    void store(const QString& key, const QString& value) {
        settings.values.insert(u"Fluke 702/"_s + key, value);
    }
    QStringList progressValues() const { return ui.events.filter(u"value "_s); }

    RecordedLink link;
    Fluke702 driver{session, link};
};

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

TEST_F(Contact702, OnlyLooksUpTheCalibratorsAsset) {
    for (const auto mode : {download, upload}) {
        script.statements.clear();
        contact(mode);
        EXPECT_EQ(script.statements, QStringList{selectAsset(link.serial)});
    }
    EXPECT_EQ(settings.writes, QStringList());
}

// What the calibrator says of itself.

TEST_F(Contact702, HandsOutBuffersOf16And10And40Blanks) {
    QStringList buffers;
    link.writeText = [&](const QString& words, const QString& buffer) {
        buffers << buffer;
        return words + QChar(0);
    };
    contact(download);
    EXPECT_EQ(buffers, (QStringList{QString(16, u' '), QString(10, u' '), QString(40, u' ')}));
}

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

TEST_F(Contact702, TakesATextWithoutAZeroAsTheWholeBuffer) {
    link.serial = u"0123456789ABC"_s;
    script.answers.insert(selectAsset(u"0123456789"_s), {{u"F-9"_s}});
    contact(upload);
    EXPECT_EQ(driver.Calibrator702Serial, u"0123456789"_s);
    EXPECT_EQ(driver.Calibrator702Asset, u"F-9"_s);
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

// The stored settings.

TEST_F(Contact702, OpensWithTheStoredBaudRateOr9600) {
    const struct {
        QString stored;
        qint32 opened;
    } rows[] = {
        {u""_s, 9600},       {u"abc"_s, 9600},
        {u"0"_s, 9600},      {u"0.4"_s, 9600},
        {u"-0.5"_s, 9600},   {u"0.6"_s, 1},
        {u"19200"_s, 19200}, {u" 4 800 baud"_s, 4800},
        {u"1,200"_s, 1},     {u"1E3"_s, 1000},
        {u"2400.5"_s, 2400}, {u"2401.5"_s, 2402},
        {u"-1"_s, -1},       {u"2147483647"_s, 2147483647},
    };
    for (const auto& row : rows) {
        store(u"BaudRate"_s, row.stored);
        EXPECT_EQ(contact(download), QString());
        EXPECT_EQ(link.calls.value(1), u"DPCopen(%1, \"COM1\", 1000, 5)"_s.arg(row.opened))
            << row.stored.toStdString();
    }
}

TEST_F(Contact702, ReportsABaudRateOutsideItsTypeAndCallsNothing) {
    for (const auto& stored : {u"2147483648"_s, u"1E99"_s}) {
        store(u"BaudRate"_s, stored);
        ui.expectReport(6, routineName);
        EXPECT_EQ(contact(download), QString());
        EXPECT_EQ(link.calls, QStringList());
        EXPECT_FALSE(ui.progressShown);
    }
}

TEST_F(Contact702, OpensTheStoredPortOrCom1) {
    for (const auto& [stored, opened] :
         {std::pair{u""_s, u"COM1"_s}, {u"COM3"_s, u"COM3"_s}, {u" "_s, u" "_s}, {u"порт"_s, u"порт"_s}}) {
        store(u"Port"_s, stored);
        EXPECT_EQ(contact(upload), QString());
        EXPECT_EQ(link.calls.value(1), u"DPCopen(9600, \"%1\", 1000, 5)"_s.arg(opened));
    }
}

TEST_F(Contact702, TellsTheLibraryNothingElseOfTheSettings) {
    contact(download);
    const auto calls = link.calls;
    for (const auto& key : {u"Parity"_s, u"DataBits"_s, u"StopBits"_s})
        store(key, u"7"_s);
    settings.values.insert(u"Fluke 743/744/Port"_s, u"COM4"_s);
    contact(download);
    EXPECT_EQ(link.calls, calls);
}

// The transfer.

struct Count {
    qint32 count;
    QStringList values;
};

TEST_F(Contact702, ShowsTheProgressInWholeStepsOfAHundredth) {
    const Count rows[] = {
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

TEST_F(Contact702, TakesTheGreatestCount) {
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

// A status that is not 0.

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
                EXPECT_TRUE(ui.allCame()) << where;
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

TEST_F(Contact702, AWarningInMidTransferIsShownAndCountsAsSuccessWithTheRestUntransferred) {
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

TEST_F(Contact702, ACalibratorUnknownToTheDatabaseIsToldAfterADownloadWhichStillSucceeds) {
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

TEST_F(Contact702, ACalibratorThatCannotBeLookedUpCountsAsUnknown) {
    script.failures.insert(selectAsset(link.serial), {-131, u"Syntax error"_s, u"42000"_s});
    ui.expectReport(-131, u"ModuleGlobals,AssetfromSerial"_s);
    ui.expectBox(notInDatabase, downloadTitle, box::warning);
    EXPECT_EQ(contact(download), QString());
    ui.expectReport(-131, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(contact(upload), notInDatabase);
    EXPECT_FALSE(ui.busy);
}

TEST_F(Contact702, ALostDatabaseEndsTheSessionButNotTheTransfer) {
    script.lost = true;
    session.SessionConnected = true;
    ui.expectReport(10054, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(contact(upload), notInDatabase);
    EXPECT_EQ(link.calls.size(), 7);
    EXPECT_FALSE(session.SessionConnected);
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
            EXPECT_TRUE(ui.allCame());
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
    EXPECT_EQ(Communicate702(alone, download), QString());
    EXPECT_FALSE(ui.progressShown);
}

} // namespace kelvane::testing
