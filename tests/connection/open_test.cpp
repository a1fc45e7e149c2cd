#include "platform/odbc_connection.h"
#include "resources/strings.h"
#include "tests/connection/small_database.h"
#include "tests/support/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Open, AttachesEveryOwnerUnderTheNameOfItsFile) {
    const SmallDatabase database;
    const auto connection = database.connect();
    connection->execute(u"insert into ABC.inventory (mtag,i4201) values ('1','A-1');commit"_s);
    EXPECT_EQ(firstColumn(*connection, u"select i4201 from abc.inventory"_s), QStringList{u"A-1"_s});
    EXPECT_EQ(firstColumn(*connection, u"select count(*) from Mt.inventory"_s), QStringList{u"0"_s});
}

TEST(Open, RefusesAWrongPasswordAndAnUnknownNameInTheSameWords) {
    const SmallDatabase database;
    for (const auto& [user, password] : {std::pair{u"jdoe"_s, u"wrong"_s},
                                         {u"nobody"_s, u"kelvane"_s},
                                         {u"jdoe"_s, u""_s},
                                         {u""_s, u""_s},
                                         {u"damaged"_s, u"not a hash"_s},
                                         {u"none"_s, u""_s},
                                         {u"jdoe' or 1=1 --"_s, u"kelvane"_s},
                                         {u"jdoe"_s, u"kelvane\0"_s}}) {
        const auto connection = odbcConnections()();
        const auto error = errorOf([&] { connection->open(database.connectionString(), user, password); });
        ASSERT_TRUE(error) << user.toStdString();
        EXPECT_EQ(error->description, text(1066));
        EXPECT_EQ(error->sqlState, u"28000"_s);
        EXPECT_FALSE(connection->isOpen());
    }
}

TEST(Open, TakesNamesInAnyCaseAndPasswordsInAnyAlphabet) {
    const SmallDatabase database;
    EXPECT_TRUE(database.EmbeddedDatabase::connect(u"JDOE"_s, u"kelvane"_s)->isOpen());
    EXPECT_TRUE(database.EmbeddedDatabase::connect(u"Jürgen"_s, u"pässwörd"_s)->isOpen());
    EXPECT_TRUE(database.EmbeddedDatabase::connect(u"o'hara"_s, u"it's"_s)->isOpen());
}

} // namespace kelvane::testing
