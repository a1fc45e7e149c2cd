#include "worksheets/worksheet_report.h"

#include "reports/report_preview.h"
#include "testkit/database_session.h"
#include "testkit/faulty_connection.h"
#include "tests/worksheets/small_layout.h"

#include <QApplication>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QList<ReportPreview*> previews() {
    QList<ReportPreview*> found;
    const auto windows = QApplication::topLevelWidgets();
    for (auto* window : windows) {
        if (auto* preview = qobject_cast<ReportPreview*>(window))
            found << preview;
    }
    return found;
}

const auto packageQuery = u"select mtag from mt.hvm_kv_task_assets where tptag = 'TAG1'"_s;
const auto userQuery = u"select (select i4240 from mt.userlist where mtuser = 'jdoe'),(select mtlevel  from "
                       "mt.userlist where mtuser = 'jdoe')"_s;
const auto siteQuery = u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s;
const auto inventoryQuery =
    u"select i4201,i4202,i4203,i4204,i4206,i4230,i4231 from MT.inventory where mtag = '4711'"_s;

ReportRequest requestOf(const QString& dataSource, const QString& user, const QString& password,
                        const QString& tag) {
    return {.connect = u"DSN = "_s + dataSource + u";UID = "_s + user + u";PWD = "_s + password,
            .windowTitle = sheetTitle,
            .reportFileName = u"kvwrksht.rpt"_s,
            .formulas = {u"task_id='"_s + tag + u'\''},
            .displaySetting = 1};
}

/// The report over a scripted connection.
class WorksheetReportRun : public RecordedSession {
  protected:
    WorksheetReportRun() : report(session, session.makeConnection) {
        writeSmallLayout(folder);
        script.open = false;
        script.answers[userQuery] = {{u"MT"_s, u"3"_s}};
        script.answers[siteQuery] = {{u"1"_s, u"6"_s, u"0"_s, u"0"_s, u"0"_s}};
        script.answers[packageQuery] = {{u"4711"_s}};
        script.answers[inventoryQuery] = {
            {u"PT-1"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt}};
        script.answers[u"select count(ctag) from MT.calibration where mtag = (select mtag from MT.inventory "
                       "where i4201 = 'PT-1')"_s] = {{u"1"_s}};
    }

    /// Runs it, which has to fail without a window; gives the text.
    QString failure() {
        EXPECT_GT(report.run(request), 0);
        EXPECT_TRUE(previews().isEmpty());
        EXPECT_FALSE(ui.busy || ui.progressShown);
        return report.lastErrorText();
    }
    QString log() const { return folder.read(u"errors.log"_s); }

    const QString password = u"p;PWD = '\"%1 x"_s;
    ReportRequest request = requestOf(u"Site B"_s, u"jdoe"_s, password, u"TAG1"_s);
    WorksheetReport report;
};

} // namespace

TEST_F(WorksheetReportRun, ShowsTheSheetsInAPreviewOfThatTitle) {
    ASSERT_EQ(report.run(request), 0) << report.lastErrorText().toStdString();
    ASSERT_EQ(previews().size(), 1);
    EXPECT_TRUE(previews().first()->isVisible());
    EXPECT_EQ(previews().first()->windowTitle(), sheetTitle);
    EXPECT_EQ(report.lastErrorText(), QString());
}

TEST_F(WorksheetReportRun, LogsInByItselfAndClosesItsConnection) {
    report.run(request);
    EXPECT_EQ(script.opened, (QStringList{u"DSN=Site B"_s, u"jdoe"_s, password}));
    EXPECT_EQ(script.statements.mid(0, 4), (QStringList{userQuery, siteQuery, packageQuery, inventoryQuery}));
    EXPECT_FALSE(script.open);
    EXPECT_FALSE(session.SharedConnection) << "that of the program is left alone";
}

TEST_F(WorksheetReportRun, GoesForwardInTheProgressWindowUnderTheHourglass) {
    script.answers[packageQuery] = {{u"4711"_s}, {u"4711"_s}};
    report.run(request);
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"progress Preparing Worksheets"_s, u"text Sheet 1 of 2"_s,
                                      u"value 0"_s, u"text Sheet 2 of 2"_s, u"value 25"_s, u"value 50"_s,
                                      u"value 75"_s, u"hide"_s, u"normal"_s}));
}

TEST_F(WorksheetReportRun, AConnectStringThatIsNoneIsRefusedWithoutQuotingIt) {
    request.connect = u"DSN=a;UID=b;PWD=secret"_s;
    EXPECT_EQ(failure(), u"The connect string of the report does not hold data source, user and password."_s);
    EXPECT_EQ(script.opened, QStringList());
    EXPECT_EQ(log(), QString());
}

TEST_F(WorksheetReportRun, AFormulaThatNamesNoPackageIsShown) {
    for (const auto& formula :
         {u""_s, u"task_id"_s, u"task_id="_s, u"task_id='"_s, u"task_id=''"_s, u"task_id=TAG1"_s,
          u"task='TAG1'"_s, u"task_id='TAG1"_s, u"task_id='a' or 'b'"_s, u"TASK_ID='TAG1'"_s}) {
        request.formulas = {formula};
        EXPECT_EQ(failure(), u"Formula 0 of the report does not name a task package: "_s + formula);
    }
    request.formulas.clear();
    EXPECT_EQ(failure(), u"Formula 0 of the report does not name a task package: "_s);
    EXPECT_EQ(script.opened, QStringList());
}

