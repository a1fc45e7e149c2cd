#include "data/assets/worksheet_package.h"

#include "testkit/fixtures.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class WorksheetPackage : public RecordedSession {
  protected:
    Routine routine{session, u"Test,Package"_s};
};

} // namespace

TEST_F(WorksheetPackage, HasANewTagOfThirtyDigitsAndCapitalsEachTime) {
    const QRegularExpression form(u"^[0-9A-Z]{30}$"_s);
    QSet<QString> tags;
    for (int package = 0; package < 100; ++package) {
        tags << newPackageTag(session);
        EXPECT_TRUE(form.match(newPackageTag(session)).hasMatch());
    }
    EXPECT_EQ(tags.size(), 100);
    EXPECT_EQ(script.statements, QStringList());
}

TEST_F(WorksheetPackage, IsMadeFilledAndRemovedByItsTag) {
    session.SessionOwner = u"ABC"_s;
    insertPackage(session, routine, u"T1"_s);
    insertPackageMember(session, routine, u"T1"_s, u"A-1"_s);
    insertPackageMember(session, routine, u"T1"_s, u"O''Brien"_s);
    removePackage(routine, u"T1"_s);
    EXPECT_EQ(
        script.statements,
        (QStringList{
            u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values ('T1','WSHT','jdoe',now(*),'T1');commit"_s,
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('T1',(select mtag from ABC.inventory where i4201 = 'A-1'));commit"_s,
            u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('T1',(select mtag from ABC.inventory where i4201 = 'O''Brien'));commit"_s,
            u"delete from mt.hvm_kv_task_assets where tptag = 'T1';delete from mt.hvm_kv_task_packages where tptag = 'T1';commit"_s}));
}

TEST_F(WorksheetPackage, ThrowsWhatFailsAndSendsNoNameThatEndsItsQuotes) {
    EXPECT_THROW(insertPackageMember(session, routine, u"T1"_s, u"O'Brien"_s), Error);
    session.SessionUser = u"O'Brien"_s;
    EXPECT_THROW(insertPackage(session, routine, u"T1"_s), Error);
    EXPECT_EQ(script.statements, QStringList());
    script.lost = true;
    EXPECT_THROW(removePackage(routine, u"T1"_s), Error);
    EXPECT_EQ(script.statements.size(), 1);
}

} // namespace kelvane::testing
