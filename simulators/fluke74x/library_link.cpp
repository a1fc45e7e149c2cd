#include "simulators/common/link_arguments.h"
#include "simulators/fluke74x/library.h"

#include <algorithm>

namespace kelvane::simulators::fluke74x {

namespace {

qint32 before(const qint32* count) {
    return count == nullptr ? 0 : *count;
}

} // namespace

Library::Library(const Environment& environment) : LinkCalls("dpclnk3", operationNames(), OutOfStep) {
    setEnvironment(environment);
}

Library::Status Library::DPC3open(qint32 baudRate, const char* port, qint32 timing, qint32 tries) {
    return call(
        "DPC3open", NoAnswer,
        [&] {
            if (baudRate <= 0 || port == nullptr || *port == '\0')
                return BadSettings;
            const Code code = transfer_.open(memory());
            Identity identity;
            if (code == Done && transfer_.identify(identity) == Done)
                maps_.openLinkTo(identity);
            return code;
        },
        baudRate, port, timing, tries);
}

Library::Status Library::DPC3close() {
    return call("DPC3close", [&] {
        transfer_.close();
        maps_.breakOff();
        return Done;
    });
}

Library::Status Library::DPC3get74X(char* model, qint32 modelLength, char* serial, qint32 serialLength,
                                    char* text, qint32 textLength, qint32* number, qint32* second,
                                    qint32* third) {
    return call("DPC3get74X", [&] {
        if (anyNull(model, serial, text) || anyNull(number, second, third) ||
            std::min({modelLength, serialLength, textLength}) < 1)
            return BadArgument;
        Identity identity;
        const Code code = transfer_.identify(identity);
        if (code != Done)
            return code;
        putText(model, modelLength, identity.model);
        putText(serial, serialLength, identity.serial);
        putText(text, textLength, identity.software);
        *number = identity.room;
        *second = 0;
        *third = 0;
        return Done;
    });
}

Library::Status Library::DPC3mapStart(qint32* count) {
    return call("DPC3mapStart", [&] {
        if (count == nullptr)
            return BadArgument;
        if (!transfer_.isOpen())
            return NotOpen;
        maps_.start(*count);
        return Done;
    });
}

Library::Status Library::DPC3mapStep(qint32* count) {
    const qint32 left = before(count);
    return call(
        "DPC3mapStep",
        [&] {
            if (count == nullptr)
                return BadArgument;
            return transfer_.isOpen() ? maps_.step(*count) : NotOpen;
        },
        left);
}

Library::Status Library::DPC3dnlStart(qint32* count) {
    return call("DPC3dnlStart", CantWrite, [&] {
        kept_.begin();
        return count == nullptr ? BadArgument : transfer_.startDownload(*count);
    });
}

Library::Status Library::DPC3dnlStep(qint32* count, qint32* kept1, qint32* kept2, qint32* kept3) {
    const qint32 left = before(count);
    const References numbers{before(kept1), before(kept2), before(kept3)};
    return call(
        "DPC3dnlStep", CantWrite,
        [&] {
            if (anyNull(count, kept1, kept2, kept3))
                return BadArgument;
            if (transfer_.isOpen() && !kept_.areThese(numbers))
                return BadArgument;
            const Code code = transfer_.stepDownload(*count);
            if (code != Done)
                return code;
            const References next = kept_.next();
            *kept1 = next.first;
            *kept2 = next.second;
            *kept3 = next.third;
            return Done;
        },
        left, numbers.first, numbers.second, numbers.third);
}

Library::Status Library::DPC3uplStart(qint32* count) {
    return call("DPC3uplStart", CantRead,
                [&] { return count == nullptr ? BadArgument : transfer_.startUpload(*count); });
}

Library::Status Library::DPC3uplStep(qint32* count) {
    const qint32 left = before(count);
    return call(
        "DPC3uplStep", CantRead,
        [&] { return count == nullptr ? BadArgument : transfer_.stepUpload(*count); }, left);
}

} // namespace kelvane::simulators::fluke74x
