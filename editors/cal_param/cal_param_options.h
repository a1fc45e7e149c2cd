#pragma once

#include "editors/cal_param/cal_param_controls.h"

#include <QStringView>

#include <array>
#include <span>

namespace kelvane {

/// One of a few options of which one is on: its control, the text that stands for it in the database, and
/// its part of the checksum.
struct CalParamOption {
    QRadioButton* CalParamControls::*control;
    QStringView stored;
    QStringView summed;
};

/// The one that is on.
const CalParamOption& optionOn(const CalParamControls& controls, std::span<const CalParamOption> options);

inline constexpr std::array coldJunctionIn{
    CalParamOption{&CalParamControls::OptionCJRefIntIn, u"INT", u"I"},
    CalParamOption{&CalParamControls::OptionCJRefExtIn, u"EXT", u"E"},
};
inline constexpr std::array coldJunctionOut{
    CalParamOption{&CalParamControls::OptionCJRefIntOut, u"INT", u"I"},
    CalParamOption{&CalParamControls::OptionCJRefExtOut, u"EXT", u"E"},
};
inline constexpr std::array wiresIn{
    CalParamOption{&CalParamControls::OptionSensWires2In, u"2", u"2"},
    CalParamOption{&CalParamControls::OptionSensWires3In, u"3", u"3"},
    CalParamOption{&CalParamControls::OptionSensWires4In, u"4", u"4"},
};
inline constexpr std::array wiresOut{
    CalParamOption{&CalParamControls::OptionSensWires2Out, u"2", u"2"},
    CalParamOption{&CalParamControls::OptionSensWires3Out, u"3", u"3"},
    CalParamOption{&CalParamControls::OptionSensWires4Out, u"4", u"4"},
};
inline constexpr std::array loopPower{
    CalParamOption{&CalParamControls::OptionCalLoopPWROutOff, u"OFF", u"O"},
    CalParamOption{&CalParamControls::OptionCalLoopPWROut24VDC, u"24V", u"24"},
    CalParamOption{&CalParamControls::OptionCalLoopPWROut28VDC, u"28V", u"28"},
};

} // namespace kelvane
