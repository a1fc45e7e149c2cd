#include "testkit/given_params.h"
#include "tests/database/databases.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

struct Table {
    QString name;
    QString columns;
};

/// The tables that the system reads and writes, with the columns that it names.
const QList<Table> sharedTables{
    {u"mt.hvm_kv_proc_points"_s, u"tp_name test_point_seq test_point_pct"_s},
    {u"mt.hvm_kv_tag_config"_s, givenSavedColumns.toString().replace(u',', u' ')},
    {u"mt.hvm_kv_prompts"_s, u"pname prompt"_s},
    {u"mt.hvm_kv_proc_prompts"_s, u"mtag prompt_type prompt_seq pname"_s},
    {u"mt.hvm_kv_task_packages"_s,
     u"taskname tptype mtuser created_on tptag notes tp_definition task_sql segregate model description"_s},
    {u"mt.hvm_kv_task_assets"_s, u"tptag mtag"_s},
    {u"mt.hvm_kv_task_inuse"_s, u"serial_number entered_date mtag tech"_s},
    {u"mt.hvm_kv_task_standards_inuse"_s, u"standard_mtag entered_date mtag"_s},
    {u"mt.hvm_kv_last_standards_used"_s, u"standard_mtag entered_date mtag"_s},
    {u"mt.hvm_kv_worksheetfields"_s, u"fldnum sequence"_s},
    {u"mt.hvm_kv_sysconfig"_s, u"allow_ooc_stds allow_poor_trace_stds"_s},
    {u"mt.userlist"_s, u"mtuser i4240 mtlevel"_s},
    {u"mt.dbconfig"_s, u"datecode version b_cal_4225 b_cal_4224 b_cal_p procedit tracecodes trace_delta"_s},
    {u"mt.nonworkdays"_s, u"dayofweek"_s},
    {u"mt.holidays"_s, u"holiday"_s},
    {u"mt.customiz"_s,
     u"fldnum datacol title idefault ireq sreq sdefault scopy dcopy validation datalen tooltip "
     "suppressed row nextfld"_s},
    {u"mt.valfield"_s, u"fldnum val"_s},
    {u"mt.segregate"_s, u"i4240"_s},
    {u"mt.standards"_s, u"c2430 mtag ctag"_s},
    {u"mt.calresults"_s, u"c2501 c2502 mtag ctag"_s},
    {u"sys.sysdomain"_s, u"domain_id domain_name"_s},
    {u"sys.syscolumn"_s, u"domain_id column_name"_s}};

const QList<Table> ownerTables{
    {u"inventory"_s, u"mtag i4201 i4202 i4203 i4204 i4206 i4209 i4224 i4225 i4228 i4229 i4240"_s},
    {u"calibration"_s, u"mtag ctag cdsrc c2301 c2333 c2302 c2331 c2303 c2334 c2306 c2307 c2308 c2309 c2311 "
                       u"c2312 c2313 c2315 c2316 c2320 c2323 c2326 c2329 "
                       "c2336 c2338 c2339 c2350 c2352"_s},
    {u"location"_s, u"mtag l2801 l2815"_s},
    {u"repair"_s, u"mtag r3246"_s},
    {u"customers"_s, u"mtag"_s}};

class Schema : public ::testing::Test {
  protected:
    std::optional<Error> refusal(const QString& statement) { return refusalOf(*connection, statement); }
    void expectColumns(const QString& table, const QString& columns) {
        const auto query =
            u"select "_s + columns.simplified().replace(u' ', u',') + u" from "_s + table + u" where 1 = 0"_s;
        EXPECT_NO_THROW(connection->select(query)) << query.toStdString();
        // The engine takes a double-quoted name that doesn't exist for a text: ask with a qualifier as well.
        for (const auto& column : columns.simplified().split(u' '))
            EXPECT_NO_THROW(
                connection->select(u"select t."_s + column + u" from "_s + table + u" as t where 1 = 0"_s))
                << table.toStdString() << " " << column.toStdString();
    }

