#include "simulators/common/link_arguments.h"
#include "simulators/fluke74x/library.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

/// The only place under which a state's items lie.
bool isRoot(const char* root) {
    return *textIn(root) == u"root"_s;
}

bool isMissing(const char* text) {
    return text == nullptr;
}
bool isMissing(float) {
    return false;
}
bool isMissing(qint32) {
    return false;
}

template <class Number>
Code copyInto(Number* place, Number value) {
    if (place == nullptr)
        return BadArgument;
    *place = value;
    return Done;
}

Code copyInto(char* buffer, qint32 length, const QString& text) {
    if (buffer == nullptr || length < 1)
        return BadArgument;
    putText(buffer, length, text);
    return Done;
}

} // namespace

// ---- making a state

Library::Status Library::STA3beginOps() {
    return stateCall("STA3beginOps", [&] { return image_.setup().begin(); });
}

Library::Status Library::STA3initOp() {
    return stateCall("STA3initOp", [&] { return image_.setup().setDefaults(); });
}

template <class Given>
Library::Status Library::setItem(const char* operation, const char* root, const char* item, Given given,
                                 Value (*valueOf)(Given)) {
    return stateCall(
        operation,
        [&] {
            if (anyNull(root, item) || isMissing(given))
                return BadArgument;
            return isRoot(root) ? image_.setup().set(*textIn(item), valueOf(given)) : NotFound;
        },
        root, item, given);
}

Library::Status Library::STA3setMappedOp(const char* root, const char* item, const char* word) {
    return setItem<const char*>("STA3setMappedOp", root, item, word,
                                [](const char* given) { return Value(Word{*textIn(given)}); });
}

Library::Status Library::STA3setUnitOp(const char* root, const char* item, const char* unit) {
    return setItem<const char*>("STA3setUnitOp", root, item, unit,
                                [](const char* given) { return Value(Unit{*textIn(given)}); });
}

Library::Status Library::STA3setFloatOp(const char* root, const char* item, float value) {
    return setItem<float>("STA3setFloatOp", root, item, value, [](float given) { return Value(given); });
}

Library::Status Library::STA3setIntOp(const char* root, const char* item, qint32 value) {
    return setItem<qint32>("STA3setIntOp", root, item, value, [](qint32 given) { return Value(given); });
}

Library::Status Library::STA3evalOp() {
    return stateCall("STA3evalOp", [&] { return image_.setup().evaluate(); });
}

Library::Status Library::STA3saveOps(qint32* first, qint32* second, qint32* third) {
    return stateCall("STA3saveOps", [&] {
        if (anyNull(first, second, third))
            return BadArgument;
        References state;
        const Code code = image_.saveState(state);
        if (code != Done)
            return code;
        *first = state.first;
        *second = state.second;
        *third = state.third;
        return Done;
    });
}

Library::Status Library::STA3freeOps() {
    return stateCall("STA3freeOps", [&] { return image_.setup().end(); });
}

// ---- the current state

Library::Status Library::STA3restore(qint32 first, qint32 second, qint32 third) {
    return stateCall(
        "STA3restore",
        [&] {
            return image_.restore({first, second, third});
        },
        first, second, third);
}

template <class Work>
Code Library::onState(const char* root, Work work) {
    if (root == nullptr)
        return BadArgument;
    if (!isRoot(root))
        return NotFound;
    const std::vector<Bucket>* const buckets = image_.buckets();
    return buckets == nullptr ? NoData : work(*buckets);
}

Library::Status Library::STA3getBktListInfo(const char* root, qint32* buckets) {
    return stateCall(
        "STA3getBktListInfo",
        [&] {
            return onState(root, [&](const std::vector<Bucket>& list) {
                return copyInto(buckets, static_cast<qint32>(list.size()));
            });
        },
        root);
}

Library::Status Library::STA3getBktName(const char* root, qint16 bucket, char* name, qint32 length) {
    return stateCall(
        "STA3getBktName",
        [&] {
            return onState(root, [&](const std::vector<Bucket>& list) {
                const bool isThere = bucket >= 0 && static_cast<std::size_t>(bucket) < list.size();
                return isThere ? copyInto(name, length, list[static_cast<std::size_t>(bucket)].name)
                               : BadArgument;
            });
        },
        root, bucket, length);
}

template <class Take>
Library::Status Library::withBucket(const char* operation, const char* root, const char* bucket, Take take) {
    return stateCall(
        operation,
        [&] {
            if (bucket == nullptr)
                return BadArgument;
            return onState(root, [&](const std::vector<Bucket>& list) {
                const QString name = *textIn(bucket);
                const auto place = std::find_if(list.begin(), list.end(),
                                                [&](const Bucket& kept) { return kept.name == name; });
                return place == list.end() ? NotFound : take(place->value);
            });
        },
        root, bucket);
}

Library::Status Library::STA3getType(const char* root, const char* bucket, qint16* type) {
    return withBucket("STA3getType", root, bucket,
                      [&](const Value& value) { return copyInto(type, typeOf(value)); });
}

template <class Kept, class Take>
Library::Status Library::readBucket(const char* operation, const char* root, const char* bucket, Take take) {
    return withBucket(operation, root, bucket, [&](const Value& value) {
        const Kept* const kept = std::get_if<Kept>(&value);
        return kept == nullptr ? BadArgument : take(*kept);
    });
}

Library::Status Library::STA3getFloat(const char* root, const char* bucket, float* value) {
    return readBucket<float>("STA3getFloat", root, bucket, [&](float kept) { return copyInto(value, kept); });
}

Library::Status Library::STA3getStr(const char* root, const char* bucket, char* value, qint32 length) {
    return readBucket<QString>("STA3getStr", root, bucket,
                               [&](const QString& kept) { return copyInto(value, length, kept); });
}

Library::Status Library::STA3getRange(const char* root, const char* bucket, float* low, float* high) {
    return readBucket<Range>("STA3getRange", root, bucket, [&](const Range& kept) {
        if (anyNull(low, high))
            return BadArgument;
        *low = kept.low;
        *high = kept.high;
        return Done;
    });
}

Library::Status Library::STA3getUnit(const char* root, const char* bucket, char* unit, qint32 length) {
    return readBucket<Unit>("STA3getUnit", root, bucket,
                            [&](const Unit& kept) { return copyInto(unit, length, kept.name); });
}

Library::Status Library::STA3getInt(const char* root, const char* bucket, qint32* value) {
    return readBucket<qint32>("STA3getInt", root, bucket, [&](qint32 kept) { return copyInto(value, kept); });
}

Library::Status Library::STA3getTime(const char* root, const char* bucket, qint32* value) {
    return readBucket<Seconds>("STA3getTime", root, bucket,
                               [&](const Seconds& kept) { return copyInto(value, kept.count); });
}

Library::Status Library::STA3getMapped(const char* root, const char* bucket, char* word, qint32 length) {
    return readBucket<Word>("STA3getMapped", root, bucket,
                            [&](const Word& kept) { return copyInto(word, length, kept.text); });
}

} // namespace kelvane::simulators::fluke74x
