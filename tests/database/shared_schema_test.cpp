#include "tests/database/databases.h"
#include "tests/database/script_server.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QStringList owners{u"mt"_s, u"std"_s, u"abc"_s};

QStringList sortedLines(const QString& text) {
    auto lines = text.split(u'\n', Qt::SkipEmptyParts);
    lines.sort();
    return lines;
}

/// The tables of an owner in an embedded database.
QStringList embeddedTables(const QString& database, const QString& owner) {
    return sortedLines(sqlite(
        database + u'/' + owner + u".db"_s,
        u"select name from sqlite_schema where type = 'table' and name not like 'sqlite!_%' escape '!'"_s));
}

class SharedSchema : public DemonstrationOnServer {
  protected:
    /// What `query` finds in the files of all owners of the embedded database; OWNER is the owner's name.
    static QStringList inEmbedded(const QString& query) {
        QString found;
        for (const auto& owner : owners)
            found += sqlite(makeDatabase(u"empty"_s) + u'/' + owner + u".db"_s,
                            u"attach '%1/sys.db' as sys;\n"_s.arg(makeDatabase(u"empty"_s)) +
                                QString(query).replace(u"OWNER"_s, owner)) +
                     u'\n';
        return sortedLines(found);
    }
    QStringList onServer(const QString& query) { return sortedLines(answer(database, query)); }
};

/// Columns with "required" where null is refused, and the kind of value they hold.
const auto embeddedColumns =
    u"select 'OWNER.' || t.name || '.' || lower(c.name), iif(c.\"notnull\" or c.pk, 'required', ''), "
    u"d.domain_name "
    "from sqlite_schema as t, pragma_table_info(t.name) as c "
    "left join sys.syscolumn as s on s.column_name = c.name left join sys.sysdomain as d using (domain_id) "
    "where t.type = 'table' and t.name not like 'sqlite!_%' escape '!'"_s;
const auto serverColumns =
    u"select c.oid::regclass || '.' || attname, case when attnotnull then 'required' end, domain_name "
    "from pg_class as c join pg_attribute as a on attrelid = c.oid and attnum > 0 and not attisdropped "
    "left join sys.syscolumn as s on s.column_name = attname left join sys.sysdomain using (domain_id) "
    "where relkind = 'r' and relnamespace::regnamespace::text in ('mt', 'std', 'abc')"_s;

/// Indexes: of those that were given a name, the name; "~" behind a column that compares without case.
const auto embeddedIndexes =
    u"select 'OWNER.' || t.name, iif(i.origin = 'c', i.name, ''), iif(i.\"unique\", 'unique', ''), "
    "iif(i.partial, 'partial', ''), (select group_concat(lower(x.name) || iif(lower(x.coll) = 'nocase', '~', "
    "'')) "
    "from pragma_index_xinfo(i.name) as x where x.key) "
    "from sqlite_schema as t, pragma_index_list(t.name) as i where t.type = 'table' "
    "union all select 'OWNER.' || t.name, '', 'unique', '', c.name "
    "from sqlite_schema as t, pragma_table_info(t.name) as c "
    "where t.type = 'table' and c.pk and c.type = 'INTEGER'"_s;
const auto serverIndexes =
    u"select indrelid::regclass, case when conname is null then c.relname end, "
    "case when indisunique then 'unique' end, case when indpred is not null then 'partial' end, "
    "(select string_agg(attname || case when atttypid = 'dialect.citext'::regtype then '~' else '' end, ',' "
    "order by place) from unnest(indkey::int2[]) with ordinality as k (number, place) "
    "join pg_attribute on attrelid = indrelid and attnum = number) "
    "from pg_index join pg_class as c on c.oid = indexrelid "
    "left join pg_constraint on conindid = indexrelid and contype in ('p', 'u') "
    "where c.relnamespace::regnamespace::text in ('mt', 'std', 'abc')"_s;

/// A field as the digits of its bytes, so that any text stands in a line; a number in full.
const auto embeddedField =
    u"iif(COLUMN is null, 'null', hex(iif(typeof(COLUMN) = 'real', printf('%!.17g', COLUMN), "
    "cast(COLUMN as text))))"_s;
const auto serverField = u"coalesce(upper(encode(convert_to(COLUMN::text, 'UTF8'), 'hex')), 'null')"_s;

QString eachColumn(const QStringList& columns, const QString& field) {
    QStringList fields;
    for (const auto& column : columns)
        fields << QString(field).replace(u"COLUMN"_s, u'"' + column + u'"');
    return fields.join(u", "_s);
}

/// Two engines write a number in their own ways: it counts.
bool isSameRow(const QString& left, const QString& right) {
    const auto number = [](const QString& field, bool& isNumber) {
        return QByteArray::fromHex(field.toLatin1()).toDouble(&isNumber);
    };
    const auto leftFields = left.split(u'|');
    const auto rightFields = right.split(u'|');
    return std::equal(leftFields.begin(), leftFields.end(), rightFields.begin(), rightFields.end(),
                      [&](const QString& leftField, const QString& rightField) {
                          bool leftIsNumber = false;
                          bool rightIsNumber = false;
                          return leftField == rightField ||
                                 (number(leftField, leftIsNumber) == number(rightField, rightIsNumber) &&
                                  leftIsNumber && rightIsNumber);
                      });
}

} // namespace

