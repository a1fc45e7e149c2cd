// Each step of each save fails once, in each way: what was stored stays, what was entered stays.
#include "editors/cal_param/form_cal_param.h"
#include "editors/form_test_mess.h"
#include "editors/form_work_config.h"
#include "editors/predefined_tasks/form_predefined_tasks.h"
#include "editors/strategies/form_strategies.h"
#include "testkit/screen_operator.h"
#include "tests/editors/cal_param/cal_param_entry.h"
#include "tests/editors/editor_fixture.h"
#include "ui/open_windows.h"
#include "ui/text_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

OpenCalParam* openNone() {
    return nullptr;
}

ChildWindow& openStrategies(EditorFixture& place) {
    return place.show(new FormStrategies(place.session, openNone));
}

ChildWindow& openMessages(EditorFixture& place) {
    return place.show(new FormTestMess(place.session, openNone));
}

ChildWindow& openParameters(EditorFixture& place) {
    auto& form = place.show(new FormCalParam(place.session));
    place.simulatedOperator.entries = {u"PT-101"_s};
    form.chooseFirst();
    show(form, u"TextInputHigh"_s, u"251"_s);
    show(form, u"ListPreDisplay"_s, u"LABEL,PERMIT"_s);
    show(form, u"ListPostDisplay"_s, u"PERMIT"_s);
    return form;
}

ChildWindow& openPackages(EditorFixture& place) {
    return place.show(new FormPredefinedTasks(place.session));
}

/// One save: how the screen is opened and changed, and the button that saves.
struct EditorSave {
    const char* name;
    ChildWindow& (*prepare)(EditorFixture& place);
    QStringView button;
    /// False when the save is one text, which is carried out as a whole by itself.
    bool isTransaction = true;
    /// Something was entered that the save is to store.
    bool isTyped = true;
    QString user = users::editor;
};

const EditorSave saves[] = {
    {"Strategy",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openStrategies(place);
         place.simulatedOperator.entries = {u"33"_s};
         place.press(u"CommandAddTP"_s);
         return form;
     },
     u"CommandSave"},
    {"NewStrategy",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openStrategies(place);
         place.simulatedOperator.entries = {u"NEW"_s, u"10"_s, u"20"_s};
         for (const auto& button : {u"CommandAdd"_s, u"CommandAddTP"_s, u"CommandAddTP"_s})
             place.press(button);
         return form;
     },
     u"CommandSave"},
    {"RenamedStrategy",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openStrategies(place);
         place.simulatedOperator.entries = {u"RENAMED"_s};
         return form;
     },
     u"CommandRename", true, false},
    {"DeletedStrategy",
     [](EditorFixture& place) -> ChildWindow& {
         place.observer->execute(u"delete from mt.hvm_kv_proc_points where tp_name = ' FIRST';commit"_s);
         place.observer->execute(u"insert into mt.hvm_kv_proc_points (tp_name,test_point_seq,test_point_pct) "
                                 "values (' FIRST','0','50');commit"_s);
         return openStrategies(place);
     },
     u"CommandDeleteTS", false, false},
    {"Parameters", openParameters, u"CommandSave"},
    {"ClonedParameters",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openParameters(place);
         place.simulatedOperator.entries = {u"PT-102"_s};
         return form;
     },
     u"CommandClone"},
    {"Message",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openMessages(place);
         control<TextBox>(form, u"TextMessage"_s).setText(u"It's new"_s);
         return form;
     },
     u"CommandSave"},
    {"NewMessage",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openMessages(place);
         place.simulatedOperator.entries = {u"NEW"_s};
         return form;
     },
     u"CommandCreate", false, false},
    {"DeletedMessage", openMessages, u"CommandDelete", false, false},
    {"Package",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openPackages(place);
         control<TextBox>(form, u"TextNotes"_s).setText(u"It's new"_s);
         return form;
     },
     u"CommandSave"},
    {"NewPackage",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = openPackages(place);
         place.simulatedOperator.entries = {u"NEW"_s};
         place.press(u"CommandAddTP"_s);
         show(form, u"ListAssets"_s, u"PT-101,TW-101"_s);
         return form;
     },
     u"CommandSave"},
    {"RemovedPackage", openPackages, u"CommandRemoveTP", true, false},
    {"RecordConfiguration",
     [](EditorFixture& place) -> ChildWindow& {
         auto& form = place.show(new FormWorkConfig(place.session));
         auto& overdue = control<QCheckBox>(form, u"CheckOOC"_s);
         overdue.setChecked(!overdue.isChecked());
         delete control<QListWidget>(form, u"ListRequest"_s).takeItem(1);
         return form;
     },
     u"CommandSave", true, true, users::configurer},
};

} // namespace

