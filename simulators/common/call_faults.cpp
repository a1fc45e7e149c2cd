#include "simulators/common/call_faults.h"

#include "simulators/common/failure.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators {

namespace {

/// A count from 1; 0 when the digits are none or too many.
int countOf(const QString& digits) {
    bool read = false;
    const int count = digits.toInt(&read);
    return read && count <= 1'000'000 ? count : 0;
}

} // namespace

CallFaults::Fault CallFaults::faultOf(const QString& text, std::span<const char* const> operations) {
    static const QRegularExpression form(u"^([A-Za-z0-9]+)(?:\\+([0-9]+))?(?:\\*([0-9]+))?=(-?[0-9]+)$"_s);
    const QRegularExpressionMatch parts = form.match(text);
    if (!parts.hasMatch())
        throw Failure(u"\"%1\" is no fault. A fault is OPERATION[+AFTER][*TIMES]=STATUS."_s.arg(text));
    Fault fault;
    fault.operation = parts.captured(1).toLatin1();
    if (std::none_of(operations.begin(), operations.end(),
                     [&](const char* name) { return fault.operation == name; }))
        throw Failure(u"The fault \"%1\" names an operation that the library does not have."_s.arg(text));
    if (parts.hasCaptured(2))
        fault.after = countOf(parts.captured(2));
    if (parts.hasCaptured(3))
        fault.left = countOf(parts.captured(3));
    bool read = false;
    fault.status = parts.captured(4).toShort(&read);
    if (!read || fault.left == 0 || (parts.hasCaptured(2) && fault.after == 0))
        throw Failure(u"The fault \"%1\" has a number that is out of range."_s.arg(text));
    return fault;
}

CallFaults::CallFaults(const QString& text, std::span<const char* const> operations) {
    for (const QString& part : text.split(u';'))
        if (!part.trimmed().isEmpty())
            faults_.push_back(faultOf(part.trimmed(), operations));
}

std::optional<qint16> CallFaults::take(const char* operation) {
    for (Fault& fault : faults_) {
        if (fault.left == 0 || fault.operation != operation)
            continue;
        if (fault.after > 0) {
            --fault.after;
            continue;
        }
        if (fault.left > 0)
            --fault.left;
        return fault.status;
    }
    return {};
}

} // namespace kelvane::simulators
