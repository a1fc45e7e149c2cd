#include "testkit/fixtures.h"
#include "testkit/screen_operator.h"
#include "tests/editors/cal_param/cal_param_entry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// The label that stands for a control; empty without one.
QString labelOf(const QWidget& screen, const QString& name) {
    for (const auto* label : screen.findChildren<QLabel*>()) {
        if (label->buddy() && label->buddy()->objectName() == name)
            return label->text();
    }
    return {};
}

QStringList pagesOf(const QTabWidget& tabs) {
    QStringList captions;
    for (int page = 0; page < tabs.count(); ++page)
        captions << tabs.tabText(page);
    return captions;
}

/// The page on which a control stands: the captions of the tabs and panels around it, the outermost first.
QString pageOf(const QWidget& screen, const QString& name) {
    QStringList way;
    for (const auto* widget = &control<QWidget>(screen, name); widget; widget = widget->parentWidget()) {
        if (const auto* panel = qobject_cast<const QGroupBox*>(widget))
            way.prepend(panel->title());
        const auto* tabs = widget->parentWidget()
                               ? qobject_cast<const QTabWidget*>(widget->parentWidget()->parentWidget())
                               : nullptr;
        if (tabs && tabs->indexOf(widget) >= 0)
            way.prepend(tabs->tabText(tabs->indexOf(widget)));
    }
    return way.join(u" > "_s);
}

/// The given controls of a kind, as their names begin.
QList<GivenControl> givenOf(QStringView kind) {
    auto controls = givenControls();
    controls.removeIf([&](const GivenControl& control) { return !control.name.startsWith(kind); });
    return controls;
}

template <class Control>
void expectNoOther(const QWidget& screen, const QList<GivenControl>& given) {
    EXPECT_EQ(screen.findChildren<Control*>().size(), given.size());
}

} // namespace

TEST_F(CalParamPages, TextBoxesHaveTheirLabelsStartingTextsAndToolTips) {
    const auto given = givenOf(u"Text");
    for (const auto& box : given) {
        const auto name = box.name.toString();
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(labelOf(*body, name), box.label);
        EXPECT_EQ(control<QLineEdit>(*body, name).text(), box.starts);
        EXPECT_EQ(control<QLineEdit>(*body, name).toolTip(), box.toolTip);
    }
    expectNoOther<QLineEdit>(*body, given);
}

TEST_F(CalParamPages, ListsHaveTheirLabelsRowsStartingRowsAndToolTips) {
    const auto given = givenOf(u"Combo");
    for (const auto& expected : given) {
        const auto name = expected.name.toString();
        SCOPED_TRACE(name.toStdString());
        const auto& list = control<QComboBox>(*body, name);
        EXPECT_EQ(labelOf(*body, name), expected.label);
        EXPECT_EQ(list.currentText(), expected.starts);
        EXPECT_EQ(list.toolTip(), expected.toolTip);
        ASSERT_EQ(list.count(), expected.rows.size());
        for (int row = 0; row < list.count(); ++row)
            EXPECT_EQ(list.itemText(row), expected.rows[row]);
        EXPECT_FALSE(list.isEditable());
    }
    expectNoOther<QComboBox>(*body, given);
}

TEST_F(CalParamPages, OptionsAndCheckBoxesHaveTheirCaptionsStatesAndToolTips) {
    const auto options = givenOf(u"Option");
    const auto checkBoxes = givenOf(u"Check");
    for (const auto& given : options + checkBoxes) {
        const auto name = given.name.toString();
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(control<QAbstractButton>(*body, name).text(), given.label);
        EXPECT_EQ(shownBy(*body, name), given.starts);
        EXPECT_EQ(control<QAbstractButton>(*body, name).toolTip(), given.toolTip);
    }
    expectNoOther<QRadioButton>(*body, options);
    expectNoOther<QCheckBox>(*body, checkBoxes);
}

TEST_F(CalParamPages, OneOptionOfAGroupGoesOffWhenAnotherGoesOnAndNoOtherGroupFollows) {
    QMap<QStringView, QStringList> groups;
    for (const auto& option : givenOf(u"Option"))
        groups[option.column] << option.name.toString();
    for (const auto& group : groups) {
        for (const auto& name : group) {
            const auto before = allShown(*body);
            control<QRadioButton>(*body, name).click();
            for (const auto& member : group)
                EXPECT_EQ(shownBy(*body, member), member == name ? u"on"_s : u"off"_s)
                    << member.toStdString();
            for (const auto& shownControl : allShown(*body)) {
                if (!group.contains(shownControl.section(u':', 0, 0))) {
                    EXPECT_TRUE(before.contains(shownControl)) << shownControl.toStdString();
                }
            }
        }
    }
}

