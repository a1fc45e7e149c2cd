#include "data/records/record_check.h"

#include "testkit/database_session.h"
#include "tests/platform/errors.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A record of PT-101 (key 1401) in the demonstration's database, with two lines and a standard.
class RecordCheck : public DatabaseSession {
  protected:
    RecordCheck() {
        session.BCalP = false;
        execute(
            u"insert into mt.calibration (mtag, c2301, c2333, c2323, cdsrc) values ('1401', '2026-03-18', "
            "'08:15:30', 'Y', 'KVN')"_s);
        ctag = value(u"select max(ctag) from mt.calibration"_s);
        addLine(0, u"first"_s);
        execute(u"insert into mt.standards (c2430, mtag, ctag) values ('1101', '1401', %1)"_s.arg(ctag));
    }
    void addLine(int number, const QString& line) {
        execute(u"insert into mt.calresults (c2501, c2502, mtag, ctag) values ('%1', '%2', '1401', %3)"_s.arg(
            line, QString::number(number), ctag));
    }
    QList<StoredRecord> findRecords() { return ModuleGlobals::recordsOf(session, routine, contents); }
    StoredRecord record() { return findRecords().value(0); }
    QStringList lines() {
        return rows(
            u"select c2502 || ' ' || c2501 from mt.calresults where ctag = %1 order by c2502"_s.arg(ctag));
    }
    QStringList standards() {
        return rows(
            u"select c2430 from mt.standards where ctag = %1 order by %2"_s.arg(ctag, database.rowOrder()));
    }

    QString ctag;
    RecordContents contents{
        u"PT-101"_s,   u"1401"_s, u"2026-03-18"_s, u"08:15:30"_s, {u"first"_s, u"second  "_s, u"5' tape"_s},
        {u"TS-0001"_s}};
    Routine routine{session, u"Test,RecordCheck"_s};
};

TEST_F(RecordCheck, FindsTheRecordsOfTheMomentWithAllThatBelongsToThem) {
    execute(u"insert into mt.standards (c2430, mtag, ctag) values (null, '1401', %1)"_s.arg(ctag));
    ASSERT_EQ(findRecords().size(), 1);
    EXPECT_EQ(record().ctag, ctag);
    EXPECT_TRUE(record().isCurrent);
    EXPECT_TRUE(record().passed);
    EXPECT_EQ(record().lines, (QMap<int, QString>{{0, u"first"_s}}));
    EXPECT_EQ(record().standards, QStringList{u"1101"_s});
    EXPECT_EQ(record().unknownStandards, 1);
    for (auto* const text : {&contents.date, &contents.time, &contents.mtag}) {
        const auto before = std::exchange(*text, text == &contents.date   ? u"2026-03-19"_s
                                                 : text == &contents.time ? u"08:15:31"_s
                                                                          : u"1402"_s);
        EXPECT_TRUE(findRecords().isEmpty());
        *text = before;
    }
    execute(u"update mt.calibration set cdsrc = 'MTC' where ctag = "_s + ctag);
    EXPECT_TRUE(findRecords().isEmpty()) << "another program's";
}

TEST_F(RecordCheck, ARecordWithoutATimeIsOneOfASiteThatHasNone) {
    contents.time.clear();
    EXPECT_TRUE(findRecords().isEmpty());
    execute(u"update mt.calibration set c2333 = null where ctag = "_s + ctag);
    EXPECT_EQ(findRecords().size(), 1);
}

TEST_F(RecordCheck, OnlyARecordWithoutOtherLinesMayBecomeTheWholeOne) {
    EXPECT_TRUE(ModuleGlobals::mayBecome(record(), contents));
    addLine(1, u"second"_s); // blanks at the end don't matter
    addLine(2, u"5'' tape"_s);
    EXPECT_TRUE(ModuleGlobals::mayBecome(record(), contents));
    addLine(3, u"fourth"_s);
    EXPECT_FALSE(ModuleGlobals::mayBecome(record(), contents)) << "one too many";
    execute(u"delete from mt.calresults where c2502 = '3' and ctag = "_s + ctag);
    execute(u"update mt.calresults set c2501 = 'other' where c2502 = '1' and ctag = "_s + ctag);
    EXPECT_FALSE(ModuleGlobals::mayBecome(record(), contents));
}

TEST_F(RecordCheck, CompletesWhatIsMissingOnceAndDeletesNothing) {
    contents.standards = QStringList{u"TS-0001"_s, u"F702-01"_s, u"NOBODY"_s, u"f702-01"_s};
    execute(u"update mt.inventory set i4224 = 'RECALLED' where mtag = '1401'"_s);
    EXPECT_FALSE(ModuleGlobals::isWhole(session, record(), contents));
    ModuleGlobals::complete(session, routine, record(), contents);
    EXPECT_TRUE(ModuleGlobals::isWhole(session, record(), contents));
    EXPECT_EQ(lines(), (QStringList{u"0 first"_s, u"1 second  "_s, u"2 5' tape"_s}));
    EXPECT_EQ(standards(), (QStringList{u"1101"_s, u"1102"_s, u"(null)"_s}));
    EXPECT_EQ(value(u"select count(*) from mt.inventory where mtag = '1401' and i4224 is null"_s), u"1"_s);
    ModuleGlobals::complete(session, routine, record(), contents);
    EXPECT_EQ(lines().size(), 3);
    EXPECT_EQ(standards().size(), 3);
}

TEST_F(RecordCheck, ARecordThatIsNotTheCurrentOneGetsNoCopies) {
    execute(u"insert into mt.calibration (mtag, c2301, c2333, c2323, cdsrc) values ('1401', '2026-03-19', "
            "'08:15:30', 'Y', 'KVN')"_s);
    execute(u"update mt.inventory set i4224 = 'RECALLED' where mtag = '1401'"_s);
    EXPECT_FALSE(record().isCurrent);
    ModuleGlobals::complete(session, routine, record(), contents);
    EXPECT_EQ(lines().size(), 3);
    EXPECT_EQ(value(u"select count(*) from mt.inventory where mtag = '1401' and i4224 = 'RECALLED'"_s),
              u"1"_s);
}

TEST_F(RecordCheck, AMissingLineOrStandardIsNotWhole) {
    contents.lines = QStringList{u"first"_s};
    EXPECT_TRUE(ModuleGlobals::isWhole(session, record(), contents));
    contents.standards << u"F702-01"_s;
    EXPECT_FALSE(ModuleGlobals::isWhole(session, record(), contents));
    contents.standards.removeLast();
    contents.lines << u"second"_s;
    EXPECT_FALSE(ModuleGlobals::isWhole(session, record(), contents));
}

TEST_F(RecordCheck, ErrorsOfTheDatabaseLeaveIt) {
    const auto stored = record();
    sharedConnection(session).close();
    EXPECT_EQ(errorOf([&] { findRecords(); }), 3709);
    EXPECT_EQ(errorOf([&] { ModuleGlobals::complete(session, routine, stored, contents); }), 3709);
    contents.lines = QStringList{u"first"_s};
    ui.expectReport(3709, u"ModuleGlobals,CheckAsset"_s);
    EXPECT_FALSE(ModuleGlobals::isWhole(session, stored, contents)) << "a standard could not be looked up";
}

} // namespace kelvane::testing
