#include "testkit/torque_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleTSInterface;

namespace {

const QString failed = u"Communications with calibrator failed!"_s;
const QString timeout = u"Communications Timeout on Command Acknowledgement"_s;
const QString noRecord =
    u"Asset Number for Calibrator NOT Found In Database! A record for the calibrator must be created before uploading results."_s;

} // namespace

class TorqueDownload : public TorqueFixture {
  protected:
    QString download() { return TorqueStar_download(driver, u"TAG"_s); }

    /// The keys that `AddInUse` registered with the calibrator.
    QStringList registeredInstruments() const {
        QStringList keys;
        for (const auto& statement : writes()) {
            if (statement.startsWith(u"insert into mt.hvm_kv_task_inuse "_s))
                keys << statement.section(u'\'', 3, 3);
        }
        return keys;
    }

    /// What is said for `count` wrenches when all goes well.
    static QStringList wrenchTalk(int count) {
        QStringList talk;
        for (int i = 1; i <= count; ++i)
            talk << u"T1C W-%1"_s.arg(i) << u"T1A W-%1"_s.arg(i);
        return talk;
    }
};

TEST_F(TorqueDownload, OneInstrumentUsesNoRoundAndExactStatements) {
    addWrenches(u"TAG"_s, 1);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T1C W-1"_s, u"T1A W-1"_s}));
    EXPECT_EQ(peer.received[2], "T1CW-1=PC\xFF");
    EXPECT_EQ(
        peer.received[3].toHex(' '),
        "54 31 41 57 2d 31 3d 50 43 ff 03 01 1e 02 00 26 25 a0 00 03 00 03 00 05 03 01 00 0f de 80 00 0e a6 "
        "00 00 00 c3 50 00 00 61 a8 20 00 00 00 00 00 00 00 00 00 00 00 00 00 4e 20 01 5e 00 00 30 39");
    EXPECT_EQ(driver.TSMessage, peer.received[3]);
    const QStringList calibrator{selectSerial(u"12345678"_s), selectMtag(u"TS-01"_s)};
    QStringList expected{selectSerial(u"12345678"_s)};
    expected
        << calibrator
        << u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '12345678';commit"_s
        << u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '900';commit"_s
        << selectPackage(u"TAG"_s) << selectMembers(u"TAG"_s) << selectParams(u"W-1"_s)
        << selectStandards(u"W-1"_s) << selectParams(u"X-1"_s) << calibrator
        << u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('12345678',now(*),'KW-1','jdoe');commit"_s
        << u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('900',now(*),'KW-1');commit"_s;
    EXPECT_EQ(script.statements, expected);
    EXPECT_EQ(ui.events.first(), u"busy"_s);
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(TorqueDownload, AListOfSeveralIsGatheredIntoARoundOfTheirNumber) {
    for (const int count : {2, 3, 10}) {
        peer.received.clear();
        script.statements.clear();
        const auto assets = addWrenches(u"TAG"_s, count);
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T2F KVTASK"_s, u"T2B KVTASK"_s} +
                                   wrenchTalk(count) + QStringList{u"T2C"_s}));
        EXPECT_EQ(peer.received[2], "T2FKVTASK=PC\xFF");
        EXPECT_EQ(peer.received[3], "T2BKVTASK=PC\xFF" + QByteArray(1, static_cast<char>(count)) + '\x03');
        EXPECT_EQ(registeredInstruments().size(), count);
    }
}

TEST_F(TorqueDownload, ARoundThatExistsIsErasedFirst) {
    addWrenches(u"TAG"_s, 2);
    replies["T2F"] << QByteArray("t2F\x01");
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation().mid(2, 3), (QStringList{u"T2F KVTASK"_s, u"T2E KVTASK"_s, u"T2B KVTASK"_s}));
    for (const auto& other :
         {QByteArray("t2F\0", 4), QByteArray("t2F\x02"), QByteArray("t2F1"), QByteArray("t2F")}) {
        peer.received.clear();
        replies["T2F"] << other;
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(conversation()[3], u"T2B KVTASK"_s) << other.toHex(' ').toStdString();
    }
}

TEST_F(TorqueDownload, ACharacteristicThatExistsIsDeletedWithoutAQuestion) {
    addWrenches(u"TAG"_s, 2);
    replies["T1C"] << QByteArray("t1C\x02") << QByteArray("t0C\x02");
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation().mid(4),
              (QStringList{u"T1C W-1"_s, u"T1J"_s, u"T1A W-1"_s, u"T1C W-2"_s, u"T1A W-2"_s, u"T2C"_s}));
}

