#pragma once

#include "data/parameters/cal_param_columns.h"
#include "resources/strings.h"

#include <optional>
#include <span>

namespace kelvane {

/// The grids of the parameter editor that fields stand in.
enum class CalParamPanel {
    strategy,
    inputLimits,
    inputMeasurement,
    outputLimits,
    outputUnits,
    fullScaleTolerance,
    spanTolerance,
    readingTolerance,
    lsdTolerance,
    unitsTolerance,
    temperatureScaleIn,
    coldJunctionIn,
    sensorIn,
    amplitudeIn,
    temperatureScaleOut,
    coldJunctionOut,
    sensorOut,
    amplitudeOut,
    torqueGeneral,
    torqueAnalog,
    torqueDigital,
    loopPower,
};

/// Where a field stands: a row of a panel has room for two side by side, 0 and 1.
struct CalParamPlace {
    CalParamPanel panel;
    int row = 0;
    int side = 0;
    /// What is written behind the field.
    std::optional<TextId> unit = {};
};

struct CalParamTextBox {
    QStringView starts;
};

struct CalParamList {
    std::span<const QStringView> rows = {};
    /// The row that is selected at first; empty for none.
    QStringView starts = {};
};

struct CalParamCheckBox {};

/// One of a few options of which one is on: its part of the name of its control, the text that stands for it
/// in the database, and its part of the checksum.
struct CalParamOption {
    QStringView name;
    QStringView stored;
    QStringView summed;
    TextId caption;
    TextId toolTip;
};

/// The name of such a field holds a "%1" for those of its options.
struct CalParamOptions {
    std::span<const CalParamOption> options;
    /// The option that is on at first, by what is stored.
    QStringView starts;
    /// In any letter case a stored text is that of its option.
    bool anyCase = false;
};

/// Whether the caption stands beside the field; without, it is the accessible name only.
enum class CalParamLabel { yes, no };

/// How a parameter is shown.
struct CalParamField {
    using Control = std::variant<CalParamTextBox, CalParamList, CalParamCheckBox, CalParamOptions>;

    CalParamMember member;
    QStringView name;
    TextId caption;
    std::optional<TextId> toolTip;
    Control control;
    CalParamPlace place;
    CalParamLabel label = CalParamLabel::yes;
    /// What the caption needs to be understood where it is spoken alone.
    std::optional<TextId> subject = {};
};

/// All fields, each panel's in the order in which Tab goes through them.
std::span<const CalParamField> calParamFieldTable();

} // namespace kelvane
