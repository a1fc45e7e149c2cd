#include "data/history/standard_use.h"

#include "testkit/database_session.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class StandardUses : public RecordedSession {
  protected:
    static QString statement(const QString& standard, const QString& since) {
        return u"select inv.i4201,inv.i4204,cal.c2301,cal.c2308,cal.c2323,cal.c2333,cal.ctag,cal.mtag from "
               u"(select "
               "distinct mtag,ctag from mt.standards where c2430 = (select mtag from MT.inventory where "
               "i4201 = "
               "'"_s +
               standard +
               u"')) used inner join MT.calibration cal on cal.ctag = used.ctag and cal.mtag = used.mtag "
               u"left outer "
               "join MT.inventory inv on inv.mtag = cal.mtag where cal.c2301 >= '"_s +
               since +
               u"' or cal.c2301 is null order by case when cal.c2301 is null then 1 else 0 end,cal.c2301 "
               u"desc,case "
               "when cal.c2333 is null then 1 else 0 end,cal.c2333 desc,inv.i4201 asc,cal.ctag desc"_s;
    }
};

class StandardUseOnDatabase : public DatabaseSession {
  protected:
    QStringList uses(const QString& standard, const QDate& since) {
        QStringList found;
        const auto all = usesOfStandard(session, standard, since);
        EXPECT_TRUE(all.has_value());
        for (const auto& use : all.value_or(QList<StandardUse>()))
            found << QStringList{use.asset, use.description, use.date.text, use.time.text,
                                 use.state, use.passed,      use.ctag}
                         .join(u'|');
        return found;
    }
    /// The same found from the records, one by one.
    QStringList expected(const QString& standard, const QDate& since) {
        return rows(
            u"select (select i4201 from mt.inventory i where i.mtag = c.mtag),(select i4204 from "
            "mt.inventory i where i.mtag = c.mtag),c2301,c2333,c2308,c2323,ctag from mt.calibration c where "
            "c2301 >= '%1' and exists (select 1 from mt.standards s where s.ctag = c.ctag and s.c2430 in "
            "(select mtag from mt.inventory where i4201 = '%2')) order by c2301 desc,c2333 desc,ctag desc"_s
                .arg(since.toString(u"yyyy-MM-dd"_s), standard),
            7);
    }
    void use(const QString& standardMtag, const QString& condition) {
        execute(u"insert into mt.standards (c2430,mtag,ctag) select '"_s + standardMtag +
                u"',mtag,ctag from mt.calibration where "_s + condition);
    }
    const QDate always{1900, 1, 1};
};

} // namespace

TEST_F(StandardUses, AreReadByOneStatement) {
    script.answers[statement(u"O''RING"_s, u"2026-01-05"_s)] = {
        {u"PT-101"_s, {}, u"2026-02-01"_s, u"AS-LEFT "_s, u"Y"_s, u"08:00:00"_s, u"12"_s, u"1401"_s}};
    const auto uses = usesOfStandard(session, u"O'RING"_s, QDate(2026, 1, 5));
    ASSERT_TRUE(uses && uses->size() == 1);
    const auto& use = uses->first();
    EXPECT_EQ((QStringList{use.asset, use.description, use.state, use.passed, use.ctag, use.mtag}),
              (QStringList{u"PT-101"_s, {}, u"AS-LEFT"_s, u"Y"_s, u"12"_s, u"1401"_s}));
    EXPECT_EQ(use.date.moment.date, QDate(2026, 2, 1));
    EXPECT_EQ(use.time.moment.time, QTime(8, 0));
}

TEST_F(StandardUses, ThatCanNotBeReadAreReportedAndNotTakenForNone) {
    script.failures = {{statement(u"A"_s, u"2026-01-05"_s), {7, u"no such table"_s}}};
    ui.expectReport(7, u"History,standardUse"_s);
    EXPECT_FALSE(usesOfStandard(session, u"A"_s, QDate(2026, 1, 5)));
}

TEST_F(StandardUses, NameTheirStandardWithWhatTheInventorySaysOfIt) {
    script
        .answers[u"select i4201,i4204,i4206 from MT.inventory where i4201 = 'O''RING' order by i4201 asc"_s] =
        {{u"O'RING "_s, u"RING"_s, {}}};
    const auto found = standardOf(session, u"O'RING"_s).found;
    ASSERT_TRUE(found);
    EXPECT_EQ(found->asset, u"O'RING "_s) << "it is asked for by what is stored";
    EXPECT_EQ(found->description, u"RING"_s);
    EXPECT_EQ(found->serial, QString());
    EXPECT_TRUE(standardOf(session, u"none"_s).isAbsent());
    script.failures = {{script.statements.last(), {7, u"no such table"_s}}};
    ui.expectReport(7, u"History,standardOf"_s);
    const auto failed = standardOf(session, u"none"_s);
    EXPECT_TRUE(failed.hasFailed);
    EXPECT_FALSE(failed.found);
}

