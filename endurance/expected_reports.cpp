#include "endurance/expected_reports.h"

#include "resources/strings.h"
#include "resources/text_id.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::endure {

namespace {

/// What must have been the case for a report to be expected.
enum class After {
    /// Nothing: two stations may meet, or the operator is asked as always.
    anything,
    /// A statement's fault was planned for the act.
    fault,
    /// An answer of the calibrator's library was planned for the act.
    brokenReply,
    /// Somebody may have ended the connection.
    endedConnection,
    /// One of the former three was reported in this act before.
    failure,
};

struct ExpectedReport {
    QStringView kind; ///< of the line
    QStringView part; ///< of its text
    QStringView routine;
    After after;
};

constexpr ExpectedReport expectedReports[] = {
    {u"report", u" 13 planned fault /", u"", After::fault},
    // What gives a lock back keeps a fault to itself; the next statement reports it.
    {u"report", u" 10054 Connection lost /", u"", After::fault},
    {u"report", u" 10054 Connection lost /", u"", After::failure},
    {u"report", u" 3709 The database connection is closed. /", u"", After::failure},
    {u"report", u"The connection has been lost /", u"", After::endedConnection},
    {u"report", u" SQLFetch unable due to the connection lost", u"", After::endedConnection},
    // Parameters that could not be read are all 0.
    {u"report", u" 11 Division by zero /", u"", After::failure},
    // A date goes in as a text when the type of its column could not be read; the database refuses it.
    {u"report", u" is date(", u"ModuleGlobals,DestColumn", After::failure},
    {u"report", u"date/time field value out of range", u"ModuleGlobals,DestColumn", After::failure},
    // Two stations create the same message.
    {u"report", u"UNIQUE constraint failed: hvm_kv_prompts.pname", u"FormTestMess,CommandCreate",
     After::anything},
    {u"report", u"duplicate key value violates unique constraint \"hvm_kv_prompts",
     u"FormTestMess,CommandCreate", After::anything},
    {u"no login", u" failed: No such file or directory", u"", After::endedConnection},
    {u"no login", u" failed: Connection refused", u"", After::endedConnection},
    {u"no login", u"FATAL:  the database system is ", u"", After::endedConnection},
    {u"no login", u"server closed the connection unexpectedly", u"", After::endedConnection},
    {u"no login", u"terminating connection due to administrator command", u"", After::endedConnection},
    {u"box", u"(DPCERR_", u"", After::brokenReply},
    // Without the test points that could not be read there is no strategy in the calibrator.
    {u"box", u"(DPCERR_MEMID)", u"", After::failure},
};

struct ExpectedMessage {
    TextId text;
    After after;
};

constexpr ExpectedMessage expectedMessages[] = {
    {TextId::calibratorReportedPass, After::anything},
    {TextId::confirmUsedMessageDeletion, After::anything},
    // Of an upload that is carried out once more.
    {TextId::recordAlreadyExists, After::anything},
    {TextId::connectionLostAdvice, After::failure},
    {TextId::downloadListUnreadable, After::failure},
    {TextId::uploadListUnreadable, After::failure},
    {TextId::instrumentDataUnreadable, After::failure},
    {TextId::calibratorAssetNotFound, After::failure},
    {TextId::instrumentNumberInvalid, After::failure},
    {TextId::standardDoesNotExist, After::failure},
};

bool holds(const ExpectedReport& expected, const ActLine& line) {
    return line.kind == expected.kind && line.text.contains(expected.part) &&
           (expected.routine.isEmpty() ||
            line.text.contains(text(TextId::errorReportRoutine) + expected.routine.toString() + u" /"_s));
}

/// A text as it is shown, behind its last place for a name.
bool holds(const ExpectedMessage& expected, const ActLine& line) {
    return line.kind == u"box" && line.text.contains(text(expected.text).section(u"%1"_s, -1));
}

} // namespace

bool ReportJudge::explains(const ActLine& line) {
    if (line.kind == u"act" || line.kind == u"start") {
        isInAct_ = line.kind == u"act";
        hasFault_ = hasBrokenReply_ = false;
        hasFailed_ = isInAct_ && failedBefore_;
        failedBefore_ = false;
    } else if (line.kind == u"end")
        isInAct_ = false;
    else if (line.kind == u"planned fault")
        hasFault_ = true;
    else if (line.kind == u"broken reply")
        hasBrokenReply_ = true;
    else if (line.kind == u"finishing")
        isFinishing_ = true;
    else if (line.kind == u"report" || line.kind == u"box" || line.kind == u"no login")
        return isShownExpected(line);
    return true;
}

bool ReportJudge::isShownExpected(const ActLine& line) {
    const auto is = [&](After after) {
        switch (after) {
        case After::anything:
            return true;
        case After::fault:
            return hasFault_;
        case After::brokenReply:
            return hasBrokenReply_;
        case After::endedConnection:
            return connectionsEnd_ && !isFinishing_;
        case After::failure:
            return hasFailed_;
        }
        return false;
    };
    const auto explains = [&](const auto& expected) {
        if (!is(expected.after) || !holds(expected, line))
            return false;
        if (expected.after != After::anything)
            hasFailed_ = true;
        failedBefore_ = !isInAct_ && hasFailed_;
        return true;
    };
    return std::ranges::any_of(expectedReports, explains) || std::ranges::any_of(expectedMessages, explains);
}

} // namespace kelvane::endure
