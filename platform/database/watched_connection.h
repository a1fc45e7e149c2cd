#pragma once

#include "platform/database/connection.h"

namespace kelvane {

/// The same connections, which call `whenLost` as soon as a step of one, the reading of a record set
/// included, fails because the connection is gone. It is called before the failure reaches whoever took the
/// step, and must not throw.
ConnectionFactory watchedConnections(ConnectionFactory connections, std::function<void()> whenLost);

} // namespace kelvane