TEST_F(SharedSchema, HasTheColumnsOfTheEmbeddedDatabase) {
    const auto expected = inEmbedded(embeddedColumns);
    ASSERT_GT(expected.size(), 200);
    EXPECT_EQ(onServer(serverColumns), expected);
}

TEST_F(SharedSchema, HasTheKeysAndIndexesOfTheEmbeddedDatabase) {
    const auto expected = inEmbedded(embeddedIndexes);
    ASSERT_GT(expected.size(), 40);
    EXPECT_EQ(onServer(serverIndexes), expected);
}

TEST_F(SharedSchema, TheCatalogueHasOneKindForEachColumn) {
    const auto empty = makeDatabase(u"empty"_s);
    EXPECT_EQ(
        onServer(u"select lower(column_name), domain_id from sys.syscolumn"_s),
        sortedLines(sqlite(empty + u"/sys.db"_s, u"select lower(column_name), domain_id from syscolumn"_s)));
    EXPECT_EQ(onServer(u"select domain_id, domain_name from sys.sysdomain"_s),
              sortedLines(sqlite(empty + u"/sys.db"_s, u"select domain_id, domain_name from sysdomain"_s)));
    EXPECT_EQ(answer(database, u"select domain_id from sys.syscolumn where column_name = 'C2301'"_s), u"6"_s);
}

TEST_F(SharedSchema, AColumnOfTheServersOwnTypeHasAKindToo) {
    const std::pair<QString, QString> kinds[] = {
        {u"numeric(8,2)"_s, u"NUMERIC"_s},
        {u"text"_s, u"VARCHAR"_s},
        {u"char(1)"_s, u"CHAR"_s},
        {u"date"_s, u"DATE"_s},
        {u"smallint"_s, u"SMALLINT"_s},
        {u"real"_s, u"FLOAT"_s},
        {u"time"_s, u"TIME"_s},
        {u"timestamp"_s, u"TIMESTAMP"_s},
        {u"bytea"_s, u"LONG BINARY"_s},
    };
    for (const auto& [type, kind] : kinds) {
        answer(database, u"alter table mt.calibration add column c2399 "_s + type);
        EXPECT_EQ(answer(database, u"select domain_name from sys.sysdomain where domain_id = "
                                   "(select domain_id from sys.syscolumn where column_name = 'C2399')"_s),
                  kind);
        answer(database, u"alter table mt.calibration drop column c2399"_s);
    }
}

TEST_F(SharedSchema, RefusesWhatIsNoNumberAndNoDate) {
    const auto columns = onServer(
        u"select c.oid::regclass, attname from pg_class as c "
        "join pg_attribute on attrelid = c.oid and attnum > 0 join pg_type as t on t.oid = atttypid "
        "where relkind = 'r' and relnamespace::regnamespace::text in ('mt', 'abc') "
        "and typname in ('SMALLINT', 'INTEGER', 'FLOAT', 'DOUBLE', 'DATE', 'TIME', 'TIMESTAMP', 'int4')"_s);
    ASSERT_GT(columns.size(), 60);
    QStringList statements;
    for (const auto& column : columns) {
        const auto parts = column.split(u'|');
        for (const auto& value :
             {u""_s, u"x"_s, u"2026-02-30"_s, u"18.03.2026"_s, u"infinity"_s, u"NaN"_s, u"24:00"_s})
            statements << u"insert into %1 (%2) values ('%3')"_s.arg(parts[0], parts[1], value);
    }
    const auto found = states(database, statements, {});
    for (qsizetype i = 0; i < statements.size(); ++i) {
        EXPECT_TRUE(found[i].startsWith(u"22"_s) || found[i] == u"23514"_s)
            << statements[i].toStdString() << ": " << found[i].toStdString();
    }
}

TEST_F(SharedSchema, AssetNumbersAndUsersCompareWithoutCase) {
    EXPECT_EQ(answer(database, u"select i4201 from mt.inventory where i4201 = 'tw-101'"_s), u"TW-101"_s);
    EXPECT_EQ(answer(database, u"select mtlevel from mt.userlist where mtuser = 'JDOE'"_s), u"1"_s);
    EXPECT_EQ(states(database, {u"insert into mt.inventory (mtag, i4201) values ('x', 'tw-101')"_s}, {}),
              QStringList{u"23505"_s});
}

TEST_F(SharedSchema, TextsSortByTheCodesOfTheirCharacters) {
    EXPECT_EQ(
        answer(
            database,
            u"select string_agg(x, '' order by x) from (values ('b'), ('Z'), ('a'), ('é'), ('_')) as v (x)"_s),
        u"Z_abé"_s);
}

