#include "data/session_values.h"

#include "data/routine.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString userQuery(const QString& user) {
    return u"select (select i4240 from mt.userlist where mtuser = '%1'),(select mtlevel  from mt.userlist where mtuser = '%1')"_s
        .arg(user);
}

const auto siteQuery = u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s;

class SessionValues : public RecordedSession {
  protected:
    SessionValues() {
        session.SessionOwner.clear();
        session.SessionLevel = 0;
        script.answers[userQuery(u"gpetrov"_s)] = {{u"ABC"_s, u"4"_s}};
        answerSite({u"1"_s, u"6"_s, u"1"_s, u"0"_s, u"1"_s});
    }
    void answerSite(const Row& row) { script.answers[siteQuery] = {row}; }
    void read(const QString& user = u"gpetrov"_s) { readSessionValues(session, user); }
};

} // namespace

TEST_F(SessionValues, AreThoseOfTheUserAndOfTheSite) {
    read();
    EXPECT_EQ(session.SessionOwner, u"ABC"_s);
    EXPECT_EQ(session.SessionLevel, 4);
    EXPECT_EQ(session.SessionDateFormat, u"DD/MM/YYYY"_s);
    EXPECT_EQ(session.SessionDbVersion, 6);
    EXPECT_TRUE(session.BCal4225);
    EXPECT_FALSE(session.BCal4224);
    EXPECT_TRUE(session.BCalP);
    EXPECT_EQ(script.statements, (QStringList{userQuery(u"gpetrov"_s), siteQuery}));
}

TEST_F(SessionValues, OfTheDatabaseOwnerNeedNoRowInTheListOfUsers) {
    read(u"mt"_s);
    EXPECT_EQ(session.SessionOwner, u"MT"_s);
    EXPECT_EQ(session.SessionLevel, 6);
}

TEST_F(SessionValues, AnUnknownDateCodeOrFlagChangesNothing) {
    session.SessionDateFormat = u"YYYY/MM/DD"_s;
    session.BCal4225 = true;
    answerSite({u"7"_s, u"6"_s, u"2"_s, u"0"_s, u"0"_s});
    read();
    EXPECT_EQ(session.SessionDateFormat, u"YYYY/MM/DD"_s);
    EXPECT_TRUE(session.BCal4225);
}

TEST_F(SessionValues, TheLevelOfProcedureEditorsIsTheSites) {
    Routine routine(session, u"Test,Level"_s);
    EXPECT_THROW(levelOfProcedureEditors(routine), Error) << "no row";
    script.answers[u"select procedit from mt.dbconfig"_s] = {{u"3"_s}};
    EXPECT_EQ(levelOfProcedureEditors(routine), 3);
    script.answers[u"select procedit from mt.dbconfig"_s] = {{std::nullopt}};
    EXPECT_THROW(levelOfProcedureEditors(routine), Error);
}

TEST_F(SessionValues, ProceduresAreEditedFromTheSitesLevelToTheFifth) {
    Routine routine(session, u"Test,Level"_s);
    for (const auto level : {qint16{0}, qint16{6}, qint16{7}})
        EXPECT_FALSE(mayEditProcedures(routine, level)) << level;
    EXPECT_EQ(script.statements, QStringList()) << "whatever the site says";
    script.answers[u"select procedit from mt.dbconfig"_s] = {{u"3"_s}};
    EXPECT_FALSE(mayEditProcedures(routine, 2));
    EXPECT_TRUE(mayEditProcedures(routine, 3));
    EXPECT_TRUE(mayEditProcedures(routine, 5));
}

TEST_F(SessionValues, WhatStopsThemIsThrownAndNotReported) {
    const auto numberOf = [this] {
        try {
            read();
        } catch (const Error& error) {
            return error.number;
        }
        return 0.0;
    };
    answerSite({u"0"_s, std::nullopt, u"0"_s, u"0"_s, u"0"_s});
    EXPECT_EQ(numberOf(), 94);
    script.answers.remove(siteQuery);
    EXPECT_EQ(numberOf(), 3021);
    script.answers[userQuery(u"gpetrov"_s)] = {{std::nullopt, u"4"_s}};
    EXPECT_EQ(numberOf(), 94);
    script.failures[userQuery(u"gpetrov"_s)] = Error{-143, u"Column not found"_s};
    EXPECT_EQ(numberOf(), -143);
    EXPECT_EQ(session.reportCount, 0);
}

} // namespace kelvane::testing
