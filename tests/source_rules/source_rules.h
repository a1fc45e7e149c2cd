#pragma once

#include <QDir>
#include <QStringList>

namespace kelvane::testing {

/// The rules that the tree of sources under `root` has to keep, a line for each fault; no line when all is
/// well.
///
/// Includes: a module includes only from layers below its own, a driver nothing of another driver, a core
/// module no header of the window libraries; what stands beside the layers (simulators, testkit, then demo
/// and benchmarks, then tests) nothing that comes after it; between folders they are written from the root;
/// no file includes itself, be it by way of others.
QStringList includeFaults(const QDir& root);

/// Sources of the modules that no test names: no file under tests/ or testkit/ includes their header or is
/// called after them, and they are no part of a tested file either, which would use them from the same
/// module. A source's header is the one of its own name, else the first one that it includes; "main.cpp" has
/// none.
QStringList sourcesWithoutTest(const QDir& root);

/// Includes of headers that only POSIX has, outside the sources called after it ("..._posix.cpp"). Tests and
/// what is made for them may use these everywhere.
QStringList posixFaults(const QDir& root);

/// Places in the modules where a text is named by its number.
QStringList numberedTexts(const QDir& root);

/// Statements in the modules with windows, also in their sources without one: SQL words in a literal, and the
/// names out of which `platform/database/sql.h` lets a statement be built. What these modules ask of the
/// database are routines of the modules below them.
QStringList statementsInModulesWithWindows(const QDir& root);

/// What the sources with windows, those that a CMakeLists.txt gives to `kelvane_screens`, have of the
/// database: uses of the shared connection, in a source or in a header of these that it includes from its own
/// folder; and every way along the includes to the header without which no statement can be made.
QStringList databaseInScreens(const QDir& root);

} // namespace kelvane::testing
