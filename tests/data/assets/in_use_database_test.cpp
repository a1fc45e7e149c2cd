#include "data/assets/in_use.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto calibrator = u"48213"_s; // TS-0001, key 1101

class InUseOnDatabase : public DatabaseSession {
  protected:
    /// An instrument went to another calibrator so many days ago; its key is the number of days.
    void markSentOut(int days) {
        const auto key = QString::number(days);
        execute(
            u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('other','"_s +
            daysAgo(days) + u"','"_s + key + u"',null)"_s);
        execute(
            u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('other','"_s +
            daysAgo(days) + u"','"_s + key + u"')"_s);
    }
    QStringList out() {
        return values(u"select mtag from mt.hvm_kv_task_inuse where serial_number = 'other'"_s);
    }
    QStringList standardsOut() {
        return values(u"select mtag from mt.hvm_kv_task_standards_inuse where standard_mtag = 'other'"_s);
    }

    /// A package of that tag, made so many days ago, with one member.
    void package(const QString& tag, const QString& type, int days) {
        execute(u"insert into mt.hvm_kv_task_packages (taskname,tptype,created_on,tptag) values ('"_s + tag +
                u"','"_s + type + u"','"_s + daysAgo(days) + u"','"_s + tag + u"')"_s);
        execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('"_s + tag + u"','1401')"_s);
    }
    QStringList packages() {
        return values(u"select tptag from mt.hvm_kv_task_packages where tptag like 'old%'"_s);
    }
    QStringList members() {
        return values(u"select tptag from mt.hvm_kv_task_assets where tptag like 'old%'"_s);
    }
};

} // namespace

TEST_F(InUseOnDatabase, AnInstrumentIsRegisteredAndItsCalibratorIsItsStandard) {
    AddInUse(session, calibrator, u"1401"_s, u"jdoe"_s);
    const auto data = GetInUseData(session, calibrator, u"1401"_s);
    EXPECT_EQ(data.tech, u"jdoe"_s);
    EXPECT_LE(minutesBetween(data.entered_date, clock.moment()), 1);
    EXPECT_GE(minutesBetween(data.entered_date, clock.moment()), 0);
    EXPECT_EQ(GetStandardsInUse(session, u"PT-101"_s), QStringList{u"TS-0001"_s});
}

TEST_F(InUseOnDatabase, AnEmptyTechnicianIsANullInTheRow) {
    AddInUse(session, calibrator, u"1401"_s, {});
    EXPECT_EQ(values(u"select tech from mt.hvm_kv_task_inuse where mtag = '1401'"_s),
              QStringList{u"(null)"_s});
    EXPECT_EQ(GetInUseData(session, calibrator, u"1401"_s).tech, QString());
}

TEST_F(InUseOnDatabase, APairThatIsNotRegisteredGivesAnEmptyTechnicianAndNoError) {
    const auto data = GetInUseData(session, calibrator, u"1401"_s);
    EXPECT_EQ(data.tech, QString());
    EXPECT_TRUE(data.entered_date.isEmpty());
    EXPECT_EQ(GetStandardsInUse(session, u"PT-101"_s), QStringList());
}

TEST_F(InUseOnDatabase, AnUnknownCalibratorIsStoredWithAnEmptyKey) {
    AddInUse(session, u"no such"_s, u"1401"_s, u"jdoe"_s);
    EXPECT_EQ(values(u"select standard_mtag from mt.hvm_kv_task_standards_inuse where mtag = '1401'"_s),
              QStringList{QString()});
}

TEST_F(InUseOnDatabase, ClearingACalibratorForgetsWhatItHolds) {
    AddInUse(session, calibrator, u"1401"_s, u"jdoe"_s);
    AddInUse(session, u"6841207"_s, u"1402"_s, u"jdoe"_s);
    ClearInUse(session, calibrator);
    EXPECT_EQ(values(u"select mtag from mt.hvm_kv_task_inuse"_s),
              (QStringList{u"1402"_s, u"1403"_s, u"1404"_s}));
    EXPECT_EQ(values(u"select mtag from mt.hvm_kv_task_standards_inuse"_s),
              (QStringList{u"1402"_s, u"1403"_s, u"1404"_s}));
}

TEST_F(InUseOnDatabase, ARow31DaysOldSurvivesTheLoginAndGoesWithTheNextClearingOfAnyCalibrator) {
    markSentOut(29);
    markSentOut(31);
    ClearSystemTables(session);
    EXPECT_EQ(out(), (QStringList{u"29"_s, u"31"_s}));
    EXPECT_EQ(standardsOut(), (QStringList{u"29"_s, u"31"_s}));
    ClearInUse(session, calibrator);
    EXPECT_EQ(out(), QStringList{u"29"_s});
    EXPECT_EQ(standardsOut(), QStringList{u"29"_s});
}

TEST_F(InUseOnDatabase, ARow91DaysOldGoesWithTheLogin) {
    markSentOut(89);
    markSentOut(91);
    ClearSystemTables(session);
    EXPECT_EQ(out(), QStringList{u"89"_s});
    EXPECT_EQ(standardsOut(), QStringList{u"89"_s});
}

TEST_F(InUseOnDatabase, Packages91DaysOldGoWithTheLoginPredefinedOnesToo) {
    package(u"old-89"_s, u"PDEF"_s, 89);
    package(u"old-91-predefined"_s, u"PDEF"_s, 91);
    package(u"old-91-worksheet"_s, u"WSHT"_s, 91);
    ClearSystemTables(session);
    EXPECT_EQ(packages(), QStringList{u"old-89"_s});
    EXPECT_EQ(members(), QStringList{u"old-89"_s});
}

TEST_F(InUseOnDatabase, MembersWithoutTheirPackageGoWithTheLogin) {
    execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('old-orphan','1401')"_s);
    const auto others = values(u"select tptag from mt.hvm_kv_task_assets where tptag <> 'old-orphan'"_s);
    ClearSystemTables(session);
    EXPECT_EQ(values(u"select tptag from mt.hvm_kv_task_assets"_s), others);
}

} // namespace kelvane::testing
