#include "endurance/expected_reports.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString report(const QString& what, const QString& routine = u"ModuleGlobals,SourceColumn"_s) {
    return text(TextId::internalErrorOccurred) + u' ' + what + u" /  / "_s +
           text(TextId::internalErrorAdvice) + u" /  / "_s + text(TextId::errorReportRoutine) + routine +
           u" / "_s + text(TextId::errorReportSql);
}

/// The lines that nothing explains, of those of a log.
QStringList unexplained(bool connectionsEnd, const QList<std::pair<QString, QString>>& lines) {
    endure::ReportJudge judge(connectionsEnd);
    QStringList left;
    for (const auto& [kind, what] : lines) {
        if (!judge.explains({0, kind, what}))
            left << what;
    }
    return left;
}

const auto planned = report(u"13 planned fault"_s);
const auto lost = report(u"10054 Connection lost"_s);
const auto divided = report(u"11 Division by zero"_s);
const auto ended = report(u"35 FATAL: terminating connection; / The connection has been lost"_s);

} // namespace

TEST(StationReports, APlannedFaultAndWhatFollowsInItsActAreExpected) {
    EXPECT_EQ(unexplained(false, {{u"act"_s, u"calibrate"_s},
                                  {u"planned fault"_s, u"at 3"_s},
                                  {u"report"_s, planned},
                                  {u"report"_s, lost},
                                  {u"report"_s, divided}}),
              QStringList());
}

TEST(StationReports, APlannedLossThatARoutineKeepsToItselfIsReportedByTheNextStatement) {
    EXPECT_EQ(unexplained(false,
                          {{u"act"_s, u"calibrate"_s}, {u"planned fault"_s, u"at 3"_s}, {u"report"_s, lost}}),
              QStringList());
}

TEST(StationReports, TheSameReportsAreFindingsWithoutAPlannedFault) {
    EXPECT_EQ(unexplained(false, {{u"act"_s, u"calibrate"_s},
                                  {u"report"_s, planned},
                                  {u"report"_s, lost},
                                  {u"report"_s, divided}}),
              QStringList({planned, lost, divided}));
}

TEST(StationReports, AFaultExplainsNothingInTheNextAct) {
    EXPECT_EQ(unexplained(false, {{u"act"_s, u"calibrate"_s},
                                  {u"planned fault"_s, u"at 3"_s},
                                  {u"report"_s, planned},
                                  {u"end"_s, u""_s},
                                  {u"act"_s, u"calibrate"_s},
                                  {u"report"_s, divided}}),
              QStringList(divided));
}

TEST(StationReports, AnEndedConnectionIsExpectedOnlyWhereConnectionsAreEnded) {
    const QList<std::pair<QString, QString>> lines{{u"act"_s, u"calibrate"_s}, {u"report"_s, ended}};
    EXPECT_EQ(unexplained(true, lines), QStringList());
    EXPECT_EQ(unexplained(false, lines), QStringList(ended));
}

TEST(StationReports, AConnectionThatEndsBetweenActsExplainsTheNextOne) {
    EXPECT_EQ(unexplained(true, {{u"start"_s, u"1"_s},
                                 {u"report"_s, ended},
                                 {u"login"_s, u""_s},
                                 {u"act"_s, u"calibrate"_s},
                                 {u"report"_s, report(u"3709 The database connection is closed."_s)}}),
              QStringList());
}

TEST(StationReports, NothingEndsAConnectionWhileStationsFinish) {
    EXPECT_EQ(unexplained(true, {{u"start"_s, u"1"_s}, {u"finishing"_s, u""_s}, {u"report"_s, ended}}),
              QStringList(ended));
}

TEST(StationReports, LocksAndUnknownErrorsAreFindingsAfterAFaultToo) {
    QStringList findings;
    QList<std::pair<QString, QString>> lines{
        {u"act"_s, u"edit a strategy"_s}, {u"planned fault"_s, u"at 3"_s}, {u"report"_s, planned}};
    for (const auto& what :
         {u"1 ERROR: deadlock detected"_s, u"5 [SQLite]database is locked"_s, u"70 Permission denied"_s,
          u"1 ERROR: canceling statement due to lock timeout"_s, u"13 Type mismatch"_s}) {
        findings << report(what);
        lines << std::pair(u"report"_s, report(what));
    }
    EXPECT_EQ(unexplained(true, lines), findings);
}

TEST(StationReports, MessagesAreJudgedToo) {
    const auto broken = u"Insufficient Memory (DPCERR_MEMORY_SIZE)"_s;
    const auto missing = text(TextId::standardDoesNotExist);
    const auto asked = text(TextId::confirmUsedMessageDeletion);
    EXPECT_EQ(
        unexplained(true,
                    {{u"act"_s, u"calibrate"_s}, {u"box"_s, broken}, {u"box"_s, missing}, {u"box"_s, asked}}),
        QStringList({broken, missing}));
    EXPECT_EQ(unexplained(true, {{u"act"_s, u"calibrate"_s},
                                 {u"broken reply"_s, u"DPCdnlStep*1=2012"_s},
                                 {u"box"_s, broken},
                                 {u"box"_s, missing}}),
              QStringList());
}

TEST(StationReports, ARefusedPasswordIsAFinding) {
    const auto away = u"connection to server failed: No such file or directory"_s;
    const auto refused = u"FATAL:  password authentication failed"_s;
    EXPECT_EQ(unexplained(true, {{u"no login"_s, away}, {u"no login"_s, refused}}), QStringList(refused));
    EXPECT_EQ(unexplained(false, {{u"no login"_s, away}}), QStringList(away));
}

} // namespace kelvane::testing
