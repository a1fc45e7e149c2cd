// No value that the editors put into a statement makes another statement of it.
#include "data/assets/assets.h"
#include "editors/form_test_mess.h"
#include "editors/form_work_config.h"
#include "editors/predefined_tasks/form_predefined_tasks.h"
#include "editors/strategies/form_strategies.h"
#include "procedures/statement_parts.h"
#include "procedures/task_package.h"
#include "testkit/screen_operator.h"
#include "tests/editors/cal_param/cal_param_fixture.h"
#include "ui/text_box.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Texts that would leave their quotes: with another statement behind them, with none, with balanced quotes.
const QStringList ending{u"x'; delete from mt.customiz; --"_s,
                         u"x' or 'a' = 'a"_s,
                         u"x'||(select 1)||'y"_s,
                         u"x'"_s,
                         u"''' or 1 = 1 --"_s,
                         u"x"_s + QChar(0)};

} // namespace

class Injection : public RecordedSession {
  protected:
    template <class Screen>
    Screen& show(Screen* made) {
        made->showIn(area);
        script.statements.clear();
        return *made;
    }
    /// Presses a button whose statement would hold the value; it is reported and never sent.
    void expectRefused(const QWidget& form, const QString& button, const QString& routine,
                       const QString& value) {
        ui.expectReport(1, routine);
        control<QPushButton>(form, button).click();
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_TRUE(script.statements.filter(value).isEmpty()) << value.toStdString();
        EXPECT_FALSE(script.transactions.contains(u"commit"_s));
        script.statements.clear();
    }
    QMdiArea area;
};

TEST_F(Injection, EveryRawValueOfAStatementIsConfined) {
    for (const auto& value : ending) {
        SCOPED_TRACE(value.toStdString());
        EXPECT_FALSE(ModuleGlobals::mtagQuery(session, value).isIntact());
        EXPECT_FALSE(ModuleGlobals::mtagOf(session, value).isIntact());
        EXPECT_FALSE(assetInsert(session, u"TAG"_s, value).isIntact());
        EXPECT_FALSE(assetInsert(session, value, u"PT-1"_s).isIntact());
        EXPECT_FALSE(packageInsert(session, {}, value).isIntact());
        session.SessionUser = value;
        EXPECT_FALSE(packageInsert(session, {}, u"TAG"_s).isIntact());
        session.SessionUser = u"jdoe"_s;
    }
}

TEST_F(Injection, TheOwnerIsANameAndNothingMore) {
    for (const auto& owner : ending + QStringList{u""_s, u"MT.inventory,mt"_s, u"MT--"_s, u"\"MT\""_s}) {
        session.SessionOwner = owner;
        EXPECT_FALSE(ModuleGlobals::mtagQuery(session, u"PT-1"_s).isIntact()) << owner.toStdString();
        for (const auto& kind : definitionKinds()) {
            if (kind.choices && kind.definition != Definition::segregate) {
                EXPECT_FALSE(kind.choices(session).isIntact()) << owner.toStdString();
            }
        }
    }
}

TEST_F(Injection, AValueWithDoubledQuotesIsATextLikeAnyOther) {
    for (const auto& value : ending.mid(0, 5)) {
        const TaskPackage package{
            .name = value, .definition = Definition::sql, .value = value, .notes = value};
        const auto insert = packageInsert(session, package, u"TAG"_s);
        EXPECT_TRUE(insert.isIntact()) << value.toStdString();
        EXPECT_EQ(insert.text().count(u'\'' + QString(value).replace(u"'"_s, u"''"_s) + u'\''), 3);
        for (const auto& statement : packageDeletes(value))
            EXPECT_TRUE(statement.isIntact());
    }
}

TEST_F(Injection, AStrategysNameAndPointsAreNotSentWhenTheySaveRaw) {
    for (const auto& value : ending.mid(0, 5)) {
        SCOPED_TRACE(value.toStdString());
        auto& form = show(new FormStrategies(session, [] { return static_cast<OpenCalParam*>(nullptr); }));
        auto& points = control<QListWidget>(form, u"ListPoints"_s);
        control<QPushButton>(form, u"CommandSave"_s).setEnabled(true);
        points.addItem(value);
        expectRefused(form, u"CommandSave"_s, u"FormStrategies,CommandSave"_s, value);
        points.clear();
        auto& names = control<QComboBox>(form, u"ComboTSNames"_s);
        names.addItem(value);
        names.setCurrentIndex(names.count() - 1);
        expectRefused(form, u"CommandSave"_s, u"FormStrategies,CommandSave"_s, value);
        form.unload();
    }
}

