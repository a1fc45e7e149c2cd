#include "data/parameters/cal_param_columns.h"

#include "platform/values/numbers.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

using R = CalParamRecord;
using enum CalParamNull;

constexpr CalParamRules zeroIfNull{.null = zero};
constexpr auto none = CalParamPlaces::none;

/// A limit or tolerance that may be left empty.
constexpr CalParamRules optionalNumber(QStringView macro = {}, QStringView unit = {}) {
    return {.null = zero, .empty = CalParamEmpty::null, .macro = macro, .unit = unit};
}

/// The numbers are the places in the select list, in the checksum and in the insert. A new parameter goes to
/// the end and takes the next place of each. The two "indicated" flags stand in the select list the other way
/// round than in the record.
constexpr CalParamColumn columns[] = {
    {"mtag"_L1, &R::mtag, {19, none, 0}, {.expression = u"mt.hvm_kv_tag_config.mtag"}},
    {"test_point_count"_L1,
     &R::test_point_count,
     {1, none, none},
     {.macro = u"STRATEGYPOINTS",
      .expression = u"(select count(test_point_pct) from mt.hvm_kv_proc_points where "
                    "mt.hvm_kv_proc_points.tp_name = mt.hvm_kv_tag_config.tp_name)"}},
    {"max_test_point_pct"_L1,
     &R::max_test_point_pct,
     {42, none, none},
     {.null = zero,
      .expression = u"(select max(test_point_pct) from mt.hvm_kv_proc_points where "
                    "mt.hvm_kv_proc_points.tp_name = mt.hvm_kv_tag_config.tp_name)"}},
    {"resolution"_L1, &R::resolution, {2, 0, 1}, {.macro = u"RESOLUTION"}},
    {"input_type"_L1, &R::input_type, {3, 1, 2}, {.macro = u"INPUTUNITS"}},
    {"output_type"_L1, &R::output_type, {4, 2, 3}, {.macro = u"OUTPUTUNITS"}},
    {"input_low"_L1, &R::input_low, {6, 3, 4}, optionalNumber(u"INPUTLOW")},
    {"input_high"_L1, &R::input_high, {5, 4, 5}, {.macro = u"INPUTHIGH"}},
    {"output_low"_L1, &R::output_low, {8, 5, 6}, optionalNumber(u"OUTPUTLOW")},
    {"output_high"_L1, &R::output_high, {7, 6, 7}, {.macro = u"OUTPUTHIGH"}},
    {"temp_scale_in"_L1, &R::temp_scale_in, {33, 7, 8}, {.macro = u"INPUTTEMPSCALE"}},
    {"temp_scale_out"_L1, &R::temp_scale_out, {34, 8, 9}, {.macro = u"OUTPUTTEMPSCALE"}},
    {"cj_ref_type_in"_L1, &R::cj_ref_type_in, {23, 9, 10}, {}},
    {"cj_ref_type_out"_L1, &R::cj_ref_type_out, {24, 10, 11}, {}},
    {"cj_ref_temp_in"_L1, &R::cj_ref_temp_in, {21, 11, 12}, optionalNumber()},
    {"cj_ref_temp_out"_L1, &R::cj_ref_temp_out, {22, 12, 13}, optionalNumber()},
    {"temp_sens_type_in"_L1, &R::temp_sens_type_in, {35, 13, 14}, {.macro = u"INPUTTEMPSENS"}},
    {"temp_sens_type_out"_L1, &R::temp_sens_type_out, {36, 14, 15}, {.macro = u"OUTPUTTEMPSENS"}},
    {"temp_sens_wires_in"_L1, &R::temp_sens_wires_in, {37, 15, 16}, {.macro = u"INPUTTEMPWIRES"}},
    {"temp_sens_wires_out"_L1, &R::temp_sens_wires_out, {38, 16, 17}, {.macro = u"OUTPUTTEMPWIRES"}},
    {"neg_fs_range_pct"_L1, &R::neg_fs_range_pct, {9, 17, 18}, optionalNumber(u"FSNEG", u"%")},
    {"pos_fs_range_pct"_L1, &R::pos_fs_range_pct, {10, 18, 19}, optionalNumber(u"FSPOS", u"%")},
    {"neg_span_pct"_L1, &R::neg_span_pct, {11, 19, 20}, optionalNumber(u"SPANNEG", u"%")},
    {"pos_span_pct"_L1, &R::pos_span_pct, {12, 20, 21}, optionalNumber(u"SPANPOS", u"%")},
    {"neg_reading_pct"_L1, &R::neg_reading_pct, {13, 21, 22}, optionalNumber(u"READINGNEG", u"%")},
    {"pos_reading_pct"_L1, &R::pos_reading_pct, {14, 22, 23}, optionalNumber(u"READINGPOS", u"%")},
    {"neg_lsd_counts"_L1, &R::neg_lsd_counts, {15, 23, 24}, optionalNumber(u"LSDNEG")},
    {"pos_lsd_counts"_L1, &R::pos_lsd_counts, {16, 24, 25}, optionalNumber(u"LSDPOS")},
    {"neg_units"_L1, &R::neg_units, {17, 25, 26}, optionalNumber(u"UNITSNEG")},
    {"pos_units"_L1, &R::pos_units, {18, 26, 27}, optionalNumber(u"UNITSPOS")},
    {"tp_name"_L1,
     &R::tp_name,
     {40, 27, 41},
     {.macro = u"STRATEGYNAME", .expression = u"mt.hvm_kv_tag_config.tp_name"}},
    {"transducer_type_out"_L1, &R::transducer_type_out, {41, 28, 36}, {.macro = u"OUTPUTTRANSDUCER"}},
    {"cycle_end_time_out"_L1, &R::cycle_end_time_out, {26, 31, 30}, {.macro = u"OUTPUTTORQCYCEND"}},
    {"frequency_response_out"_L1, &R::frequency_response_out, {29, 32, 34}, {.macro = u"OUTPUTTORQFREQ"}},
    {"measurement_mode_out"_L1, &R::measurement_mode_out, {31, 33, 32}, {.macro = u"OUTPUTTORQMEASMODE"}},
    {"measurement_direction_out"_L1,
     &R::measurement_direction_out,
     {30, 34, 35},
     {.macro = u"OUTPUTTORQDIRECTION"}},
    {"baud_rate_out"_L1, &R::baud_rate_out, {20, 35, 28}, {}},
    {"data_bits_out"_L1, &R::data_bits_out, {27, 36, 29}, {}},
    {"stop_bits_out"_L1, &R::stop_bits_out, {32, 37, 31}, {}},
    {"data_parity_out"_L1, &R::data_parity_out, {28, 38, 33}, {}},
    {"threshold_torque_out"_L1, &R::threshold_torque_out, {39, 29, 37}, {.macro = u"OUTPUTTHRESTORQ"}},
    {"click_dip_torque_out"_L1, &R::click_dip_torque_out, {25, 30, 38}, {}},
    {"repetitions"_L1, &R::repetitions, {0, 39, 39}, {.macro = u"REPETITIONS"}},
    {"loop_pwr"_L1, &R::loop_pwr, {43, 40, 40}, {.null = off, .macro = u"OUTPUTLOOPPWR"}},
    {"freq_ptpamp_in"_L1, &R::freq_ptpamp_in, {44, 41, 42}, zeroIfNull},
    {"freq_ptpamp_out"_L1, &R::freq_ptpamp_out, {45, 42, 43}, zeroIfNull},
    {"input_indicated"_L1, &R::input_indicated, {46, 44, 44}, {.null = zero, .macro = u"INPUTINDICATED"}},
    {"output_indicated"_L1, &R::output_indicated, {47, 43, 45}, {.null = zero, .macro = u"OUTPUTINDICATED"}},
};

