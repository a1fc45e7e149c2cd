#include "procedures/ask_instrument.h"

#include "data/assets/assets.h"
#include "data/custom_dialog.h"
#include "resources/strings.h"
#include "resources/text_id.h"

namespace kelvane {

std::optional<QString> askInstrument(Session& session, Routine& routine) {
    for (;;) {
        const auto entry =
            ModuleGlobals::CustomDialog(session, text(TextId::calibrationParameters),
                                        text(TextId::instrumentNumberPrompt), true, 0, 0, 0, QString());
        if (entry == cancelled)
            return {};
        if (routine.hasRow(ModuleGlobals::mtagQuery(session, entry)))
            return entry;
        if (session.ui.messageBox(text(TextId::instrumentNumberInvalid), text(TextId::calibrationParameters),
                                  box::warningRetryCancel) != BoxAnswer::retry)
            return {};
    }
}

} // namespace kelvane
