#pragma once

#include "data/parameters/cal_params.h"
#include "platform/database/sql_words.h"

#include <span>
#include <variant>

namespace kelvane {

/// The member of the record that a parameter is read into.
using CalParamMember = std::variant<float CalParamRecord::*, qint16 CalParamRecord::*,
                                    QString CalParamRecord::*, bool CalParamRecord::*>;

/// The places of a parameter in the given orders, from 0; `none` where it is no part of one.
struct CalParamPlaces {
    static constexpr int none = -1;
    int select = none;
    int sum = none;
    int save = none;
};

/// What a null of the database reads as; `error` is reported.
enum class CalParamNull { error, zero, off };
/// What an empty entry is stored as.
enum class CalParamEmpty { text, null };

struct CalParamRules {
    CalParamNull null = CalParamNull::error;
    CalParamEmpty empty = CalParamEmpty::text;
    /// The prompt macro that stands for the value, and what is written behind it.
    QStringView macro = {};
    QStringView unit = {};
    /// What the select list says; empty for the name of the column.
    SqlWords expression = u"";
};

/// A calibration parameter: a column of `mt.hvm_kv_tag_config`, or a value that is worked out with them. How
/// it is shown stands in the table of the parameter editor's fields.
struct CalParamColumn {
    QLatin1StringView name;
    CalParamMember member;
    CalParamPlaces places;
    CalParamRules rules;
};

/// All parameters, in the order in which a screen shows them.
std::span<const CalParamColumn> calParamColumns();
/// Those that a record is read from, those that the checksum is taken of, and those that a save writes, each
/// in its order.
std::span<const CalParamColumn* const> selectedCalParams();
std::span<const CalParamColumn* const> summedCalParams();
std::span<const CalParamColumn* const> savedCalParams();

/// The parameter of a member; each member of the record has one.
const CalParamColumn& calParamColumn(CalParamMember member);
/// The value of a parameter as text: numbers in their plain form, flags as "Y" and "N".
QString calParamText(const CalParamRecord& record, CalParamMember member);

} // namespace kelvane
