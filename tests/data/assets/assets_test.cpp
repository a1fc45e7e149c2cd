#include "data/assets/assets.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

const auto packageOf = [](const QString& task) {
    return u"select tptype,tp_definition,task_sql,segregate,model,description from mt.hvm_kv_task_packages "
           "where taskname = '"_s +
           task + u"' or tptag = '"_s + task + u"'"_s;
};

const auto serverError = Error{-131, u"Syntax error near 'B'"_s, u"42000"_s};

class Assets : public RecordedSession {
  protected:
    /// The package "P1" has these columns, in the order of its query.
    void answerPackage(const Row& columns) { script.answers[packageOf(u"P1"_s)] = {columns}; }
};

} // namespace

TEST_F(Assets, ASerialNumberIsLookedUpInTheInventoryOfTheOwner) {
    const auto statement = u"select i4201 from ABC.inventory where i4206 = 'S-77'"_s;
    session.SessionOwner = u"ABC"_s;
    script.answers[statement] = {{u"PT-101"_s}};
    EXPECT_EQ(AssetfromSerial(session, u"S-77"_s), u"PT-101"_s);
    EXPECT_EQ(script.statements, QStringList{statement});
    EXPECT_EQ(script.firstRowOnly, QStringList{statement});
}

TEST_F(Assets, AnUnknownSerialNumberGivesAnEmptyText) {
    EXPECT_EQ(AssetfromSerial(session, u"S-77"_s), QString());
}

TEST_F(Assets, ANullAssetNumberGivesAnEmptyText) {
    script.answers[u"select i4201 from MT.inventory where i4206 = 'S-77'"_s] = {{std::nullopt}};
    EXPECT_EQ(AssetfromSerial(session, u"S-77"_s), QString());
}

TEST_F(Assets, ASerialNumberOfTwoInstrumentsGivesOneOfThemWithoutAWarning) {
    script.answers[u"select i4201 from MT.inventory where i4206 = 'S-77'"_s] = {{u"PT-101"_s}, {u"PT-102"_s}};
    EXPECT_EQ(AssetfromSerial(session, u"S-77"_s), u"PT-101"_s);
}

TEST_F(Assets, TheBeginningsOfBothNumbersFindTheFirstMatch) {
    const auto statement = u"select i4201 from MT.inventory where i4206 like '77%' and i4201 like 'PT%'"_s;
    script.answers[statement] = {{u"PT-9"_s}, {u"PT-1"_s}};
    EXPECT_EQ(AssetfromSerial(session, u"77"_s, u"PT"_s), u"PT-9"_s);
    EXPECT_EQ(script.firstRowOnly, QStringList{statement});
}

TEST_F(Assets, CheckAssetGivesTheKey) {
    const auto statement = u"select mtag from MT.inventory where i4201 = 'PT-101'"_s;
    script.answers[statement] = {{u"4711"_s}};
    EXPECT_EQ(CheckAsset(session, u"PT-101"_s), u"4711"_s);
    EXPECT_EQ(CheckAsset(session, u"PT-102"_s), QString());
    EXPECT_EQ(script.firstRowOnly.first(), statement);
}

TEST_F(Assets, AnAssetNumberGoesIntoTheStatementAsItIs) {
    for (const auto& asset : {u"O''Brien"_s, u"шум-溫度"_s, QString(200, u'x'), u"50%"_s, QString()}) {
        CheckAsset(session, asset);
        EXPECT_EQ(script.statements.last(),
                  u"select mtag from MT.inventory where i4201 = '"_s + asset + u"'"_s);
    }
}

