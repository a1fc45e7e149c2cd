#include "tests/editors/cal_param/form_cal_param_fixture.h"

#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

/// A simulated operator who uses the keyboard alone.
class CalParamKeys : public FormCalParamTest {
  protected:
    /// Where the keys go. A row of tabs has no name of its own.
    static QString focus() {
        auto* has = qApp->focusWidget();
        return (qobject_cast<QTabBar*>(has) ? has->parentWidget() : has)->objectName();
    }
    static void key(int key) { QTest::keyClick(qApp->focusWidget(), static_cast<Qt::Key>(key)); }
    static void enter(const QString& text) { QTest::keyClicks(qApp->focusWidget(), text); }
    static void goTo(const QString& name) {
        for (int i = 0; i < 40 && focus() != name; ++i)
            key(Qt::Key_Tab);
        ASSERT_EQ(focus(), name);
    }
    static void enterInto(const QString& name, const QString& text) {
        goTo(name);
        enter(text);
    }
    static void nextPage(const QString& tabs) {
        goTo(tabs);
        key(Qt::Key_Right);
    }
    void save() {
        goTo(u"CommandSave"_s);
        key(Qt::Key_Return);
    }
};

TEST_F(CalParamKeys, LeadFromTheMenuToASavedInstrument) {
    script.answers.insert(selectAvailable(u"PRE"_s, u"PT-2"_s), {Row{u"C"_s}, Row{u"A"_s}});
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, u"PT-2"_s);
    pressKeys(u"Ctrl+P"_s);
    ASSERT_EQ(focus(), u"ComboTSName");
    key(Qt::Key_Down);
    goTo(u"ListPreAvail"_s);
    key(Qt::Key_Return);
    key(Qt::Key_Return);
    goTo(u"ListPreDisplay"_s);
    key(Qt::Key_Down);
    goTo(u"CommandPreUp"_s);
    key(Qt::Key_Space);

    nextPage(u"SSTab1"_s);
    enterInto(u"TextInputLow"_s, u"-1"_s);
    enterInto(u"TextInputHigh"_s, u"250"_s);
    enterInto(u"ComboInputUnits"_s, u"C"_s);
    nextPage(u"SSTabInTemp"_s);
    goTo(u"OptionCJRefIntIn"_s);
    key(Qt::Key_Down);
    enterInto(u"TextCJRefTempIn"_s, u"21"_s);

    nextPage(u"SSTab1"_s);
    enterInto(u"TextOutputHigh"_s, u"20"_s);
    enterInto(u"ComboOutputUnits"_s, u"ft"_s);
    goTo(u"ComboMeasurementModeOut"_s);
    key(Qt::Key_Home);
    enterInto(u"TextDipOut"_s, u"2.5"_s);
    goTo(u"CheckIndicatedOutput"_s);
    key(Qt::Key_Space);

    nextPage(u"SSTab1"_s);
    enterInto(u"TextSpanPos"_s, u"0.5"_s);
    script.statements.clear();
    save();
    ASSERT_EQ(script.statements.size(), 4);
    EXPECT_TRUE(script.statements[1].contains(
        u"'0.1','C','ft/lb','-1','250','0.0','20','ITS-90','ITS-90','EXT','INT','21','0.0'"_s))
        << script.statements[1].toStdString();
    EXPECT_TRUE(script.statements[1].endsWith(
        u"'UTA','0.0','2.5','1','OFF','FIVE','100.0','100.0','N','Y');commit"_s))
        << script.statements[1].toStdString();
    EXPECT_TRUE(script.statements[2].endsWith(u"'PRE','0','A');commit"_s));
    EXPECT_TRUE(script.statements[3].endsWith(u"'PRE','1','C');commit"_s));
    EXPECT_FALSE(QApplication::overrideCursor());
    pressKeys(u"Ctrl+F4"_s);
    EXPECT_FALSE(isOpen());
}

