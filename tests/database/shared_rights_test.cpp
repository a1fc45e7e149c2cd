#include "tests/database/script_server.h"

#include <QFile>

#include <iterator>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A login for each level, and those without one.
struct Actor {
    QString login;
    /// How the expectations below name it.
    QChar sign;
};

const Actor actors[] = {
    {u"amoreau"_s, u'0'},  {u"jdoe"_s, u'1'},    {u"cnguyen"_s, u'4'}, {u"dsantos"_s, u'5'},
    {u"efischer"_s, u'6'}, {u"fokafor"_s, u'7'}, {u"MT"_s, u'M'},      {u"noone"_s, u'-'},
};

constexpr auto nobody = ""_L1;
constexpr auto users = "014567M"_L1;
constexpr auto senders = "01457"_L1;
constexpr auto recorders = "1457"_L1;
constexpr auto editors = "45"_L1;
constexpr auto configurers = "6M"_L1;

/// Who may do what to a table.
struct TableRights {
    QLatin1StringView table;
    QLatin1StringView select;
    QLatin1StringView insert;
    QLatin1StringView update;
    QLatin1StringView remove;
};

constexpr TableRights tableRights[] = {
    {"abc.calibration"_L1, nobody, nobody, nobody, nobody},
    {"abc.customers"_L1, nobody, nobody, nobody, nobody},
    {"abc.inventory"_L1, nobody, nobody, nobody, nobody},
    {"abc.location"_L1, nobody, nobody, nobody, nobody},
    {"abc.repair"_L1, nobody, nobody, nobody, nobody},
    {"kelvane.owners"_L1, nobody, nobody, nobody, nobody},
    {"kelvane.parts"_L1, nobody, nobody, nobody, nobody},
    {"kelvane.upgrades"_L1, "014567M-"_L1, nobody, nobody, nobody},
    {"mt.calibration"_L1, users, recorders, nobody, nobody},
    {"mt.calresults"_L1, users, recorders, nobody, nobody},
    {"mt.customers"_L1, users, nobody, nobody, nobody},
    {"mt.customiz"_L1, users, nobody, nobody, nobody},
    {"mt.dbconfig"_L1, users, nobody, nobody, nobody},
    {"mt.holidays"_L1, users, nobody, nobody, nobody},
    {"mt.hvm_kv_last_standards_used"_L1, users, senders, nobody, senders},
    {"mt.hvm_kv_proc_points"_L1, users, editors, editors, editors},
    {"mt.hvm_kv_proc_prompts"_L1, users, editors, nobody, editors},
    {"mt.hvm_kv_prompts"_L1, users, editors, editors, editors},
    {"mt.hvm_kv_sysconfig"_L1, users, configurers, configurers, nobody},
    {"mt.hvm_kv_tag_config"_L1, users, editors, editors, editors},
    {"mt.hvm_kv_task_assets"_L1, users, senders, nobody, users},
    {"mt.hvm_kv_task_inuse"_L1, users, senders, nobody, users},
    {"mt.hvm_kv_task_packages"_L1, users, senders, nobody, users},
    {"mt.hvm_kv_task_standards_inuse"_L1, users, senders, nobody, users},
    {"mt.hvm_kv_worksheetfields"_L1, users, configurers, nobody, configurers},
    {"mt.inventory"_L1, users, nobody, recorders, nobody},
    {"mt.location"_L1, users, nobody, nobody, nobody},
    {"mt.nonworkdays"_L1, users, nobody, nobody, nobody},
    {"mt.repair"_L1, users, nobody, nobody, nobody},
    {"mt.segregate"_L1, users, nobody, nobody, nobody},
    {"mt.standards"_L1, users, recorders, nobody, nobody},
    {"mt.userlist"_L1, "014567M-"_L1, nobody, nobody, nobody},
    {"mt.valfield"_L1, users, nobody, nobody, nobody},
    {"std.calibration"_L1, nobody, nobody, nobody, nobody},
    {"std.customers"_L1, nobody, nobody, nobody, nobody},
    {"std.inventory"_L1, nobody, nobody, nobody, nobody},
    {"std.location"_L1, nobody, nobody, nobody, nobody},
    {"std.repair"_L1, nobody, nobody, nobody, nobody},
};

/// A statement, and who may carry it out.
struct Attempt {
    QLatin1StringView statement;
    QLatin1StringView allowed;
};