    DemoDatabase database;
    std::unique_ptr<Connection> connection = database.connect();
};

class Calibrations : public Schema {
  protected:
    QString newRecord(const QString& owner, const QString& mtag, const QString& columns = {},
                      const QString& values = {}) {
        connection->execute(u"insert into "_s + owner + u".calibration ("_s + columns +
                            u"mtag,cdsrc) values ("_s + values + u'\'' + mtag + u"','KVN');commit"_s);
        return valueOf(*connection,
                       u"select max(ctag) from "_s + owner + u".calibration where mtag = '"_s + mtag + u'\'');
    }
    QStringList current(const QString& owner, const QString& mtag) {
        return queryRows(*connection, u"select ctag from "_s + owner + u".calibration where mtag = '"_s +
                                          mtag + u"' and c2339 = 1"_s);
    }
};

} // namespace

TEST_F(Schema, SharedTablesHaveAllColumnsThatStatementsName) {
    for (const auto& table : sharedTables)
        expectColumns(table.name, table.columns);
}

TEST_F(Schema, EachOwnerHasItsOwnTables) {
    for (const auto& owner : {u"mt"_s, u"std"_s, u"abc"_s}) {
        for (const auto& table : ownerTables)
            expectColumns(owner + u'.' + table.name, table.columns);
    }
}

TEST_F(Schema, OwnersTablesAreAlike) {
    QHash<QString, QStringList> columns;
    for (const auto& column : allColumns(*connection))
        columns[column.schema] << column.table + u'.' + column.name + u' ' + column.type;
    EXPECT_EQ(columns[u"std"_s], columns[u"abc"_s]);
    for (const auto& column : columns[u"std"_s])
        EXPECT_TRUE(columns[u"mt"_s].contains(column)) << column.toStdString();
}

TEST_F(Schema, NamesOfOwnersAndColumnsCountInAnyLetterCase) {
    EXPECT_EQ(valueOf(*connection, u"select I4203 from MT.INVENTORY where I4201 = 'TW-101'"_s),
              u"CLICK 250F"_s);
    EXPECT_EQ(valueOf(*connection, u"select i4203 from ABC.inventory where i4201 = 'ABC-TW-1'"_s),
              u"CLICK 100F"_s);
}

TEST_F(Schema, EveryTableIsStrict) {
    EXPECT_EQ(
        queryRows(*connection,
                  u"select schema || '.' || name from pragma_table_list where type = 'table' and strict = 0 "
                  "and schema <> 'temp' and name not like 'sqlite%'"_s),
        QStringList());
}

TEST_F(Schema, ATextInANumericColumnIsRefused) {
    int columns = 0;
    for (const auto& column : allColumns(*connection)) {
        if (column.type == u"TEXT"_s ||
            valueOf(*connection, u"select count(*) from "_s + column.qualifiedTable()) == u"0"_s)
            continue;
        for (const auto& value : {u"abc"_s, u""_s, u"1,5"_s, u"12 V"_s}) {
            const auto error = refusal(u"update "_s + column.qualifiedTable() + u" set "_s + column.name +
                                       u" = '"_s + value + u"';commit"_s);
            ASSERT_TRUE(error) << column.qualifiedTable().toStdString() << " " << column.name.toStdString()
                               << " " << value.toStdString();
            EXPECT_TRUE(error->description.contains(u"cannot store TEXT value"_s) ||
                        error->description.contains(u"datatype mismatch"_s))
                << error->description.toStdString();
        }
        ++columns;
    }
    EXPECT_GT(columns, 60);
}

