#include "tests/database/script_server.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSet>

#include <thread>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

class SharedRecords : public DemonstrationOnServer {
  protected:
    QString current(const QString& owner, const QString& mtag) {
        return answer(
            database,
            u"select string_agg(ctag::text, ' ') from %1.calibration where mtag = '%2' and c2339 = '1'"_s.arg(
                owner, mtag));
    }
    QString newRecord(const QString& owner, const QString& mtag, const QString& mark = u"null"_s) {
        return answer(
            database,
            u"insert into %1.calibration (mtag, cdsrc, c2339) values ('%2', 'KVN', %3) returning ctag"_s.arg(
                owner, mtag, mark));
    }
    /// Waits until `query` finds a row.
    void waitFor(const QString& query) {
        QElapsedTimer time;
        time.start();
        while (answer(database, query).isEmpty()) {
            ASSERT_LT(time.elapsed(), 20000) << query.toStdString();
        }
    }
};

} // namespace

TEST_F(SharedRecords, ANewRecordIsTheCurrentOneWhateverMarkItBrings) {
    for (const auto& mark : {u"null"_s, u"'1'"_s, u"'0'"_s, u"''"_s}) {
        const auto made = newRecord(u"mt"_s, u"1301"_s, mark);
        EXPECT_EQ(current(u"mt"_s, u"1301"_s), made) << mark.toStdString();
    }
}

TEST_F(SharedRecords, OtherAssetsAndOwnersKeepTheirMarks) {
    const auto other = current(u"mt"_s, u"1302"_s);
    const auto standard = current(u"std"_s, u"2001"_s);
    newRecord(u"mt"_s, u"1301"_s);
    newRecord(u"abc"_s, u"2001"_s);
    EXPECT_EQ(current(u"mt"_s, u"1302"_s), other);
    EXPECT_EQ(current(u"std"_s, u"2001"_s), standard);
}

TEST_F(SharedRecords, ARefusedRecordLeavesTheMarkWhereItWas) {
    const auto before = current(u"mt"_s, u"1301"_s);
    EXPECT_NE(
        psql(database, u"insert into mt.calibration (c2301, mtag) values ('18.03.2026', '1301')"_s).code, 0);
    EXPECT_NE(
        psql(database, u"insert into mt.calibration (ctag, mtag) values (%1, '1301')"_s.arg(before)).code, 0);
    EXPECT_EQ(current(u"mt"_s, u"1301"_s), before);
}

TEST_F(SharedRecords, TwoCurrentRecordsOfAnAssetAreImpossible) {
    newRecord(u"mt"_s, u"1301"_s);
    EXPECT_NE(psql(database, u"update mt.calibration set c2339 = '1' where mtag = '1301'"_s).code, 0);
}

TEST_F(SharedRecords, EachOwnerCountsInItsOwnRangeAndUsesNoNumberAgain) {
    const auto mt = newRecord(u"mt"_s, u"1301"_s).toInt();
    EXPECT_EQ(mt / 1000000, 1);
    EXPECT_EQ(newRecord(u"std"_s, u"2001"_s).toInt() / 1000000, 2);
    EXPECT_EQ(newRecord(u"abc"_s, u"3301"_s).toInt() / 1000000, 3);
    answer(database, u"delete from mt.calibration where ctag = %1"_s.arg(mt));
    EXPECT_EQ(newRecord(u"mt"_s, u"1301"_s).toInt(), mt + 1);
}

TEST_F(SharedRecords, ASecondSessionWaitsUntilTheFirstIsOver) {
    // The first session holds its transaction open until the second one waits.
    QString first;
    std::thread session([&] {
        first = psql(database,
                     u"begin; insert into mt.calibration (mtag) values ('1301') returning ctag;"
                     "do $$ begin for turn in 1 .. 2000 loop "
                     "exit when exists (select from pg_locks where locktype = 'advisory' and not granted); "
                     "perform pg_sleep(0.01); end loop; end $$; commit;"_s)
                    .output.trimmed();
    });
    waitFor(u"select 1 from pg_locks where locktype = 'advisory' and granted"_s);
    const auto second = newRecord(u"mt"_s, u"1301"_s, u"'1'"_s);
    session.join();
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(current(u"mt"_s, u"1301"_s), second);
    EXPECT_EQ(answer(database,
                     u"select count(*) from mt.calibration where ctag = %1 and c2339 is null"_s.arg(first)),
              u"1"_s);
}

TEST_F(SharedRecords, SessionsThatRecordOneAssetAtOnceLeaveOneMarkAndNoNumberTwice) {
    constexpr int sessions = 4;
    constexpr int records = 50;
    const auto inserts =
        u"insert into mt.calibration (mtag, cdsrc) values ('1302', 'KVN') returning ctag;\n"_s.repeated(
            records);
    QStringList outputs(sessions);
    std::vector<std::thread> running;
    for (auto& output : outputs)
        running.emplace_back([&] { output = psql(database, inserts).output; });
    for (auto& session : running)
        session.join();
    QSet<QString> numbers;
    for (const auto& output : outputs) {
        for (const auto& number : output.split(u'\n', Qt::SkipEmptyParts))
            numbers.insert(number);
    }
    EXPECT_EQ(numbers.size(), sessions * records);
    EXPECT_TRUE(numbers.contains(current(u"mt"_s, u"1302"_s)));
}

TEST_F(SharedRecords, ATechnicianRecordsWithoutTheRightToChangeARecord) {
    const Login technician{u"jdoe"_s};
    const auto made = answer(database,
                             u"insert into mt.calibration (mtag, cdsrc) values ('1301', 'KVN'); "
                             "select max(ctag) from mt.calibration"_s,
                             technician);
    EXPECT_EQ(current(u"mt"_s, u"1301"_s), made);
    EXPECT_EQ(
        states(database, {u"update mt.calibration set c2339 = '1' where ctag = %1"_s.arg(made)}, technician),
        QStringList{u"42501"_s});
}

} // namespace kelvane::testing
