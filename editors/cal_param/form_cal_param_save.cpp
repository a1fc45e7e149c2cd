#include "editors/cal_param/form_cal_param.h"

#include "editors/cal_param/cal_param_focus.h"
#include "editors/cal_param/prompt_lists.h"
#include "procedures/cal_param_checks.h"
#include "procedures/cal_param_reading.h"
#include "procedures/cal_param_saving.h"
#include "procedures/refusal.h"
#include "resources/strings.h"
#include "resources/text_id.h"
#include "ui/list_rows.h"

#include <QPushButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

void FormCalParam::connectSaving() {
    onClick(controls_.CommandSave, [this] { SaveData(); });
    onClick(controls_.CommandClone, [this] { CommandClone(); });
    connectPromptLists(controls_, session_);
}

void FormCalParam::SaveData() {
    auto entries = fields_.entries();
    if (const auto fault = firstFault(entries)) {
        showFault(*fault);
        return;
    }
    for (const auto limit : makeAlternatingScalesPositive(entries))
        fields_.control(limit)->show(entries[limit]);
    if (const auto error = store(entries))
        refuse(*error);
}

std::optional<Error> FormCalParam::store(const CalParamEntries& entries) {
    markUnsaved();
    const BusyPointer busy(session_.ui);
    auto error = storeCalParams(session_, instrument_, entries,
                                {rowsOf(*controls_.ListPreDisplay), rowsOf(*controls_.ListPostDisplay)});
    if (!error) {
        showInstrument();
        saveCheckSum();
    }
    return error;
}

void FormCalParam::refuse(const Error& error) {
    if (saysMissing(error, "mtag"_L1))
        session_.ui.messageBox(text(TextId::instrumentNoLongerKnown).arg(instrument_),
                               text(TextId::calibrationParameters), box::warning);
    else if (auto* control = refusedControl(error))
        goTo(*control->widget());
    else if (!focusMessageList(*controls_.ListPreDisplay))
        focusMessageList(*controls_.ListPostDisplay);
}

CalParamControl* FormCalParam::refusedControl(const Error& error) const {
    const auto refused = refusedParameter(instrument_, fields_.entries(), error);
    return refused ? fields_.control(*refused) : nullptr;
}

void FormCalParam::showFault(const CalParamFault& fault) {
    session_.ui.messageBox(text(fault.message), text(TextId::calibrationParameters), box::warning);
    controls_.SSTab1->setCurrentIndex(fault.page);
    if (!fault.parameter)
        return;
    auto* field = fields_.control(*fault.parameter)->widget();
    showSubPage(*field, *controls_.SSTab1);
    field->setFocus();
}

void FormCalParam::CommandClone() {
    const auto target = askForCloneTarget(session_);
    if (!target)
        return;
    instrument_ = *target;
    SaveData();
}

} // namespace kelvane
