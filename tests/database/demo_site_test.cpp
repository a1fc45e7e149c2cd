#include "data/assets/assets.h"
#include "data/assets/in_use.h"
#include "data/parameters/cal_params.h"
#include "data/records/field_dictionary.h"
#include "data/records/record_columns.h"
#include "data/records/standards.h"
#include "data/start_up.h"
#include "platform/values/texts.h"
#include "testkit/database_session.h"
#include "tests/database/databases.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

class DemoSite : public DatabaseSession {
  protected:
    CalRecord record;
};

QStringList fieldColumns(const CalRecord& record) {
    QStringList columns;
    for (int row = 0; !record.CalFieldTable[row].column.isEmpty(); ++row)
        columns << record.CalFieldTable[row].column;
    return columns;
}

CalField fieldOf(const CalRecord& record, const QString& column) {
    const auto row = fieldColumns(record).indexOf(column);
    EXPECT_GE(row, 0) << column.toStdString();
    return record.CalFieldTable[static_cast<int>(row)];
}

QString joinNames(QStringList names) {
    names.sort();
    return names.join(u' ');
}

} // namespace

TEST_F(DemoSite, EveryUserLogsInWithOwnerAndLevel) {
    struct User {
        QString name;
        QString owner;
        qint16 level;
    };
    for (const auto& user :
         {User{u"amoreau"_s, u"MT"_s, 0}, User{u"bkowalski"_s, u"MT"_s, 1}, User{u"jdoe"_s, u"MT"_s, 1},
          User{u"cnguyen"_s, u"MT"_s, 4}, User{u"dsantos"_s, u"MT"_s, 5}, User{u"efischer"_s, u"MT"_s, 6},
          User{u"fokafor"_s, u"MT"_s, 7}, User{u"gpetrov"_s, u"ABC"_s, 4}, User{u"MT"_s, u"MT"_s, 6}}) {
        logIn(user.name);
        EXPECT_EQ(session.SessionOwner, user.owner) << user.name.toStdString();
        EXPECT_EQ(session.SessionLevel, user.level) << user.name.toStdString();
    }
}

TEST_F(DemoSite, OneMayConnectButIsNoUser) {
    const auto connection = database.connect(u"noone"_s);
    EXPECT_EQ(queryRows(*connection, u"select (select i4240 from mt.userlist where mtuser = 'noone')"_s),
              QStringList{u"(null)"_s});
}

TEST_F(DemoSite, AWrongPasswordIsRefused) {
    for (const auto& password : {u"Kelvane"_s, u"kelvane "_s, u""_s})
        EXPECT_THROW(database.connect(u"jdoe"_s, password), Error) << password.toStdString();
}

TEST_F(DemoSite, PasswordsAreKeptEachWithItsOwnSalt) {
    EXPECT_EQ(
        value(
            u"select count(distinct substr(hash, 1, 30)) = count(*) and min(hash like '$y$%') from main.accounts"_s),
        u"1"_s);
}

TEST_F(DemoSite, SettingsAreThoseOfASiteAtVersionSix) {
    EXPECT_EQ(
        rows(
            u"select datecode,version,b_cal_4225,b_cal_4224,b_cal_p,procedit,tracecodes,trace_delta from mt.dbconfig"_s,
            8),
        QStringList{u"0|6|0|0|1|4|ABCDE|1"_s});
    EXPECT_EQ(rows(u"select allow_ooc_stds,allow_poor_trace_stds from mt.hvm_kv_sysconfig"_s, 2),
              QStringList{u"N|N"_s});
    EXPECT_EQ(joinNames(rows(u"select dayofweek from mt.nonworkdays"_s)), u"Saturday Sunday"_s);
    EXPECT_EQ(value(u"select count(*) from mt.holidays"_s), u"44"_s);
    const auto year = QDate::currentDate().toString(u"yyyy"_s);
    EXPECT_EQ(
        joinNames(rows(
            u"select holiday from mt.holidays where holiday between '%1-01-01' and '%1-12-31'"_s.arg(year))),
        u"%1-01-01 %1-05-01 %1-12-25 %1-12-26"_s.arg(year));
}

