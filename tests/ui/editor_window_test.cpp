#include "tests/support/fixtures.h"
#include "ui/editor_window.h"

#include <QMdiArea>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

const QString discard = u"Are you sure you want to discard any changes made since last save?"_s;

/// An editor of a single number, which is its own sum.
class SomeEditor final : public EditorWindow {
  public:
    explicit SomeEditor(Session& session)
        : EditorWindow(session, ChildForm::FormTestMess, u"SomeEditor"_s, {.width = 4500, .height = 2250}) {
        setBody(new QWidget);
    }
    double Form_CheckSum() override { return content; }

    using EditorWindow::isChanged;
    using EditorWindow::isLoading;
    using EditorWindow::Loading;
    using EditorWindow::mayDiscard;
    using EditorWindow::Question;
    using EditorWindow::run;
    using EditorWindow::saveCheckSum;
    using EditorWindow::savedCheckSum;

    double content = 0;
};

} // namespace

class EditorWindowTest : public RecordedSession {
  protected:
    EditorWindowTest() : editor(new SomeEditor(session)) { editor->showIn(area); }

    QMdiArea area;
    QPointer<SomeEditor> editor;
};

TEST_F(EditorWindowTest, IsChangedWhenItsSumDiffersFromTheSavedOne) {
    EXPECT_FALSE(editor->isChanged());
    editor->content = 7;
    EXPECT_TRUE(editor->isChanged());
    editor->saveCheckSum();
    EXPECT_EQ(editor->savedCheckSum(), 7);
    EXPECT_FALSE(editor->isChanged());
}

TEST_F(EditorWindowTest, UnchangedItClosesWithoutAWord) {
    editor->close();
    EXPECT_FALSE(editor->isOpen());
}

TEST_F(EditorWindowTest, ChangedItAsksAndNoKeepsItOpen) {
    editor->content = 7;
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::no);
    editor->close();
    EXPECT_TRUE(editor->isOpen());
    ui.expectBox(discard, u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
    editor->close();
    EXPECT_FALSE(editor->isOpen());
}

TEST_F(EditorWindowTest, AQuestionOfItsOwnIsAskedAsItIs) {
    const SomeEditor::Question question{115, box::question, 102};
    EXPECT_TRUE(editor->mayDiscard(question));
    editor->content = 7;
    ui.expectBox(u"Are you sure you want to exit?"_s, u"File"_s, box::question, BoxAnswer::no);
    EXPECT_FALSE(editor->mayDiscard(question));
    ui.expectBox(u"Are you sure you want to exit?"_s, u"File"_s, box::question, BoxAnswer::yes);
    EXPECT_TRUE(editor->mayDiscard(question));
}

TEST_F(EditorWindowTest, WhileACommandRunsNoOtherDoesAndItStaysOpen) {
    int runs = 0;
    editor->content = 7;
    editor->run([&] {
        ++runs;
        editor->run([&] { ++runs; });
        editor->close();
        EXPECT_TRUE(editor->isOpen());
    });
    EXPECT_EQ(runs, 1);
    editor->run([&] { ++runs; });
    EXPECT_EQ(runs, 2);
}

TEST_F(EditorWindowTest, ACommandThatCanNotReportEndsAllTheSame) {
    ui.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    editor->run([] { throw makeError(ErrorNumber::pathFileAccess); });
    bool ran = false;
    editor->run([&] { ran = true; });
    EXPECT_TRUE(ran);
}

TEST_F(EditorWindowTest, LoadingEndsWithItsOutermostBlock) {
    EXPECT_FALSE(editor->isLoading());
    {
        const SomeEditor::Loading outer(*editor);
        {
            const SomeEditor::Loading inner(*editor);
            EXPECT_TRUE(editor->isLoading());
        }
        EXPECT_TRUE(editor->isLoading());
    }
    EXPECT_FALSE(editor->isLoading());
}

} // namespace kelvane::testing
