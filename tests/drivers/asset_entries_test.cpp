#include "drivers/asset_entries.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/lab.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class PackageEntries : public Lab {
  protected:
    QList<AssetEntry> entries;
};

TEST_F(PackageEntries, AreTheMembersInTheirOrder) {
    serials.insert(u"A-2"_s, u"S-2"_s);
    addPackage(u"TAG"_s, {u"A-1"_s, u"A-2"_s});
    EXPECT_EQ(readPackage(session, u"TAG"_s, entries), QString());
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].asset + u' ' + entries[0].mtag, u"A-1 KA-1"_s);
    EXPECT_EQ(entries[1].asset + u' ' + entries[1].serial, u"A-2 S-2"_s);
}

TEST_F(PackageEntries, OfUnknownMembersAreAFailureAndOfNoMembersNone) {
    addPackage(u"TAG"_s, {});
    EXPECT_EQ(readPackage(session, u"TAG"_s, entries), QString());
    script.answers.insert(u"select tptag from mt.hvm_kv_task_assets where tptag = 'TAG'"_s, {{u"TAG"_s}});
    EXPECT_EQ(readPackage(session, u"TAG"_s, entries), text(TextId::downloadInstrumentsUnknown));
    EXPECT_TRUE(entries.isEmpty());
}

TEST_F(PackageEntries, AreRegisteredInPlaceOfWhatTheCalibratorHeld) {
    session.SessionUser = u"jdoe"_s;
    registerInUse(session, u"777"_s, {{u"A-1"_s, u"KA-1"_s, {}}, {u"A-2"_s, u"KA-2"_s, {}}});
    const auto registry = writes().filter(u"mt.hvm_kv_task_inuse "_s);
    const auto insert =
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('777',now(*),'%1','jdoe');commit"_s;
    EXPECT_EQ(
        registry,
        (QStringList{
            u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '777';commit"_s,
            insert.arg(u"KA-1"_s), insert.arg(u"KA-2"_s)}));
}

} // namespace kelvane::testing
