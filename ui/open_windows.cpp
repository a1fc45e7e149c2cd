#include "ui/open_windows.h"

#include "ui/child_window.h"

#include <QApplication>

#include <algorithm>

namespace kelvane {

namespace {

template <class Condition>
bool anyOpen(const Session& session, const Condition& condition) {
    return std::ranges::any_of(QApplication::allWidgets(), [&](const QWidget* widget) {
        const auto* window = qobject_cast<const ChildWindow*>(widget);
        return window && window->countsAsOpenIn(session) && condition(*window);
    });
}

} // namespace

bool isWindowOpen(const Session& session, QStringView name) {
    return anyOpen(session, [name](const ChildWindow& window) { return window.objectName() == name; });
}

bool isAnyWindowOpen(const Session& session) {
    return anyOpen(session, [](const ChildWindow&) { return true; });
}

QWidget* shownWindow(QStringView title) {
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [title](const QWidget* window) {
        return window->isVisible() && window->windowTitle() == title;
    });
    return found == windows.cend() ? nullptr : *found;
}

void bringWindowForward(QStringView title) {
    auto* window = shownWindow(title);
    if (!window)
        return;
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
}

} // namespace kelvane
