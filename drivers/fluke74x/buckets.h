#pragma once

#include "drivers/fluke74x/dpclnk3.h"
#include "drivers/link_status.h"

#include <optional>

namespace kelvane::Module74xInterface {

/// Under what all items and buckets of a setup state stand.
inline const QString root = QStringLiteral("root");

/// Only so many buckets of a state have names.
inline constexpr qint16 maxNamedBuckets = 200;

/// The name of a bucket of the current setup state, cleaned, whatever the status; none for an index outside 0
/// to 199.
QString BucketName(Dpclnk3& link, qint16& index);

/// What a bucket holds, as far as a run needs it: the number of a float or an integer, or the text of a text,
/// a unit or a mapped word, cleaned.
struct BucketValue {
    std::optional<float> number = {};
    std::optional<QString> text = {};
};

/// Reads a bucket of the current setup state by its type, 1 to 7; one of another type holds nothing. False
/// when a status ended it.
bool readBucket(Dpclnk3& link, StatusRule& rule, const QString& name, BucketValue& value);

} // namespace kelvane::Module74xInterface