TEST_F(StandardUses, OfferTheStandardsThatAnyCalibrationNames) {
    const auto statement = u"select i4201,i4204,i4206 from MT.inventory where mtag in (select c2430 from "
                           "mt.standards) order by i4201 asc"_s;
    script.answers[statement] = {{u"DMM-01"_s, u"METER"_s, u"77"_s}, {u"PM-100"_s, {}, {}}};
    const auto found = usedStandards(session);
    ASSERT_TRUE(found && found->size() == 2);
    EXPECT_EQ(found->first().serial, u"77"_s);
    EXPECT_EQ(found->last().asset, u"PM-100"_s);
    script.failures = {{statement, {7, u"no such table"_s}}};
    ui.expectReport(7, u"History,usedStandards"_s);
    EXPECT_FALSE(usedStandards(session));
}

TEST_F(StandardUseOnDatabase, AreOfferedByTheStandardsThatTheyName) {
    use(u"1203"_s, u"mtag = '1401'"_s);
    QStringList offered;
    for (const auto& standard : usedStandards(session).value_or(QList<Standard>()))
        offered << standard.asset;
    EXPECT_EQ(offered, values(u"select distinct i4201 from mt.inventory i join mt.standards s on s.c2430 = "
                              "i.mtag"_s));
    EXPECT_TRUE(offered.contains(u"DMM-01"_s));
    EXPECT_EQ(standardOf(session, u"dmm-01"_s).found.value_or(Standard()).asset, u"DMM-01"_s);
}

TEST_F(StandardUseOnDatabase, AreTheCalibrationsThatNameTheStandard) {
    use(u"1203"_s, u"mtag = '1401'"_s);
    use(u"1203"_s, u"mtag = '1304'"_s);
    const auto found = uses(u"DMM-01"_s, always);
    EXPECT_EQ(found.size(), 5);
    EXPECT_EQ(found, expected(u"DMM-01"_s, always));
    EXPECT_EQ(uses(u"TT-0300F"_s, always), expected(u"TT-0300F"_s, always));
    EXPECT_EQ(uses(u"TT-0300F"_s, always).size(), 1);
}

TEST_F(StandardUseOnDatabase, CountFromTheirFirstDayOn) {
    use(u"1203"_s, u"mtag = '1401'"_s);
    const auto first =
        QDate::fromString(value(u"select max(c2301) from mt.calibration where mtag = '1401'"_s), Qt::ISODate);
    EXPECT_EQ(uses(u"DMM-01"_s, first).size(), 1);
    EXPECT_EQ(uses(u"DMM-01"_s, first.addDays(1)).size(), 0);
    EXPECT_EQ(uses(u"DMM-01"_s, first.addDays(-366)), expected(u"DMM-01"_s, first.addDays(-366)));
}

TEST_F(StandardUseOnDatabase, WithoutADateAreListedLast) {
    execute(u"insert into mt.calibration (mtag,cdsrc) values ('1402','OLD')"_s);
    use(u"1203"_s, u"cdsrc = 'OLD'"_s);
    use(u"1203"_s, u"mtag = '1401' and c2339 = '1'"_s);
    const auto found = uses(u"DMM-01"_s, clock.now().date().addYears(-2));
    ASSERT_EQ(found.size(), 2);
    EXPECT_TRUE(found[0].startsWith(u"PT-101|"_s));
    EXPECT_TRUE(found[1].startsWith(u"PT-102|PRESSURE TRANSMITTER||||"_s)) << found[1].toStdString();
}

TEST_F(StandardUseOnDatabase, AreListedOnceWhenTheStandardIsNamedTwice) {
    use(u"1203"_s, u"mtag = '1402'"_s);
    use(u"1203"_s, u"mtag = '1402'"_s);
    EXPECT_EQ(uses(u"DMM-01"_s, always).size(), 1);
}

TEST_F(StandardUseOnDatabase, OfAnUnknownOrUnusedStandardAreNone) {
    EXPECT_EQ(uses(u"PM-300"_s, always), QStringList());
    EXPECT_EQ(uses(u"no such"_s, always), QStringList());
    EXPECT_EQ(uses(u"' or '1' = '1"_s, always), QStringList());
}

TEST_F(StandardUseOnDatabase, OfAnInstrumentThatIsGoneHaveNoAsset) {
    use(u"1203"_s, u"mtag = '1402'"_s);
    execute(u"delete from mt.inventory where mtag = '1402'"_s);
    const auto found = uses(u"DMM-01"_s, always);
    ASSERT_EQ(found.size(), 1);
    EXPECT_TRUE(found.first().startsWith(u"||"_s)) << found.first().toStdString();
}

} // namespace kelvane::testing
