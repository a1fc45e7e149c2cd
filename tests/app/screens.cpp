#include "tests/app/screens.h"

#include "data/journal/journal.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/form_custom_dialog.h"
#include "ui/status_line.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

void showDialog(Screens& test, const DialogQuestion& question, const std::function<void()>& look) {
    test.startLoggedIn(4);
    test.simulatedOperator.expectDialog(question.caption, question.prompt, [&](FormCustomDialog& dialog) {
        look();
        test.cancel(dialog);
    });
    test.program.ui.askOneField(question);
}

/// Brings the parameter editor up with a page of it, after `prepare` has chosen what it shows.
template <int page>
void showCalParam(Screens& test, const std::function<void()>& look,
                  const std::function<void(ChildWindow&)>& prepare = {}) {
    test.startLoggedIn(4);
    test.script.answers.insert(u"select count(tp_name) from mt.hvm_kv_proc_points"_s, {Row{u"1"_s}});
    test.script.answers.insert(u"select mtag from MT.inventory where i4201 = 'PT-1001'"_s, {Row{u"17"_s}});
    test.script.answers.insert(
        u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
        {Row{u"FIVE POINTS UP"_s}, Row{u"FIVE POINTS UP AND DOWN"_s}, Row{u"TORQUE 20-60-100"_s}});
    const auto ofInstrument =
        u"mt.hvm_kv_proc_prompts where prompt_type = '%1' and mtag = (select mtag from MT.inventory where "
        "i4201 = 'PT-1001')"_s;
    for (const auto& type : {u"PRE"_s, u"PST"_s}) {
        test.script.answers.insert(
            u"select pname from mt.hvm_kv_prompts where pname not in (select pname from "_s +
                ofInstrument.arg(type) + u')',
            {Row{u"BLEED THE LINE"_s}, Row{u"CHECK THE SEAL"_s}, Row{u"WARM UP 30 MINUTES"_s}});
        test.script.answers.insert(u"select pname from "_s + ofInstrument.arg(type) +
                                       u" order by prompt_seq asc"_s,
                                   {Row{u"CLOSE THE VALVE"_s}, Row{u"REMOVE THE COVER"_s}});
    }
    test.simulatedOperator.expectDialog(text(TextId::calibrationParameters),
                                        text(TextId::instrumentNumberPrompt), u"PT-1001"_s);
    test.choose(u"mnuCalParameters"_s);
    auto& form = test.child(u"FormCalParam"_s);
    pick(control<QComboBox>(form, u"ComboTSName"_s), u"FIVE POINTS UP"_s);
    control<QTabWidget>(form, u"SSTab1"_s).setCurrentIndex(page);
    if (prepare)
        prepare(form);
    look();
}

/// The same with the sub-tabs that a unit brings up.
template <int page, int subPage>
void showSubTab(Screens& test, const std::function<void()>& look, const QString& unit, const QString& name,
                const QString& transducer = u"UTA"_s, const QString& mode = u"Peak"_s) {
    showCalParam<page>(test, look, [&](ChildWindow& form) {
        pick(control<QComboBox>(form, page == 1 ? u"ComboInputUnits"_s : u"ComboOutputUnits"_s), unit);
        pick(control<QComboBox>(form, u"ComboTransTypeOut"_s), transducer);
        pick(control<QComboBox>(form, u"ComboMeasurementModeOut"_s), mode);
        auto& subTabs = control<QTabWidget>(form, name);
        EXPECT_TRUE(subTabs.isVisible());
        EXPECT_TRUE(subTabs.isTabEnabled(subPage));
        subTabs.setCurrentIndex(subPage);
    });
}

/// The packages of a site; the first one is of that kind, with what the kind's column holds.
void showPackages(Screens& test, const std::function<void()>& look, const QString& letter,
                  const QString& value) {
    test.startLoggedIn(4);
    test.script.answers.insert(u"select taskname from mt.hvm_kv_task_packages where tptype = 'PDEF'"_s,
                               {Row{u"UNIT 1 SHUTDOWN"_s}, Row{u"TORQUE CREW A"_s}});
    test.script.answers.insert(
        u"select tptag,tptype,notes,task_sql,tp_definition,segregate,model,description from "
        "mt.hvm_kv_task_packages where taskname = 'UNIT 1 SHUTDOWN'"_s,
        {Row{u"TAG"_s, u"PDEF"_s, u"What is done at the yearly shutdown of unit 1."_s, value, letter, value,
             value, value}});
    test.script.answers.insert(
        u"select i4201 from MT.inventory where mtag in (select mtag from mt.hvm_kv_task_assets where "
        "tptag = 'TAG')"_s,
        {Row{u"PT-101"_s}, Row{u"PT-102"_s}, Row{u"TIT-201"_s}, Row{u"IP-301"_s}, Row{u"UC-901"_s}});
    test.choose(u"mnuPredefined"_s);
    look();
}

