#include "ui/date_field.h"

#include "testkit/fixtures.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A field that shows 2024-10-31, between two other fields.
class DateFieldInWindow : public ::testing::Test {
  protected:
    DateFieldInWindow() {
        auto* column = new QVBoxLayout(&window);
        for (QWidget* control : std::initializer_list<QWidget*>{before, &field, after})
            column->addWidget(control);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        begin();
    }

    /// Shows the first day again, and comes by Tab.
    void begin() {
        field.setDate(first);
        before->setFocus();
        QTest::keyClick(before, Qt::Key_Tab);
        EXPECT_TRUE(field.hasFocus());
    }
    void selectAll() { QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier); }
    void type(const QString& keys) { QTest::keyClicks(&field, keys); }
    /// Goes on by Tab, which walks through the parts; what then stands there is the value.
    QString leave() {
        for (int part = 0; part < 3 && field.hasFocus(); ++part)
            QTest::keyClick(&field, Qt::Key_Tab);
        EXPECT_TRUE(after->hasFocus());
        EXPECT_EQ(field.text(), field.date().toString(Qt::ISODate));
        return field.text();
    }
    QString typeAndLeave(const QString& keys) {
        type(keys);
        return leave();
    }

    const QDate first{2024, 10, 31};
    QWidget window;
    QLineEdit* before = new QLineEdit;
    DateField field;
    QLineEdit* after = new QLineEdit;
};

TEST_F(DateFieldInWindow, TakesATypedDayHoweverItIsBegunAndSeparated) {
    const struct {
        QString typed;
        QString day;
    } rows[] = {
        {u"2018-06-15"_s, u"2018-06-15"_s},   {u"20180615"_s, u"2018-06-15"_s},
        {u"2018.06.15"_s, u"2018-06-15"_s},   {u"2018/06/15"_s, u"2018-06-15"_s},
        {u"2018 06 15"_s, u"2018-06-15"_s},   {u"2018--06--15"_s, u"2018-06-15"_s},
        {u"2018-6-5"_s, u"2018-06-05"_s},     {u"2018-1-5"_s, u"2018-01-05"_s},
        {u"2018-12-3"_s, u"2018-12-03"_s},    {u"2020-02-29"_s, u"2020-02-29"_s},
        {u"1900-01-01"_s, u"1900-01-01"_s},   {u"9999-12-31"_s, u"9999-12-31"_s},
        {u"2024-10-31"_s, u"2024-10-31"_s},   {u"2018"_s, u"2018-10-31"_s},
        {u"2018-06"_s, u"2018-06-30"_s},      {u"2018-06-15-"_s, u"2018-06-15"_s},
        {u"2018-06-1x5;"_s, u"2018-06-15"_s},
    };
    for (const auto& row : rows) {
        begin();
        EXPECT_EQ(typeAndLeave(row.typed), row.day) << row.typed.toStdString();
        begin();
        selectAll();
        EXPECT_EQ(typeAndLeave(row.typed), row.day) << "over all: " << row.typed.toStdString();
        begin();
        selectAll();
        QTest::keyClick(&field, Qt::Key_Backspace);
        EXPECT_EQ(typeAndLeave(row.typed), row.day) << "over nothing: " << row.typed.toStdString();
        begin();
        QTest::keyClick(&field, Qt::Key_Home);
        EXPECT_EQ(typeAndLeave(row.typed), row.day) << "behind Home: " << row.typed.toStdString();
    }
}

TEST_F(DateFieldInWindow, OfWhatIsNoDayKeepsTheDayBefore) {
    for (const auto& typed :
         {u"2021-02-30"_s, u"20210230"_s, u"2021-02-33"_s, u"2019-02-29"_s, u"2018-04-31"_s, u"2018-10-32"_s,
          u"2018-00-10"_s, u"2018-13-05"_s, u"2018-06-00"_s, u"1850-01-01"_s, u"1111-11-11"_s, u"20-01-05"_s,
          u"18-06-15"_s, u"0"_s, u"2"_s, u"20"_s, u"201"_s}) {
        begin();
        EXPECT_EQ(typeAndLeave(typed), u"2024-10-31"_s) << typed.toStdString();
        begin();
        selectAll();
        EXPECT_EQ(typeAndLeave(typed), u"2024-10-31"_s) << "over all: " << typed.toStdString();
    }
}

TEST_F(DateFieldInWindow, BehindARefusedDayTakesAnotherOne) {
    type(u"2021-02-30"_s);
    EXPECT_EQ(field.text(), u"2024-10-31"_s);
    EXPECT_EQ(field.findChild<QLineEdit*>()->selectedText(), u"2024-10-31"_s);
    EXPECT_EQ(typeAndLeave(u"2021-02-28"_s), u"2021-02-28"_s);
}

