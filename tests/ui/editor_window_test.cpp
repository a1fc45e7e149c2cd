#include "ui/editor_window.h"

#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "ui/guarded.h"
#include "ui/open_windows.h"

#include <QDir>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString discard = u"Are you sure you want to discard any changes made since last save?"_s;

/// An editor of one field. Its sum is the length of what stands there.
class SomeEditor : public EditorWindow {
  public:
    explicit SomeEditor(Session& session)
        : EditorWindow(session, u"SomeEditor"_s, {.width = 4500, .height = 2250}), field(new QLineEdit) {
        setBody(field);
        saveCheckSum();
        connectGuarded(field, &QLineEdit::textChanged, this, session_.ui, [this] {
            if (!isLoading())
                ++changes;
        });
    }
    double Form_CheckSum() override { return static_cast<double>(field->text().size()); }

    using EditorWindow::confirms;
    using EditorWindow::isChanged;
    using EditorWindow::isLoading;
    using EditorWindow::Loading;
    using EditorWindow::mayDiscard;
    using EditorWindow::Question;
    using EditorWindow::run;
    using EditorWindow::saveCheckSum;
    using EditorWindow::savedCheckSum;

    QLineEdit* field;
    int changes = 0;
};

/// One with a question of its own.
class OtherEditor final : public SomeEditor {
  public:
    using SomeEditor::SomeEditor;
    Question closeQuestion() const override {
        return {TextId::confirmDiscardChanges, box::question, TextId::recordConfiguration};
    }
};

} // namespace

class EditorWindowTest : public RecordedSession {
  protected:
    EditorWindowTest() {
        window.setCentralWidget(area);
        window.resize(665, 551);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    template <class Editor>
    Editor& open() {
        auto* made = new Editor(session);
        made->showIn(*area);
        return *made;
    }

    QMainWindow window;
    QMdiArea* area = new QMdiArea;
};

TEST_F(EditorWindowTest, IsChangedWhileItsSumDiffersFromTheSavedOne) {
    auto& editor = open<SomeEditor>();
    EXPECT_FALSE(editor.isChanged());
    QTest::keyClicks(editor.field, u"abc"_s);
    EXPECT_TRUE(editor.isChanged());
    editor.saveCheckSum();
    EXPECT_EQ(editor.savedCheckSum(), 3);
    EXPECT_FALSE(editor.isChanged());
    // The sum is the definition of a change.
    editor.field->setText(u"xyz"_s);
    EXPECT_FALSE(editor.isChanged());
}

TEST_F(EditorWindowTest, ClosesWithoutAQuestionWhenNothingIsChanged) {
    auto& editor = open<SomeEditor>();
    editor.close();
    EXPECT_FALSE(editor.isOpen());
    EXPECT_FALSE(isWindowOpen(session, u"SomeEditor"));
}

TEST_F(EditorWindowTest, AsksBeforeChangesGoAndStaysOnNo) {
    auto& editor = open<SomeEditor>();
    editor.field->setText(u"abc"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    editor.close();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(editor.field->text(), u"abc"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
    editor.close();
    EXPECT_FALSE(editor.isOpen());
}

TEST_F(EditorWindowTest, AsksItsOwnQuestionWhereItHasOne) {
    auto& editor = open<OtherEditor>();
    editor.field->setText(u"abc"_s);
    ui.expectBox(u"Are you sure you want to discard changes made?"_s, u"Calibration Record Configuration"_s,
                 box::question, BoxAnswer::yes);
    editor.close();
    EXPECT_FALSE(editor.isOpen());
}

TEST_F(EditorWindowTest, AQuestionAnsweredWithYesAloneLetsChangesGo) {
    auto& editor = open<SomeEditor>();
    const SomeEditor::Question question{TextId::confirmDiscardSinceSave, box::question,
                                        TextId::applicationName};
    EXPECT_TRUE(editor.mayDiscard(question));
    editor.field->setText(u"abc"_s);
    for (const auto answer : {BoxAnswer::yes, BoxAnswer::no, BoxAnswer::cancel}) {
        ui.expectBox(discard, u"Kelvane"_s, box::question, answer);
        EXPECT_EQ(editor.mayDiscard(question), answer == BoxAnswer::yes);
        ui.expectBox(discard, u"Kelvane"_s, box::question, answer);
        EXPECT_EQ(editor.confirms(question), answer == BoxAnswer::yes);
    }
}

TEST_F(EditorWindowTest, IsNotAskedTwiceWhenAskedToCloseDuringTheQuestion) {
    auto& editor = open<SomeEditor>();
    editor.field->setText(u"abc"_s);
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
    ui.onBox = [&] {
        editor.close();
        EXPECT_TRUE(editor.isOpen());
    };
    editor.close();
    EXPECT_FALSE(editor.isOpen());
    ui.onBox = {};
}

TEST_F(EditorWindowTest, WhileACommandRunsNoOtherDoesAndItStaysOpen) {
    auto& editor = open<SomeEditor>();
    QStringList ran;
    editor.run([&] {
        editor.run([&] { ran << u"inner"_s; });
        editor.close();
        EXPECT_TRUE(editor.isOpen());
        ran << u"outer"_s;
    });
    EXPECT_EQ(ran, QStringList{u"outer"_s});
    editor.run([&] { ran << u"next"_s; });
    EXPECT_EQ(ran.last(), u"next"_s);
    editor.close();
    EXPECT_FALSE(editor.isOpen());
}

TEST_F(EditorWindowTest, AnErrorOfACommandEndsItAndTheNextOneRuns) {
    auto& editor = open<SomeEditor>();
    ui.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    editor.run([] { throw makeError(ErrorNumber::pathFileAccess); });
    bool ran = false;
    editor.run([&] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST_F(EditorWindowTest, HandlersOfChangesRestWhileTheProgramLoads) {
    auto& editor = open<SomeEditor>();
    {
        const SomeEditor::Loading loading(editor);
        editor.field->setText(u"loaded"_s);
        { const SomeEditor::Loading inner(editor); }
        EXPECT_TRUE(editor.isLoading());
        editor.field->setText(u"loaded again"_s);
    }
    EXPECT_EQ(editor.changes, 0);
    QTest::keyClicks(editor.field, u"!"_s);
    EXPECT_EQ(editor.changes, 1);
}

} // namespace kelvane::testing
