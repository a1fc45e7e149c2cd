#include "simulators/fluke702/library.h"

#include "simulators/common/link_arguments.h"
#include "simulators/fluke702/settings.h"

namespace kelvane::simulators::fluke702 {

namespace {

// The widths of the buffers for texts that go out.
constexpr qsizetype modelWidth = 16;
constexpr qsizetype serialWidth = 10;
constexpr qsizetype textWidth = 40;
constexpr qsizetype tagWidth = 33;

/// Gives the texts to the work, or refuses when one is missing.
template <class Work, class... Texts>
Code withTexts(Work work, const Texts*... texts) {
    return anyNull(texts...) ? BadArgument : work(*textIn(texts)...);
}

} // namespace

Library::Library(const Environment& environment) : LinkCalls("dpclnk", operationNames(), OutOfStep) {
    setEnvironment(environment);
}

// ---- the link

Library::Status Library::DPCopen(qint32 baudRate, const char* port, qint32 timing, quint8 tries) {
    return call(
        "DPCopen", NoAnswer,
        [&] {
            if (baudRate <= 0 || port == nullptr || *port == '\0')
                return BadArgument;
            return transfer_.open(memory());
        },
        baudRate, port, timing, tries);
}

Library::Status Library::DPCclose() {
    return call("DPCclose", [&] {
        transfer_.close();
        return Done;
    });
}

Library::Status Library::DPCget70x(char* model, char* serial, char* text, qint32* number, qint32* second,
                                   qint32* third) {
    return call("DPCget70x", [&] {
        if (anyNull(model, serial, text, number, second, third))
            return BadArgument;
        Identity identity;
        const Code code = transfer_.identify(identity);
        if (code != Done)
            return code;
        putText(model, modelWidth, identity.model);
        putText(serial, serialWidth, identity.serial);
        putText(text, textWidth, identity.software);
        *number = identity.room;
        *second = 0;
        *third = 0;
        return Done;
    });
}

Library::Status Library::DPCdnlStart(qint32* count) {
    return call("DPCdnlStart", CantWrite,
                [&] { return count == nullptr ? BadArgument : transfer_.startDownload(*count); });
}

Library::Status Library::DPCdnlStep(qint32* count) {
    const qint32 before = count == nullptr ? 0 : *count;
    return call(
        "DPCdnlStep", CantWrite,
        [&] { return count == nullptr ? BadArgument : transfer_.stepDownload(*count); }, before);
}

Library::Status Library::DPCuplStart(qint32* count) {
    return call("DPCuplStart", CantRead,
                [&] { return count == nullptr ? BadArgument : transfer_.startUpload(*count); });
}

Library::Status Library::DPCuplStep(qint32* count) {
    const qint32 before = count == nullptr ? 0 : *count;
    return call(
        "DPCuplStep", CantRead, [&] { return count == nullptr ? BadArgument : transfer_.stepUpload(*count); },
        before);
}

// ---- writing the image

Library::Status Library::MEMclear() {
    return call("MEMclear", [&] {
        image_.clear();
        return Done;
    });
}

Library::Status Library::MEMstrategyDefn(qint32* strategyId, const char* name, qint16 count,
                                         const float* points) {
    const std::vector<float> given = pointsIn(count, points);
    return call(
        "MEMstrategyDefn",
        [&] {
            if (anyNull(strategyId, name, points))
                return BadArgument;
            return image_.defineStrategy(*textIn(name), given, *strategyId);
        },
        name, count, given);
}

Library::Status Library::MEMpromptDefn(const char* key, const char* prompt) {
    return call(
        "MEMpromptDefn",
        [&] {
            return withTexts(
                [&](const QString& name, const QString& text) { return image_.definePrompt(name, text); },
                key, prompt);
        },
        key, prompt);
}

Library::Status Library::MEMstartTask(const char* tag) {
    return call(
        "MEMstartTask",
        [&] { return withTexts([&](const QString& given) { return image_.startTask(given); }, tag); }, tag);
}

Library::Status Library::MEMprompt(const char* key) {
    return call(
        "MEMprompt",
        [&] { return withTexts([&](const QString& given) { return image_.placePrompt(given); }, key); }, key);
}

Library::Status Library::MEMtemplate(qint32 strategyId, qint16 readByHand, const char* tag,
                                     const char* serial, qint32 stateId) {
    return call(
        "MEMtemplate",
        [&] {
            return withTexts(
                [&](const QString& tagIn, const QString& serialIn) {
                    return image_.placeTemplate(strategyId, readByHand, tagIn, serialIn, stateId);
                },
                tag, serial);
        },
        strategyId, readByHand, tag, serial, stateId);
}

Library::Status Library::MEMendTask() {
    return call("MEMendTask", [&] { return image_.endTask(); });
}

// ---- the setup state

Library::Status Library::STAinit() {
    return call("STAinit", [&] {
        image_.newState();
        return Done;
    });
}

Library::Status Library::setWord(const char* operation, const char* word,
                                 Code (*set)(State&, const QString&)) {
    return call(
        operation,
        [&] { return withTexts([&](const QString& given) { return set(image_.state(), given); }, word); },
        word);
}

Library::Status Library::STAsetTempUnits(const char* units) {
    return setWord("STAsetTempUnits", units, setTemperatureUnits);
}

Library::Status Library::STAsetTempStd(const char* standard) {
    return setWord("STAsetTempStd", standard, setTemperatureStandard);
}

Library::Status Library::STAsetPresUnits(const char* units) {
    return setWord("STAsetPresUnits", units, setPressureUnits);
}

Library::Status Library::STAsetLoopPower(const char* power) {
    return setWord("STAsetLoopPower", power, setLoopPower);
}

Library::Status Library::STAsetTref(const char* mode, float temperature) {
    return call(
        "STAsetTref",
        [&] {
            return withTexts(
                [&](const QString& given) { return setColdJunction(image_.state(), given, temperature); },
                mode);
        },
        mode, temperature);
}

Library::Status Library::STAsetOutput(const char* mode, const char* sensor, float value, float amplitude) {
    return call(
        "STAsetOutput",
        [&] {
            return withTexts(
                [&](const QString& modeIn, const QString& sensorIn) {
                    return setSource(image_.state(), modeIn, sensorIn, value, amplitude);
                },
                mode, sensor);
        },
        mode, sensor, value, amplitude);
}

Library::Status Library::STAsetInput(const char* mode, const char* sensor) {
    return call(
        "STAsetInput",
        [&] {
            return withTexts(
                [&](const QString& modeIn, const QString& sensorIn) {
                    return setMeasure(image_.state(), modeIn, sensorIn);
                },
                mode, sensor);
        },
        mode, sensor);
}

Library::Status Library::STAsetInputRange(qint16 automatic, float top) {
    return call(
        "STAsetInputRange", [&] { return setRange(image_.state(), automatic, top); }, automatic, top);
}

Library::Status Library::STAsetOutputScale(float high, float low) {
    return call(
        "STAsetOutputScale", [&] { return setSourceScale(image_.state(), high, low); }, high, low);
}

Library::Status Library::STAsetInputScale(float high, float low) {
    return call(
        "STAsetInputScale", [&] { return setMeasureScale(image_.state(), high, low); }, high, low);
}

Library::Status Library::STAsetTestTolerance(float percent) {
    return call(
        "STAsetTestTolerance", [&] { return setTolerance(image_.state(), percent); }, percent);
}

Library::Status Library::STAsave(qint32* stateId) {
    return call("STAsave", [&] { return stateId == nullptr ? BadArgument : image_.saveState(*stateId); });
}

// ---- reading the image

Library::Status Library::MEMstats(qint32* tasks, qint32* count) {
    return call("MEMstats", [&] {
        if (anyNull(tasks, count))
            return BadArgument;
        *tasks = static_cast<qint32>(image_.contents().tasks.size());
        *count = static_cast<qint32>(image_.contents().runs.size());
        return Done;
    });
}

Library::Status Library::MEMrDir(qint32 record, qint16* kind, qint16* month, qint16* day, qint16* year,
                                 qint16* hour, qint16* minute, qint16* second) {
    return call(
        "MEMrDir",
        [&] {
            if (anyNull(kind, month, day, year, hour, minute, second))
                return BadArgument;
            const Run* const run = image_.run(record);
            if (run == nullptr)
                return UnknownId;
            *kind = run->kind;
            *month = run->time.month;
            *day = run->time.day;
            *year = run->time.year;
            *hour = run->time.hour;
            *minute = run->time.minute;
            *second = run->time.second;
            return Done;
        },
        record);
}

Library::Status Library::MEMasflInfo(qint32 record, qint32* found, qint32* left, qint32* runs) {
    return call(
        "MEMasflInfo",
        [&] {
            if (anyNull(found, left, runs))
                return BadArgument;
            const Run* const run = image_.run(record);
            if (run == nullptr)
                return UnknownId;
            *found = -1;
            *left = -1;
            *runs = 0;
            qint32 place = 0;
            for (const Run& other : image_.contents().runs) {
                if (other.tag == run->tag && other.serial == run->serial) {
                    (other.kind == AsFound ? *found : *left) = place;
                    ++*runs;
                }
                ++place;
            }
            return Done;
        },
        record);
}

Library::Status Library::MEMbaseState(qint32 record) {
    return call(
        "MEMbaseState", [&] { return image_.selectStateOf(record); }, record);
}

Library::Status Library::MEMtagidInfo(qint32 record, char* tag, char* serial, char* technician) {
    return call(
        "MEMtagidInfo",
        [&] {
            if (anyNull(tag, serial, technician))
                return BadArgument;
            const Run* const run = image_.run(record);
            if (run == nullptr)
                return UnknownId;
            putText(tag, tagWidth, run->tag);
            putText(serial, tagWidth, run->serial);
            putText(technician, tagWidth, run->technician);
            return run->tag.isEmpty() ? NoTag : Done;
        },
        record);
}

Library::Status Library::MEMcalResult(qint32 record, qint16* entries) {
    return call(
        "MEMcalResult",
        [&] {
            if (entries == nullptr)
                return BadArgument;
            const Run* const run = image_.run(record);
            if (run == nullptr)
                return UnknownId;
            *entries = static_cast<qint16>(run->entries.size());
            return Done;
        },
        record);
}

Library::Status Library::MEMcalResultEntry(qint32 record, qint16 entry, float* reading, qint16* second,
                                           float* third, float* applied, qint16* fifth, float* sixth,
                                           float* error) {
    return call(
        "MEMcalResultEntry",
        [&] {
            if (anyNull(reading, third, applied, sixth, error) || anyNull(second, fifth))
                return BadArgument;
            const Run* const run = image_.run(record);
            if (run == nullptr || entry < 0 || static_cast<std::size_t>(entry) >= run->entries.size())
                return UnknownId;
            const Entry& stored = run->entries[static_cast<std::size_t>(entry)];
            *reading = stored.reading;
            *second = 0;
            *third = 0;
            *applied = stored.applied;
            *fifth = 0;
            *sixth = 0;
            *error = stored.error;
            return Done;
        },
        record, entry);
}

Library::Status Library::STAgetPressure(char* model, char* serial, qint32* number) {
    return call("STAgetPressure", [&] {
        if (anyNull(model, serial, number))
            return BadArgument;
        const QString& module = image_.module();
        putText(model, modelWidth, module.isEmpty() ? QString() : QStringLiteral("700P"));
        putText(serial, serialWidth, module);
        *number = 0;
        return Done;
    });
}

} // namespace kelvane::simulators::fluke702