class SaveFaults : public ::testing::TestWithParam<EditorSave> {
  protected:
    /// What the database holds after a save that nothing disturbs.
    static QStringList statementsOfSave() {
        EditorFixture place(GetParam().user);
        GetParam().prepare(place);
        place.press(GetParam().button.toString());
        EXPECT_EQ(place.simulatedOperator.reports, 0);
        return place.stored();
    }

    /// A save whose step `failing` fails so; false when it has no such step.
    bool failOnce(PlannedFault::Kind kind, int failing) {
        auto& form = GetParam().prepare(*place_);
        const auto before = place_->stored();
        EXPECT_NE(before, after_);
        const auto entered = EditorFixture::contents(form);
        place_->simulatedOperator.reports = 0;
        place_->fault = {.kind = kind, .failAt = failing};
        place_->press(GetParam().button.toString());
        const auto fault = place_->fault;
        place_->fault.failAt = -1;
        if (fault.reached) {
            EXPECT_GT(place_->simulatedOperator.reports, 0);
            const auto now = place_->stored();
            EXPECT_TRUE(now == before || now == after_);
            if (GetParam().isTransaction) {
                EXPECT_EQ(now, fault.committed ? after_ : before);
            }
            if (now == before)
                expectKept(form, entered);
        }
        form.unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (fault.lost || place_->stored() != before)
            place_ = std::make_unique<EditorFixture>(GetParam().user);
        return fault.reached;
    }

    void expectKept(ChildWindow& form, const QStringList& entered) {
        EXPECT_EQ(EditorFixture::contents(form), entered);
        EXPECT_FALSE(isWindowOpen(place_->session, u"FormCustomDialog"));
        if (!GetParam().isTyped)
            return;
        place_->simulatedOperator.boxes.clear();
        place_->simulatedOperator.answer = BoxAnswer::no;
        form.close();
        place_->simulatedOperator.answer = BoxAnswer::yes;
        EXPECT_TRUE(form.isOpen());
        EXPECT_TRUE(
            place_->simulatedOperator.boxes.value(0).startsWith(u"Are you sure you want to discard"_s))
            << place_->simulatedOperator.boxes.join(u'/').toStdString();
    }

    const QStringList after_ = statementsOfSave();
    std::unique_ptr<EditorFixture> place_ = std::make_unique<EditorFixture>(GetParam().user);
};

TEST_P(SaveFaults, LeaveTheStoredRowsWholeAndTheScreenAsItWas) {
    for (const auto kind :
         {PlannedFault::Kind::refused, PlannedFault::Kind::answerLost, PlannedFault::Kind::connectionLost}) {
        int failing = 0;
        while (true) {
            SCOPED_TRACE(::testing::Message() << "kind " << static_cast<int>(kind) << ", step " << failing);
            if (!failOnce(kind, failing))
                break;
            ASSERT_LT(++failing, 200);
        }
        EXPECT_GT(failing, 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Editors, SaveFaults, ::testing::ValuesIn(saves),
                         [](const auto& save) { return std::string(save.param.name); });

} // namespace kelvane::testing