using Place = int CalParamPlaces::*;

template <Place place>
constexpr auto counted = std::ranges::count_if(columns, [](const CalParamColumn& column) {
    return column.places.*place != none;
});

/// The parameters of an order. It does not compile with two of them in one place, or with a place left out.
template <Place place>
consteval auto inOrder() {
    std::array<const CalParamColumn*, counted<place>> order{};
    for (const auto& column : columns) {
        if (column.places.*place != none)
            order.at(static_cast<std::size_t>(column.places.*place)) = &column;
    }
    if (std::ranges::find(order, nullptr) != order.end())
        throw "a place is empty";
    return order;
}

constexpr auto selected = inOrder<&CalParamPlaces::select>();
constexpr auto summed = inOrder<&CalParamPlaces::sum>();
constexpr auto saved = inOrder<&CalParamPlaces::save>();

QString textOf(float value) {
    return plainText(value);
}
QString textOf(qint16 value) {
    return plainText(int{value});
}
QString textOf(const QString& value) {
    return value;
}
QString textOf(bool value) {
    return value ? u"Y"_s : u"N"_s;
}

} // namespace

std::span<const CalParamColumn> calParamColumns() {
    return columns;
}

std::span<const CalParamColumn* const> selectedCalParams() {
    return selected;
}

std::span<const CalParamColumn* const> summedCalParams() {
    return summed;
}

std::span<const CalParamColumn* const> savedCalParams() {
    return saved;
}

const CalParamColumn& calParamColumn(CalParamMember member) {
    return *std::ranges::find(columns, member, &CalParamColumn::member);
}

QString calParamText(const CalParamRecord& record, CalParamMember member) {
    return std::visit([&](auto field) { return textOf(record.*field); }, member);
}

} // namespace kelvane
