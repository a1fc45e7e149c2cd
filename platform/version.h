#pragma once

#include <QString>

namespace kelvane {

/// The version of the programs, such as "0.2.0": that of the project in CMake, which is the only place where
/// it stands.
QString programVersion();

} // namespace kelvane
