#include "data/session_values.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString selectUser =
    u"select (select i4240 from mt.userlist where mtuser = 'cnguyen'),(select mtlevel  from mt.userlist where mtuser = 'cnguyen')"_s;
const QString selectSite = u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s;

} // namespace

/// A session of which nothing is known yet.
class SessionValues : public RecordedSession {
  protected:
    SessionValues() {
        session.SessionOwner.clear();
        session.SessionDateFormat.clear();
        session.SessionDbVersion = 0;
        script.answers.insert(selectUser, {Row{u"STD"_s, u"4"_s}});
        script.answers.insert(selectSite, {Row{u"1"_s, u"7"_s, u"1"_s, u"0"_s, u"1"_s}});
    }
};

TEST_F(SessionValues, AreThoseOfTheUserAndTheSite) {
    readSessionValues(session, u"cnguyen"_s);
    EXPECT_EQ(script.statements, (QStringList{selectUser, selectSite}));
    EXPECT_EQ(script.firstRowOnly, script.statements);
    EXPECT_EQ(session.SessionOwner, u"STD"_s);
    EXPECT_EQ(session.SessionLevel, 4);
    EXPECT_EQ(session.SessionDateFormat, u"DD/MM/YYYY"_s);
    EXPECT_EQ(session.SessionDbVersion, 7);
    EXPECT_TRUE(session.BCal4225);
    EXPECT_FALSE(session.BCal4224);
    EXPECT_TRUE(session.BCalP);
}

TEST_F(SessionValues, OfTheDatabaseOwnerNeedNoRowOfTheUser) {
    script.answers.remove(selectUser);
    readSessionValues(session, u"mt"_s);
    EXPECT_EQ(session.SessionOwner, u"MT"_s);
    EXPECT_EQ(session.SessionLevel, 6);
    EXPECT_EQ(session.SessionDateFormat, u"DD/MM/YYYY"_s);
}

TEST_F(SessionValues, WithoutARowOfTheUserAreNotRead) {
    script.answers.remove(selectUser);
    EXPECT_THROW(readSessionValues(session, u"cnguyen"_s), Error);
    EXPECT_EQ(script.statements, QStringList{selectUser});
    EXPECT_EQ(session.SessionOwner, QString());
}

TEST_F(SessionValues, StayWhereTheSiteCanNotBeRead) {
    script.failures.insert(selectSite, Error{7, u"no such table"_s});
    EXPECT_THROW(readSessionValues(session, u"cnguyen"_s), Error);
    EXPECT_EQ(session.SessionOwner, u"STD"_s);
    EXPECT_EQ(session.SessionDateFormat, QString());
}

} // namespace kelvane::testing
