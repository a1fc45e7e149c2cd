#pragma once

#include <QByteArrayList>

namespace kelvane::testing {

/// The settings of the password hashes that this program has computed since the last call, in order: how many
/// there were, and what each has cost.
QByteArrayList takeComputedSettings();

} // namespace kelvane::testing
