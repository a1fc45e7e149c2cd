#include "platform/database/permissions.h"

#include "platform/database/embedded_dialect.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "tests/platform/database/refusals.h"
#include "tests/platform/database/small_database.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const Refusal refusals[] = {
    // functions
    {u"select blob_export(x'00','/tmp/x')"_s, TextId::loadExtensionNotAllowed, u"blob_export"_s},
    {u"select blob_import('/etc/passwd')"_s, TextId::loadExtensionNotAllowed, u"blob_import"_s},
    {u"select load_extension('x')"_s, TextId::loadExtensionNotAllowed, u"load_extension"_s},
    {u"select LOAD_EXTENSION ('x')"_s, TextId::loadExtensionNotAllowed, u"LOAD_EXTENSION"_s},
    {u"select \"load_extension\"('x')"_s, TextId::loadExtensionNotAllowed, u"load_extension"_s},
    {u"select [Load_Extension]('x')"_s, TextId::loadExtensionNotAllowed, u"Load_Extension"_s},
    {u"select `load_extension`('x')"_s, TextId::loadExtensionNotAllowed, u"load_extension"_s},
    {u"select readfile('/etc/passwd')"_s, TextId::loadExtensionNotAllowed, u"readfile"_s},
    {u"select writefile('x','y')"_s, TextId::loadExtensionNotAllowed, u"writefile"_s},
    {u"select edit('x')"_s, TextId::loadExtensionNotAllowed, u"edit"_s},
    {u"select fts3_tokenizer('x')"_s, TextId::loadExtensionNotAllowed, u"fts3_tokenizer"_s},
    {u"select length(zeroblob(999999999))"_s, TextId::loadExtensionNotAllowed, u"zeroblob"_s},
    {u"select randomblob(999999999)"_s, TextId::loadExtensionNotAllowed, u"randomblob"_s},
    {u"select printf('%999999999d',1)"_s, TextId::loadExtensionNotAllowed, u"printf"_s},
    {u"update mt.a set b = (select max(readfile('x')) from mt.c)"_s, TextId::loadExtensionNotAllowed,
     u"readfile"_s},
    {u"insert into mt.a (b) values (writefile('x','y'))"_s, TextId::loadExtensionNotAllowed, u"writefile"_s},
    {u"select 1 from mt.a where x in (readfile('y'))"_s, TextId::loadExtensionNotAllowed, u"readfile"_s},
    {u"select readfile/**/('x')"_s, TextId::loadExtensionNotAllowed, u"readfile"_s},
    // tables
    {u"select hash from accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select hash from main.accounts"_s, TextId::tableNotAllowed, u"main.accounts"_s},
    {u"select hash from MAIN . Accounts"_s, TextId::tableNotAllowed, u"MAIN.Accounts"_s},
    {u"select hash from \"main\".\"accounts\""_s, TextId::tableNotAllowed, u"main.accounts"_s},
    {u"select hash from [accounts]"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select hash from 'accounts'"_s, TextId::tableNotAllowed, u"'accounts'"_s},
    {u"select hash from main.'accounts'"_s, TextId::tableNotAllowed, u"main.'accounts'"_s},
    {u"select hash from mt.a, accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select hash from mt.a, 'accounts'"_s, TextId::tableNotAllowed, u"'accounts'"_s},
    {u"select hash from mt.a join accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select hash from mt.a join mt.b on f = 1, accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select hash from (accounts)"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select hash from (mt.a, accounts)"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select (select hash from accounts) from mt.a"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select 1 union select hash from accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select 1 where 'x' in accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select 1 where 'x' in main.accounts"_s, TextId::tableNotAllowed, u"main.accounts"_s},
    {u"with a as (select hash from accounts) select * from a"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"insert into accounts values ('x','y')"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"insert or replace into main.accounts values ('x','y')"_s, TextId::tableNotAllowed, u"main.accounts"_s},
    {u"replace into accounts values ('x','y')"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"update accounts set hash = 'x'"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"update or ignore main.accounts set hash = 'x'"_s, TextId::tableNotAllowed, u"main.accounts"_s},
    {u"delete from accounts"_s, TextId::tableNotAllowed, u"accounts"_s},
    {u"select sql from sqlite_master"_s, TextId::tableNotAllowed, u"sqlite_master"_s},
    {u"select sql from mt.sqlite_schema"_s, TextId::tableNotAllowed, u"mt.sqlite_schema"_s},
    {u"select * from temp.x"_s, TextId::tableNotAllowed, u"temp.x"_s},
    {u"select * from pragma_database_list"_s, TextId::tableNotAllowed, u"pragma_database_list"_s},
    {u"select * from pragma_table_info('accounts')"_s, TextId::tableNotAllowed, u"pragma_table_info"_s},
    {u"select * from mt.pragma_table_info('a')"_s, TextId::tableNotAllowed, u"mt.pragma_table_info"_s},
    {u"select * from json_each('[1]')"_s, TextId::tableNotAllowed, u"json_each"_s},
    {u"select name from dbstat"_s, TextId::tableNotAllowed, u"dbstat"_s},
    {u"delete from kelvane_upgrades"_s, TextId::tableNotAllowed, u"kelvane_upgrades"_s},
    // kinds of statements
    {u"attach 'x.db' as x"_s, TextId::statementNotAllowed, u"attach"_s},
    {u"ATTACH DATABASE 'x.db' AS x"_s, TextId::statementNotAllowed, u"ATTACH"_s},
    {u"detach mt"_s, TextId::statementNotAllowed, u"detach"_s},
    {u"pragma journal_mode = off"_s, TextId::statementNotAllowed, u"pragma"_s},
    {u"vacuum into 'x.db'"_s, TextId::statementNotAllowed, u"vacuum"_s},
    {u"begin"_s, TextId::statementNotAllowed, u"begin"_s},
    {u"begin immediate"_s, TextId::statementNotAllowed, u"begin"_s},
    {u"end"_s, TextId::statementNotAllowed, u"end"_s},
    {u"rollback"_s, TextId::statementNotAllowed, u"rollback"_s},
    {u"savepoint x"_s, TextId::statementNotAllowed, u"savepoint"_s},
    {u"release x"_s, TextId::statementNotAllowed, u"release"_s},
    {u"create table mt.x (a)"_s, TextId::statementNotAllowed, u"create"_s},
    {u"create temp trigger x after insert on mt.a begin select 1"_s, TextId::statementNotAllowed,
     u"create"_s},
    {u"drop table mt.hvm_kv_prompts"_s, TextId::statementNotAllowed, u"drop"_s},
    {u"alter table mt.a rename to b"_s, TextId::statementNotAllowed, u"alter"_s},
    {u"reindex"_s, TextId::statementNotAllowed, u"reindex"_s},
    {u"analyze"_s, TextId::statementNotAllowed, u"analyze"_s},
    {u"explain select 1"_s, TextId::statementNotAllowed, u"explain"_s},
};

/// What routines and a site's conditions send.
const QString permitted[] = {
    u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
    u"select count(*),sum(a),avg(a),min(a),max(a),total(a),group_concat(a,',') from mt.a group by b having count(a) > 1"_s,
    u"select upper(trim(substr(a,1,3))) || lower(ltrim(rtrim(b))) from mt.a where length(replace(a,'x','y')) > 2"_s,
    u"select abs(round(a,2)),coalesce(a,ifnull(b,nullif(c,'x'))),iif(a,b,c),typeof(a) from mt.a"_s,
    u"select date(now(*)),datetime('now'),strftime('%Y',a),julianday(a),time(a) from mt.a"_s,
    u"select locate(a,'x'),isnull(b,''),instr(a,b) from mt.a"_s,
    u"select cast(a as varchar(10)) from mt.a where a in ('accounts','main') and b not in (select c from mt.d)"_s,
    u"select a from mt.a where b = 'accounts' or b like 'sqlite_master' order by a, 'accounts'"_s,
    u"select a from mt.a where (b) and (c) or not (d) and exists (select 1 from mt.e) limit (1)"_s,
    u"select case when (a) then (b) else (c) end from mt.a where a between (1) and (2)"_s,
    u"select a from mt.a x join mt.b y using (k) left join mt.c z on (x.k = z.k), mt.d where a is distinct from 'x'"_s,
    u"with recursive n(i) as (select 1 union all select i + 1 from n where i < 5) select i from n"_s,
    u"select row_number() over (order by a), rank() over (partition by b order by c) from mt.a"_s,
    u"insert into mt.a (b,c) values ('accounts','main.accounts')"_s,
    u"insert into a (b,c) select d,e from mt.f on conflict (b) do update set c = 'accounts'"_s,
    u"replace into mt.a (b) values ('x')"_s,
    u"update mt.a set b = 'x', c = (select max(d) from mt.e) where f in (1,2)"_s,
    u"delete from mt.a where b in (select c from mt.d where e = 'accounts')"_s,
    u"select accounts, main from mt.a"_s,
    u"select i4201 from inventory where i4204 like 'T%'"_s,
    u"values (1,2)"_s,
};

} // namespace

