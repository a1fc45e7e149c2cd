#include "platform/database/accounts.h"
#include "platform/database/odbc_connection.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/counting_crypt.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// What stands in front of the salt: the method and its cost.
QByteArrayList costsOf(const QByteArrayList& settings) {
    QByteArrayList costs;
    for (const auto& setting : settings) {
        const auto parts = setting.split('$');
        costs << parts.value(1) + '$' + parts.value(2);
    }
    return costs;
}

/// The costs of the hashes that one login computes.
QByteArrayList costsOfLogin(const EmbeddedDatabase& database, const QString& user, const QString& password) {
    takeComputedSettings();
    const auto connection = odbcConnections()();
    errorOf([&] { connection->open(database.connectionString(), user, password); });
    return costsOf(takeComputedSettings());
}

} // namespace

TEST(LoginCost, OfAnUnknownNameIsThatOfAKnownOne) {
    const EmbeddedDatabase database(demoDatabase());
    const QByteArrayList usual{"y$j9T"};
    EXPECT_EQ(costsOfLogin(database, u"jdoe"_s, u"kelvane"_s), usual);
    EXPECT_EQ(costsOfLogin(database, u"jdoe"_s, u"wrong"_s), usual);
    for (const auto& unknown : {u"nobody"_s, u""_s, u"jdoe' or 1=1 --"_s, QString(200, u'x')})
        EXPECT_EQ(costsOfLogin(database, unknown, u"kelvane"_s), usual) << unknown.toStdString();
}

TEST(LoginCost, OfAnAccountWithoutAHashIsTheUsualOneToo) {
    const SmallDatabase database;
    EXPECT_EQ(costsOfLogin(database, u"none"_s, u"x"_s), QByteArrayList{"y$j9T"});
}

} // namespace kelvane::testing