/// What the program sends, and what a user may try with a client of his own.
constexpr Attempt attempts[] = {
    // sweep at the login
    {"delete from mt.hvm_kv_task_inuse where entered_date < present_moment() - 90"_L1, users},
    {"delete from mt.hvm_kv_task_standards_inuse where entered_date < present_moment() - 90"_L1, users},
    {"delete from mt.hvm_kv_task_assets where tptag in (select tptag from mt.hvm_kv_task_packages where "
     "created_on < present_moment() - 90)"_L1,
     users},
    {"delete from mt.hvm_kv_task_packages where created_on < present_moment() - 90"_L1, users},
    // download
    {"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values "
     "('1',present_moment(),'1301',null)"_L1,
     senders},
    {"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values "
     "('1',present_moment(),'1301')"_L1,
     senders},
    {"insert into mt.hvm_kv_last_standards_used (standard_mtag,entered_date,mtag) values "
     "('1',present_moment(),'1301')"_L1,
     senders},
    {"delete from mt.hvm_kv_last_standards_used where mtag = '1301'"_L1, senders},
    {"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
     "('t','WSHT','jdoe',present_moment(),'t')"_L1,
     senders},
    {"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('t','1301')"_L1, senders},
    // a calibration record, its children, and what it copies
    {"insert into mt.calibration (c2301,c2339,mtag,cdsrc) values ('2026-03-01',null,'1301','KVN')"_L1,
     recorders},
    {"insert into mt.standards (c2430,mtag,ctag) values ('1001','1301',1)"_L1, recorders},
    {"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('line','0','1301',1)"_L1, recorders},
    {"update mt.inventory set I4230 = '2026-03-01' where i4201 = 'TW-101'"_L1, recorders},
    {"update mt.inventory set I4231 = '2026-03-01' where i4201 = 'TW-101'"_L1, recorders},
    {"update mt.inventory set I4224 = null where i4201 = 'TW-101'"_L1, recorders},
    {"update mt.inventory set I4225 = null where i4201 = 'TW-101'"_L1, recorders},
    {"insert into mt.calibration (ctag,mtag) values (1,'1301')"_L1, nobody},
    {"update mt.inventory set i4201 = 'X' where i4201 = 'TW-101'"_L1, nobody},
    {"update mt.inventory set i4209 = 'A' where i4201 = 'TW-101'"_L1, nobody},
    {"update mt.calibration set c2323 = 'Y'"_L1, nobody},
    {"delete from mt.calibration"_L1, nobody},
    {"delete from mt.calresults"_L1, nobody},
    // editors
    {"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('x','1','5')"_L1,
     editors},
    {"update mt.hvm_kv_proc_points set tp_name = 'x' where tp_name = 'y'"_L1, editors},
    {"delete from mt.hvm_kv_proc_points where tp_name = 'y'"_L1, editors},
    {"insert into mt.hvm_kv_tag_config (mtag,input_low) values ((select mtag from mt.inventory where i4201 = "
     "'TS-0001'),'1')"_L1,
     editors},
    {"update mt.hvm_kv_tag_config set tp_name = 'x' where tp_name = 'y'"_L1, editors},
    {"update mt.hvm_kv_tag_config set pos_units = 100"_L1, nobody},
    {"delete from mt.hvm_kv_tag_config where mtag = '1'"_L1, editors},
    {"insert into mt.hvm_kv_prompts (pname) values ('x')"_L1, editors},
    {"update mt.hvm_kv_prompts set prompt = 'x' where pname = 'y'"_L1, editors},
    {"delete from mt.hvm_kv_prompts where pname = 'y'"_L1, editors},
    {"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values ('1','PRE','0','x')"_L1,
     editors},
    {"delete from mt.hvm_kv_proc_prompts where mtag = '1'"_L1, editors},
    {"insert into mt.hvm_kv_task_packages (taskname,tptag,tptype,tp_definition,task_sql) values "
     "('t','t','PDEF','S','select 1')"_L1,
     editors},
    // the configuration of records
    {"insert into mt.hvm_kv_worksheetfields (fldnum,sequence) values ('2315','0')"_L1, configurers},
    {"delete from mt.hvm_kv_worksheetfields"_L1, configurers},
    {"update mt.hvm_kv_sysconfig set allow_ooc_stds = 'Y'"_L1, configurers},
    {"insert into mt.hvm_kv_sysconfig (allow_ooc_stds,allow_poor_trace_stds) values ('N','N')"_L1,
     configurers},
    // what the site's owner alone writes
    {"update mt.userlist set mtlevel = 5"_L1, nobody},
    {"insert into mt.userlist (mtuser) values ('x')"_L1, nobody},
    {"update mt.dbconfig set procedit = 0"_L1, nobody},
    {"update mt.customiz set dcopy = 'I4201'"_L1, nobody},
    {"delete from mt.segregate"_L1, nobody},
    {"delete from mt.valfield"_L1, nobody},
    {"insert into mt.holidays values ('2026-01-02')"_L1, nobody},
    {"insert into mt.nonworkdays values ('Friday')"_L1, nobody},
    {"insert into kelvane.upgrades values (99, 'x', now())"_L1, nobody},
    // the schema, and whatever else could be made
    {"alter table mt.inventory add column x text"_L1, nobody},
    {"alter table mt.calibration disable trigger all"_L1, nobody},
    {"drop table mt.valfield"_L1, nobody},
    {"truncate mt.hvm_kv_task_assets"_L1, nobody},
    {"create index on mt.inventory (i4202)"_L1, nobody},
    {"create table mt.x (y text)"_L1, nobody},
    {"create table public.x (y text)"_L1, nobody},
    {"create table dialect.x (y text)"_L1, nobody},
    {"create temp table x (y text)"_L1, nobody},
    {"create schema x"_L1, nobody},
    {"create function public.x() returns text language sql as 'select 1::text'"_L1, nobody},
    {"create role x"_L1, nobody},
    {"select lo_create(0)"_L1, nobody},
    {"alter role \"MT\" superuser"_L1, nobody},
    {"set role kelvane_admin"_L1, nobody},
    {"copy mt.inventory to '/tmp/x'"_L1, nobody},
    {"select pg_read_file('/etc/passwd')"_L1, nobody},
    {"select rolpassword from pg_authid"_L1, nobody},
    {"select kelvane.set_account('x', 'mt', 5)"_L1, nobody},
    {"select kelvane.set_password('MT', 'x')"_L1, nobody},
    {"select kelvane.remove_account('MT')"_L1, nobody},
    {"select kelvane.grant_again()"_L1, nobody},
};

