#include "endurance/checker.h"
#include "endurance/site_rows.h"
#include "testkit/embedded_database.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// The checker on a copy of the demonstration database, into which one worksheet was entered.
class EnduranceChecker : public ::testing::Test {
  protected:
    EnduranceChecker() {
        connection->execute(
            u"insert into mt.calibration (mtag,cdsrc,c2312) values ('1401','KVN',1008);commit"_s);
        connection->execute(
            u"insert into mt.standards (ctag,mtag,c2430) select ctag,mtag,'1203' from mt.calibration "
            "where c2312 = 1008;commit"_s);
    }
    QStringList faults() {
        return endure::Checker(*connection, {folder.path()}, u"template"_s, before).check().faults;
    }

    OwnFolder folder;
    EmbeddedDatabase database{demoDatabase()};
    std::unique_ptr<Connection> connection = database.connect(u"MT"_s);
    endure::SiteRows before = endure::readSiteRows(*connection);
};

TEST_F(EnduranceChecker, FindsNothingInAWholeDatabase) {
    EXPECT_EQ(faults(), QStringList());
}

TEST_F(EnduranceChecker, FindsAnInstrumentWithoutACurrentRecord) {
    connection->execute(u"update mt.calibration set c2339 = null where mtag = '1401';commit"_s);
    EXPECT_EQ(faults(), QStringList(u"PT-101 has 0 current records"_s));
}

TEST_F(EnduranceChecker, FindsALineWithoutARecord) {
    connection->execute(
        u"insert into mt.calresults (ctag,mtag,c2502,c2501) values (77,'1401',0,'x');commit"_s);
    EXPECT_EQ(faults(), QStringList(u"a line is left without its record: 77 | 0 | x"_s));
}

TEST_F(EnduranceChecker, FindsAStandardInARecordOfTheSite) {
    connection->execute(
        u"insert into mt.standards (ctag,mtag,c2430) values (1000001,'1401','1203');commit"_s);
    EXPECT_EQ(faults(), QStringList(u"a standard has come that no station has made: 1000001 | 1203"_s));
}

TEST_F(EnduranceChecker, FindsARecordOfTheSiteThatIsGone) {
    connection->execute(u"delete from mt.calibration where ctag = 1000001;commit"_s);
    const auto found = faults();
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(found[0].startsWith(u"the site's own record is gone: 1000001 | 1401"_s))
        << found[0].toStdString();
}

TEST_F(EnduranceChecker, FindsSavedEditsAndWorksheetsThatAreNotThere) {
    folder.write(u"acts.log"_s, "1\tedit\t8 save worksheet\n2\tedited\t8\n3\tend\t\n"
                                "4\tedit\t16 save worksheet\n5\tedited\t16\n6\tend\t\n"
                                "7\tedit\t24 save strategy ENDURE 1\n8\tedited\t24\n9\tend\t\n"
                                "10\tedit\t32 save message ENDURE 1\n11\tedited\t32\n12\tend\t\n"
                                "13\tedit\t40 save package ENDURE 1\n14\tedited\t40\n15\tend\t\n"
                                "16\tedit\t48 save parameters TW-101\n17\tedited\t48\n18\tend\t\n");
    EXPECT_EQ(faults(), QStringList({u"the worksheet 1016, which was saved, has no record"_s,
                                     u"the edit 24 of the strategy ENDURE 1, which was saved, is lost"_s,
                                     u"the edit 32 of the message ENDURE 1, which was saved, is lost"_s,
                                     u"the edit 40 of the package ENDURE 1, which was saved, is lost"_s,
                                     u"the edit 48 of the parameters TW-101, which was saved, is lost"_s}));
}

} // namespace kelvane::testing
