#include "editors/cal_param/form_cal_param.h"

#include "data/small_routines.h"
#include "data/tolerances/unit_class.h"
#include "editors/cal_param/cal_param_pages.h"
#include "procedures/cal_param_reading.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/guarded.h"
#include "ui/list_rows.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using C = CalParamControls;
using R = CalParamRecord;

/// The sub-tabs that a unit calls for on either side, by its class.
constexpr struct {
    qint16 unitClass;
    QTabWidget* C::*subTabs;
    QString R::*units;
} unitTabs[] = {
    {1, &C::SSTabInTemp, &R::input_type},        {5, &C::SSTabInAmplitude, &R::input_type},
    {1, &C::SSTabOutTemp, &R::output_type},      {3, &C::SSTabCurrentOut, &R::output_type},
    {5, &C::SSTabOutAmplitude, &R::output_type}, {10, &C::SSTabTorqueOut, &R::output_type},
};

constexpr int analogPage = 1;
constexpr int digitalPage = 2;

} // namespace

FormCalParam::FormCalParam(Session& session)
    : EditorWindow(session, u"FormCalParam"_s, {.width = 9960, .height = 7110}) {
    // The others may take it for open only once it has an instrument.
    setCountsAsOpen(false);
    setWindowTitle(text(TextId::calibrationParameters));
    setBody(makeCalParamPages(controls_, fields_));
    setDefaultButton(controls_.CommandSave);
    setFirstFocus(fields_.list(&R::tp_name));
    for (const auto parameter :
         {&R::input_type, &R::output_type, &R::transducer_type_out, &R::measurement_mode_out})
        connectGuarded(fields_.list(parameter), &QComboBox::activated, this, session_.ui,
                       [this] { ShowUnitTabs(); });
    onClick(controls_.CommandSelect, [this] { CommandSelect(); });
    connectSaving();
}

void FormCalParam::chooseFirst() {
    bool loaded = false;
    run([&] {
        session_.ui.processEvents();
        const auto asset = askForInstrument(session_);
        loaded = asset && LoadControls(*asset);
    });
    if (loaded)
        setCountsAsOpen(true);
    else
        unload();
}

void FormCalParam::showInstrument() {
    setWindowTitle(text(TextId::calibrationParameters) + u" ("_s + instrument_ + u')');
}

bool FormCalParam::LoadControls(const QString& instrument) {
    return loadCalParams(session_, instrument, [&](const StoredCalParams& stored) {
        instrument_ = instrument;
        showInstrument();
        auto& strategies = *fields_.list(&R::tp_name);
        strategies.clear();
        addRows(strategies, stored.strategies);
        // An instrument without parameters starts from what the screen shows.
        if (!stored.record.mtag.isEmpty())
            fields_.show(stored.record);
        ShowUnitTabs();
        refill(*controls_.ListPreAvail, stored.available.pre);
        refill(*controls_.ListPostAvail, stored.available.post);
        refill(*controls_.ListPreDisplay, stored.displayed.pre);
        refill(*controls_.ListPostDisplay, stored.displayed.post);
        saveCheckSum();
    });
}

void FormCalParam::ShowUnitTabs() {
    for (const auto& [unitClass, subTabs, units] : unitTabs)
        (controls_.*subTabs)->setVisible(UnitClass(fields_.control(units)->entry()) == unitClass);
    const bool serial = fields_.control(&R::transducer_type_out)->entry() == u"Serial"_s;
    controls_.SSTabTorqueOut->setTabEnabled(analogPage, !serial);
    controls_.SSTabTorqueOut->setTabEnabled(digitalPage, serial);
    const bool clickDip = fields_.control(&R::measurement_mode_out)->entry() == u"Click Dip"_s;
    fields_.control(&R::click_dip_torque_out)->widget()->setEnabled(clickDip);
    fields_.label(&R::click_dip_torque_out)->setEnabled(clickDip);
}

double FormCalParam::Form_CheckSum() {
    double sum = 0;
    Guard(session_, u"FormCalParam,Form_CheckSum"_s).run([&] {
        const BusyPointer busy(session_.ui);
        sum = ModuleGlobals::CheckSum(session_, checkSumText(fields_, controls_));
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
    LoadControls(askForInstrument(session_).value_or(instrument_));
}

QString FormCalParam::strategy() const {
    return fields_.list(&R::tp_name)->currentText();
}

void FormCalParam::addStrategy(const QString& name) {
    addRows(*fields_.list(&R::tp_name), {name});
}

void FormCalParam::renameStrategy(const QString& from, const QString& to) {
    auto& list = *fields_.list(&R::tp_name);
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
