#include "simulators/common/link_calls.h"

#include <cstdio>

namespace kelvane::simulators {

Environment environmentOf(const QByteArray& prefix, const QString& memory) {
    const auto variable = [&](const char* name) {
        return qEnvironmentVariable(QByteArray(prefix + name).constData());
    };
    const QString named = variable("_MEMORY");
    return {.memory = named.isEmpty() ? memory : named,
            .faults = variable("_FAULTS"),
            .record = variable("_RECORD")};
}

void LinkCalls::setEnvironment(const Environment& environment) {
    if (environment == environment_)
        return;
    environment_ = environment;
    trouble_.clear();
    faults_ = {};
    try {
        record_.open(environment.record);
        faults_ = CallFaults(environment.faults, operations_);
    } catch (const Failure& failure) {
        trouble_ = failure.text();
    }
}

const QString& LinkCalls::memory() const {
    if (!trouble_.isEmpty())
        throw Failure(trouble_);
    return environment_.memory;
}

void LinkCalls::say(const QString& words) const {
    std::fprintf(stderr, "%s: %s\n", library_, words.toLocal8Bit().constData());
}

} // namespace kelvane::simulators