TEST_F(WorksheetReportRun, AMissingLayoutIsNamed) {
    QFile::remove(u"kvwrksht.rpt"_s);
    EXPECT_EQ(failure(), u"The file \""_s + folder.path() + u"/kvwrksht.rpt\": No such file or directory"_s);
    EXPECT_EQ(script.opened, QStringList()) << "nothing is asked of the database";
}

TEST_F(WorksheetReportRun, AMistakeInTheLayoutIsNamedWithItsLine) {
    writeSmallLayout(folder, "    \"wydth\": 1,");
    EXPECT_TRUE(failure().startsWith(u"kvwrksht.rpt, line 6: "_s)) << report.lastErrorText().toStdString();
}

TEST_F(WorksheetReportRun, AConnectionThatFailsIsNamedWithoutThePassword) {
    script.failures[u"DSN=Site B"_s] = Error{28000, u"Login refused"_s, u"28000"_s};
    EXPECT_EQ(
        failure(),
        u"The report could not connect to the data source \"Site B\" as user \"jdoe\": Login refused"_s);
    EXPECT_TRUE(log().contains(u"28000 Login refused"_s)) << log().toStdString();
    EXPECT_TRUE(log().contains(u"WorksheetReport,run"_s));
    EXPECT_FALSE(log().contains(u"PWD"_s));
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(WorksheetReportRun, AUserWithoutAGroupIsAFailedLogin) {
    script.answers[userQuery] = {{std::nullopt, std::nullopt}};
    EXPECT_TRUE(failure().endsWith(u"Invalid use of Null"_s)) << report.lastErrorText().toStdString();
}

TEST_F(WorksheetReportRun, AnEmptyPackageIsNamed) {
    script.answers.remove(packageQuery);
    EXPECT_EQ(failure(), u"There are no instruments in the task package \"TAG1\"."_s);
    EXPECT_FALSE(script.open);
}

TEST_F(WorksheetReportRun, AnInstrumentThatIsGoneEndsTheReport) {
    script.answers[packageQuery] = {{u"4711"_s}, {std::nullopt}};
    EXPECT_EQ(failure(), u"An instrument of the task package is not in the inventory (its key: \"\")."_s);
}

TEST_F(WorksheetReportRun, AFailureAtAnInstrumentNamesItOnceAndStandsInTheLog) {
    const auto pointsQuery = u"select repetitions from mt.hvm_kv_tag_config where mtag = (select mtag from "
                             "MT.inventory where i4201 = 'PT-1')"_s;
    script.failures[pointsQuery] = Error{-143, u"Column not found"_s};
    const auto text = failure();
    EXPECT_TRUE(text.startsWith(u"The worksheet of PT-1 could not be prepared.\r\n\r\n"_s))
        << text.toStdString();
    EXPECT_TRUE(text.contains(u"-143 Column not found"_s));
    EXPECT_TRUE(text.contains(u"ModuleGlobals,GetTestPointList"_s));
    EXPECT_EQ(log().count(u"KELVANE"_s), 1);
    EXPECT_EQ(report.run(request), 1) << "the next run begins anew";
    EXPECT_EQ(report.lastErrorText(), text);
}

TEST_F(WorksheetReportRun, AFailureAtALaterInstrumentNamesThatOneAndShowsNoSheet) {
    script.answers[packageQuery] = {{u"4711"_s}, {u"4712"_s}};
    auto later = inventoryQuery;
    script.failures[later.replace(u"4711"_s, u"4712"_s)] = Error{-143, u"Column not found"_s};
    const auto text = failure();
    EXPECT_TRUE(text.contains(later)) << text.toStdString();
    EXPECT_FALSE(text.contains(u"PT-1"_s));
    EXPECT_FALSE(script.open);
}

TEST_F(WorksheetReportRun, AGoodRunForgetsTheFailureBefore) {
    request.formulas.clear();
    failure();
    request.formulas = {u"task_id='TAG1'"_s};
    EXPECT_EQ(report.run(request), 0);
    EXPECT_EQ(report.lastErrorText(), QString());
}

TEST_F(WorksheetReportRun, ALogThatCannotBeWrittenIsTheFailure) {
    QDir().mkdir(u"errors.log"_s);
    script.failures[packageQuery] = Error{-143, u"Column not found"_s};
    EXPECT_EQ(failure(), u"Path/File access error"_s);
}

TEST_F(WorksheetReportRun, PreviewsEndWithTheReport) {
    {
        WorksheetReport passing(session, session.makeConnection);
        ASSERT_EQ(passing.run(request), 0);
        EXPECT_EQ(previews().size(), 1);
    }
    EXPECT_TRUE(previews().isEmpty());
}

namespace {

/// The report over a copy of the demonstration database.
class WorksheetReportOnDatabase : public DatabaseSession {
  protected:
    WorksheetReportOnDatabase() { writeSmallLayout(folder); }

    void list(const QStringList& assets) {
        for (auto asset : assets)
            execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('SHEETS',(select mtag from "
                    "MT.inventory where i4201 = '"_s +
                    asset.replace(u"'"_s, u"''"_s) + u"'));commit"_s);
    }
    ReportRequest request(const QString& password = u"kelvane"_s) {
        return requestOf(database.dsn(), u"jdoe"_s, password, u"SHEETS"_s);
    }
    QString log() const { return folder.read(u"errors.log"_s); }
};

} // namespace

TEST_F(WorksheetReportOnDatabase, AnInstrumentListedTwiceHasTwoSheets) {
    list({u"PT-101"_s, u"TW-101"_s, u"PT-101"_s});
    WorksheetReport report(session, openConnections());
    ASSERT_EQ(report.run(request()), 0) << report.lastErrorText().toStdString();
    EXPECT_EQ(previews().first()->findChild<QLabel*>(u"Page"_s)->text().trimmed(), u"Page 1 of 3"_s);
}

TEST_F(WorksheetReportOnDatabase, AWrongPasswordStandsInNoText) {
    list({u"PT-101"_s});
    WorksheetReport report(session, openConnections());
    EXPECT_GT(report.run(request(u"wrong-secret"_s)), 0);
    EXPECT_TRUE(report.lastErrorText().contains(database.dsn())) << report.lastErrorText().toStdString();
    EXPECT_FALSE(report.lastErrorText().contains(u"wrong-secret"_s));
    EXPECT_FALSE(log().isEmpty());
    EXPECT_FALSE(log().contains(u"wrong-secret"_s));
    EXPECT_FALSE(ui.events.join(u' ').contains(u"wrong-secret"_s));
}

TEST_F(WorksheetReportOnDatabase, ADataSourceThatDoesNotExistIsNamed) {
    auto missing = request(u"wrong-secret"_s);
    missing.connect.replace(database.dsn(), u"no such source"_s);
    WorksheetReport report(session, openConnections());
    EXPECT_GT(report.run(missing), 0);
    EXPECT_TRUE(report.lastErrorText().contains(u"\"no such source\""_s));
    EXPECT_FALSE((report.lastErrorText() + log()).contains(u"wrong-secret"_s));
}

TEST_F(WorksheetReportOnDatabase, AQuoteInTheInstrumentsNumberFailsTheWholeReportAndNamesIt) {
    list({u"PT-101"_s, u"LT-10'COL"_s});
    WorksheetReport report(session, openConnections());
    EXPECT_GT(report.run(request()), 0);
    EXPECT_TRUE(report.lastErrorText().startsWith(u"The worksheet of LT-10'COL could not be prepared."_s));
    EXPECT_TRUE(previews().isEmpty());
}

TEST_F(WorksheetReportOnDatabase, AnotherOwnersUserSeesHisOwnInstruments) {
    execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('SHEETS',(select mtag from "
            "ABC.inventory where i4201 = 'ABC-PT-1'));commit"_s);
    WorksheetReport report(session, openConnections());
    EXPECT_EQ(report.run(requestOf(database.dsn(), u"gpetrov"_s, u"kelvane"_s, u"SHEETS"_s)), 0)
        << report.lastErrorText().toStdString();
    EXPECT_GT(report.run(request()), 0) << "MT does not know the instrument";
}

TEST_F(WorksheetReportOnDatabase, AConnectionLostAtAnyStatementFailsTheReport) {
    list({u"PT-101"_s, u"TIT-201"_s});
    PlannedFault fault{.kind = PlannedFault::Kind::connectionLost};
    WorksheetReport report(session,
                           [&] { return std::make_unique<FaultyConnection>(openConnections()(), fault); });
    int statements = 0;
    for (fault.failAt = 0;; ++fault.failAt) {
        fault.count = 0;
        fault.reached = fault.lost = false;
        const int result = report.run(request());
        if (!fault.reached) {
            EXPECT_EQ(result, 0);
            break;
        }
        ++statements;
        EXPECT_GT(result, 0) << fault.failAt;
        EXPECT_TRUE(report.lastErrorText().contains(u"planned fault"_s))
            << report.lastErrorText().toStdString();
        ASSERT_TRUE(previews().isEmpty()) << fault.failAt;
        EXPECT_FALSE(ui.busy || ui.progressShown);
    }
    EXPECT_GT(statements, 50);
    EXPECT_FALSE(log().contains(u"PWD"_s));
}

TEST_F(WorksheetReportOnDatabase, MoreThan501InstrumentsHaveASheetEach) {
    execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) with recursive n(i) as (select 1 union all "
            "select i + 1 from n where i < 510) select 'SHEETS', mtag from n, mt.inventory where i4201 = "
            "'IP-301'"_s);
    WorksheetReport report(session, openConnections());
    ASSERT_EQ(report.run(request()), 0) << report.lastErrorText().toStdString();
    EXPECT_EQ(previews().first()->findChild<QLabel*>(u"Page"_s)->text().trimmed(), u"Page 1 of 510"_s);
}

} // namespace kelvane::testing
