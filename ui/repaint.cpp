#include "ui/repaint.h"

#include <QApplication>
#include <QWidget>

namespace kelvane {

void repaintWindows() {
    const auto windows = QApplication::topLevelWidgets();
    for (auto* window : windows) {
        if (window->isVisible())
            window->repaint();
    }
}

} // namespace kelvane