TEST(EmbeddedPermissions, RefuseWhatNoRoutineHasAReasonToSend) {
    expectRefusals(
        refusals, [](const QString& batch) { embeddedBatch(batch); },
        [](const QString& query) { embeddedQuery(query, Rows::all); });
    EXPECT_TRUE(errorOf([] { embeddedQuery(u"commit"_s, Rows::all); }));
}

TEST(EmbeddedPermissions, LetPassWhatRoutinesAndConditionsNeed) {
    for (const auto& statement : permitted)
        EXPECT_FALSE(errorOf([&] { embeddedQuery(statement, Rows::all); })) << statement.toStdString();
}

TEST(EmbeddedPermissions, HoldOnARealConnection) {
    const SmallDatabase database;
    const auto connection = database.connect();
    for (const auto& refusal : refusals) {
        EXPECT_EQ(errorOf([&] { connection->execute(refusal.statement); }).value().number, 5);
        EXPECT_EQ(errorOf([&] { connection->select(refusal.statement); }).value().number, 5);
    }
    EXPECT_TRUE(connection->isOpen());
    EXPECT_FALSE(connection->isLost());
    EXPECT_EQ(firstColumn(*connection, u"select upper('alive')"_s), QStringList{u"ALIVE"_s});
}

} // namespace kelvane::testing