TEST_F(Schema, ANumberInQuotesIsTakenAsTheNumber) {
    connection->execute(
        u"update mt.hvm_kv_tag_config set input_high = '12.5', repetitions = '1.5', temp_sens_wires_in = '3' "
        "where mtag = '1301';commit"_s);
    EXPECT_EQ(queryRows(*connection,
                        u"select input_high + 1, repetitions * 2, temp_sens_wires_in + 1 from "
                        u"mt.hvm_kv_tag_config where mtag "
                        "= '1301'"_s,
                        3),
              QStringList{u"13.5|3.0|4"_s});
}

TEST_F(Schema, DatesAndTimesPassInTheWrittenFormOnly) {
    struct Kind {
        QString domain;
        QStringList good;
        QStringList bad;
    };
    const QList<Kind> kinds{
        {u"DATE"_s,
         {u"2026-03-18"_s, u"2024-02-29"_s, u"1899-12-31"_s, u"9999-12-31"_s},
         {u"03/18/2026"_s, u"2026-3-18"_s, u"2026-02-30"_s, u"2025-02-29"_s, u"2026-13-01"_s, u"2026-00-10"_s,
          u"2026-03-18 00:00:00"_s, u" 2026-03-18"_s, u"18.03.2026"_s, u"now"_s, u"12:00:00"_s, u"2461118"_s,
          u"abc"_s, u""_s}},
        {u"TIME"_s,
         {u"00:00:00"_s, u"23:59:59"_s},
         {u"9:30:00"_s, u"09:30"_s, u"24:00:00"_s, u"23:60:00"_s, u"23:59:60"_s, u"09:30:00.5"_s,
          u"9:30 AM"_s, u"now"_s, u"2026-03-18 09:30:00"_s, u"abc"_s, u""_s}},
        {u"TIMESTAMP"_s,
         {u"2026-03-18 09:30:00"_s, u"2024-02-29 23:59:59"_s},
         {u"2026-03-18"_s, u"2026-03-18T09:30:00"_s, u"2026-03-18 09:30"_s, u"2026-02-30 09:30:00"_s,
          u"2026-03-18 24:00:00"_s, u"2026-03-18 09:30:00.000"_s, u"03/18/2026 09:30:00"_s, u"now"_s,
          u"abc"_s, u""_s}}};
    int columns = 0;
    for (const auto& column : allColumns(*connection)) {
        const auto domain =
            valueOf(*connection, u"select domain_name from sys.sysdomain natural join sys.syscolumn where "
                                 "column_name = '"_s +
                                     column.name + u'\'');
        const auto kind = std::find_if(kinds.begin(), kinds.end(),
                                       [&](const Kind& candidate) { return candidate.domain == domain; });
        const auto table = column.qualifiedTable();
        if (kind == kinds.end() || valueOf(*connection, u"select count(*) from "_s + table) == u"0"_s)
            continue;
        const auto set = u"update "_s + table + u" set "_s + column.name +
                         u" = '%1' where rowid = (select min(rowid) from "_s + table + u");commit"_s;
        for (const auto& value : kind->good)
            EXPECT_FALSE(refusal(set.arg(value))) << set.arg(value).toStdString();
        for (const auto& value : kind->bad)
            EXPECT_TRUE(refusal(set.arg(value))) << set.arg(value).toStdString();
        ++columns;
    }
    EXPECT_GT(columns, 15);
}

TEST_F(Schema, AnAssetNumberIsThereOnce) {
    EXPECT_TRUE(refusal(u"insert into mt.inventory (mtag,i4201) values ('9001','TW-101');commit"_s));
    EXPECT_TRUE(refusal(u"insert into mt.inventory (mtag,i4201) values ('1301','NEW-1');commit"_s));
    EXPECT_FALSE(
        refusal(u"insert into mt.inventory (mtag,i4201,i4206) values ('9001','NEW-1','S10101');commit"_s))
        << "two instruments may bear one serial number";
}

TEST_F(Schema, AnInstrumentHasOneRowOfParameters) {
    EXPECT_TRUE(refusal(u"insert into mt.hvm_kv_tag_config (mtag) values ('1301');commit"_s));
}

