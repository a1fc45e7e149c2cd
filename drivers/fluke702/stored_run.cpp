#include "drivers/fluke702/stored_run.h"

#include "data/assets/assets.h"
#include "data/small_routines.h"
#include "drivers/fluke702/base_units.h"

namespace kelvane::Module702Interface {

namespace {

using Status = Dpclnk::Status;
using HeaderValue = qint16 RunHeader::*;

constexpr HeaderValue dateValues[] = {&RunHeader::kind, &RunHeader::month, &RunHeader::day, &RunHeader::year};
constexpr HeaderValue timeValues[] = {&RunHeader::hour, &RunHeader::minute, &RunHeader::second};

constexpr int tagLength = 33;
constexpr int entryValues = 7;

Status fetch(Dpclnk& link, qint32 record, RunHeader& header) {
    return link.MEMrDir(record, header.kind, header.month, header.day, header.year, header.hour,
                        header.minute, header.second);
}

Status fetchAgain(Dpclnk& link, qint32 record, RunHeader& header, HeaderValue value) {
    RunHeader scratch;
    const auto status = fetch(link, record, scratch);
    if (status == 0)
        header.*value = scratch.*value;
    return status;
}

/// Not cleaned yet.
Status fetchTag(Dpclnk& link, qint32 record, RunTag& tag) {
    const QString blanks(tagLength, u' ');
    tag = {blanks, blanks, blanks};
    return link.MEMtagidInfo(record, tag.tag, tag.serial, tag.technician);
}

} // namespace

Moment momentOf(const RunHeader& header) {
    return momentOfRun(header.year, header.month, header.day,
                       QTime(header.hour, header.minute, header.second));
}

Status readHeader(Dpclnk& link, qint32 record, RunHeader& header) {
    header = {};
    auto status = fetch(link, record, header);
    for (const auto value : dateValues) {
        if (status == 0 && header.*value == 0)
            status = fetchAgain(link, record, header, value);
    }
    const bool isMidnight = header.hour == 0 && header.minute == 0 && header.second == 0;
    for (const auto value : timeValues) {
        if (status == 0 && isMidnight)
            status = fetchAgain(link, record, header, value);
    }
    return status;
}

Status readTag(Dpclnk& link, qint32 record, RunTag& tag) {
    const auto status = fetchTag(link, record, tag);
    for (auto* text : {&tag.tag, &tag.serial, &tag.technician})
        *text = ModuleGlobals::CleanDLLString(*text);
    return status;
}

QString tagOf(Dpclnk& link, qint32 record) {
    RunTag tag;
    fetchTag(link, record, tag);
    return ModuleGlobals::CleanDLLString(tag.tag);
}

Status readEntry(Dpclnk& link, qint32 record, qint16 entry, RunEntry& values) {
    for (int position = entryValues; position >= 1; --position) {
        RunEntry fetched;
        qint16 unused2 = 0;
        float unused3 = 0;
        qint16 unused5 = 0;
        float unused6 = 0;
        const auto status =
            link.MEMcalResultEntry(record, entry, fetched.reading, unused2, unused3, fetched.applied, unused5,
                                   unused6, fetched.calibratorError);
        if (status != 0)
            return status;
        if (position == 7)
            values.calibratorError = fetched.calibratorError;
        if (position == 4)
            values.applied = fetched.applied;
        if (position == 1)
            values.reading = fetched.reading;
    }
    return 0;
}

RunReading readingOf(const CalParamRecord& instrument, const RunEntry& entry) {
    return {.applied = double{fromBaseUnit(baseUnits, entry.applied, instrument.input_type)},
            .reading = double{fromBaseUnit(baseUnits, entry.reading, instrument.output_type)},
            .calibratorError = 100 * double{entry.calibratorError}};
}

RunStandards standardsOf(Session& session, CalRecord& record, const RunResults& run, const QString& serial) {
    RunStandards standards(session, record, serial);
    standards.addModule(run.pressureModule);
    return standards;
}

} // namespace kelvane::Module702Interface
