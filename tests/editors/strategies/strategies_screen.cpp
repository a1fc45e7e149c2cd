#include "tests/editors/strategies/strategies_screen.h"

#include "ui/list_rows.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

void StrategiesScreen::open(Session& session, OpenCalParam* calParam) {
    EditorScreen::open(session, [calParam] { return calParam; });
}

QStringList StrategiesScreen::points() {
    return rowsOf(list());
}

int StrategiesScreen::selected() {
    return selectedRow(list());
}

QStringList StrategiesScreen::enabled() {
    return enabledOf({u"ComboTSNames"_s, u"CommandAdd"_s, u"CommandRename"_s, u"CommandDeleteTS"_s,
                      u"CommandSave"_s, u"ComboPreDef"_s, u"CommandAddTP"_s, u"CommandModify"_s,
                      u"CommandDeletePoint"_s, u"CommandMoveUp"_s, u"CommandMoveDown"_s, u"CommandCancel"_s});
}

QString selectNames() {
    return u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc"_s;
}

QString selectName(const QString& name) {
    return u"select tp_name from mt.hvm_kv_proc_points where tp_name = '"_s + name + u"'"_s;
}

QString selectPoints(const QString& name) {
    return u"select test_point_pct from mt.hvm_kv_proc_points where tp_name = '"_s + name +
           u"' order by test_point_seq asc"_s;
}

QStringList loadOf(const QString& name) {
    return loadOf(name, name);
}

QStringList loadOf(const QString& name, const QString& shown) {
    return {selectNames(), selectName(name), selectPoints(shown)};
}

} // namespace kelvane::testing
