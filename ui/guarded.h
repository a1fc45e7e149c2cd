#pragma once

#include "platform/error.h"
#include "platform/user_interface.h"

#include <QObject>

#include <utility>

namespace kelvane {

/// Shows that the error report itself could not be written.
void showUnwritableReport(UserInterface& ui);

/// The last guard of a window's handler: nothing may be thrown through the event loop. The one error that
/// gets here is that of a report whose file can't be written.
template <class Body>
void runGuarded(UserInterface& ui, Body&& body) {
    try {
        std::forward<Body>(body)();
    } catch (const Error&) {
        showUnwritableReport(ui);
    }
}

/// Connects a signal, whatever its arguments, to a guarded handler; the connection ends with `context`.
template <class Sender, class Signal, class Body>
void connectGuarded(Sender* sender, Signal signal, QObject* context, UserInterface& ui, Body body) {
    QObject::connect(sender, signal, context, [&ui, body] { runGuarded(ui, body); });
}

} // namespace kelvane
