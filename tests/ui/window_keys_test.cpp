#include "ui/window_keys.h"

#include "testkit/scripted_user_interface.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(WindowKeys, F10OpensTheFirstMenuThatCanBeChosen) {
    ScriptedUserInterface ui;
    QMainWindow window;
    auto* hidden = window.menuBar()->addMenu(u"Hidden"_s);
    auto* file = window.menuBar()->addMenu(u"File"_s);
    file->addAction(u"Exit"_s);
    hidden->menuAction()->setVisible(false);
    bindMenuKey(window, ui);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.menuBar()->setEnabled(false);
    QTest::keyClick(window.windowHandle(), Qt::Key_F10);
    EXPECT_FALSE(file->isVisible());
    window.menuBar()->setEnabled(true);
    QTest::keyClick(window.windowHandle(), Qt::Key_F10);
    EXPECT_TRUE(file->isVisible());
    file->close();
}

TEST(WindowKeys, ReturnIsForTheButtonThatHasTheFocus) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* field = new QLineEdit;
    auto* button = new QPushButton(u"Button"_s);
    column->addWidget(field);
    column->addWidget(button);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field->setFocus();
    EXPECT_EQ(buttonOfReturn(window, Qt::Key_Return), nullptr);
    button->setFocus();
    EXPECT_EQ(buttonOfReturn(window, Qt::Key_Return), button);
    EXPECT_EQ(buttonOfReturn(window, Qt::Key_Enter), button);
    EXPECT_EQ(buttonOfReturn(window, Qt::Key_Space), nullptr);
}

} // namespace kelvane::testing
