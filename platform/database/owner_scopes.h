#pragma once

#include "platform/database/sql_text.h"

namespace kelvane {

/// Resolves columns that are qualified with an owner's table which stands in no from clause around them:
/// "abc.inventory.mtag" inside a query from "std.inventory" means "std.inventory.mtag", as long as
/// `inventory` of exactly one other owner stands in the from clauses around it. Only the clauses of the query
/// itself and of those that enclose it count. Names compare without case. A table with an alias is never
/// meant, but where it has the owner asked for the column is left alone.
void resolveOwners(TokenSpan statement, TextEdits& edits);

} // namespace kelvane
