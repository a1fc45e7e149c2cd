#include "editors/cal_param/form_cal_param.h"

#include "data/routine.h"
#include "data/small_routines.h"
#include "data/tolerances/unit_class.h"
#include "editors/ask_instrument.h"
#include "editors/cal_param/cal_param_load.h"
#include "editors/cal_param/cal_param_pages.h"
#include "procedures/column_values.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
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

} // namespace

FormCalParam::FormCalParam(Session& session)
    : EditorWindow(session, u"FormCalParam"_s, {.width = 9960, .height = 7110}) {
    // The others may take it for open only once it has an instrument.
    setCountsAsOpen(false);
    setWindowTitle(text(TextId::calibrationParameters));
    setBody(makeCalParamPages(controls_));
    setDefaultButton(controls_.CommandSave);
    setFirstFocus(controls_.ComboTSName);
    for (auto* list : {controls_.ComboInputUnits, controls_.ComboOutputUnits, controls_.ComboTransTypeOut,
                       controls_.ComboMeasurementModeOut})
        onSignal(list, &QComboBox::activated, this, session_.ui, [this] { ShowUnitTabs(); });
    onClick(controls_.CommandSelect, [this] { CommandSelect(); });
    connectSaving();
}

void FormCalParam::chooseFirst() {
    bool loaded = false;
    run([&] {
        session_.ui.processEvents();
        const auto asset = GetAsset();
        loaded = asset && LoadControls(*asset);
    });
    if (loaded)
        setCountsAsOpen(true);
    else
        unload();
}

std::optional<QString> FormCalParam::GetAsset() {
    std::optional<QString> asset;
    Routine routine(session_, u"MDIFormMain,GetAsset"_s);
    routine.run([&] { asset = askInstrument(session_, routine); });
    return asset;
}

void FormCalParam::showInstrument() {
    setWindowTitle(text(TextId::calibrationParameters) + u" ("_s + instrument_ + u')');
}

bool FormCalParam::LoadControls(const QString& instrument) {
    bool loaded = false;
    const ReportWatch reports(session_);
    Routine routine(session_, u"FormCalParam,LoadControls"_s);
    routine.run([&] {
        const auto strategies = columnValues(
            routine, u"select distinct(tp_name) from mt.hvm_kv_proc_points order by tp_name asc");
        const auto record = ModuleGlobals::GetCalParams(session_, instrument);
        const auto prompts = LoadPrompts(instrument);
        // Half an instrument on the screen would be saved as if it were all of it.
        if (reports.sawReport())
            return;

        instrument_ = instrument;
        showInstrument();
        controls_.ComboTSName->clear();
        addRows(*controls_.ComboTSName, strategies);
        // An instrument without parameters starts from what the screen shows.
        if (!record.mtag.isEmpty())
            showRecord(record, controls_);
        ShowUnitTabs();
        const auto queries = promptQueries(session_, controls_, instrument);
        for (qsizetype i = 0; i < queries.size(); ++i)
            refill(*queries[i].list, prompts[i]);
        saveCheckSum();
        loaded = true;
    });
    return loaded;
}

QList<QStringList> FormCalParam::LoadPrompts(const QString& instrument) {
    QList<QStringList> rows;
    Routine routine(session_, u"FormCalParam,LoadPrompts"_s);
    routine.run([&] {
        for (const auto& query : promptQueries(session_, controls_, instrument))
            rows << columnValues(routine, query.statement);
    });
    return rows;
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
    return savedCheckSum() > 0 && EditorWindow::isChanged();
}

void FormCalParam::CommandSelect() {
    if (!mayDiscard(closeQuestion()))
        return;
    // Without an answer the current instrument is loaded again.
    LoadControls(GetAsset().value_or(instrument_));
}

QString FormCalParam::strategy() const {
    return controls_.ComboTSName->currentText();
}

void FormCalParam::addStrategy(const QString& name) {
    addRows(*controls_.ComboTSName, {name});
}

void FormCalParam::renameStrategy(const QString& from, const QString& to) {
    auto& list = *controls_.ComboTSName;
    const int row = list.findText(from);
    if (row < 0)
        return;
    const bool changed = isChanged();
    if (const int other = list.findText(to); other < 0) {
        list.setItemText(row, to);
    } else if (other != row) {
        if (list.currentIndex() == row)
            list.setCurrentIndex(other);
        list.removeItem(row);
    }
    // The instrument that is stored has the new name, too.
    if (changed)
        markUnsaved();
    else
        saveCheckSum();
}

void FormCalParam::keyPressEvent(QKeyEvent* event) {
    // The screen has no button that cancels: Escape closes it, and asks before changes go.
    if (event->key() == Qt::Key_Escape)
        close();
    else
        EditorWindow::keyPressEvent(event);
}

void FormCalParam::addMessage(const QString& name) {
    controls_.ListPreAvail->addItem(name);
    controls_.ListPostAvail->addItem(name);
}

} // namespace kelvane
