#include "simulators/fluke74x/maps.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::simulators::fluke74x {

namespace {

// A text of 33 with its terminating zero.
constexpr qsizetype longestWord = 32;

using Words = std::vector<QStringView>;

const Words sourceModes{u"DCV",        u"Current",    u"Freq", u"2 Wire Ohms", u"2 Wire RTD",
                        u"3 Wire RTD", u"4 Wire RTD", u"TC",   u"Pressure"};
const Words measureModes = [] {
    Words modes = sourceModes;
    modes.push_back(u"ACV");
    return modes;
}();
const Words thermocouples{u"E", u"N", u"J", u"K", u"T", u"B", u"R", u"S", u"C", u"L", u"U"};
const Words resistors{u"Pt100 (385)",  u"Ni120 (672)", u"Pt200 (385)",  u"Pt500 (385)",
                      u"Pt1000 (385)", u"Cu10 (427)",  u"Pt100 (3916)", u"Pt100 (3926)"};
const Words junctions{u"Internal", u"External"};
const Words switchWords{u"Off", u"On"};
const Words curves{u"Linear", u"Square Root"};

Item mapped(QStringView name, const QString& initial, const Words& words) {
    return {name, Word{initial}, words};
}

Item unit(QStringView name, const QString& initial, const Words& words = {}) {
    return {name, Unit{initial}, words};
}

Item number(QStringView name, float initial = 0) {
    return {name, initial, {}};
}

std::vector<Item> allItems() {
    return {
        mapped(u"mcMode", u"DCV"_s, measureModes),
        mapped(u"scMode", u"DCV"_s, sourceModes),
        mapped(u"loop", u"Disabled"_s, {u"Disabled", u"Enabled 24V", u"Enabled 28V"}),
        mapped(u"tempstd", u"ITS-90"_s, {u"ITS-90", u"IPTS-68"}),
        mapped(u"mTcType", u"K"_s, thermocouples),
        mapped(u"sTcType", u"K"_s, thermocouples),
        mapped(u"mRtdType", u"Pt100 (385)"_s, resistors),
        mapped(u"sRtdType", u"Pt100 (385)"_s, resistors),
        mapped(u"mcTref", u"Internal"_s, junctions),
        mapped(u"scTref", u"Internal"_s, junctions),
        unit(u"defaultPres", u"psi"_s, {u"psi", u"in_hg", u"in_h2o", u"m_hg", u"kpa", u"bar"}),
        unit(u"defaultTemp", u"Celsius"_s, {u"Celsius", u"Fahrenheit"}),
        mapped(u"mcDamping", u"Off"_s, switchWords),
        mapped(u"scDamping", u"Off"_s, switchWords),
        number(u"mUutZero"),
        number(u"mUutFS"),
        number(u"mCustomZero"),
        number(u"mZero"),
        number(u"mCustomFS"),
        number(u"mFS", 10),
        unit(u"mCustomUnit", {}),
        mapped(u"mcScale", u"Linear"_s, curves),
        {u"mcRangeLocked", 0, {}, 1},
        number(u"mcRange", 10),
        number(u"sUutZero"),
        number(u"sUutFS"),
        number(u"sCustomZero"),
        number(u"sZero"),
        number(u"sCustomFS"),
        number(u"sFS", 10),
        unit(u"sCustomUnit", {}),
        mapped(u"scScale", u"Linear"_s, curves),
        number(u"tol"),
        mapped(u"cError", u"Normal"_s, {u"Normal", u"UEV Measure", u"UEV Source", u"UEV Measure Source"}),
    };
}

/// The text of a unit or a mapped word; null for any other value.
const QString* textOf(const Value& value) {
    if (const auto* const named = std::get_if<Unit>(&value))
        return &named->name;
    const auto* const word = std::get_if<Word>(&value);
    return word == nullptr ? nullptr : &word->text;
}

Code checkText(const Item& item, const QString& text) {
    if (item.words.empty())
        return text.size() > longestWord ? TooLong : Done;
    return std::find(item.words.begin(), item.words.end(), text) == item.words.end() ? BadArgument : Done;
}

std::size_t placeOf(QStringView name) {
    const auto place =
        std::find_if(items().begin(), items().end(), [&](const Item& item) { return item.name == name; });
    return static_cast<std::size_t>(place - items().begin());
}

} // namespace

const std::vector<Item>& items() {
    static const std::vector<Item> all = allItems();
    return all;
}

Code check(const Item& item, const Value& value) {
    if (value.index() != item.initial.index())
        return BadArgument;
    if (const QString* const text = textOf(value))
        return checkText(item, *text);
    if (const auto* const whole = std::get_if<qint32>(&value))
        return *whole < 0 || *whole > item.highest ? BadArgument : Done;
    return std::isfinite(std::get<float>(value)) ? Done : BadArgument;
}

State::State() {
    for (const Item& item : items())
        values_.push_back(item.initial);
}

Code State::set(const QString& item, const Value& value) {
    const std::size_t place = placeOf(item);
    if (place == items().size())
        return NotFound;
    const Code code = check(items()[place], value);
    if (code == Done)
        values_[place] = value;
    return code;
}

const Value* State::find(QStringView item) const {
    const std::size_t place = placeOf(item);
    return place == values_.size() ? nullptr : &values_[place];
}

float State::number(QStringView item) const {
    const Value* const value = find(item);
    return value != nullptr && std::holds_alternative<float>(*value) ? std::get<float>(*value) : 0;
}

QString State::word(QStringView item) const {
    const Value* const value = find(item);
    const QString* const text = value == nullptr ? nullptr : textOf(*value);
    return text == nullptr ? QString() : *text;
}

} // namespace kelvane::simulators::fluke74x
