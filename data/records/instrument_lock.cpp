#include "data/records/instrument_lock.h"

namespace kelvane {

InstrumentLock::InstrumentLock(Session& session, const QString& mtag)
    : session_(session), name_((session.SessionOwner + u'.' + mtag).toLower()) {
    sharedConnection(session_).lock(name_);
}

InstrumentLock::~InstrumentLock() {
    try {
        sharedConnection(session_).unlock(name_);
    } catch (const Error&) {
        // The connection is lost then, and the lock ends with it.
    }
}

} // namespace kelvane
