#include "ui/child_window.h"

#include "platform/error_report.h"
#include "platform/numbers.h"

#include <QCloseEvent>
#include <QMdiArea>

namespace kelvane {

namespace {

constexpr int twipsPerPixel = 15;

int storedOr(const Session& session, const QString& section, const QString& name, int otherwise) {
    const auto stored = ModuleGlobals::GetRegSetting(session, section, name);
    return stored.isEmpty() ? otherwise : static_cast<int>(numericValue(stored));
}

} // namespace

ChildWindow::ChildWindow(Session& session, ChildForm form, const QString& name, const Place& place)
    : session_(session), form_(form), place_(place) {
    setObjectName(name);
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(pixels(place.width), pixels(place.height));
    session_.openFlag(form_) = true;
}

ChildWindow::~ChildWindow() {
    session_.openFlag(form_) = false;
}

void ChildWindow::showIn(QMdiArea& area) {
    if (!mdiArea()) {
        area.addSubWindow(this);
        move(pixels(storedOr(session_, QStringLiteral("Left"), objectName(), place_.left)),
             pixels(storedOr(session_, QStringLiteral("Top"), objectName(), place_.top)));
    }
    show();
    area.setActiveSubWindow(this);
}

void ChildWindow::unload() {
    unloading_ = true;
    close();
}

void ChildWindow::closeEvent(QCloseEvent* event) {
    if (!unloading_ && !mayClose()) {
        event->ignore();
        return;
    }
    ModuleGlobals::SaveRegSetting(session_, QStringLiteral("Left"), objectName(),
                                  plainText(x() * twipsPerPixel));
    ModuleGlobals::SaveRegSetting(session_, QStringLiteral("Top"), objectName(),
                                  plainText(y() * twipsPerPixel));
    session_.openFlag(form_) = false;
    QMdiSubWindow::closeEvent(event);
}

} // namespace kelvane
