#include "benchmarks/quick_link3.h"

#include "drivers/link_library.h"
#include "platform/values/texts.h"

#include <algorithm>
#include <iterator>

namespace kelvane::bench {

namespace {

/// The way by which every text comes out of a real library.
void write(QString& buffer, const QByteArray& text) {
    qstrcpy(TextOut(buffer), text.constData());
}

enum BucketType : qint16 { floatType = 1, textType, rangeType, unitType, integerType, timeType, wordType };

struct Bucket {
    QStringView name;
    BucketType type;
};

constexpr Bucket buckets[] = {
    {u"mcMode", wordType},
    {u"scMode", wordType},
    {u"loop", wordType},
    {u"tempstd", wordType},
    {u"mTcType", wordType},
    {u"sTcType", wordType},
    {u"mRtdType", wordType},
    {u"sRtdType", wordType},
    {u"mcTref", wordType},
    {u"scTref", wordType},
    {u"defaultPres", unitType},
    {u"defaultTemp", unitType},
    {u"mcDamping", wordType},
    {u"scDamping", wordType},
    {u"mUutZero", floatType},
    {u"mUutFS", floatType},
    {u"mCustomZero", floatType},
    {u"mZero", floatType},
    {u"mCustomFS", floatType},
    {u"mFS", floatType},
    {u"mCustomUnit", unitType},
    {u"mcScale", wordType},
    {u"mcRangeLocked", integerType},
    {u"mcRange", floatType},
    {u"sUutZero", floatType},
    {u"sUutFS", floatType},
    {u"sCustomZero", floatType},
    {u"sZero", floatType},
    {u"sCustomFS", floatType},
    {u"sFS", floatType},
    {u"sCustomUnit", unitType},
    {u"scScale", wordType},
    {u"tol", floatType},
    {u"cError", wordType},
    {u"time", timeType},
    {u"srange", rangeType},
    {u"sprimary", floatType},
    {u"mrange", rangeType},
    {u"mprimary", floatType},
    {u"error", floatType},
    {u"spserial", textType},
    {u"exttemp", floatType},
};

/// An atom for the reference, one for the results, one for each step, one for the tag.
constexpr qint32 atomsBesidesSteps = 3;

} // namespace

Dpclnk3::Status QuickLink3::DPC3get74X(QString& model, QString& serial, QString& text, qint32&, qint32&,
                                       qint32&) {
    write(model, "743B");
    write(serial, "7112044");
    write(text, "V3.1");
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3findStrategyDefn(qint32, const QString& name, qint32& strategy,
                                                 qint32& strategyId) {
    const auto found = strategyIds_.constFind(name);
    if (found == strategyIds_.constEnd())
        return 2001;
    strategy = strategyId = *found;
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3strategyDefn(qint32, qint32&, qint32& strategyId, const QString& name,
                                             const float* points, qint16 count) {
    const auto found = strategyIds_.constFind(name);
    if (found != strategyIds_.constEnd()) {
        strategyId = *found;
        return 0;
    }
    strategies_.emplace_back(points, points + count);
    strategyId = static_cast<qint32>(strategies_.size());
    strategyIds_.insert(name, strategyId);
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3instrCalTemplate(qint32, qint32, qint32&, qint32, qint32, qint32 strategyId,
                                                 const State&, qint16, qint16, qint32, const QString& tag,
                                                 const QString& serial) {
    next_.tag = toCalibratorBytes(tag);
    next_.serial = toCalibratorBytes(serial);
    next_.points = strategies_[static_cast<std::size_t>(strategyId - 1)];
    tasks_.push_back(next_);
    return 0;
}

Dpclnk3::Status QuickLink3::STA3setFloatOp(const QString&, const QString& item, float value) {
    const struct {
        QStringView item;
        float* value;
    } ends[] = {{u"mUutZero", &next_.measured.low},
                {u"mUutFS", &next_.measured.high},
                {u"sUutZero", &next_.sourced.low},
                {u"sUutFS", &next_.sourced.high}};
    for (const auto& end : ends) {
        if (end.item == item)
            *end.value = value;
    }
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3ngroups(qint32, qint32& groups) {
    groups = static_cast<qint32>(tasks_.size());
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3natoms(qint32, qint32 group, qint32& atoms) {
    atoms = static_cast<qint32>(task(group).points.size()) + atomsBesidesSteps;
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3atomDir(qint32, qint32 group, qint32 atom, qint16& kind, qint32&) {
    const auto steps = static_cast<qint32>(task(group).points.size());
    if (atom == 0)
        kind = 18;
    else if (atom == 1)
        kind = 4;
    else
        kind = atom == steps + 2 ? 11 : 5;
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3instrTagInfo(qint32, qint32 group, qint32, QString& tag, QString& serial,
                                             QString& technician) {
    write(tag, task(group).tag);
    write(serial, task(group).serial);
    write(technician, "bkowalski");
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3instrCalResultInfo(qint32, qint32 group, qint32, qint16& steps,
                                                   RunTime& time) {
    steps = static_cast<qint16>(task(group).points.size());
    time = {3, 18, 2026, static_cast<qint16>(8 + group / 60), static_cast<qint16>(group % 60), 30};
    return 0;
}

Dpclnk3::Status QuickLink3::MEM3instrCalResultStepInfo(qint32, qint32 group, qint32, qint16 step,
                                                       State& state) {
    state = {group, step, 0};
    return 0;
}

Dpclnk3::Status QuickLink3::STA3restore(const State& state) {
    const auto& stored = task(state.first);
    const float fraction = stored.points[static_cast<std::size_t>(state.second)];
    sourced_ = stored.sourced.at(fraction);
    measured_ = stored.measured.at(fraction);
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getBktListInfo(const QString&, qint32& count) {
    count = static_cast<qint32>(std::size(buckets));
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getBktName(const QString&, qint16 bucket, QString& name) {
    write(name, buckets[bucket].name.toLatin1());
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getType(const QString&, const QString& bucket, qint16& type) {
    const auto* const found = std::ranges::find(buckets, bucket, &Bucket::name);
    if (found == std::end(buckets))
        return 2001;
    type = found->type;
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getFloat(const QString&, const QString& bucket, float& value) {
    value = bucket == u"sprimary" ? sourced_ : bucket == u"mprimary" ? measured_ : 0.0F;
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getStr(const QString&, const QString&, QString& value) {
    write(value, "71204");
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getUnit(const QString&, const QString&, QString& unit) {
    write(unit, "psi");
    return 0;
}

Dpclnk3::Status QuickLink3::STA3getMapped(const QString&, const QString&, QString& word) {
    write(word, "Enabled 24V");
    return 0;
}

} // namespace kelvane::bench
