#include "testkit/scripted_params.h"
#include "tests/database/databases.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Statements as the routines send them; "%O" stands for the session's owner, "%S" for the owner of the
/// standards, "%A" for an instrument of that owner.
struct Statements {
    const char* of;
    QStringList queries;
    QStringList commands;
};

const QString mtag = u"(select mtag from %O.inventory where i4201 = '%A')"_s;

/// An instrument's row of all parameters. Every other one that may be left empty is null, and a number may
/// have an exponent.
QString insertParameters() {
    QStringList values{u"(select mtag from mt.inventory where i4201 = 'UC-901')"_s};
    for (const auto column : givenSavedColumns.mid(5).tokenize(u',')) {
        const auto& param = *std::ranges::find(givenParams, column, &GivenParam::column);
        const auto value = column == u"pos_units" ? QStringView(u"1e-3") : param.shown;
        const bool null = param.isNullWhenEmpty && values.size() % 2 == 0;
        values << (null ? u"NULL"_s : u'\'' + value.toString() + u'\'');
    }
    return u"insert into mt.hvm_kv_tag_config (%1) values (%2);commit"_s.arg(givenSavedColumns,
                                                                             values.join(u','));
}

const QString dictionaryFilter = u"(suppressed <> 'Y' or fldnum = '2331' or fldnum = '2302' or fldnum = "
                                 u"'2308' or fldnum = '2303' or fldnum = '2301' or "
                                 "fldnum = '2307')"_s;

const QString screenFilter =
    u"fldnum not like '%90' and fldnum not like '%91' and fldnum not like '%92' and fldnum not like '%93' "
    u"and fldnum <> "
    "'2340' and fldnum not like '%94' and fldnum not like '%95' and fldnum like '23%' and suppressed <> 'Y'"_s;