TEST_F(DateFieldInWindow, ChangesOnePart) {
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_EQ(typeAndLeave(u"06"_s), u"2024-06-30"_s);
    begin();
    type(u"-"_s);
    EXPECT_EQ(typeAndLeave(u"1"_s), u"2024-01-31"_s);
    field.setDate({2024, 10, 4});
    field.setFocus(Qt::TabFocusReason);
    field.setSelectedSection(QDateTimeEdit::DaySection);
    EXPECT_EQ(typeAndLeave(u"4"_s), u"2024-10-04"_s) << "the same one again";
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&field, Qt::Key_End);
    EXPECT_EQ(typeAndLeave(u"17"_s), u"2024-10-17"_s);
}

TEST_F(DateFieldInWindow, TakesBackspaceWhileADayIsTyped) {
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(typeAndLeave(u"2018-06-15"_s), u"2018-06-15"_s);
    begin();
    type(u"202"_s);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(typeAndLeave(u"18-06-15"_s), u"2018-06-15"_s);
    begin();
    type(u"2018-1"_s);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(typeAndLeave(u"06-15"_s), u"2018-06-15"_s);
    begin();
    type(u"2018-06-15"_s);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(typeAndLeave(u"6"_s), u"2018-06-16"_s);
}

TEST_F(DateFieldInWindow, HasNoMenuThatWouldPasteIntoTheDayThatStandsThere) {
    QTimer::singleShot(0, &field, [] {
        if (auto* menu = QApplication::activePopupWidget()) {
            ADD_FAILURE() << "a menu";
            menu->close();
        }
    });
    for (QWidget* clicked :
         {static_cast<QWidget*>(&field), field.findChild<QWidget*>(u"qt_spinbox_lineedit"_s)}) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {4, 4}, clicked->mapToGlobal(QPoint(4, 4)));
        QApplication::sendEvent(clicked, &event);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(field.date(), first);
}

TEST_F(DateFieldInWindow, PastesAWholeDayWhicheverPartIsSelected) {
    const auto paste = [&](const QString& pasted) {
        QApplication::clipboard()->setText(pasted);
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    };
    paste(u"2018-06-15"_s);
    EXPECT_EQ(leave(), u"2018-06-15"_s);
    begin();
    selectAll();
    paste(u" 2020-01-02\n"_s);
    EXPECT_EQ(leave(), u"2020-01-02"_s);
    for (const auto& wrong : {u"2021-02-30"_s, u"1850-01-01"_s, u"yesterday"_s, QString()}) {
        begin();
        paste(wrong);
        EXPECT_EQ(leave(), u"2024-10-31"_s) << wrong.toStdString();
    }
}

TEST_F(DateFieldInWindow, StepsThePartOfTheCursorByUpAndDown) {
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.date(), QDate(2025, 10, 31));
    type(u"2018-"_s);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.date(), QDate(2018, 9, 30));
    type(u"-15"_s);
    EXPECT_EQ(leave(), u"2018-09-15"_s);
}

TEST_F(DateFieldInWindow, ThatIsEnteredBackwardsBeginsWithTheYear) {
    after->setFocus();
    QTest::keyClick(after, Qt::Key_Tab, Qt::ShiftModifier);
    ASSERT_TRUE(field.hasFocus());
    EXPECT_EQ(typeAndLeave(u"2018-06-15"_s), u"2018-06-15"_s);
}

TEST_F(DateFieldInWindow, PassesReturnOnWithTheDayThatStandsThere) {
    struct : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return)
                ++returns;
            return false;
        }
        int returns = 0;
    } watch;
    window.installEventFilter(&watch);
    for (const bool isTracking : {true, false}) {
        begin();
        field.setKeyboardTracking(isTracking);
        type(u"2018-06-15"_s);
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(field.text(), u"2018-06-15"_s);
        EXPECT_EQ(field.date(), QDate(2018, 6, 15));
        type(u"2021-02-30"_s);
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_EQ(field.text(), field.date().toString(Qt::ISODate));
    }
    EXPECT_EQ(watch.returns, 4);
}

TEST_F(DateFieldInWindow, BeginsWith1900) {
    field.setDate({1899, 12, 31});
    EXPECT_EQ(leave(), u"1900-01-01"_s);
}

TEST_F(DateFieldInWindow, GivesCommandsWithADigitOn) {
    QTest::keyClick(&field, Qt::Key_2, Qt::AltModifier);
    EXPECT_EQ(leave(), u"2024-10-31"_s);
}

} // namespace kelvane::testing