TEST_F(CalParamKeys, ReplaceTheValueThatAFaultLeadsTo) {
    open(u"PT-1"_s);
    nextPage(u"SSTab1"_s);
    enterInto(u"TextInputHigh"_s, u"12 psi"_s);
    simulatedOperator.expectBox(u"Must enter a valid high input value!"_s, calParamTitle, box::warning,
                                [this](QMessageBox& box) {
                                    // The page is turned once the message has been read.
                                    EXPECT_EQ(control<QTabWidget>(form(), u"SSTab1"_s).currentIndex(), 0);
                                    QTest::keyClick(&box, Qt::Key_Return);
                                });
    goTo(u"SSTab1"_s);
    key(Qt::Key_Left);
    save();
    ASSERT_EQ(focus(), u"TextInputHigh");
    enter(u"12"_s);
    EXPECT_EQ(displayText(u"TextInputHigh"_s), u"12"_s);
}

TEST_F(CalParamKeys, GoToTheReferenceOfTheOutputThoughItsFaultShowsTheInputPage) {
    open(u"PT-1"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"C"_s);
    control<QAbstractButton>(form(), u"OptionCJRefExtOut"_s).click();
    show(form(), u"TextCJRefTempOut"_s, {});
    simulatedOperator.expectBox(u"Reference temperature must be specified!"_s, calParamTitle, box::warning);
    save();
    EXPECT_EQ(control<QTabWidget>(form(), u"SSTab1"_s).currentIndex(), 1);
    EXPECT_EQ(focus(), u"TextCJRefTempOut");
    enter(u"21"_s);
    EXPECT_EQ(displayText(u"TextCJRefTempOut"_s), u"21");
}

TEST_F(CalParamKeys, GoThroughEachPageAsItIsReadAndThenToTheButtons) {
    open(u"PT-2"_s);
    pick(control<QComboBox>(form(), u"ComboInputUnits"_s), u"C"_s);
    pick(control<QComboBox>(form(), u"ComboOutputUnits"_s), u"ft/lb"_s);
    const QStringList buttons{u"CommandSave"_s, u"CommandSelect"_s, u"CommandClone"_s};
    const auto names = [](QStringView panel) {
        QStringList found;
        for (const auto& given : givenPanels()) {
            if (given.captions.startsWith(panel)) {
                for (const auto& field : given.controls)
                    found << field.name.toString();
            }
        }
        return found;
    };
    const QStringList messages{u"ListPreDisplay"_s,  u"CommandPreUp"_s,    u"CommandPreDown"_s,
                               u"ListPreAvail"_s,    u"ListPostDisplay"_s, u"CommandPostUp"_s,
                               u"CommandPostDown"_s, u"ListPostAvail"_s};
    auto torque = names(u"Output Configuration > Output Configuration > General Configuration");
    // It is in use in another mode.
    torque.removeOne(u"TextDipOut"_s);
    const QStringList pages[] = {
        names(u"General Test Parameters") + messages,
        names(u"Input Configuration > Input Scale/Units") + QStringList{u"SSTabInTemp"_s} +
            names(u"Input Configuration > Input Configuration > Temperature Scale"),
        names(u"Output Configuration > Output Scale/Units") + QStringList{u"SSTabTorqueOut"_s} + torque,
        names(u"Test Tolerances/Error Calculation"),
    };
    auto& tabs = control<QTabWidget>(form(), u"SSTab1"_s);
    for (int page = 0; page < tabs.count(); ++page) {
        SCOPED_TRACE(page);
        tabs.setCurrentIndex(page);
        tabs.tabBar()->setFocus();
        QStringList way;
        do {
            key(Qt::Key_Tab);
            way << focus();
        } while (way.last() != u"SSTab1"_s && way.size() < 30);
        EXPECT_EQ(way, pages[page] + buttons + QStringList{u"SSTab1"_s});
    }
}

TEST_F(CalParamKeys, ReturnSavesFromAFieldAndEscapeClosesAndAsksBeforeAChangeGoes) {
    open(u"PT-1"_s);
    type(u"TextInputHigh"_s, u"250"_s);
    script.statements.clear();
    key(Qt::Key_Return);
    ASSERT_GE(script.statements.size(), 2);
    EXPECT_TRUE(script.statements[1].contains(u"'250'"_s));
    key(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());

    open(u"PT-1"_s);
    type(u"TextInputHigh"_s, u"251"_s);
    expectDiscard(BoxAnswer::no);
    key(Qt::Key_Escape);
    simulatedOperator.waitUntilAllCame();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(displayText(u"TextInputHigh"_s), u"251"_s);
}

} // namespace kelvane::testing
