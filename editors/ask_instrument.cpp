#include "editors/ask_instrument.h"

#include "data/custom_dialog.h"
#include "resources/strings.h"

using namespace Qt::StringLiterals;

namespace kelvane {

std::optional<QString> askInstrument(Session& session, Routine& routine) {
    for (;;) {
        const auto entry =
            ModuleGlobals::CustomDialog(session, text(112), text(1096), true, 0, 0, 0, QString());
        if (entry == cancelled)
            return {};
        if (routine.hasRow(u"select mtag from "_s + session.SessionOwner + u".inventory where i4201 = '"_s +
                           entry + u"'"_s))
            return entry;
        if (session.ui.messageBox(text(195), text(112), box::warningRetryCancel) != BoxAnswer::retry)
            return {};
    }
}

} // namespace kelvane
