#include "procedures/task_packages.h"

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const auto selectNames = u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'"_s;
const auto selectPackage =
    u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
    "mt.hvm_kv_task_packages where taskname = 'CREW'"_s;
const auto selectAssets = u"select i4201 from MT.inventory where mtag in (select mtag from "
                          "mt.hvm_kv_task_assets where tptag = 'TAG')"_s;
const Error locked{-210, u"Locked"_s};

/// The row of a package of that letter, in which each column that may hold a value holds its own name.
Row rowOf(const std::optional<QString>& letter) {
    return {u"TAG"_s, u"PDEF"_s, u"notes"_s, u"sql"_s, letter, u"segregate"_s, u"model"_s, u"description"_s};
}

} // namespace

class TaskPackages : public RecordedSession {};

TEST_F(TaskPackages, TheirNamesKeepTheOrderOfTheDatabase) {
    script.answers[selectNames] = {{u"CREW"_s}, {u"ALL"_s}};
    EXPECT_EQ(packageNames(session), (QStringList{u"CREW"_s, u"ALL"_s}));
    script.failures[selectNames] = locked;
    ui.expectReport(-210, u"FormPredefinedTasks,LoadTasks"_s);
    EXPECT_EQ(packageNames(session), std::nullopt);
}

TEST_F(TaskPackages, LoadingTakesTheValueOfTheColumnThatTheLetterNames) {
    const struct {
        QString letter;
        Definition definition;
        QString value;
    } cases[] = {{u"S"_s, Definition::sql, {}},
                 {u"G"_s, Definition::segregate, u"segregate"_s},
                 {u"D"_s, Definition::description, u"description"_s},
                 {u"M"_s, Definition::model, u"model"_s}};
    for (const auto& expected : cases) {
        script.answers[selectPackage] = {rowOf(expected.letter)};
        const auto package = loadPackage(session, u"CREW"_s);
        EXPECT_TRUE(package.isComplete);
        EXPECT_TRUE(package.exists);
        EXPECT_EQ(package.definition, expected.definition);
        EXPECT_EQ(package.value, expected.value);
        EXPECT_EQ(package.notes, u"notes"_s);
        EXPECT_EQ(package.sql, u"sql"_s);
    }
    EXPECT_FALSE(script.statements.contains(selectAssets));
}

TEST_F(TaskPackages, LoadingAListReadsItsInstruments) {
    script.answers[selectPackage] = {rowOf(u"A"_s)};
    script.answers[selectAssets] = {{u"PT-2"_s}, {u"PT-1"_s}};
    const auto package = loadPackage(session, u"CREW"_s);
    EXPECT_EQ(package.definition, Definition::assetList);
    EXPECT_EQ(package.assets, (QStringList{u"PT-2"_s, u"PT-1"_s}));
    EXPECT_EQ(script.statements, (QStringList{selectPackage, selectAssets}));
    EXPECT_EQ(script.firstRowOnly, QStringList{selectPackage});
}

TEST_F(TaskPackages, LoadingAnUnknownLetterOrAVanishedNameGivesNoDefinition) {
    for (const auto& letter : {std::optional(u"X"_s), std::optional<QString>()}) {
        script.answers[selectPackage] = {rowOf(letter)};
        const auto package = loadPackage(session, u"CREW"_s);
        EXPECT_TRUE(package.isComplete);
        EXPECT_EQ(package.notes, u"notes"_s);
        EXPECT_EQ(package.definition, std::nullopt);
    }
    script.answers.clear();
    const auto package = loadPackage(session, u"CREW"_s);
    EXPECT_TRUE(package.isComplete);
    EXPECT_FALSE(package.exists);
}

TEST_F(TaskPackages, LoadingThatFailsAtTheInstrumentsGivesWhatWasReadBefore) {
    script.answers[selectPackage] = {rowOf(u"A"_s)};
    script.failures[selectAssets] = locked;
    ui.expectReport(-210, u"FormPredefinedTasks,LoadPackage"_s);
    const auto package = loadPackage(session, u"CREW"_s);
    EXPECT_FALSE(package.isComplete);
    EXPECT_EQ(package.notes, u"notes"_s);
    EXPECT_EQ(package.definition, std::nullopt);
}

TEST_F(TaskPackages, TheValuesToChooseFromLeaveOutNullsAndReportUnderTheirOption) {
    const auto models = u"select distinct(i4203) from MT.inventory"_s;
    script.answers[models] = {{u"3051"_s}, {std::nullopt}, {u"644"_s}};
    EXPECT_EQ(packageValues(session, Definition::model), (QStringList{u"3051"_s, u"644"_s}));
    script.failures[u"select distinct(i4204) from MT.inventory"_s] = locked;
    ui.expectReport(-210, u"FormPredefinedTasks,OptionModel-Click"_s);
    EXPECT_EQ(packageValues(session, Definition::description), std::nullopt);
    script.failures[u"select distinct(i4240) from mt.segregate"_s] = locked;
    ui.expectReport(-210, u"FormPredefinedTasks,OptionSegregate-Click"_s);
    EXPECT_EQ(packageValues(session, Definition::segregate), std::nullopt);
}