TEST_F(Schema, ARenamedStrategyMayJoinAnother) {
    connection->execute(
        u"update mt.hvm_kv_proc_points set tp_name = '5 POINT UP' where tp_name = '3 POINT UP';commit"_s);
    EXPECT_EQ(
        valueOf(*connection, u"select count(*) from mt.hvm_kv_proc_points where tp_name = '5 POINT UP'"_s),
        u"8"_s);
}

TEST_F(Schema, TheNamesOfUsersAndAssetsCountInAnyLetterCase) {
    EXPECT_EQ(valueOf(*connection, u"select mtlevel from mt.userlist where mtuser = 'JDoe'"_s), u"1"_s);
    EXPECT_EQ(queryRows(*connection, u"select mtag from mt.inventory where i4201 = 'tw-101'"_s),
              QStringList{u"1301"_s});
}

TEST_F(Schema, QueriesOfARowUseAnIndex) {
    for (
        const auto& query : {
            u"select mtag from mt.inventory where i4201 = 'TW-101'"_s,
            u"select i4201 from mt.inventory where i4206 = '48213'"_s,
            u"select i4201 from mt.inventory where mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'X')"_s,
            u"select i4201 from mt.inventory where i4203 = 'X'"_s,
            u"select i4201 from mt.inventory where i4204 = 'X'"_s,
            u"select i4201 from mt.inventory where i4240 = 'X'"_s,
            u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = 'X' order by test_point_seq asc"_s,
            u"select ctag from mt.calibration where mtag = '1301' and c2339 = 1"_s,
            u"select ctag from mt.calibration where mtag = '1301' and C2339 = '1'"_s,
            u"select c2301 from mt.calibration where c2301 = '2026-03-18' and c2333 = '09:30:00' and mtag = '1301'"_s,
            u"select c2430 from mt.standards where mtag = '1301' and ctag = 1"_s,
            u"select c2501 from mt.calresults where mtag = '1301' and ctag = 1 order by c2502"_s,
            u"select pname from mt.hvm_kv_proc_prompts where mtag = '1301' order by prompt_seq asc"_s,
            u"select mtag from mt.hvm_kv_proc_prompts where pname = 'X'"_s,
            u"select tech from mt.hvm_kv_task_inuse where serial_number = '48213' and mtag = '1301'"_s,
            u"select standard_mtag from mt.hvm_kv_task_standards_inuse where mtag = '1301'"_s,
            u"select mtag from mt.hvm_kv_task_standards_inuse where standard_mtag = '1101'"_s,
            u"select val from mt.valfield where fldnum = '2315' order by val asc"_s,
        }) {
        const auto plan = queryRows(*connection, u"explain query plan "_s + query, 4).join(u'\n');
        EXPECT_FALSE(plan.contains(u"SCAN"_s)) << query.toStdString() << "\n" << plan.toStdString();
    }
}

TEST_F(Schema, AnInstrumentsParametersAreFoundBeforeAllPointsAreJoinedToThem) {
    const auto plan = queryRows(
        *connection,
        u"explain query plan select repetitions from mt.hvm_kv_tag_config,mt.hvm_kv_proc_points,MT.inventory "
        "where i4201='TW-101' and MT.inventory.mtag=mt.hvm_kv_tag_config.mtag"_s,
        4);
    ASSERT_EQ(plan.size(), 3);
    EXPECT_TRUE(plan[0].contains(u"SEARCH"_s)) << plan[0].toStdString();
    EXPECT_TRUE(plan[1].contains(u"SEARCH"_s)) << plan[1].toStdString();
    EXPECT_TRUE(plan[2].contains(u"hvm_kv_proc_points"_s)) << plan[2].toStdString();
}

