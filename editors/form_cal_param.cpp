#include "editors/form_cal_param.h"

#include "data/routine.h"
#include "data/small_routines.h"
#include "data/unit_class.h"
#include "editors/ask_instrument.h"
#include "editors/cal_param_load.h"
#include "editors/cal_param_pages.h"
#include "resources/strings.h"
#include "ui/guarded.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The sub-tabs that a unit calls for on either side, by its class.
constexpr struct {
    qint16 unitClass;
    QTabWidget* CalParamControls::*subTabs;
    QComboBox* CalParamControls::*units;
} unitTabs[] = {
    {1, &CalParamControls::SSTabInTemp, &CalParamControls::ComboInputUnits},
    {5, &CalParamControls::SSTabInAmplitude, &CalParamControls::ComboInputUnits},
    {1, &CalParamControls::SSTabOutTemp, &CalParamControls::ComboOutputUnits},
    {3, &CalParamControls::SSTabCurrentOut, &CalParamControls::ComboOutputUnits},
    {5, &CalParamControls::SSTabOutAmplitude, &CalParamControls::ComboOutputUnits},
    {10, &CalParamControls::SSTabTorqueOut, &CalParamControls::ComboOutputUnits},
};

constexpr int analogPage = 1;
constexpr int digitalPage = 2;

using kelvane::addRows;

void addRows(QListWidget& list, const QStringList& rows) {
    list.addItems(rows);
}

/// Adds the first column of a query to a list; error 94 when one of its values is null.
template <class List>
void addResult(List& list, Routine& routine, const Sql& statement) {
    QStringList values;
    // What was read before an error is shown all the same.
    const auto show = qScopeGuard([&] { addRows(list, values); });
    for (const auto rows = routine.select(statement); rows->next();)
        values << notNull(rows->value(0));
}

} // namespace

FormCalParam::FormCalParam(Session& session)
    : EditorWindow(session, ChildForm::FormCalParam, u"FormCalParam"_s, {.width = 9960, .height = 7110}) {
    // The others may take it for open only once it has an instrument.
    session_.openFlag(ChildForm::FormCalParam) = false;
    setWindowTitle(text(112));
    setBody(makeCalParamPages(controls_));
    setFirstFocus(controls_.ComboTSName);
    for (auto* list : {controls_.ComboInputUnits, controls_.ComboOutputUnits, controls_.ComboTransTypeOut,
                       controls_.ComboMeasurementModeOut})
        onSignal(list, &QComboBox::activated, this, session_.ui, [this] { ShowUnitTabs(); });
    onClick(controls_.CommandSelect, [this] { CommandSelect(); });
    connectSaving();
}

void FormCalParam::chooseFirst() {
    bool chosen = false;
    run([&] {
        session_.ui.processEvents();
        chosen = GetAsset();
        if (chosen)
            LoadControls();
    });
    // Also when loading ended with a report that could not be written.
    if (chosen)
        session_.openFlag(ChildForm::FormCalParam) = true;
    else
        unload();
}

bool FormCalParam::GetAsset() {
    bool chosen = false;
    Routine routine(session_, u"MDIFormMain,GetAsset"_s);
    routine.run([&] {
        const auto asset = askInstrument(session_, routine);
        if (!asset)
            return;
        instrument_ = *asset;
        showInstrument();
        chosen = true;
    });
    return chosen;
}

void FormCalParam::showInstrument() {
    setWindowTitle(text(112) + u" ("_s + instrument_ + u')');
}

void FormCalParam::LoadControls() {
    Routine routine(session_, u"FormCalParam,LoadControls"_s);
    routine.run([&] {
        controls_.ComboTSName->clear();
        addResult(*controls_.ComboTSName, routine,
                  u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc");
        const auto record = ModuleGlobals::GetCalParams(session_, instrument_);
        // An instrument without parameters starts from what the screen shows.
        if (!record.mtag.isEmpty())
            showRecord(record, controls_);
        ShowUnitTabs();
        LoadPrompts();
        saveCheckSum();
    });
}

void FormCalParam::LoadPrompts() {
    Routine routine(session_, u"FormCalParam,LoadPrompts"_s);
    routine.run([&] {
        const auto queries = promptQueries(session_, controls_, instrument_);
        // Whatever fails, no list shows the messages of the instrument before.
        for (const auto& query : queries)
            query.list->clear();
        for (const auto& [list, statement] : queries)
            addResult(*list, routine, statement);
    });
}

void FormCalParam::ShowUnitTabs() {
    for (const auto& [unitClass, subTabs, units] : unitTabs)
        (controls_.*subTabs)->setVisible(UnitClass((controls_.*units)->currentText()) == unitClass);
    const bool serial = controls_.ComboTransTypeOut->currentText() == u"Serial"_s;
    controls_.SSTabTorqueOut->setTabEnabled(analogPage, !serial);
    controls_.SSTabTorqueOut->setTabEnabled(digitalPage, serial);
    const bool clickDip = controls_.ComboMeasurementModeOut->currentText() == u"Click Dip"_s;
    controls_.TextDipOut->setEnabled(clickDip);
    controls_.LabelDipOut->setEnabled(clickDip);
}

double FormCalParam::Form_CheckSum() {
    double sum = 0;
    Routine routine(session_, u"FormCalParam,Form_CheckSum"_s);
    routine.run([&] {
        const BusyPointer busy(session_.ui);
        sum = ModuleGlobals::CheckSum(session_, summedText(controls_));
    });
    return sum;
}

bool FormCalParam::isChanged() {
    // Without a saved sum nothing was loaded that could be changed.
    return Form_CheckSum() != savedCheckSum() && savedCheckSum() > 0;
}

void FormCalParam::CommandSelect() {
    if (!mayDiscard(closeQuestion()))
        return;
    // Without an answer the current instrument is loaded again.
    GetAsset();
    LoadControls();
}

QString FormCalParam::strategy() const {
    return controls_.ComboTSName->currentText();
}

void FormCalParam::addStrategy(const QString& name) {
    addRows(*controls_.ComboTSName, {name});
}

void FormCalParam::addMessage(const QString& name) {
    controls_.ListPreAvail->addItem(name);
    controls_.ListPostAvail->addItem(name);
}

} // namespace kelvane
