#!/usr/bin/env bash
# Clang over the sources of the programs, two at a time: its own warnings and the checks of .clang-tidy are errors.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

# The compiler's precompiled headers are of no use to clang; without them each source reads only what it includes.
cmake --preset plain -B build/tidy -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >build/tidy.log 2>&1 ||
    { cat build/tidy.log >&2; exit 1; }
git ls-files '*.cpp' ':!tests' ':!testkit' ':!benchmarks' ':!*_windows.cpp' |
    xargs -P "$(nproc)" -n 2 clang-tidy -p build/tidy --quiet --extra-arg=-Wno-unknown-warning-option 2>build/tidy.log ||
    { grep -v 'warnings generated' build/tidy.log >&2; exit 1; }
