#include "editors/new_name.h"

#include "data/custom_dialog.h"
#include "resources/strings.h"

#include <QPointer>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Keeps controls out of reach, and gives the focus back to the one that had it.
class OutOfReach {
  public:
    explicit OutOfReach(QWidget& controls) : controls_(&controls), focused_(controls.focusWidget()) {
        controls.setEnabled(false);
    }
    ~OutOfReach() {
        if (controls_)
            controls_->setEnabled(true);
        if (focused_)
            focused_->setFocus(Qt::ActiveWindowFocusReason);
    }
    OutOfReach(const OutOfReach&) = delete;
    OutOfReach& operator=(const OutOfReach&) = delete;

  private:
    QPointer<QWidget> controls_;
    QPointer<QWidget> focused_;
};

} // namespace

std::optional<QString> askNewName(Session& session, Routine& routine, QWidget& screen,
                                  const NewName& wanted) {
    const OutOfReach whileAsked(screen);
    for (;;) {
        const auto name = ModuleGlobals::CustomDialog(session, text(wanted.title), text(wanted.prompt), true,
                                                      0, wanted.maxLength, 0, QString());
        if (name == cancelled)
            return {};
        bool taken = false;
        {
            const BusyPointer busy(session.ui);
            taken = routine.hasRow(wanted.recordOf(name));
        }
        if (!taken)
            return name;
        session.ui.messageBox(text(wanted.taken), text(wanted.title), box::warning);
    }
}

} // namespace kelvane
