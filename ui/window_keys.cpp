#include "ui/window_keys.h"

#include "ui/guarded.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>

namespace kelvane {

namespace {

void enterMenu(QMenuBar& menu) {
    for (auto* shown : menu.actions()) {
        if (menu.isEnabled() && shown->isVisible() && shown->isEnabled()) {
            menu.setActiveAction(shown);
            return;
        }
    }
}

} // namespace

void bindMenuKey(QMainWindow& window, UserInterface& ui) {
    connectGuarded(new QShortcut(QKeySequence(Qt::Key_F10), &window), &QShortcut::activated, &window, ui,
                   [&window] { enterMenu(*window.menuBar()); });
}

QPushButton* buttonOfReturn(const QWidget& window, int key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return nullptr;
    auto* focused = qobject_cast<QPushButton*>(window.focusWidget());
    return focused && focused->hasFocus() ? focused : nullptr;
}

} // namespace kelvane
