#include "worksheets/worksheet_login.h"

#include "data/guard.h"
#include "data/session_values.h"
#include "reports/report_error.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane {

ReportLogin reportLogin(const QString& connect) {
    constexpr QStringView source = u"DSN = ";
    constexpr QStringView user = u";UID = ";
    constexpr QStringView password = u";PWD = ";
    const auto userAt = connect.indexOf(user);
    const auto passwordAt = userAt < 0 ? -1 : connect.indexOf(password, userAt + user.size());
    if (!connect.startsWith(source) || userAt < source.size() || passwordAt < 0)
        throw ReportError(text(TextId::connectStringInvalid));
    return {connect.mid(source.size(), userAt - source.size()),
            connect.mid(userAt + user.size(), passwordAt - userAt - user.size()),
            connect.mid(passwordAt + password.size())};
}

void logIn(Session& session, const ReportLogin& login) {
    session.SessionDataSource = login.dataSource;
    session.SessionUser = login.user;
    Guard guard(session, u"WorksheetReport,run"_s);
    const auto failure = guard.failureOf([&] {
        sharedConnection(session).open(u"DSN="_s + login.dataSource, login.user, login.password);
        session.SessionConnected = true;
        readSessionValues(session, login.user);
    });
    if (failure)
        throw ReportError(
            text(TextId::reportConnectionFailed).arg(login.dataSource, login.user, failure->description));
}

} // namespace kelvane