TEST_F(TaskPackages, ANewNameIsAskedForUnderTheNameOfTheStrategies) {
    const auto taken = u"select taskname from mt.hvm_kv_task_packages where taskname = 'O''B'"_s;
    script.failures[taken] = locked;
    ui.expectDialog(u"Add New Task Package"_s, u"Enter a name for the new test strategy (30 chars max!):"_s,
                    u"O'B"_s, [](const DialogQuestion& question) { EXPECT_EQ(question.maxLength, 30); });
    ui.expectReport(-210, u"FormStrategies,CommandAdd"_s);
    EXPECT_EQ(askPackageName(session), std::nullopt);
}

TEST_F(TaskPackages, ANameIsThatOfAPackageOrNot) {
    const auto wanted = u"select taskname from mt.hvm_kv_task_packages where taskname = 'O''B'"_s;
    EXPECT_EQ(isPackageName(session, u"O'B"_s), false);
    script.answers[wanted] = {{u"O'B"_s}};
    EXPECT_EQ(isPackageName(session, u"O'B"_s), true);
    script.failures[wanted] = locked;
    ui.expectReport(-210, u"FormStrategies,CommandAdd"_s);
    EXPECT_EQ(isPackageName(session, u"O'B"_s), std::nullopt);
}

TEST_F(TaskPackages, AnInstrumentThatIsListedOrUnknownOrNotConfiguredIsRefused) {
    EXPECT_EQ(faultOfInstrument(session, {u"PT-1"_s, u"TW-1"_s}, u"tw-1"_s), TextId::instrumentAlreadyListed);
    EXPECT_EQ(script.statements, QStringList());
    EXPECT_EQ(faultOfInstrument(session, {u"PT-1"_s}, u"PT-2"_s), TextId::instrumentNumberInvalid);
    script.answers[u"select mtag from MT.inventory where i4201 = 'PT-2'"_s] = {{u"12"_s}};
    EXPECT_EQ(faultOfInstrument(session, {u"PT-1"_s}, u"PT-2"_s), TextId::configurationDataIncomplete);
}

TEST_F(TaskPackages, OneWithoutWhatItsDefinitionNeedsIsRefused) {
    const struct {
        Definition definition;
        TextId fault;
    } cases[] = {{Definition::assetList, TextId::instrumentNumberInvalid},
                 {Definition::sql, TextId::sqlStatementRequired},
                 {Definition::segregate, TextId::fieldRequired},
                 {Definition::description, TextId::fieldRequired},
                 {Definition::model, TextId::fieldRequired}};
    for (const auto& [definition, fault] : cases) {
        TaskPackage package{.name = u"CREW"_s, .definition = definition};
        EXPECT_EQ(faultOfPackage(package), fault);
        package.value = u"value"_s;
        package.assets = {u"PT-1"_s};
        EXPECT_EQ(faultOfPackage(package), std::nullopt);
    }
}

TEST_F(TaskPackages, SavingReplacesThePackageAndItsListInOneTransaction) {
    const TaskPackage package{.name = u"CREW"_s, .assets = {u"PT-1"_s, u"PT-2"_s}};
    EXPECT_FALSE(savePackage(session, package));
    ASSERT_EQ(script.statements.size(), 5);
    EXPECT_TRUE(script.statements[0].startsWith(u"delete from mt.hvm_kv_task_assets "_s));
    EXPECT_TRUE(script.statements[1].startsWith(u"delete from mt.hvm_kv_task_packages "_s));
    EXPECT_TRUE(script.statements[2].startsWith(u"insert into mt.hvm_kv_task_packages "_s));
    EXPECT_TRUE(script.statements[3].contains(u"'PT-1'"_s));
    EXPECT_TRUE(script.statements[4].contains(u"'PT-2'"_s));
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s}));
}

TEST_F(TaskPackages, ASaveThatFailsTellsTheInstrumentAndStoresNothing) {
    ui.expectReport(1, u"FormPredefinedTasks,CommandSave"_s);
    const auto failure = savePackage(session, {.name = u"CREW"_s, .assets = {u"PT-1"_s, u"PT'2"_s}});
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->row, 1);
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
    script.lost = true;
    ui.expectReport(10054, u"FormPredefinedTasks,CommandSave"_s);
    const auto atOnce = savePackage(session, {.name = u"CREW"_s});
    ASSERT_TRUE(atOnce);
    EXPECT_EQ(atOnce->row, -1);
}

TEST_F(TaskPackages, RemovingTakesTheListToo) {
    EXPECT_TRUE(removePackage(session, u"CREW"_s));
    EXPECT_EQ(script.statements.size(), 2);
    EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"commit"_s}));
    script.lost = true;
    ui.expectReport(10054, u"FormPredefinedTasks,CommandRemoveTP"_s);
    EXPECT_FALSE(removePackage(session, u"CREW"_s));
}

} // namespace kelvane::testing