const QList<Statements> all{
    {"login",
     {u"select (select i4240 from mt.userlist where mtuser = 'jdoe'),(select mtlevel  from mt.userlist where "
      u"mtuser = "
      "'jdoe')"_s,
      u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p from mt.dbconfig"_s,
      u"select procedit from mt.dbconfig"_s, u"select count(tp_name) from mt.hvm_kv_proc_points"_s},
     {}},
    {"asset lookup",
     {u"select i4201 from %O.inventory where i4206 = '48213'"_s,
      u"select i4201 from %O.inventory where i4206 like '48%' and i4201 like 'TS%'"_s,
      u"select mtag from %O.inventory where i4201 = '%A'"_s},
     {}},
    {"task packages",
     {u"select tptype,tp_definition,task_sql,segregate,model,description from mt.hvm_kv_task_packages where "
      u"taskname = "
      "'UTILITIES' or tptag = 'UTILITIES'"_s,
      u"select i4201,mtag,i4206 from %O.inventory where mtag in (select mtag from mt.hvm_kv_task_assets "
      u"where tptag = "
      "'TAG')"_s,
      u"select i4201,mtag,i4206 from %O.inventory where mtag in (select mtag from mt.hvm_kv_task_assets "
      u"where tptag = "
      "(select tptag from mt.hvm_kv_task_packages where taskname = 'TORQUE CREW A'))"_s,
      u"select i4201,mtag,i4206 from %O.inventory where i4201 in (select i4201 from %O.inventory where i4204 "
      u"like "
      "'TEMPERATURE TRANSMITTER%')"_s,
      u"select i4201,mtag,i4206 from %O.inventory where i4240 = 'UTIL'"_s,
      u"select i4201,mtag,i4206 from %O.inventory where i4203 = 'CLICK 250F'"_s,
      u"select i4201,mtag,i4206 from %O.inventory where i4204 = 'TORQUE SCREWDRIVER'"_s,
      u"select i4201,mtag,i4206 from %O.inventory where mtag in (select mtag from "
      u"mt.hvm_kv_task_standards_inuse where "
      "standard_mtag = (select mtag from %O.inventory where i4206 = '48213'))"_s},
     {}},
    {"in-use registry",
     {u"select serial_number,entered_date,mtag,tech from mt.hvm_kv_task_inuse where serial_number = '48213' "
      u"and mtag = "
      "'1301'"_s,
      u"select i4201 from %O.inventory where mtag in (select standard_mtag from "
      u"mt.hvm_kv_task_standards_inuse where mtag "
      "= "_s +
          mtag + u')'},
     {u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('48213',now(*),'1301','jdoe');commit"_s,
      u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('48213',now(*),'1302',NULL);commit"_s,
      u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('1101',now(*),'1301');commit"_s,
      u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ('',now(*),'1302');commit"_s,
      u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = '48213';commit"_s,
      u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 30 or standard_mtag = '1101';commit"_s,
      u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 90;commit"_s,
      u"delete from mt.hvm_kv_task_standards_inuse where entered_date < now(*) - 90;commit"_s,
      u"delete from mt.hvm_kv_task_assets where tptag in (select tptag from mt.hvm_kv_task_packages where "
      u"created_on < "
      "now(*) - 90);commit"_s,
      u"delete from mt.hvm_kv_task_packages where created_on < now(*) - 90;commit"_s,
      u"delete from mt.hvm_kv_task_assets where tptag not in (select tptag from mt.hvm_kv_task_packages)"_s}},
    {"calibration parameters",
     {calParamsStatement(u"%O"_s, u"%A"_s), u"select mtag from mt.hvm_kv_tag_config where mtag = "_s + mtag,
      u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
      u"mt.hvm_kv_tag_config where "
      "mtag = "_s +
          mtag + u')',
      u"select repetitions from mt.hvm_kv_tag_config where mtag = "_s + mtag,
      u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = (select tp_name from "
      u"mt.hvm_kv_tag_config where "
      "mtag = "_s +
          mtag + u") order by test_point_seq asc"_s,
      u"select pname,prompt,(select max(prompt_type) from mt.hvm_kv_proc_prompts where "
      u"mt.hvm_kv_proc_prompts.pname = "
      "mt.hvm_kv_prompts.pname) from mt.hvm_kv_prompts where pname in (select distinct(pname) from "
      "mt.hvm_kv_proc_prompts "
      "where mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'TAG'))"_s,
      u"select pname,(select prompt from mt.hvm_kv_prompts where mt.hvm_kv_prompts.pname = "
      u"mt.hvm_kv_proc_prompts.pname),"
      "prompt_type from mt.hvm_kv_proc_prompts where mtag = "_s +
          mtag + u" and prompt_type = 'PRE' order by prompt_seq asc"_s,
      u"select pname,(select prompt from mt.hvm_kv_prompts where mt.hvm_kv_prompts.pname = "
      u"mt.hvm_kv_proc_prompts.pname),"
      "prompt_type from mt.hvm_kv_proc_prompts where mtag = "_s +
          mtag + u" order by prompt_seq asc"_s},
     {}},
    {"due dates", {u"select dayofweek from mt.nonworkdays"_s, u"select holiday from mt.holidays"_s}, {}},
    {"standards",
     {u"select i4209,(select c2303 from %S.calibration where c2339 = 1 and %S.calibration.mtag = "
      u"%O.inventory.mtag),(select "
      "c2334 from %S.calibration where c2339 = 1 and %S.calibration.mtag = %O.inventory.mtag),(select i4209 "
      "trace from "
      "%O.inventory where i4201 = '%A'),(select allow_ooc_stds from mt.hvm_kv_sysconfig),(select "
      "allow_poor_trace_stds from "
      "mt.hvm_kv_sysconfig) from %S.inventory where i4201 = 'STD-REF-1'"_s,
      u"select sum(locate(tracecodes,(select i4209 from %O.inventory where i4201 = '%A')) - "
      u"locate(tracecodes,(select i4209 "
      "from %S.inventory where i4201 = 'STD-REF-1')) - trace_delta) from mt.dbconfig"_s},
     {}},
    {"calibration record",
     {u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc"_s,
      u"select c2301 from %O.calibration where c2301 = '2026-03-18' and c2333 = '09:30:00' and mtag = '1301'"_s,
      u"select scopy,fldnum from mt.customiz where scopy like '23%' and scopy <> '2340'"_s,
      u"select fldnum,dcopy from mt.customiz where dcopy is not null and dcopy <> 'OFF' and fldnum like "
      u"'23%' and fldnum <> "
      "'2340'"_s,
      u"select val from mt.valfield where fldnum = '2315' order by val asc"_s},
     {u"insert into %O.calibration (C2301,C2333,C2302,C2303,C2312,C2326,C2339,mtag,cdsrc) values "
      u"('2026-03-18','09:30:00',"
      "'12','2027-03-18','21.5','it''s fine',NULL,'1301','KVN');commit"_s,
      u"insert into mt.standards (c2430,mtag,ctag) values ((select mtag from %O.inventory where i4201 = "
      u"'TT-0300F'),'1301',"
      "(select ctag from %O.calibration where mtag = '1301' and c2339 = 1));commit"_s,
      u"insert into mt.calresults (c2501,c2502,mtag,ctag) values ('  1  50.0ft/lb','0','1301',(select ctag "
      u"from "
      "%O.calibration where mtag = '1301' and c2339 = 1));commit"_s}},
    {"field dictionary",
     {u"select count(ctag) from %O.calibration where mtag = "_s + mtag,
      u"select fldnum,title,idefault,ireq,sreq,sdefault,scopy,scopy blank,validation,datalen from "
      u"mt.customiz where fldnum "
      "like '23%' and "_s +
          dictionaryFilter + u" and fldnum not like '239%' order by row,nextfld asc"_s,
      u"select datacol,title,idefault,ireq,sreq,sdefault,scopy,dcopy,validation,datalen,tooltip from "
      u"mt.customiz where fldnum "
      "like '23%' and "_s +
          dictionaryFilter + u" order by row,nextfld asc"_s,
      u"select domain_name from sys.sysdomain where domain_id = (select max(domain_id) from sys.syscolumn "
      u"where column_name "
      "= 'C2301')"_s,
      u"select I4229 from %O.inventory where i4201 = '%A'"_s,
      u"select C2303 from %O.calibration where mtag = "_s + mtag + u" and C2339 = '1'"_s,
      u"select L2801 from %O.location where mtag = "_s + mtag + u" and L2815 = '1'"_s,
      u"select R3201 from %O.repair where mtag = "_s + mtag + u" and R3246 = '1'"_s,
      u"select K4601 from %O.customers where mtag = "_s + mtag},
     {u"update %O.inventory set I4224 = NULL where i4201 = '%A';commit"_s,
      u"update %O.inventory set I4230 = '2026-03-18' where i4201 = '%A';commit"_s}},
    {"test strategies",
     {u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
      u"select tp_name from mt.hvm_kv_proc_points where tp_name = 'O''BRIEN'"_s,
      u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '5 POINT UP' order by test_point_seq asc"_s,
      u"select count(tp_name) from mt.hvm_kv_tag_config where tp_name = '5 POINT UP'"_s},
     {u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('NEW','0','0.00');commit"_s,
      u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) values ('NEW','1','-12.5e1');commit"_s,
      u"update mt.hvm_kv_proc_points set tp_name = 'NEWER' where tp_name = 'NEW';commit"_s,
      u"update mt.hvm_kv_tag_config set tp_name = 'NEWER' where tp_name = 'NEW';commit"_s,
      u"delete from mt.hvm_kv_proc_points where tp_name = 'NEWER';commit"_s}},
    {"parameter screen",
     {u"select pname from mt.hvm_kv_prompts where pname not in (select pname from mt.hvm_kv_proc_prompts "
      u"where prompt_type = "
      "'PRE' and mtag = "_s +
          mtag + u')',
      u"select pname from mt.hvm_kv_proc_prompts where prompt_type = 'PST' and mtag = "_s + mtag +
          u" order by prompt_seq asc"_s},
     {u"delete from mt.hvm_kv_tag_config where mtag = "_s + mtag +
          u";delete from mt.hvm_kv_proc_prompts where mtag = "_s + mtag + u";commit"_s,
      insertParameters(),
      u"insert into mt.hvm_kv_proc_prompts (mtag,prompt_type,prompt_seq,pname) values ("_s + mtag +
          u",'PRE','0','PERMIT');commit"_s}},
    {"test messages",
     {u"select pname from mt.hvm_kv_prompts"_s,
      u"select prompt from mt.hvm_kv_prompts where pname = 'PERMIT'"_s,
      u"select mtag from mt.hvm_kv_proc_prompts where pname = 'PERMIT'"_s},
     {u"insert into mt.hvm_kv_prompts (pname) values ('IT''S NEW');commit"_s,
      u"update mt.hvm_kv_prompts set prompt = NULL where pname = 'PERMIT';commit"_s,
      u"update mt.hvm_kv_prompts set prompt = 'Don''t; open $DB:I4201$' where pname = 'PERMIT';commit"_s,
      u"delete from mt.hvm_kv_proc_prompts where pname = 'PERMIT';delete from mt.hvm_kv_prompts where pname "
      u"= "
      "'PERMIT';commit"_s}},
    {"package screen",
     {u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'"_s,
      u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
      u"mt.hvm_kv_task_packages where "
      "taskname = 'UTILITIES'"_s,
      u"select i4201 from %O.inventory where mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'TAG')"_s,
      u"select distinct(i4240) from mt.segregate"_s, u"select distinct(i4204) from %O.inventory"_s,
      u"select distinct(i4203) from %O.inventory"_s,
      u"select taskname from mt.hvm_kv_task_packages where taskname = 'NEW'"_s},
     {u"insert into mt.hvm_kv_task_packages "
      u"(taskname,tptag,tptype,tp_definition,task_sql,segregate,model,description,mtuser,"
      "created_on,notes) values ('NEW','NEWTAG','PDEF','S','select i4201 from %O.inventory where i4203 = "
      "''X;commit''',NULL,"
      "NULL,NULL,'jdoe',now(*),NULL);commit"_s,
      u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('NEWTAG',"_s + mtag + u");commit"_s,
      u"delete from mt.hvm_kv_task_assets where tptag = (select tptag from mt.hvm_kv_task_packages where "
      u"taskname = "
      "'NEW');commit"_s,
      u"delete from mt.hvm_kv_task_packages where taskname = 'NEW';commit"_s}},
    {"record configuration",
     {u"select count(fldnum) from mt.hvm_kv_worksheetfields"_s,
      u"select fldnum,title from mt.customiz where "_s + screenFilter +
          u" and fldnum not in (select fldnum from mt.hvm_kv_worksheetfields) order by fldnum asc"_s,
      u"select fldnum,(select title from mt.customiz where mt.customiz.fldnum = "
      u"mt.hvm_kv_worksheetfields.fldnum) from "
      "mt.hvm_kv_worksheetfields order by sequence asc"_s,
      u"select fldnum,title from mt.customiz where "_s + screenFilter +
          u" and (ireq <> 'N' or sreq <> 'N') order by fldnum asc"_s,
      u"select fldnum,title from mt.customiz where "_s + screenFilter +
          u" and (ireq = 'N' and sreq = 'N') order by fldnum asc"_s,
      u"select allow_ooc_stds,allow_poor_trace_stds from mt.hvm_kv_sysconfig"_s,
      u"select allow_ooc_stds from mt.hvm_kv_sysconfig"_s},
     {u"delete from mt.hvm_kv_worksheetfields;commit"_s,
      u"insert into mt.hvm_kv_worksheetfields (fldnum,sequence) values ('2315','0');commit"_s,
      u"insert into mt.hvm_kv_sysconfig (allow_ooc_stds,allow_poor_trace_stds) values ('N','N');commit"_s,
      u"update mt.hvm_kv_sysconfig set allow_ooc_stds = 'Y';commit"_s,
      u"update mt.hvm_kv_sysconfig set allow_poor_trace_stds = 'N';commit"_s}},
    {"worksheets",
     {u"select i4201 from %O.inventory where i4201 = '%A'"_s},
     {u"insert into mt.hvm_kv_task_packages (taskname,tptype,mtuser,created_on,tptag) values "
      u"('SHEET','WSHT','jdoe',now(*),"
      "'SHEET');commit"_s,
      u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('SHEET',"_s + mtag + u");commit"_s,
      u"delete from mt.hvm_kv_task_assets where tptag = 'SHEET';delete from mt.hvm_kv_task_packages where "
      u"tptag = "
      "'SHEET';commit"_s}},
    {"download list",
     {u"select i4201 from %O.inventory where mtag = (select standard_mtag from mt.hvm_kv_last_standards_used where mtag = "_s +
      mtag + u')'},
     {u"delete from mt.hvm_kv_task_standards_inuse where mtag = "_s + mtag + u";commit"_s,
      u"delete from mt.hvm_kv_last_standards_used where mtag = "_s + mtag + u";commit"_s,
      u"insert into mt.hvm_kv_task_standards_inuse (standard_mtag,entered_date,mtag) values ((select mtag "
      u"from %O.inventory "
      "where i4201 = 'TT-0300F'),now(*),"_s +
          mtag + u");commit"_s,
      u"insert into mt.hvm_kv_last_standards_used (standard_mtag,entered_date,mtag) values ((select mtag "
      u"from %O.inventory "
      "where i4201 = 'TT-0300F'),now(*),"_s +
          mtag + u");commit"_s}},
};

