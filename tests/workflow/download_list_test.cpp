#include "resources/text_id.h"
#include "testkit/shown_in.h"
#include "tests/workflow/download_list_fixture.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST_F(DownloadList, AnEmptyEntryDoesNothing) {
    add(QString());
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(DownloadList, AListedEntryIsReportedInAnyCaseAlsoBehindAnArrow) {
    screen.list = {u"other"_s, u"Größe-1"_s, u">PACK"_s, u"ITEM"_s};
    for (const auto& entry : {u"OTHER"_s, u"GRÖßE-1"_s, u"größe-1"_s, u"pack"_s, u">pack"_s, u"ıtem"_s}) {
        expectWarning(u"Instrument already listed!"_s);
        add(entry);
        EXPECT_EQ(script.statements, QStringList()) << entry.toStdString();
        EXPECT_EQ(screen.events, ended);
    }
    EXPECT_EQ(screen.list.size(), 4);
}

TEST_F(DownloadList, FaultsOfASingleInstrumentAreShownInTheOrderOfTheChecks) {
    expectWarning(u"Must enter a valid instrument number!"_s);
    add(u"nobody"_s);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"nobody"_s), selectMtag(u"nobody"_s)}));
    EXPECT_EQ(screen.events, ended);

    script.answers.insert(selectMtag(u"bare"_s), {{u"5"_s}});
    expectWarning(incomplete);
    add(u"bare"_s);
    EXPECT_EQ(screen.events, ended);

    auto tool = wrench();
    tool.input_indicated = true;
    addInstrument(u"W-1"_s, u"KW-1"_s, tool);
    expectWarning(u"W-1: Calibrator cannot calibrate instruments that have indicated inputs!"_s);
    add(u"W-1"_s);
    EXPECT_EQ(writes(), QStringList());
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);
}

TEST_F(DownloadList, APackageSkipsUnknownAndUnconfiguredMembersAndReportsUnacceptableOnes) {
    script.answers.insert(selectMtag(u"bare"_s), {{u"5"_s}});
    auto tool = wrench();
    tool.input_type = u"psi"_s;
    addInstrument(u"P-1"_s, u"KP-1"_s, tool);
    addPackage(u"PACK"_s, {u"nobody"_s, u"W-1"_s, u"bare"_s, u"P-1"_s, u"W-2"_s});
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    expectWarning(u"P-1: TorqueStar cannot accept selected input units!"_s);
    expectQuestion(u"W-2"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-2"_s}));
}

TEST_F(DownloadList, ASecondAddOfAPackagePassesOverItsMembersSilently) {
    addPackage(u"PACK"_s, {u"W-1"_s, u"W-2"_s});
    screen.list = {u"w-1"_s, u"W-2"_s};
    add(u"PACK"_s);
    EXPECT_EQ(screen.list.size(), 2);
    EXPECT_EQ(script.statements, (QStringList{selectPackage(u"PACK"_s), selectMembers(u"PACK"_s)}));
    EXPECT_EQ(screen.events, ended);
}

TEST_F(DownloadList, APackageThatNamesAMemberTwiceTakesItOnce) {
    addPackage(u"PACK"_s, {u"W-1"_s, u"w-1"_s});
    expectQuestion(u"W-1"_s, u"X-1"_s);
    expectQuestion(u"W-1"_s, QString(), false);
    add(u"PACK"_s);
    EXPECT_EQ(screen.list, QStringList{u"W-1"_s});
}

TEST_F(DownloadList, TheTorqueStarTakesFortySevenRowsAndRefusesAPackageAsAWhole) {
    QStringList ten;
    for (int i = 0; i < 10; ++i) {
        ten << u"P-%1"_s.arg(i);
        addInstrument(ten.last(), u'K' + ten.last(), wrench());
        qualify(u"X-1"_s, ten.last());
    }
    addPackage(u"TEN"_s, ten);
    const struct {
        qsizetype listed;
        QString entry;
        bool refused;
    } cases[] = {
        {38, u"TEN"_s, true}, {37, u"TEN"_s, false}, {46, u"W-1"_s, false},
        {47, u"W-1"_s, true}, {48, u"W-1"_s, true},
    };
    for (const auto& testCase : cases) {
        screen.list = QStringList(testCase.listed, u"row"_s);
        const auto members = testCase.entry == u"TEN"_s ? ten : QStringList{testCase.entry};
        if (testCase.refused) {
            expectWarning(u"Maximum number of instruments has been reached for the selected calibrator!"_s);
        } else {
            expectQuestion(members.first(), u"X-1"_s);
            for (const auto& asset : members)
                expectQuestion(asset, QString(), false);
        }
        add(testCase.entry);
        EXPECT_EQ(screen.list.size(), testCase.refused ? testCase.listed : 47);
        EXPECT_EQ(screen.events, ended);
        EXPECT_EQ(ui.events.last(), u"normal"_s);
    }
}

TEST_F(DownloadList, TheHourglassShowsWhileAnEntryIsChecked) {
    screen.list = QStringList(47, u"row"_s);
    expectWarning(u"Maximum number of instruments has been reached for the selected calibrator!"_s);
    add(u"W-1"_s);
    // The reading of the package has a pointer of its own.
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s}));
}

