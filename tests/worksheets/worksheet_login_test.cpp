#include "worksheets/worksheet_login.h"

#include "reports/report_error.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(ReportLogin, IsTakenApartAsTheConnectStringWasBuilt) {
    const struct {
        QString connect;
        QStringList login;
    } cases[] = {
        {u"DSN = a;UID = b;PWD = c"_s, {u"a"_s, u"b"_s, u"c"_s}},
        {u"DSN = a;UID = b;PWD = "_s, {u"a"_s, u"b"_s, u""_s}},
        {u"DSN = ;UID = ;PWD = "_s, {u""_s, u""_s, u""_s}},
        {u"DSN = Site = 1;UID = b = 2;PWD = ;UID = ;PWD = }{"_s,
         {u"Site = 1"_s, u"b = 2"_s, u";UID = ;PWD = }{"_s}},
        {u"DSN = a;PWD = x;UID = b;PWD =  c "_s, {u"a;PWD = x"_s, u"b"_s, u" c "_s}},
    };
    for (const auto& testCase : cases) {
        const auto login = reportLogin(testCase.connect);
        EXPECT_EQ((QStringList{login.dataSource, login.user, login.password}), testCase.login)
            << testCase.connect.toStdString();
    }
}

TEST(ReportLogin, OfAnotherTextIsRefusedWithoutQuotingIt) {
    for (const auto& connect :
         {u""_s, u"DSN=a;UID=b;PWD=secret"_s, u"DSN = a;UID = b"_s, u"DSN = a;PWD = secret"_s,
          u";UID = b;PWD = secret"_s, u"UID = b;PWD = secret"_s, u"DSN = a;PWD = secret;UID = b"_s,
          u" DSN = a;UID = b;PWD = secret"_s, u"DSN =;UID = b;PWD = secret"_s}) {
        try {
            reportLogin(connect);
            ADD_FAILURE() << connect.toStdString();
        } catch (const ReportError& error) {
            EXPECT_EQ(error.text(),
                      u"The connect string of the report does not hold data source, user and password."_s);
        }
    }
}

} // namespace kelvane::testing
