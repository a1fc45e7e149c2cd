#include "benchmarks/require.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

namespace kelvane::bench {

void giveUp(const QString& what) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(QCoreApplication::applicationName()), qPrintable(what));
    std::exit(1);
}

} // namespace kelvane::bench
