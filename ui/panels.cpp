#include "ui/panels.h"

#include "ui/controls.h"

#include <QGroupBox>
#include <QTabBar>
#include <QTabWidget>

namespace kelvane {

QGroupBox* panel(const QString& name, int caption) {
    auto* made = named(new QGroupBox, name, text(caption));
    made->setTitle(text(caption));
    return made;
}

QLabel* note(const QString& name, int text) {
    auto* made = label(name, text);
    made->setWordWrap(true);
    return made;
}

QTabWidget* tabControl(const QString& name, int accessibleName) {
    auto* made = named(new QTabWidget, name, text(accessibleName));
    made->setFocusPolicy(Qt::NoFocus);
    made->tabBar()->setFocusPolicy(Qt::TabFocus);
    made->tabBar()->setAccessibleName(text(accessibleName));
    // A caption that is cut off says nothing; rather the window grows.
    made->setUsesScrollButtons(false);
    made->setElideMode(Qt::ElideNone);
    return made;
}

} // namespace kelvane
