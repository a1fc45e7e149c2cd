#include "testkit/fixtures.h"
#include "testkit/overheard_connection.h"
#include "testkit/scripted_report_control.h"
#include "tests/worksheets/scripted_worksheet_screen.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString routine = u"FormWorksheetPrint,CommandPrint"_s;
const QString failureTitle = u"Calibration Worksheet Printing Error"_s;
const QString waiting = u"wait Calibration Worksheet"_s;

class WorksheetPrint : public RecordedSession {
  protected:
    WorksheetPrint() {
        session.SessionDataSource = u"Calibration Data"_s;
        session.SessionPassword = u"S3cret word"_s;
        screen.list = {u"A-1"_s, u"A-2"_s};
    }
    void print() {
        script.statements.clear();
        ui.events.clear();
        reports.requests.clear();
        printWorksheets(session, screen, reports);
    }
    /// The tag of the package that the last print has made.
    QString tag() const { return script.statements.value(0).section(u'\'', 1, 1); }
    QString insertPackage() const {
        return u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values ('%1','WSHT','jdoe',now(*),'%1');commit"_s
            .arg(tag());
    }
    QString insertMember(const QString& asset) const {
        return u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('%1',(select mtag from %2.inventory where i4201 = '%3'));commit"_s
            .arg(tag(), session.SessionOwner, asset);
    }
    QString removal() const {
        return u"delete from mt.hvm_kv_task_assets where tptag = '%1';delete from mt.hvm_kv_task_packages where tptag = '%1';commit"_s
            .arg(tag());
    }
    QStringList wholePrint() const {
        QStringList statements{insertPackage()};
        for (const auto& asset : screen.list)
            statements << insertMember(asset);
        return statements << removal();
    }
    /// The statements that have been sent when the report comes up and when its window stands.
    void watch() {
        reports.onRun = [this] { sentAtRun = script.statements; };
        ui.onWait = [this] { sentAtWait = script.statements; };
    }

    ScriptedWorksheetScreen screen;
    ScriptedReportControl reports;
    QStringList sentAtRun;
    QStringList sentAtWait;
};

} // namespace

TEST_F(WorksheetPrint, ShowsTheReportOfAPackageThatIsRemovedWhenItsWindowHasClosed) {
    watch();
    print();
    EXPECT_TRUE(QRegularExpression(u"^[0-9A-Z]{30}$"_s).match(tag()).hasMatch()) << tag().toStdString();
    EXPECT_EQ(script.statements, wholePrint());
    EXPECT_EQ(sentAtRun, wholePrint().first(3));
    EXPECT_EQ(sentAtWait, wholePrint().first(3));
    EXPECT_EQ(reports.requests.size(), 1);
    EXPECT_EQ(ui.events, QStringList{waiting});
    EXPECT_EQ(screen.list, (QStringList{u"A-1"_s, u"A-2"_s}));
    EXPECT_EQ(screen.events, QStringList());
}

TEST_F(WorksheetPrint, GivesTheReportAllThatItNeeds) {
    print();
    ASSERT_EQ(reports.requests.size(), 1);
    const auto& request = reports.requests.first();
    EXPECT_EQ(request.connect, u"DSN = Calibration Data;UID = jdoe;PWD = S3cret word"_s);
    EXPECT_EQ(request.windowTitle, u"Calibration Worksheet"_s);
    EXPECT_EQ(request.reportFileName, u"kvwrksht.rpt"_s);
    EXPECT_EQ(request.formulas, QStringList{u"task_id='"_s + tag() + u'\''});
    EXPECT_EQ(request.windowParentHandle, 0);
    EXPECT_EQ(request.displaySetting, 1);
}

TEST_F(WorksheetPrint, OfAnEmptyListDoesNothing) {
    screen.list.clear();
    print();
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_EQ(ui.events, QStringList());
}

TEST_F(WorksheetPrint, EachOneHasAPackageOfItsOwn) {
    print();
    const auto first = tag();
    print();
    EXPECT_NE(tag(), first);
    EXPECT_EQ(script.statements, wholePrint());
}

TEST_F(WorksheetPrint, AnInstrumentThatIsListedTwiceIsPutInTwice) {
    screen.list = {u"A-1"_s, u"A-1"_s};
    print();
    EXPECT_EQ(script.statements, wholePrint());
    EXPECT_EQ(script.statements.count(insertMember(u"A-1"_s)), 2);
}

TEST_F(WorksheetPrint, MakesThePackageForTheUserAndLooksUnderTheOwner) {
    session.SessionOwner = u"ABC"_s;
    print();
    EXPECT_EQ(script.statements, wholePrint());
    EXPECT_TRUE(script.statements.at(1).contains(u"from ABC.inventory"_s));
}

TEST_F(WorksheetPrint, AnyTextIsPutInAsItStands) {
    screen.list = {u"  "_s, u"Ω 校正"_s, u"a''b"_s, u"x"_s.repeated(10000)};
    print();
    EXPECT_EQ(script.statements, wholePrint());
}

