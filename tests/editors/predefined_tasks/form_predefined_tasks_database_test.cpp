#include "data/assets/assets.h"
#include "editors/predefined_tasks/form_predefined_tasks.h"
#include "testkit/screen_on_database.h"
#include "tests/editors/predefined_tasks/package_screen.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString addTitle = u"Add New Task Package"_s;
const QString addPrompt = u"Enter a name for the new test strategy (30 chars max!):"_s;

} // namespace

/// The editor of predefined task packages on the demonstration data.
class FormPredefinedTasksOnDatabase : public ScreenOnDatabase<FormPredefinedTasks> {
  protected:
    FormPredefinedTasksOnDatabase() { open(session); }
    QComboBox& names() { return controlNamed<QComboBox>(u"ComboTPName"_s); }
    void option(const QString& name) { controlNamed<QRadioButton>(u"Option"_s + name).click(); }
    void setValue(const QString& value) { controlNamed<QComboBox>(u"ComboSelectList"_s).setEditText(value); }
    void setSql(const QString& sql) { controlNamed<TextBox>(u"TextSQL"_s).setText(sql); }
    void add(const QString& asset) {
        controlNamed<QLineEdit>(u"TextListEnter"_s).setText(asset);
        press(u"CommandAdd"_s);
    }
    void create(const QString& name) {
        ui.expectDialog(addTitle, addPrompt, name);
        press(u"CommandAddTP"_s);
    }
    QStringList rows() {
        QStringList found;
        auto& list = controlNamed<QListWidget>(u"ListAssets"_s);
        for (int i = 0; i < list.count(); ++i)
            found << list.item(i)->text();
        found.sort();
        return found;
    }
    /// The instruments that the package stands for, sorted.
    QStringList expand(const QString& name) {
        QStringList found;
        const auto entries = ModuleGlobals::GetAssetsInTaskPackage(session, name);
        for (const auto& entry : entries)
            found << entry.asset;
        found.sort();
        return found;
    }
    QStringList instruments(const QString& condition) {
        return values(u"select i4201 from MT.inventory where "_s + condition);
    }
    QString tagOf(const QString& name) {
        const auto tags =
            values(u"select tptag from mt.hvm_kv_task_packages where taskname = '"_s + name + u'\'');
        EXPECT_EQ(tags.size(), 1);
        return tags.value(0);
    }
    QStringList members(const QString& tag) {
        return values(u"select mtag from mt.hvm_kv_task_assets where tptag = '"_s + tag + u'\'');
    }
    QStringList packages() {
        return values(u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'"_s);
    }
};

TEST_F(FormPredefinedTasksOnDatabase, ShowsEveryPackageAsItIsExpanded) {
    QStringList shown;
    const int count = names().count();
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            chooseRow(names(), names().itemText(i));
        shown << names().currentText();
        if (controlNamed<QRadioButton>(u"OptionAssetList"_s).isChecked()) {
            EXPECT_EQ(rows(), expand(shown.last())) << shown.last().toStdString();
        } else {
            EXPECT_TRUE(rows().isEmpty());
            EXPECT_FALSE(expand(shown.last()).isEmpty()) << shown.last().toStdString();
        }
        EXPECT_FALSE(controlNamed<QPushButton>(u"CommandSave"_s).isEnabled());
    }
    shown.sort();
    EXPECT_EQ(shown, packages());
}

