#include "tests/editors/cal_param/cal_param_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// Pressure in, current out: what the screen does not start with.
const QPair<QString, QString> readyEntries[] = {
    {u"ComboTSName"_s, u"FIVE"_s},    {u"ComboInputUnits"_s, u"psi"_s}, {u"TextOutputLow"_s, u"4"_s},
    {u"ComboOutputUnits"_s, u"mA"_s}, {u"TextOutputHigh"_s, u"20"_s},
};

/// What a screen that is only made ready stores in a column.
QString readyValue(QStringView column) {
    QString value = u"N"_s; // a check box that is off
    for (const auto& control : givenControls()) {
        if (control.column != column || control.starts == u"off")
            continue;
        value = (control.stored.isEmpty() ? control.starts : control.stored).toString();
        for (const auto& [name, entry] : readyEntries) {
            if (name == control.name)
                value = entry;
        }
    }
    return value;
}

} // namespace

QStringList toleranceBoxes() {
    QStringList names;
    for (const auto& panel : givenPanels()) {
        if (!panel.captions.startsWith(u"Test Tolerances"))
            continue;
        for (const auto& box : panel.controls)
            names << box.name.toString();
    }
    return names;
}

CalParamFixture::CalParamFixture() {
    for (const auto& asset : {u"PT-1"_s, u"PT-2"_s, u"PT-3"_s})
        script.answers.insert(selectKey(asset), {Row{u"17"_s}});
    script.answers.insert(u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s,
                          {Row{u"FIVE"_s}, Row{u"THREE"_s}});
    screen.open(u"PT-1"_s);
    script.statements.clear();
}

void CalParamFixture::makeReady() {
    for (const auto& control : givenControls()) {
        if (control.starts != u"off")
            screen.set(control.name.toString(), control.starts.toString());
    }
    for (const auto& [name, value] : readyEntries)
        screen.set(name, value);
}

QStringList CalParamFixture::readyValues(const QString& instrument) {
    QStringList values;
    for (const auto column : givenSavedColumns.tokenize(u','))
        values << (column == u"mtag"
                       ? u"(select mtag from mt.inventory where i4201 = '"_s + instrument + u"')"_s
                       : u'\'' + readyValue(column) + u'\'');
    return values;
}

QStringList CalParamFixture::writes() const {
    QStringList found;
    for (const auto& statement : script.statements) {
        if (!statement.startsWith(u"select"))
            found << statement;
    }
    return found;
}

QString CalParamFixture::key(const QString& asset) {
    return u"(select mtag from MT.inventory where i4201 = '"_s + asset + u"')"_s;
}

QString CalParamFixture::selectKey(const QString& asset) {
    return u"select mtag from MT.inventory where i4201 = '"_s + asset + u"'"_s;
}

QString CalParamFixture::selectStored(const QString& asset) {
    return u"select mtag from mt.hvm_kv_tag_config where mtag = "_s + key(asset);
}

} // namespace kelvane::testing