TEST_F(Injection, AMessagesNameIsNotSentWhenItSavesRaw) {
    for (const auto& value : ending.mid(0, 5)) {
        script.answers.insert(u"select pname from mt.hvm_kv_prompts"_s, {Row{value}});
        auto& form = show(new FormTestMess(session, [] { return static_cast<OpenCalParam*>(nullptr); }));
        expectRefused(form, u"CommandSave"_s, u"FormTestMess,CommandSave"_s, value);
        ui.expectBox(u"Are you sure you want to discard any changes made since last save?"_s, u"Kelvane"_s,
                     box::warningYesNo, BoxAnswer::yes);
        form.close();
    }
}

TEST_F(Injection, AFieldsNumberOfTheDictionaryIsNotSent) {
    script.answers.insert(u"select count(fldnum) from mt.hvm_kv_worksheetfields"_s, {Row{u"1"_s}});
    for (const auto& number : {u"1'--"_s, u"';--"_s, u"''';"_s}) {
        auto& form = show(new FormWorkConfig(session));
        control<QListWidget>(form, u"ListRequest"_s).addItem(u'C' + number + u" : x"_s);
        expectRefused(form, u"CommandSave"_s, u"FormWorkConfig,CommandSave"_s, number);
        form.unload();
    }
}

TEST_F(Injection, APackagesNameAndTagAreNotSentWhenTheyLoadRaw) {
    const auto list = u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'"_s;
    const auto package = u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
                         "mt.hvm_kv_task_packages where taskname = 'P'"_s;
    for (const auto& value : ending) {
        SCOPED_TRACE(value.toStdString());
        script.answers.insert(list, {Row{value}});
        ui.expectReport(1, u"FormPredefinedTasks,LoadPackage"_s);
        show(new FormPredefinedTasks(session)).unload();
        script.answers.insert(list, {Row{u"P"_s}});
        script.answers.insert(package, {Row{value, u"PDEF"_s, {}, {}, u"A"_s, {}, {}, {}}});
        ui.expectReport(1, u"FormPredefinedTasks,LoadPackage"_s);
        show(new FormPredefinedTasks(session)).unload();
        EXPECT_TRUE(script.statements.filter(value).isEmpty());
    }
}

class ParameterInjection : public CalParamFixture {
  protected:
    ParameterInjection() { makeReady(); }
    /// A save that is refused before anything that holds the value goes out.
    void expectRefused(const QString& value) {
        SCOPED_TRACE(value.toStdString());
        script.statements.clear();
        script.transactions.clear();
        ui.expectReport(1, u"FormCalParam,SaveData"_s);
        screen.press(u"CommandSave"_s);
        EXPECT_TRUE(ui.hasMetAll());
        EXPECT_TRUE(script.statements.filter(value).isEmpty());
        EXPECT_EQ(script.transactions, (QStringList{u"begin"_s, u"roll back"_s}));
    }
};

TEST_F(ParameterInjection, NoFieldLeavesItsQuotes) {
    for (const auto& value : ending) {
        // Fields that the units do not call for are not examined.
        for (const auto& name : {u"TextCJRefTempIn"_s, u"TextCJRefTempOut"_s, u"TextThresholdOut"_s,
                                 u"TextDipOut"_s, u"TextPTPAmplitudeIn"_s, u"TextPTPAmplitudeOut"_s}) {
            if (value.contains(QChar(0)))
                continue; // a text box takes none
            screen.set(name, value);
            expectRefused(value);
            EXPECT_EQ(screen.focus(), name);
            screen.set(name, u"0"_s);
        }
        for (const auto& name : {u"ComboTSName"_s, u"ComboInputUnits"_s, u"ComboMeasRes"_s,
                                 u"ComboBaudRateOut"_s, u"ComboParityOut"_s}) {
            auto& list = control<QComboBox>(screen.form(), name);
            const int row = list.currentIndex();
            list.addItem(value);
            list.setCurrentIndex(list.count() - 1);
            expectRefused(value);
            list.setCurrentIndex(row);
        }
        for (const auto& name : {u"ListPreDisplay"_s, u"ListPostDisplay"_s}) {
            screen.fill(name, {value});
            expectRefused(value);
            screen.fill(name, {});
        }
    }
}

TEST_F(ParameterInjection, NoInstrumentThatIsAskedForLeavesItsQuotes) {
    for (const auto& value : ending) {
        script.statements.clear();
        ui.expectDialog(u"Calibration Parameters"_s, u"Enter instrument number:"_s, value);
        ui.expectReport(1, u"FormCalParam,CommandClone"_s);
        screen.press(u"CommandClone"_s);
        EXPECT_EQ(script.statements, QStringList());
    }
}

} // namespace kelvane::testing
