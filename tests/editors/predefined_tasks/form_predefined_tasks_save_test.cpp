#include "data/assets/assets.h"
#include "tests/editors/predefined_tasks/package_screen.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const Error noTable{208, u"no such table"_s};

} // namespace

/// What a save checks, writes and leaves behind.
class PackageSave : public PackageScreen {};

TEST_F(PackageSave, AMissingEntryIsReportedAndStopsTheSave) {
    const struct {
        QString option;
        QString message;
        QString focus;
    } cases[] = {
        {u"AssetList"_s, unknownInstrument, u"TextListEnter"_s},
        {u"SQL"_s, u"Must Enter An SQL Statement!"_s, u"TextSQL"_s},
        {u"Segregate"_s, u"Required Field - must provide an entry!"_s, u"ComboSelectList"_s},
        {u"Description"_s, u"Required Field - must provide an entry!"_s, u"ComboSelectList"_s},
        {u"Model"_s, u"Required Field - must provide an entry!"_s, u"ComboSelectList"_s},
    };
    open();
    create(u"NEW"_s);
    for (const auto& testCase : cases) {
        option(testCase.option);
        script.statements.clear();
        simulatedOperator.expectBox(testCase.message, packagesTitle, box::warning);
        press(u"CommandSave"_s);
        EXPECT_TRUE(script.statements.isEmpty()) << testCase.option.toStdString();
        EXPECT_TRUE(controlNamed<QWidget>(testCase.focus).hasFocus()) << testCase.option.toStdString();
        EXPECT_TRUE(button(u"CommandSave"_s).isEnabled());
    }
}

TEST_F(PackageSave, EachKindIsSavedIntoItsColumnWithQuotesDoubled) {
    const struct {
        QString option;
        QString values;
    } cases[] = {
        {u"SQL"_s, u"'S','it''s',NULL,NULL,NULL"_s},
        {u"Segregate"_s, u"'G',NULL,'it''s',NULL,NULL"_s},
        {u"Model"_s, u"'M',NULL,NULL,'it''s',NULL"_s},
        {u"Description"_s, u"'D',NULL,NULL,NULL,'it''s'"_s},
    };
    open();
    QStringList tags;
    for (const auto& testCase : cases) {
        option(testCase.option);
        if (testCase.option == u"SQL"_s)
            QTest::keyClicks(&sql(), u"it's"_s);
        else
            typeValue(u"it's"_s);
        script.statements.clear();
        press(u"CommandSave"_s);
        tags << newTag();
        EXPECT_EQ(ownStatements(), deletes(u"LIST"_s)
                                       << insertPackage(u"LIST"_s, tags.last(), testCase.values, u"NULL"_s));
        EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
        EXPECT_FALSE(QApplication::overrideCursor());
    }
    EXPECT_EQ(tags.removeDuplicates(), 0);
}

TEST_F(PackageSave, ClearingOldTablesComesBeforeTheDeletion) {
    open();
    QTest::keyClicks(&notes(), u"x"_s);
    press(u"CommandSave"_s);
    const auto sweep = u"delete from mt.hvm_kv_task_packages where created_on < now(*) - 90;commit"_s;
    EXPECT_LT(script.statements.indexOf(sweep), script.statements.indexOf(deletes(u"LIST"_s).first()));
    EXPECT_GE(script.statements.indexOf(sweep), 0);
}

TEST_F(PackageSave, NotesOfSeveralLinesAreSavedAndEmptyOnesAreNull) {
    open();
    notes().setFocus();
    QTest::keyClicks(&notes(), u"It's"_s);
    QTest::keyClick(&notes(), Qt::Key_Return);
    QTest::keyClicks(&notes(), u"so"_s);
    press(u"CommandSave"_s);
    EXPECT_TRUE(script.statements.contains(
        insertPackage(u"LIST"_s, newTag(), u"'A',NULL,NULL,NULL,NULL"_s, u"'It''s\r\nso'"_s)));
    notes().selectAll();
    QTest::keyClick(&notes(), Qt::Key_Delete);
    press(u"CommandSave"_s);
    EXPECT_TRUE(script.statements.contains(
        insertPackage(u"LIST"_s, newTag(), u"'A',NULL,NULL,NULL,NULL"_s, u"NULL"_s)));
}

TEST_F(PackageSave, AListThatBecomesAStatementIsNotWritten) {
    open();
    option(u"SQL"_s);
    QTest::keyClicks(&sql(), u"select 1"_s);
    press(u"CommandSave"_s);
    for (const auto& statement : ownStatements())
        EXPECT_FALSE(statement.startsWith(u"insert into mt.hvm_kv_task_assets"_s));
}

