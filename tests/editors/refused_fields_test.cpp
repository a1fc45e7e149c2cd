// What the engine refuses, and what is no longer where it was: where the focus goes, what is said, what
// stays.
#include "editors/cal_param/form_cal_param.h"
#include "editors/predefined_tasks/form_predefined_tasks.h"
#include "editors/refusal.h"
#include "editors/strategies/form_strategies.h"
#include "testkit/screen_operator.h"
#include "tests/editors/cal_param/cal_param_entry.h"
#include "tests/editors/editor_fixture.h"
#include "ui/list_rows.h"
#include "ui/text_box.h"

#include <QComboBox>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString unknownNow(const QString& asset) {
    return u"Instrument \"%1\" is not known under this number any more: its number may have been changed on "
           "another workstation, or it belongs to another owner. Nothing was saved; what you entered is "
           "still on the screen."_s.arg(asset);
}

const QString discard = u"Are you sure you want to discard any changes made since last save?"_s;

} // namespace

class RefusedFields : public ::testing::Test {
  protected:
    FormCalParam& openParameters(const QString& asset) {
        auto& form = place.show(new FormCalParam(place.session));
        place.simulatedOperator.entries = {asset};
        form.chooseFirst();
        place.simulatedOperator.boxes.clear();
        return form;
    }
    void save() {
        place.simulatedOperator.boxes.clear();
        place.press(u"CommandSave"_s);
    }
    /// Closing asks, and the window stays.
    void expectUnsaved(ChildWindow& form) {
        place.simulatedOperator.boxes.clear();
        place.simulatedOperator.answer = BoxAnswer::no;
        form.close();
        EXPECT_TRUE(form.isOpen());
        EXPECT_EQ(place.simulatedOperator.boxes, QStringList{discard});
        place.simulatedOperator.answer = BoxAnswer::yes;
    }
    void executeElsewhere(const QString& statement) { place.database.executeElsewhere(statement); }

    EditorFixture place;
};

TEST_F(RefusedFields, OfTheParametersGetTheFocusWhereverTheyStand) {
    auto& form = openParameters(u"PT-101"_s);
    const auto before = place.stored();
    // Each is a number to the screen, or is not examined by it, and none to the engine.
    for (const auto& given : givenControls()) {
        if (!given.name.startsWith(u"Text"))
            continue;
        const auto name = given.name.toString();
        SCOPED_TRACE(name.toStdString());
        const auto value = shownBy(form, name);
        testing::show(form, name, u"1,000"_s);
        save();
        EXPECT_EQ(place.simulatedOperator.boxes.size(), 1);
        auto& field = control<QWidget>(form, name);
        EXPECT_TRUE(field.isVisible());
        EXPECT_TRUE(field.hasFocus());
        EXPECT_EQ(shownBy(form, name), u"1,000"_s);
        EXPECT_EQ(place.stored(), before);
        expectUnsaved(form);
        testing::show(form, name, value);
    }
    save();
    EXPECT_EQ(place.simulatedOperator.boxes, QStringList());
    form.close();
}

TEST_F(RefusedFields, OfTheParametersCanBeAMessageWhoseNameHoldsAQuote) {
    auto& form = openParameters(u"PT-101"_s);
    testing::show(form, u"ListPostDisplay"_s, u"LABEL,O'BRIEN"_s);
    const auto before = place.stored();
    save();
    auto& list = control<QListWidget>(form, u"ListPostDisplay"_s);
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_EQ(place.stored(), before);
}

TEST_F(RefusedFields, AnInstrumentThatWasRenumberedMeanwhileIsNamedAndNothingIsStored) {
    auto& form = openParameters(u"PT-101"_s);
    executeElsewhere(u"update mt.inventory set i4201 = 'PT-101A' where i4201 = 'PT-101';commit"_s);
    testing::show(form, u"TextInputHigh"_s, u"251"_s);
    const auto before = place.stored();
    save();
    EXPECT_EQ(place.simulatedOperator.boxes.size(), 2) << "the report, then what it means";
    EXPECT_EQ(place.simulatedOperator.boxes.last(), unknownNow(u"PT-101"_s));
    EXPECT_EQ(place.stored(), before);
    EXPECT_EQ(shownBy(form, u"TextInputHigh"_s), u"251"_s);
    expectUnsaved(form);
    // Under its number again it is saved.
    executeElsewhere(u"update mt.inventory set i4201 = 'PT-101' where i4201 = 'PT-101A';commit"_s);
    save();
    EXPECT_EQ(place.simulatedOperator.boxes, QStringList());
    EXPECT_NE(place.stored(), before);
}