TEST_F(DemoSite, StandardsAreJudgedByDateAndRank) {
    struct Case {
        QString standard;
        QString instrument;
        qint16 verdict;
    };
    for (const auto& testCase : {Case{u"TT-0300F"_s, u"TW-101"_s, standardUsable},
                                 Case{u"TT-0150F"_s, u"TW-102"_s, standardUsable},
                                 Case{u"TT-0075F"_s, u"TW-103"_s, standardUsable},
                                 Case{u"TT-0300I"_s, u"TW-104"_s, standardUsable},
                                 Case{u"TT-0500N"_s, u"TW-105"_s, standardUsable},
                                 Case{u"TT-0500N"_s, u"TW-106"_s, standardUsable},
                                 Case{u"TT-S150"_s, u"TW-107"_s, standardUsable},
                                 Case{u"TT-0050I"_s, u"TD-109"_s, standardUsable},
                                 Case{u"TT-0010N"_s, u"TD-110"_s, standardUsable},
                                 Case{u"TT-NEW"_s, u"TW-101"_s, standardUsable},
                                 Case{u"F702-01"_s, u"PT-101"_s, standardUsable},
                                 Case{u"PM-300"_s, u"PT-102"_s, standardUsable},
                                 Case{u"TRQ-CAL"_s, u"TT-0300F"_s, standardUsable},
                                 Case{u"DWT-01"_s, u"PM-100"_s, standardUsable},
                                 Case{u"TT-0200F"_s, u"TW-101"_s, standardOverdue},
                                 Case{u"PM-030"_s, u"PT-101"_s, standardOverdue},
                                 Case{u"TT-TRAIN"_s, u"TW-101"_s, standardRankTooLow},
                                 Case{u"TT-0300F"_s, u"TT-0150F"_s, standardRankTooLow},
                                 Case{u"DMM-87V"_s, u"F702-01"_s, standardRankTooLow},
                                 Case{u"TT-NONE"_s, u"TW-101"_s, standardUnknown},
                                 Case{u"PM-100"_s, u"UC-903"_s, instrumentWithoutTrace}})
        EXPECT_EQ(CheckStandard(session, testCase.standard, testCase.instrument), testCase.verdict)
            << testCase.standard.toStdString() << " for " << testCase.instrument.toStdString();
}

TEST_F(DemoSite, AnotherOwnersStandardsAreThoseOfTheirOwnSchema) {
    logIn(u"gpetrov"_s);
    EXPECT_EQ(CheckStandard(session, u"STD-REF-1"_s, u"ABC-PT-1"_s), standardUsable);
    EXPECT_EQ(CheckStandard(session, u"STD-TT-0150F"_s, u"ABC-TW-1"_s), standardUsable);
    EXPECT_EQ(CheckStandard(session, u"STD-OLD-1"_s, u"ABC-PT-1"_s), standardOverdue);
    EXPECT_EQ(CheckStandard(session, u"STD-LOW-1"_s, u"ABC-PT-1"_s), standardRankTooLow);
    EXPECT_EQ(CheckStandard(session, u"DWT-01"_s, u"ABC-PT-1"_s), standardUnknown);
    EXPECT_TRUE(HasConfigData(session, u"STD-TT-0150F"_s));
    EXPECT_EQ(GetCalParams(session, u"STD-TT-0150F"_s).output_high, 150);
}