TEST_F(TorqueDownload, ALinkThatDoesNotAnswerEndsBeforeAnythingIsChanged) {
    addWrenches(u"TAG"_s, 1);
    replies["T0A"] << std::nullopt << QByteArray("t0B!");
    EXPECT_EQ(download(), timeout);
    EXPECT_EQ(download(), failed) << "another answer than the expected one";
    port.refuseOpening = true;
    EXPECT_EQ(
        download(),
        u"Unable to open communications channel to calibrator! Please check communications settings and try again."_s);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(TorqueDownload, ACalibratorWithoutARecordIsOnlyAWarning) {
    addWrenches(u"TAG"_s, 1);
    script.answers.remove(selectSerial(u"12345678"_s));
    ui.expectBox(noRecord, u"Download Procedures To Calibrator"_s, box::warning);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(registeredInstruments(), QStringList{u"KW-1"_s});
    EXPECT_TRUE(writes().contains(
        u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('',now(*),'KW-1');commit"_s));
}

TEST_F(TorqueDownload, AMissingIdentityIsNotCheckedAndCountsAsNumberZero) {
    addWrenches(u"TAG"_s, 1);
    replies["T0D"] << std::nullopt;
    ui.expectBox(noRecord, u"Download Procedures To Calibrator"_s, box::warning);
    EXPECT_EQ(download(), QString());
    EXPECT_TRUE(writes().first().contains(u"serial_number = '0'"_s));
}

TEST_F(TorqueDownload, TheSerialNumberIsTheDecimalTextOfTheDecodedNumber) {
    const struct {
        qint32 number;
        QString text;
    } cases[] = {{7, u"7"_s}, {0x0000300A, u"778"_s}, {-2, u"-2"_s}};
    for (const auto& testCase : cases) {
        addWrenches(u"TAG"_s, 1);
        script.statements.clear();
        script.answers.insert(selectSerial(testCase.text), {{u"TS-01"_s}});
        replies["T0D"] << identity(testCase.number);
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(script.statements.first(), selectSerial(testCase.text));
    }
}

TEST_F(TorqueDownload, ARoundThatIsRefusedEndsTheDownloadWithItsText) {
    const QStringList texts{u"Round Already Exists!"_s, u"Invalid Name for Round!"_s,
                            u"Invalid Sample Mode!"_s, u"Invalid Number of Characteristics!"_s};
    addWrenches(u"TAG"_s, 2);
    for (int code = 1; code <= 4; ++code) {
        peer.received.clear();
        replies["T2B"] << "t2B" + QByteArray(1, static_cast<char>(code));
        EXPECT_EQ(download(), texts[code - 1]);
        EXPECT_EQ(conversation().last(), u"T2B KVTASK"_s);
    }
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(TorqueDownload, ARoundRefusedWithAnUnknownCodeEndsInWhatTheCallerTakesForSuccess) {
    addWrenches(u"TAG"_s, 2);
    for (const char code : {'\0', '\x05', '\xFF'}) {
        peer.received.clear();
        replies["T2B"] << QByteArray("t2B") + code;
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(conversation().last(), u"T2B KVTASK"_s);
    }
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(TorqueDownload, ARoundAnsweredInAnyOtherLengthIsAccepted) {
    addWrenches(u"TAG"_s, 2);
    for (const QByteArray& reply : {QByteArray("t2B"), QByteArray("t2B\x01\x01")}) {
        replies["T2B"] << reply;
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(conversation().last(), u"T2C"_s);
    }
}

TEST_F(TorqueDownload, ALinkThatFailsAtTheRoundEndsWithItsText) {
    addWrenches(u"TAG"_s, 2);
    replies["T2B"] << std::nullopt;
    EXPECT_EQ(download(), timeout);
    EXPECT_EQ(conversation().last(), u"T2B KVTASK"_s);
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(TorqueDownload, ARefusedCharacteristicEndsTheDownloadWithItsNameAndText) {
    addWrenches(u"TAG"_s, 1);
    const struct {
        QByteArray reply;
        QString result;
    } cases[] = {
        {"t1A\x05", u"W-1 - Characteristic Already Exists!"_s},
        {QByteArray("t1A\0\0", 5), u"W-1 - Unknown Error"_s},
        {QByteArray("t1A\0\x01", 5), u"W-1 - Characteristic Name Too Long!"_s},
        {QByteArray("t1A\0\x13", 5), u"W-1 - Minimum Torque Out Of Range!"_s},
        {QByteArray("t1A\0\x1b", 5), u"W-1 - Insufficient Room in TorqueStar Database!"_s},
        {QByteArray("t1A\0\x1c", 5), u"W-1 - Transduver Span Is Out Of Range!"_s},
        {QByteArray("t1A\0\x1d", 5), u"W-1 - "_s},
        {QByteArray("t1A\0\xff", 5), u"W-1 - "_s},
    };
    for (const auto& testCase : cases) {
        replies["T1A"] << testCase.reply;
        EXPECT_EQ(download(), testCase.result) << testCase.reply.toHex(' ').toStdString();
    }
    EXPECT_EQ(registeredInstruments(), QStringList());
    for (const QByteArray& taken : {QByteArray("t1A"), QByteArray("t1A\0\0\x05", 6)}) {
        replies["T1A"] << taken;
        EXPECT_EQ(download(), QString());
    }
}

TEST_F(TorqueDownload, AFailureHalfWayLeavesTheRegistryWithWhatTheCalibratorAccepted) {
    const struct {
        QByteArray message;
        QList<std::optional<QByteArray>> replies;
        QString result;
    } cases[] = {
        {"T1A", {"t1A", "t1A", std::nullopt}, timeout},
        {"T1A", {"t1A", "t1A", "t1A!"}, u"W-3 - Characteristic Already Exists!"_s},
        {"T1A", {"t1A", "t1A", QByteArray("t1A\0\x12", 5)}, u"W-3 - Maximum Torque Out Of Range!"_s},
    };
    for (const auto& testCase : cases) {
        addWrenches(u"TAG"_s, 5);
        script.statements.clear();
        peer.received.clear();
        replies[testCase.message] = testCase.replies;
        EXPECT_EQ(download(), testCase.result);
        EXPECT_EQ(registeredInstruments(), (QStringList{u"KW-1"_s, u"KW-2"_s}));
        EXPECT_EQ(conversation().last(), u"T1A W-3"_s) << "the round is not stored";
        EXPECT_TRUE(writes().first().startsWith(u"delete from mt.hvm_kv_task_inuse"_s));
    }
}

TEST_F(TorqueDownload, AToolThatTheCalibratorCannotTakeStopsTheListAndThoseBeforeItStay) {
    const struct {
        void (*spoil)(CalParamRecord&);
        QString result;
    } cases[] = {
        {[](CalParamRecord& tool) { tool.output_type = u"psi"_s; },
         u"TorqueStar cannot accept selected output units! psi"_s},
        {[](CalParamRecord& tool) { tool.neg_reading_pct = 90; }, u"Minimum Torque Out of Range!"_s},
    };
    for (const auto& testCase : cases) {
        addWrenches(u"TAG"_s, 3);
        script.statements.clear();
        peer.received.clear();
        auto tool = wrench();
        testCase.spoil(tool);
        addInstrument(u"W-2"_s, u"KW-2"_s, tool);
        EXPECT_EQ(download(), testCase.result);
        EXPECT_EQ(registeredInstruments(), QStringList{u"KW-1"_s});
        EXPECT_EQ(conversation().last(), u"T1A W-1"_s);
    }
}

TEST_F(TorqueDownload, AToolWithoutAStandardHasATransducerWithoutUnits) {
    addWrenches(u"TAG"_s, 1);
    addStandards(u"W-1"_s, {});
    EXPECT_EQ(download(), u"TorqueStar cannot accept selected input units! ft/lb"_s);
}

TEST_F(TorqueDownload, TheFirstOfSeveralStandardsIsTheTransducer) {
    addWrenches(u"TAG"_s, 1);
    addStandards(u"W-1"_s, {u"X-2"_s, u"X-1"_s});
    auto other = transducer();
    other.output_high = 500;
    addInstrument(u"X-2"_s, u"KX-2"_s, other);
    EXPECT_EQ(download(), QString());
    EXPECT_TRUE(peer.received.last().contains(integer32(5000000)));
}

TEST_F(TorqueDownload, ACountOutsideAByteIsReportedAndEndsInTheDefaultResult) {
    addWrenches(u"TAG"_s, 1);
    auto tool = wrench();
    tool.repetitions = 300;
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    ui.expectReport(5, u"ModuleTSInterface,TorqueStar_download"_s);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(registeredInstruments(), QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(TorqueDownload, ARoundOfMoreThanAByteCanCountIsReportedBeforeItIsMade) {
    addWrenches(u"TAG"_s, 256);
    ui.expectReport(5, u"ModuleTSInterface,TorqueStar_download"_s);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T2F KVTASK"_s}));
}

TEST_F(TorqueDownload, TheHourglassShowsFromTheFirstExchangeOn) {
    addWrenches(u"TAG"_s, 1);
    bool busy = false;
    peer.reply = [this, &busy, inner = peer.reply](const QByteArray& body) {
        busy = busy || (body == "T0A" && ui.busy);
        return inner(body);
    };
    EXPECT_EQ(download(), QString());
    EXPECT_TRUE(busy);
    EXPECT_FALSE(ui.busy);
}

TEST_F(TorqueDownload, TheRoundIsStoredAtTheEndOrTheResultSaysNot) {
    addWrenches(u"TAG"_s, 2);
    replies["T2C"] << QByteArray("t2C!") << std::nullopt;
    EXPECT_EQ(download(), u"Round \"KVTASK\" NOT Stored!"_s);
    EXPECT_EQ(download(), timeout);
    EXPECT_EQ(registeredInstruments().size(), 4) << "the instruments stay registered";
}

TEST_F(TorqueDownload, ExchangesThatAreNotCheckedGoOnWhateverTheirOutcome) {
    addWrenches(u"TAG"_s, 2);
    replies["T2F"] << std::nullopt;
    replies["T1C"] << std::nullopt << QByteArray("t1C\x02");
    replies["T1J"] << std::nullopt;
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s, u"T2F KVTASK"_s, u"T2B KVTASK"_s, u"T1C W-1"_s,
                                           u"T1A W-1"_s, u"T1C W-2"_s, u"T1J"_s, u"T1A W-2"_s, u"T2C"_s}));
}

TEST_F(TorqueDownload, EachExchangeOnASilentLineHasItsOwnRetryBox) {
    addWrenches(u"TAG"_s, 2);
    // From the identity on no link start is answered.
    port.answer = [this](const QByteArray& bytes) -> ScriptedSerialPort::Chunks {
        if (peer.received.contains("T0D") && bytes == hex("10 04 02"))
            return {};
        return {peer.take(bytes)};
    };
    const auto advice =
        failed +
        u"\r\nCheck to make sure that \"PC COMMS\" has been selected (option 8) from the Main Menu and the calibrator is correctly connected and configured."_s;
    for (const auto answer : {BoxAnswer::abort, BoxAnswer::ignore})
        ui.expectBox(advice, u"Download Procedures To Calibrator"_s,
                     {BoxIcon::warning, BoxButtons::abortRetryIgnore, 2}, answer);
    EXPECT_EQ(download(), advice);
    EXPECT_EQ(registeredInstruments(), QStringList());
}

TEST_F(TorqueDownload, ANameIsTheFirstElevenCharactersOfTheAssetNumberInWindowsBytes) {
    addWrenches(u"TAG"_s, 0);
    const auto asset = u"Schlüssel-€-Ω-17"_s;
    addInstrument(asset, u"77"_s, wrench());
    addStandards(asset, {u"X-1"_s});
    addPackage(u"TAG"_s, {asset});
    replies["T1A"] << QByteArray("t1A!");
    EXPECT_EQ(download(), u"Schlüssel-€ - Characteristic Already Exists!"_s);
    EXPECT_EQ(peer.received[2], "T1CSchl\xFCssel-\x80=PC\xFF");
    const auto greek = u"Ω-1"_s;
    addInstrument(greek, u"78"_s, wrench());
    addStandards(greek, {u"X-1"_s});
    addPackage(u"TAG"_s, {greek});
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(peer.received.last().first(10), "T1A?-1=PC\xFF");
}

TEST_F(TorqueDownload, AnEmptyPackageDownloadsNothing) {
    addWrenches(u"TAG"_s, 0);
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(conversation(), (QStringList{u"T0A"_s, u"T0D"_s}));
}

TEST_F(TorqueDownload, StatementsAndPollsForEachToolStayTheSameFromTheFirstToTheFortySeventh) {
    addWrenches(u"TAG"_s, 47);
    QList<qsizetype> statements;
    QList<int> polls;
    peer.reply = [this, &statements, &polls, inner = peer.reply](const QByteArray& body) {
        if (body.startsWith("T1A")) {
            statements << script.statements.size();
            polls << port.polls;
        }
        return inner(body);
    };
    EXPECT_EQ(download(), QString());
    ASSERT_EQ(statements.size(), 47);
    for (int i = 1; i < 47; ++i) {
        EXPECT_EQ(statements[i] - statements[i - 1], 4 + 3) << i;
        EXPECT_EQ(polls[i] - polls[i - 1], polls[1] - polls[0]) << i;
    }
}

} // namespace kelvane::testing