const Screen screens[] = {
    {"FormConnect",
     [](Screens& test, const std::function<void()>& look) {
         test.start();
         control<QLineEdit>(test.child(u"FormConnect"_s), u"TextUsername"_s).setText(u"jdoe"_s);
         control<QLineEdit>(test.child(u"FormConnect"_s), u"TextPassword"_s).setText(u"secret"_s);
         look();
     }},
    {"FormConnect_again",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.program.session.SessionConnected = false;
         test.program.window.statusLine().refresh();
         click(test.program.window.statusLine().connectButton());
         look();
     }},
    {"FormODBC",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.choose(u"mnuODBC"_s);
         look();
     }},
    {"FormCalConfig",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.choose(u"mnuConfiguration"_s);
         look();
     }},
    {"FormCommunicationLog",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.choose(u"mnuConfiguration"_s);
         auto& form = test.child(u"FormCalConfig"_s);
         pick(control<QComboBox>(form, u"ComboCalibrator"_s), u"Crane TorqueStar IVc"_s);
         click(control<QPushButton>(form, u"ButtonCommunicationLog"_s));
         control<QPlainTextEdit>(test.child(u"FormCommunicationLog"_s), u"TextLog"_s)
             .setPlainText(u"2026-11-22 10:20:30.125 [Crane TorqueStar IVc] opened COM1: /dev/ttyUSB0; 9600,N,8,1\n"
                           "2026-11-22 10:20:30.148 [Crane TorqueStar IVc] sent 10 04 02 | <DLE><EOT><STX>\n"
                           "2026-11-22 10:20:30.190 [Crane TorqueStar IVc] received 10 | <DLE>\n"
                           "2026-11-22 10:20:30.191 [Crane TorqueStar IVc] sent 54 30 41 10 03 67 BF | "
                           "T0A<DLE><ETX>g<BF>"_s);
         look();
     }},
    {"FormDockingDown",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.simulatedOperator.expectDialog(text(TextId::downloadCommand), text(TextId::selectCalibratorToUse), u"Crane TorqueStar IVc"_s);
         test.choose(u"mnuDownload"_s);
         control<QListWidget>(test.child(u"FormDockingDown"_s), u"ListCal"_s)
             .addItems({u"TW-1001"_s, u"TW-1002"_s, u"TW-1003"_s, u"TW-1004"_s, u"TW-1005"_s, u"TW-1006"_s});
         look();
     }},
    {"FormCalParam_general", [](Screens& test, const auto& look) { showCalParam<0>(test, look); }},
    {"FormCalParam_input", [](Screens& test, const auto& look) { showCalParam<1>(test, look); }},
    {"FormCalParam_input_temperature",
     [](Screens& test, const auto& look) { showSubTab<1, 0>(test, look, u"C"_s, u"SSTabInTemp"_s); }},
    {"FormCalParam_input_reference",
     [](Screens& test, const auto& look) { showSubTab<1, 1>(test, look, u"C"_s, u"SSTabInTemp"_s); }},
    {"FormCalParam_input_sensor",
     [](Screens& test, const auto& look) { showSubTab<1, 2>(test, look, u"C"_s, u"SSTabInTemp"_s); }},
    {"FormCalParam_input_waveform",
     [](Screens& test, const auto& look) { showSubTab<1, 0>(test, look, u"Hz"_s, u"SSTabInAmplitude"_s); }},
    {"FormCalParam_output", [](Screens& test, const auto& look) { showCalParam<2>(test, look); }},
    {"FormCalParam_output_temperature",
     [](Screens& test, const auto& look) { showSubTab<2, 0>(test, look, u"F"_s, u"SSTabOutTemp"_s); }},
    {"FormCalParam_output_reference",
     [](Screens& test, const auto& look) { showSubTab<2, 1>(test, look, u"F"_s, u"SSTabOutTemp"_s); }},
    {"FormCalParam_output_sensor",
     [](Screens& test, const auto& look) { showSubTab<2, 2>(test, look, u"F"_s, u"SSTabOutTemp"_s); }},
    {"FormCalParam_output_torque",
     [](Screens& test, const auto& look) {
         showSubTab<2, 0>(test, look, u"ft/lb"_s, u"SSTabTorqueOut"_s, u"UTA"_s, u"Click Dip"_s);
     }},
    {"FormCalParam_output_analog",
     [](Screens& test, const auto& look) { showSubTab<2, 1>(test, look, u"ft/lb"_s, u"SSTabTorqueOut"_s); }},
    {"FormCalParam_output_digital",
     [](Screens& test, const auto& look) {
         showSubTab<2, 2>(test, look, u"ft/lb"_s, u"SSTabTorqueOut"_s, u"Serial"_s);
     }},
    {"FormCalParam_output_loop_power",
     [](Screens& test, const auto& look) { showSubTab<2, 0>(test, look, u"mA"_s, u"SSTabCurrentOut"_s); }},
    {"FormCalParam_output_waveform",
     [](Screens& test, const auto& look) { showSubTab<2, 0>(test, look, u"Hz"_s, u"SSTabOutAmplitude"_s); }},
    {"FormCalParam_tolerances", [](Screens& test, const auto& look) { showCalParam<3>(test, look); }},
    {"FormPredefinedTasks_list",
     [](Screens& test, const auto& look) { showPackages(test, look, u"A"_s, {}); }},
    {"FormPredefinedTasks_sql",
     [](Screens& test, const auto& look) {
         showPackages(test, look, u"S"_s,
                      u"select i4201 from $U_SEG$.inventory where i4204 like 'TEMPERATURE TRANSMITTER%'"_s);
     }},
    {"FormPredefinedTasks_segregate",
     [](Screens& test, const auto& look) { showPackages(test, look, u"G"_s, u"UTIL"_s); }},
    {"FormPredefinedTasks_description",
     [](Screens& test, const auto& look) { showPackages(test, look, u"D"_s, u"TORQUE SCREWDRIVER"_s); }},
    {"FormPredefinedTasks_model",
     [](Screens& test, const auto& look) { showPackages(test, look, u"M"_s, u"CLICK 250F"_s); }},
    {"FormPredefinedTasks_none",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.choose(u"mnuPredefined"_s);
         look();
     }},
    {"FormStrategies",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.script.answers.insert(
             u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
             {Row{u"5 POINT UP"_s}, Row{u"9 POINT UP/DOWN"_s}});
         test.script.answers.insert(u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = "
                                    "'5 POINT UP' order by test_point_seq asc"_s,
                                    {Row{u"0"_s}, Row{u"25"_s}, Row{u"50"_s}, Row{u"75"_s}, Row{u"100"_s}});
         test.choose(u"mnuStrategies"_s);
         control<QListWidget>(test.child(u"FormStrategies"_s), u"ListPoints"_s).setCurrentRow(1);
         look();
     }},
    {"FormStrategies_predefined",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.script.answers.insert(
             u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
             {Row{u"A NAME AS LONG AS IT CAN BE 30"_s}});
         test.choose(u"mnuStrategies"_s);
         auto& predefined = control<QComboBox>(test.child(u"FormStrategies"_s), u"ComboPreDef"_s);
         QTest::keyClick(&predefined, Qt::Key_End);
         QTest::keyClick(&predefined, Qt::Key_Up);
         QTest::keyClick(&predefined, Qt::Key_Up);
         EXPECT_EQ(predefined.currentText(), text(TextId::predefinedElevenUp));
         look();
         test.simulatedOperator.expectBox(text(TextId::confirmDiscardSinceSave),
                               u"Kelvane"_s, box::warningYesNo, BoxAnswer::yes);
         test.child(u"FormStrategies"_s).close();
     }},
    {"FormWorkConfig",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(6);
         test.script.answers.insert(u"select count(fldnum) from mt.hvm_kv_worksheetfields"_s, {Row{u"0"_s}});
         test.choose(u"mnuWorkEntry"_s);
         auto& form = test.child(u"FormWorkConfig"_s);
         control<QListWidget>(form, u"ListAvail"_s)
             .addItems({u"C2303 : Due Date"_s, u"C2309 : Procedure"_s, u"C2313 : Relative Humidity (%)"_s,
                        u"C2315 : Place of Calibration"_s, u"C2316 : Work Order"_s, u"C2317 : Owner"_s,
                        u"C2318 : Approved By"_s, u"C2326 : Remarks"_s, u"C2329 : Condition Received"_s});
         auto& request = control<QListWidget>(form, u"ListRequest"_s);
         request.addItems({u"C2301 : Calibration Date"_s, u"C2333 : Calibration Time"_s,
                           u"C2307 : Technician"_s, u"C2308 : Run State"_s,
                           u"C2312 : Ambient Temperature (C)"_s});
         request.setCurrentRow(2);
         look();
     }},
    {"FormStatusBar",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.program.ui.showProgress(text(TextId::recordCreation));
         test.program.ui.setProgressText(text(TextId::downloadingProgress));
         test.program.ui.setProgressValue(42);
         look();
         test.program.ui.hideProgress();
     }},
    {"FormUnfinishedResults",
     [](Screens& test, const std::function<void()>& look) {
         auto& session = test.program.session;
         session.SessionDataSource = u"Calibration Data"_s;
         for (const auto& asset : {u"TW-1001"_s, u"TW-1002"_s})
             Journal(session).add({.calibrator = u"Crane TorqueStar IVc"_s,
                                   .asset = asset,
                                   .date = u"2026-03-17"_s,
                                   .time = u"10:20:30"_s,
                                   .readings = {u"  1 20.00 in/lb          19.98 in/lb        PASS"_s,
                                                u"  2 60.00 in/lb          61.75 in/lb        FAIL"_s},
                                   .why = text(TextId::resultsInterrupted)});
         test.startLoggedIn(4);
         look();
     }},
    {"FormWorksheetPrint",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.choose(u"mnuPrint"_s);
         control<QListWidget>(test.child(u"FormWorksheetPrint"_s), u"ListCal"_s)
             .addItems({u"PT-1001"_s, u"PT-1002"_s, u"PT-1003"_s, u"PT-1004"_s});
         look();
     }},
    {"FormWorkEntry",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.simulatedOperator.expectDialog(
             text(TextId::enterWorksheetResults), text(TextId::worksheetInstrumentPrompt),
             [&](FormCustomDialog& dialog) { test.cancel(dialog); });
         test.choose(u"mnuEnter"_s);
         auto& form = test.child(u"FormWorkEntry"_s);
         auto& fields = control<QTreeWidget>(form, u"ListViewData"_s);
         for (const auto& field : {QStringList{u"Calibration Date"_s, u"03/17/2026"_s},
                                   QStringList{u"Calibration Time"_s, u"10:20"_s},
                                   QStringList{u"Ambient Temperature (C)"_s, u"21.5"_s}})
             fields.addTopLevelItem(new QTreeWidgetItem(field));
         fields.resizeColumnToContents(0);
         control<QListWidget>(form, u"ListStandards"_s).addItems({u"DWT-01"_s, u"DMM-01"_s});
         look();
     }},
    {"FormTestMess",
     [](Screens& test, const std::function<void()>& look) {
         test.startLoggedIn(4);
         test.script.answers.insert(u"select pname from mt.hvm_kv_prompts"_s,
                                    {Row{u"ISOLATE PRESSURE"_s}, Row{u"PERMIT"_s}});
         test.script.answers.insert(
             u"select prompt from mt.hvm_kv_prompts where pname = 'ISOLATE PRESSURE'"_s,
             {Row{u"Close the manifold of $DB:I4201$ and vent it. Then connect the pressure module: "
                  "$INPUTLOW$ to $INPUTHIGH$ $INPUTUNITS$."_s}});
         test.choose(u"mnuPrompts"_s);
         look();
     }},
    {"FormCustomDialog_list",
     [](Screens& test, const std::function<void()>& look) {
         showDialog(test,
                    {.caption = text(TextId::uploadTestResults),
                     .prompt = text(TextId::selectCalibratorToUse),
                     .required = true,
                     .fromList = true,
                     .choices = {u"Crane TorqueStar IVc"_s, u"Fluke 702"_s, u"Fluke 743/744"_s}},
                    look);
     }},
    {"FormCustomDialog_text",
     [](Screens& test, const std::function<void()>& look) {
         showDialog(test,
                    {.caption = u"TW-1001: "_s + text(TextId::externalStandardRequired),
                     .prompt = text(TextId::standardToUse),
                     .required = true,
                     .defaultText = u"STD-0042"_s},
                    look);
     }},
    {"FormCustomDialog_long",
     [](Screens& test, const std::function<void()>& look) {
         showDialog(
             test,
             {.caption = text(TextId::calibrationRecordData) + u" (PT-100-ABC)"_s,
              .prompt = text(TextId::enterInformationFor) + u" Humidity of the room in which the work was done"_s},
             look);
     }},
};

} // namespace

std::span<const Screen> allScreens() {
    return screens;
}

} // namespace kelvane::testing