TEST_F(DemoSite, EveryPackageExpands) {
    const QHash<QString, QString> members{
        {u"TORQUE CREW A"_s, u"TW-103 TW-104 TW-105 TW-106"_s},
        {u"UNIT 1 SHUTDOWN"_s, u"IP-301 PT-101 PT-102 TIT-201 UC-901"_s},
        {u"TEMPERATURE LOOPS"_s, u"TIT-201 TIT-202 TIT-203 TIT-204 TIT-205 TIT-206 TIT-207"_s},
        {u"UTILITIES"_s, u"FT-501 PG-801 PT-105 PT-106 TIT-205"_s},
        {u"CLICK 250F WRENCHES"_s, u"TW-101 TW-111"_s},
        {u"TORQUE SCREWDRIVERS"_s, u"TD-109 TD-110"_s},
        {u"WS7Q2K9D4M1X8B5N3V6C0Z2L7J4H1G"_s, u"PT-101 PT-103"_s}};
    EXPECT_EQ(joinNames(rows(u"select taskname from mt.hvm_kv_task_packages"_s)), joinNames(members.keys()));
    for (auto package = members.cbegin(); package != members.cend(); ++package) {
        const auto entries = GetAssetsInTaskPackage(session, package.key());
        QStringList found;
        for (const auto& entry : entries)
            found << entry.asset;
        EXPECT_EQ(joinNames(found), package.value()) << package.key().toStdString();
    }
}

TEST_F(DemoSite, TheSweepAtLoginLeavesTheDemonstrationWhole) {
    const auto counts =
        u"select (select count(*) from mt.hvm_kv_task_packages), (select count(*) from "
        u"mt.hvm_kv_task_assets), "
        "(select count(*) from mt.hvm_kv_task_inuse), (select count(*) from mt.hvm_kv_task_standards_inuse)"_s;
    EXPECT_EQ(rows(counts, 4), QStringList{u"7|11|2|2"_s});
    ClearSystemTables(session);
    EXPECT_EQ(rows(counts, 4), QStringList{u"7|11|2|2"_s});
}

TEST_F(DemoSite, ACalibratorIsOutWithTwoTransmitters) {
    EXPECT_EQ(GetAssetsInUseWithStandard(session, u"6841207"_s).size(), 2);
    const auto mtag = CheckAsset(session, u"PT-103"_s);
    EXPECT_EQ(GetInUseData(session, u"6841207"_s, mtag).tech, u"jdoe"_s);
    EXPECT_TRUE(GetAssetsInUseWithStandard(session, u"48213"_s).isEmpty());
}

TEST_F(DemoSite, DictionaryFieldsOfARecordAreRealColumnsButForTheResults) {
    QSet<QString> real;
    for (const auto& column : database.columnsOf(sharedConnection(session), u"calibration"_s))
        real.insert(column.toUpper());
    for (const qint16 version : {qint16{5}, qint16{6}}) {
        session.SessionDbVersion = version;
        SetCalDataFields(session, record, u"TW-101"_s);
        const auto columns = fieldColumns(record);
        EXPECT_GT(columns.size(), 25);
        for (const auto& column : columns)
            EXPECT_EQ(real.contains(column), column != u"C2340") << column.toStdString();
    }
}

TEST_F(DemoSite, SuppressedFieldsAreLeftOutButForTheInterval) {
    SetCalDataFields(session, record, u"TW-101"_s);
    const auto columns = fieldColumns(record);
    EXPECT_TRUE(columns.contains(u"C2302"_s));
    EXPECT_TRUE(columns.contains(u"C2331"_s));
    EXPECT_FALSE(columns.contains(u"C2324"_s));
    EXPECT_FALSE(columns.contains(u"C2339"_s));
}

TEST_F(DemoSite, DefaultsTokensAndCopiesFillARecord) {
    clock.set(QDateTime(QDate(2026, 3, 18), QTime(9, 30)));
    SetCalDataFields(session, record, u"TW-101"_s);
    EXPECT_EQ(fieldOf(record, u"C2301"_s).value, u"03/18/2026"_s);
    EXPECT_EQ(fieldOf(record, u"C2301"_s).copy_to, u"I4230"_s);
    EXPECT_EQ(fieldOf(record, u"C2333"_s).value, u"09:30"_s);
    EXPECT_EQ(fieldOf(record, u"C2307"_s).value, u"jdoe"_s);
    EXPECT_EQ(fieldOf(record, u"C2317"_s).value, u"MT"_s);
    EXPECT_EQ(fieldOf(record, u"C2318"_s).value, QString());
    EXPECT_EQ(fieldOf(record, u"C2319"_s).value, QString());
    EXPECT_EQ(fieldOf(record, u"C2302"_s).value, u"12"_s);
    EXPECT_EQ(fieldOf(record, u"C2331"_s).value, u"M"_s);
    EXPECT_EQ(fieldOf(record, u"C2308"_s).value, u"FOUND-LEFT"_s);
    EXPECT_EQ(fieldOf(record, u"C2309"_s).value, u"KP-TORQUE-02"_s)
        << "carried forward from the earlier record";
    EXPECT_EQ(fieldOf(record, u"C2355"_s).max_length, 10) << "a date has room for ten characters";
    SetCalDataFields(session, record, u"TW-103"_s);
    EXPECT_EQ(fieldOf(record, u"C2308"_s).value, u"AS-FOUND"_s) << "a first calibration";
    EXPECT_EQ(fieldOf(record, u"C2309"_s).value, u"KP-GEN"_s);
}