TEST_F(Calibrations, ANewRecordGetsItsNumberAndIsTheCurrentOne) {
    const auto before = current(u"mt"_s, u"1301"_s);
    ASSERT_EQ(before.size(), 1);
    const auto first = newRecord(u"MT"_s, u"1301"_s);
    EXPECT_GT(first.toInt(), before.first().toInt());
    EXPECT_EQ(current(u"mt"_s, u"1301"_s), QStringList{first});
    const auto second = newRecord(u"MT"_s, u"1301"_s);
    EXPECT_EQ(current(u"mt"_s, u"1301"_s), QStringList{second});
    EXPECT_EQ(queryRows(*connection, u"select C2339 from mt.calibration where ctag = "_s + first),
              QStringList{u"(null)"_s});
}

TEST_F(Calibrations, AnEarlierDateStillTakesTheMark) {
    const auto late = newRecord(u"MT"_s, u"1303"_s, u"C2301,"_s, u"'2026-03-18',"_s);
    const auto early = newRecord(u"MT"_s, u"1303"_s, u"C2301,"_s, u"'2020-03-18',"_s);
    EXPECT_EQ(current(u"mt"_s, u"1303"_s), QStringList{early});
}

TEST_F(Calibrations, ARecordThatBringsItsOwnMarkIsTakenToo) {
    for (const auto& mark : {u"'1',"_s, u"'0',"_s, u"NULL,"_s, u"'',"_s}) {
        const auto made = newRecord(u"MT"_s, u"1301"_s, u"C2339,"_s, mark);
        EXPECT_EQ(current(u"mt"_s, u"1301"_s), QStringList{made}) << mark.toStdString();
    }
}

TEST_F(Calibrations, ARefusedRecordLeavesTheMarkWhereItWas) {
    const auto before = current(u"mt"_s, u"1301"_s);
    EXPECT_TRUE(refusal(
        u"insert into MT.calibration (C2301,mtag,cdsrc) values ('18.03.2026','1301','KVN');commit"_s));
    EXPECT_EQ(current(u"mt"_s, u"1301"_s), before);
}

TEST_F(Calibrations, OtherAssetsAndOwnersKeepTheirMarks) {
    const auto other = current(u"mt"_s, u"1302"_s);
    const auto standard = current(u"std"_s, u"2001"_s);
    newRecord(u"MT"_s, u"1301"_s);
    newRecord(u"ABC"_s, u"2001"_s);
    EXPECT_EQ(current(u"mt"_s, u"1302"_s), other);
    EXPECT_EQ(current(u"std"_s, u"2001"_s), standard);
}

TEST_F(Calibrations, TwoCurrentRecordsOfAnAssetAreImpossible) {
    newRecord(u"MT"_s, u"1301"_s);
    EXPECT_TRUE(refusal(u"update mt.calibration set c2339 = '1' where mtag = '1301'"_s));
}

TEST_F(Calibrations, NumbersOfDifferentOwnersNeverCollideAndAreNotUsedAgain) {
    const auto mt = newRecord(u"MT"_s, u"1301"_s).toInt();
    const auto standard = newRecord(u"STD"_s, u"2001"_s).toInt();
    const auto abc = newRecord(u"ABC"_s, u"3301"_s).toInt();
    EXPECT_EQ(mt / 1000000, 1);
    EXPECT_EQ(standard / 1000000, 2);
    EXPECT_EQ(abc / 1000000, 3);
    connection->execute(u"delete from mt.calibration where ctag = "_s + QString::number(mt));
    EXPECT_EQ(newRecord(u"MT"_s, u"1301"_s).toInt(), mt + 1);
}

TEST_F(Calibrations, KeysOfDifferentOwnersNeverCollide) {
    EXPECT_EQ(
        queryRows(
            *connection,
            u"select mtag from (select mtag from mt.inventory union all select mtag from "
            "std.inventory union all select mtag from abc.inventory) group by mtag having count(*) > 1"_s),
        QStringList());
}

} // namespace kelvane::testing
