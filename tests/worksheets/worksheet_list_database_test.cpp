#include "testkit/database_session.h"
#include "testkit/faulty_connection.h"
#include "testkit/scripted_report_control.h"
#include "tests/worksheets/scripted_worksheet_screen.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString title = u"Print Worksheet(s)"_s;
const QString checking = u"Check A Standard"_s;
const QString routine = u"FormWorksheetPrint,CommandPrint"_s;

/// The list on the demonstration data; another workstation looks at its tables.
class WorksheetListOnDatabase : public DatabaseSession {
  protected:
    WorksheetListOnDatabase() { screen.list = {u"PT-101"_s, u"TW-101"_s}; }

    void add(const QString& entry) {
        screen.list.clear();
        addToWorksheetList(session, screen, entry);
    }
    /// Names the standard; the warnings have to come, in order.
    void check(const QString& standard, const QStringList& warnings = {}) {
        ui.expectDialog(checking, u"Enter a standard to check:"_s, standard);
        for (const auto& warning : warnings)
            ui.expectBox(warning, checking, box::warning);
        checkStandardForWorksheets(session, screen);
        EXPECT_TRUE(ui.hasMetAll());
    }
    void print() { printWorksheets(session, screen, reports); }

    QString lowRank(const QString& asset) const {
        return u"Standard is not of a high enough trace level to calibrate: "_s + asset;
    }
    QStringList seen(const QString& query, int columns = 1) { return queryRows(*other, query, columns); }
    /// All packages and members that stand in the tables.
    QStringList packages() {
        return seen(u"select taskname,tptag from mt.hvm_kv_task_packages order by tptag"_s, 2) +
               seen(u"select tptag,mtag from mt.hvm_kv_task_assets order by tptag,mtag"_s, 2);
    }
    QStringList membersOf(const QString& tag) {
        return seen(u"select mtag from mt.hvm_kv_task_assets where tptag = '"_s + tag + u"' order by mtag"_s);
    }
    QString mtagOf(const QString& asset) {
        return seen(u"select mtag from MT.inventory where i4201 = '"_s + asset + u'\'').value(0);
    }
    /// The tag that the last report was run with.
    QString tag() const { return reports.requests.last().formulas.first().section(u'\'', 1, 1); }

    ScriptedWorksheetScreen screen;
    ScriptedReportControl reports;
    std::unique_ptr<Connection> other = database.connect();
};

} // namespace

TEST_F(WorksheetListOnDatabase, TakesConfiguredInstrumentsOnly) {
    const auto invalid = u"Must enter a valid instrument number!"_s;
    const auto incomplete =
        u"This instrument does not have complete configuration data! Either the calibration parameters for "
        "this instrument have not yet been set, or the test strategy has not been set or has been removed."_s;
    const struct {
        QString entry;
        QString warning;
    } cases[] = {
        {u"PT-101"_s, {}},
        {u"LT-10'COL"_s, {}},
        {u"UC-901"_s, incomplete},
        {u"DWT-01"_s, incomplete},
        {u"PT-999"_s, invalid},
        {u" "_s, invalid},
        {u" PT-101"_s, invalid},
        {u"ABC-PT-1"_s, invalid},
        {u"x"_s.repeated(10000), invalid},
        {u"校正"_s, invalid},
        {u"x' or '1'='1"_s, invalid},
        // Packages, by name and by tag.
        {u"TORQUE CREW A"_s, invalid},
        {u"WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G"_s, invalid},
    };
    for (const auto& testCase : cases) {
        if (!testCase.warning.isEmpty())
            ui.expectBox(testCase.warning, title, box::warning);
        add(testCase.entry);
        EXPECT_EQ(screen.list, testCase.warning.isEmpty() ? QStringList{testCase.entry} : QStringList())
            << testCase.entry.first(qMin(testCase.entry.size(), 40)).toStdString();
        EXPECT_TRUE(ui.hasMetAll());
    }
}

TEST_F(WorksheetListOnDatabase, TakesTheInstrumentsOfItsOwnOwner) {
    logIn(users::editorOfAbc);
    add(u"ABC-PT-1"_s);
    EXPECT_EQ(screen.list, QStringList{u"ABC-PT-1"_s});
    ui.expectBox(u"Must enter a valid instrument number!"_s, title, box::warning);
    add(u"PT-101"_s);
}

