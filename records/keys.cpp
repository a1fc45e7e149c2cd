#include "records/keys.h"

#include "ui/guarded.h"

#include <QShortcut>

namespace kelvane {

namespace {

void connectIn(Qt::ShortcutContext context, QWidget& where, const QKeySequence& keys, UserInterface& ui,
               const std::function<void()>& command) {
    auto* shortcut = new QShortcut(keys, &where);
    shortcut->setContext(context);
    connectGuarded(shortcut, &QShortcut::activated, &where, ui, command);
}

} // namespace

void connectKeys(QWidget& where, const QKeySequence& keys, UserInterface& ui,
                 const std::function<void()>& command) {
    connectIn(Qt::WidgetWithChildrenShortcut, where, keys, ui, command);
}

void connectPageKeys(QWidget& page, const QKeySequence& keys, UserInterface& ui,
                     const std::function<void()>& command) {
    // It does not fire while the page is hidden.
    connectIn(Qt::WindowShortcut, page, keys, ui, command);
}

} // namespace kelvane
