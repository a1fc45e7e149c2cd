#include "data/session.h"

namespace kelvane {

Connection& sharedConnection(Session& session) {
    if (!session.SharedConnection)
        session.SharedConnection = session.makeConnection();
    return *session.SharedConnection;
}

void closeConnection(Session& session) {
    try {
        if (session.SharedConnection)
            session.SharedConnection->close();
    } catch (const Error&) {
        // The engine brings its files in order at the next open.
    }
}

} // namespace kelvane
