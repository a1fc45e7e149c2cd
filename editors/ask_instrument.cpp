#include "editors/ask_instrument.h"

#include "data/assets.h"
#include "data/custom_dialog.h"
#include "editors/statement_parts.h"
#include "resources/strings.h"

namespace kelvane {

std::optional<QString> askInstrument(Session& session, Routine& routine) {
    for (;;) {
        const auto entry =
            ModuleGlobals::CustomDialog(session, text(112), text(1096), true, 0, 0, 0, QString());
        if (entry == cancelled)
            return {};
        if (routine.hasRow(ModuleGlobals::mtagQuery(session, entry)))
            return entry;
        if (session.ui.messageBox(text(195), text(112), box::warningRetryCancel) != BoxAnswer::retry)
            return {};
    }
}

} // namespace kelvane
