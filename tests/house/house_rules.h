#pragma once

#include <QDir>
#include <QStringList>

namespace kelvane::testing {

/// The rules that the tree of sources under `root` has to keep, each fault told in a line; no line when all
/// is well.
///
/// Includes: a room includes only from floors below its own, a driver nothing of another driver, a core room
/// no header of the window libraries; between folders they are written from the root; no file includes
/// itself, be it by way of others.
QStringList includeFaults(const QDir& root);

/// Sources of the house that no test names: no file under tests/ includes their header or is called after
/// them, and they are no part of a tested file either, which would use them from the same folder. A source's
/// header is the one of its own name, else the first one that it includes; "main.cpp" has none.
QStringList sourcesWithoutTest(const QDir& root);

/// Numbers given to `text(...)` in the sources of the house that the string table doesn't have.
QStringList unknownTexts(const QDir& root);

} // namespace kelvane::testing
