#include "data/guard.h"

#include "platform/error_report.h"

namespace kelvane {

void Guard::report(const Error& error) {
    ++session_.reportCount;
    if (error.connectionLost)
        session_.SessionConnected = false;
    ModuleGlobals::ReportInternalError(session_, error.number, error.description, name_, statement_);
}

} // namespace kelvane
