#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "ui/child_window.h"
#include "ui/open_windows.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A screen of 300 x 150 pixels with a field and three buttons.
class SomeScreen final : public ChildWindow {
  public:
    explicit SomeScreen(Session& session)
        : ChildWindow(session, u"SomeScreen"_s, {.width = 4500, .height = 2250}),
          field(new QLineEdit),
          accept(new QPushButton(u"Accept"_s)),
          other(new QPushButton(u"Other"_s)),
          cancel(new QPushButton(u"Cancel"_s)) {
        auto* body = new QWidget;
        auto* column = new QVBoxLayout(body);
        column->setContentsMargins(2, 2, 2, 2);
        for (auto* widget : {static_cast<QWidget*>(field), static_cast<QWidget*>(accept),
                             static_cast<QWidget*>(other), static_cast<QWidget*>(cancel)})
            column->addWidget(widget);
        setBody(body);
        setDefaultButton(accept);
        setCancelButton(cancel);
        setFirstFocus(field);
        for (auto* button : {accept, other, cancel})
            connect(button, &QPushButton::clicked, this, [this, button] { clicked << button->text(); });
    }
    bool mayClose() override {
        ++askedToClose;
        return willing;
    }

    QLineEdit* field;
    QPushButton* accept;
    QPushButton* other;
    QPushButton* cancel;
    QStringList clicked;
    int askedToClose = 0;
    bool willing = true;
};

} // namespace

namespace {

/// A screen with a tab control, on whose first page stands another one, and a field beside them.
class ScreenOfPages final : public ChildWindow {
  public:
    explicit ScreenOfPages(Session& session)
        : ChildWindow(session, u"ScreenOfPages"_s, {.width = 4500, .height = 4500}) {
        auto* body = new QWidget;
        auto* column = new QVBoxLayout(body);
        for (auto* tabs : {outer, inner}) {
            for (const auto& page : {u"one"_s, u"two"_s, u"three"_s}) {
                auto* field = new QLineEdit;
                field->setObjectName(page);
                tabs->addTab(field, page);
            }
        }
        outer->insertTab(0, inner, u"inner"_s);
        outer->setCurrentIndex(0);
        column->addWidget(outer);
        column->addWidget(beside);
        setBody(body);
    }
    QTabWidget* outer = new QTabWidget;
    QTabWidget* inner = new QTabWidget;
    QLineEdit* beside = new QLineEdit;
};

} // namespace

