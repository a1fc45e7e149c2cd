#include "testkit/fixtures.h"
#include "ui/child_window.h"
#include "ui/qt_user_interface.h"
#include "ui/status_line.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

QT_BEGIN_NAMESPACE
/// The toolkit's own entry for what comes from a display server. Its header is none of the public ones; those
/// of the test library handle each event at once and leave nothing to wait in the queue.
class Q_GUI_EXPORT QWindowSystemInterface {
  public:
    struct AsynchronousDelivery {};
    template <class Delivery>
    static bool handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                               const QString& text, bool repeated, ushort count);
};
QT_END_NAMESPACE

namespace kelvane::testing {

namespace {

/// Counts the events of a kind that a widget gets.
class EventCount final : public QObject {
  public:
    EventCount(QWidget& watched, QEvent::Type type) : type_(type) { watched.installEventFilter(this); }
    int count = 0;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == type_ ? 1 : 0;
        return false;
    }

  private:
    QEvent::Type type_;
};

} // namespace

/// A main window with a field in it, and an operator interface without a simulated operator.
class Repaint : public RecordedSession {
  protected:
    Repaint() {
        window.setCentralWidget(area);
        window.setStatusBar(statusLine);
        window.resize(500, 400);
        auto* child = area->addSubWindow(field);
        child->setGeometry(50, 50, 200, 100);
        child->show();
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus();
        QCoreApplication::processEvents();
        operatorUi.attach(session, window, *area, *statusLine);
    }
    /// A key in the queue of the display server's events, where each key of a real one waits to be handled.
    void pressKey(Qt::Key key, const QString& letter) {
        QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::AsynchronousDelivery>(
            window.windowHandle(), QEvent::KeyPress, key, Qt::NoModifier, letter, false, 1);
    }

    QMainWindow window;
    QMdiArea* area = new QMdiArea;
    StatusLine* statusLine = new StatusLine(session);
    QLineEdit* field = new QLineEdit;
    QtUserInterface operatorUi;
};

TEST_F(Repaint, WhileALineIsPolledTheWindowIsPaintedAndNoKeyIsHandled) {
    EventCount painted(*field, QEvent::Paint);
    for (int poll = 1; poll <= 5; ++poll) {
        pressKey(Qt::Key_X, u"x"_s);
        field->update();
        operatorUi.repaint();
        EXPECT_GE(painted.count, poll);
        EXPECT_EQ(field->text(), QString());
    }
}

TEST_F(Repaint, PendingEventsBringKeysAtOnce) {
    pressKey(Qt::Key_X, u"x"_s);
    operatorUi.processEvents();
    EXPECT_EQ(field->text(), u"x"_s);
}

TEST_F(Repaint, WhatLayUnderABoxIsPaintedBeforeTheAnswerIsActedOn) {
    EventCount painted(*field, QEvent::Paint);
    QTimer::singleShot(0, &window, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        QCoreApplication::processEvents();
        painted.count = 0;
        box->buttons().first()->click();
    });
    operatorUi.messageBox(u"Text"_s, u"Title"_s, box::warning);
    EXPECT_GE(painted.count, 1);
}

TEST_F(Repaint, WhatLayUnderAQuestionIsPaintedBeforeTheAnswerIsActedOn) {
    EventCount painted(*field, QEvent::Paint);
    QTimer::singleShot(0, &window, [&] {
        auto* question = area->activeSubWindow();
        ASSERT_EQ(question->objectName(), u"FormCustomDialog"_s);
        QCoreApplication::processEvents();
        painted.count = 0;
        question->findChild<QPushButton*>(u"CommandCustomDialogOK"_s)->click();
    });
    EXPECT_EQ(operatorUi.askOneField({.caption = u"x"_s, .prompt = u"y"_s, .defaultText = u"z"_s}), u"z"_s);
    EXPECT_GE(painted.count, 1);
}

TEST_F(Repaint, AnActivityIsShownAtOnce) {
    auto* label = statusLine->findChild<QLabel*>(u"LabelActivity"_s);
    EventCount painted(*label, QEvent::Paint);
    operatorUi.setActivity(u"Downloading PT-101"_s);
    EXPECT_EQ(label->text(), u"Downloading PT-101"_s);
    EXPECT_GE(painted.count, 1);
    operatorUi.setActivity({});
    EXPECT_EQ(label->text(), QString());
}

TEST_F(Repaint, ASecondQuestionBringsTheOpenOneToTheFront) {
    QTimer::singleShot(0, &window, [&] {
        auto* question = area->activeSubWindow();
        ASSERT_EQ(question->objectName(), u"FormCustomDialog"_s);
        area->setActiveSubWindow(area->subWindowList().first());
        EXPECT_NE(area->activeSubWindow(), question);
        EXPECT_EQ(operatorUi.askOneField({.caption = u"second"_s, .prompt = u"y"_s}), u"*CANCEL*"_s);
        EXPECT_EQ(area->activeSubWindow(), question);
        EXPECT_EQ(question->windowTitle(), u"first"_s);
        area->setActiveSubWindow(area->subWindowList().first());
        EXPECT_TRUE(operatorUi.bringQuestionForward());
        EXPECT_EQ(area->activeSubWindow(), question);
        question->findChild<QPushButton*>(u"CommandCustomDialogOK"_s)->click();
    });
    operatorUi.askOneField({.caption = u"first"_s, .prompt = u"y"_s, .defaultText = u"z"_s});
    EXPECT_FALSE(operatorUi.bringQuestionForward());
}

} // namespace kelvane::testing