TEST_F(CalParamPages, PagesAndSubTabsHaveTheirCaptions) {
    const QStringList temperature{u"Temperature Scale"_s, u"Cold-Junction Reference"_s, u"Sensor Type"_s};
    const struct {
        QString name;
        QStringList pages;
    } tabs[] = {
        {u"SSTab1"_s,
         {u"General Test Parameters"_s, u"Input Configuration"_s, u"Output Configuration"_s,
          u"Test Tolerances/Error Calculation"_s}},
        {u"SSTabInTemp"_s, temperature},
        {u"SSTabOutTemp"_s, temperature},
        {u"SSTabTorqueOut"_s,
         {u"General Configuration"_s, u"Analog Transducer Configuration"_s,
          u"Digital (Serial) Transducer Configuration"_s}},
        {u"SSTabCurrentOut"_s, {u"Loop Power"_s}},
        {u"SSTabInAmplitude"_s, {u"Waveform"_s}},
        {u"SSTabOutAmplitude"_s, {u"Waveform"_s}},
    };
    for (const auto& tab : tabs) {
        EXPECT_EQ(pagesOf(control<QTabWidget>(*body, tab.name)), tab.pages) << tab.name.toStdString();
        EXPECT_EQ(control<QTabWidget>(*body, tab.name).isHidden(), tab.name != u"SSTab1"_s)
            << tab.name.toStdString();
    }
    EXPECT_EQ(std::size(tabs), static_cast<std::size_t>(body->findChildren<QTabWidget*>().size()));
}

TEST_F(CalParamPages, EachControlStandsOnItsPageAndPanel) {
    QStringList placed;
    const auto expectPlace = [&](const QString& name, QStringView captions) {
        EXPECT_EQ(pageOf(*body, name), captions) << name.toStdString();
        placed << name;
    };
    for (const auto& kind : {u"Pre"_s, u"Post"_s}) {
        for (const auto& name : {u"List%1Display"_s, u"List%1Avail"_s, u"Command%1Up"_s, u"Command%1Down"_s})
            expectPlace(name.arg(kind), u"General Test Parameters > %1-Test Prompts"_s.arg(kind));
    }
    for (const auto& panel : givenPanels()) {
        for (const auto& given : panel.controls)
            expectPlace(given.name.toString(), panel.captions);
    }
    for (const auto& name : valueControls(*body))
        EXPECT_TRUE(placed.contains(name)) << name.toStdString();
}

TEST_F(CalParamPages, PanelsHaveTheirCaptions) {
    const QPair<QString, QString> panels[] = {
        {u"SSPanel1"_s, u"Test Parameters"_s},
        {u"SSPanel12"_s, u"Pre-Test Prompts"_s},
        {u"SSPanel13"_s, u"Post-Test Prompts"_s},
        {u"SSPanel2"_s, u"Input Scale/Units"_s},
        {u"SSPanel10"_s, u"Input Configuration"_s},
        {u"SSPanel3"_s, u"Output Scale/Units"_s},
        {u"SSPanel11"_s, u"Output Configuration"_s},
        {u"SSPanel4"_s, u"Test Tolerance Specification"_s},
        {u"SSPanel5"_s, u"Percent of Full Scale/Range"_s},
        {u"SSPanel8"_s, u"Percent of Span"_s},
        {u"SSPanel6"_s, u"Percent of Reading"_s},
        {u"SSPanel7"_s, u"LSD Tolerance"_s},
        {u"SSPanel9"_s, u"Units of Measure"_s},
    };
    for (const auto& [name, caption] : panels)
        EXPECT_EQ(control<QGroupBox>(*body, name).title(), caption);
}

TEST_F(CalParamPages, ListsOfMessagesHaveTheirLabelsAndToolTips) {
    for (const auto& kind : {u"Pre"_s, u"Post"_s}) {
        const auto displayed = u"List"_s + kind + u"Display"_s;
        const auto available = u"List"_s + kind + u"Avail"_s;
        EXPECT_EQ(labelOf(*body, displayed), u"Displayed Prompts"_s);
        EXPECT_EQ(labelOf(*body, available), u"Available Prompts"_s);
        EXPECT_EQ(control<QListWidget>(*body, displayed).toolTip(),
                  u"Prompts that will be displayed to the operater"_s);
        EXPECT_EQ(control<QListWidget>(*body, available).toolTip(), u"Prompts that are available for use"_s);
        EXPECT_EQ(shownBy(*body, displayed) + shownBy(*body, available), QString());
        EXPECT_EQ(control<QLabel>(*body, u"Note"_s + kind + u"Display"_s).text(),
                  u"Double-click on a prompt to remove it from the list"_s);
        EXPECT_EQ(control<QLabel>(*body, u"Note"_s + kind + u"Avail"_s).text(),
                  u"Double-click on a prompt to add it to the list"_s);
        const auto& up = control<QPushButton>(*body, u"Command"_s + kind + u"Up"_s);
        const auto& down = control<QPushButton>(*body, u"Command"_s + kind + u"Down"_s);
        EXPECT_EQ(up.toolTip(), u"Make the selected prompt display earlier in sequence"_s);
        EXPECT_EQ(down.toolTip(), u"Make the selected prompt display later in sequence"_s);
        EXPECT_EQ(up.accessibleName(), up.toolTip());
        EXPECT_EQ(down.accessibleName(), down.toolTip());
        EXPECT_EQ(up.text() + down.text(), QString());
    }
}

