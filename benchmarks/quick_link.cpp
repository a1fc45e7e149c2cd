#include "benchmarks/quick_link.h"

#include "drivers/link_library.h"
#include "platform/values/texts.h"

namespace kelvane::bench {

namespace {

/// The way by which every text comes out of a real library.
void write(QString& buffer, const QByteArray& text) {
    qstrcpy(TextOut(buffer), text.constData());
}

} // namespace

Dpclnk::Status QuickLink::DPCget70x(QString& model, QString& serial, QString& text, qint32&, qint32&,
                                    qint32&) {
    write(model, "702");
    write(serial, "6841207");
    write(text, "V1.0");
    return 0;
}

Dpclnk::Status QuickLink::MEMstrategyDefn(qint32& strategyId, const QString&, qint16 count,
                                          const float* points) {
    strategyId = ++strategies_;
    next_.points.assign(points, points + count);
    return 0;
}

Dpclnk::Status QuickLink::MEMtemplate(qint32, qint16, const QString& tag, const QString& serial, qint32) {
    next_.tag = toCalibratorBytes(tag);
    next_.serial = toCalibratorBytes(serial);
    tasks_.push_back(next_);
    return 0;
}

Dpclnk::Status QuickLink::STAsetOutputScale(float high, float low) {
    next_.applied = {low, high};
    return 0;
}

Dpclnk::Status QuickLink::STAsetInputScale(float high, float low) {
    next_.read = {low, high};
    return 0;
}

Dpclnk::Status QuickLink::STAsave(qint32& stateId) {
    stateId = ++states_;
    return 0;
}

Dpclnk::Status QuickLink::MEMstats(qint32&, qint32& count) {
    count = static_cast<qint32>(tasks_.size());
    return 0;
}

Dpclnk::Status QuickLink::MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year,
                                  qint16& hour, qint16& minute, qint16& second) {
    kind = 1;
    month = 3;
    day = 18;
    year = 2026;
    hour = static_cast<qint16>(8 + record / 60);
    minute = static_cast<qint16>(record % 60);
    second = 30;
    return 0;
}

Dpclnk::Status QuickLink::MEMtagidInfo(qint32 record, QString& tag, QString& serial, QString& technician) {
    write(tag, task(record).tag);
    write(serial, task(record).serial);
    write(technician, "bkowalski");
    return 0;
}

Dpclnk::Status QuickLink::MEMcalResult(qint32 record, qint16& entries) {
    entries = static_cast<qint16>(task(record).points.size());
    return 0;
}

Dpclnk::Status QuickLink::MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16&, float&,
                                            float& applied, qint16&, float&, float& error) {
    const auto& stored = task(record);
    const float fraction = stored.points[static_cast<std::size_t>(entry)];
    reading = stored.read.at(fraction);
    applied = stored.applied.at(fraction);
    error = 0;
    return 0;
}

Dpclnk::Status QuickLink::STAgetPressure(QString& model, QString& serial, Open&) {
    write(model, "700P06");
    write(serial, "71204");
    return 0;
}

} // namespace kelvane::bench
