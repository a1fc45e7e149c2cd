#pragma once

#include "platform/database/sql_text.h"

namespace kelvane {

/// Throws error 5 for a statement that a routine, or a condition that a site has stored, has no reason to
/// send: one that defines, attaches or sets something or moves a transaction by itself, one that reads or
/// writes a table beside those of the owners (the accounts, the engine's own), one that calls a function
/// which is not on the list. What is merely wrong is left to the engine.
void requirePermittedEmbedded(TokenSpan statement);
/// The same for the shared engine, beside the rights that its server gives the login.
void requirePermittedShared(TokenSpan statement);

} // namespace kelvane