TEST_F(WorksheetListOnDatabase, AStandardThatMayBeUsedForAllGetsNoMessage) {
    screen.list = {u"TW-101"_s, u"TW-102"_s, u"TW-101"_s};
    check(u"TT-0300F"_s);
    // An instrument without a trace level says nothing either, and the next row is tried.
    screen.list = {u"TW-101"_s, u"UC-903"_s, u"TW-102"_s};
    check(u"TT-0300F"_s);
    EXPECT_EQ(folder.read(u"errors.log"_s), QString());
}

TEST_F(WorksheetListOnDatabase, AStandardOfTooLowARankIsNamedForEachInstrument) {
    screen.list = {u"TW-101"_s, u"UC-903"_s, u"TW-102"_s, u"TW-101"_s};
    check(u"TT-TRAIN"_s, {lowRank(u"TW-101"_s), lowRank(u"TW-102"_s), lowRank(u"TW-101"_s)});

    execute(u"update MT.inventory set i4209 = 'Z' where i4201 = 'TW-102'"_s);
    execute(u"update mt.dbconfig set tracecodes = 'ABCDZ'"_s);
    screen.list = {u"TW-102"_s, u"TW-101"_s, u"TW-102"_s};
    check(u"TT-TRAIN"_s, {lowRank(u"TW-101"_s)});
}

TEST_F(WorksheetListOnDatabase, AnOverdueStandardIsTheLastMessage) {
    screen.list = {u"UC-903"_s, u"TW-101"_s, u"TW-102"_s};
    check(u"TT-0200F"_s, {u"Standard is overdue for calibration!"_s});
}

TEST_F(WorksheetListOnDatabase, AStandardThatDoesNotExistIsTheLastMessage) {
    screen.list = {u"TW-101"_s, u"TW-102"_s};
    for (const auto& standard : {u"TT-NONE"_s, u"UC-903"_s, u"x' or '1'='1"_s, u"校正"_s, u"*"_s})
        check(standard, {u"Standard does not exist!"_s});
}

TEST_F(WorksheetListOnDatabase, ARowWithAQuoteIsReportedAndTheNextOneIsTried) {
    screen.list = {u"TW-101"_s, u"LT-10'COL"_s, u"TW-102"_s};
    ui.expectDialog(checking, u"Enter a standard to check:"_s, u"TT-TRAIN"_s);
    ui.expectBox(lowRank(u"TW-101"_s), checking, box::warning);
    ui.expectReport(1, u"ModuleGlobals,CheckStandard"_s);
    ui.expectBox(lowRank(u"TW-102"_s), checking, box::warning);
    checkStandardForWorksheets(session, screen);
}

TEST_F(WorksheetListOnDatabase, ThePackageStandsWhileTheReportIsOpenAndIsGoneAfter) {
    const auto before = packages();
    const auto start = daysAgo(0);
    QStringList states;
    const auto look = [&] {
        const auto rows =
            seen(u"select taskname,tptag,tptype,mtuser from mt.hvm_kv_task_packages where tptag = '"_s +
                     tag() + u'\'',
                 4);
        EXPECT_EQ(rows, QStringList{tag() + u'|' + tag() + u"|WSHT|jdoe"_s});
        EXPECT_EQ(membersOf(tag()), (QStringList{mtagOf(u"TW-101"_s), mtagOf(u"PT-101"_s)}));
        const auto made =
            seen(u"select created_on from mt.hvm_kv_task_packages where tptag = '"_s + tag() + u'\'')
                .value(0);
        EXPECT_LE(start, made);
        EXPECT_LE(made, daysAgo(0));
        EXPECT_EQ(packages().size(), before.size() + 3);
    };
    reports.onRun = [&] {
        states << u"run"_s;
        look();
    };
    ui.onWait = [&] {
        states << u"open"_s;
        look();
    };
    print();
    EXPECT_EQ(states, (QStringList{u"run"_s, u"open"_s}));
    EXPECT_EQ(packages(), before);
}