TEST_F(PackageSave, AnyTextIsSavedAsItStands) {
    open();
    option(u"SQL"_s);
    for (const auto& text :
         {u"Проверка"_s, u"校正 \U0001F527 °C"_s, u"''"_s, u"a;b -- c"_s, u"long "_s.repeated(210000)}) {
        for (auto* field : {&notes(), &sql()}) {
            QGuiApplication::clipboard()->setText(text);
            field->setFocus();
            field->selectAll();
            QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        }
        press(u"CommandSave"_s);
        const auto safe = u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
        EXPECT_TRUE(script.statements.contains(
            insertPackage(u"LIST"_s, newTag(), u"'S',"_s + safe + u",NULL,NULL,NULL"_s, safe)))
            << text.left(20).toStdString();
    }
}

TEST_F(PackageSave, AValueOfAMillionCharactersIsNotCut) {
    open();
    option(u"Model"_s);
    const auto text = u"long "_s.repeated(210000);
    QGuiApplication::clipboard()->setText(text);
    value().setFocus();
    QTest::keyClick(value().lineEdit(), Qt::Key_V, Qt::ControlModifier);
    press(u"CommandSave"_s);
    EXPECT_TRUE(script.statements.contains(
        insertPackage(u"LIST"_s, newTag(), u"'M',NULL,NULL,'"_s + text + u"',NULL"_s, u"NULL"_s)));
    script.statements.clear();
    option(u"AssetList"_s);
    QTest::keyClick(&entry(), Qt::Key_V, Qt::ControlModifier);
    simulatedOperator.expectBox(unknownInstrument, packagesTitle, box::warning);
    QTest::keyClick(&entry(), Qt::Key_Return);
    EXPECT_EQ(script.statements.value(0), u"select mtag from MT.inventory where i4201 = '"_s + text + u'\'');
}

TEST_F(PackageSave, AFailureOfEachStatementOfASaveIsReportedAndTheScreenKeepsItsContents) {
    open();
    add(u"A-3"_s);
    QTest::keyClicks(&notes(), u"Note"_s);
    auto failing = deletes(u"LIST"_s);
    for (const auto& statement : failing) {
        script.failures = {{statement, noTable}};
        simulatedOperator.expectReport(208, u"FormPredefinedTasks,CommandSave"_s);
        press(u"CommandSave"_s);
        EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s, u"A-3"_s}));
        EXPECT_EQ(notes().text(), u"Note"_s);
        EXPECT_TRUE(button(u"CommandSave"_s).isEnabled());
        EXPECT_EQ(script.statements.last(), statement);
        EXPECT_FALSE(QApplication::overrideCursor());
    }
    // Once the reason is gone, the save can be repeated.
    script.failures.clear();
    press(u"CommandSave"_s);
    EXPECT_EQ(script.statements.last(), insertAsset(newTag(), u"A-3"_s));
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
}

TEST_F(PackageSave, AConnectionLostAtASaveKeepsTheScreen) {
    open();
    QTest::keyClicks(&notes(), u"Note"_s);
    script.lost = true;
    simulatedOperator.expectReport(10054, u"ModuleGlobals,ClearSystemTables"_s);
    simulatedOperator.expectReport(10054, u"FormPredefinedTasks,CommandSave"_s);
    press(u"CommandSave"_s);
    EXPECT_FALSE(session.SessionConnected);
    EXPECT_EQ(notes().text(), u"Note"_s);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s}));
    simulatedOperator.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::no);
    form().close();
    EXPECT_NE(findChild(u"FormPredefinedTasks"_s), nullptr);
}

TEST_F(PackageSave, ReturnSavesAValueAndEscapeCancels) {
    setPackages({{.name = u"G"_s, .letter = u"G"_s, .value = u"UTIL"_s}});
    open();
    typeValue(u"LAB"_s);
    QTest::keyClick(value().lineEdit(), Qt::Key_Return);
    EXPECT_TRUE(script.statements.contains(
        insertPackage(u"G"_s, newTag(), u"'G',NULL,'LAB',NULL,NULL"_s, u"NULL"_s)));
    QTest::keyClicks(&notes(), u"x"_s);
    simulatedOperator.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::no);
    QTest::keyClick(&notes(), Qt::Key_Escape);
    simulatedOperator.waitUntilAllCame();
    EXPECT_EQ(notes().text(), u"x"_s);
}

TEST_F(PackageSave, ReturnAddsInTheEntryOfAListAndSavesElsewhere) {
    open();
    entry().setFocus();
    QTest::keyClicks(&entry(), u"A-3"_s);
    QTest::keyClick(&entry(), Qt::Key_Return);
    EXPECT_EQ(rows(), (QStringList{u"A-1"_s, u"A-2"_s, u"A-3"_s}));
    EXPECT_TRUE(button(u"CommandSave"_s).isEnabled());
    names().setFocus();
    QTest::keyClick(&names(), Qt::Key_Return);
    EXPECT_EQ(script.statements.last(), insertAsset(newTag(), u"A-3"_s));
    EXPECT_FALSE(button(u"CommandSave"_s).isEnabled());
}

} // namespace kelvane::testing