TEST_F(Assets, FailedQueriesAreReportedUnderTheirNamesAndGiveEmptyTexts) {
    const auto bySerial = u"select i4201 from MT.inventory where i4206 = 'O-B'"_s;
    const auto byBeginning = u"select i4201 from MT.inventory where i4206 like 'O-B%' and i4201 like 'P%'"_s;
    const auto byAsset = u"select mtag from MT.inventory where i4201 = 'O-B'"_s;
    for (const auto& statement : {bySerial, byBeginning, byAsset})
        script.failures[statement] = serverError;
    ui.expectReport(-131, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(AssetfromSerial(session, u"O-B"_s), QString());
    ui.expectReport(-131, u"ModuleGlobals,AssetfromSerial"_s);
    EXPECT_EQ(AssetfromSerial(session, u"O-B"_s, u"P"_s), QString());
    ui.expectReport(-131, u"ModuleGlobals,CheckAsset"_s);
    EXPECT_EQ(CheckAsset(session, u"O-B"_s), QString());
    const auto log = folder.read(u"errors.log"_s);
    EXPECT_TRUE(log.contains(bySerial) && log.contains(byBeginning) && log.contains(byAsset))
        << log.toStdString();
}

TEST_F(Assets, ALostConnectionEndsTheSession) {
    script.lost = true;
    ui.expectReport(10054, u"ModuleGlobals,CheckAsset"_s);
    EXPECT_EQ(CheckAsset(session, u"PT-101"_s), QString());
    EXPECT_FALSE(session.SessionConnected);
}

TEST_F(Assets, TheKeyOfAnAssetIsASubSelect) {
    session.SessionOwner = u"ABC"_s;
    EXPECT_EQ(mtagOf(session, u"PT-1"_s).text(), u"(select mtag from ABC.inventory where i4201 = 'PT-1')"_s);
}

namespace {

struct PackageCase {
    const char* name;
    Row columns;
    /// What stands behind "select i4201,mtag,i4206 from MT.inventory where ".
    QString condition;
};

void PrintTo(const PackageCase& testCase, std::ostream* out) {
    *out << testCase.name;
}

const PackageCase packageCases[] = {
    {"worksheet",
     {u"WSHT"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt},
     u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'P1')"_s},
    {"worksheetIgnoresItsDefinition",
     {u"WSHT"_s, u"G"_s, u"select 1"_s, u"MT"_s, u"3051"_s, u"Transmitter"_s},
     u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'P1')"_s},
    {"anyOtherTypeIsAWorksheet",
     {u"temp"_s, u"G"_s, std::nullopt, u"MT"_s, std::nullopt, std::nullopt},
     u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'P1')"_s},
    {"aNullTypeIsAWorksheet",
     {std::nullopt, u"G"_s, std::nullopt, u"MT"_s, std::nullopt, std::nullopt},
     u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = 'P1')"_s},
    {"explicitList",
     {u"PDEF"_s, u"A"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt},
     u"mtag in (select mtag from mt.hvm_kv_task_assets where tptag = (select tptag from "
     "mt.hvm_kv_task_packages where taskname = 'P1'))"_s},
    {"condition",
     {u"PDEF"_s, u"S"_s, u"select i4201 from mt.inventory where i4204 = '$U_NAM$'"_s, std::nullopt,
      std::nullopt, std::nullopt},
     u"i4201 in (select i4201 from mt.inventory where i4204 = 'jdoe')"_s},
    {"nullCondition",
     {u"PDEF"_s, u"S"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt},
     u"i4201 in ()"_s},
    {"group",
     {u"PDEF"_s, u"G"_s, std::nullopt, u"Bob's"_s, std::nullopt, std::nullopt},
     u"i4240 = 'Bob''s'"_s},
    {"nullGroupComparesWithAnEmptyText",
     {u"PDEF"_s, u"G"_s, std::nullopt, std::nullopt, u"3051"_s, std::nullopt},
     u"i4240 = ''"_s},
    {"model",
     {u"PDEF"_s, u"M"_s, std::nullopt, std::nullopt, u"3051'C"_s, std::nullopt},
     u"i4203 = '3051''C'"_s},
    {"description",
     {u"PDEF"_s, u"D"_s, std::nullopt, std::nullopt, std::nullopt, u"Men's gauge"_s},
     u"i4204 = 'Men''s gauge'"_s},
    {"smallLetters",
     {u"pdef"_s, u"m"_s, std::nullopt, std::nullopt, u"3051"_s, std::nullopt},
     u"i4203 = '3051'"_s},
};

class PackageKinds : public Assets, public ::testing::WithParamInterface<PackageCase> {};

} // namespace

TEST_P(PackageKinds, HaveTheirOwnMemberQuery) {
    answerPackage(GetParam().columns);
    const auto members = u"select i4201,mtag,i4206 from MT.inventory where "_s + GetParam().condition;
    script.answers[members] = {{u"PT-1"_s, u"1"_s, u"S1"_s}, {u"PT-2"_s, u"2"_s, std::nullopt}};
    const auto entries = GetAssetsInTaskPackage(session, u"P1"_s);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(script.statements, (QStringList{packageOf(u"P1"_s), members}));
    EXPECT_EQ(script.firstRowOnly, QStringList{packageOf(u"P1"_s)});
    EXPECT_EQ(entries[0].asset, u"PT-1"_s);
    EXPECT_EQ(entries[0].mtag, u"1"_s);
    EXPECT_EQ(entries[0].serial, u"S1"_s);
    EXPECT_EQ(entries[1].asset, u"PT-2"_s);
    EXPECT_EQ(entries[1].serial, QString()) << "a null serial number stays empty";
    EXPECT_EQ(ui.events.first(), u"busy"_s);
    EXPECT_FALSE(ui.busy);
}

INSTANTIATE_TEST_SUITE_P(All, PackageKinds, ::testing::ValuesIn(packageCases),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(Assets, AnUnknownPackageHasNoInstrumentsAndSaysNothing) {
    EXPECT_TRUE(GetAssetsInTaskPackage(session, u"P1"_s).isEmpty());
    EXPECT_EQ(script.statements, QStringList{packageOf(u"P1"_s)});
    EXPECT_FALSE(ui.busy);
}

TEST_F(Assets, AnUnknownKindRunsNoMemberQuery) {
    answerPackage({u"PDEF"_s, u"X"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt});
    EXPECT_TRUE(GetAssetsInTaskPackage(session, u"P1"_s).isEmpty());
    EXPECT_EQ(script.statements, QStringList{packageOf(u"P1"_s)});
}

TEST_F(Assets, APredefinedPackageWithoutDefinitionIsReported) {
    answerPackage({u"PDEF"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt});
    ui.expectReport(94, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_TRUE(GetAssetsInTaskPackage(session, u"P1"_s).isEmpty());
}

TEST_F(Assets, ANameThatIsAnotherPackagesTagTakesTheFirstRow) {
    script.answers[packageOf(u"P1"_s)] = {
        {u"PDEF"_s, u"M"_s, std::nullopt, std::nullopt, u"first"_s, std::nullopt},
        {u"WSHT"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt, std::nullopt}};
    GetAssetsInTaskPackage(session, u"P1"_s);
    EXPECT_EQ(script.statements.last(), u"select i4201,mtag,i4206 from MT.inventory where i4203 = 'first'"_s);
}

TEST_F(Assets, APackageNameIsSafeInItsOwnQueryAndRawInThatOfItsMembers) {
    script.answers[packageOf(u"Bob''''s"_s)] = {
        {u"PDEF"_s, u"A"_s, std::nullopt, std::nullopt, std::nullopt, std::nullopt}};
    GetAssetsInTaskPackage(session, u"Bob''s"_s);
    EXPECT_EQ(script.statements.first(), packageOf(u"Bob''''s"_s));
    EXPECT_TRUE(script.statements.last().endsWith(u"where taskname = 'Bob''s'))"_s));
}

TEST_F(Assets, AMemberWithoutAssetNumberOrKeyIsReported) {
    answerPackage({u"PDEF"_s, u"G"_s, std::nullopt, u"MT"_s, std::nullopt, std::nullopt});
    for (const auto& member : {Row{std::nullopt, u"1"_s, u"S1"_s}, Row{u"A-1"_s, std::nullopt, u"S1"_s}}) {
        script.answers[u"select i4201,mtag,i4206 from MT.inventory where i4240 = 'MT'"_s] = {member};
        ui.expectReport(94, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
        EXPECT_TRUE(GetAssetsInTaskPackage(session, u"P1"_s).isEmpty());
        EXPECT_FALSE(ui.busy);
    }
}

TEST_F(Assets, APackageWithoutAKindIsAnExplicitList) {
    answerPackage({std::nullopt, u"G"_s, std::nullopt, u"MT"_s, std::nullopt, std::nullopt});
    GetAssetsInTaskPackage(session, u"P1"_s);
    EXPECT_TRUE(script.statements.last().contains(u"hvm_kv_task_assets"_s));
}

TEST_F(Assets, ThePackageListHolds501InstrumentsAndReportsTheNext) {
    answerPackage({u"PDEF"_s, u"G"_s, std::nullopt, u"MT"_s, std::nullopt, std::nullopt});
    auto& members = script.answers[u"select i4201,mtag,i4206 from MT.inventory where i4240 = 'MT'"_s];
    for (int i = 0; i < 501; ++i)
        members << Row{u"PT-%1"_s.arg(i), QString::number(i), std::nullopt};
    const auto entries = GetAssetsInTaskPackage(session, u"P1"_s);
    ASSERT_EQ(entries.size(), 501);
    EXPECT_EQ(entries[500].asset, u"PT-500"_s);
    members << Row{u"PT-501"_s, u"501"_s, std::nullopt};
    ui.expectReport(9, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_TRUE(GetAssetsInTaskPackage(session, u"P1"_s).isEmpty());
}

TEST_F(Assets, AMemberQueryThatFailsIsReportedWithItsStatement) {
    answerPackage({u"PDEF"_s, u"S"_s, u"select nonsense"_s, std::nullopt, std::nullopt, std::nullopt});
    const auto members = u"select i4201,mtag,i4206 from MT.inventory where i4201 in (select nonsense)"_s;
    script.failures[members] = serverError;
    ui.expectReport(-131, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_TRUE(GetAssetsInTaskPackage(session, u"P1"_s).isEmpty());
    EXPECT_TRUE(folder.read(u"errors.log"_s).contains(members));
    EXPECT_FALSE(ui.busy);
}

TEST_F(Assets, TheInstrumentsInUseWithAStandardAreListedByItsSerialNumber) {
    const auto statement =
        u"select i4201,mtag,i4206 from MT.inventory where mtag in (select mtag from "
        "mt.hvm_kv_task_standards_inuse where standard_mtag = (select mtag from MT.inventory where i4206 = "
        "'702-1'))"_s;
    script.answers[statement] = {{u"PT-1"_s, u"1"_s, std::nullopt}};
    const auto entries = GetAssetsInUseWithStandard(session, u"702-1"_s);
    EXPECT_EQ(script.statements, QStringList{statement});
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].asset, u"PT-1"_s);
    EXPECT_EQ(entries[0].mtag, u"1"_s);
    EXPECT_EQ(entries[0].serial, QString());
}

TEST_F(Assets, TheListByStandardReportsUnderTheNameOfThePackageRoutine) {
    script.lost = true;
    ui.expectReport(10054, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_TRUE(GetAssetsInUseWithStandard(session, u"702-1"_s).isEmpty());
}

} // namespace kelvane::testing
