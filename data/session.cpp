#include "data/session.h"

namespace kelvane {

Connection& sharedConnection(Session& session) {
    if (!session.SharedConnection)
        session.SharedConnection = session.makeConnection();
    return *session.SharedConnection;
}

} // namespace kelvane
