#include "tests/editors/cal_param/cal_param_fixture.h"
#include "ui/list_rows.h"

#include <QListWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The lists and buttons of one kind of message.
struct Pair {
    QString available;
    QString displayed;
    QString up;
    QString down;
};

const Pair pairs[] = {
    {u"ListPreAvail"_s, u"ListPreDisplay"_s, u"CommandPreUp"_s, u"CommandPreDown"_s},
    {u"ListPostAvail"_s, u"ListPostDisplay"_s, u"CommandPostUp"_s, u"CommandPostDown"_s},
};

void PrintTo(const Pair& pair, std::ostream* out) {
    *out << pair.displayed.toStdString();
}

} // namespace

class PromptLists : public CalParamFixture, public ::testing::WithParamInterface<Pair> {
  protected:
    PromptLists() {
        screen.showPage(0);
        for (const auto& pair : pairs) {
            screen.fill(pair.available, {u"DRAIN"_s, u"PURGE"_s, u"VENT"_s});
            screen.fill(pair.displayed, {u"ISOLATE"_s, u"LOCK"_s, u"WAIT"_s});
        }
    }
    const Pair& pair() const { return GetParam(); }
    int selectedRowOf(const QString& list) { return selectedRow(control<QListWidget>(screen.form(), list)); }
    /// Where the other kind of message stands is untouched.
    void expectOthersUntouched() {
        for (const auto& other : pairs) {
            if (other.displayed == pair().displayed)
                continue;
            EXPECT_EQ(screen.rows(other.available), (QStringList{u"DRAIN"_s, u"PURGE"_s, u"VENT"_s}));
            EXPECT_EQ(screen.rows(other.displayed), (QStringList{u"ISOLATE"_s, u"LOCK"_s, u"WAIT"_s}));
        }
        EXPECT_EQ(script.statements, QStringList());
    }
};

TEST_P(PromptLists, MoveARowOnADoubleClick) {
    screen.doubleClick(pair().available, 1);
    EXPECT_EQ(screen.rows(pair().available), (QStringList{u"DRAIN"_s, u"VENT"_s}));
    EXPECT_EQ(screen.rows(pair().displayed), (QStringList{u"ISOLATE"_s, u"LOCK"_s, u"WAIT"_s, u"PURGE"_s}));
    screen.doubleClick(pair().displayed, 0);
    EXPECT_EQ(screen.rows(pair().available), (QStringList{u"DRAIN"_s, u"VENT"_s, u"ISOLATE"_s}));
    EXPECT_EQ(screen.rows(pair().displayed), (QStringList{u"LOCK"_s, u"WAIT"_s, u"PURGE"_s}));
    expectOthersUntouched();
}

TEST_P(PromptLists, MoveARowOnReturn) {
    auto& list = control<QListWidget>(screen.form(), pair().available);
    list.setFocus();
    list.setCurrentRow(2);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(screen.rows(pair().displayed).last(), u"VENT"_s);
    EXPECT_EQ(list.selectedItems().size(), 0);
    // The keyboard stands on the next one.
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(screen.rows(pair().displayed).last(), u"PURGE"_s);
    expectOthersUntouched();
}

TEST_P(PromptLists, MoveARowUpAndDownWithItsSelection) {
    screen.select(pair().displayed, 1);
    screen.press(pair().up);
    EXPECT_EQ(screen.rows(pair().displayed), (QStringList{u"LOCK"_s, u"ISOLATE"_s, u"WAIT"_s}));
    EXPECT_EQ(selectedRowOf(pair().displayed), 0);
    screen.press(pair().down);
    screen.press(pair().down);
    EXPECT_EQ(screen.rows(pair().displayed), (QStringList{u"ISOLATE"_s, u"WAIT"_s, u"LOCK"_s}));
    EXPECT_EQ(selectedRowOf(pair().displayed), 2);
    expectOthersUntouched();
}

TEST_P(PromptLists, MoveNothingAtTheirEndsWithoutASelectionOrOnAnEmptyRow) {
    const auto all = screen.rows(pair().displayed);
    screen.press(pair().up);
    screen.press(pair().down);
    screen.select(pair().displayed, 0);
    screen.press(pair().up);
    screen.select(pair().displayed, 2);
    screen.press(pair().down);
    EXPECT_EQ(screen.rows(pair().displayed), all);
    screen.fill(pair().displayed, {u"ISOLATE"_s, {}, u"WAIT"_s});
    screen.select(pair().displayed, 1);
    screen.press(pair().up);
    screen.press(pair().down);
    EXPECT_EQ(screen.rows(pair().displayed), (QStringList{u"ISOLATE"_s, {}, u"WAIT"_s}));
}

TEST_P(PromptLists, MayBothHoldTheSameMessage) {
    screen.doubleClick(u"ListPreAvail"_s, 0);
    screen.doubleClick(u"ListPostAvail"_s, 0);
    EXPECT_EQ(screen.rows(u"ListPreDisplay"_s).last(), u"DRAIN"_s);
    EXPECT_EQ(screen.rows(u"ListPostDisplay"_s).last(), u"DRAIN"_s);
}

INSTANTIATE_TEST_SUITE_P(BeforeAndAfterTheTest, PromptLists, ::testing::ValuesIn(pairs));

} // namespace kelvane::testing