class ChildWindowTest : public RecordedSession {
  protected:
    ChildWindowTest() {
        window.setCentralWidget(area);
        window.resize(665, 551);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    SomeScreen& open() {
        auto* made = new SomeScreen(session);
        made->showIn(*area);
        return *made;
    }
    bool flag() { return isWindowOpen(session, u"SomeScreen"); }

    QMainWindow window;
    QMdiArea* area = new QMdiArea;
};

TEST_F(ChildWindowTest, OpensAtItsOwnPlaceWithItsFrameInsideTheGivenSize) {
    auto& screen = open();
    EXPECT_EQ(screen.geometry(), QRect(7, 5, 300, 150));
    EXPECT_EQ(screen.minimumSize(), screen.maximumSize());
    EXPECT_EQ(screen.objectName(), u"SomeScreen"_s);
    EXPECT_TRUE(screen.field->hasFocus());
}

TEST_F(ChildWindowTest, OpensAtTheStoredPositionInTwips) {
    settings.values.insert(u"Left/SomeScreen"_s, u"1500"_s);
    settings.values.insert(u"Top/SomeScreen"_s, u"750"_s);
    EXPECT_EQ(open().pos(), QPoint(100, 50));
}

TEST_F(ChildWindowTest, APositionBeyondTheAreaIsMovedIntoView) {
    const QSize space = area->viewport()->size();
    const QPoint farthest(space.width() - 300, space.height() - 150);
    const struct {
        QStringView left;
        QStringView top;
        QPoint expected;
    } rows[] = {
        {u"-3000", u"-15", {0, 0}},
        {u"99999", u"99999", farthest},
        {u"1e300", u"-1e300", {farthest.x(), 0}},
        {u"garbage", u"150 px", {0, 10}},
        {u"1500", u"600000", {100, farthest.y()}},
    };
    for (const auto& row : rows) {
        settings.values.insert(u"Left/SomeScreen"_s, row.left.toString());
        settings.values.insert(u"Top/SomeScreen"_s, row.top.toString());
        auto& screen = open();
        EXPECT_EQ(screen.pos(), row.expected) << row.left.toString().toStdString();
        screen.unload();
    }
}

TEST_F(ChildWindowTest, AWindowLargerThanTheAreaKeepsItsTitleInView) {
    window.resize(200, 120);
    settings.values.insert(u"Left/SomeScreen"_s, u"3000"_s);
    settings.values.insert(u"Top/SomeScreen"_s, u"3000"_s);
    EXPECT_EQ(open().pos(), QPoint(0, 0));
}

TEST_F(ChildWindowTest, ClosingStoresThePositionInTwipsUnderTheWindowsName) {
    auto& screen = open();
    screen.move(20, 30);
    screen.close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/SomeScreen=300"_s, u"Top/SomeScreen=450"_s}));
}

TEST_F(ChildWindowTest, APositionThatTheUserDidNotChangeStaysInTheSettingsAsItStands) {
    const struct {
        QString left;
        QString top;
    } rows[] = {
        {u"99999"_s, u"99999"_s}, {u"-3000"_s, u"-15"_s}, {u"1507"_s, u"752"_s}, {u"1e300"_s, u"garbage"_s}};
    for (const auto& row : rows) {
        settings.values.insert(u"Left/SomeScreen"_s, row.left);
        settings.values.insert(u"Top/SomeScreen"_s, row.top);
        auto& screen = open();
        QCoreApplication::processEvents();
        screen.close();
        EXPECT_EQ(settings.values.value(u"Left/SomeScreen"_s), row.left);
        EXPECT_EQ(settings.values.value(u"Top/SomeScreen"_s), row.top);
    }
}

TEST_F(ChildWindowTest, EachEdgeThatTheUserDidNotChangeStaysAsItStands) {
    settings.values.insert(u"Left/SomeScreen"_s, u"99999"_s);
    settings.values.insert(u"Top/SomeScreen"_s, u"150"_s);
    auto& screen = open();
    screen.move(screen.x(), 40);
    screen.close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/SomeScreen=99999"_s, u"Top/SomeScreen=600"_s}));
}

TEST_F(ChildWindowTest, ScrollingTheAreaIsNoMove) {
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    auto& screen = open();
    window.resize(150, 120);
    QCoreApplication::processEvents();
    ASSERT_GT(area->horizontalScrollBar()->maximum(), 0);
    area->horizontalScrollBar()->setValue(area->horizontalScrollBar()->maximum());
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    EXPECT_LT(screen.x(), 7);
    screen.close();
    EXPECT_EQ(settings.writes, (QStringList{u"Left/SomeScreen=105"_s, u"Top/SomeScreen=75"_s}));
}

TEST_F(ChildWindowTest, TheFlagStandsFromMakingToClosing) {
    EXPECT_FALSE(flag());
    auto& screen = open();
    EXPECT_TRUE(flag());
    EXPECT_TRUE(screen.isOpen());
    screen.close();
    EXPECT_FALSE(flag());
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(ChildWindowTest, ANewWindowKeepsItsFlagWhenTheOldOnesMemoryGoes) {
    const QPointer old = &open();
    old->close();
    open();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(old.isNull());
    EXPECT_TRUE(flag());
}

TEST_F(ChildWindowTest, AWindowThatIsDestroyedClearsItsFlag) {
    delete &open();
    EXPECT_FALSE(flag());
}

TEST_F(ChildWindowTest, ARefusedRequestLeavesTheWindowAsItIs) {
    auto& screen = open();
    screen.willing = false;
    EXPECT_FALSE(screen.close());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(flag());
    EXPECT_TRUE(settings.writes.isEmpty());
}

TEST_F(ChildWindowTest, UnloadingDoesNotAsk) {
    auto& screen = open();
    screen.willing = false;
    screen.unload();
    EXPECT_EQ(screen.askedToClose, 0);
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(ChildWindowTest, ShowingItAgainBringsItForwardWhereItStands) {
    auto& screen = open();
    screen.move(60, 70);
    auto* second = area->addSubWindow(new QLineEdit);
    second->show();
    area->setActiveSubWindow(second);
    screen.showIn(*area);
    EXPECT_EQ(area->activeSubWindow(), &screen);
    EXPECT_EQ(screen.pos(), QPoint(60, 70));
}

TEST_F(ChildWindowTest, ReturnClicksTheDefaultButton) {
    auto& screen = open();
    QTest::keyClick(screen.field, Qt::Key_Return);
    QTest::keyClick(screen.field, Qt::Key_Enter);
    EXPECT_EQ(screen.clicked, (QStringList{u"Accept"_s, u"Accept"_s}));
}

TEST_F(ChildWindowTest, ReturnClicksTheButtonThatHasTheFocus) {
    auto& screen = open();
    screen.other->setFocus();
    QTest::keyClick(screen.other, Qt::Key_Return);
    EXPECT_EQ(screen.clicked, QStringList{u"Other"_s});
}

TEST_F(ChildWindowTest, EscapeClicksTheCancelButton) {
    auto& screen = open();
    QTest::keyClick(screen.field, Qt::Key_Escape);
    screen.other->setFocus();
    QTest::keyClick(screen.other, Qt::Key_Escape);
    EXPECT_EQ(screen.clicked, (QStringList{u"Cancel"_s, u"Cancel"_s}));
}

TEST_F(ChildWindowTest, ADisabledDefaultButtonIsNotClicked) {
    auto& screen = open();
    screen.accept->setEnabled(false);
    QTest::keyClick(screen.field, Qt::Key_Return);
    EXPECT_TRUE(screen.clicked.isEmpty());
}

TEST_F(ChildWindowTest, ControlF4ClosesAndControlWDoesNot) {
    auto& screen = open();
    QTest::keyClick(screen.field, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(screen.isOpen());
    QTest::keyClick(screen.field, Qt::Key_F4, Qt::ControlModifier);
    EXPECT_FALSE(screen.isOpen());
}

TEST_F(ChildWindowTest, ControlWithPageDownAndPageUpChangesThePagesAroundTheFocus) {
    auto* screen = new ScreenOfPages(session);
    screen->showIn(*area);
    const auto press = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
    };
    screen->inner->currentWidget()->setFocus();
    press(Qt::Key_PageDown);
    EXPECT_EQ(screen->inner->currentIndex(), 1);
    EXPECT_EQ(screen->outer->currentIndex(), 0);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(screen->inner->currentIndex(), 2);
    screen->beside->setFocus();
    press(Qt::Key_PageDown);
    EXPECT_EQ(screen->outer->currentIndex(), 1);
    EXPECT_EQ(screen->inner->currentIndex(), 2);
    screen->outer->currentWidget()->setFocus();
    press(Qt::Key_PageDown);
    EXPECT_EQ(screen->outer->currentIndex(), 2);
    press(Qt::Key_PageUp);
    EXPECT_EQ(screen->outer->currentIndex(), 1);
}

TEST_F(ChildWindowTest, GrowsWhereTheFontNeedsMoreSpace) {
    const auto before = QApplication::font();
    QApplication::setFont(QFont(before.family(), 24));
    QCoreApplication::processEvents();
    auto& screen = open();
    EXPECT_GT(screen.height(), 150);
    EXPECT_GE(screen.accept->height(), screen.accept->minimumSizeHint().height());
    QApplication::setFont(before);
}

TEST_F(ChildWindowTest, TheMainWindowGrowsWithAScreenWhoseFontNeedsMoreSpaceButNotBeyondTheDisplay) {
    const auto before = QApplication::font();
    const auto after = qScopeGuard([&] { QApplication::setFont(before); });
    window.resize(320, 200);
    for (const int size : {24, 200}) {
        QApplication::setFont(QFont(before.family(), size));
        QCoreApplication::processEvents();
        auto& screen = open();
        const auto space = area->viewport()->size();
        const auto most = window.screen()->availableSize();
        EXPECT_TRUE(space.height() >= screen.height() || window.height() == most.height()) << size;
        EXPECT_TRUE(space.width() >= screen.width() || window.width() == most.width()) << size;
        EXPECT_GT(window.height(), 200);
        screen.unload();
    }
}

TEST_F(ChildWindowTest, ClosesEvenWhenNeitherThePositionNorTheReportCanBeWritten) {
    class FullDisk final : public SettingsStore {
      public:
        QString value(const QString&, const QString&) const override { return {}; }
        void setValue(const QString&, const QString&, const QString&) override {
            throw makeError(ErrorNumber::pathFileAccess);
        }
    } full;
    QDir().mkdir(u"errors.log"_s);
    Session broken({ui, clock, full}, session.makeConnection);
    auto* screen = new SomeScreen(broken);
    screen->showIn(*area);
    ui.expectBox(
        u"The error report could not be written to \"errors.log\" in the working folder. Please check "
        "that the folder can be written to and that the disk is not full."_s,
        u"Kelvane"_s, box::stop);
    screen->close();
    EXPECT_FALSE(screen->isOpen());
    delete screen;
}

} // namespace kelvane::testing