TEST_F(RefusedFields, AnInstrumentOfAnotherOwnerIsNamedAndNothingIsStored) {
    place.logIn(users::editorOfAbc);
    auto& form = openParameters(u"ABC-PT-1"_s);
    for (const auto& [name, value] :
         std::initializer_list<std::pair<QString, QString>>{{u"ComboTSName"_s, u"5 POINT UP"_s},
                                                            {u"ComboInputUnits"_s, u"psi"_s},
                                                            {u"ComboOutputUnits"_s, u"mA"_s}})
        testing::show(form, name, value);
    const auto before = place.stored();
    save();
    EXPECT_EQ(place.simulatedOperator.boxes.value(1), unknownNow(u"ABC-PT-1"_s));
    EXPECT_EQ(place.stored(), before);
    expectUnsaved(form);
}

TEST_F(RefusedFields, OfAPackageIsTheInstrumentThatWasRenumbered) {
    auto& form = place.show(new FormPredefinedTasks(place.session));
    auto& list = control<QListWidget>(form, u"ListAssets"_s);
    ASSERT_GT(list.count(), 2);
    const auto asset = list.item(1)->text();
    executeElsewhere(u"update mt.inventory set i4201 = 'RENUMBERED' where i4201 = '%1';commit"_s.arg(asset));
    control<TextBox>(form, u"TextNotes"_s).setText(u"New"_s);
    const auto before = place.stored();
    save();
    EXPECT_EQ(place.simulatedOperator.boxes.value(1), unknownNow(asset));
    EXPECT_EQ(place.stored(), before);
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_TRUE(list.hasFocus());
    expectUnsaved(form);
}

TEST_F(RefusedFields, AStrategyThatWasDeletedMeanwhileIsNotRenamedAndCanBeSavedAgain) {
    auto& form =
        place.show(new FormStrategies(place.session, [] { return static_cast<OpenCalParam*>(nullptr); }));
    const auto name = shownBy(form, u"ComboTSNames"_s);
    const auto points = rowsOf(control<QListWidget>(form, u"ListPoints"_s));
    ASSERT_FALSE(points.isEmpty());
    const auto whole = place.stored();
    executeElsewhere(u"delete from mt.hvm_kv_proc_points where tp_name = '%1';commit"_s.arg(name));
    const auto before = place.stored();
    place.simulatedOperator.entries = {u"RENAMED"_s};
    place.press(u"CommandRename"_s);
    EXPECT_EQ(
        place.simulatedOperator.boxes,
        QStringList{u"This test strategy does not exist any more: it may have been deleted or renamed on "
                    "another workstation. Nothing was renamed; its test points are still on the screen."_s});
    EXPECT_EQ(place.stored(), before) << "no instrument was carried along to a name without points";
    EXPECT_EQ(rowsOf(control<QListWidget>(form, u"ListPoints"_s)), points);
    expectUnsaved(form);
    save();
    EXPECT_EQ(place.stored(), whole);
}

TEST(Refusal, FollowsFromTheColumnThatTheErrorNames) {
    const Error type{19, u"cannot store TEXT value in REAL column hvm_kv_tag_config.input_low"_s};
    const Error null{19, u"NOT NULL constraint failed: hvm_kv_tag_config.mtag (19)"_s};
    const Error quoted{1, u"null value in column \"mtag\" of relation \"t\" violates not-null constraint"_s};
    EXPECT_TRUE(namesColumn(type, "input_low"_L1));
    EXPECT_FALSE(namesColumn(type, "input_lo"_L1));
    EXPECT_FALSE(namesColumn(type, "low"_L1));
    EXPECT_FALSE(saysMissing(type, "input_low"_L1));
    EXPECT_TRUE(saysMissing(null, "mtag"_L1));
    EXPECT_TRUE(saysMissing(quoted, "mtag"_L1));
    EXPECT_FALSE(saysMissing({19, u"UNIQUE constraint failed: hvm_kv_tag_config.mtag"_s}, "mtag"_L1));
}

} // namespace kelvane::testing