struct Owner {
    QString name;
    QString standards;
    QString asset;
};

class StatementsOf : public ::testing::TestWithParam<Owner> {
  protected:
    QString complete(QString statement) const {
        return statement.replace(u"%O"_s, GetParam().name)
            .replace(u"%S"_s, GetParam().standards)
            .replace(u"%A"_s, GetParam().asset);
    }
    QString value(const QString& query) { return valueOf(*connection, complete(query)); }
    void execute(const QString& statement) { connection->execute(complete(statement)); }

    DemoDatabase database;
    std::unique_ptr<Connection> connection = database.connect();
};

} // namespace

TEST_P(StatementsOf, TheWholeSystemRunOnTheEngine) {
    for (const auto& part : all) {
        for (const auto& query : part.queries) {
            for (const auto rows : {Rows::all, Rows::first}) {
                try {
                    const auto found = connection->select(complete(query), rows);
                    while (found->next())
                        found->value(0);
                } catch (const Error& error) {
                    ADD_FAILURE() << part.of << ": " << complete(query).toStdString() << "\n"
                                  << error.description.toStdString();
                }
            }
        }
        for (const auto& command : part.commands) {
            const auto error = refusalOf(*connection, complete(command));
            EXPECT_FALSE(error) << part.of << ": " << complete(command).toStdString() << "\n"
                                << error->description.toStdString();
        }
    }
}

