#include "procedures/new_name.h"

#include "data/custom_dialog.h"
#include "data/routine.h"

namespace kelvane {

namespace {

bool isTaken(Session& session, Routine& routine, const Sql& record) {
    const BusyPointer busy(session.ui);
    return routine.hasRow(record);
}

} // namespace

std::optional<QString> askNewName(Session& session, const NewName& wanted) {
    Routine routine(session, wanted.routine.toString());
    return routine.resultOf([&] {
        for (;;) {
            const auto answer = ModuleGlobals::CustomDialog(session, text(wanted.title), text(wanted.prompt),
                                                            true, 0, wanted.maxLength, 0, QString());
            if (answer == cancelled || !isTaken(session, routine, wanted.recordOf(answer)))
                return answer;
            session.ui.messageBox(text(wanted.taken), text(wanted.title), box::warning);
        }
    });
}

} // namespace kelvane
