#pragma once

#include "data/session.h"

namespace kelvane::ModuleGlobals {

/// Expands the "$" macros of a test message or of stored selection SQL. `asset` may be empty; macros that
/// need one then stand as their own names. Empty after an error.
QString UUTPromptTextPrepare(Session& session, const QString& text, const QString& asset);

} // namespace kelvane::ModuleGlobals