TEST_P(StatementsOf, ACopyToAnotherTableThanTheInventoryIsRefused) {
    for (
        const auto& statement :
        {u"update %O.calibration set C2326 = 'x' where mtag = '(select mtag from %O.inventory where i4201 = "
         u"'%A') and C2339 = "
         "'1';commit"_s,
         u"update %O.location set L2801 = 'x' where mtag = '(select mtag from %O.inventory where i4201 = "
         u"'%A') and L2815 = "
         "'1';commit"_s,
         u"update %O.repair set R3202 = 'x' where mtag = '(select mtag from %O.inventory where i4201 = '%A') "
         u"and R3246 = "
         "'1';commit"_s,
         u"update %O.customers set K4601 = 'x' where mtag = '(select mtag from %O.inventory where i4201 = '%A')"_s})
        EXPECT_TRUE(refusalOf(*connection, complete(statement))) << statement.toStdString();
    EXPECT_EQ(value(u"select count(*) from %O.calibration where c2326 = 'x'"_s), u"0"_s);
}

TEST_P(StatementsOf, ARegisteredInstrumentIsStampedWithThePresentMoment) {
    execute(
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('77',now(*),'1301',NULL);commit"_s);
    EXPECT_EQ(
        value(
            u"select count(*) from mt.hvm_kv_task_inuse where serial_number = '77' and tech is null and "
            "entered_date between datetime('now', 'localtime', '-60 seconds') and datetime('now', 'localtime')"_s),
        u"1"_s);
}

TEST_P(StatementsOf, RowsGoWhenTheyAreOlderThanTheirDays) {
    execute(u"delete from mt.hvm_kv_task_inuse;commit"_s);
    for (const auto& days : {u"29"_s, u"31"_s, u"89"_s, u"91"_s})
        execute(u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('"_s +
                days + u"',now(*) - "_s + days + u",'1301',NULL);commit"_s);
    const auto left = [&] {
        return queryRows(*connection,
                         u"select serial_number from mt.hvm_kv_task_inuse order by serial_number"_s);
    };
    execute(u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 90;commit"_s);
    EXPECT_EQ(left(), (QStringList{u"29"_s, u"31"_s, u"89"_s}));
    execute(
        u"delete from mt.hvm_kv_task_inuse where entered_date < now(*) - 30 or serial_number = 'none';commit"_s);
    EXPECT_EQ(left(), QStringList{u"29"_s});
}

TEST_P(StatementsOf, ABatchIsCarriedOutWholeOrNotAtAll) {
    const auto before = value(u"select count(*) from mt.hvm_kv_proc_prompts"_s);
    EXPECT_TRUE(refusalOf(
        *connection, u"delete from mt.hvm_kv_proc_prompts;delete from mt.hvm_kv_no_such_table;commit"_s));
    EXPECT_EQ(value(u"select count(*) from mt.hvm_kv_proc_prompts"_s), before);
}

TEST_P(StatementsOf, MembersOfAVanishedPackageAreSwept) {
    execute(u"insert into mt.hvm_kv_task_assets (tptag,mtag) values ('GONE',"_s + mtag + u");commit"_s);
    execute(
        u"delete from mt.hvm_kv_task_assets where tptag not in (select tptag from mt.hvm_kv_task_packages)"_s);
    EXPECT_EQ(value(u"select count(*) from mt.hvm_kv_task_assets where tptag = 'GONE'"_s), u"0"_s);
    EXPECT_NE(value(u"select count(*) from mt.hvm_kv_task_assets"_s), u"0"_s);
}

INSTANTIATE_TEST_SUITE_P(Owners, StatementsOf,
                         ::testing::Values(Owner{u"MT"_s, u"MT"_s, u"TW-101"_s},
                                           Owner{u"ABC"_s, u"STD"_s, u"ABC-TW-1"_s},
                                           Owner{u"abc"_s, u"STD"_s, u"ABC-PT-1"_s}),
                         [](const auto& owner) { return owner.param.name.toStdString(); });

} // namespace kelvane::testing