class SharedRights : public DemonstrationOnServer {
  protected:
    /// Those who get further than to a missing right.
    QString allowed(const QString& statement) {
        QString signs;
        for (const auto& actor : actors) {
            if (states(database, {statement}, {actor.login}) == QStringList{u"00000"_s})
                signs += actor.sign;
        }
        return signs;
    }
    QString refusal(const QString& statement) {
        const auto outcome = psql(database, statement);
        EXPECT_NE(outcome.code, 0) << statement.toStdString();
        return outcome.output;
    }
};

QString literal(const QString& text) {
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

} // namespace

TEST_F(SharedRights, EachLevelHasTheRightsOfItsMenuAndNoOther) {
    QStringList logins;
    for (const auto& actor : actors)
        logins << u"('%1', '%2')"_s.arg(actor.login, QString(actor.sign));
    const auto found =
        answer(
            database,
            u"select format('%s.%s', schemaname, tablename), "
            "(select coalesce(string_agg(sign, '' order by place) filter (where has_schema_privilege(login, "
            "schemaname, "
            "'usage') and case verb when 'delete' then has_table_privilege(login, format('%I.%I', "
            "schemaname, tablename), "
            "verb) else has_any_column_privilege(login, format('%I.%I', schemaname, tablename), verb) end), "
            "'') "
            "from (select row_number() over () as place, * from (values "_s +
                logins.join(u',') +
                u") as v (login, sign)) as logins), verb from pg_tables, "
                "(values (1, 'select'), (2, 'insert'), (3, 'update'), (4, 'delete')) as verbs (number, verb) "
                "where schemaname in ('mt', 'std', 'abc', 'kelvane') order by 1, number"_s)
            .split(u'\n');
    QStringList expected;
    for (const auto& rights : tableRights) {
        for (const auto& [verb, who] : {std::pair{"select"_L1, rights.select},
                                        {"insert"_L1, rights.insert},
                                        {"update"_L1, rights.update},
                                        {"delete"_L1, rights.remove}})
            expected << rights.table + u'|' + who + u'|' + verb;
    }
    EXPECT_EQ(found, expected);
}

