#include "testkit/recorded_link.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

const StoredRun* RecordedLink::run(qint32 index) const {
    return index >= 0 && index < runs.size() ? &runs[index] : nullptr;
}

QString RecordedLink::missing() {
    return answerQuestion();
}

RecordedLink::Status RecordedLink::DPCopen(qint32 baudRate, const QString& port, qint32 constant1000,
                                           quint8 constant5) {
    return record("DPCopen", baudRate, port, constant1000, constant5);
}

RecordedLink::Status RecordedLink::DPCclose() {
    return record("DPCclose");
}

RecordedLink::Status RecordedLink::DPCget70x(QString& modelOut, QString& serialOut, QString& textOut,
                                             qint32& number, qint32& unused1, qint32& unused2) {
    put(modelOut, model);
    put(serialOut, serial);
    put(textOut, text);
    number = 702;
    unused1 = 1;
    unused2 = 2;
    return record("DPCget70x");
}

RecordedLink::Status RecordedLink::DPCdnlStart(qint32& count) {
    count = steps;
    return record("DPCdnlStart");
}

RecordedLink::Status RecordedLink::DPCdnlStep(qint32& count) {
    const auto status = record("DPCdnlStep", count);
    count = nextCount(count);
    return status;
}

RecordedLink::Status RecordedLink::DPCuplStart(qint32& count) {
    count = steps;
    return record("DPCuplStart");
}

RecordedLink::Status RecordedLink::DPCuplStep(qint32& count) {
    const auto status = record("DPCuplStep", count);
    count = nextCount(count);
    return status;
}

RecordedLink::Status RecordedLink::MEMclear() {
    return record("MEMclear");
}

RecordedLink::Status RecordedLink::MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                                                   const float* points) {
    strategyId = ++strategies_;
    return record("MEMstrategyDefn", name, count, displayText(points, count));
}

RecordedLink::Status RecordedLink::MEMpromptDefn(const QString& key, const QString& prompt) {
    return record("MEMpromptDefn", key, prompt);
}

RecordedLink::Status RecordedLink::MEMstartTask(const QString& tag) {
    return record("MEMstartTask", tag);
}

RecordedLink::Status RecordedLink::MEMprompt(const QString& key) {
    return record("MEMprompt", key);
}

RecordedLink::Status RecordedLink::MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag,
                                               const QString& serialNumber, qint32 stateId) {
    return record("MEMtemplate", strategyId, readByHand, tag, serialNumber, stateId);
}

RecordedLink::Status RecordedLink::MEMendTask() {
    return record("MEMendTask");
}

RecordedLink::Status RecordedLink::STAinit() {
    return record("STAinit");
}

RecordedLink::Status RecordedLink::STAsetTempUnits(const QString& units) {
    return record("STAsetTempUnits", units);
}

RecordedLink::Status RecordedLink::STAsetTref(const QString& mode, float temperature) {
    return record("STAsetTref", mode, temperature);
}

RecordedLink::Status RecordedLink::STAsetTempStd(const QString& standard) {
    return record("STAsetTempStd", standard);
}

RecordedLink::Status RecordedLink::STAsetPresUnits(const QString& units) {
    return record("STAsetPresUnits", units);
}

RecordedLink::Status RecordedLink::STAsetOutput(const QString& mode, const QString& sensor, float value,
                                                float amplitude) {
    return record("STAsetOutput", mode, sensor, value, amplitude);
}

RecordedLink::Status RecordedLink::STAsetInput(const QString& mode, const QString& sensor) {
    return record("STAsetInput", mode, sensor);
}

RecordedLink::Status RecordedLink::STAsetInputRange(qint16 automatic, float top) {
    return record("STAsetInputRange", automatic, top);
}

RecordedLink::Status RecordedLink::STAsetLoopPower(const QString& power) {
    return record("STAsetLoopPower", power);
}

RecordedLink::Status RecordedLink::STAsetOutputScale(float high, float low) {
    return record("STAsetOutputScale", high, low);
}

RecordedLink::Status RecordedLink::STAsetInputScale(float high, float low) {
    return record("STAsetInputScale", high, low);
}

RecordedLink::Status RecordedLink::STAsetTestTolerance(float percent) {
    return record("STAsetTestTolerance", percent);
}

RecordedLink::Status RecordedLink::STAsave(qint32& stateId) {
    stateId = ++states_;
    return record("STAsave");
}

RecordedLink::Status RecordedLink::MEMstats(qint32& unused, qint32& count) {
    unused = 1;
    count = storedRuns.value_or(static_cast<qint32>(runs.size()));
    return record("MEMstats");
}

RecordedLink::Status RecordedLink::MEMrDir(qint32 recordIndex, qint16& kind, qint16& month, qint16& day,
                                           qint16& year, qint16& hour, qint16& minute, qint16& second) {
    if (const auto* stored = run(recordIndex)) {
        kind = stored->kind;
        month = stored->month;
        day = stored->day;
        year = stored->year;
        hour = stored->hour;
        minute = stored->minute;
        second = stored->second;
    }
    return record("MEMrDir", recordIndex);
}

RecordedLink::Status RecordedLink::MEMasflInfo(qint32 recordIndex, qint32& unused1, qint32& unused2,
                                               qint32& unused3) {
    unused1 = unused2 = unused3 = 7;
    return record("MEMasflInfo", recordIndex);
}

RecordedLink::Status RecordedLink::MEMbaseState(qint32 recordIndex) {
    current_ = recordIndex;
    return record("MEMbaseState", recordIndex);
}

RecordedLink::Status RecordedLink::MEMtagidInfo(qint32 recordIndex, QString& tag, QString& serialNumber,
                                                QString& technician) {
    if (const auto* stored = run(recordIndex)) {
        put(tag, stored->tag);
        put(serialNumber, stored->serial);
        put(technician, stored->technician);
    }
    return record("MEMtagidInfo", recordIndex);
}

RecordedLink::Status RecordedLink::MEMcalResult(qint32 recordIndex, qint16& entries) {
    if (const auto* stored = run(recordIndex))
        entries = static_cast<qint16>(stored->entries.size());
    return record("MEMcalResult", recordIndex);
}

RecordedLink::Status RecordedLink::MEMcalResultEntry(qint32 recordIndex, qint16 entry, float& reading,
                                                     qint16& unused2, float& unused3, float& applied,
                                                     qint16& unused5, float& unused6, float& error) {
    if (const auto* stored = run(recordIndex); stored && entry >= 0 && entry < stored->entries.size()) {
        reading = stored->entries[entry].reading;
        applied = stored->entries[entry].applied;
        error = stored->entries[entry].error;
        unused2 = unused5 = 9;
        unused3 = unused6 = 9;
    }
    return record("MEMcalResultEntry", recordIndex, entry);
}

RecordedLink::Status RecordedLink::STAgetPressure(QString& modelOut, QString& serialOut, qint32& unused) {
    put(modelOut, u"700P06"_s);
    put(serialOut, run(current_) ? run(current_)->pressureModule : QString());
    unused = 3;
    return record("STAgetPressure");
}

} // namespace kelvane::testing
