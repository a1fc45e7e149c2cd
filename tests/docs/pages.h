#pragma once

#include <QStringList>

namespace kelvane::testing {

/// The text of a page, by its path in the tree; a test fails when it can't be read.
QString textOfPage(const QString& path);

/// The lines of the page's blocks that are marked as commands for a shell ("sh"), in their order.
QStringList shellLines(const QString& path);

} // namespace kelvane::testing
