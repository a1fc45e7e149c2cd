#include "tests/editors/cal_param/form_cal_param_fixture.h"

#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

QString displayedQuery(const QString& type, const QString& asset) {
    return u"select pname from mt.hvm_kv_proc_prompts where prompt_type = '"_s + type +
           u"' and mtag = (select mtag from MT.inventory where i4201 = '"_s + asset + u"')"_s;
}

} // namespace

QString countPoints() {
    return u"select count(tp_name) from mt.hvm_kv_proc_points"_s;
}

QString selectStrategies() {
    return u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s;
}

QString findAsset(const QString& asset) {
    return u"select mtag from MT.inventory where i4201 = '"_s + asset + u"'"_s;
}

QString selectDisplayed(const QString& type, const QString& asset) {
    return displayedQuery(type, asset) + u" order by prompt_seq asc"_s;
}

QString selectAvailable(const QString& type, const QString& asset) {
    return u"select pname from mt.hvm_kv_prompts where pname not in ("_s + displayedQuery(type, asset) + u')';
}

QStringList loading(const QString& asset) {
    return {selectStrategies(),
            calParamsStatement(u"MT"_s, asset),
            selectAvailable(u"PRE"_s, asset),
            selectAvailable(u"PST"_s, asset),
            selectDisplayed(u"PRE"_s, asset),
            selectDisplayed(u"PST"_s, asset)};
}

Row storedRow(std::initializer_list<std::pair<int, std::optional<QString>>> changes) {
    auto row = calParamsRow();
    row[2] = u"0.001"_s;
    row[40] = u"THREE"_s;
    for (const auto& [place, value] : changes)
        row[place] = value;
    return row;
}

FormCalParamTest::FormCalParamTest() : ProgramScreen(u"FormCalParam"_s, u"mnuCalParameters"_s) {
    startLoggedIn(4);
    script.answers.insert(countPoints(), {Row{u"8"_s}});
    script.answers.insert(selectStrategies(), {Row{u"FIVE"_s}, Row{u"THREE"_s}});
    for (const auto& asset : {u"PT-1"_s, u"PT-2"_s, u"PT-3"_s})
        script.answers.insert(findAsset(asset), {Row{u"17"_s}});
    store(storedRow());
    script.answers.insert(selectAvailable(u"PRE"_s, u"PT-1"_s), {Row{u"C"_s}, Row{u"A"_s}});
    script.answers.insert(selectAvailable(u"PST"_s, u"PT-1"_s), {Row{u"B"_s}});
    script.answers.insert(selectDisplayed(u"PRE"_s, u"PT-1"_s), {Row{u"B"_s}, Row{u"D"_s}});
    script.answers.insert(selectDisplayed(u"PST"_s, u"PT-1"_s), {Row{u"A"_s}});
}

void FormCalParamTest::store(const Row& row) {
    script.answers.insert(calParamsStatement(u"MT"_s, u"PT-1"_s), {row});
}

void FormCalParamTest::open(const QString& asset) {
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, asset);
    ProgramScreen::open();
}

void FormCalParamTest::expectCancel() {
    expectCancelledDialog(calParamTitle, enterInstrument);
}

void FormCalParamTest::type(const QString& name, const QString& value) {
    auto& box = controlNamed<QLineEdit>(name);
    bringToFront(box);
    button(u"CommandSave"_s).setFocus();
    box.setFocus();
    QTest::keyClicks(&box, value);
    EXPECT_EQ(box.text(), value);
}

void FormCalParamTest::select(const QString& asset, const std::function<void()>& then) {
    simulatedOperator.expectDialog(calParamTitle, enterInstrument, asset);
    if (then)
        then();
    press(u"CommandSelect"_s);
}

QStringList FormCalParamTest::shownSubTabs() {
    QStringList names;
    for (const auto* tabs : form().findChildren<QTabWidget*>()) {
        if (!tabs->isHidden() && tabs->objectName() != u"SSTab1"_s)
            names << tabs->objectName();
    }
    names.sort();
    return names;
}

} // namespace kelvane::testing
