#pragma once

#include "platform/database/connection.h"

namespace kelvane {

/// The same connections for a program that only reads. Whatever writes, commits or locks is refused with the
/// error 3027, and a text that is no single query with error 5; nothing of it reaches the database. Opening,
/// closing and queries pass on. The engine refuses what writes, too (`Connection::refuseWriting`): nothing
/// depends on how well a text was read here.
///
/// A query is one statement that begins with "select", without comments, and without words that make a query
/// write or lock ("into", "for update", a change in the place of a table).
ConnectionFactory readingConnections(ConnectionFactory connections);

} // namespace kelvane