TEST_F(FormPredefinedTasksOnDatabase, ASavedPackageOfEachKindIsExpanded) {
    create(u"MADE HERE"_s);
    add(u"PT-101"_s);
    add(u"TW-103"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(expand(u"MADE HERE"_s), (QStringList{u"PT-101"_s, u"TW-103"_s}));

    const struct {
        QString option;
        QString value;
        QString condition;
        QString column;
    } kinds[] = {
        {u"SQL"_s, u"select i4201 from MT.inventory where i4203 = 'CLICK 250F'"_s, u"i4203 = 'CLICK 250F'"_s,
         u"task_sql"_s},
        {u"Segregate"_s, u"UTIL"_s, u"i4240 = 'UTIL'"_s, u"segregate"_s},
        {u"Description"_s, u"TORQUE SCREWDRIVER"_s, u"i4204 = 'TORQUE SCREWDRIVER'"_s, u"description"_s},
        {u"Model"_s, u"CLICK 250F"_s, u"i4203 = 'CLICK 250F'"_s, u"model"_s},
    };
    for (const auto& kind : kinds) {
        option(kind.option);
        if (kind.option == u"SQL"_s)
            setSql(kind.value);
        else
            setValue(kind.value);
        press(u"CommandSave"_s);
        const auto wanted = instruments(kind.condition);
        EXPECT_FALSE(wanted.isEmpty());
        EXPECT_EQ(expand(u"MADE HERE"_s), wanted) << kind.option.toStdString();
        EXPECT_EQ(values(u"select "_s + kind.column +
                         u" from mt.hvm_kv_task_packages where taskname = 'MADE HERE'"_s),
                  QStringList{kind.value});
        EXPECT_TRUE(members(tagOf(u"MADE HERE"_s)).isEmpty());
    }
}

TEST_F(FormPredefinedTasksOnDatabase, EachSaveGivesANewTagAndTakesTheOldListAway) {
    chooseRow(names(), u"TORQUE CREW A"_s);
    const auto other = members(tagOf(u"UNIT 1 SHUTDOWN"_s));
    QStringList tags{tagOf(u"TORQUE CREW A"_s)};
    const auto before = members(tags.first());
    for (int save = 0; save < 3; ++save) {
        controlNamed<TextBox>(u"TextNotes"_s).setText(u"Save %1"_s.arg(save));
        press(u"CommandSave"_s);
        EXPECT_TRUE(members(tags.last()).isEmpty());
        tags << tagOf(u"TORQUE CREW A"_s);
        EXPECT_EQ(members(tags.last()), before);
        EXPECT_EQ(tags.last().size(), 30);
    }
    EXPECT_EQ(tags.removeDuplicates(), 0);
    EXPECT_EQ(members(tagOf(u"UNIT 1 SHUTDOWN"_s)), other);
}

TEST_F(FormPredefinedTasksOnDatabase, ASaveStoresItsUserAndMoment) {
    chooseRow(names(), u"UTILITIES"_s);
    controlNamed<TextBox>(u"TextNotes"_s).setText(u"It's so.\r\nΩ 校正"_s);
    const auto before = daysAgo(0);
    press(u"CommandSave"_s);
    const auto of = u" from mt.hvm_kv_task_packages where taskname = 'UTILITIES'"_s;
    EXPECT_EQ(values(u"select mtuser"_s + of), QStringList{users::editor});
    EXPECT_EQ(values(u"select tptype"_s + of), QStringList{u"PDEF"_s});
    EXPECT_EQ(values(u"select notes"_s + of), QStringList{u"It's so.\r\nΩ 校正"_s});
    EXPECT_EQ(values(u"select task_sql"_s + of), QStringList{u"(null)"_s});
    const auto made = values(u"select created_on"_s + of).value(0);
    EXPECT_GE(made, before);
    EXPECT_LE(made, daysAgo(0));
}

TEST_F(FormPredefinedTasksOnDatabase, TheHourglassShowsWhileTheListIsReadTheSumIsTakenAndASaveRuns) {
    ui.events.clear();
    option(u"Segregate"_s);
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s}));
    // The sum of a text has one of its own.
    ui.events.clear();
    ui.expectBox(discardSinceSave, packagesTitle, box::warningYesNo, BoxAnswer::no);
    form().close();
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s}));
    setValue(u"LAB"_s);
    ui.events.clear();
    press(u"CommandSave"_s);
    EXPECT_EQ(ui.events,
              (QStringList{u"busy"_s, u"busy"_s, u"busy"_s, u"normal"_s, u"normal"_s, u"normal"_s}));
    ui.events.clear();
    create(u"NEW"_s);
    // The first is that of the dialog, the second that of the query of the name.
    EXPECT_EQ(ui.events, (QStringList{u"busy"_s, u"normal"_s, u"busy"_s, u"normal"_s}));
}

TEST_F(FormPredefinedTasksOnDatabase, AListThatBecomesAModelLosesItsRows) {
    chooseRow(names(), u"TORQUE CREW A"_s);
    const auto tag = tagOf(u"TORQUE CREW A"_s);
    option(u"Model"_s);
    setValue(u"CLICK 250F"_s);
    press(u"CommandSave"_s);
    EXPECT_TRUE(members(tag).isEmpty());
    EXPECT_TRUE(members(tagOf(u"TORQUE CREW A"_s)).isEmpty());
}

TEST_F(FormPredefinedTasksOnDatabase, RemovingTakesThePackageAndItsListAndNoOther) {
    const auto tag = tagOf(u"TORQUE CREW A"_s);
    auto left = packages();
    left.removeOne(u"TORQUE CREW A"_s);
    const auto worksheets = values(u"select taskname from mt.hvm_kv_task_packages where tptype = 'WSHT'"_s);
    chooseRow(names(), u"TORQUE CREW A"_s);
    ui.expectBox(u"Are you sure you want to delete the selected task package?"_s, packagesTitle,
                 box::question, BoxAnswer::yes);
    press(u"CommandRemoveTP"_s);
    EXPECT_EQ(packages(), left);
    EXPECT_TRUE(members(tag).isEmpty());
    EXPECT_EQ(values(u"select taskname from mt.hvm_kv_task_packages where tptype = 'WSHT'"_s), worksheets);
    EXPECT_EQ(names().findText(u"TORQUE CREW A"_s), -1);
}

TEST_F(FormPredefinedTasksOnDatabase, ANameWithAQuoteIsSavedAndRemovedAndCantBeLoaded) {
    create(u"O'BRIEN"_s);
    option(u"Segregate"_s);
    setValue(u"LAB"_s);
    press(u"CommandSave"_s);
    EXPECT_TRUE(packages().contains(u"O'BRIEN"_s));
    ui.expectReport(1, u"FormPredefinedTasks,LoadPackage"_s);
    chooseRow(names(), u"O'BRIEN"_s);
    EXPECT_TRUE(ui.hasMetAll());
    EXPECT_EQ(names().currentText(), u"O'BRIEN"_s);
    ui.expectBox(u"Are you sure you want to delete the selected task package?"_s, packagesTitle,
                 box::question, BoxAnswer::yes);
    press(u"CommandRemoveTP"_s);
    EXPECT_FALSE(packages().contains(u"O'BRIEN"_s));
}

