#include "drivers/fluke74x/buckets.h"

#include "data/small_routines.h"

#include <iterator>

namespace kelvane::Module74xInterface {

namespace {

using Status = Dpclnk3::Status;

constexpr int textLength = 33;

Status readFloat(Dpclnk3& link, const QString& name, BucketValue& value) {
    return link.STA3getFloat(root, name, value.number.emplace());
}

Status readInteger(Dpclnk3& link, const QString& name, BucketValue& value) {
    qint32 number = 0;
    const auto status = link.STA3getInt(root, name, number);
    value.number = static_cast<float>(number);
    return status;
}

Status readRange(Dpclnk3& link, const QString& name, BucketValue&) {
    float low = 0;
    float high = 0;
    return link.STA3getRange(root, name, low, high);
}

Status readTime(Dpclnk3& link, const QString& name, BucketValue&) {
    qint32 seconds = 0;
    return link.STA3getTime(root, name, seconds);
}

template <Status (Dpclnk3::*operation)(const QString&, const QString&, QString&)>
Status readText(Dpclnk3& link, const QString& name, BucketValue& value) {
    QString text(textLength, u' ');
    const auto status = (link.*operation)(root, name, text);
    value.text = ModuleGlobals::CleanDLLString(text);
    return status;
}

/// The reading calls of the types, from 1 on.
constexpr Status (*readers[])(Dpclnk3&, const QString&, BucketValue&) = {
    readFloat, readText<&Dpclnk3::STA3getStr>,    readRange, readText<&Dpclnk3::STA3getUnit>, readInteger,
    readTime,  readText<&Dpclnk3::STA3getMapped>,
};

} // namespace

QString BucketName(Dpclnk3& link, qint16& index) {
    QString name(textLength, u' ');
    if (index >= 0 && index < maxNamedBuckets)
        link.STA3getBktName(root, index, name);
    return ModuleGlobals::CleanDLLString(name);
}

bool readBucket(Dpclnk3& link, StatusRule& rule, const QString& name, BucketValue& value) {
    qint16 type = 0;
    if (!rule.passes(link.STA3getType(root, name, type)))
        return false;
    if (type < 1 || type > static_cast<qint16>(std::size(readers)))
        return true;
    return rule.passes(readers[type - 1](link, name, value));
}

} // namespace kelvane::Module74xInterface