TEST_F(SharedRights, EachLoginCanDoWhatItsLevelNeedsAndIsRefusedTheRest) {
    QStringList statements;
    for (const auto& attempt : attempts)
        statements << attempt.statement;
    for (const auto& actor : actors) {
        const auto found = states(database, statements, {actor.login});
        ASSERT_EQ(found.size(), statements.size());
        for (qsizetype i = 0; i < statements.size(); ++i) {
            const auto& attempt = attempts[i];
            const bool may = QString(attempt.allowed).contains(actor.sign);
            EXPECT_EQ(found[i], may ? u"00000"_s : u"42501"_s)
                << actor.login.toStdString() << ": " << statements[i].toStdString();
        }
    }
}

TEST_F(SharedRights, AUserOfAnotherOwnerReadsStandardsAndWritesOnlyWhatIsThatOwners) {
    const std::pair<QString, bool> statements[] = {
        {u"select i4201 from abc.inventory"_s, true},
        {u"select i4201 from std.inventory"_s, true},
        {u"select ctag from std.calibration"_s, true},
        {u"select mtag from mt.inventory where i4201 = 'TW-101'"_s, true},
        {u"select i4206 from mt.inventory"_s, false},
        {u"select ctag from mt.calibration"_s, false},
        {u"insert into abc.calibration (mtag,cdsrc) values ('3301','KVN')"_s, true},
        {u"update abc.inventory set i4230 = '2026-01-01' where i4201 = 'ABC-TW-1'"_s, true},
        {u"insert into mt.calibration (mtag,cdsrc) values ('1301','KVN')"_s, false},
        {u"update mt.inventory set i4230 = '2026-01-01' where i4201 = 'TW-101'"_s, false},
        {u"insert into std.calibration (mtag,cdsrc) values ('2001','KVN')"_s, false},
        {u"insert into mt.hvm_kv_prompts (pname) values ('x')"_s, true},
    };
    for (const auto& [statement, may] : statements)
        EXPECT_EQ(states(database, {statement}, {u"gpetrov"_s}), QStringList{may ? u"00000"_s : u"42501"_s})
            << statement.toStdString();
}

TEST_F(SharedRights, WhoEditsFollowsTheSiteSettingAtOnce) {
    const auto edit = u"delete from mt.hvm_kv_prompts"_s;
    EXPECT_EQ(allowed(edit), u"45"_s);
    answer(database, u"update mt.dbconfig set procedit = 1"_s);
    EXPECT_EQ(allowed(edit), u"145"_s);
    answer(database, u"update mt.dbconfig set procedit = 5"_s);
    EXPECT_EQ(allowed(edit), u"5"_s);
    answer(database, u"update mt.dbconfig set procedit = null"_s);
    EXPECT_EQ(allowed(edit), QString());
}

TEST_F(SharedRights, TheColumnsThatARecordMayChangeFollowTheFieldDictionary) {
    const auto change = u"update mt.inventory set i4228 = 'D'"_s;
    EXPECT_EQ(allowed(change), QString());
    answer(database, u"update mt.customiz set dcopy = 'I4228' where fldnum = '2331'"_s);
    EXPECT_EQ(allowed(change), u"1457"_s);
    answer(database, u"update mt.customiz set dcopy = 'OFF' where fldnum = '2331'"_s);
    EXPECT_EQ(allowed(change), QString());
    answer(database, u"update mt.customiz set dcopy = '4228' where fldnum = '2331'"_s);
    EXPECT_EQ(allowed(change), u"1457"_s);
}

TEST_F(SharedRights, AColumnThatASiteHasAddedIsWrittenAfterRightsAreGrantedAgain) {
    const auto insert = u"insert into mt.calibration (mtag,c2399) values ('1301','x')"_s;
    answer(database, u"alter table mt.calibration add column c2399 text"_s);
    EXPECT_EQ(allowed(insert), QString());
    answer(database, u"select kelvane.grant_again()"_s);
    EXPECT_EQ(allowed(insert), u"1457"_s);
}

TEST_F(SharedRights, AWrongPasswordAndAnUnknownLoginAreRefused) {
    EXPECT_NE(psql(database, u"select 1"_s, {u"jdoe"_s, u"wrong"_s}).code, 0);
    EXPECT_NE(psql(database, u"select 1"_s, {u"JDOE"_s}).code, 0) << "upper and lower case count";
    EXPECT_EQ(psql(database, u"select 1"_s, {u"jdoe"_s}).code, 0);
}