TEST_F(FormPredefinedTasksOnDatabase, AnInstrumentWithAQuoteInTheListKeepsThePackageFromBeingSaved) {
    execute(u"update mt.inventory set i4201 = 'TW''103' where i4201 = 'TW-103';commit"_s);
    chooseRow(names(), u"TORQUE CREW A"_s);
    const auto shown = rows();
    EXPECT_TRUE(shown.contains(u"TW'103"_s));
    const auto tag = tagOf(u"TORQUE CREW A"_s);
    controlNamed<TextBox>(u"TextNotes"_s).setText(u"x"_s);
    ui.expectReport(1, u"FormPredefinedTasks,CommandSave"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(rows(), shown);
    EXPECT_TRUE(controlNamed<QPushButton>(u"CommandSave"_s).isEnabled());
    // What was stored is still there, and the instrument is found.
    EXPECT_EQ(tagOf(u"TORQUE CREW A"_s), tag);
    EXPECT_EQ(members(tag).size(), shown.size());
    auto& list = controlNamed<QListWidget>(u"ListAssets"_s);
    ASSERT_TRUE(list.currentItem());
    EXPECT_EQ(list.currentItem()->text(), u"TW'103"_s);
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(FormPredefinedTasksOnDatabase, AFailedInsertUndoesTheDeletionAndCanBeRepeated) {
    chooseRow(names(), u"TORQUE CREW A"_s);
    const auto shown = rows();
    controlNamed<TextBox>(u"TextNotes"_s).setText(u"x"_s);
    session.SessionUser = u"o'hara"_s;
    ui.expectReport(1, u"FormPredefinedTasks,CommandSave"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(expand(u"TORQUE CREW A"_s), shown);
    EXPECT_EQ(rows(), shown);
    session.SessionUser = users::editor;
    press(u"CommandSave"_s);
    EXPECT_EQ(expand(u"TORQUE CREW A"_s), shown);
}

TEST_F(FormPredefinedTasksOnDatabase, AnInstrumentOfAnotherOwnerIsUnknown) {
    chooseRow(names(), u"TORQUE CREW A"_s);
    logIn(users::editorOfAbc);
    ui.expectBox(u"Must enter a valid instrument number!"_s, packagesTitle, box::warning);
    add(u"PT-101"_s);
}

TEST_F(FormPredefinedTasksOnDatabase, APackageRemovedByAnotherWorkstationIsMadeAnewByASave) {
    chooseRow(names(), u"UTILITIES"_s);
    execute(u"delete from mt.hvm_kv_task_packages where taskname = 'UTILITIES';commit"_s);
    setValue(u"LAB"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(expand(u"UTILITIES"_s), instruments(u"i4240 = 'LAB'"_s));
}

TEST_F(FormPredefinedTasksOnDatabase, ACancelFindsThatAnotherWorkstationRemovedThePackage) {
    chooseRow(names(), u"UTILITIES"_s);
    execute(u"delete from mt.hvm_kv_task_packages where taskname = 'UTILITIES';commit"_s);
    controlNamed<TextBox>(u"TextNotes"_s).setText(u"x"_s);
    ui.expectBox(discardChanges, packagesTitle, box::question, BoxAnswer::yes);
    press(u"CommandCancel"_s);
    EXPECT_EQ(names().findText(u"UTILITIES"_s), -1);
    EXPECT_EQ(names().currentIndex(), 0);
}

TEST_F(FormPredefinedTasksOnDatabase, ASaveReplacesWhatAnotherWorkstationSaved) {
    chooseRow(names(), u"UTILITIES"_s);
    execute(u"update mt.hvm_kv_task_packages set segregate = 'LAB', notes = 'Theirs' where taskname = "
            "'UTILITIES';commit"_s);
    controlNamed<TextBox>(u"TextNotes"_s).setText(u"Ours"_s);
    press(u"CommandSave"_s);
    EXPECT_EQ(expand(u"UTILITIES"_s), instruments(u"i4240 = 'UTIL'"_s));
    EXPECT_EQ(values(u"select notes from mt.hvm_kv_task_packages where taskname = 'UTILITIES'"_s),
              QStringList{u"Ours"_s});
}

TEST_F(FormPredefinedTasksOnDatabase, ABadStatementIsSavedAndFailsWhenThePackageIsUsed) {
    create(u"BAD"_s);
    option(u"SQL"_s);
    setSql(u"this is no statement"_s);
    press(u"CommandSave"_s);
    EXPECT_TRUE(packages().contains(u"BAD"_s));
    ui.expectReport(1, u"ModuleGlobals,GetAssetsInTaskPackage"_s);
    EXPECT_TRUE(expand(u"BAD"_s).isEmpty());
}

} // namespace kelvane::testing