TEST_F(CalParamPages, ButtonsHaveTheirCaptionsAndToolTips) {
    const struct {
        QString name;
        QString caption;
        QString toolTip;
    } buttons[] = {
        {u"CommandSave"_s, u"Save"_s, u"Save changes made"_s},
        {u"CommandSelect"_s, u"Select"_s, u"Select another instrument to configure"_s},
        {u"CommandClone"_s, u"Clone Configuration"_s, u"Copy these settings to another instrument"_s},
    };
    for (const auto& button : buttons) {
        EXPECT_EQ(control<QPushButton>(*body, button.name).text(), button.caption);
        EXPECT_EQ(control<QPushButton>(*body, button.name).toolTip(), button.toolTip);
    }
}

TEST_F(CalParamPages, NotesAndUnitsHaveTheExactTexts) {
    const QPair<QString, QString> texts[] = {
        {u"NoteMeasRes"_s,
         u"Measurement resolution does not need to be specified; it is only used in \"Units of Measure\" "
         u"error "
         "calculations. If you do not specify units of measure, then the measurement resolution setting is "
         "not used."_s},
        {u"NoteBestFit"_s,
         u"Some docking calibrators do not support multiple tolerance specifications. When downloading "
         "procedures to the docking calibrator, Kelvane will attempt to make a \"best fit\" representation "
         "of "
         "multiple tolerance specifications. These test results are then \"double-checked\" at upload time "
         "to "
         "make sure that a procedure designated as a PASS or FAIL by the calibrator is not in contradiction "
         "to "
         "tolerances specified on this page."_s},
        {u"NoteReading"_s,
         u"Note: Percent of Reading error calculations are performed using calculated nominal values. "
         u"Nominal "
         "values are based on the output of the UUT scaled to the actual test point value."_s},
        {u"NoteTorqueUnits"_s,
         u"Threshold and Click Dip Torques Are Specified Using the Same Input Units Selected Above"_s},
        {u"NoteAnalog"_s,
         u"If transducer type is set to \"Serial\", then entries made in this configuration tab are ignored"_s},
        {u"NoteDigital"_s,
         u"If transducer type is not set to \"Serial\", then entries made in this configuration tab are ignored"_s},
        {u"LabelSensWiresIn"_s, u"Number of Wires (RTD only)"_s},
        {u"LabelSensWiresOut"_s, u"Number of Wires (RTD only)"_s},
        {u"LabelCalLoopPWROut"_s, u"Calibrator Loop Power"_s},
        {u"UnitCycleEndTimeOut"_s, u"Seconds"_s},
        {u"UnitFreqRespOut"_s, u"Hz"_s},
        {u"UnitPTPAmplitudeIn"_s, u"mV"_s},
        {u"UnitPTPAmplitudeOut"_s, u"mV"_s},
    };
    for (const auto& [name, text] : texts)
        EXPECT_EQ(control<QLabel>(*body, name).text(), text);
}

TEST_F(CalParamPages, FieldsOfTheSameLabelHaveDifferentAccessibleNames) {
    const QPair<QString, QString> spoken[] = {
        {u"TextSpanNeg"_s, u"Percent of Span Negative"_s},
        {u"TextUnitsPos"_s, u"Units of Measure Positive"_s},
        {u"ComboTempScaleIn"_s, u"Temperature Scale"_s},
        {u"TextPTPAmplitudeIn"_s, u"Peak-To-Peak Amplitude"_s},
        {u"OptionSensWires3Out"_s, u"Number of Wires (RTD only) 3"_s},
        {u"ListPostAvail"_s, u"Post-Test Prompts Available Prompts"_s},
    };
    for (const auto& [name, words] : spoken)
        EXPECT_EQ(control<QWidget>(*body, name).accessibleName(), words);
}

TEST_F(CalParamPages, AllControlsAreReturned) {
    // The controls are nothing but pointers to widgets.
    std::array<void*, sizeof(CalParamControls) / sizeof(void*)> pointers{};
    std::memcpy(pointers.data(), &c, sizeof(c));
    EXPECT_EQ(std::ranges::count(pointers, nullptr), 0);
}

TEST_F(CalParamPages, TextBoxesSelectTheirFirst30CharactersWhenTheyGetTheFocus) {
    body->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(body.get()));
    const auto value = u"1234567890123456789012345678901234567890"_s;
    for (auto* box : body->findChildren<QLineEdit*>()) {
        SCOPED_TRACE(box->objectName().toStdString());
        bringToFront(*box);
        box->setEnabled(true);
        box->setText(value);
        box->setFocus(Qt::TabFocusReason);
        ASSERT_TRUE(box->hasFocus());
        EXPECT_EQ(box->selectedText(), value.left(30));
        EXPECT_EQ(box->selectionStart(), 0);
        c.CommandSave->setFocus();
    }
}

} // namespace kelvane::testing