TEST_F(WorksheetPrint, AReportThatDoesNotStartShowsItsReasonAndThePackageIsRemoved) {
    for (const int result : {1, 20997}) {
        reports.result = result;
        reports.errorText = u"kvwrksht.rpt: no such file"_s;
        ui.expectBox(reports.errorText, failureTitle, box::stop);
        QStringList sentAtBox;
        ui.onBox = [&] { sentAtBox = script.statements; };
        print();
        EXPECT_EQ(sentAtBox, wholePrint().first(3));
        EXPECT_EQ(script.statements, wholePrint());
        EXPECT_EQ(ui.events, QStringList()) << "nothing is waited for";
    }
}

TEST_F(WorksheetPrint, AResultBelowZeroIsNoFailure) {
    reports.result = -1;
    print();
    EXPECT_EQ(ui.events, QStringList{waiting});
    EXPECT_EQ(script.statements, wholePrint());
}

TEST_F(WorksheetPrint, ANameWithAQuoteIsTheSyntaxErrorAndNothingOfItsStatementIsSent) {
    screen.list = {u"A-1"_s, u"O'Brien"_s, u"A-2"_s};
    ui.expectReport(1, routine);
    print();
    EXPECT_EQ(script.statements, (QStringList{insertPackage(), insertMember(u"A-1"_s), removal()}));
    EXPECT_TRUE(reports.requests.isEmpty());
    EXPECT_EQ(screen.list.size(), 3);
}

/// A statement holds the tag, which is not known before: it fails by a part of its text.
class FailingWorksheetPrint : public WorksheetPrint {
  protected:
    FailingWorksheetPrint() {
        session.SharedConnection = std::make_unique<OverheardConnection>(
            std::make_unique<RecordingConnection>(script), [this](const QString& statement) {
                if (!failAt.isEmpty() && statement.contains(failAt))
                    script.failures.insert(statement, Error{42, u"refused"_s, {}, lose});
            });
    }

    QString failAt;
    bool lose = false;
};

TEST_F(FailingWorksheetPrint, AStatementThatIsRefusedIsReportedAndThePackageRemovedOnce) {
    const struct {
        QString failAt;
        qsizetype sent;
    } cases[] = {{u"into mt.hvm_kv_task_packages"_s, 1}, {u"'A-1'"_s, 2}, {u"'A-2'"_s, 3}};
    for (const auto& testCase : cases) {
        failAt = testCase.failAt;
        ui.expectReport(42, routine);
        print();
        EXPECT_EQ(script.statements, wholePrint().first(testCase.sent) << removal());
        EXPECT_TRUE(reports.requests.isEmpty());
        EXPECT_EQ(ui.events, QStringList{u"normal"_s});
    }
    EXPECT_TRUE(session.SessionConnected);
}

TEST_F(FailingWorksheetPrint, ARemovalThatIsRefusedIsReportedUnderTheSameNameAndNotRepeated) {
    failAt = u"delete"_s;
    ui.expectReport(42, routine);
    print();
    EXPECT_EQ(script.statements, wholePrint());
    EXPECT_EQ(reports.requests.size(), 1);
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(removal())) << "the report shows the statement";
}

TEST_F(FailingWorksheetPrint, ALostConnectionIsReportedForTheStatementAndForTheRemoval) {
    failAt = u"'A-1'"_s;
    lose = true;
    ui.expectReport(42, routine);
    ui.expectReport(10054, routine);
    print();
    EXPECT_EQ(script.statements, wholePrint().first(2) << removal());
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_TRUE(reports.requests.isEmpty());
}

TEST_F(FailingWorksheetPrint, AnErrorThatTheReportThrowsIsReportedAndThePackageRemoved) {
    reports.onRun = [] { throw Error{53, u"File not found"_s}; };
    ui.expectReport(53, routine);
    print();
    EXPECT_EQ(script.statements, wholePrint());
}

TEST_F(FailingWorksheetPrint, AReportOfAnErrorThatCannotBeWrittenStillRemovesThePackage) {
    QDir().mkdir(u"errors.log"_s);
    failAt = u"'A-1'"_s;
    EXPECT_THROW(print(), Error);
    EXPECT_EQ(script.statements, wholePrint().first(2) << removal());
}

TEST_F(FailingWorksheetPrint, ThePasswordStandsInNoLog) {
    failAt = u"delete"_s;
    reports.result = 1;
    ui.expectBox(QString(), failureTitle, box::stop);
    ui.expectReport(42, routine);
    print();
    ASSERT_EQ(reports.requests.size(), 1);
    const auto log = folder.read(u"errors.log"_s);
    EXPECT_FALSE(log.isEmpty());
    EXPECT_FALSE(log.contains(session.SessionPassword)) << log.toStdString();
}

} // namespace kelvane::testing
