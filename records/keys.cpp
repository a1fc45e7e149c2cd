#include "records/keys.h"

#include "ui/guarded.h"

#include <QShortcut>

namespace kelvane {

void connectKeys(QWidget& where, const QKeySequence& keys, UserInterface& ui,
                 const std::function<void()>& command) {
    auto* shortcut = new QShortcut(keys, &where);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connectGuarded(shortcut, &QShortcut::activated, &where, ui, command);
}

} // namespace kelvane