TEST_F(SharedRights, AccountsOfAnyNameAreMadeChangedAndRemoved) {
    for (const auto& name : {u"o'brien"_s, u"a \"b\" c"_s, u"jürgen 日本"_s,
                             u"x'; drop table mt.valfield; --"_s, u"\\"_s, u"%I"_s, u"select"_s}) {
        const auto call = [&](const QString& rest) {
            return answer(database, u"select kelvane."_s + rest.arg(literal(name)));
        };
        EXPECT_EQ(call(u"set_account(%1, 'MT', 0)"_s), u"t"_s) << name.toStdString();
        call(u"set_password(%1, 'it''s \"\\ secret')"_s);
        const Login login{name, u"it's \"\\ secret"_s};
        const QStringList record{u"insert into mt.calibration (mtag) values ('1301')"_s};
        EXPECT_EQ(states(database, record, login), QStringList{u"42501"_s}) << name.toStdString();
        EXPECT_EQ(call(u"set_account(%1, 'MT', 1)"_s), u"f"_s) << "no new login";
        EXPECT_EQ(states(database, record, login), QStringList{u"00000"_s}) << name.toStdString();
        EXPECT_EQ(
            answer(database, u"select i4240, mtlevel from mt.userlist where mtuser = "_s + literal(name)),
            u"MT|1"_s);
        call(u"set_account(%1, null, null)"_s);
        EXPECT_EQ(states(database, record, login), QStringList{u"42501"_s});
        call(u"remove_account(%1)"_s);
        EXPECT_NE(psql(database, u"select 1"_s, login).code, 0);
    }
    EXPECT_EQ(answer(database, u"select to_regclass('mt.valfield')"_s), u"mt.valfield"_s);
}

TEST_F(SharedRights, AnAccountThatCannotBeIsRefused) {
    EXPECT_TRUE(refusal(u"select kelvane.set_account('jdoe', 'nowhere', 1)"_s)
                    .contains(u"there is no owner \"nowhere\""_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_account('jdoe', 'mt', -1)"_s).contains(u"a level is"_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_account('jdoe', 'mt', null)"_s).contains(u"a level is"_s));
    EXPECT_TRUE(
        refusal(u"select kelvane.set_account('JDoe', 'mt', 1)"_s).contains(u"differs in case only"_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_account('MT', 'mt', 5)"_s).contains(u"level 6"_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_account(' x', 'mt', 1)"_s).contains(u"without blanks"_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_account('', 'mt', 1)"_s).contains(u"1 to 63 bytes"_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_account('kelvane_admin', 'mt', 1)"_s).contains(u"reserved"_s));
    EXPECT_TRUE(refusal(u"select kelvane.set_password('jdoe', '')"_s).contains(u"not empty"_s));
    answer(database, u"create role big login createrole"_s);
    EXPECT_TRUE(
        refusal(u"select kelvane.set_account('big', 'mt', 1)"_s).contains(u"administers the server"_s));
    EXPECT_TRUE(refusal(u"select kelvane.remove_account('big')"_s).contains(u"administers the server"_s));
    answer(database, u"drop role big"_s);
}

TEST_F(SharedRights, ALoginThatWasThereBeforeStaysWhenItsAccountIsRemoved) {
    answer(database, u"create role ours login"_s);
    EXPECT_EQ(answer(database, u"select kelvane.set_account('ours', 'MT', 4)"_s), u"f"_s);
    answer(database, u"select kelvane.remove_account('ours')"_s);
    EXPECT_EQ(answer(database, u"select count(*) from pg_auth_members where member = 'ours'::regrole"_s),
              u"0"_s);
    answer(database, u"drop role ours"_s);
}

TEST_F(SharedRights, NoPasswordStandsInTheLogOfTheServer) {
    refusal(u"select kelvane.set_password('nobody', 'TopSecret1')"_s);
    EXPECT_FALSE(
        refusal(u"begin; set transaction read only; select kelvane.set_password('jdoe', 'TopSecret1')"_s)
            .contains(u"TopSecret1"_s));
    QFile log(serverFolder() + u"/log"_s);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const auto text = log.readAll();
    EXPECT_TRUE(text.contains("there is no account"));
    EXPECT_FALSE(text.contains("TopSecret1"));
}

} // namespace kelvane::testing