TEST_F(SharedSchema, KnowsTheFunctionsAndOperatorsOfTheDialect) {
    const std::pair<QString, QString> answers[] = {
        {u"select locate('abcabc', 'ca')"_s, u"3"_s},
        {u"select locate('abc', 'x')"_s, u"0"_s},
        {u"select isnull(null, 'x') || isnull('a', 'x')"_s, u"xa"_s},
        {u"select isnull(i4229, 0) from mt.inventory where mtag = '1301'"_s, u"12"_s},
        {u"select timestamp '2026-03-01 10:00:00' - 1, timestamp '2026-02-28 10:00:00' + 1"_s,
         u"2026-02-28 10:00:00|2026-03-01 10:00:00"_s},
        {u"select count(*) from mt.calibration where mtag = '1301' and c2339 = 1"_s, u"1"_s},
        {u"select count(*) from mt.calibration where mtag = '1301' and 1 = c2339"_s, u"1"_s},
        {u"select text '1' <> 1, 1 <> text '2'"_s, u"f|t"_s},
        {u"select present_moment() = date_trunc('second', statement_timestamp()::timestamp)"_s, u"t"_s},
        {u"set timezone = 'Asia/Tokyo'; select present_moment() - 0 > statement_timestamp() at time zone 'UTC' + interval '8 hours'"_s,
         u"t"_s},
    };
    for (const auto& [query, expected] : answers)
        EXPECT_EQ(answer(database, query), expected) << query.toStdString();
}

TEST_F(SharedSchema, IndexesServeTheComparisonsOfTheDialect) {
    const auto plan = [&](const QString& query) {
        return answer(database, u"set enable_seqscan = off; explain (costs off) "_s + query);
    };
    EXPECT_TRUE(plan(u"select ctag from mt.calibration where mtag = '1' and c2339 = 1"_s)
                    .contains(u"calibration_current"_s));
    EXPECT_TRUE(plan(u"select mtag from mt.inventory where i4201 = 'tw-101'"_s).contains(u"Index"_s));
}

TEST_F(SharedSchema, CarriesOverEveryRowOfAnEmbeddedDatabase) {
    EmbeddedDatabase embedded(demoDatabase());
    sqlite(embedded.file(u"mt.db"_s), u"insert into hvm_kv_prompts values ('it''s \"odd\"', 'tab\t line' || "
                                      u"char(10) || 'return' || char(13) || "
                                      "'back\\slash \\N \\. grüße 日本 😀'), ('empty', ''), ('none', null);"
                                      "insert into hvm_kv_proc_points values ('x', 1, 0.1), ('x', 2, "
                                      "1e-300), ('x', 3, 1.0/3), ('x', 4, 12345678901234567.0);"
                                      "update calibration set c2339 = '1', c2326 = '' where ctag = (select "
                                      "min(ctag) from calibration where "
                                      "mtag = '1205')"_s);
    QTemporaryDir folder;
    const auto script = sourceFile(u"database/postgresql/demonstration.sh"_s);
    ASSERT_EQ(runScript(script, {embedded.path(), folder.path()}).output, QString());
    const auto name = newName();
    answer(u"postgres"_s,
           u"create database %1 template template0 lc_collate 'C' lc_ctype 'C.UTF-8'"_s.arg(name));
    const auto made =
        run(u"upgrade.sh"_s, {u"--new"_s, u"--demonstration="_s + folder.path(), address(name)});
    ASSERT_EQ(made.code, 0) << made.output.toStdString();

    qsizetype compared = 0;
    for (const auto& owner : owners) {
        for (const auto& table : embeddedTables(embedded.path(), owner)) {
            const auto file = embedded.file(owner + u".db"_s);
            const auto columns =
                sqlite(file, u"select name from pragma_table_info('%1')"_s.arg(table)).split(u'\n');
            const auto expected =
                sqlite(file,
                       u"select %1 from %2 order by rowid"_s.arg(eachColumn(columns, embeddedField), table))
                    .split(u'\n');
            const auto found =
                answer(name, u"select %1 from %2.%3"_s.arg(eachColumn(columns, serverField), owner, table))
                    .split(u'\n');
            ASSERT_EQ(found.size(), expected.size()) << owner.toStdString() << '.' << table.toStdString();
            for (qsizetype row = 0; row < found.size(); ++row)
                EXPECT_TRUE(isSameRow(found[row], expected[row]))
                    << owner.toStdString() << '.' << table.toStdString() << " row " << row;
            compared += expected.size();
        }
    }
    EXPECT_GT(compared, 400);
    EXPECT_EQ(answer(name, u"select string_agg(test_point_pct::text, ' ' order by test_point_seq) "
                           "from mt.hvm_kv_proc_points where tp_name = 'x'"_s),
              u"0.1 1e-300 0.3333333333333333 1.2345678901234568e+16"_s);
    const auto next = answer(name, u"select max(ctag) + 1 from mt.calibration"_s);
    EXPECT_EQ(answer(name, u"insert into mt.calibration (mtag) values ('1301') returning ctag"_s), next)
        << "the numbers go on behind those carried over";
}

} // namespace kelvane::testing
