#include "editors/asking.h"

#include <QPointer>
#include <QWidget>

namespace kelvane {

namespace {

/// Keeps controls out of reach, and gives the focus back to the one that had it.
class DisabledScreen {
  public:
    explicit DisabledScreen(QWidget& controls) : controls_(&controls), focused_(controls.focusWidget()) {
        controls.setEnabled(false);
    }
    ~DisabledScreen() {
        if (controls_)
            controls_->setEnabled(true);
        if (focused_)
            focused_->setFocus(Qt::ActiveWindowFocusReason);
    }
    DisabledScreen(const DisabledScreen&) = delete;
    DisabledScreen& operator=(const DisabledScreen&) = delete;

  private:
    QPointer<QWidget> controls_;
    QPointer<QWidget> focused_;
};

} // namespace

std::optional<QString> askOutOfReach(QWidget& screen, Session& session,
                                     std::optional<QString> (*ask)(Session& session)) {
    const DisabledScreen whileAsked(screen);
    return ask(session);
}

} // namespace kelvane
