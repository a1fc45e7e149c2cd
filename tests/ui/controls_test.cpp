#include "resources/text_id.h"
#include "testkit/fixtures.h"
#include "ui/controls.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QListView>
#include <QTest>
#include <QWheelEvent>

#include <memory>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

TEST(Controls, CarryTheirNamesAndToolTips) {
    const std::unique_ptr<QPushButton> made(
        button(u"CommandExit"_s, TextId::exitCommand, TextId::loginExitTip));
    EXPECT_EQ(made->objectName(), u"CommandExit"_s);
    EXPECT_EQ(made->text(), u"Exit"_s);
    EXPECT_EQ(made->accessibleName(), u"Exit"_s);
    EXPECT_EQ(made->toolTip(), u"Exit Kelvane"_s);
    QWidget control;
    const std::unique_ptr<QLabel> beside(labelFor(&control, u"Label1"_s, TextId::userName));
    EXPECT_EQ(beside->buddy(), &control);
    EXPECT_EQ(beside->text(), u"Username:"_s);
}

TEST(DropDowns, KeepTheirWidthWhateverTheirRowsAre) {
    const std::unique_ptr<QComboBox> list(dropDown(u"ComboTSName"_s, u"Strategy"_s, {}));
    keepWidth(list.get());
    const auto before = list->sizeHint();
    list->addItem(u"x"_s.repeated(500));
    EXPECT_EQ(list->sizeHint(), before);
    EXPECT_LE(list->minimumSizeHint().width(), before.width());
}

TEST(DropDowns, TurnWithTheWheelOnlyWhileTheyHaveTheFocus) {
    QWidget window;
    auto* row = new QHBoxLayout(&window);
    auto* list = dropDown(u"ComboTSName"_s, u"Strategy"_s, {}, {u"FIVE"_s, u"UP DOWN"_s});
    auto* other = button(u"CommandExit"_s, TextId::exitCommand, TextId::loginExitTip);
    row->addWidget(list);
    row->addWidget(other);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto turn = [list] {
        const QPointF middle = list->rect().center();
        QWheelEvent event(middle, list->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(list, &event);
    };
    other->setFocus();
    turn();
    EXPECT_EQ(list->currentText(), u"FIVE"_s);
    EXPECT_TRUE(other->hasFocus());
    list->setFocus();
    turn();
    EXPECT_EQ(list->currentText(), u"UP DOWN"_s);
}

TEST(DropDowns, DoNotMeasureEachOfManyRows) {
    const std::unique_ptr<QComboBox> list(dropDown(u"ComboTSName"_s, u"Strategy"_s, {}));
    keepWidth(list.get());
    const auto* rows = qobject_cast<const QListView*>(list->view());
    ASSERT_NE(rows, nullptr);
    EXPECT_TRUE(rows->uniformItemSizes());
}

} // namespace kelvane::testing
