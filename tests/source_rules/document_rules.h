#pragma once

#include <QDir>
#include <QStringList>

namespace kelvane::testing {

/// Files that a document under `root` (README.md and the others beside it, docs/) names in back quotes by
/// their path, or in a link, and that the tree does not have; one line each. What the build makes is passed
/// over.
QStringList missingFiles(const QDir& root);

/// Headings that a link in one of these documents names ("page.md#heading", "#heading") and that the document
/// it leads to does not have; one line each.
QStringList missingHeadings(const QDir& root);

} // namespace kelvane::testing
