#pragma once

namespace kelvane::testing {

/// The ODBC calls of this program pass through here. Controls: `failCall` makes the n-th call from now on
/// (from 0) an error, none when negative; `failFrom` all calls from the n-th on. `callCount` counts them:
/// there were since.
void failCall(int n);
void failFrom(int n);
int callCount();

} // namespace kelvane::testing
