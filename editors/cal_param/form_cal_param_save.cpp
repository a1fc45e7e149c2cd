#include "editors/cal_param/form_cal_param.h"

#include "data/assets/assets.h"
#include "data/routine.h"
#include "editors/ask_instrument.h"
#include "editors/cal_param/cal_param_columns.h"
#include "editors/cal_param/cal_param_faults.h"
#include "editors/cal_param/cal_param_refusal.h"
#include "editors/cal_param/prompt_lists.h"
#include "editors/refusal.h"
#include "platform/values/numbers.h"
#include "procedures/statement_parts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

void makePositive(QLineEdit& field) {
    field.setText(plainText(std::abs(numberIn(field))));
}

/// A signal of alternating voltage has no sign: its scale is stored, and from now on shown, without one.
void makeAlternatingScalesPositive(const CalParamControls& c) {
    for (const auto& unit : {u"VAC"_s, u"mVAC"_s}) {
        if (c.ComboInputUnits->currentText() == unit) {
            makePositive(*c.TextInputLow);
            makePositive(*c.TextInputHigh);
        }
        if (c.ComboOutputUnits->currentText() == unit) {
            makePositive(*c.TextOutputLow);
            makePositive(*c.TextOutputHigh);
        }
    }
}

} // namespace

void FormCalParam::connectSaving() {
    onClick(controls_.CommandSave, [this] { SaveData(); });
    onClick(controls_.CommandClone, [this] { CommandClone(); });
    connectPromptLists(controls_, session_);
}

void FormCalParam::SaveData() {
    Routine routine(session_, u"FormCalParam,SaveData"_s);
    const auto save = [&] {
        if (const auto fault = firstFault(controls_)) {
            showFault(*fault);
            return;
        }
        markUnsaved();
        makeAlternatingScalesPositive(controls_);
        const BusyPointer busy(session_.ui);
        Transaction saving(session_);
        for (const auto& statement : savingStatements(session_, controls_, instrument_))
            routine.execute(statement);
        saving.commit();
        showInstrument();
        saveCheckSum();
    };
    if (const auto error = routine.failureOf(save))
        refuse(*error);
}

void FormCalParam::refuse(const Error& error) {
    if (saysMissing(error, "mtag"_L1))
        session_.ui.messageBox(text(TextId::instrumentNoLongerKnown).arg(instrument_),
                               text(TextId::calibrationParameters), box::warning);
    else
        goToRefused(controls_, instrument_, error);
}

void FormCalParam::showFault(const CalParamFault& fault) {
    session_.ui.messageBox(text(fault.message), text(TextId::calibrationParameters), box::warning);
    controls_.SSTab1->setCurrentIndex(fault.page);
    if (fault.subTabs)
        fault.subTabs->setCurrentIndex(fault.subPage);
    if (fault.focus)
        fault.focus->setFocus();
}

void FormCalParam::CommandClone() {
    Routine routine(session_, u"FormCalParam,CommandClone"_s);
    routine.run([&] {
        const auto target = askInstrument(session_, routine);
        if (!target)
            return;
        const auto stored =
            u"select mtag from mt.hvm_kv_tag_config where mtag = " + ModuleGlobals::mtagOf(session_, *target);
        if (routine.hasRow(stored) &&
            session_.ui.messageBox(text(TextId::confirmConfigurationOverwrite),
                                   text(TextId::calibrationParameters), box::warningYesNo) != BoxAnswer::yes)
            return;
        instrument_ = *target;
        SaveData();
    });
}

} // namespace kelvane