TEST_F(DemoSite, ARecordAsksForTwoFieldsOfWhichOneIsRequired) {
    SetCalDataFields(session, record, u"TW-101"_s);
    EXPECT_EQ(rows(u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc"_s),
              (QStringList{u"2315"_s, u"2312"_s}));
    const auto place = fieldOf(record, u"C2315"_s);
    EXPECT_TRUE(place.has_list && place.on_worksheet);
    EXPECT_EQ(place.value, u"LAB"_s);
    const auto temperature = fieldOf(record, u"C2312"_s);
    EXPECT_EQ(temperature.required, u"Y"_s);
    EXPECT_EQ(temperature.field_type, 2);
    QStringList missing;
    for (const auto& column : fieldColumns(record)) {
        const auto field = fieldOf(record, column);
        if (field.required == u"Y" && field.default_text.isEmpty())
            missing << column;
    }
    EXPECT_EQ(missing, QStringList{u"C2312"_s}) << "what is required has a default, or is asked for";
}

TEST_F(DemoSite, ListsOfValuesHoldTheDefaults) {
    EXPECT_EQ(
        rows(u"select fldnum from mt.customiz where validation is not null and coalesce(sdefault, idefault) "
             u"is not null "
             "and coalesce(sdefault, idefault) not in (select val from mt.valfield where valfield.fldnum = "
             "customiz.fldnum)"_s),
        QStringList());
    EXPECT_EQ(rows(u"select fldnum from mt.customiz where scopy like '23%'"_s), QStringList())
        << "such a copy would end in an error report at each record";
}

TEST_F(DemoSite, TypesOfColumnsAreKnownInAnyLetterCase) {
    const QList<std::pair<QString, qint16>> types{
        {u"C2301"_s, 1}, {u"c2303"_s, 1}, {u"I4230"_s, 1}, {u"i4225"_s, 1}, {u"L2802"_s, 1}, {u"R3201"_s, 1},
        {u"C2302"_s, 2}, {u"c2312"_s, 2}, {u"I4229"_s, 2}, {u"C2350"_s, 2}, {u"c2333"_s, 3}, {u"C2334"_s, 3},
        {u"C2307"_s, 0}, {u"C2326"_s, 0}, {u"C2339"_s, 0}, {u"C2340"_s, 0}};
    for (const auto& [column, type] : types)
        EXPECT_EQ(FieldType(session, column), type) << column.toStdString();
}

TEST_F(DemoSite, ColumnsOfOtherTablesAreReadFromTheirCurrentRow) {
    EXPECT_EQ(SourceColumn(session, u"L2801"_s, u"TW-101"_s), u"ASSEMBLY LINE 1"_s);
    EXPECT_EQ(SourceColumn(session, u"3202"_s, u"TW-101"_s), u"RATCHET HEAD CLEANED"_s);
    EXPECT_EQ(SourceColumn(session, u"K4601"_s, u"TW-101"_s), u"ASSEMBLY"_s);
    EXPECT_EQ(SourceColumn(session, u"C2323"_s, u"TW-104"_s), u"Y"_s)
        << "the failed record is not the current one";
}

TEST_F(DemoSite, ProposedStandardsMayBeUsed) {
    const auto proposals =
        rows(u"select tool.i4201, standard.i4201 from mt.hvm_kv_last_standards_used as used join "
             "mt.inventory as tool on tool.mtag = used.mtag join mt.inventory as standard on standard.mtag "
             "= used.standard_mtag"_s,
             2);
    EXPECT_EQ(proposals.size(), 7);
    for (const auto& proposal : proposals) {
        const auto standard = proposal.section(u'|', 1);
        EXPECT_EQ(CheckStandard(session, standard, proposal.section(u'|', 0, 0)), standardUsable)
            << proposal.toStdString();
        EXPECT_TRUE(HasConfigData(session, standard)) << proposal.toStdString();
    }
}

TEST_F(DemoSite, TransducersComeFirstAmongTheStandardsOfATool) {
    for (const auto& mtag :
         rows(u"select mtag from mt.inventory where i4204 like '%TRANSDUCER' and i4240 = 'LAB'"_s))
        EXPECT_LT(mtag,
                  value(u"select min(mtag) from mt.inventory where i4204 not like '%TORQUE TRANSDUCER'"_s));
}

TEST_F(DemoSite, EarlierRecordsHoldTogether) {
    EXPECT_EQ(
        rows(
            u"select mtag from mt.calibration group by mtag having sum(case when c2339 = '1' then 1 else 0 end) <> 1"_s),
        QStringList());
    EXPECT_EQ(rows(u"select a.mtag from mt.calibration as a, mt.calibration as b where a.mtag = b.mtag and "
                   u"a.c2339 = '1' and "
                   "b.c2301 > a.c2301"_s),
              QStringList());
    EXPECT_EQ(
        value(u"select count(*) from mt.calibration where c2301 is null or c2303 is null or c2301 > "
              u"date(now(*)) or (c2323 = 'N' and c2303 <> c2301) or (c2323 = 'Y' and c2303 <= c2301)"_s),
        u"0"_s);
    EXPECT_EQ(
        value(u"select count(*) from mt.calresults where ctag not in (select ctag from mt.calibration where "
              "calibration.mtag = calresults.mtag) or length(c2501) <> 120"_s),
        u"0"_s);
    EXPECT_GT(value(u"select count(*) from mt.calresults"_s).toInt(), 5);
    EXPECT_EQ(value(u"select count(*) from mt.standards where ctag not in (select ctag from mt.calibration) "
                    u"or c2430 not in "
                    "(select mtag from mt.inventory)"_s),
              u"0"_s);
}

TEST_F(DemoSite, TheResultTemplateHasEveryTagAndItsSubstitutions) {
    const auto expectTemplate = [&] {
        const QString& line = session.ResultTemplateLine;
        const QList<std::pair<QString, int>> columns{{u"TN$"_s, 1},   {u"FN$"_s, 5},    {u"FVA$"_s, 19},
                                                     {u"FRE$"_s, 33}, {u"TT$"_s, 47},   {u"DE$"_s, 59},
                                                     {u"ET$"_s, 72},  {u"TU$"_s, 77},   {u"CO$"_s, 81},
                                                     {u"FLL$"_s, 93}, {u"FUL$"_s, 105}, {u"TR$"_s, 117}};
        for (const auto& [tag, column] : columns)
            EXPECT_EQ(line.indexOf(tag) + 1, column) << tag.toStdString();
        const auto& substitutions = std::as_const(session).SubstTable;
        EXPECT_EQ(substitutions[0].code, u"CO"_s);
        EXPECT_EQ(substitutions[0].from, u"NOTIFY USER"_s);
        EXPECT_EQ(substitutions[0].to, u"OUT OF TOL."_s);
        EXPECT_EQ(substitutions[2].code, u"TU"_s);
        EXPECT_EQ(substitutions[3].code, QString());
    };
    QFile::copy(sourceFile(u"database/demo/rslt_db.frm"_s), u"rslt_db.frm"_s);
    StartupFunctions(session, {});
    expectTemplate();
}

} // namespace kelvane::testing