TEST_F(WorksheetListOnDatabase, ThePackageIsGoneAfterAReportThatDidNotStart) {
    const auto before = packages();
    reports.result = 1;
    reports.errorText = u"no such file"_s;
    ui.expectBox(u"no such file"_s, u"Calibration Worksheet Printing Error"_s, box::stop);
    ui.onBox = [&] { EXPECT_EQ(packages().size(), before.size() + 3); };
    print();
    EXPECT_EQ(packages(), before);
}

TEST_F(WorksheetListOnDatabase, AnInstrumentThatIsListedTwiceHasTwoRowsWithOneKey) {
    screen.list = {u"PT-101"_s, u"PT-101"_s};
    ui.onWait = [&] { EXPECT_EQ(membersOf(tag()), (QStringList{mtagOf(u"PT-101"_s), mtagOf(u"PT-101"_s)})); };
    const auto before = packages();
    print();
    EXPECT_EQ(reports.requests.size(), 1);
    EXPECT_EQ(packages(), before);
}

TEST_F(WorksheetListOnDatabase, AWorkstationThatPrintsMeanwhileKeepsItsPackage) {
    const auto before = packages();
    QStringList tags;
    ui.onWait = [&] {
        tags << tag();
        if (tags.size() == 1) {
            print();
            EXPECT_EQ(membersOf(tags.last()), QStringList());
            EXPECT_EQ(membersOf(tags.first()).size(), 2);
        }
    };
    print();
    ASSERT_EQ(tags.size(), 2);
    EXPECT_NE(tags.first(), tags.last());
    EXPECT_EQ(packages(), before);
}

TEST_F(WorksheetListOnDatabase, ANameWithAQuoteEndsThePrintAndLeavesNothing) {
    const auto before = packages();
    screen.list = {u"PT-101"_s, u"LT-10'COL"_s};
    ui.expectReport(1, routine);
    print();
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_EQ(packages(), before);
}

TEST_F(WorksheetListOnDatabase, AnInstrumentThatIsGoneEndsThePrintAndLeavesNothing) {
    const auto before = packages();
    screen.list = {u"PT-101"_s, u"PT-999"_s};
    ui.expectReport(database.refusedRow(), routine);
    print();
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_EQ(packages(), before);
}

TEST_F(WorksheetListOnDatabase, EachStatementThatFailsIsReportedAndLeavesNothing) {
    const auto before = packages();
    PlannedFault fault;
    session.SharedConnection = std::make_unique<FaultyConnection>(std::move(session.SharedConnection), fault);
    for (const auto kind : {PlannedFault::Kind::refused, PlannedFault::Kind::answerLost}) {
        for (int statement = 0; statement < 3; ++statement) {
            fault = {.kind = kind, .failAt = statement};
            ui.expectReport(13, routine);
            print();
            EXPECT_TRUE(fault.reached);
            EXPECT_EQ(fault.count, statement + 2) << "the removal is sent once";
            EXPECT_EQ(packages(), before) << statement;
        }
    }
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(WorksheetListOnDatabase, ARemovalThatIsRefusedLeavesThePackageAndTheNextPrintIsWhole) {
    const auto before = packages();
    PlannedFault fault{.failAt = 3};
    session.SharedConnection = std::make_unique<FaultyConnection>(std::move(session.SharedConnection), fault);
    ui.expectReport(13, routine);
    print();
    EXPECT_EQ(fault.count, 4);
    EXPECT_EQ(membersOf(tag()).size(), 2);
    const auto left = packages();
    EXPECT_EQ(left.size(), before.size() + 3);
    print();
    EXPECT_EQ(reports.requests.size(), 2);
    EXPECT_EQ(packages(), left);
}

TEST_F(WorksheetListOnDatabase, AConnectionThatIsLostLeavesWhatWasWritten) {
    for (int statement = 0; statement < 4; ++statement) {
        const auto before = packages();
        logIn();
        PlannedFault fault{.kind = PlannedFault::Kind::connectionLost, .failAt = statement};
        auto real = std::move(session.SharedConnection);
        session.SharedConnection = std::make_unique<FaultyConnection>(std::move(real), fault);
        ui.expectReport(13, routine);
        if (statement < 3)
            ui.expectReport(10054, routine);
        print();
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_FALSE(session.SessionConnected);
        EXPECT_EQ(packages().size(), before.size() + statement) << statement;
        session.SharedConnection.reset();
    }
    EXPECT_EQ(reports.requests.size(), 1);
}

} // namespace kelvane::testing