TEST_F(DownloadList, OtherCalibratorsHaveNoSuchLimit) {
    addInstrument(u"V-1"_s, u"KV-1"_s, isolator());
    screen.list = QStringList(600, u"row"_s);
    screen.name = u"Fluke 702"_s;
    add(u"V-1"_s);
    EXPECT_EQ(screen.list.last(), u"V-1"_s);
    addInstrument(u"V-2"_s, u"KV-2"_s, isolator());
    screen.name = u"Fluke 743/744"_s;
    add(u"V-2"_s);
    EXPECT_EQ(screen.list.last(), u"V-2"_s);
    script.statements.clear();
    screen.name = u"nameless"_s;
    add(u"W-1"_s);
    EXPECT_EQ(screen.list.last(), u"W-1"_s) << "a calibrator that is none accepts all and asks for nothing";
    EXPECT_EQ(writes(), QStringList{freeStandards(u"W-1"_s)});
}

TEST_F(DownloadList, AnErrorIsReportedUnderTheButtonsNameAndTheHourglassGoes) {
    script.failures.insert(freeStandards(u"W-1"_s), Error{-210, u"locked"_s});
    ui.expectReport(-210, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
    EXPECT_EQ(screen.list, QStringList());
    EXPECT_EQ(ui.events.last(), u"normal"_s);

    script.failures.clear();
    script.answers.insert(selectLast(u"W-1"_s), {{std::nullopt}});
    ui.expectReport(94, u"FormDockingDown,CommandAdd"_s);
    add(u"W-1"_s);
}

TEST_F(DownloadList, ARowIsRemovedWithItsStandards) {
    screen.list = {u"W-1"_s, u"W-2"_s, u"W-3"_s};
    removeFromDownloadList(calibrators, screen, 1);
    EXPECT_EQ(screen.list, (QStringList{u"W-1"_s, u"W-3"_s}));
    EXPECT_EQ(screen.events, QStringList{u"focus"_s});
    EXPECT_EQ(script.statements, QStringList{freeStandards(u"W-2"_s)});
}

TEST_F(DownloadList, WithNoRowSelectedNothingIsRemoved) {
    screen.list = {u"W-1"_s};
    for (const int row : {-1, 1, 99})
        removeFromDownloadList(calibrators, screen, row);
    EXPECT_EQ(screen.list.size(), 1);
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(DownloadList, ARowWhoseStandardsCannotBeFreedStays) {
    screen.list = {u"W-1"_s};
    script.failures.insert(freeStandards(u"W-1"_s), Error{-210, u"locked"_s});
    ui.expectReport(-210, u"FormDockingDown,CommandRemove"_s);
    removeFromDownloadList(calibrators, screen, 0);
    EXPECT_EQ(screen.list.size(), 1);
}

/// The download of the list, as a temporary package.
class ListDownload : public DownloadList {
  protected:
    ListDownload() {
        screen.list = {u"W-1"_s, u"W-2"_s};
        // The tag is known once the package has been made; the driver then asks for its members.
        peer.reply = [this, inner = peer.reply](const QByteArray& body) {
            if (body == "T0A")
                addPackage(tag(), screen.list);
            EXPECT_TRUE(calibrators.communicating);
            return inner(body);
        };
    }

    void download() {
        script.statements.clear();
        downloadList(calibrators, screen);
    }

    QString tag() const {
        for (const auto& statement : script.statements) {
            if (statement.startsWith(u"insert into mt.hvm_kv_task_packages"_s))
                return statement.section(u'\'', 1, 1);
        }
        return {};
    }

    QStringList packageStatements() const {
        return writes().filter(QRegularExpression(u"hvm_kv_task_(packages|assets)"_s));
    }
};

TEST_F(ListDownload, CarriesTheListAsAPackageAndRemovesItAfterSuccess) {
    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_TRUE(QRegularExpression(u"^[0-9A-Z]{30}$"_s).match(tag()).hasMatch()) << tag().toStdString();
    EXPECT_EQ(
        packageStatements(),
        (QStringList{
            u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values ('%1','WSHT','jdoe',now(*),'%1');commit"_s
                .arg(tag()),
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1',(select mtag from MT.inventory where i4201 = 'W-1'));commit"_s
                .arg(tag()),
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1',(select mtag from MT.inventory where i4201 = 'W-2'));commit"_s
                .arg(tag()),
            u"delete from mt.hvm_kv_task_assets where tptag = '%1';delete from mt.hvm_kv_task_packages where tptag = '%1';commit"_s
                .arg(tag())}));
    EXPECT_EQ(script.statements.last(), packageStatements().last());
    EXPECT_EQ(conversation().last(), u"T2C"_s);
    EXPECT_FALSE(calibrators.communicating);
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastDownloadCalibrator=Crane TorqueStar IVc"_s});
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

TEST_F(ListDownload, AFailureKeepsFormListAndPackageAndALaterTryMakesANewOne) {
    replies["T2C"] << std::nullopt;
    expectWarning(u"Communications Timeout on Command Acknowledgement"_s);
    download();
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_EQ(screen.list.size(), 2);
    EXPECT_EQ(settings.writes, QStringList());
    EXPECT_EQ(packageStatements().size(), 3);
    const auto first = tag();

    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_NE(tag(), first);
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

TEST_F(ListDownload, OfAnEmptyListDoesNothing) {
    screen.list.clear();
    download();
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(ListDownload, IsStartedByTypingItsWordInAnyCase) {
    for (const auto& word : {u"Download"_s, u"download"_s, u"DOWNLOAD"_s}) {
        ui.expectBox(u"Download Successful"_s, title, box::information);
        add(word);
        EXPECT_EQ(screen.events, (QStringList{u"empty"_s, u"close"_s}));
        EXPECT_TRUE(ui.events.contains(u"events"_s));
    }
    screen.list.clear();
    add(u"download"_s);
    EXPECT_EQ(screen.events, QStringList{u"empty"_s});
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(ListDownload, IsStartedByTheWordOfTheLanguageAndByItsOwn) {
    const ShownIn german(u"de"_s);
    for (const auto& word : {u"laden"_s, u"Download"_s}) {
        ui.expectBox(text(TextId::downloadSuccessful), text(TextId::downloadProcedures), box::information);
        add(word);
        EXPECT_EQ(screen.events, (QStringList{u"empty"_s, u"close"_s}));
    }
}

TEST_F(ListDownload, AnErrorIsReportedUnderItsName) {
    script.lost = true;
    ui.expectReport(10054, u"FormDockingDown,Download"_s);
    download();
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(ListDownload, ACalibratorWithoutItsLinkLibraryKeepsTheList) {
    link3.reasonMissing = u"no library"_s;
    screen.name = u"Fluke 743/744"_s;
    expectWarning(u"no library"_s);
    download();
    EXPECT_EQ(packageStatements().size(), 3);
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(ListDownload, GoesToTheFluke702OverItsLink) {
    addInstrument(u"V-1"_s, u"KV-1"_s, isolator());
    addPoints(u"V-1"_s, {u"50"_s}, 1);
    addEquipment(u"F-702"_s, u"900"_s, link.serial);
    screen.name = u"Fluke 702"_s;
    screen.list = {u"V-1"_s};
    link.onQuestion = [this] { addPackage(tag(), screen.list); };
    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_EQ(link.callsOf(u"MEMstartTask"_s), QStringList{u"MEMstartTask(\"V-1\")"_s});
    EXPECT_EQ(link.callsOf(u"DPCdnlStart"_s).size(), 1);
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastDownloadCalibrator=Fluke 702"_s});
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

TEST_F(ListDownload, WithoutALinkLibraryKeepsTheListForLater) {
    screen.name = u"Fluke 702"_s;
    link.reasonMissing = u"no library"_s;
    expectWarning(u"no library"_s);
    download();
    EXPECT_EQ(packageStatements().size(), 3);
    EXPECT_EQ(screen.events, QStringList());
    EXPECT_EQ(link.calls, QStringList());
}

TEST_F(ListDownload, ANameThatIsNoCalibratorEndsInSuccessHavingDoneNothing) {
    screen.name = u"nameless"_s;
    ui.expectBox(u"Download Successful"_s, title, box::information);
    download();
    EXPECT_EQ(port.log, QStringList());
    EXPECT_EQ(settings.writes, QStringList{u"Defaults/LastDownloadCalibrator=nameless"_s});
    EXPECT_EQ(screen.events, QStringList{u"close"_s});
}

} // namespace kelvane::testing
